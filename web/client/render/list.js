import {TypeAhead, h, isTyping, newId, setAttribute} from "../dom.js";

/** A list of entries with one picked. */
export function listBox(link) {
    const list = new RowList(link, {
        rows: () => link.state.items.map((item) => [item.text]),
        current: () => link.state.index,
    });
    list.rows.setAttribute("role", "listbox");
    return list;
}

/** Rows of several cells, with a check mark each where the screen wants it. */
export function listView(link) {
    const list = new RowList(link, {rows: () => link.state.rows, current: () => link.state.row});
    list.rows.setAttribute("role", "listbox");
    return list;
}

class RowList {
    group = true;
    #typeAhead = new TypeAhead();
    #enabled = true;

    constructor(link, source) {
        this.link = link;
        this.source = source;
        this.head = h("div", {class: "v-list-row v-list-head", "aria-hidden": "true"});
        this.rows = h("div", {class: "v-list-rows", id: newId("list"), tabindex: "0"});
        this.element = h("div", {class: "v-list"}, this.head, this.rows);
        this.rows.style.maxHeight = `${(link.item.lines ?? 8) * 2.75}rem`;
        this.input = this.rows;
        this.rows.addEventListener("click", (event) => this.#clicked(event));
        this.rows.addEventListener("dblclick", () => this.#enabled && link.fire("DblClick"));
        this.rows.addEventListener("keydown", (event) => this.#key(event));
    }

    get current() {
        return this.link.pending?.to?.row ?? this.source.current();
    }

    update() {
        const {columns, checked} = this.link.state;
        this.head.hidden = !columns;
        this.head.replaceChildren(...(columns ?? []).map((column) => h("span", {}, column.name ?? column)));
        this.cells = this.source.rows();
        this.rows.replaceChildren(...this.cells.map((cells, row) => this.#row(cells, row, checked?.[row])));
        if (this.cells.length === 0)
            this.rows.append(h("div", {class: "v-empty"}, this.link.item.empty ?? "Nothing to show"));
        const current = this.rows.children[this.current];
        setAttribute(this.rows, "aria-activedescendant", current?.id);
        current?.scrollIntoView?.({block: "nearest", inline: "nearest"});
    }

    #row(cells, row, checked) {
        const mark = checked === undefined ? null
            : h("span", {class: "v-check", "data-check": row, "aria-hidden": "true"}, checked ? "☑" : "☐");
        const label = checked === undefined ? null : `${cells.join(", ")}, ${checked ? "checked" : "not checked"}`;
        return h("div", {id: `${this.rows.id}-${row}`, role: "option", class: "v-list-row", "data-row": row,
                         "aria-selected": String(row === this.current), "aria-label": label},
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
        if (event.target.closest("[data-check]")) this.#check(Number(row.dataset.row));
        else if (row) this.#choose(Number(row.dataset.row));
    }

    #choose(row) {
        if (this.cells.length === 0) return;
        this.link.set({row: Math.max(0, Math.min(row, this.cells.length - 1))});
        this.update();
    }

    #check(row) {
        if (this.link.state.checked) this.link.set({row, checked: !this.link.state.checked[row]});
    }

    #key(event) {
        const at = this.current;
        const rows = {ArrowDown: at + 1, ArrowUp: at - 1, PageDown: at + 8, PageUp: at - 8, Home: 0, End: this.cells.length - 1};
        if (event.key in rows) this.#choose(rows[event.key]);
        else if (event.key === " " && this.link.state.checked && at >= 0 && !this.#typeAhead.goesOn) this.#check(at);
        else if (event.key === "Enter" && this.link.handles("DblClick")) this.link.fire("DblClick");
        else if (isTyping(event)) this.#typed(event.key);
        else return;
        event.preventDefault();
    }

    #typed(character) {
        const row = this.#typeAhead.find(character, this.cells.map((cells) => cells[0]), this.current);
        if (row >= 0) this.#choose(row);
    }
}
