// The child area: open screens as tabs, or side by side where the session arranged them so and the page is wide.

import {h, parseCaption, setAttribute} from "./dom.js";
import {ScreenView} from "./screen.js";

export class Children {
    /** @type {Map<string, {view: ScreenView, tab: HTMLElement, pane: HTMLElement}>} */
    #open = new Map();
    #front = "";

    constructor(work) {
        this.work = work;
        this.strip = h("div", {class: "v-child-tabs", role: "tablist", "aria-label": "Open screens",
                               onkeydown: (event) => this.#key(event)});
        this.panes = h("div", {class: "v-panes"});
        this.empty = h("p", {class: "v-no-child"}, "Choose an entry in the menu to open a screen.");
        this.element = h("div", {class: "v-children"}, this.strip, this.panes, this.empty);
    }

    /** Draws what is open now; views that are there stay. */
    async refresh() {
        const {model} = this.work;
        const shown = model.children.filter((name) => model.screens.get(name).visible && !model.screens.get(name).modal);
        for (const [name, child] of this.#open) if (!shown.includes(name)) this.#drop(name, child);
        await Promise.all(shown.filter((name) => !this.#open.has(name)).map((name) => this.#add(name)));
        this.#showActive(shown);
    }

    async #add(name) {
        const view = new ScreenView(this.work, name);
        const tab = h("button", {type: "button", role: "tab", class: "v-child-tab", id: `tab-${name}`, "aria-controls": `pane-${name}`,
                                 "aria-keyshortcuts": "Delete", onclick: () => this.activate(name)});
        // For the mouse: a list of tabs has nothing but tabs in it, and the keyboard closes by Delete.
        const close = h("span", {class: "v-close", "aria-hidden": "true", title: "Close (Delete)", onclick: () => this.close(name)}, "×");
        const holder = h("div", {class: "v-child-tab-holder", role: "presentation"}, tab, close);
        const pane = h("div", {role: "tabpanel", class: "v-pane", id: `pane-${name}`, "aria-labelledby": `tab-${name}`},
                       view.element);
        pane.addEventListener("pointerdown", () => this.#enter(name));
        pane.addEventListener("focusin", () => this.#enter(name));
        this.#open.set(name, {view, tab, holder, pane});
        this.strip.append(holder);
        this.panes.append(pane);
        this.#caption(name);
        await view.draw();
    }

    #drop(name, {holder, pane}) {
        const hadFocus = pane.contains(document.activeElement) || holder.contains(document.activeElement);
        holder.remove();
        pane.remove();
        this.#open.delete(name);
        if (hadFocus) this.work.focusLost();
    }

    view(name) {
        return this.#open.get(name)?.view;
    }

    /** Draws everything anew, from a fresh picture of the session. */
    clear() {
        for (const [name, child] of this.#open) this.#drop(name, child);
    }

    #caption(name) {
        const child = this.#open.get(name);
        const {text} = parseCaption(this.work.model.screens.get(name).caption || name);
        child.tab.textContent = text;
    }

    captionChanged(name) {
        if (this.#open.has(name)) this.#caption(name);
    }

    #showActive(shown) {
        const active = shown.includes(this.work.model.active) ? this.work.model.active : shown.at(-1);
        for (const [name, {tab, pane, holder}] of this.#open) {
            const front = name === active;
            setAttribute(tab, "aria-selected", String(front));
            tab.tabIndex = front ? 0 : -1;
            holder.classList.toggle("v-active", front);
            pane.classList.toggle("v-active", front);
            if (front && name !== this.#front) holder.scrollIntoView({block: "nearest", inline: "nearest"});
        }
        this.#front = active;
        const area = this.work.childArea;
        this.panes.dataset.arrangement = area?.arrangement ?? "tabs";
        [...this.panes.children].forEach((pane, place) => pane.style.setProperty("--v-place", String(place)));
        this.strip.hidden = this.#open.size === 0;
        this.empty.hidden = this.#open.size > 0;
    }

    /** Asks the session to bring a screen forward; the page does so at once. */
    activate(name) {
        if (this.work.model.active !== name) this.work.session.send({fire: `${name}.Activate`});
        this.work.model.active = name;
        this.#showActive([...this.#open.keys()]);
        this.#open.get(name)?.tab.focus();
    }

    #enter(name) {
        if (this.work.model.active === name || this.work.focusIsQuiet) return;
        this.work.model.active = name;
        this.work.session.send({fire: `${name}.Activate`});
        this.#showActive([...this.#open.keys()]);
    }

    close(name) {
        this.work.session.send({fire: `${name}.Unload`});
    }

    /** The next open screen, with the keyboard in it. */
    step(by) {
        const names = [...this.#open.keys()];
        if (names.length === 0) return;
        const name = names[(names.indexOf(this.work.model.active) + by + names.length) % names.length];
        this.activate(name);
        this.view(name).focusAgain();
    }

    #key(event) {
        const names = [...this.#open.keys()];
        const at = names.indexOf(this.work.model.active);
        const target = {ArrowRight: at + 1, ArrowLeft: at - 1, Home: 0, End: names.length - 1}[event.key];
        if (event.key === "Delete") this.close(names[at]);
        else if (target !== undefined) this.activate(names[(target + names.length) % names.length]);
        else return;
        event.preventDefault();
    }
}
