// The frame around the screens: head with alerts, debt and clock, menu, status bar.

import {Alerts} from "./alerts.js";
import {openDialog} from "./dialogs.js";
import {h, parseCaption, setAttribute} from "./dom.js";
import {keptWords} from "./kept.js";
import {keyHelp} from "./keys.js";
import {Menu} from "./menu.js";
import {isDark, switchTheme} from "./theme.js";

export class Frame {
    constructor(work, root) {
        this.work = work;
        this.root = root;
        this.menu = new Menu(work);
        this.alerts = new Alerts(work);
        this.title = h("h1", {class: "v-title"});
        this.clock = h("div", {class: "v-clock"});
        this.debt = h("div", {class: "v-debt", role: "status"});
        this.status = h("footer", {class: "v-status"});
        this.menuButton = h("button", {type: "button", class: "btn v-menu-button", "aria-expanded": "false",
                                       "aria-controls": "menu", onclick: () => this.#openMenu(!this.menuIsOpen)}, "☰ Menu");
        this.themeButton = h("button", {type: "button", class: "btn v-tool", onclick: () => {
            switchTheme();
            this.#nameTheme();
        }});
        const close = h("button", {type: "button", class: "v-close v-nav-close", "aria-label": "Close the menu", title: "Close the menu",
                                   onclick: () => this.closeMenu()}, "×");
        this.nav = h("nav", {id: "menu", class: "v-nav", "aria-label": "Menu"}, close, this.menu.root);
        this.#build();
        this.#nameTheme();
    }

    #build() {
        const help = h("button", {type: "button", class: "btn v-tool", onclick: () => this.showHelp(), title: "Help (F1)"}, "Help");
        const head = h("header", {class: "v-head"}, this.menuButton, this.title, this.alerts.element, this.debt, this.clock,
                       this.themeButton, help);
        const middle = h("main", {class: "v-main", id: "screens"}, this.work.children.element);
        this.root.replaceChildren(
            h("a", {class: "v-skip", href: "#screens", onclick: (event) => this.#skip(event)}, "Skip to the screen"),
            head, this.nav, middle, this.status);
        middle.addEventListener("pointerdown", () => this.closeMenu());
        this.nav.addEventListener("keydown", (event) => event.key === "Escape" && this.closeMenu());
    }

    #skip(event) {
        event.preventDefault();
        this.work.children.view(this.work.model.active)?.focusAgain();
    }

    draw() {
        this.alerts.draw();
        this.root.hidden = false;
        this.update();
    }

    update() {
        const {main, layout} = this.work;
        const caption = parseCaption(main.caption).text;
        this.title.textContent = caption;
        document.title = caption;
        this.#texts(this.clock, layout.clock);
        this.#texts(this.debt, layout.debt ? [layout.debt] : []);
        this.debt.hidden = this.debt.textContent.trim() === "";
        this.#status(main.controls[layout.status]);
        this.menu.update();
        this.alerts.update();
    }

    /** Shows labels side by side. */
    #texts(element, names = []) {
        const labels = names.map((name) => this.work.main.controls[name]).filter((label) => label?.visible);
        const texts = labels.map((label) => parseCaption(label.caption).text);
        if (element.dataset.shown === texts.join("\n")) return;
        element.dataset.shown = texts.join("\n");
        element.replaceChildren(...texts.map((text) => h("span", {}, text)));
    }

    #status(bar) {
        const panels = (bar?.panels ?? []).filter((text) => text !== "");
        this.status.replaceChildren(...panels.map((text) => h("span", {}, text)));
    }

    get menuIsOpen() {
        return this.nav.classList.contains("v-open");
    }

    /** On a narrow page the menu lies over the screens while it is open. */
    #openMenu(open) {
        this.nav.classList.toggle("v-open", open);
        setAttribute(this.menuButton, "aria-expanded", String(open));
        if (open) this.menu.focus();
    }

    closeMenu() {
        const hadFocus = this.nav.contains(document.activeElement);
        if (!this.menuIsOpen) return;
        this.#openMenu(false);
        if (hadFocus) this.menuButton.focus();
    }

    #nameTheme() {
        this.themeButton.textContent = isDark() ? "Light" : "Dark";
        this.themeButton.setAttribute("aria-label", isDark() ? "Switch to light colours" : "Switch to dark colours");
    }

    /** Menu, alerts, screen: the keyboard goes round. */
    nextRegion(step) {
        const screen = this.work.children.view(this.work.model.active);
        const regions = [
            {element: this.nav, enter: () => (getComputedStyle(this.nav).display === "none" ? this.#openMenu(true) : this.menu.focus())},
            {element: this.alerts.element, enter: () => this.alerts.element.querySelector("button")?.focus()},
            ...(screen ? [{element: this.work.children.element, enter: () => screen.focusAgain()}] : []),
        ];
        const at = regions.findIndex((region) => region.element.contains(document.activeElement));
        const from = at < 0 ? (step > 0 ? -1 : 0) : at;
        regions[(from + step + regions.length) % regions.length].enter();
    }

    showHelp() {
        const rows = keyHelp.map(([keys, what]) => h("tr", {}, h("th", {scope: "row"}, keys), h("td", {}, what)));
        openDialog("Working by keyboard", h("table", {class: "table table-sm v-table"}, h("tbody", {}, ...rows)),
                   (close) => [h("button", {type: "button", class: "btn btn-primary", onclick: close}, "Close")]);
    }

    /** The session is over: nothing but the reason, what is kept, and the way back. */
    ended(reason, kept) {
        const link = h("a", {class: "btn btn-primary", href: "/sign-in"}, "Sign in again");
        document.title = "Session ended";
        document.querySelectorAll("dialog").forEach((dialog) => dialog.remove());
        this.work.notices.clear();
        this.root.className = "v-ended";
        this.root.hidden = false;
        this.root.replaceChildren(h("main", {class: "v-ended-card", role: "alert"}, h("h1", {}, "The session has ended"),
                                    reason ? h("p", {class: "v-box-text"}, reason) : null,
                                    ...(kept?.parts.length > 0 ? keptWords(kept) : []), link));
        link.focus();
    }
}
