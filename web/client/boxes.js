// The session's questions as dialogs in the middle, with the keyboard on the safe answer.

import {h, newId} from "./dom.js";
import {QuietKeyboard} from "./quiet.js";

const signs = {none: "", information: "i", warning: "!", stop: "×"};
const signNames = {information: "Information", warning: "Warning", stop: "Stop"};

export class Boxes {
    #shown = "";
    #before = null;
    #next = null;
    #keyboard = new QuietKeyboard();

    /** @param {{session: object, quietly: (work: Function) => void, focusLost: () => void}} work */
    constructor(work) {
        this.work = work;
        this.dialog = h("dialog", {class: "v-box", oncancel: (event) => this.#cancelled(event),
                                   onkeydown: (event) => event.key === "Escape" && this.#cancelled(event)});
        this.aside = h("div", {class: "v-box v-aside", popover: "manual", "aria-hidden": "true"});
        document.body.append(this.dialog, this.aside);
    }

    get open() {
        return this.dialog.open || this.#keyboard.waits;
    }

    /** Shows the open question, or none. `focus` is the control that has the keyboard after it, if another one than before. */
    show(question, focus) {
        this.#next = focus ?? this.#next;
        const wanted = question ? JSON.stringify(question) : "";
        if (wanted === this.#shown) return;
        this.#shown = wanted;
        if (!question) {
            this.#close();
            return this.work.focusLost();
        }
        this.question = question;
        this.#draw(question);
        if (this.dialog.open) return this.#takeKeyboard();
        this.#keyboard.wait(() => this.#takeKeyboard());
        if (this.#keyboard.waits) this.#showAside();
        return undefined;
    }

    /** In sight above all else, while the keyboard stays where it is: a dialog would take it. */
    #showAside() {
        this.aside.replaceChildren(...this.dialog.childNodes);
        if (!this.aside.matches(":popover-open")) this.aside.showPopover();
    }

    #hideAside() {
        if (!this.aside.matches(":popover-open")) return;
        this.dialog.replaceChildren(...this.aside.childNodes);
        this.aside.hidePopover();
    }

    #takeKeyboard() {
        this.#hideAside();
        this.work.quietly(() => {
            if (!this.dialog.open) {
                this.#before = document.activeElement;
                this.dialog.showModal();
            }
            this.dialog.querySelector("[data-first]").focus();
        });
        this.dialog.querySelector("input[type=text]")?.select();
    }

    /** A second box in a row, with the same text, is another one. */
    forget() {
        this.#shown = "";
    }

    #draw(question) {
        const titleId = newId();
        const textId = newId();
        const parts = this[`_${question.kind}`]?.(question, textId) ?? this._message();
        const alerts = question.icon === "warning" || question.icon === "stop";
        this.dialog.setAttribute("role", question.kind === "message" || question.kind === "yesno" || alerts ? "alertdialog" : "dialog");
        this.dialog.setAttribute("aria-labelledby", titleId);
        this.dialog.setAttribute("aria-describedby", textId);
        this.dialog.replaceChildren(
            h("h2", {id: titleId, class: "v-box-title"}, question.title),
            h("div", {class: "v-box-body"}, sign(question.icon), h("p", {id: textId, class: "v-box-text"}, question.text)),
            ...parts);
    }

    _message() {
        return [bar(this.#button("OK", "ok", {first: true, primary: true}))];
    }

    /** "No" changes nothing, so it has the keyboard. */
    _yesno() {
        return [bar(this.#button("&Yes", "yes"), this.#button("&No", "no", {first: true, primary: true}))];
    }

    _input(question, textId) {
        const input = h("input", {type: "text", class: "form-control", "data-first": true, value: question.default ?? "",
                                  "aria-labelledby": textId, autocomplete: "off"});
        const form = h("form", {method: "dialog", onsubmit: (event) => {
            event.preventDefault();
            this.answer(input.value);
        }}, input, bar(h("button", {type: "submit", class: "btn btn-primary"}, "OK"), this.#button("Cancel", "cancel")));
        return [form];
    }

    _file(question, textId) {
        const input = h("input", {type: "file", class: "form-control", "data-first": true, "aria-labelledby": textId,
                                  accept: question.accept ?? null});
        const problem = h("p", {class: "v-box-problem", role: "alert"});
        const ok = h("button", {type: "button", class: "btn btn-primary", onclick: async () => {
            if (input.files.length === 0) return (problem.textContent = "Choose a file first.");
            ok.disabled = true;
            const {file, error} = await upload(input.files[0]);
            ok.disabled = false;
            if (file) this.answer({file});
            else problem.textContent = error;
        }}, "OK");
        return [input, problem, bar(ok, this.#button("Cancel", "cancel"))];
    }

    #button(caption, answer, {first = false, primary = false} = {}) {
        const text = caption.replace("&", "");
        const button = h("button", {type: "button", class: `btn ${primary ? "btn-primary" : "btn-outline-secondary"}`,
                                    "data-first": first, "data-answer": answer, onclick: () => this.answer(answer)}, text);
        if (caption.startsWith("&")) button.dataset.accessKey = text[0].toLowerCase();
        return button;
    }

    /** The keyboard goes on only when the answer is under way: what a control does then is no longer refused. */
    answer(answer) {
        const next = this.#next;
        this.#close();
        this.work.session.send({answer});
        if (next) this.work.focus(next);
        this.work.focusLost();
    }

    /** Esc is the answer that changes nothing. */
    #cancelled(event) {
        event.preventDefault();
        this.answer({message: "ok", yesno: "no"}[this.question.kind] ?? "cancel");
    }

    #close() {
        this.#next = null;
        this.#keyboard.stop();
        this.#hideAside();
        if (!this.dialog.open) return;
        this.work.quietly(() => {
            this.dialog.close();
            if (this.#before?.isConnected) this.#before.focus();
        });
    }
}

const bar = (...buttons) => h("div", {class: "v-box-buttons"}, ...buttons);

function sign(icon) {
    if (!signs[icon]) return null;
    return h("span", {class: `v-box-sign v-sign-${icon}`, role: "img", "aria-label": signNames[icon]}, signs[icon]);
}

async function upload(file) {
    try {
        // Of the name only its end: addresses are logged on the way, and a file is often named after a patient.
        const [extension = ""] = /\.[a-z0-9]+$/i.exec(file.name) ?? [];
        const answer = await fetch(`/upload?name=file${extension}`, {method: "POST", body: file});
        const reply = await answer.json().catch(() => ({}));
        if (reply.file) return reply;
        return {error: reply.error ?? "The file could not be sent."};
    } catch {
        return {error: "The host cannot be reached. Try again in a moment."};
    }
}
