// The alert panel: its buttons flash while their timers run. The look is the page's; the timers' state is the session's.

import {h, parseCaption, setAttribute, showCaption} from "./dom.js";

export class Alerts {
    #said = "";

    constructor(work) {
        this.work = work;
        this.element = h("div", {class: "v-alerts", role: "group", "aria-label": "Alerts"});
        this.buttons = new Map();
        this.element.addEventListener("dblclick", (event) => event.target === this.element && this.#switchWatch());
    }

    get #layout() {
        return this.work.layout.alerts ?? {buttons: []};
    }

    draw() {
        this.buttons.clear();
        this.element.replaceChildren(...this.#layout.buttons.map((item) => this.#button(item)), ...this.#watch());
        this.update();
    }

    #button(item) {
        const button = h("button", {type: "button", class: "btn v-alert", onclick: () => this.work.fire(item.control)});
        for (const [place, color] of (item.colors ?? []).entries()) button.style.setProperty(`--v-flash${place + 1}`, color);
        this.buttons.set(item, button);
        return button;
    }

    /** The panel's double click, for the keyboard and for fingers. */
    #watch() {
        if (!this.#layout.panel) return [];
        this.watchButton = h("button", {type: "button", class: "btn v-watch", onclick: () => this.#switchWatch()});
        return [this.watchButton];
    }

    #switchWatch() {
        this.work.fire(this.#layout.panel, "DblClick");
    }

    update() {
        const {controls} = this.work.main;
        const running = [];
        for (const [item, button] of this.buttons) {
            const state = controls[item.control];
            if (!state) continue;
            showCaption(button, state.caption);
            button.hidden = !state.visible;
            button.disabled = !state.enabled;
            const flashes = Boolean(item.flash && controls[item.flash]?.running);
            this.#mark(button, flashes);
            if (flashes) running.push(parseCaption(state.caption).text);
        }
        this.#updatePanel(controls);
        this.#say(running);
    }

    #mark(button, flashes) {
        button.classList.toggle("v-flashes", flashes);
        setAttribute(button, "aria-description", flashes && "needs attention");
    }

    #updatePanel(controls) {
        const {flash, panel, colors, watch} = this.#layout;
        this.element.classList.toggle("v-flashes", Boolean(controls[flash]?.running));
        (colors ?? []).forEach((color, place) => this.element.style.setProperty(`--v-flash${place + 1}`, color));
        this.element.style.setProperty("--v-panel", controls[panel]?.color ?? "transparent");
        if (!this.watchButton) return;
        const on = Boolean(controls[watch]?.running);
        this.watchButton.textContent = on ? "Watch is on" : "Watch is off";
        this.watchButton.setAttribute("aria-pressed", String(on));
        this.watchButton.title = "Switches the watch for waiting patients, admissions and notifications";
    }

    /** Tells screen readers once which alerts have come up. */
    #say(running) {
        const text = running.join(", ");
        if (text === this.#said) return;
        this.#said = text;
        if (text) this.work.notices.say(`Attention: ${text}`);
    }
}
