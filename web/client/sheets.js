// The sheets of a screen that is read: those that hold something come first and open, the others are folded behind them.

import {setAttribute} from "./dom.js";
import {isFilled} from "./model.js";

export class Sheets {
    /**
     * @param {HTMLElement} form
     * @param {Map<string, object>} parts of the screen, by the names of their controls
     */
    constructor(form, parts) {
        this.form = form;
        this.sheets = [...form.querySelectorAll(".v-sheet")].map((element) => ({
            element, links: [...parts.values()].filter(({field}) => element.contains(field)).map(({link}) => link), filled: null,
        }));
        this.behind = this.sheets.at(-1)?.element.nextSibling ?? null;
    }

    show() {
        const before = this.sheets.map(({filled}) => filled).join();
        for (const sheet of this.sheets) {
            const filled = sheet.links.some(({state}) => isFilled(state));
            if (filled !== sheet.filled) sheet.element.open = filled;
            sheet.filled = filled;
            setAttribute(sheet.element, "data-empty", !filled);
        }
        if (this.sheets.map(({filled}) => filled).join() === before) return;
        const [full, empty] = [true, false].map((wanted) => this.sheets.filter(({filled}) => filled === wanted).map(({element}) => element));
        for (const element of [...full, ...empty]) this.form.insertBefore(element, this.behind);
    }
}
