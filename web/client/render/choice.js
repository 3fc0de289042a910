import {h, newId, showCaption} from "../dom.js";

function choice(link, type, attributes) {
    const id = newId();
    const input = h("input", {type, id, class: "form-check-input", ...attributes});
    const caption = h("label", {class: "form-check-label", for: id});
    input.addEventListener("change", () => link.set(input.checked));
    return {
        element: h("div", {class: "form-check"}, input, caption),
        input,
        update() {
            const pending = link.pending;
            input.checked = typeof pending?.to === "boolean" ? pending.to : link.state.checked;
            showCaption(caption, link.item.label ?? link.state.caption, input);
        },
    };
}

export const checkBox = (link) => choice(link, "checkbox", {});

/** Options of one group are one stop of the Tab key; the arrow keys move within it. */
export const optionButton = (link) => choice(link, "radio", {name: `${link.screen.name}:${link.state.group ?? ""}`});
