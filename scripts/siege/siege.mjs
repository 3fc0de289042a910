#!/usr/bin/env node
// Besieges a host of its own: node scripts/siege/siege.mjs --help

import {randomBytes} from "node:crypto";
import {existsSync} from "node:fs";
import path from "node:path";
import {monitorEventLoopDelay} from "node:perf_hooks";
import {setTimeout as sleep} from "node:timers/promises";
import {fileURLToPath} from "node:url";
import {parseArgs} from "node:util";

import {Books} from "./books.mjs";
import {Host} from "./host.mjs";
import {Nurse, workOn} from "./nurse.mjs";
import {checkDatabases, phases, settleBooks} from "./phases.mjs";
import {Row, printTable} from "./table.mjs";

const help = `usage: scripts/siege/siege.mjs [options]

Makes a demonstration hospital in a temporary directory, starts a host on it, and does to that host what a hostile
network and a bad day would: kills, slow and malformed requests, floods, uploads and sign-ins without end. A nurse works
beside it all the while. It ends with a table; the exit status is 1 where something did not hold.

It speaks to this machine's loopback alone, and to the host that it started itself.

  --vorel FILE    the program (build/vorel)
  --minutes N     how long, 1 to 720, in rounds of about ten minutes (60)
  --only NAMES    of the phases only these, as "kills,guesses"
  --seed N        another number takes other moments (1)
  --memory MIB    a host that takes more is ended and has not held (4096)
  --keep          keep the temporary directory
  --help          this text

phases: ${phases.map(({name}) => name).join(", ")}
`;

const roundMinutes = 10;
const mostGrowth = 256; // MiB that a host may take beyond what it held before
const longestWait = 10000; // milliseconds that no request of a nurse may take
const settleTime = 5000;

class UsageError extends Error {}

function readOptions() {
    const root = fileURLToPath(new URL("../../", import.meta.url));
    let values;
    try {
        ({values} = parseArgs({options: {
            vorel: {type: "string", default: path.join(root, "build/vorel")},
            minutes: {type: "string", default: "60"},
            only: {type: "string"},
            seed: {type: "string", default: "1"},
            memory: {type: "string", default: "4096"},
            keep: {type: "boolean", default: false},
            help: {type: "boolean", default: false},
        }}));
    } catch (error) {
        throw new UsageError(error.message);
    }
    const number = (name, lowest, highest) => {
        const value = Number(values[name]);
        if (!(value >= lowest && value <= highest)) throw new UsageError(`--${name} takes a number from ${lowest} to ${highest}`);
        return value;
    };
    const names = values.only?.split(",").map((name) => name.trim());
    const unknown = names?.find((name) => !phases.some((phase) => phase.name === name));
    if (unknown !== undefined) throw new UsageError(`there is no phase "${unknown}"`);
    if (!existsSync(values.vorel)) throw new UsageError(`${values.vorel}: no such program; build it first`);
    return {...values, program: path.resolve(values.vorel), minutes: number("minutes", 1, 720), seed: number("seed", 0, 2 ** 31),
            memory: number("memory", 64, 1024 * 1024), phases: names ? phases.filter(({name}) => names.includes(name)) : phases};
}

/** Numbers from 0 to 1 that a seed repeats. */
function seeded(seed) {
    let state = seed >>> 0;
    return () => {
        state = (state + 0x6D2B79F5) >>> 0;
        let mixed = Math.imul(state ^ (state >>> 15), state | 1);
        mixed ^= mixed + Math.imul(mixed ^ (mixed >>> 7), mixed | 61);
        return ((mixed ^ (mixed >>> 14)) >>> 0) / 2 ** 32;
    };
}

/** The accounts by what they do: who works in the ward until cut off, who works beside, and whom the siege misuses. */
function makeAccounts() {
    const counts = {ward: 4, beside: 1, flood: 1, away: 1, open: 1, other: 1, guessed: 3};
    const account = (task, number) => ({task, user: `${task}${number + 1}`, password: `Pw-${randomBytes(9).toString("hex")}`});
    return Object.entries(counts).flatMap(([task, count]) => Array.from({length: count}, (_, number) => account(task, number)));
}

class Siege {
    constructor(options) {
        this.options = options;
        this.accounts = makeAccounts();
        this.saves = new Map();
        this.random = seeded(options.seed);
        this.host = new Host({program: options.program, memoryLimit: options.memory, connectionsMost: 2000});
        this.books = new Books(this.host);
        this.rows = [...options.phases.map(({name}) => name), "at the end"].map((name) => new Row(name));
        // They number their patients through all rounds: a name that came twice would be another patient's.
        const hurries = () => this.random() < 0.05 ? this.random() * 300 : 0;
        this.ward = this.users("ward").map((account) => new Nurse(account, this.saves, hurries));
        this.nurse = new Nurse(this.users("beside")[0], this.saves, () => 50 + this.random() * 200);
    }

    users(task) {
        return this.accounts.filter((account) => account.task === task);
    }

    /** Whether a phase goes on: its time is not over, and there is a host to besiege. */
    goesOn(until) {
        return Date.now() < until && this.host.serving;
    }

    async run() {
        const {minutes, phases: chosen} = this.options;
        await this.host.prepare(this.accounts);
        await this.host.start();
        await this.books.open();
        const rounds = Math.max(1, Math.round(minutes / roundMinutes));
        const whole = chosen.reduce((sum, {share}) => sum + share, 0);
        for (this.round = 1; this.round <= rounds; ++this.round) {
            for (const [number, phase] of chosen.entries()) {
                const seconds = minutes * 60 / rounds * phase.share / whole;
                say(`round ${this.round} of ${rounds}: ${phase.name}, ${Math.round(seconds)} s`);
                await this.#phase(phase, this.rows[number], seconds);
            }
        }
        await this.#end();
    }

    async #phase(phase, row, seconds) {
        const {host} = this;
        host.resetPeak();
        const before = host.resident;
        const own = monitorEventLoopDelay(); // what the nurse waits for this process is not the host's
        own.enable();
        const nurseLeaves = phase.killing ? async () => {} : workOn(this.nurse, host, row);
        try {
            await phase.run(this, Date.now() + seconds * 1000, row);
        } catch (error) {
            if (host.serving || phase.killing) row.fails(error.message);
        }
        if (host.serving) await sleep(settleTime);
        await nurseLeaves();
        row.highest("the siege's own delay in ms", Math.round(own.max / 1e6));
        row.memory(before, host.peak, host.resident);
        if (host.peak - before > mostGrowth) row.fails(`the host took ${host.peak - before} MiB more`);
        if (row.longestWait > longestWait) row.fails(`a nurse waited ${Math.round(row.longestWait / 1000)} s`);
        if (row.refused.size > 0) row.fails("a nurse was refused");
        if (host.fell) row.fails(host.fell);
        // What did not hold in one phase is no fault of the next.
        if (row.fresh) {
            say(`  did not hold: ${row.fresh}`);
            await host.kill();
            await host.start();
            row.fresh = null;
        }
    }

    /** All rows once more from the beginning, and an ordinary stop. */
    async #end() {
        const row = this.rows.at(-1);
        row.memory(this.host.resident, this.host.peak, this.host.resident);
        await settleBooks(this, row, {all: true});
        await checkDatabases(this, row);
        await this.host.stop();
    }
}

const say = (text) => process.stderr.write(`${text}\n`);

async function main() {
    const options = readOptions();
    if (options.help) return void process.stdout.write(help);
    const siege = new Siege(options);
    process.on("exit", () => siege.host.remove(options.keep));
    for (const signal of ["SIGINT", "SIGTERM", "SIGHUP"]) process.on(signal, () => process.exit(130));
    say(`the hospital is in ${siege.host.data}, the host's log in host.log there${options.keep ? "" : "; both go at the end"}`);
    await siege.run().catch((error) => siege.rows.at(-1).fails(error.message));
    printTable(siege.rows);
    process.exit(siege.rows.some(({faults}) => faults.size > 0) ? 1 : 0);
}

main().catch((error) => {
    say(error instanceof UsageError ? `${error.message}; see --help` : error.stack);
    process.exit(error instanceof UsageError ? 2 : 1);
});
