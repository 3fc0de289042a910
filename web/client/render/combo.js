import {h, newId, setAttribute} from "../dom.js";
import {writeText} from "./text.js";

const mostShown = 100;

/** A text with a list of entries. Typing narrows the list; an entry's full text picks it. */
export function comboBox(link) {
    return new Combo(link);
}

class Combo {
    #open = false;
    #shown = [];
    #mark = -1;
    #filter = "";
    /** What is typed to find an entry of a list that takes nothing else; null where nothing is. */
    #search = null;

    constructor(link) {
        this.link = link;
        this.listOnly = link.state.listOnly;
        const id = newId("list");
        this.input = h("input", {
            class: "form-control", type: "text", role: "combobox", "aria-expanded": "false", "aria-controls": id,
            "aria-autocomplete": "list", placeholder: link.item.hint,
        });
        this.toggle = h("button", {type: "button", class: "btn v-drop", tabindex: "-1", "aria-label": "Show the entries"}, "▾");
        this.list = h("ul", {id, class: "v-popup", role: "listbox", hidden: true});
        this.element = h("div", {class: "v-combo"}, this.input, this.toggle, this.list);
        this.input.addEventListener("input", () => this.#typed());
        this.input.addEventListener("keydown", (event) => this.#key(event));
        this.input.addEventListener("blur", () => this.#leave());
        this.input.addEventListener("click", () => this.listOnly && this.#show(true));
        this.toggle.addEventListener("mousedown", (event) => {
            event.preventDefault();
            this.input.focus();
            this.#show(!this.#open);
        });
        this.list.addEventListener("mousedown", (event) => {
            event.preventDefault();
            const option = event.target.closest("[data-at]");
            if (option) this.#pick(Number(option.dataset.at));
        });
    }

    /** A pick that the session has not confirmed counts. */
    get #text() {
        const row = this.link.pending?.to?.row;
        return row === undefined ? this.link.text : (this.link.state.items[row]?.text ?? "");
    }

    update() {
        if (this.#search === null) writeText(this.input, this.#text);
        if (this.#open) this.#show(true);
    }

    setEnabled(enabled) {
        setAttribute(this.input, "disabled", !enabled);
        setAttribute(this.toggle, "disabled", !enabled);
    }

    #typed() {
        if (this.listOnly) this.#search = this.input.value;
        else this.link.set(this.input.value);
        this.#mark = -1;
        this.#filter = this.input.value;
        this.#show(true);
    }

    #leave() {
        this.#search = null;
        this.#show(false);
        writeText(this.input, this.#text);
    }

    /** Opens or closes the list, narrowed to the entries that hold what was typed. */
    #show(open) {
        this.#open = open;
        if (!open) this.#filter = "";
        this.input.setAttribute("aria-expanded", String(open));
        this.list.hidden = !open;
        if (!open) return this.input.removeAttribute("aria-activedescendant");
        this.#shown = matching(this.link.state.items, this.#filter);
        if (this.#mark < 0 || this.#mark >= this.#shown.length) this.#mark = this.#startMark();
        this.list.replaceChildren(...this.#shown.slice(0, mostShown).map((at, place) => this.#option(at, place)),
                                  ...this.#remark());
        this.#showMark();
    }

    #startMark() {
        if (this.#filter !== "") return this.listOnly && this.#shown.length > 0 ? 0 : -1;
        return this.#shown.indexOf(this.link.state.index);
    }

    #option(at, place) {
        return h("li", {id: `${this.list.id}-${place}`, role: "option", "data-at": at,
                        "aria-selected": String(at === this.link.state.index)}, this.link.state.items[at].text);
    }

    #remark() {
        const more = this.#shown.length - mostShown;
        if (more > 0) return [h("li", {class: "v-popup-more", role: "presentation"}, `${more} more: type to narrow`)];
        return this.#shown.length > 0 ? [] : [h("li", {class: "v-popup-more", role: "presentation"}, "No entry")];
    }

    #showMark() {
        for (const option of this.list.querySelectorAll(".v-marked")) option.classList.remove("v-marked");
        const option = this.list.querySelector(`[id="${this.list.id}-${this.#mark}"]`);
        setAttribute(this.input, "aria-activedescendant", option?.id);
        option?.classList.add("v-marked");
        option?.scrollIntoView({block: "nearest"});
    }

    #move(step) {
        if (!this.#open) return this.#show(true);
        const last = Math.min(this.#shown.length, mostShown) - 1;
        this.#mark = Math.max(0, Math.min(last, this.#mark + step));
        this.#showMark();
    }

    #key(event) {
        const steps = {ArrowDown: 1, ArrowUp: -1, PageDown: 10, PageUp: -10};
        if (event.key in steps) {
            event.preventDefault();
            if (event.altKey) this.#show(event.key === "ArrowDown");
            else this.#move(steps[event.key]);
        } else if (event.key === "Enter") {
            event.preventDefault();
            this.#enter();
        } else if (event.key === "Escape" && this.#open) {
            event.preventDefault();
            event.stopPropagation();
            this.#search = null;
            this.#show(false);
            writeText(this.input, this.#text);
        } else if (event.key === "Tab" && this.#open && this.#mark >= 0 && this.listOnly) {
            this.#pick(this.#shown[this.#mark]);
        }
    }

    /** Enter takes the marked entry, or the only one that is left; else it opens the list. It never saves. */
    #enter() {
        if (!this.#open) return this.#show(true);
        if (this.#mark >= 0) return this.#pick(this.#shown[this.#mark]);
        if (this.#filter !== "" && this.#shown.length === 1) return this.#pick(this.#shown[0]);
        return this.#show(this.#shown.length > 0);
    }

    #pick(at) {
        const {text} = this.link.state.items[at];
        this.#search = null;
        this.#mark = -1;
        writeText(this.input, text);
        this.#show(false);
        this.link.set({row: at});
    }
}

/** The places of the entries that hold a text, those that start with it first. */
export function matching(items, filter) {
    const places = items.map((_, place) => place);
    const wanted = filter.trim().toLowerCase();
    if (wanted === "") return places;
    const starts = places.filter((place) => items[place].text.toLowerCase().startsWith(wanted));
    const holds = places.filter((place) => items[place].text.toLowerCase().indexOf(wanted) > 0);
    return [...starts, ...holds];
}
