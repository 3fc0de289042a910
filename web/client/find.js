// Finds a text in what a screen gives to read, marks it, and goes from one place to the next.

import {h, newId, showText} from "./dom.js";

const everywhere = "v-found";
const here = "v-found-here";

export class Find {
    #places = [];
    #at = 0;

    /** @param {HTMLElement} body where the texts stand */
    constructor(body) {
        this.body = body;
        const id = newId("find");
        this.input = h("input", {id, type: "search", class: "form-control", autocomplete: "off",
                                 oninput: () => this.#search(0, true), onkeydown: (event) => this.#key(event)});
        this.count = h("span", {class: "v-count", role: "status"});
        this.element = h("div", {class: "v-find"}, h("label", {for: id, class: "v-label"}, "Find in the texts"), this.input, this.count);
    }

    #key(event) {
        if (event.key !== "Enter") return;
        event.preventDefault();
        event.stopPropagation();
        this.#search(this.#at + (event.shiftKey ? -1 : 1), true);
    }

    /** The texts are other ones now. */
    update() {
        if (this.input.value !== "") this.#search(0, false);
    }

    #search(at, goes) {
        this.#places = this.#found(this.input.value.trim().toLowerCase());
        this.#at = this.#places.length === 0 ? 0 : (at + this.#places.length) % this.#places.length;
        this.#mark();
        const place = this.#places[this.#at];
        if (place && goes) place.startContainer.parentElement.scrollIntoView({block: "center"});
        const nothing = this.input.value.trim() === "" ? "" : "Not found";
        showText(this.count, place ? `${this.#at + 1} of ${this.#places.length}` : nothing);
    }

    #found(wanted) {
        if (wanted === "") return [];
        const places = [];
        for (const text of this.body.querySelectorAll(".v-reads")) {
            const node = text.firstChild;
            if (!node || text.getClientRects().length === 0) continue;
            const content = node.data.toLowerCase();
            for (let from = content.indexOf(wanted); from >= 0; from = content.indexOf(wanted, from + wanted.length))
                places.push(rangeOf(node, from, wanted.length));
        }
        return places;
    }

    /** A browser that cannot mark goes to the places all the same. */
    #mark() {
        if (!globalThis.CSS?.highlights) return;
        CSS.highlights.set(everywhere, new Highlight(...this.#places));
        CSS.highlights.set(here, new Highlight(...this.#places.slice(this.#at, this.#at + 1)));
    }
}

function rangeOf(node, from, length) {
    const range = document.createRange();
    range.setStart(node, from);
    range.setEnd(node, Math.min(node.data.length, from + length));
    return range;
}
