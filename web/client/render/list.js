import {TypeAhead, h, isTyping, newId, setAttribute} from "../dom.js";

/** A list of entries with one picked. */
export function listBox(link) {
    return new RowList(link, {rows: () => link.state.items.map((item) => [item.text]), current: () => link.state.index});
}

/** Rows of several cells, with a check mark each where the screen wants it. */
export function listView(link) {
    return new RowList(link, {rows: () => link.state.rows, current: () => link.state.row});
}

/** Rows of cells with one picked, and a mark each where `isChecked` says so. */
export class RowList {
    group = true;
    #typeAhead = new TypeAhead();
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
        this.rows.replaceChildren(...this.cells.map((cells, row) => this.#row(cells, row)));
        if (this.cells.length === 0)
            this.rows.append(h("div", {class: "v-empty"}, this.link.item.empty ?? "Nothing to show"));
        const current = this.rows.children[this.current];
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
                         "aria-selected": String(row === this.current), "aria-checked": checked?.toString()},
                 ...cells.map((cell, place) => h("span", {}, place === 0 ? mark : null, cell)));
    }

    setEnabled(enabled) {
        this.#enabled = enabled;
        this.rows.tabIndex = enabled ? 0 : -1;
        setAttribute(this.rows, "aria-disabled", !enabled && "true");
        this.element.classList.toggle("v-disabled", !enabled);
    }

    #clicked(event) {
        if (!this.#enabled) return;
        const row = event.target.closest("[data-row]");
        if (!row) return;
        if (event.target.closest("[data-check]") || this.ticksAnywhere) this.check(Number(row.dataset.row));
        else this.#choose(Number(row.dataset.row));
    }

    #opened(event) {
        if (this.#enabled && !event.target.closest("[data-check]")) this.link.fire("DblClick");
    }

    #choose(row) {
        if (this.cells.length === 0) return;
        this.link.set({row: Math.max(0, Math.min(row, this.cells.length - 1))});
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
        const rows = {ArrowDown: at + 1, ArrowUp: at - 1, PageDown: at + 8, PageUp: at - 8, Home: 0, End: this.cells.length - 1};
        if (event.key in rows) this.#choose(rows[event.key]);
        else if (event.key === " " && this.isChecked(at) !== undefined && !this.#typeAhead.goesOn) this.check(at);
        else if (event.key === "Enter" && this.link.handles("DblClick")) this.link.fire("DblClick");
        else if (isTyping(event)) this.#typed(event.key);
        else return undefined;
        return event.preventDefault();
    }

    #typed(character) {
        const row = this.#typeAhead.find(character, this.cells.map((cells) => cells[0]), this.current);
        if (row >= 0) this.#choose(row);
    }
}
