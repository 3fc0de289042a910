// The talk with the nurse's session: requests go out in order and without waiting for one another, and a lost connection is
// taken up again without losing one.

import {Outbox} from "./outbox.js";

const firstPause = 300;
const longestPause = 5000;
const patience = 1000;

export class Session {
    #socket = null;
    #outbox = new Outbox();
    #pause = firstPause;
    #timer = 0;
    #turn = Promise.resolve();
    #waiting = null;
    #over = false;
    #silence = 0;
    #isSilent = false;

    /**
     * @param {object} listener
     *     `resumed(line)`: draw yourself anew from the connection's first line; `message(reply, request, before)`: events in
     *     order, of a reply or pushed; `progress(events, request, before)`: the same of a request that is not done yet, where
     *     `before` are the events that were told of it already; `sent({number, request, secret, question})`;
     *     `state("open"|"silent"|"lost"|"replaced")`, where "silent" is a host that owes an answer for a second; `ended(reason)`; `signedOut()`; `failed(error)`. Drawing may take time: what
     *     comes meanwhile waits for the promise that the first three return.
     */
    constructor(listener) {
        this.listener = listener;
        addEventListener("online", () => this.#retryNow());
        document.addEventListener("visibilitychange", () => document.visibilityState === "visible" && this.#retryNow());
    }

    /** The question to show: one whose answer is under way is none any more. */
    get question() {
        return this.#outbox.answers ? null : this.#waiting;
    }

    /** Whether nothing is under way and no question is open. */
    get idle() {
        return this.#outbox.empty && !this.#waiting;
    }

    get connected() {
        return this.#socket?.readyState === WebSocket.OPEN && !this.#over;
    }

    /** The content that a user gave a control and the session has not confirmed, as `{to}`, or nothing. */
    pending(path) {
        return this.#outbox.pending(path);
    }

    connect() {
        const scheme = location.protocol === "https:" ? "wss" : "ws";
        const socket = new WebSocket(`${scheme}://${location.host}/session`);
        this.#socket = socket;
        socket.addEventListener("message", (event) => socket === this.#socket && this.#inTurn(event.data));
        socket.addEventListener("close", () => socket === this.#socket && this.#lost());
    }

    /** Sends a request as soon as it can, and tells its number. */
    send(request, secret = false) {
        const number = this.#outbox.add(request, secret);
        this.listener.sent({number, request, secret, question: this.#waiting});
        this.#flush();
        return number;
    }

    #flush() {
        if (!this.connected) return;
        for (const entry of this.#outbox.takeUnsent()) this.#socket.send(JSON.stringify(entry.request));
        if (!this.#silence) this.#listen();
    }

    /** From now on an answer is due, if there is anything to answer. */
    #listen() {
        clearTimeout(this.#silence);
        this.#silence = this.#outbox.empty ? 0 : setTimeout(() => this.#tellSilence(), patience);
        if (!this.#isSilent) return;
        this.#isSilent = false;
        this.listener.state("open");
    }

    #tellSilence() {
        if (!this.connected) return;
        this.#isSilent = true;
        this.listener.state("silent");
    }

    #inTurn(line) {
        this.#turn = this.#turn.then(() => this.#receive(JSON.parse(line))).catch((error) => this.listener.failed(error));
    }

    async #receive(message) {
        if ("snapshot" in message) return this.#resumed(message);
        if (message.replaced) return this.#replaced();
        await this.#hear(message);
        this.#listen();
        return undefined;
    }

    async #hear(message) {
        const working = this.#outbox.underWay(message.during);
        if (working) return this.#progress(working, message.events);
        const entry = this.#outbox.replied(message.reply);
        const request = entry?.request ?? null;
        this.#waiting = message.waiting ?? null;
        const refused = message.events.some((event) => "error" in event);
        if (request && "set" in request && refused && this.#waiting) this.#outbox.keep(entry);
        await this.listener.message(message, request, entry?.told ?? []);
        const end = message.events.find((event) => "ended" in event);
        if (end) return this.#end(end.ended);
        if (!this.#waiting) for (const kept of this.#outbox.takeKept()) this.send(kept.request, kept.secret);
        this.#flush();
    }

    /** What an operation did so far is drawn at once. A question of it comes with its reply. */
    async #progress(entry, events) {
        const before = entry.told ?? [];
        entry.told = [...before, ...events];
        await this.listener.progress(events, entry.request, before);
    }

    async #resumed(message) {
        this.#pause = firstPause;
        this.#waiting = message.waiting ?? null;
        this.#outbox.resume(message.received, message.session);
        await this.listener.resumed(message);
        this.#isSilent = false;
        this.listener.state("open");
        this.#flush();
        this.#listen();
    }

    #replaced() {
        this.#over = true;
        clearTimeout(this.#silence);
        this.listener.state("replaced");
    }

    /** Takes the session back from the page that took it over. */
    takeBack() {
        this.#over = false;
        this.connect();
    }

    #end(reason) {
        this.#over = true;
        clearTimeout(this.#silence);
        this.#outbox.clear();
        this.listener.ended(reason);
        this.#socket.close();
    }

    #lost() {
        if (this.#over) return;
        clearTimeout(this.#silence);
        this.#isSilent = false;
        this.listener.state("lost");
        clearTimeout(this.#timer);
        this.#timer = setTimeout(() => this.#reconnect(), this.#pause);
        this.#pause = Math.min(this.#pause * 2, longestPause);
    }

    #retryNow() {
        if (this.#over || !this.#socket || this.#socket.readyState < WebSocket.CLOSING) return;
        clearTimeout(this.#timer);
        this.#reconnect();
    }

    /** A socket that fails does not say why; the page itself does: it answers with a redirect when nobody is signed in. */
    async #reconnect() {
        try {
            const page = await fetch("/", {redirect: "manual", cache: "no-store"});
            if (page.type === "opaqueredirect" || page.status === 401) {
                this.#over = true;
                this.listener.signedOut();
                return;
            }
        } catch {
            return this.#lost();
        }
        this.connect();
    }
}
