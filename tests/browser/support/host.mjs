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

function makeHospital(data) {
    execFileSync(program, ["database", "create", "--data", data]);
    execFileSync(program, ["database", "demo", "--data", data]);
    execFileSync(program, ["user", "add", nurse.user, "--data", data, "--password", nurse.password, "--role", "NURSING",
                           "--full-name", "Ada Obi"]);
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

/** Passes bytes on, until it is cut. */
async function startProxy(port) {
    const lines = new Set();
    let open = true;
    const server = net.createServer((client) => {
        if (!open) return client.destroy();
        const host = net.connect(port, "127.0.0.1");
        for (const socket of [client, host]) {
            lines.add(socket);
            socket.on("error", () => socket.destroy());
            socket.on("close", () => lines.delete(socket));
        }
        client.pipe(host).pipe(client);
        client.on("close", () => host.destroy());
        host.on("close", () => client.destroy());
        return undefined;
    });
    server.listen(0, "127.0.0.1");
    await once(server, "listening");
    return {
        port: server.address().port,
        cut() {
            open = false;
            for (const socket of lines) socket.destroy();
        },
        mend() {
            open = true;
        },
        close() {
            this.cut();
            server.close();
        },
    };
}

/** `environment` adds to the program's own: settings of the host. */
export async function startHost(environment = {}) {
    const data = mkdtempSync(path.join(tmpdir(), "vorel-browser-"));
    makeHospital(data);
    const child = spawn(program, ["serve", "--data", data, "--port", "0", "--samples"], {cwd: root, env: {...process.env, ...environment}, stdio: ["ignore", "pipe", "ignore"]});
    const proxy = await startProxy(await addressOf(child));
    child.stdout.resume();
    return {
        url: `http://127.0.0.1:${proxy.port}`,
        proxy,
        async stop() {
            proxy.close();
            const gone = once(child, "exit");
            child.kill("SIGTERM");
            await gone;
            rmSync(data, {recursive: true, force: true});
        },
    };
}
