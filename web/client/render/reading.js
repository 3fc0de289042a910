import {h, showText} from "../dom.js";
import {dateInWords} from "./date.js";

/** A text that is there to be read, as long as it is; while there is none, nothing of it shows. */
export function reading(link) {
    const element = h("div", {class: "v-reads", role: "group"});
    const text = () => (link.state.kind === "datePicker" ? dateInWords(link.state.date) : (link.state.text ?? ""));
    return {
        element,
        group: true,
        vacant: () => text().trim() === "",
        update: () => showText(element, text().trim()),
        setEnabled() {},
        focusTarget: () => null,
    };
}
