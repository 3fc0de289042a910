import {h} from "../dom.js";
import {RowList} from "./list.js";

/** A list of entries with a tick each: blank ticks, Ctrl+A ticks all or none, and the ticked ones are counted. */
export const checkList = (link) => new CheckRows(link);

class CheckRows extends RowList {
    /** Ticks that the session has not confirmed yet, by row. */
    #asked = new Map();
    /** What Ctrl+A has still to tick or untick. It goes row by row, since the session may refuse one. */
    #left = [];
    #goal = true;

    constructor(link) {
        super(link, {rows: () => link.state.items.map((item, at) => [item.text, ...link.state.notes.slice(at, at + 1)]), current: () => link.state.index});
        this.count = h("div", {class: "v-list-count", role: "status"});
        this.element.append(this.count);
    }

    /** Where a row itself means nothing to the screen, its text is as good a target as its box. */
    get ticksAnywhere() {
        return !this.link.handles("Click") && !this.link.handles("DblClick");
    }

    isChecked(row) {
        if (row < 0) return undefined;
        return this.#asked.get(row) ?? this.link.state.checked.includes(row);
    }

    check(row) {
        this.#ask(row, !this.isChecked(row));
        this.update();
    }

    #ask(row, checked) {
        this.#asked.set(row, checked);
        this.link.set({row, checked});
    }

    update() {
        if (!this.link.pending) this.#confirmed();
        super.update();
        const ticked = this.cells.filter((_, row) => this.isChecked(row)).length;
        this.count.textContent = `${ticked} of ${this.cells.length} ticked`;
        this.count.hidden = this.cells.length === 0;
    }

    /** What the session holds counts now. Where it is as asked, the next row may go. */
    #confirmed() {
        const asIs = [...this.#asked].every(([row, checked]) => this.link.state.checked.includes(row) === checked);
        this.#asked.clear();
        if (!asIs || this.link.session.question) this.#left = [];
        const next = this.#left.shift();
        if (next !== undefined) this.#ask(next, this.#goal);
    }

    ownKey(event) {
        if (event.key.toLowerCase() !== "a" || !(event.ctrlKey || event.metaKey) || event.altKey) return false;
        const rows = [...this.cells.keys()];
        this.#goal = rows.some((row) => !this.isChecked(row));
        this.#left = rows.filter((row) => this.isChecked(row) !== this.#goal);
        this.update();
        return true;
    }
}
