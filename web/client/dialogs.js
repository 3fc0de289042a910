// Dialogs of the page's own: help, and a question before it throws away what was typed.

import {h, newId} from "./dom.js";

/** Shows content under a title, with buttons below it; `closed` runs when it is gone. The keyboard is on the last button. */
export function openDialog(title, content, buttons, closed = () => {}) {
    const id = newId();
    const dialog = h("dialog", {class: "v-box", "aria-labelledby": id}, h("h2", {id, class: "v-box-title"}, title), content,
                     h("div", {class: "v-box-buttons"}, ...buttons(() => dialog.close())));
    dialog.addEventListener("close", () => {
        dialog.remove();
        closed();
    });
    document.body.append(dialog);
    dialog.showModal();
    dialog.querySelector(".v-box-buttons > :last-child").focus();
}

/** Asks before something is done that cannot be undone. @returns {Promise<boolean>} whether it is to be done */
export function ask(title, text, yes, no) {
    return new Promise((resolve) => {
        let answer = false;
        const button = (caption, style, onclick) => h("button", {type: "button", class: `btn ${style}`, onclick}, caption);
        openDialog(title, h("p", {class: "v-box-text"}, text), (close) => [
            button(yes, "btn-outline-secondary", () => {
                answer = true;
                close();
            }),
            button(no, "btn-primary", close),
        ], () => resolve(answer));
    });
}
