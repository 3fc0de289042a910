import {h, newId, setAttribute} from "../dom.js";
import {Entries, mostShown} from "./entries.js";
import {writeText} from "./text.js";

/** Milliseconds; an answer that takes longer is waited for in words. */
const patience = 400;

/** A text with a list of entries. Typing narrows the list; an entry's full text picks it. */
export function comboBox(link) {
    return new Combo(link);
}

class Combo {
    #open = false;
    /** What the list shows, as `{row, text}`, and how many match; null while the host is asked for it. */
    #shown = [];
    #count = 0;
    #mark = -1;
    /** The marked entry's text: where the list was filled anew, the mark goes with it. */
    #marked = null;
    #filter = "";
    #slow = 0;
    /** What is typed to find an entry of a list that takes nothing else; null where nothing is. */
    #search = null;
    /** Whether the rest of the first entry that starts with what was typed stands behind it, selected. */
    #completed = false;
    /** Whether it shall, once the entries are there. */
    #completing = false;
    /** What was typed when Enter or Tab came before the host's answer: the entry that it finds is taken. */
    #taking = null;

    constructor(link) {
        this.link = link;
        this.entries = new Entries(link);
        this.listOnly = link.state.listOnly;
        const id = newId("list");
        this.input = h("input", {
            class: "form-control", type: "text", role: "combobox", "aria-expanded": "false", "aria-controls": id,
            "aria-autocomplete": "list", placeholder: link.item.hint,
        });
        this.toggle = h("button", {type: "button", class: "btn v-drop", tabindex: "-1", "aria-label": "Show the entries"}, "▾");
        this.list = h("ul", {id, class: "v-popup", role: "listbox", hidden: true});
        this.element = h("div", {class: "v-combo"}, this.input, this.toggle, this.list);
        this.input.addEventListener("input", (event) => this.#typed(event));
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
            if (option) this.#pick({row: Number(option.dataset.at), text: option.textContent});
        });
    }

    /** A pick that the session has not confirmed counts. */
    get #text() {
        return this.link.pending?.to?.text ?? this.link.text;
    }

    update() {
        if (this.#search === null && !this.#completed) writeText(this.input, this.#text);
        if (this.#taking !== null) this.#takeFound();
        if (this.#open) this.#show(true);
    }

    setEnabled(enabled) {
        setAttribute(this.input, "disabled", !enabled);
        setAttribute(this.toggle, "disabled", !enabled);
    }

    #typed({inputType = ""}) {
        if (this.listOnly) this.#search = this.input.value;
        else this.link.set(this.input.value);
        this.#unmark();
        this.#taking = null;
        this.#filter = this.input.value;
        this.#completed = false;
        this.#completing = this.link.item.completes === true && !inputType.startsWith("delete");
        this.#show(true);
    }

    /** Writes the rest of the entry that is marked behind what was typed, so that typing goes on over it. */
    #complete() {
        const text = this.#shown[this.#mark]?.text;
        if (!this.#completing || text === undefined) return;
        this.#completing = false;
        this.#completed = true;
        this.input.value = text;
        this.input.setSelectionRange(this.#filter.length, text.length);
    }

    #leave() {
        this.#search = null;
        this.#completed = false;
        this.#show(false);
        writeText(this.input, this.#text);
    }

    /** Opens or closes the list, narrowed to the entries that hold what was typed. */
    #show(open) {
        if (open && !this.#open) this.entries.forget();
        const opens = open && !this.#open;
        this.#open = open;
        if (!open) this.#filter = "";
        this.input.setAttribute("aria-expanded", String(open));
        this.list.hidden = !open;
        if (!open) return this.input.removeAttribute("aria-activedescendant");
        const found = this.entries.matching(this.#filter);
        this.#shown = found?.items ?? null;
        this.#count = found?.count ?? 0;
        clearTimeout(this.#slow);
        if (found) this.#draw();
        else if (opens) this.#drawSearching();
        else this.#slow = setTimeout(() => this.#drawSearching(), patience);
        return undefined;
    }

    #draw() {
        if (this.#shown[this.#mark]?.text !== this.#marked) this.#mark = this.#shown.findIndex(({text}) => text === this.#marked);
        if (this.#mark < 0) this.#mark = this.#startMark();
        this.list.replaceChildren(...this.#shown.map((entry, place) => this.#option(entry, place)), ...this.#remark());
        this.#showMark();
        this.#complete();
    }

    #drawSearching() {
        this.list.replaceChildren(remark("Searching …"));
        this.input.removeAttribute("aria-activedescendant");
    }

    #unmark() {
        this.#mark = -1;
        this.#marked = null;
    }

    #startMark() {
        if (this.#filter !== "") return this.#isFirstMeant() ? 0 : -1;
        return this.#shown.findIndex(({row}) => row === this.link.state.index);
    }

    /** Whether Enter means the first entry, without a mark: it stands for what was typed. */
    #isFirstMeant() {
        if (this.#shown.length === 0) return false;
        return this.listOnly || (this.link.item.completes === true && this.#shown[0].text.toLowerCase().startsWith(this.#filter.toLowerCase()));
    }

    #option({row, text}, place) {
        return h("li", {id: `${this.list.id}-${place}`, role: "option", "data-at": row,
                        "aria-selected": String(row === this.link.state.index)}, text);
    }

    #remark() {
        const more = this.#count - mostShown;
        if (more > 0) return [remark(`${more} more: type to narrow`)];
        return this.#shown.length > 0 ? [] : [remark("No entry")];
    }

    #showMark() {
        for (const option of this.list.querySelectorAll(".v-marked")) option.classList.remove("v-marked");
        this.#marked = this.#shown[this.#mark]?.text ?? null;
        const option = this.list.querySelector(`[id="${this.list.id}-${this.#mark}"]`);
        setAttribute(this.input, "aria-activedescendant", option?.id);
        option?.classList.add("v-marked");
        option?.scrollIntoView({block: "nearest"});
    }

    #move(step) {
        if (!this.#open) return this.#show(true);
        if (!this.#shown) return;
        this.#mark = Math.max(0, Math.min(this.#shown.length - 1, this.#mark + step));
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
            this.#search = this.#taking = null;
            this.#completed = false;
            this.#show(false);
            writeText(this.input, this.#text);
        } else if (event.key === "Tab" && this.#open && (this.listOnly || this.#completed)) {
            if (!this.#shown) this.#takeWhenFound();
            else if (this.#shown[this.#mark]) this.#pick(this.#shown[this.#mark]);
        }
    }

    /** Enter takes the marked entry, or the only one that is left; else it opens the list. It never saves. */
    #enter() {
        if (!this.#open) return this.#show(true);
        if (!this.#shown) return this.#takeWhenFound();
        if (this.#shown[this.#mark]) return this.#pick(this.#shown[this.#mark]);
        if (this.#filter !== "" && this.#count === 1) return this.#pick(this.#shown[0]);
        return this.#show(this.#shown.length > 0);
    }

    #takeWhenFound() {
        if (this.#filter.trim() === "") return;
        this.#taking = this.#filter;
        this.entries.hurry();
    }

    #takeFound() {
        const found = this.entries.matching(this.#taking);
        if (!found) return;
        this.#taking = null;
        if (found.count === 1 || (this.listOnly && found.count > 0)) this.#pick(found.items[0]);
    }

    #pick({row, text}) {
        this.#search = this.#taking = null;
        this.#completed = false;
        this.#unmark();
        writeText(this.input, text);
        this.#show(false);
        this.link.set({row, text});
    }
}

const remark = (text) => h("li", {class: "v-popup-more", role: "presentation"}, text);
