import {shownAmount} from "../amounts.js";
import {h, newId, setAttribute, showText} from "../dom.js";
import {CellEditor} from "./celleditor.js";
import {GridModel} from "./gridmodel.js";

const usualPage = 50;
const rowsWithoutFilter = 8;
/** A text up to this length stays on one line: names, dates and readings; a wide table scrolls instead. */
const longestLine = 24;
/** From this length on a text has room: the table scrolls before a comment becomes a column of single words. */
const wholeTexts = 80;

/** Both grids: a table with a current row, sorted, narrowed and paged here. */
export const grid = (link) => new Grid(link);

class Grid {
    group = true;
    #enabled = true;
    /** The cell that is being written, or null. */
    #editor = null;

    constructor(link) {
        this.link = link;
        this.model = new GridModel(link.item.page ?? usualPage);
        this.caption = h("caption", {class: "visually-hidden"});
        this.head = h("tr");
        this.rows = h("tbody");
        this.table = h("table", {class: "table table-sm v-table", role: "grid", id: newId("grid")}, this.caption,
                       h("thead", {}, this.head), this.rows);
        this.filter = h("input", {type: "search", class: "form-control v-filter", placeholder: "Narrow the rows",
                                  "aria-label": "Narrow the rows", oninput: () => this.#narrow()});
        this.count = h("span", {class: "v-count", role: "status"});
        this.open = h("button", {type: "button", class: "btn btn-sm btn-outline-secondary", hidden: true,
                                 onclick: () => link.fire("DblClick")}, link.item.opens ?? "Open");
        this.back = this.#pageButton("‹", "Previous page", -1);
        this.forward = this.#pageButton("›", "Next page", 1);
        this.element = h("div", {class: "v-grid"},
                         h("div", {class: "v-grid-bar"}, this.filter, this.count, this.open, this.back, this.forward),
                         h("div", {class: "v-grid-scroll"}, this.table));
        this.input = this.table;
        this.table.tabIndex = -1;
        this.table.addEventListener("focus", () => this.focusTarget()?.focus());  // an access key came here
        this.head.addEventListener("keydown", (event) => this.#headKey(event));
        this.rows.addEventListener("click", (event) => this.#clicked(event));
        this.rows.addEventListener("keydown", (event) => this.#key(event));
    }

    /** The rows without the line that a grid of entries keeps empty at its end for the next one. */
    #entered(rows) {
        const waits = this.link.state.kind === "flexGrid" && rows.at(-1)?.every((text) => text === "");
        return waits ? rows.slice(0, -1) : rows;
    }

    #pageButton(sign, name, step) {
        return h("button", {type: "button", class: "btn btn-sm btn-outline-secondary", "aria-label": name, title: name,
                            onclick: () => this.#turn(step)}, sign);
    }

    /** Rows that another search is about to replace are not to be picked. */
    get #pickable() {
        return this.#enabled && !this.link.state.searching;
    }

    get current() {
        const pending = this.link.pending;
        return pending?.to?.row ?? this.link.state.row;
    }

    update() {
        const {columns, rows, caption} = this.link.state;
        if (rows !== this.shownRows || columns !== this.shownColumns) {
            this.model.setRows(columns, this.#entered(rows));
            [this.shownRows, this.shownColumns] = [rows, columns];
        }
        this.caption.textContent = caption ?? "";
        if (this.#editor && !(this.#editable === this.#editor.column && this.#editor.fits(rows[this.#editor.row]))) this.#editor = null;
        if (this.current !== this.shownCurrent) this.model.pageTo(this.current);
        this.shownCurrent = this.current;
        this.#draw();
    }

    setEnabled(enabled) {
        this.#enabled = enabled;
        setAttribute(this.table, "aria-disabled", !this.#pickable && "true");
        this.element.classList.toggle("v-disabled", !enabled);
        for (const row of this.rows.children) row.tabIndex = enabled && row.tabIndex === 0 ? 0 : -1;
    }

    focusTarget() {
        if (this.#editor?.input.isConnected) return this.#editor.input;
        return this.rows.querySelector("[tabindex='0']") ?? (this.filter.hidden ? null : this.filter);
    }

    #draw() {
        const hadFocus = this.rows.contains(document.activeElement);
        this.#drawHead();
        const columns = this.#visibleColumns();
        const {rows} = this.link.state;
        const stop = this.model.shown.includes(this.current) ? this.current : this.model.shown[0];
        this.rows.replaceChildren(...this.model.shown.map((row) => this.#row(row, rows[row], columns, row === stop)));
        if (this.model.shown.length === 0) this.rows.append(this.#emptyRow(columns.length));
        this.#drawBar(this.model.size);
        if (hadFocus) this.focusTarget()?.focus({preventScroll: true});
    }

    #visibleColumns() {
        return this.link.state.columns.flatMap((column, place) => (column.visible ? [place] : []));
    }

    /** All of the headings are one stop of the Tab key; the arrow keys move among them. */
    #drawHead() {
        const {sortColumn, descending} = this.model;
        const columns = this.#visibleColumns();
        const stop = columns.includes(sortColumn) ? sortColumn : columns[0];
        this.head.replaceChildren(...columns.map((place) => {
            const sorted = place === sortColumn;
            const name = h("button", {type: "button", class: "v-sort", tabindex: place === stop ? "0" : "-1", onclick: () => this.#sort(place)},
                           this.link.state.columns[place].caption, sorted ? h("span", {"aria-hidden": "true"}, descending ? " ▼" : " ▲") : null);
            const order = sorted ? (descending ? "descending" : "ascending") : "none";
            return h("th", {scope: "col", "aria-sort": order, class: this.#isAmount(place) ? "v-amount" : null}, name);
        }));
    }

    #row(row, cells, columns, stop) {
        const chosen = row === this.current;
        const looks = [chosen && "v-current", this.#isMarked(cells) && "v-marked"].filter(Boolean).join(" ");
        return h("tr", {"data-row": row, tabindex: stop && this.#enabled ? "0" : "-1", "aria-selected": String(chosen),
                        class: looks || null},
                 ...columns.map((column) => this.#editedCell(row, column) ?? this.#cell(cells[column], this.#isAmount(column))));
    }

    #isMarked(cells) {
        const {marks} = this.link.item;
        const place = this.link.state.columns.findIndex((column) => column.name === marks?.column);
        return place >= 0 && cells[place] === marks.text;
    }

    #editedCell(row, column) {
        const here = this.#editor?.row === row && this.#editor.column === column;
        return here ? h("td", {class: "v-short"}, this.#editor.element) : null;
    }

    /** The column whose cells may be written, or -1. */
    get #editable() {
        return this.link.state.columns.findIndex(({editable, visible}) => editable && visible);
    }

    #isAmount(place) {
        const name = this.link.state.columns[place].name.toLowerCase();
        return (this.link.item.amounts ?? []).some((amount) => amount.toLowerCase() === name);
    }

    #cell(text, amount) {
        if (amount) return h("td", {class: "v-short v-amount"}, shownAmount(text));
        const room = text.length <= longestLine ? "v-short" : text.length >= wholeTexts ? "v-long" : null;
        return h("td", {class: room}, text);
    }

    #emptyRow(width) {
        const text = this.model.size > 0 ? "No row holds this text" : (this.link.item.empty ?? "Nothing to show");
        return h("tr", {class: "v-empty"}, h("td", {colspan: Math.max(1, width)}, text));
    }

    #drawBar(all) {
        const {page, pages, count, filter} = this.model;
        const {searching} = this.link.state;
        this.element.classList.toggle("v-searching", Boolean(searching));
        setAttribute(this.table, "aria-busy", searching && "true");
        this.filter.hidden = all <= rowsWithoutFilter && filter === "";
        if (this.filter.value !== filter) this.filter.value = filter;
        const rows = `${count === all ? "" : `${count} of `}${all} ${all === 1 ? "row" : "rows"}`;
        showText(this.count, searching ? "Searching …" : pages > 1 ? `${rows}, page ${page + 1} of ${pages}` : rows);
        this.open.disabled = Boolean(searching);
        this.open.hidden = !this.link.handles("DblClick") || all === 0;
        this.back.hidden = this.forward.hidden = pages < 2;
        this.back.disabled = page === 0;
        this.forward.disabled = page === pages - 1;
    }

    #sort(column) {
        this.model.sortBy(column);
        this.#draw();
        this.head.children[this.#visibleColumns().indexOf(column)].firstChild.focus();
    }

    #narrow() {
        this.model.setFilter(this.filter.value);
        this.#draw();
    }

    #turn(step) {
        this.model.page += step;
        this.#draw();
    }

    #clicked(event) {
        if (this.#editor?.element.contains(event.target)) return;
        const row = event.target.closest("[data-row]");
        if (!row) return;
        // A pick draws the rows anew, so no double click reaches them: the second click stands for it.
        if (event.detail === 2 && Number(row.dataset.row) === this.current) this.#doubleClicked(row, event.target.closest("td"));
        else this.#choose(Number(row.dataset.row));
    }

    #choose(row) {
        if (row < 0 || !this.#pickable) return;
        this.link.set({row});
        this.update();
        this.focusTarget()?.focus();
    }

    #doubleClicked(row, part) {
        if (!this.#pickable) return;
        const cell = this.#visibleColumns()[[...row.children].indexOf(part)];
        if (cell !== undefined && cell === this.#editable) this.#edit(Number(row.dataset.row));
        else this.link.fire("DblClick");
    }

    /** Opens the cell of a row that may be written. */
    #edit(row) {
        const column = this.#editable;
        const {columns, rows} = this.link.state;
        if (row < 0 || column < 0 || !this.#pickable) return;
        if (row !== this.current) this.link.set({row});
        const first = this.#visibleColumns().find((place) => place !== column);
        this.#editor = new CellEditor({
            row, column, cells: rows[row], amount: this.#isAmount(column),
            label: [columns[column].caption, rows[row][first]].filter(Boolean).join(", "),
            store: (text) => this.#store(text), leave: () => this.#leave(),
        });
        this.update();
        this.#editor.start();
    }

    /** Stores the cell and goes on to the row below, as the rows stand here. */
    #store(text) {
        const {row, column, cells} = this.#editor;
        const next = this.model.rowAt(this.model.placeOf(row) + 1);
        if (text !== cells[column]) this.link.set({row, column: this.link.state.columns[column].name, text});
        return next === row ? this.#leave() : this.#edit(next);
    }

    #leave() {
        this.#editor = null;
        this.#draw();
        this.focusTarget()?.focus();
    }

    #headKey(event) {
        const names = [...this.head.querySelectorAll("button")];
        const at = names.indexOf(event.target);
        const next = {ArrowRight: at + 1, ArrowLeft: at - 1, Home: 0, End: names.length - 1}[event.key];
        if (!names[next]) return;
        event.preventDefault();
        for (const name of names) name.tabIndex = name === names[next] ? 0 : -1;
        names[next].focus();
    }

    #key(event) {
        const at = this.model.placeOf(Number(event.target.closest("[data-row]")?.dataset.row ?? -1));
        const places = {ArrowDown: at + 1, ArrowUp: at - 1, PageDown: at + 10, PageUp: at - 10, Home: 0, End: this.model.count};
        if (event.key in places) this.#choose(this.model.rowAt(places[event.key]));
        else if (event.key === " ") this.#choose(this.model.rowAt(at));
        else if (this.#editable >= 0 && (event.key === "Enter" || event.key === "F2")) this.#edit(this.model.rowAt(at));
        else if (event.key === "Enter" && this.link.handles("DblClick")) {
            // The row under the keyboard is meant, also where something else than the arrow keys brought it there.
            const row = this.model.rowAt(at);
            if (at >= 0 && row !== this.current) this.#choose(row);
            if (this.#pickable) this.link.fire("DblClick");
        } else {
            return;
        }
        event.preventDefault();
    }
}
