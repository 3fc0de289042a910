// Small helpers over the document.

/** Makes an element: attributes by name, `class` and `on...` handlers as expected, null and false left out. */
export function h(tag, attributes = {}, ...children) {
    const element = document.createElement(tag);
    for (const [name, value] of Object.entries(attributes)) {
        if (value === null || value === undefined || value === false) continue;
        if (name.startsWith("on")) element.addEventListener(name.slice(2), value);
        else if (value === true) element.setAttribute(name, "");
        else element.setAttribute(name, value);
    }
    element.append(...children.filter((child) => child !== null && child !== undefined));
    return element;
}

let lastId = 0;
export const newId = (prefix = "v") => `${prefix}${++lastId}`;

/** Sets or removes an attribute that stands for a flag or a text. */
export function setAttribute(element, name, value) {
    if (value === null || value === undefined || value === false) element.removeAttribute(name);
    else element.setAttribute(name, value === true ? "" : value);
}

/** Writes a text into an element that is read out when it changes: the same text again is silent. */
export function showText(element, text) {
    if (element.textContent !== text) element.textContent = text;
}

/**
 * A caption's parts: "&File" has the access key "f", "&&" stands for the character itself.
 * @returns {{before: string, key: string, after: string, text: string}}
 */
export function parseCaption(caption) {
    const mark = /&(&|[^&])/g;
    let text = "";
    let keyAt = -1;
    let from = 0;
    for (let found = mark.exec(caption); found; found = mark.exec(caption)) {
        text += caption.slice(from, found.index);
        if (found[1] !== "&" && found[1] !== " " && keyAt < 0) keyAt = text.length;
        text += found[1] === " " ? "& " : found[1];
        from = mark.lastIndex;
    }
    text += caption.slice(from);
    if (keyAt < 0) return {before: text, key: "", after: "", text};
    return {before: text.slice(0, keyAt), key: text[keyAt], after: text.slice(keyAt + 1), text};
}

/** Writes a caption into an element, its access key underlined, and says the key to screen readers. */
export function showCaption(element, caption, keyTarget = element) {
    const parts = parseCaption(caption);
    element.replaceChildren(parts.before, ...(parts.key ? [h("u", {}, parts.key)] : []), parts.after);
    if (!parts.key) {
        delete keyTarget.dataset.accessKey;
        keyTarget.removeAttribute("aria-keyshortcuts");
        return;
    }
    keyTarget.dataset.accessKey = parts.key.toLowerCase();
    keyTarget.setAttribute("aria-keyshortcuts", `Alt+${parts.key.toUpperCase()}`);
}

/** True where a user can get to the element now. */
export const isShown = (element) => element.getClientRects().length > 0;

/** The place in a list that starts with what was typed within the last second, from the one after `current` on. */
export class TypeAhead {
    #typed = "";
    #at = -Infinity;
    /** Whether a blank now belongs to what is being typed. */
    get goesOn() {
        return performance.now() - this.#at <= 1000;
    }
    /** What has been typed with this character. */
    add(character) {
        this.#typed = this.goesOn ? this.#typed + character : character;
        this.#at = performance.now();
        return this.#typed;
    }
    find(character, texts, current) {
        const wanted = this.add(character).toLowerCase();
        const start = this.#typed.length === 1 ? current + 1 : Math.max(current, 0);
        for (let step = 0; step < texts.length; ++step) {
            const place = (start + step) % texts.length;
            if (texts[place].toLowerCase().startsWith(wanted)) return place;
        }
        return -1;
    }
}
/** True for a key press that types a character. */
export const isTyping = (event) => event.key.length === 1 && !event.ctrlKey && !event.altKey && !event.metaKey;
