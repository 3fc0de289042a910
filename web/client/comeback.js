// Work that a session took with it is offered after signing in: a nurse reads what became of her saves, and has brought
// back what was not stored.

import {h, newId, showCaption} from "./dom.js";
import {dropButton, dropKept, fieldCount, hasWork, pressed, readKept, reasonOf} from "./kept.js";
import {split} from "./model.js";
import {Replay} from "./replay.js";

export class Comeback {
    #offered = 0;
    #dialog = null;

    constructor(work) {
        this.work = work;
        this.replay = new Replay(work);
    }

    /** Whether steps are being done again now. */
    get running() {
        return this.#dialog?.dataset.running === "true";
    }

    /** A message was heard, or the page was drawn anew. */
    heard(message) {
        if (this.replay.heard(message) || !this.work.session.idle) return;
        this.work.journal.idle();
        this.#offer().catch(this.work.session.listener.failed);
    }

    async #offer() {
        const kept = readKept();
        if (!kept || kept.at === this.#offered) return;
        this.#offered = kept.at;
        if (kept.parts.length === 0) dropKept();
        else this.#show(kept, await this.#judge(kept.parts));
    }

    /** Asks what the host stored of the sessions that are gone. */
    async #judge(parts) {
        const answers = new Map();
        for (const {session} of parts) if (!answers.has(session)) answers.set(session, (await this.replay.pass({stored: session})).state);
        return parts.map((part) => judged(part, answers.get(part.session)));
    }

    #show(kept, parts) {
        const heading = h("h2", {id: newId(), class: "v-box-title", tabindex: "-1"}, "Your work from before");
        const some = parts.some(hasWork);
        this.text = h("div", {class: "v-comeback"}, h("p", {}, reasonOf(kept, this.work.host)),
                      h("ul", {class: "v-kept"}, ...parts.map((part) => h("li", {}, verdict(part)))),
                      some ? h("p", {class: "v-help"}, "Bring back types it again for you to look at. You save it yourself.") : null);
        this.bar = h("div", {class: "v-box-buttons"}, ...(some ? this.#choices(kept, parts) : [this.#ok()]));
        this.#dialog = h("dialog", {class: "v-box", "aria-labelledby": heading.id, oncancel: (event) => this.#cancelled(event),
                                    onkeydown: (event) => event.key === "Escape" && this.#cancelled(event)},
                         heading, this.text, this.bar);
        document.body.append(this.#dialog);
        // The heading has the keyboard: a key that is typed on decides nothing.
        this.work.quietly(() => {
            this.#dialog.showModal();
            heading.focus();
        });
    }

    #cancelled(event) {
        event.preventDefault();
        if (!this.running) this.bar.querySelector("[data-later]").click();
    }

    #choices(kept, parts) {
        return [
            dropButton(() => this.#close()),
            button("&Later", "btn-outline-secondary", () => this.#later(kept, parts), {"data-later": true}),
            button("&Bring back", "btn-primary", () => this.#bringBack(kept, parts).catch(this.work.session.listener.failed)),
        ];
    }

    #ok() {
        return button("&OK", "btn-primary", () => {
            dropKept();
            this.#close();
        }, {"data-later": true});
    }

    #close() {
        this.work.quietly(() => {
            this.#dialog.close();
            this.#dialog.remove();
        });
        this.#dialog = null;
        this.work.focusLost();
    }

    #later(kept, parts) {
        this.#close();
        const look = button("Look at it", "btn-sm btn-primary", () => {
            note.remove();
            this.#show(kept, parts);
        });
        const note = this.work.notices.show("Your work from before is kept until you log off.", [look], {stays: true});
    }

    async #bringBack(kept, parts) {
        const wanted = parts.filter(hasWork);
        const busy = wanted.find(({screen}) => this.work.journal.hasWork(screen));
        if (busy) return this.text.append(h("p", {class: "v-box-problem", role: "alert"},
                                            `${busy.caption} has new work on it. Save or cancel that first.`));
        const results = await this.#replayAll(wanted);
        this.#comeTo(kept.place);
        for (const [caption, differences] of results) this.#tell(caption, differences);
        return undefined;
    }

    async #replayAll(parts) {
        const results = [];
        this.bar.hidden = true;
        this.#dialog.dataset.running = "true";
        this.work.journal.hold();
        try {
            for (const part of parts) {
                this.text.replaceChildren(h("p", {role: "status"}, `${part.caption} is being brought back …`));
                results.push([part.caption, await this.replay.run(part, () => this.#raise())]);
            }
            dropKept();
        } finally {
            this.work.journal.release();
            this.#close();
        }
        return results;
    }

    /** A modal screen that came up lies over this dialog, and must not take what is typed meanwhile. */
    #raise() {
        if (!document.querySelector(".v-modal[open]")) return;
        this.work.quietly(() => {
            this.#dialog.close();
            this.#dialog.showModal();
        });
    }

    #comeTo(place) {
        const [screen] = split(place?.path ?? "");
        if (this.work.children.view(screen)) this.work.children.activate(screen);
        if (!this.work.places.restore(place)) this.work.focusLost();
    }

    #tell(caption, differences) {
        const {notices} = this.work;
        if (differences.length === 0) return notices.show(`${caption} is as you left it: look at it and save.`);
        const list = h("ul", {class: "v-kept"}, ...differences.map((text) => h("li", {}, text)));
        return notices.show(`${caption} is not as you left it. What you had there, and did not come back:`, [list], {stays: true});
    }
}

function button(caption, look, onclick, attributes = {}) {
    const element = h("button", {type: "button", class: `btn ${look}`, onclick, ...attributes});
    showCaption(element, caption);
    return element;
}

/** What the host stored takes the steps before it along. Without an answer nobody knows. */
function judged(part, stored) {
    if (stored === undefined) return {...part, unknown: true};
    const isOn = ({request}) => request && split(request.set ?? request.fire)[0] === stored.screen;
    const covers = stored?.request > part.saved && (part.screen === stored.screen || part.steps.some(isOn));
    if (!covers) return part;
    return {...part, isStored: true, shows: {}, steps: part.steps.filter((step) => step.opens || step.n > stored.request)};
}

function verdict(part) {
    const typed = hasWork(part) ? `${fieldCount(part)} can be brought back.` : "";
    if (part.isStored) return `The save of ${part.caption} was stored. ${typed && `Of what you typed after it, ${typed}`}`;
    if (!pressed(part)) return `${part.caption} was not saved. ${typed}`;
    if (!part.unknown) return `The save of ${part.caption} was not stored. ${typed}`;
    return `Whether the save of ${part.caption} was stored cannot be found out: look there before you save again. ${typed}`;
}
