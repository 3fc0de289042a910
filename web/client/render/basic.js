import {h, setAttribute, showCaption} from "../dom.js";

const styles = {primary: "btn-primary", danger: "btn-danger", plain: "btn-outline-secondary"};

export function button(link) {
    const element = h("button", {type: "button", class: `btn ${styles[link.item.style] ?? styles.plain}`,
                                 onclick: () => link.fire()});
    return {
        element,
        input: element,
        update() {
            showCaption(element, link.state.caption);
        },
    };
}

export function label(link) {
    const element = h("div", {class: "v-output"});
    const works = link.handles("Click") || link.handles("DblClick");
    if (works) {
        setAttribute(element, "role", "button");
        element.tabIndex = 0;
        element.addEventListener("click", () => link.fire("Click"));
        element.addEventListener("dblclick", () => link.fire("DblClick"));
        element.addEventListener("keydown", (event) => {
            if (event.key !== "Enter") return;
            event.preventDefault();
            link.fire(link.handles("DblClick") ? "DblClick" : "Click");
        });
    }
    return {
        element,
        update() {
            showCaption(element, link.state.caption ?? "");
        },
        setEnabled: (enabled) => setAttribute(element, "aria-disabled", !enabled && "true"),
        focusTarget: () => (works ? element : null),
    };
}
