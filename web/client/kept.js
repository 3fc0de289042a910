// What a nurse had not saved when her session went: put aside in her tab, told without any patient's text while nobody is
// signed in, and offered to her alone.

import {h} from "./dom.js";

export const journalKey = "vorel.journal";
const keptKey = "vorel.kept";
const placeKey = "vorel.place";

/** Work of another day is nobody's any more. */
const longestKept = 24 * 60 * 60 * 1000;

export function stored(key) {
    try {
        return JSON.parse(sessionStorage.getItem(key));
    } catch {
        return null;
    }
}

export function readKept() {
    const kept = stored(keptKey);
    if (kept && Date.now() - kept.at > longestKept) return dropKept();
    return kept;
}

export function dropKept() {
    sessionStorage.removeItem(keptKey);
    return null;
}

/**
 * Puts the journal of a session that is over beside what is kept already; of a screen the later work counts.
 * @param {string} why what the host said; "" where it said nothing
 * @returns what is kept now, or null
 */
export function putAside(why = "") {
    const journal = stored(journalKey);
    sessionStorage.removeItem(journalKey);
    const before = readKept();
    if (!journal?.session) return before;
    const {session, user, host, saved, told} = journal;
    const parts = Object.entries(journal.screens)
        .map(([screen, picture]) => ({session, saved, told, screen, ...picture, steps: journal.steps.filter((step) => step.screen === screen)}))
        .filter((part) => hasWork(part) || pressed(part));
    const older = (before?.user === user ? before.parts : []).filter((part) => !parts.some(({screen}) => screen === part.screen));
    const place = parts.length > 0 ? stored(placeKey) : before?.place;
    const kept = {user, host, why, at: Date.now(), place, parts: [...older, ...parts]};
    sessionStorage.setItem(keptKey, JSON.stringify(kept));
    return kept;
}

const fieldsOf = (part) => new Set(part.steps.filter((step) => step.field).map((step) => step.request.set));

export const hasWork = (part) => fieldsOf(part).size > 0;

/** The caption of the button that saves, where it was under way when the session went. */
export const pressed = (part) => part.steps.findLast((step) => step.open && step.press)?.press;

export function fieldCount(part) {
    const count = fieldsOf(part).size;
    return count === 1 ? "1 field" : `${count} fields`;
}

/** What is kept, by counts and the captions with which the screens opened alone. */
export function keptWords({user, parts}) {
    const lines = parts.map((part) => {
        const save = pressed(part) && `${pressed(part)} was pressed; whether it was stored you will see after signing in`;
        return h("li", {}, `${part.caption}: ${[hasWork(part) && fieldCount(part), save].filter(Boolean).join(", and ")}`);
    });
    return [h("p", {}, "What had not been saved is kept in this tab:"), h("ul", {class: "v-kept"}, ...lines),
            h("p", {}, `It is offered when ${user} signs in again.`)];
}

/** Why the session is over; `host` is the run of the host now, where the host said nothing and it may be another. */
export function reasonOf(kept, host = kept.host) {
    if (kept.why) return kept.why;
    return host === kept.host ? "Your session ended while the page was away." : "The host was started anew.";
}

/** A button that drops what is kept when it is pressed a second time. */
export function dropButton(dropped) {
    const button = h("button", {type: "button", class: "btn btn-outline-secondary", onkeydown: (event) => {
        if (event.repeat) event.preventDefault();  // a held Enter is one press
    }, onclick: () => {
        if (button.dataset.sure) {
            dropKept();
            return dropped();
        }
        button.dataset.sure = "true";
        return (button.textContent = "Press again to drop it for good");
    }}, "Drop it");
    return button;
}
