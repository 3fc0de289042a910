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
        const watched = Boolean(controls[this.#layout.watch]?.running);
        for (const [item, button] of this.buttons) {
            const state = controls[item.control];
            if (!state) continue;
            showCaption(button, state.caption);
            button.hidden = !state.visible;
            button.disabled = !state.enabled;
            const calls = Boolean(item.flash && controls[item.flash]?.running);
            mark(button, calls, watched);
            setAttribute(button, "aria-description", calls && "needs attention");
            if (calls) running.push(parseCaption(state.caption).text);
        }
        this.#updatePanel(controls, watched);
        this.#say(running);
    }

    #updatePanel(controls, watched) {
        const {flash, panel, colors} = this.#layout;
        mark(this.element, Boolean(controls[flash]?.running), watched);
        (colors ?? []).forEach((color, place) => this.element.style.setProperty(`--v-flash${place + 1}`, color));
        this.element.style.setProperty("--v-panel", controls[panel]?.color ?? "transparent");
        if (!this.watchButton) return;
        this.watchButton.textContent = watched ? "Watch is on" : "Watch is off";
        this.watchButton.setAttribute("aria-pressed", String(watched));
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

/** The sign stays as long as the session calls; it flashes only while the watch is on. */
function mark(element, calls, watched) {
    element.classList.toggle("v-attention", calls);
    element.classList.toggle("v-flashes", calls && watched);
}
