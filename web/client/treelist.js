// The keyboard of a tree: the arrow keys, Home and End, letters, Enter. The menu and the trees of screens share it.

import {TypeAhead, h, isShown, isTyping} from "./dom.js";

export class TreeList {
    #typeAhead = new TypeAhead();

    /**
     * @param {HTMLElement} root with role "tree" (or "group" within one)
     * @param {{choose: (item: HTMLElement) => void, toggled?: (item: HTMLElement, open: boolean) => void}} listener
     *     `choose`: Enter, Space or a click on an item
     */
    constructor(root, listener) {
        this.root = root;
        this.listener = listener;
        root.addEventListener("keydown", (event) => this.#key(event));
        root.addEventListener("click", (event) => this.#clicked(event));
    }

    /** Makes an item; one with children can be opened and closed. */
    item(text, children, attributes = {}) {
        const caption = h("span", {class: "v-tree-text"}, text);
        const item = h("li", {role: "treeitem", tabindex: "-1", ...attributes}, caption);
        if (children.length === 0) return item;
        item.setAttribute("aria-expanded", attributes["aria-expanded"] ?? "true");
        item.append(h("ul", {role: "group"}, ...children));
        return item;
    }

    get items() {
        return [...this.root.querySelectorAll("[role=treeitem]")].filter(isShown);
    }

    /** The item at which the Tab key stops. */
    get stop() {
        return this.root.querySelector("[role=treeitem][tabindex='0']");
    }

    stopAt(item) {
        const chosen = item ?? this.stop ?? this.root.querySelector("[role=treeitem]");
        for (const other of this.root.querySelectorAll("[role=treeitem][tabindex='0']")) other.tabIndex = -1;
        if (chosen) chosen.tabIndex = 0;
    }

    focus(item) {
        if (!item) return;
        this.stopAt(item);
        item.focus();
    }

    isHeading(item) {
        return item.hasAttribute("aria-expanded");
    }

    toggle(item, open = item.getAttribute("aria-expanded") !== "true") {
        item.setAttribute("aria-expanded", String(open));
        this.listener.toggled?.(item, open);
    }

    #clicked(event) {
        const item = event.target.closest("[role=treeitem]");
        if (!item) return;
        this.focus(item);
        if (this.isHeading(item)) this.toggle(item);
        this.listener.choose(item);
    }

    #key(event) {
        const item = event.target.closest("[role=treeitem]");
        if (!item || event.altKey || event.ctrlKey || event.metaKey) return;
        const {items} = this;
        const at = items.indexOf(item);
        const keys = {
            ArrowDown: () => this.focus(items[at + 1]),
            ArrowUp: () => this.focus(items[at - 1]),
            Home: () => this.focus(items[0]),
            End: () => this.focus(items.at(-1)),
            ArrowRight: () => this.#inwards(item),
            ArrowLeft: () => this.#outwards(item),
            Enter: () => this.#activate(item),
            " ": () => this.#activate(item),
        };
        const typesOn = event.key === " " && this.#typeAhead.goesOn;
        if (event.key in keys && !typesOn) keys[event.key]();
        else if (isTyping(event)) this.#typed(event.key, items, at);
        else return;
        event.preventDefault();
        event.stopPropagation();
    }

    #inwards(item) {
        if (!this.isHeading(item)) return;
        if (item.getAttribute("aria-expanded") === "true") this.focus(item.querySelector("[role=treeitem]"));
        else this.toggle(item, true);
    }

    #outwards(item) {
        if (item.getAttribute("aria-expanded") === "true") this.toggle(item, false);
        else this.focus(item.parentElement.closest("[role=treeitem]"));
    }

    #activate(item) {
        if (this.isHeading(item)) this.toggle(item);
        this.listener.choose(item);
    }

    #typed(character, items, at) {
        const texts = items.map((item) => item.querySelector(".v-tree-text").textContent.trim());
        this.focus(items[this.#typeAhead.find(character, texts, at)]);
    }
}
