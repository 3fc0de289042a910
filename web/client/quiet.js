// A box that opens under typing must not take the typing for an answer: it waits until the keyboard is quiet.

import {isTyping} from "./dom.js";

const quietFor = 500;  // milliseconds
const editing = new Set(["Backspace", "Delete", "ArrowLeft", "ArrowRight", "Home", "End", "Shift", "CapsLock", "AltGraph", "Dead", "Process"]);
const isPartOfTyping = (event) => event.isComposing || (editing.has(event.key) && !event.ctrlKey && !event.altKey && !event.metaKey);
const typesInto = (element) => element?.matches?.("textarea, input:not([type=checkbox], [type=radio])") ?? false;

let lastKey = -Infinity;
addEventListener("keydown", () => (lastKey = performance.now()), true);

/** Waits until no key was pressed for half a second. What is being typed meanwhile goes on into its field. */
export class QuietKeyboard {
    #timer = 0;
    #typing = true;
    #then = null;

    constructor() {
        addEventListener("keydown", (event) => this.#key(event), true);
        addEventListener("pointerdown", (event) => this.#pointer(event), true);
    }

    get waits() {
        return this.#then !== null;
    }

    /** Runs `then` when the keyboard is quiet: now, where it is. */
    wait(then) {
        this.#then = then;
        this.#typing = true;
        this.#look();
    }

    stop() {
        clearTimeout(this.#timer);
        this.#then = null;
    }

    #look() {
        const left = lastKey + quietFor - performance.now();
        if (left <= 0) return this.#done();
        clearTimeout(this.#timer);
        this.#timer = setTimeout(() => this.#look(), left);
        return undefined;
    }

    #done() {
        const then = this.#then;
        this.stop();
        then?.();
    }

    /** Whatever is no typing is no answer either; what follows it was meant for another place. */
    #key(event) {
        if (!this.waits) return;
        this.#typing &&= isTyping(event) || isPartOfTyping(event);
        this.#typing &&= typesInto(event.target);
        if (this.#typing) return;
        event.preventDefault();
        event.stopImmediatePropagation();
    }

    /** A hand at the mouse types nothing. */
    #pointer(event) {
        if (!this.waits) return;
        event.preventDefault();
        event.stopImmediatePropagation();
        this.#done();
    }
}
