// The built program on a data directory of its own, behind a proxy that can cut the line.

import {execFileSync, spawn} from "node:child_process";
import {once} from "node:events";
import {mkdtempSync, rmSync} from "node:fs";
import net from "node:net";
import {tmpdir} from "node:os";
import path from "node:path";
import {fileURLToPath} from "node:url";

const root = fileURLToPath(new URL("../../../", import.meta.url));
const program = path.resolve(root, process.env.VOREL_PROGRAM ?? "build/vorel");

export const nurse = {user: "nurse", password: "Plain7words"};
export const colleague = {user: "colleague", password: "Other8words"};

function makeHospital(data) {
    execFileSync(program, ["database", "create", "--data", data]);
    execFileSync(program, ["database", "demo", "--data", data]);
    for (const [{user, password}, name] of [[nurse, "Ada Obi"], [colleague, "Ngozi Eze"]])
        execFileSync(program, ["user", "add", user, "--data", data, "--password", password, "--role", "NURSING",
                               "--full-name", name]);
}

/** A script's requests on the data, beside the host that runs. @returns the replies */
function drive(data, ...requests) {
    const input = requests.map((request) => `${JSON.stringify(request)}\n`).join("");
    return execFileSync(program, ["drive", "--data", data, "--user", nurse.user], {input}).toString().trim().split("\n").map((line) => JSON.parse(line));
}

/** Keeps everybody else from writing to the hospital's database, until it is let go. */
async function holdWrites(data) {
    const holder = spawn("sqlite3", [path.join(data, "Hospital.db")], {stdio: ["pipe", "pipe", "inherit"]});
    holder.stdin.write("begin immediate;\nselect 'held';\n");
    await once(holder.stdout, "data");
    return async () => {
        holder.stdin.end("commit;\n");
        await once(holder, "exit");
    };
}

/** Waits for the line that says where the host is. */
async function addressOf(child) {
    let output = "";
    for await (const chunk of child.stdout) {
        output += chunk;
        const found = /http:\/\/[\d.]+:(\d+)/.exec(output);
        if (found) return Number(found[1]);
    }
    throw new Error(`the host did not start: ${output}`);
}

/** Passes bytes on, until it is cut; what either side says can get lost on the way while the line stands. */
async function startProxy(port) {
    const lines = new Set();
    let open = true;
    let lost = "";
    let told = 0;
    const server = net.createServer((client) => {
        if (!open) return client.destroy();
        const host = net.connect(proxy.hostPort, "127.0.0.1");
        for (const socket of [client, host]) {
            lines.add(socket);
            socket.on("error", () => socket.destroy());
            socket.on("close", () => lines.delete(socket));
        }
        client.on("data", (bytes) => lost === "pages" || host.write(bytes));
        host.on("data", (bytes) => {
            told += bytes.length;
            return lost === "host" || client.write(bytes);
        });
        client.on("close", () => host.destroy());
        host.on("close", () => client.destroy());
        return undefined;
    });
    server.listen(0, "127.0.0.1");
    await once(server, "listening");
    const proxy = {
        port: server.address().port,
        hostPort: port,
        /** The bytes that the pages were sent so far, with all that HTTP and the WebSocket add. */
        get told() {
            return told;
        },
        /** From now on nothing arrives of what the "host" or the "pages" say. */
        lose(side) {
            lost = side;
        },
        cut() {
            open = false;
            for (const socket of lines) socket.destroy();
        },
        mend() {
            open = true;
            lost = "";
        },
        close() {
            this.cut();
            server.close();
        },
    };
    return proxy;
}

/** `environment` adds to the program's own: settings of the host. `options` are those of its command. */
export async function startHost(environment = {}, options = ["--samples"]) {
    const data = mkdtempSync(path.join(tmpdir(), "vorel-browser-"));
    makeHospital(data);
    const serve = () => spawn(program, ["serve", "--data", data, "--port", "0", ...options],
                              {cwd: root, env: {...process.env, ...environment}, stdio: ["ignore", "pipe", "ignore"]});
    let child = serve();
    const proxy = await startProxy(await addressOf(child));
    const end = async (signal) => {
        const gone = once(child, "exit");
        child.kill(signal);
        await gone;
    };
    child.stdout.resume();
    return {
        url: `http://127.0.0.1:${proxy.port}`,
        proxy,
        /** The host falls, with all that it had not stored. */
        kill: () => end("SIGKILL"),
        /** Starts the host anew on the same data, at the same address for its pages. */
        async restart() {
            child = serve();
            proxy.hostPort = await addressOf(child);
            child.stdout.resume();
            proxy.mend();
        },
        data,
        drive: (...requests) => drive(data, ...requests),
        query: (query, on = "Hospital") => drive(data, {query, on})[0].rows,
        holdWrites: () => holdWrites(data),
        execute: (execute) => drive(data, {execute, on: "Hospital"}),
        async stop() {
            proxy.close();
            await end("SIGTERM");
            rmSync(data, {recursive: true, force: true});
        },
    };
}
