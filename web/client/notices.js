// Short notes at the foot of the page: reports that are ready, a lost connection, a sound that may not play yet.

import {h} from "./dom.js";

const longestShown = 20000;

export class Notices {
    constructor() {
        this.live = h("div", {class: "visually-hidden", role: "status", "aria-live": "polite"});
        this.list = h("div", {class: "v-notices"});
        this.bar = h("div", {class: "v-connection", role: "status", hidden: true});
        document.body.append(this.live, this.list, this.bar);
    }

    /** Says a text to screen readers only. */
    say(text) {
        this.live.textContent = "";
        setTimeout(() => (this.live.textContent = text), 50);
    }

    /** Shows a note with links or buttons until it is closed, or for a while where it asks for nothing. */
    show(text, actions = [], {stays = false} = {}) {
        const note = h("div", {class: "v-notice", role: "status"}, h("span", {}, text), ...actions);
        note.append(h("button", {type: "button", class: "v-close", "aria-label": "Close this note",
                                 onclick: () => note.remove()}, "×"));
        this.list.append(note);
        if (!stays) setTimeout(() => note.remove(), longestShown);
        return note;
    }

    /** Takes all notes away: they may tell of patients. */
    clear() {
        this.list.replaceChildren();
        this.live.textContent = "";
    }

    /** A report opens in a tab of its own; where the browser does not let it, the note's link does. */
    report({title, rows, id}) {
        const address = `/reports/${id}`;
        window.open(address, "_blank", "noopener");
        const text = `${title}: ${rows === 1 ? "1 row" : `${rows} rows`}`;
        this.show(text, [
            h("a", {href: address, target: "_blank", rel: "noopener", class: "btn btn-sm btn-primary"}, "Open the report"),
            h("a", {href: `${address}.csv`, class: "btn btn-sm btn-outline-secondary"}, "Download as CSV"),
        ], {stays: true});
    }

    /** The calm bar of a connection that is not there. */
    connection(state, takeBack) {
        const texts = {
            connecting: "Connecting …",
            silent: "Waiting for the host. What you type is kept …",
            lost: "The connection is lost. What you type is kept; trying again …",
            replaced: "This session is open in another window.",
        };
        const button = h("button", {type: "button", class: "btn btn-sm btn-primary", onclick: () => {
            this.connection("connecting");
            takeBack();
        }}, "Work here again");
        this.bar.hidden = !(state in texts);
        this.bar.replaceChildren(texts[state] ?? "", ...(state === "replaced" ? [button] : []));
        if (state === "replaced") button.focus();
    }
}
