// The requests that the session has not answered yet. They carry the session's numbers (from 1 on), survive a reload in
// the tab's own storage, and go again after a lost connection, from the first one that the session did not get.

/** So many requests wait for their replies at a time; the host queues no endless number. */
const mostUnderWay = 100;

const storageKey = "vorel.outbox";

export class Outbox {
    /** @type {{number: number, request: object, sent: boolean}[]} */
    #entries = [];
    /** Sets that were refused because a question was open; they go again when it is answered. */
    #kept = [];
    #last = 0;
    #session = null;

    constructor(storage = sessionStorage) {
        this.storage = storage;
        try {
            const stored = JSON.parse(storage.getItem(storageKey) ?? "{}");
            this.#entries = (stored.entries ?? []).map((entry) => ({...entry, sent: false}));
            this.#kept = stored.kept ?? [];
            this.#last = stored.last ?? 0;
            this.#session = stored.session ?? null;
        } catch {
            this.clear();
        }
    }

    /**
     * Adds a request. Typing that has not left yet is replaced by what the control holds now. A secret content is never
     * stored: after a reload a harmless question stands in its place and keeps the numbers whole.
     * @returns {number} the request's number
     */
    add(request, secret = false) {
        const before = this.#entries.at(-1);
        if (before && !before.sent && "set" in request && before.request.set === request.set
            && typeof request.to === "string") {
            before.request = request;
        } else {
            this.#entries.push({number: ++this.#last, request, sent: false, secret});
        }
        this.#save();
        return this.#last;
    }

    /** The request of this number, if its reply has not come. */
    underWay(number) {
        return this.#entries.find((entry) => entry.number === number);
    }

    /** Takes out the request that a reply answers. */
    replied(number) {
        const place = this.#entries.findIndex((entry) => entry.number === number);
        if (place < 0) return null;
        const [entry] = this.#entries.splice(place, 1);
        this.#save();
        return entry;
    }

    /**
     * A connection is there: the session got `received` requests. What it got is done, whatever became of the reply; the
     * rest has to go (again). Requests to another session are dropped.
     */
    resume(received, session) {
        if (this.#session !== session) this.clear();
        this.#session = session;
        const first = this.#entries.find((entry) => entry.number > received);
        const fits = this.#last >= received && (first === undefined || first.number === received + 1);
        if (!fits) this.clear();
        this.#entries = this.#entries.filter((entry) => entry.number > received);
        for (const entry of this.#entries) entry.sent = false;
        if (this.#entries.length === 0) this.#last = received;
        this.#save();
    }

    /** What has not left yet and may, in order; it counts as sent. */
    takeUnsent() {
        const next = this.#entries.slice(0, mostUnderWay).filter((entry) => !entry.sent);
        for (const entry of next) entry.sent = true;
        return next;
    }

    keep({request, secret}) {
        this.#kept = this.#kept.filter((other) => other.request.set !== request.set || typeof request.to !== "string");
        this.#kept.push({request, secret});
        this.#save();
    }

    /** What is to go again, but for what has been set anew since. */
    takeKept() {
        const later = new Set(this.#entries.map(({request}) => request.set));
        const kept = this.#kept.filter(({request}) => !later.has(request.set));
        this.#kept = [];
        this.#save();
        return kept;
    }

    /** The content that the user gave a control last and the session has not confirmed, or nothing. */
    pending(path) {
        const sets = [...this.#kept, ...this.#entries].map((entry) => entry.request);
        return sets.filter((request) => request.set === path).at(-1);
    }

    /** Whether an answer is under way: the question that the session tells of is answered already. */
    get answers() {
        return this.#entries.some((entry) => "answer" in entry.request);
    }

    get empty() {
        return this.#entries.length === 0;
    }

    clear() {
        this.#entries = [];
        this.#kept = [];
        this.#last = 0;
        this.#save();
    }

    #save() {
        const entries = this.#entries.map(({number, request, secret}) => (
            {number, request: secret ? {get: request.set} : request}));
        const kept = this.#kept.filter((entry) => !entry.secret);
        this.storage.setItem(storageKey, JSON.stringify({entries, kept, last: this.#last, session: this.#session}));
    }
}
