// The menu tree on the left. It is drawn from the main window's menu entries; entries that are hidden are not there.

import {h, parseCaption, showCaption} from "./dom.js";
import {TreeList} from "./treelist.js";

const storageKey = "vorel.menu";

export class Menu {
    #drawn = "";
    #closed = new Set(JSON.parse(sessionStorage.getItem(storageKey) ?? "[]"));

    constructor(work) {
        this.work = work;
        this.root = h("ul", {class: "v-tree v-menu", role: "tree", "aria-label": "Menu"});
        this.tree = new TreeList(this.root, {
            choose: (item) => this.#choose(item),
            toggled: (item, open) => this.#remember(item.dataset.name, open),
        });
    }

    /** The entry that lists the open screens, by the layout. */
    get #windowList() {
        return this.work.layout.windows;
    }

    update() {
        const controls = this.work.main.controls;
        const entries = (this.work.main.order ?? Object.keys(controls))
            .filter((name) => controls[name].kind === "menuItem").map((name) => ({name, ...controls[name]}));
        const picture = JSON.stringify([entries, this.#openScreens()]);
        if (picture === this.#drawn) return;
        this.#drawn = picture;
        const focused = this.root.contains(document.activeElement) ? document.activeElement.dataset.name : null;
        this.root.replaceChildren(...entries.filter((entry) => !entry.parent && entry.visible)
                                      .map((entry) => this.#entry(entry, entries)));
        this.tree.stopAt(focused && this.root.querySelector(`[data-name="${focused}"]`));
        if (focused) this.tree.stop?.focus();
    }

    #openScreens() {
        const {model} = this.work;
        return model.children.filter((name) => model.screens.get(name).visible && !model.screens.get(name).modal)
            .map((name) => ({name, caption: model.screens.get(name).caption}));
    }

    #entry(entry, entries) {
        if (entry.caption === "-") return h("li", {class: "v-menu-line", role: "none"});
        const children = entries.filter((other) => other.parent === entry.name && other.visible)
            .map((child) => this.#entry(child, entries));
        if (entry.name === this.#windowList) children.push(...this.#windows());
        const item = this.tree.item("", children, {
            "data-name": entry.name,
            "aria-expanded": children.length > 0 ? String(!this.#closed.has(entry.name)) : null,
            "aria-disabled": entry.enabled ? null : "true",
        });
        const text = item.querySelector(".v-tree-text");
        showCaption(text, entry.caption, item);
        if (entry.coming) text.append(h("span", {class: "v-coming"}, "not yet"));
        return item;
    }

    #windows() {
        const screens = this.#openScreens();
        if (screens.length === 0) return [];
        const items = screens.map(({name, caption}) =>
            this.tree.item(parseCaption(caption).text || name, [], {"data-name": `window:${name}`, "data-window": name}));
        return [h("li", {class: "v-menu-line", role: "none"}), ...items];
    }

    #choose(item) {
        if (item.getAttribute("aria-disabled") === "true") return;
        if (item.dataset.window) {
            this.work.children.activate(item.dataset.window);
            this.work.children.view(item.dataset.window)?.focusAgain();
        } else if (!this.tree.isHeading(item)) {
            this.work.menuChosen();
            this.work.session.send({fire: `${this.work.model.main}.${item.dataset.name}`});
        }
    }

    #remember(name, open) {
        if (open) this.#closed.delete(name);
        else this.#closed.add(name);
        sessionStorage.setItem(storageKey, JSON.stringify([...this.#closed]));
    }

    focus() {
        this.tree.focus(this.tree.stop ?? this.tree.items[0]);
    }

    /** An access key: a heading opens and has the keyboard on its first entry, an entry runs. */
    access(item) {
        this.tree.focus(item);
        if (this.tree.isHeading(item)) {
            this.tree.toggle(item, true);
            this.tree.focus(item.querySelector("[role=treeitem]"));
        } else {
            this.#choose(item);
        }
    }
}
