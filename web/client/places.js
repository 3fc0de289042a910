// Where the keyboard is, so that a reload or a new connection brings it back to the same place.

const storageKey = "vorel.place";

export class Places {
    constructor(work) {
        this.work = work;
        document.addEventListener("focusin", () => this.#note());
        document.addEventListener("selectionchange", () => this.#note());
        addEventListener("pagehide", () => this.#note());  // a caret that moved last is told of too late otherwise
        this.#stored = JSON.parse(sessionStorage.getItem(storageKey) ?? "null");
    }

    #stored;

    #note() {
        const element = document.activeElement;
        const path = element?.closest?.("[data-control]")?.dataset.control;
        if (!path) return;
        // Check boxes and dates have the property as well, and no caret.
        const caret = Number.isInteger(element.selectionStart) ? [element.selectionStart, element.selectionEnd] : null;
        this.#stored = {path, caret};
        sessionStorage.setItem(storageKey, JSON.stringify(this.#stored));
    }

    current() {
        return this.#stored;
    }

    /** Brings the keyboard back; false where the control is not there any more. */
    restore(place) {
        const dot = place?.path.indexOf(".") ?? -1;
        const view = dot > 0 && this.work.view(place.path.slice(0, dot));
        if (!view || !view.shown) return false;
        this.work.quietly(() => view.focus(place.path.slice(dot + 1)));
        const element = document.activeElement;
        if (place.caret && Number.isInteger(element.selectionStart)) element.setSelectionRange(...place.caret);
        return true;
    }
}
