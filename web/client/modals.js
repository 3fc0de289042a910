// Modal screens: dialogs over the work place, the newest in front.

import {h} from "./dom.js";
import {ScreenView} from "./screen.js";

export class Modals {
    /** @type {Map<string, {view: ScreenView, dialog: HTMLDialogElement, before: Element}>} */
    #open = new Map();

    constructor(work) {
        this.work = work;
    }

    async refresh() {
        const {model} = this.work;
        const shown = model.children.filter((name) => model.screens.get(name).visible && model.screens.get(name).modal);
        for (const name of [...this.#open.keys()].reverse()) if (!shown.includes(name)) this.#drop(name);
        for (const name of shown) if (!this.#open.has(name)) await this.#add(name);
    }

    async #add(name) {
        const view = new ScreenView(this.work, name);
        const close = h("button", {type: "button", class: "v-close", "aria-label": "Close", title: "Close",
                                   onclick: () => this.work.session.send({fire: `${name}.Unload`})}, "×");
        const dialog = h("dialog", {class: "v-modal", "aria-labelledby": view.titleId}, close, view.element);
        dialog.addEventListener("cancel", (event) => this.#cancelled(event, view));
        dialog.addEventListener("keydown", (event) => event.key === "Escape" && this.#cancelled(event, view));
        this.#open.set(name, {view, dialog, before: document.activeElement});
        document.body.append(dialog);
        await view.draw();
        if (!this.#open.has(name)) return;
        this.work.quietly(() => {
            dialog.showModal();
            view.focusFirst();
        });
    }

    /** Esc is the cancel button's; a screen without one closes. */
    #cancelled(event, view) {
        if (event.defaultPrevented || (event.type === "cancel" && event.target !== event.currentTarget)) return;
        event.preventDefault();
        view.leave(() => this.work.session.send({fire: `${view.name}.${view.cancelButton ?? "Unload"}`}));
    }

    #drop(name) {
        const {dialog, before} = this.#open.get(name);
        this.#open.delete(name);
        this.work.quietly(() => {
            if (dialog.open) dialog.close();
            dialog.remove();
            if (before?.isConnected) before.focus();
        });
        this.work.focusLost();
    }

    view(name) {
        return this.#open.get(name)?.view;
    }

    clear() {
        for (const name of [...this.#open.keys()].reverse()) this.#drop(name);
    }
}
