// The pages of a screen's tab sets: which of them show, which are filled, and how the Tab key goes from one to the next.

import {isShown} from "./dom.js";
import {isFilled} from "./model.js";

const stops = "input:enabled, select:enabled, textarea:enabled, button:enabled, [tabindex='0']";

export class Pages {
    /** @type {{strip: string, view: object, panels: HTMLElement[], form: boolean}[]} */
    #sets = [];

    /** @param {Map<string, object>} parts of the screen, by the names of their controls */
    constructor(parts) {
        this.parts = parts;
    }

    add(set) {
        this.#sets.push(set);
    }

    show() {
        for (const {strip, view, panels, form} of this.#sets) {
            panels.forEach((_, number) => {
                const here = [...this.parts.values()].filter(({page}) => isOn(page, strip, number));
                view.showPage(number, {there: here.some(({field}) => !field.hidden), filled: form && here.some(({link}) => isFilled(link.state))});
            });
        }
    }

    /** The pages of a long form are one way: behind the last field of a page comes the first one of the next. */
    goOn(event) {
        const set = this.#sets.find(({form, panels}) => form && panels.some((panel) => panel.contains(event.target)));
        if (!set) return;
        const number = set.panels.findIndex((panel) => panel.contains(event.target));
        const fields = stopsOf(set.panels[number]);
        const isLast = event.target === (event.shiftKey ? fields[0] : fields.at(-1));
        const next = number + (event.shiftKey ? -1 : 1);
        if (!isLast || !set.panels[next]) return;
        event.preventDefault();
        set.view.choose(next);
        stopsOf(set.panels[next]).at(event.shiftKey ? -1 : 0)?.focus();
    }
}

const isOn = (page, strip, number) => page !== null && ((page.strip === strip && page.number === number) || isOn(page.outer, strip, number));

const stopsOf = (panel) => [...panel.querySelectorAll(stops)].filter((stop) => stop.tabIndex >= 0 && isShown(stop));
