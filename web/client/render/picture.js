import {h, setAttribute} from "../dom.js";

/** A picture of a patient or a place for one. */
export function picture(link) {
    const image = h("img", {class: "v-picture", alt: link.item.label ?? "Picture"});
    const empty = h("div", {class: "v-picture-empty"}, "No picture");
    const element = h("div", {class: "v-picture-frame"}, image, empty);
    const works = link.handles("DblClick") || link.handles("Click");
    if (works) {
        setAttribute(element, "role", "button");
        element.tabIndex = 0;
        element.addEventListener("click", () => link.fire("Click"));
        element.addEventListener("dblclick", () => link.fire("DblClick"));
        element.addEventListener("keydown", (event) => {
            if (event.key === "Enter") link.fire(link.handles("DblClick") ? "DblClick" : "Click");
        });
    }
    const show = (there) => {
        image.hidden = !there;
        empty.hidden = there;
        if (works) setAttribute(element, "aria-label", [link.item.label ?? "Picture", ...(there ? [] : [empty.textContent])].join(": "));
    };
    show(false);
    image.addEventListener("error", () => {
        empty.textContent = "The picture cannot be shown";
        show(false);
    });
    return {
        element,
        update() {
            const {image: address, color} = link.state;
            if (address !== image.getAttribute("src")) {  // setting it again would fetch it again
                empty.textContent = "No picture";
                setAttribute(image, "src", address);
                show(Boolean(address));
            }
            element.style.backgroundColor = color ?? "";
        },
        setEnabled: (enabled) => setAttribute(element, "aria-disabled", !enabled && "true"),
        focusTarget: () => (works ? element : null),
    };
}
