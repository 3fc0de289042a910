// The entries of a list, whether they are all here or stay with the host, which then tells what is looked for.

/** Entries that show at a time: as many as the host tells at once. */
export const mostShown = 100;

/** Milliseconds; a question waits until the typing pauses. */
const pause = 80;

/** Whether a list is so long that it stays with the host: `items` then tells how many there are. */
export const isLong = (items) => items !== undefined && !Array.isArray(items);

export class Entries {
    #asked = "";
    #timer = 0;
    #ask = null;

    /** @param {import("../control.js").ControlLink} link */
    constructor(link) {
        this.link = link;
    }

    get count() {
        const {items} = this.link.state;
        return isLong(items) ? items.count : items.length;
    }

    /**
     * The entries that hold a text, those that start with it first, from a place among them on.
     * @returns {{count: number, items: {row: number, text: string}[]}|null} `count` of all that match; null as long as the
     *     host is being asked: the control is then updated when it has answered
     */
    matching(text, from = 0) {
        const {items, window} = this.link.state;
        const holds = text.trim();
        if (!isLong(items)) return windowOf(items, holds, from);
        if (window?.filling === items.filling && window.holds === holds && window.from === from) return window;
        this.#look(holds, from, items.filling);
        return null;
    }

    /** An answer to another question than the last one is none; the same question goes once. */
    #look(holds, from, filling) {
        if (!this.link.shows) return;
        const asked = JSON.stringify([holds, from, filling]);
        if (asked === this.#asked) return;
        this.#asked = asked;
        this.#ask = () => this.link.look(holds, from);
        clearTimeout(this.#timer);
        if (holds === "") this.hurry();
        else this.#timer = setTimeout(() => this.hurry(), pause);
    }

    /** Asks at once what waits for the typing to pause. */
    hurry() {
        clearTimeout(this.#timer);
        const ask = this.#ask;
        this.#ask = null;
        ask?.();
    }

    /** Begins anew: whatever was asked before may have been refused. */
    forget() {
        clearTimeout(this.#timer);
        this.#asked = "";
        this.#ask = null;
    }
}

function windowOf(items, holds, from) {
    const rows = matching(items, holds);
    return {count: rows.length, items: rows.slice(from, from + mostShown).map((row) => ({row, text: items[row].text}))};
}

function matching(items, holds) {
    const places = [...items.keys()];
    const wanted = holds.toLowerCase();
    if (wanted === "") return places;
    const starts = places.filter((place) => items[place].text.toLowerCase().startsWith(wanted));
    const holding = places.filter((place) => items[place].text.toLowerCase().indexOf(wanted) > 0);
    return [...starts, ...holding];
}
