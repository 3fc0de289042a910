import {TypeAhead, h, isTyping, newId, setAttribute, showText} from "../dom.js";
import {Entries, isLong, mostShown} from "./entries.js";

/** A list of entries with one picked. */
export const listBox = (link) => new EntryList(link);

/** Rows of several cells, with a check mark each where the screen wants it. */
export function listView(link) {
    return new RowList(link, {rows: () => link.state.rows, current: () => link.state.row});
}

/** Rows of cells with one picked, and a mark each where `isChecked` says so. */
export class RowList {
    group = true;
    /** The number of the first row that is drawn. */
    first = 0;
    typeAhead = new TypeAhead();
    #enabled = true;

    constructor(link, source) {
        this.link = link;
        this.source = source;
        this.head = h("div", {class: "v-list-row v-list-head", "aria-hidden": "true"});
        this.rows = h("div", {class: "v-list-rows", role: "listbox", id: newId("list"), tabindex: "0"});
        this.element = h("div", {class: "v-list"}, this.head, this.rows);
        this.rows.style.maxHeight = `${(link.item.lines ?? 8) * 2.75}rem`;
        this.input = this.rows;
        this.rows.addEventListener("click", (event) => this.#clicked(event));
        this.rows.addEventListener("dblclick", (event) => this.#opened(event));
        this.rows.addEventListener("keydown", (event) => this.#key(event));
    }

    get current() {
        return this.link.pending?.to?.row ?? this.source.current();
    }

    update() {
        const {columns} = this.link.state;
        this.head.hidden = !columns;
        this.head.replaceChildren(...(columns ?? []).map((column) => h("span", {}, column.caption ?? column)));
        this.cells = this.source.rows();
        this.rows.replaceChildren(...this.cells.map((cells, place) => this.#row(cells, this.first + place)));
        if (this.cells.length === 0)
            this.rows.append(h("div", {class: "v-empty", role: "option", "aria-disabled": "true", "aria-selected": "false"}, this.link.item.empty ?? "Nothing to show"));
        const current = this.rows.children[this.current - this.first];
        setAttribute(this.rows, "aria-activedescendant", current?.id);
        current?.scrollIntoView?.({block: "nearest", inline: "nearest"});
    }

    /** Whether a row is checked; undefined where rows have no marks. */
    isChecked(row) {
        return this.link.state.checked?.[row];
    }

    #row(cells, row) {
        const checked = this.isChecked(row);
        const mark = checked === undefined ? null
            : h("span", {class: "v-check", "data-check": row, "aria-hidden": "true"}, checked ? "☑" : "☐");
        return h("div", {id: `${this.rows.id}-${row}`, role: "option", class: "v-list-row", "data-row": row,
                         "aria-selected": String(row === this.current), "aria-checked": checked?.toString(),
                         "aria-posinset": row + 1, "aria-setsize": this.size},
                 ...cells.map((cell, place) => h("span", {}, place === 0 ? mark : null, cell)));
    }

    setEnabled(enabled) {
        // A list that takes no pick can still be scrolled and read.
        this.#enabled = enabled;
        setAttribute(this.rows, "aria-disabled", !enabled && "true");
        this.element.classList.toggle("v-disabled", !enabled);
    }

    #clicked(event) {
        if (!this.#enabled) return;
        const row = event.target.closest("[data-row]");
        if (!row) return;
        if (event.target.closest("[data-check]") || this.ticksAnywhere) this.check(Number(row.dataset.row));
        else this.choose(Number(row.dataset.row));
    }

    #opened(event) {
        if (this.#enabled && !event.target.closest("[data-check]")) this.link.fire("DblClick");
    }

    /** How many rows there are, drawn or not. */
    get size() {
        return this.cells.length;
    }

    /** Picks a row, or the nearest that there is. */
    choose(row) {
        if (this.size > 0) this.pick(Math.max(0, Math.min(row, this.size - 1)));
    }

    pick(row) {
        this.link.set({row});
        this.update();
    }

    /** Whether a click anywhere in a row means its mark. */
    get ticksAnywhere() {
        return false;
    }

    /** Turns the mark of a row, where it has one. */
    check(row) {
        if (this.isChecked(row) !== undefined) this.link.set({row, checked: !this.isChecked(row)});
    }

    /** A key that means something to one kind of list alone. @returns {boolean} whether this was one */
    ownKey() {
        return false;
    }

    #key(event) {
        if (!this.#enabled) return;
        if (this.ownKey(event)) return event.preventDefault();
        const at = this.current;
        const rows = {ArrowDown: at + 1, ArrowUp: at - 1, PageDown: at + 8, PageUp: at - 8, Home: 0, End: this.size - 1};
        if (event.key in rows) this.choose(rows[event.key]);
        else if (event.key === " " && this.isChecked(at) !== undefined && !this.typeAhead.goesOn) this.check(at);
        else if (event.key === "Enter" && this.link.handles("DblClick")) this.link.fire("DblClick");
        else if (isTyping(event)) this.typed(event.key);
        else return undefined;
        return event.preventDefault();
    }

    typed(character) {
        const row = this.typeAhead.find(character, this.cells.map((cells) => cells[0]), this.current);
        if (row >= 0) this.choose(row);
    }
}

/** Entries, of which a long list shows a hundred at a time: the host has the others. */
class EntryList extends RowList {
    /** A row to be picked as soon as the host has told its text, and the filling of the list that it counts in. */
    #wanted = null;
    #filling = null;
    /** What is typed to find an entry, as long as the host looks for it. */
    #sought = null;
    /** Where the nurse has turned to by the buttons, until another row is picked; null where she has not. */
    #turned = null;
    #shownCurrent = -1;
    #texts = [];

    constructor(link) {
        super(link, {rows: () => this.#texts.map((text) => [text]), current: () => link.state.index});
        this.entries = new Entries(link);
        this.count = h("span", {class: "v-count", role: "status"});
        this.back = this.#button("‹", "Previous entries", -mostShown);
        this.forward = this.#button("›", "Next entries", mostShown);
        this.bar = h("div", {class: "v-grid-bar", hidden: true}, this.count, this.back, this.forward);
        this.element.prepend(this.bar);
    }

    #button(sign, name, by) {
        return h("button", {type: "button", class: "btn btn-sm btn-outline-secondary", "aria-label": name, title: name,
                            onclick: () => this.#turn(by)}, sign);
    }

    #turn(by) {
        this.#turned = this.first + by;
        this.update();
    }

    get size() {
        return this.entries.count;
    }

    /** A list that was hidden has yet to be asked for. */
    setEnabled(enabled) {
        super.setEnabled(enabled);
        if (this.#isLong && this.#texts.length === 0) this.update();
    }

    get #isLong() {
        return isLong(this.link.state.items);
    }

    update() {
        if (this.#isLong) this.#fetch();
        else this.#show(0, this.link.state.items.map(({text}) => text));
        super.update();
        this.#drawBar();
        if (this.#wanted !== null && this.#textOf(this.#wanted) !== undefined) this.pick(this.#wanted);
    }

    #show(first, texts) {
        this.first = first;
        this.#texts = texts;
    }

    /** One question at a time: what was typed comes first, then the rows around the one that is looked at. */
    #fetch() {
        const {filling} = this.link.state.items;
        if (this.#filling !== filling) [this.#filling, this.#wanted] = [filling, null];
        if (this.#sought !== null && !this.#takeSought()) return;
        if (this.#shownCurrent !== this.current) [this.#shownCurrent, this.#turned] = [this.current, null];
        const at = this.#turned ?? this.#wanted ?? Math.max(0, this.current);
        const first = Math.floor(Math.min(at, this.size - 1) / mostShown) * mostShown;
        const found = this.entries.matching("", first);
        this.searching = !found;
        if (found) this.#show(first, found.items.map(({text}) => text));
    }

    #drawBar() {
        this.bar.hidden = !this.#isLong;
        const last = this.first + this.#texts.length;
        showText(this.count, this.searching ? "Searching …" : `${this.first + 1} to ${last} of ${this.size}`);
        this.back.disabled = this.first === 0;
        this.forward.disabled = last >= this.size;
    }

    #textOf(row) {
        return this.#texts[row - this.first];
    }

    pick(row) {
        const text = this.#textOf(row);
        if (text === undefined) this.#turned = null;
        this.#wanted = text === undefined ? row : null;
        if (text !== undefined) this.link.set({row, text});
        this.update();
    }

    typed(character) {
        if (!this.#isLong) return super.typed(character);
        this.#sought = this.typeAhead.add(character);
        return this.update();
    }

    /** Picks the next entry that starts with what was typed. @returns {boolean} whether the host has answered */
    #takeSought() {
        const found = this.entries.matching(this.#sought);
        this.searching = !found;
        if (!found) return false;
        const text = this.#sought.toLowerCase();
        const from = this.current + (text.length === 1 ? 1 : 0);
        const starting = found.items.filter((entry) => entry.text.toLowerCase().startsWith(text));
        const entry = starting.find(({row}) => row >= from) ?? starting[0];
        this.#sought = null;
        if (entry) this.link.set(entry);
        return true;
    }
}
