// What a siege says to its host: requests as a browser sends them, a page's line, and bytes that no browser would send.

import http from "node:http";
import net from "node:net";
import {setImmediate as othersTurn} from "node:timers/promises";

const address = "127.0.0.1"; // a siege speaks to this machine alone
const patience = 60000;
const longestKept = 64 * 1024;

/**
 * The answer to a request on a connection of its own: {status, headers, body}. `from` is the loopback address that it
 * comes from, `time` how many milliseconds it may take. Throws where no answer came.
 */
export function ask(port, path, {method = "GET", cookie, form, from, time = patience} = {}) {
    const headers = {Origin: `http://${address}:${port}`};
    if (cookie) headers.Cookie = cookie;
    if (form) headers["Content-Type"] = "application/x-www-form-urlencoded";
    const options = {host: address, port, path, method, headers, localAddress: from, agent: false,
                     signal: AbortSignal.timeout(time)};
    return new Promise((resolve, reject) => {
        const request = http.request(options, (response) => {
            let body = "";
            response.setEncoding("utf8").on("data", (piece) => (body += piece)).on("error", reject);
            response.on("end", () => resolve({status: response.statusCode, headers: response.headers, body}));
        });
        request.on("error", reject);
        request.end(form && new URLSearchParams(form).toString());
    });
}

/** Signs in: the cookie of the new session, or {status} of the refusal. */
export async function signIn(port, {user, password}, {from, time} = {}) {
    const answer = await ask(port, "/sign-in", {method: "POST", form: {user, password}, from, time});
    const [cookie] = answer.headers["set-cookie"] ?? [];
    return answer.status === 303 && cookie ? {cookie: cookie.split(";")[0]} : {status: answer.status};
}

/** A masked frame of text, with the mask 0, which changes nothing. */
export function frameOf(text, kind = 0x81) {
    const content = Buffer.from(text);
    const long = content.length > 65535;
    const head = Buffer.alloc(content.length < 126 ? 6 : long ? 14 : 8);
    head[0] = kind;
    head[1] = 0x80 | (content.length < 126 ? content.length : long ? 127 : 126);
    if (long) head.writeBigUInt64BE(BigInt(content.length), 2);
    else if (content.length > 125) head.writeUInt16BE(content.length, 2);
    return Buffer.concat([head, content]);
}

/** A page's WebSocket. */
export class Page {
    /** Opens it and waits for the session as it stands. Throws where the host refuses. */
    static async open(port, cookie) {
        const headers = {Origin: `http://${address}:${port}`, Cookie: cookie, Connection: "Upgrade", Upgrade: "websocket",
                         "Sec-WebSocket-Key": "dGhlIHNhbXBsZSBub25jZQ==", "Sec-WebSocket-Version": "13"};
        const request = http.request({host: address, port, path: "/session", headers, agent: false,
                                      signal: AbortSignal.timeout(patience)});
        const page = await new Promise((resolve, reject) => {
            request.on("error", reject);
            request.on("response", (response) => reject(new Error(`the page's line was refused (${response.statusCode})`)));
            request.on("upgrade", (response, socket, first) => resolve(new Page(socket, first)));
            request.end();
        });
        page.snapshot = await page.greeting;
        return page;
    }

    constructor(socket, first) {
        this.socket = socket;
        this.waiting = []; // who waits for a line, in their order
        this.said = []; // the texts of the boxes, until somebody takes them
        this.ended = null; // the reason that the session gave for its end
        socket.on("error", () => {}).on("close", () => this.#lose());
        this.greeting = this.#next();
        this.bytes = first; // the greeting may stand in them
        socket.setNoDelay(true).setTimeout(0);
        socket.on("data", (piece) => this.#take(piece));
        this.#take(Buffer.alloc(0));
    }

    /** Sends a request: its reply. Throws where the line or the session ended first. */
    request(request) {
        this.socket.write(frameOf(JSON.stringify(request)));
        return this.#next();
    }

    close() {
        this.socket.destroy();
    }

    #next() {
        if (this.socket.destroyed) return Promise.reject(new LineLost(this.ended));
        return new Promise((resolve, reject) => {
            const late = setTimeout(() => reject(new Error("no reply within a minute")), patience);
            const inTime = (settle) => (outcome) => {
                clearTimeout(late);
                settle(outcome);
            };
            this.waiting.push({resolve: inTime(resolve), reject: inTime(reject)});
        });
    }

    #take(piece) {
        this.bytes = Buffer.concat([this.bytes, piece]);
        for (;;) {
            if (this.bytes.length < 2) return;
            const short = this.bytes[1] & 0x7F;
            const head = short < 126 ? 2 : short === 126 ? 4 : 10;
            if (this.bytes.length < head) return;
            const size = short < 126 ? short : short === 126 ? this.bytes.readUInt16BE(2) : Number(this.bytes.readBigUInt64BE(2));
            if (this.bytes.length < head + size) return;
            const kind = this.bytes[0] & 0x0F;
            const content = this.bytes.subarray(head, head + size);
            this.bytes = this.bytes.subarray(head + size);
            if (kind === 1) this.#hear(JSON.parse(content.toString()));
            if (kind === 8) return this.socket.destroy();
            if (kind === 9) this.socket.write(frameOf(content, 0x8A));
        }
    }

    #hear(line) {
        for (const event of line.events ?? []) {
            if (event.ended !== undefined) this.ended = event.ended;
        }
        if (line.waiting?.kind === "message") this.said.push(line.waiting.text);
        if (line.snapshot || typeof line.reply === "number") this.waiting.shift()?.resolve(line);
    }

    #lose() {
        for (const {reject} of this.waiting.splice(0)) reject(new LineLost(this.ended));
    }
}

/** The page's line ended while something was waited for. */
export class LineLost extends Error {
    constructor(reason) {
        super(reason ? `the session ended: ${reason}` : "the line was lost");
    }
}

/** A connection down to its bytes. */
export class Line {
    constructor(port, from) {
        this.received = "";
        this.sent = 0;
        this.socket = net.connect({host: address, port, localAddress: from});
        this.socket.on("error", () => {});
        this.socket.setEncoding("latin1").on("data", (piece) => {
            if (this.received.length < longestKept) this.received += piece;
        });
    }

    get open() {
        return !this.socket.destroyed;
    }

    /** The statuses of all answers so far. */
    get statuses() {
        return [...this.received.matchAll(/HTTP\/1\.1 (\d{3})/g)].map(([, status]) => Number(status));
    }

    /**
     * Sends bytes and waits until more may be sent or the connection has ended, `time` milliseconds at most. Others
     * always get their turn in between, and so does what the host answers.
     */
    async send(bytes, time = patience) {
        if (!this.open) return;
        this.sent += bytes.length;
        if (!this.socket.write(bytes)) await this.#until(() => !this.socket.writableNeedDrain, "drain", time);
        await othersTurn();
    }

    /** Waits until the answer satisfies, or the connection has ended. False where neither came in time. */
    async until(satisfies, time) {
        await this.#until(() => satisfies(this.statuses), "data", time);
        return !this.open || satisfies(this.statuses);
    }

    close() {
        this.socket.destroy();
    }

    #until(done, event, time) {
        if (!this.open || done()) return Promise.resolve();
        return new Promise((resolve) => {
            const look = () => {
                if (this.open && !done()) return;
                end();
            };
            const end = () => {
                clearTimeout(late);
                this.socket.off(event, look).off("close", end);
                resolve();
            };
            const late = setTimeout(end, time);
            this.socket.on(event, look).on("close", end);
        });
    }
}
