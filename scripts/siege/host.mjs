// The host under siege: the program on a demonstration hospital of its own, on this machine's loopback alone.

import {execFile, spawn} from "node:child_process";
import {once} from "node:events";
import {closeSync, mkdtempSync, openSync, readFileSync, rmSync, writeFileSync} from "node:fs";
import {tmpdir} from "node:os";
import path from "node:path";
import {promisify} from "node:util";

const run = promisify(execFile);
const commandTime = 600000;
const startTime = 30000;
const stopTime = 15000;
const sampleEvery = 100;
const mebibyte = 1024 * 1024;

export class Host {
    /** `program` is the built vorel; a host that takes more than `memoryLimit` MiB is ended and counts as fallen. */
    constructor({program, memoryLimit, connectionsMost}) {
        this.program = program;
        this.memoryLimit = memoryLimit;
        this.connectionsMost = connectionsMost;
        this.data = mkdtempSync(path.join(tmpdir(), "vorel-siege-"));
        this.log = path.join(this.data, "host.log");
        this.peak = 0;
        this.fell = null; // why the host ended although nobody had told it to
    }

    /** No setting of the operator's own host reaches this one: it could name his databases or his address. */
    get environment() {
        const plain = Object.entries(process.env).filter(([name]) => !name.startsWith("VOREL_"));
        return {...Object.fromEntries(plain), VOREL_REGISTRATION_DESK_IN_MENU: "true",
                VOREL_CONNECTIONS_MOST: String(this.connectionsMost)};
    }

    /** Runs the program to its end: what it said. Throws where it failed. */
    async command(...words) {
        const {stdout} = await run(...this.#child(...words, "--data", this.data), {env: this.environment, timeout: commandTime});
        return stdout;
    }

    async prepare(users) {
        await this.command("database", "create");
        await this.command("database", "demo", "--patients", "300");
        for (const [number, {user, password}] of users.entries())
            await this.command("user", "add", user, "--password", password, "--role", "NURSING", "--full-name", user,
                               "--emp-id", `S${number}`);
    }

    /** The rows that each of the T-SQL statements reads. */
    async rows(statements) {
        const options = {env: this.environment, timeout: commandTime, stdio: ["pipe", "pipe", "ignore"]};
        const drive = spawn(...this.#child("drive", "--data", this.data), options);
        let output = "";
        drive.stdout.setEncoding("utf8").on("data", (piece) => (output += piece));
        drive.stdin.end(statements.map((query) => JSON.stringify({query, on: "Hospital"})).join("\n"));
        await once(drive, "close");
        const replies = output.trim().split("\n").map((line) => JSON.parse(line));
        return statements.map((statement, number) => {
            if (!replies[number]?.rows) throw new Error(`${statement}: ${JSON.stringify(replies[number])}`);
            return replies[number].rows;
        });
    }

    /** Whether it runs and has not been told to end. */
    get serving() {
        return this.alive && !this.child.told;
    }

    get alive() {
        return this.child?.exitCode === null && this.child.signalCode === null;
    }

    async start() {
        const log = openSync(this.log, "a");
        this.fell = null;
        this.child = spawn(...this.#child("serve", "--data", this.data, "--address", "127.0.0.1", "--port", "0"),
                           {env: this.environment, stdio: ["ignore", "pipe", log]});
        closeSync(log);
        const child = this.child;
        child.once("exit", (code, signal) => {
            clearInterval(this.watch);
            if (!child.told) this.fell ??= `the host ended by itself (${signal ?? `status ${code}`})`;
        });
        this.port = await portOf(child);
        this.watch = setInterval(() => this.#sample(), sampleEvery);
    }

    /** As a power cut would. */
    async kill() {
        await this.#end("SIGKILL");
    }

    /** As an operator would. Throws where it did not end as it should. */
    async stop() {
        const patience = setTimeout(() => this.child.kill("SIGKILL"), stopTime);
        await this.#end("SIGTERM");
        clearTimeout(patience);
        const {exitCode, signalCode} = this.child;
        if (exitCode !== 0) throw new Error(`the host was told to stop and ended with ${signalCode ?? `status ${exitCode}`}`);
    }

    /** What the host holds at the moment, in MiB. */
    get resident() {
        return this.#memory("VmRSS");
    }

    /** From here on `peak` is the highest since now. */
    resetPeak() {
        this.peak = 0;
        if (this.alive) writeFileSync(`/proc/${this.child.pid}/clear_refs`, "5");
    }

    /** Leaves nothing behind; also for the last moments of this process, which wait for nobody. */
    remove(keep) {
        if (this.alive) this.child.kill("SIGKILL");
        if (!keep) rmSync(this.data, {recursive: true, force: true});
    }

    async #end(signal) {
        if (!this.alive) return;
        this.#sample();
        this.child.told = true;
        const gone = once(this.child, "exit");
        this.child.kill(signal);
        await gone;
    }

    /** The program as a child that goes when this process goes, however that ends. */
    #child(...words) {
        return ["setpriv", ["--pdeathsig", "KILL", this.program, ...words]];
    }

    #sample() {
        this.peak = Math.max(this.peak, this.#memory("VmHWM"));
        if (this.resident <= this.memoryLimit || !this.alive) return;
        this.fell = `the host's memory passed ${this.memoryLimit} MiB`;
        this.child.kill("SIGKILL");
    }

    #memory(key) {
        if (!this.alive) return 0;
        try {
            const status = readFileSync(`/proc/${this.child.pid}/status`, "latin1");
            return Math.round(Number(new RegExp(`${key}:\\s+(\\d+)`).exec(status)?.[1] ?? 0) * 1024 / mebibyte);
        } catch {
            return 0; // it has just ended
        }
    }
}

/** Waits for the line that says where the host is. */
async function portOf(child) {
    let output = "";
    const patience = setTimeout(() => child.kill("SIGKILL"), startTime);
    for await (const piece of child.stdout) {
        output += piece;
        const found = /http:\/\/127\.0\.0\.1:(\d+)/.exec(output);
        if (!found) continue;
        clearTimeout(patience);
        return Number(found[1]);
    }
    throw new Error(`the host did not start: ${output}`);
}
