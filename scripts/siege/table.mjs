// What each phase showed, and the table of it.

const mostFaults = 20;

const add = (map, what, count = 1) => map.set(String(what), (map.get(String(what)) ?? 0) + count);

/** One phase over all rounds; also the journal of the nurse who works meanwhile. */
export class Row {
    constructor(name) {
        this.name = name;
        this.sent = new Map();
        this.answered = new Map();
        this.peaks = new Map();
        this.waits = []; // milliseconds of each request of a nurse
        this.refused = new Map();
        this.faults = new Map();
        this.fresh = null; // the first fault since the last round
    }

    sends(what, count = 1) {
        add(this.sent, what, count);
    }

    answers(what, count = 1) {
        add(this.answered, what, count);
    }

    /** Keeps the highest of a number. */
    highest(what, number) {
        this.peaks.set(what, Math.max(number, this.peaks.get(what) ?? 0));
    }

    refuse(text) {
        add(this.refused, text);
    }

    fails(text) {
        add(this.faults, text);
        this.fresh ??= text;
    }

    /** MiB: before the first round, the highest of all, after the last. */
    memory(before, peak, after) {
        this.before ??= before;
        this.peak = Math.max(peak, this.peak ?? 0);
        this.after = after;
    }

    get longestWait() {
        return this.waits.reduce((longest, wait) => Math.max(longest, wait), 0);
    }

    get medianWait() {
        return [...this.waits].sort((a, b) => a - b)[Math.floor(this.waits.length / 2)];
    }
}

const list = (map) => [...map].map(([what, count]) => `${count} ${what}`).join(", ");
const peaks = (map) => [...map].map(([what, number]) => `${what}: ${number}`).join(", ");

function cells(row) {
    const nurse = row.waits.length === 0 ? "-"
        : `${row.waits.length} requests, ${row.medianWait.toFixed(1)} / ${Math.round(row.longestWait)} ms`;
    return [row.name, [row.before, row.peak, row.after].map((number) => number ?? "-").join(" / "), nurse, list(row.sent),
            [list(row.answered), peaks(row.peaks)].filter(Boolean).join("; ")];
}

/** One line a phase, then what did not hold. */
export function printTable(rows) {
    const lines = [["phase", "host's MiB before / peak / after", "nurses: median / longest", "sent", "answered"], ...rows.map(cells)];
    const widths = lines[0].map((_, column) => Math.max(...lines.map((line) => line[column].length)));
    for (const line of lines) console.log(line.map((cell, column) => cell.padEnd(widths[column])).join("  ").trimEnd());
    for (const {name, refused} of rows)
        for (const [text, count] of [...refused].slice(0, mostFaults)) console.log(`${name}: a nurse was refused ${count} times: ${text}`);
    const faults = rows.flatMap(({name, faults: found}) => [...found].slice(0, mostFaults).map(([text, count]) => [name, text, count]));
    for (const [name, text, count] of faults) console.log(`DID NOT HOLD: ${name}: ${text}${count > 1 ? ` (${count} times)` : ""}`);
    console.log(faults.length === 0 ? "Everything held." : `${faults.length} things did not hold.`);
}
