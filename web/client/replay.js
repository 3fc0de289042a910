// Does a nurse's steps again, one after another, as she did them. It never saves: what had her "yes", and what was under
// way when the session went, is left to her.

import {labelFromName} from "./field.js";
import {rowsOf} from "./journal.js";
import {split} from "./model.js";
import {isLong} from "./render/entries.js";

export class Replay {
    #hears = null;
    #labels = {};

    constructor(work) {
        this.work = work;
    }

    /** A message was heard, or the page was drawn anew. @returns {boolean} whether a step waited for it */
    heard(message) {
        if (!this.#hears) return false;
        this.#hears(message);
        return true;
    }

    /** Makes a request and waits until all is quiet. What she answered then is answered again, but for a "yes". */
    pass(request, {answers = [], told = []} = {}) {
        const {session, boxes} = this.work;
        const left = answers.filter(({answer, kind}) => answer !== "yes" && kind !== "file");
        const answerTo = ({kind, text}) => {
            if (kind === "message") return told.includes(text) ? "ok" : undefined;
            const at = left.findIndex((one) => one.kind === kind && one.text === text);
            return at < 0 ? undefined : left.splice(at, 1)[0].answer;
        };
        return new Promise((resolve) => {
            let reply = {};
            this.#hears = (message) => {
                if (message?.reply === number) reply = message;
                const answer = session.question ? answerTo(session.question) : undefined;
                if (answer !== undefined) return boxes.answer(answer);
                if (!session.idle) return undefined;
                this.#hears = null;
                return resolve(reply);
            };
            const number = session.send(request);
        });
    }

    /** Does the steps of a screen again. @returns {Promise<string[]>} what is not as it was, in words */
    async run(part, afterEach) {
        const {screen, steps} = part;
        this.#labels = part.labels;
        if (steps.some((step) => step.opens) && this.work.model.screens.has(screen)) await this.pass({fire: `${screen}.Unload`});
        let problem = "";
        for (const step of steps) {
            problem = await this.#again(step, part);
            afterEach();
            if (problem) break;
        }
        return [problem, ...steps.map((step) => this.#left(step)), ...this.#differences(part)].filter(Boolean);
    }

    /** @returns {string} why going on might put one patient's data to another, or nothing */
    async #again(step, {screen, told}) {
        const request = await this.#requestOf(step);
        if (request === undefined) return `${this.#label(step.request.set)}: ${step.row.replaceAll("\t", " ")} is not in the list any more`;
        if (request) await this.pass(request, {answers: step.answers, told});
        const shows = this.work.journal.shows(screen);
        const same = Object.entries(step.shows ?? {}).every(([name, text]) => text === (shows[name] ?? ""));
        return same ? "" : `${this.#label(step.was ?? step.request.fire)}: it did not come out as before, so what you did after it is left to you`;
    }

    /** Null where there is nothing to do. A row is found by its text, wherever it stands now; undefined where it is gone. */
    async #requestOf({request, row, secret, open}) {
        const control = request?.set && this.work.model.control(request.set);
        if (!request || secret || (request.fire ? open : !control)) return null;
        if (row === undefined) return request;
        const rows = isLong(control.items) ? await this.#hostsRows(request.set, row) : rowsOf(control);
        const at = rows[request.to.row] === row ? request.to.row : rows.indexOf(row);
        return at < 0 ? undefined : {...request, to: {...request.to, row: at}};
    }

    /** The rows of a long list that this text is part of, each in its place. */
    async #hostsRows(path, row) {
        await this.pass({list: path, holds: row});
        const {window} = this.work.model.control(path) ?? {};
        const rows = [];
        for (const {row: at, text} of window?.holds === row ? window.items : []) rows[at] = text;
        return rows;
    }

    /** What cannot be done for her. */
    #left({file, was, secret, request}) {
        if (file) return `${this.#label(was)}: choose the file again`;
        return secret ? `${this.#label(request.set)}: type it again` : "";
    }

    #label(path) {
        const [screen, name] = path.split(".");
        return this.work.view(screen)?.labelOf(name) ?? this.#labels[name] ?? labelFromName(name);
    }

    /** What she had given, and what the screen shows otherwise now. */
    #differences({screen, shows, steps}) {
        const now = this.work.journal.shows(screen);
        const given = steps.filter(({request}) => request?.set && split(request.set)[0] === screen)
            .map(({open, request: {set, to}}) => [split(set)[1], open && typeof to === "string" ? to : shows[split(set)[1]]]);
        const wanted = {...shows, ...Object.fromEntries(given)};
        const isOpen = this.work.model.screens.has(screen);
        const names = Object.keys(wanted).filter((name) => (wanted[name] ?? "") !== (now[name] ?? "")
            && (!isOpen || now[name] || given.some(([one]) => one === name)));
        return names.map((name) => `${this.#label(`${screen}.${name}`)}: ${wanted[name]}${now[name] ? ` (now: ${now[name]})` : ""}`);
    }
}
