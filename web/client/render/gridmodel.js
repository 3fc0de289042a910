// What a grid shows of its rows: sorted, narrowed and cut into pages. Rows keep the number that the session knows.

import {monthNames} from "./date.js";

/** A cell's text as what it sorts by: a number, a date "24-Nov-2026" (with a time or without), or a text. */
export function sortValue(text) {
    const plain = text.replaceAll(",", "").trim();
    if (plain !== "" && !Number.isNaN(Number(plain))) return Number(plain);
    const date = /^(\d{1,2})-([A-Za-z]{3})-(\d{4})(?:\s+(\d{1,2}):(\d{2}))?/.exec(text.trim());
    const month = date ? monthNames.findIndex((name) => name.toLowerCase() === date[2].toLowerCase()) : -1;
    if (month >= 0) return Date.UTC(date[3], month, date[1], date[4] ?? 0, date[5] ?? 0);
    return text.toLowerCase();
}

function compare(left, right) {
    if (typeof left === "number" && typeof right === "number") return left - right;
    if (typeof left !== typeof right) return typeof left === "number" ? -1 : 1;
    return left.localeCompare(right);
}

export class GridModel {
    #columns = [];
    #rows = [];
    #order = [];
    filter = "";
    sortColumn = -1;
    descending = false;
    page = 0;

    constructor(pageSize) {
        this.pageSize = pageSize;
    }

    /** @param {{name: string, visible: boolean}[]} columns @param {string[][]} rows */
    setRows(columns, rows) {
        if (columns.map((column) => column.name).join("\n") !== this.#columns.map((column) => column.name).join("\n"))
            Object.assign(this, {filter: "", sortColumn: -1, descending: false, page: 0});
        this.#columns = columns;
        this.#rows = rows;
        this.#arrange();
    }

    setFilter(text) {
        this.filter = text;
        this.page = 0;
        this.#arrange();
    }

    /** Up, down, and back to the order of the session. */
    sortBy(column) {
        if (this.sortColumn !== column) [this.sortColumn, this.descending] = [column, false];
        else if (!this.descending) this.descending = true;
        else [this.sortColumn, this.descending] = [-1, false];
        this.#arrange();
    }

    #arrange() {
        const wanted = this.filter.trim().toLowerCase();
        const visible = this.#columns.flatMap((column, place) => (column.visible ? [place] : []));
        this.#order = this.#rows.map((_, row) => row);
        if (wanted) this.#order = this.#order.filter((row) => visible.some((column) => this.#rows[row][column].toLowerCase().includes(wanted)));
        if (this.sortColumn >= 0) this.#sort();
        this.page = Math.min(this.page, this.pages - 1);
    }

    #sort() {
        const keys = new Map(this.#order.map((row) => [row, sortValue(this.#rows[row][this.sortColumn])]));
        const sign = this.descending ? -1 : 1;
        this.#order.sort((left, right) => sign * compare(keys.get(left), keys.get(right)) || left - right);
    }

    /** The rows in all. */
    get size() {
        return this.#rows.length;
    }

    get count() {
        return this.#order.length;
    }

    get pages() {
        return Math.max(1, Math.ceil(this.#order.length / this.pageSize));
    }

    /** The session's numbers of the rows on the page. */
    get shown() {
        return this.#order.slice(this.page * this.pageSize, (this.page + 1) * this.pageSize);
    }

    /** Where a row of the session stands among those shown on all pages, or -1. */
    placeOf(row) {
        return this.#order.indexOf(row);
    }

    /** The row of the session at a place, which is held within what there is; -1 where there is nothing. */
    rowAt(place) {
        return this.#order[Math.max(0, Math.min(place, this.#order.length - 1))] ?? -1;
    }

    /** Turns to the page that a row is on. */
    pageTo(row) {
        const place = this.placeOf(row);
        if (place >= 0) this.page = Math.floor(place / this.pageSize);
    }
}
