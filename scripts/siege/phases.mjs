// What is done to the host, one way after the other. Each runs until its time is over and fills its row of the table.

import {setTimeout as sleep} from "node:timers/promises";

import {Line, LineLost, Page, ask, frameOf, signIn} from "./line.mjs";
import {workUntilKilled} from "./nurse.mjs";

const block = Buffer.alloc(64 * 1024, "x"); // what is poured is one block over and over: the siege itself stays small
const answerTime = 10000; // an answer that takes longer did not come
const sessionsOfUser = 5;

const pick = (random, list) => list[Math.floor(random() * list.length)];

/** So many at a time of what takes its turn, until the time is over or the host is gone. */
function lanes(count, goesOn, turn) {
    const lane = async (number) => {
        while (goesOn()) await turn(number);
    };
    return Promise.all(Array.from({length: count}, (_, number) => lane(number)));
}

/** Addresses of this machine, so that one source's rules and ports are not another's. */
const source = (number) => `127.0.${1 + Math.floor(number / 250) % 250}.${1 + number % 250}`;

// ---- kills

async function kills(siege, until, row) {
    const {host, random} = siege;
    while (siege.goesOn(until)) {
        const work = siege.ward.map((nurse) => workUntilKilled(nurse, host, row));
        await sleep(200 + random() * 3000);
        await (random() < 0.1 ? stop(host, row) : kill(host, row));
        await Promise.all(work);
        await host.start();
        await settleBooks(siege, row, {});
        if (random() < 0.05) await checkDatabases(siege, row);
    }
    await checkDatabases(siege, row);
}

async function kill(host, row) {
    row.sends("kills");
    await host.kill();
}

/** In the midst of work, as an operator does at times. */
async function stop(host, row) {
    row.sends("stops");
    await host.stop().catch((error) => row.fails(error.message));
}

/** Compares the books and puts into the row what they say. */
export async function settleBooks({books, saves}, row, how) {
    const found = await books.compare(saves, how);
    row.sends("saves stored", found.stored);
    row.answers("confirmed", found.confirmed);
    row.answers("lost", found.lost);
    row.answers("cut off before the box", found.cut);
    row.answers("of these stored", found.unconfirmed);
    row.answers("confirmed without an audit row", found.unaudited);
    row.answers("cut off without one", found.unauditedUnconfirmed);
    if (found.unaudited > 0) row.fails("confirmed saves have no audit row");
    for (const fault of found.faults) row.fails(fault);
}

export async function checkDatabases({host}, row) {
    row.sends("database checks");
    await host.command("database", "check").catch((error) => row.fails(`the database is not sound: ${error.stdout ?? error.message}`));
}

// ---- slow requests

/** Connections that say nothing, or a byte at a time, of a head or a body. */
const slowKinds = {
    "silent": {first: "", byte: ""},
    "heads": {first: "GET /sign-in HTTP/1.1\r\nHost: 127.0.0.1\r\nX-Slow: ", byte: "s"},
    "bodies": {first: "POST /sign-in HTTP/1.1\r\nHost: 127.0.0.1\r\nContent-Length: 4000\r\n\r\n", byte: "s"},
};

async function slowRequests(siege, until, row) {
    const {host, random} = siege;
    const wanted = host.connectionsMost + 200;
    const open = new Set();
    while (siege.goesOn(until)) {
        for (let more = Math.min(200, wanted - open.size); more > 0; --more) {
            const kind = pick(random, Object.keys(slowKinds));
            const slow = {...slowKinds[kind], line: new Line(host.port, source(open.size)), since: performance.now()};
            slow.at = 0;
            open.add(slow);
            row.sends(`slow ${kind}`);
        }
        row.highest("at once", open.size);
        await sleep(500);
        for (const slow of open) trickle(slow, open, row);
    }
    for (const {line} of open) line.close();
}

/** The first bytes of a slow request come one at a time as well, those of a body's head at once. */
function trickle(slow, open, row) {
    const {line, first, byte} = slow;
    if (!line.open) {
        open.delete(slow);
        row.answers(line.statuses.length > 0 ? `answered ${line.statuses[0]}` : "closed by the host");
        return row.highest("longest life in s", Math.round((performance.now() - slow.since) / 1000));
    }
    if (byte === "") return;
    const whole = first.startsWith("POST") ? first.length : 1;
    line.socket.write(slow.at < first.length ? first.slice(slow.at, slow.at + whole) : byte);
    slow.at += whole;
}

// ---- chunked nonsense

const start = "POST /sign-in HTTP/1.1\r\nHost: 127.0.0.1\r\n";
const chunked = `${start}Transfer-Encoding: chunked\r\n\r\n`;
const form = "Content-Length: 5\r\n\r\nuser=";
const follows = "GET /health HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n"; // must not be read as a request of its own

const repeated = (text) => Buffer.from(text.repeat(Math.ceil(block.length / text.length)));

/** Requests that are refused or cut off. What is `endless` goes on until then. */
const nonsense = [
    {name: "endless chunk extension", text: `${chunked}5;x=`, endless: block},
    {name: "endless trailer line", text: `${chunked}0\r\nX-Trailer: `, endless: block},
    {name: "endless trailer", text: `${chunked}0\r\n`, endless: repeated("X-Trailer: x\r\n")},
    {name: "one-byte chunks", text: chunked, endless: repeated("1\r\nx\r\n")},
    {name: "one-byte chunks with long extensions", text: chunked, endless: repeated(`1;x=${"y".repeat(1000)}\r\nx\r\n`)},
    {name: "endless chunk size", text: chunked, endless: repeated("0")},
    {name: "endless head", text: start, endless: repeated("X-Head: x\r\n")},
    {name: "endless target", text: "GET /", endless: block},
    {name: "chunk of 16 f", text: `${chunked}ffffffffffffffff\r\n`, endless: block},
    {name: "body of 99 GB", text: `${start}Content-Length: 99999999999\r\n\r\n`, endless: block},
    {name: "no number for a length", text: `${start}Content-Length: -5\r\n\r\nuser=${follows}`},
    {name: "no number for a chunk", text: `${chunked}zz\r\nuser=\r\n0\r\n\r\n${follows}`},
    {name: "TE: gzip", text: `${start}TE: gzip\r\n${form}${follows}`},
    {name: "Transfer-Encoding: gzip", text: `${start}Transfer-Encoding: gzip\r\n\r\n${follows}`},
    {name: "chunked, identity", text: `${start}Transfer-Encoding: chunked, identity\r\n\r\n0\r\n\r\n${follows}`},
    {name: "chunked twice", text: `${start}Transfer-Encoding: chunked\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n${follows}`},
    {name: "both lengths", text: `${start}Transfer-Encoding: chunked\r\nContent-Length: 5\r\n\r\n0\r\n\r\n${follows}`},
    {name: "two lengths", text: `${start}Content-Length: 5\r\nContent-Length: 6\r\n\r\nuser=${follows}`},
    {name: "chunked in HTTP/1.0", text: `POST /sign-in HTTP/1.0\r\nHost: a\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n${follows}`},
    {name: "no Host", text: `GET /sign-in HTTP/1.1\r\n\r\n${follows}`},
    {name: "two Hosts", text: `GET /sign-in HTTP/1.1\r\nHost: a\r\nHost: b\r\n\r\n${follows}`},
    {name: "a space before the colon", text: `${start}Content-Length : 5\r\n\r\nuser=${follows}`},
    {name: "no request at all", text: `\x16\x03\x01\x02\x00\x01\x00\x01\xfc\x03\x03${follows}`},
    {name: "unknown Expect", text: `${start}Expect: a-miracle\r\n${form}${follows}`},
];
const refusals = [400, 411, 413, 414, 417, 431, 501, 505];

async function chunkedNonsense(siege, until, row) {
    const cases = [...nonsense, {name: "Expect: 100-continue", run: expectContinue}];
    let next = 0; // every case comes once, whatever the time
    await lanes(4, () => siege.host.serving && (next < cases.length || siege.goesOn(until)), async () => {
        const one = next < cases.length ? cases[next++] : pick(siege.random, cases);
        row.sends("requests");
        await (one.run ?? sendNonsense)(siege, row, one);
    });
}

async function sendNonsense({host, random}, row, {name, text, endless}) {
    const line = new Line(host.port, source(Math.floor(random() * 1000)));
    const deadline = Date.now() + answerTime;
    await line.send(Buffer.from(text, "latin1"));
    while (endless && line.open && line.statuses.length === 0 && Date.now() < deadline) await line.send(endless, answerTime);
    const ended = await line.until((statuses) => statuses.length > 0, Math.max(1, deadline - Date.now()));
    if (!endless) await line.until((statuses) => statuses.length > 1, 300);
    const {statuses} = line;
    line.close();
    if (!host.serving) return;
    row.highest("most MiB taken before the answer", Math.round(line.sent / 1024 / 1024));
    row.answers(statuses[0] ?? (ended ? "closed" : "no answer"));
    if (!ended) row.fails(`${name}: neither an answer nor an end within ${answerTime / 1000} s`);
    if (statuses.length > 1) row.fails(`${name}: what followed was read as a request`);
    if (statuses.length > 0 && !refusals.includes(statuses[0])) row.fails(`${name}: answered with ${statuses[0]}`);
}

/** A body is asked for, then the request is answered: here a sign-in without a password. */
async function expectContinue({host}, row, {name}) {
    const line = new Line(host.port);
    await line.send(Buffer.from(`${start}Expect: 100-continue\r\nContent-Length: 5\r\n\r\n`));
    await line.until((statuses) => statuses.length > 0, answerTime);
    await line.send(Buffer.from("user="));
    await line.until((statuses) => statuses.length > 1, answerTime);
    const statuses = line.statuses.join(" then ");
    line.close();
    if (!host.serving) return;
    row.answers(statuses || "no answer");
    if (statuses !== "100 then 401") row.fails(`${name}: answered with ${statuses || "nothing"}`);
}

// ---- uploads without a session

const uploadsAtOnce = 1000;
const upload = 5 * 1024 * 1024;

async function anonymousUploads(siege, until, row) {
    await lanes(uploadsAtOnce, () => siege.goesOn(until), async (number) => {
        await sleep(siege.random() * 500);
        row.sends("uploads of 5 MB");
        await uploadAnonymously(siege, row, number);
    });
}

/** One of two sends its first block and then waits: it has to be answered without the rest. The other heeds no answer. */
async function uploadAnonymously({host}, row, number) {
    const line = new Line(host.port, source(number));
    await line.send(Buffer.from(`POST /upload?name=a.jpg HTTP/1.1\r\nHost: 127.0.0.1\r\nContent-Length: ${upload}\r\n\r\n`));
    const share = number % 2 === 0 ? block.length : upload;
    const deadline = Date.now() + answerTime;
    for (let sent = 0; sent < share && line.open && Date.now() < deadline; sent += block.length)
        await line.send(block, answerTime);
    const ended = await line.until((statuses) => statuses.length > 0, Math.max(1, deadline - Date.now()));
    const [status] = line.statuses;
    line.close();
    if (!host.serving) return;
    row.answers(status ?? (ended ? "closed" : "no answer"));
    if (!ended) row.fails(`an upload without a session was not refused within ${answerTime / 1000} s`);
    if (status && status !== 401) row.fails(`an upload without a session was answered with ${status}`);
}

// ---- a page that floods

const mebibyte = 1024 * 1024;
const longestFlood = 60000;
const longestTurn = 8000;
/** Long lines to work through, and long lines whose answers nobody reads. */
const floods = [frameOf(`{"set":"frmPatientsNewNur.txtHomeAddress","to":"${"x".repeat(mebibyte - 100)}"}`),
                frameOf(`{"get":"frmPatientsNewNur"}`.padEnd(mebibyte))];

async function flood(siege, until, row) {
    const [account] = siege.users("flood");
    const end = Math.min(until, Date.now() + longestFlood);
    for (let turn = 0; siege.goesOn(end); ++turn) {
        const {cookie} = await signIn(siege.host.port, account);
        if (!cookie) return row.fails("the flooding page could not sign in");
        const page = await Page.open(siege.host.port, cookie);
        await page.request({fire: "MdiVorel.mnuRegis"});
        page.socket.pause();
        const turnEnd = Math.min(end, Date.now() + longestTurn);
        await pour(page.socket, floods[turn % floods.length], () => siege.goesOn(turnEnd), row);
        if (page.socket.destroyed) row.answers("let go by the host");
        page.close();
        await ask(siege.host.port, "/sign-out", {method: "POST", cookie}).catch(() => {});
    }
}

async function pour(socket, frame, goesOn, row) {
    while (goesOn() && !socket.destroyed) {
        row.sends("lines of 1 MiB");
        // A line that waits past the host's bound is what ought to happen, so nobody insists here.
        if (!socket.write(frame)) await drained(socket, goesOn);
    }
}

async function drained(socket, goesOn) {
    while (socket.writableNeedDrain && !socket.destroyed && goesOn()) await sleep(20);
}

// ---- one account, many sessions

const mostSignIns = 1000;

async function manySessions(siege, until, row) {
    const third = (until - Date.now()) / 3; // the last one is for looking what was left
    await signInOften(siege, Date.now() + third, row, siege.users("away")[0], false);
    await signInOften(siege, Date.now() + third, row, siege.users("open")[0], true);
}

async function signInOften(siege, until, row, account, keepsPages) {
    const opened = [];
    let tries = 0;
    await lanes(8, () => siege.goesOn(until) && tries < mostSignIns, async () => {
        ++tries;
        row.sends(keepsPages ? "sign-ins with an open page" : "sign-ins without a page");
        try {
            const {cookie, status} = await signIn(siege.host.port, account);
            row.answers(cookie ? "signed in" : `refused ${status}`);
            if (!cookie) return void await sleep(100);
            opened.push({cookie, page: keepsPages ? await Page.open(siege.host.port, cookie) : null});
        } catch (error) {
            // A session that had to go for a newer one takes its page's line along.
            if (!(error instanceof LineLost) && siege.host.serving) row.answers(error.message);
        }
    });
    if (!siege.host.serving) return;
    const left = await stillStanding(siege.host.port, opened);
    row.highest("sessions left", left);
    if (left > sessionsOfUser) row.fails(`one account held ${left} sessions`);
    const [other] = siege.users("other");
    const {cookie} = await signIn(siege.host.port, other, {time: answerTime}).catch(() => ({}));
    if (!cookie) row.fails("somebody else could not sign in beside them");
    for (const {page} of opened) page?.close();
}

/** How many of the sessions their host still knows. */
async function stillStanding(port, opened) {
    await sleep(1500); // those that have to go end within a second
    const asked = opened.values();
    let standing = 0;
    await Promise.all(Array.from({length: 8}, async () => {
        for (const {cookie} of asked) if ((await ask(port, "/", {cookie})).status === 200) ++standing;
    }));
    return standing;
}

// ---- guesses

const guessEvery = 10000;
const madeUpNames = 30;
const wrongPasswords = 12;
const promptTime = 3000; // a nurse with her right password waits no longer

async function guesses(siege, until, row) {
    const {host} = siege;
    const [named, beside, fresh] = siege.users("guessed");
    const [desk, stranger, home] = [0, 1, 2].map((n) => `127.1.${siege.round}.${10 + n}`);
    const guess = (user, from) => {
        row.sends(user === named.user ? "wrong passwords" : "made-up names");
        return signIn(host.port, {user, password: "not-this-one"}, {from, time: until + 60000 - Date.now()}).then(
            ({cookie, status}) => cookie ? row.fails(`${user} got in with a wrong password`) : row.answers(status),
            () => row.answers("no answer"));
    };
    const getsIn = async (account, from, what) => {
        const begun = performance.now();
        const {cookie, status} = await signIn(host.port, account, {from}).catch((error) => ({status: error.message}));
        const took = performance.now() - begun;
        row.highest("longest right sign-in in ms", Math.round(took));
        if (!cookie) return row.fails(`${what} was refused with her right password (${status})`);
        if (took > promptTime) row.fails(`${what} waited ${Math.round(took / 1000)} s`);
        return ask(host.port, "/sign-out", {method: "POST", cookie});
    };

    await getsIn(beside, desk, "a nurse before any guess");
    await getsIn(named, home, "a nurse before any guess");
    const answers = [...Array(madeUpNames).keys()].map((n) => guess(`nobody${siege.round}x${n}`, desk));
    answers.push(...[...Array(wrongPasswords).keys()].map(() => guess(named.user, stranger)));
    await sleep(2000);
    for (let n = 0; siege.goesOn(until) || n === 0; ++n) {
        answers.push(guess(`nobody${siege.round}y${n}`, desk));
        await getsIn(beside, desk, "the nurse beside the guesser");
        await getsIn(fresh, desk, "a nurse who never failed, new beside the guesser");
        await getsIn(named, home, "the named nurse at the address where she had signed in");
        if (!host.serving) break;
        await sleep(Math.max(0, Math.min(guessEvery, until - Date.now())));
    }
    await Promise.race([Promise.all(answers), sleep(5000)]);
}

/** `share` is the part of a round's time. In `kills` the nurses are those that work until they are cut off. */
export const phases = [
    {name: "kills", share: 0.4, run: kills, killing: true},
    {name: "slow requests", share: 0.15, run: slowRequests},
    {name: "chunked nonsense", share: 0.1, run: chunkedNonsense},
    {name: "anonymous uploads", share: 0.1, run: anonymousUploads},
    {name: "a page that floods", share: 0.1, run: flood},
    {name: "many sessions", share: 0.08, run: manySessions},
    {name: "guesses", share: 0.07, run: guesses},
];
