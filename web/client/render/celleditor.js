// A cell of a grid that is written in place.

import {plainAmount} from "../amounts.js";
import {h, newId, setAttribute} from "../dom.js";

const plain = /^\d+(\.\d*)?$/;

/** What a cell's text lacks to be stored, or nothing. */
function lacking(amount, text) {
    if (!amount) return "";
    if (text === "") return "Type an amount, or press Esc";
    return plain.test(text) ? "" : "An amount is a number of 0 or more, such as 1,250.50";
}

/**
 * The field in the cell. It belongs to a row as it stood when it was opened: what is typed for one item never goes to
 * another that took its place.
 */
export class CellEditor {
    /**
     * @param {{row: number, column: number, cells: string[], label: string, amount: boolean, store: (text: string) => void,
     *          leave: () => void}} of `row` counts as the session does
     */
    constructor(of) {
        Object.assign(this, of);
        this.problem = h("span", {id: newId(), class: "v-problem", role: "alert"});
        this.input = h("input", {type: "text", class: "form-control v-cell-edit", "aria-label": of.label, "aria-describedby": this.problem.id,
                                 oninput: () => this.#complain("")});
        this.input.classList.toggle("v-amount", of.amount);
        setAttribute(this.input, "inputmode", of.amount && "decimal");
        this.input.value = of.cells[of.column];
        this.input.addEventListener("keydown", (event) => this.#key(event));
        this.element = h("div", {}, this.input, this.problem);
    }

    /** Whether the row still is the one that it was opened for, whatever became of the cell itself. */
    fits(cells) {
        return cells !== undefined && cells.every((text, column) => column === this.column || text === this.cells[column]);
    }

    start() {
        this.input.focus();
        this.input.select();
    }

    /** Keys that move in the grid, save or cancel elsewhere mean the field here. */
    #key(event) {
        if (event.isComposing || event.altKey || event.ctrlKey || ["Tab", "F1", "F6"].includes(event.key)) return;
        event.stopPropagation();
        if (event.key === "Enter") this.#enter();
        else if (event.key === "Escape") this.leave();
        else return;
        event.preventDefault();
    }

    #enter() {
        const text = this.amount ? plainAmount(this.input.value) : this.input.value;
        const problem = lacking(this.amount, text);
        this.#complain(problem);
        if (!problem) this.store(text);
    }

    #complain(problem) {
        this.problem.textContent = problem;
        setAttribute(this.input, "aria-invalid", problem !== "" && "true");
    }
}
