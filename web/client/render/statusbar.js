import {h} from "../dom.js";

export function statusBar(link) {
    const element = h("div", {class: "v-status", role: "status", "aria-live": "off"});
    return {
        element,
        update() {
            element.replaceChildren(...link.state.panels.map((text) => h("span", {class: "v-status-panel"}, text)));
        },
        setEnabled() {},
    };
}
