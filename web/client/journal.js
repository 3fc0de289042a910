// The steps that a nurse has taken on the screens that are open: what she would have to do again if her session were gone.
// It lies in the tab's own storage. What is saved, cancelled or closed leaves it; a password's content never enters it.

import {parseCaption} from "./dom.js";
import {labelFromName} from "./field.js";
import {dropKept, journalKey, putAside, readKept, stored} from "./kept.js";
import {split} from "./model.js";
import {asInput} from "./render/date.js";
import {isLong} from "./render/entries.js";

/** Characters; beyond them the screen that was left alone longest is given up. */
const mostKept = 200_000;
const mostTold = 50;

/** Kinds that are filled in, as against rows and pages that are only looked at. */
const fields = new Set(["textBox", "comboBox", "checkBox", "optionButton", "datePicker"]);

/** The rows that a content `{row}` counts, each as the text that it is known by again; none of a list that the host has. */
export function rowsOf({items, nodes, rows}) {
    if (isLong(items)) return [];
    return (items ?? nodes)?.map(({text}) => text) ?? rows.map((cells) => cells.join("\t"));
}

/** What a user reads in a control. */
function textOf({kind, password, text, caption, checked, date, format, items}) {
    if (kind === "checkList") return checked.map((at) => items[at].text).join(", ");
    if (kind === "textBox" || kind === "comboBox") return password ? "" : text;
    if (kind === "checkBox" || kind === "optionButton") return checked ? "yes" : "";
    if (kind === "datePicker") return asInput(date, format === "time");
    return kind === "label" ? parseCaption(caption ?? "").text : "";
}

const same = (one, other) => one?.toLowerCase() === other?.toLowerCase();
const isFile = ({kind, answer}) => kind === "file" && answer !== "cancel";
const blank = (head = {}) => ({...head, saved: 0, told: [], owners: {}, captions: {}, live: {}, screens: {}, steps: []});

export class Journal {
    /**
     * `steps`: {n, screen, request, open} in order; `open` until the session is done with it. One without a request is a
     * gap: what `was` there is not to happen again. `screen` is the one that the step counts for, "" for the menu.
     * `owners`: which screen a screen counts for. `captions`: with which the screens opened. `told`: boxes that she has
     * acknowledged. `saved`: the last save known of.
     * `live`: controls whose content is not hers to bring back, since the session changes it by itself or a file brought it.
     */
    #book = stored(journalKey) ?? blank();
    #held = false;

    constructor(work) {
        this.work = work;
    }

    /** A connection is there, and the model is as its first line says. */
    resumed({session, user, host, received, waiting}) {
        if (readKept() && readKept().user !== user) dropKept();
        if (this.#book.session === session) {
            this.#catchUp(received, waiting);
        } else {
            if (this.#book.user === user) putAside();
            this.#book = blank({session, user, host});
        }
        this.#save();
    }

    /** Replies may have gone with the line: what nobody knows the outcome of is not done again. */
    #catchUp(received, waiting) {
        const {children} = this.work.model;
        const taken = this.#steps.filter((step) => step.open && step.n <= received);
        const fresh = children.filter((name) => !(name in this.#book.owners));
        for (const opened of fresh) this.#opened({opened}, taken.find((step) => step.screen === ""));
        this.#keepOnly((step) => step.n > received || children.includes(step.screen));
        const asks = waiting && (taken.find((step) => step.asks) ?? taken.findLast((step) => step.request.fire));
        if (asks) asks.asks = true;
        this.#book.unsure ||= taken.length > 0;
        for (const step of taken.filter((one) => one !== asks)) this.#done(step, {unknown: true});
    }

    /** Nothing is under way: where replies were lost, the session is asked whether one of them told of a save. */
    idle() {
        if (!this.#book.unsure) return;
        this.#book.unsure = false;
        this.work.session.send({stored: this.#book.session});
    }

    get #steps() {
        return this.#book.steps;
    }

    #keepOnly(wanted) {
        this.#book.steps = this.#steps.filter(wanted);
    }

    #ownerOf(path) {
        const [screen] = split(path);
        return screen === this.work.model.main ? "" : (this.#book.owners[screen] ?? screen);
    }

    /** Whether she has begun something on a screen. */
    hasWork(screen) {
        return this.#steps.some((step) => step.screen === screen && !step.opens);
    }

    /** Whether she has filled in something on a screen that is not saved. */
    hasTyped(screen) {
        return this.#steps.some((step) => step.screen === screen && step.field);
    }

    /** A request leaves the page; `question` is what is open. */
    sent({number, request, secret, question}) {
        const {set, fire} = request;
        if ("answer" in request) this.#answered(request.answer, question);
        else if (set) this.#given(number, request, secret);
        else if (fire && !fire.endsWith(".Activate")) this.#add({n: number, request, press: this.#saveButton(fire)});
        this.#save();
    }

    #given(n, {set, to}, secret) {
        const control = this.work.model.control(set);
        const row = to?.row === undefined ? undefined : (to.text ?? rowsOf(control)[to.row]);
        const field = fields.has(control.kind) || to?.checked !== undefined;
        this.#add({n, request: secret ? {set} : {set, to}, row, field, secret});
    }

    #add({request, ...step}) {
        const screen = this.#ownerOf(request.set ?? request.fire);
        if (screen === "" && request.set) return;
        const last = this.#steps.findLast((other) => other.screen === screen);
        const goesOn = request.set && last?.request?.set === request.set && request.to?.checked === undefined;
        if (goesOn) Object.assign(last, {...step, request, open: true});
        else this.#steps.push({...step, screen, request, open: true});
    }

    /** The caption of a pressed button that is the one which saves its screen. */
    #saveButton(fire) {
        const [screen, control] = split(fire);
        const {defaultButton, cancelButton} = this.work.view(screen) ?? {};
        if (!same(defaultButton, control) || same(cancelButton, control)) return undefined;
        return parseCaption(this.work.model.control(fire).caption).text;
    }

    #answered(answer, question) {
        if (!question) return;
        const {kind, text} = question;
        const step = this.#steps.find((one) => one.asks);
        if (kind === "message") this.#book.told = [...this.#book.told.filter((other) => other !== text), text].slice(-mostTold);
        else if (step) (step.answers ??= []).push({kind, text, answer: answer.file ? "file" : answer});
    }

    /** A reply or a push was heard, and the model has it. */
    replied(message, request) {
        const answers = request && "answer" in request;
        const step = this.#steps.find((one) => one.open && (answers ? one.asks : one.n === message.reply));
        const {main} = this.work.model;
        for (const event of message.events) {
            const {opened, hidden, closed, changed} = event;
            const paths = Object.keys(changed ?? {}).filter((path) => split(path)[0] !== main);
            if (!message.reply || step?.answers?.some(isFile)) for (const path of paths) this.#book.live[path] = true;
            if (step?.request.fire) step.touched = [...(step.touched ?? []), ...paths, opened ?? hidden ?? closed ?? []].flat();
            if (opened && opened !== main) this.#opened(event, step);
            if (closed) this.#closed(closed);
        }
        const save = message.saved ? {screen: message.saved, request: message.reply} : this.#answerOf(message, request);
        if (save?.request > this.#book.saved) this.#saved(save);
        if (step) this.#went(step, message);
        this.#save();
    }

    #opened({opened: name, modal = false, state}, step) {
        this.#book.captions[name] ??= state?.caption;
        const owner = (modal && step?.screen) || name;
        const isOpen = this.#steps.some((other) => other.screen === name && other.opens);
        this.#book.owners[name] = owner;
        if (owner === name && step?.request.fire && !isOpen) Object.assign(step, {screen: name, opens: true});
    }

    #closed(name) {
        if (this.#ownerOf(name) === name) this.#keepOnly((step) => step.screen !== name);
        delete this.#book.owners[name];
        delete this.#book.captions[name];
    }

    /** The save that a question after it found. */
    #answerOf({state}, request) {
        return request?.stored === this.#book.session ? state : null;
    }

    /** What was saved has not to be typed again; what was typed after it has. */
    #saved({screen, request}) {
        this.#book.saved = request;
        const owner = this.#ownerOf(screen);
        this.#keepOnly((step) => step.screen !== owner || step.opens || step.n > request);
    }

    #went(step, message) {
        const refused = message.events.some((event) => "error" in event);
        if (refused && !(step.request.set && message.waiting)) this.#keepOnly((other) => other !== step);
        else if (message.waiting) step.asks = !refused;
        else this.#done(step);
    }

    /**
     * The session is done with a step. What touched nothing on the screens leaves nothing. What had her "yes" or a file
     * may have touched more than the screens, and is never done again.
     */
    #done(step, {unknown = false} = {}) {
        const {touched = []} = step;
        Object.assign(step, {open: false, asks: false, touched: undefined});
        if (step.request.set || step.opens) return undefined;
        const [screen, control] = split(step.request.fire);
        if (step.screen === "" || !(unknown || touched.length > 0)) return this.#keepOnly((other) => other !== step);
        if (screen === step.screen && same(control, this.work.view(screen)?.cancelButton))
            return this.#keepOnly((other) => other.screen !== screen || other.opens || other.n > step.n);
        step.file = step.answers?.some(isFile);
        if (!step.file) step.shows = unknown ? this.shows(step.screen) : this.#outcome(step.screen, touched);
        if (unknown || step.file || step.answers?.some(({answer}) => answer === "yes")) this.#makeGap(step);
        return undefined;
    }

    /** The row that was picked for it right before may be gone through it: it is not looked for again. */
    #makeGap(step) {
        Object.assign(step, {request: null, was: step.request.fire});
        const before = this.#steps.findLast((other) => other.screen === step.screen && other.n < step.n);
        if (before?.row !== undefined && !before.field) this.#keepOnly((other) => other !== before);
    }

    /** What a step put on its screen, by which it is known whether the same happens again. */
    #outcome(screen, touched) {
        const shows = this.shows(screen);
        const names = touched.filter((path) => split(path)[0] === screen).map((path) => split(path)[1]);
        return Object.fromEntries(names.filter((name) => !this.#book.live[`${screen}.${name}`]).map((name) => [name, shows[name] ?? ""]));
    }

    /** What a screen shows, by the controls' names. */
    shows(screen) {
        const {model} = this.work;
        const seen = Object.entries(model.screens.get(screen)?.controls ?? {}).filter(([name, control]) => textOf(control)
            && !this.#book.live[`${screen}.${name}`] && model.worked(`${screen}.${name}`).visible);
        return Object.fromEntries(seen.map(([name, control]) => [name, textOf(control)]));
    }

    /** The caption with which a screen opened, without the count at its end: later ones may name a patient. */
    #nameOf(screen) {
        const caption = this.#book.captions[screen] || labelFromName(screen);
        return parseCaption(caption).text.replace(/\s*:\s*\d*\s*$/, "");
    }

    /** A screen in words, for when it may not be there any more. */
    #pictureOf(screen) {
        const shows = this.shows(screen);
        const view = this.work.view(screen);
        const labels = Object.fromEntries(Object.keys(shows).map((name) => [name, view?.labelOf(name)]));
        return {caption: this.#nameOf(screen), shows, labels};
    }

    #save() {
        if (this.#held || !this.#book.session) return undefined;
        const names = [...new Set(this.#steps.map((step) => step.screen))].filter((name) => this.work.model.screens.has(name));
        this.#book.screens = Object.fromEntries(names.map((name) => [name, this.#pictureOf(name)]));
        const text = JSON.stringify(this.#book);
        if (text.length <= mostKept || names.length === 0) return sessionStorage.setItem(journalKey, text);
        const lastOf = (screen) => this.#steps.findLast((step) => step.screen === screen).n;
        const [quietest] = names.toSorted((one, other) => lastOf(one) - lastOf(other));
        this.#keepOnly((step) => step.screen !== quietest);
        return this.#save();
    }

    /** While work comes back the storage stays as it was, so that a second fall loses nothing. */
    hold() {
        this.#held = true;
    }

    release() {
        this.#held = false;
        this.#save();
    }

    /** The session is over: with a reason her work is kept; without one she left by herself. @returns what is kept */
    ended(why) {
        this.#book = blank();
        if (why) return putAside(why);
        sessionStorage.removeItem(journalKey);
        return dropKept();
    }
}
