// A nurse of the demonstration hospital: registers patients with their first visit and takes their vital signs.

import {setTimeout as sleep} from "node:timers/promises";

import {LineLost, Page, ask, signIn} from "./line.mjs";

const desk = "frmPatientsNewNur";
const station = "frmPreConsult";
const savedText = "Record Succesfully saved";

/** A private patient who comes for the first time, beside the name. The clinic comes after the age group, which clears it. */
const patient = {cboPat: "(PRIVATE) [0001]", cboNew: "NEW", cboTitle: "MRS", txtfirstNAme: "ADA NGOZI", txtSex: "FEMALE",
                 cboCard: "SINGLE", cboMat: "ADULT", cboArea: "IKEJA", txtPhone: "08031234567", txtKin: "TUNDE",
                 txtNOKPhone: "08021234567", dtDate: "1990-05-01", dtExpDate: "2099-12-31", cboClin: "(GENERAL)",
                 cboPurpose: "(CONSULTATION)"};

const readings = {CboRef: {row: 1}, txtTemp: "36.8", txtPressure: "120", txtPressure2: "80", txtPause: "72", txtResp: "18",
                  txtHt: "1.68", txtWt: "64.5", txtSPO2: "98"};

export class Nurse {
    /**
     * `saves` keeps what she saved: by surname or number of the visit, "sent" until its box came, then "confirmed".
     * `journal` hears how long each request took and what was refused. `thinks` gives the milliseconds before the next step.
     */
    constructor(account, saves, thinks) {
        this.account = account;
        this.saves = saves;
        this.thinks = thinks;
        this.patients = 0;
    }

    /** Signs in, loads the page with its files and opens its line. */
    async arrive(port, journal) {
        this.port = port;
        this.journal = journal;
        const {cookie, status} = await this.#timed(() => signIn(port, this.account));
        if (!cookie) throw new Error(`signing in was answered with ${status}`);
        this.cookie = cookie;
        const {body} = await this.#load("/");
        for (const [, file] of body.matchAll(/(?:src|href)="(\/static\/[^"]+)"/g)) await this.#load(file);
        this.page = await this.#timed(() => Page.open(port, cookie));
        if (this.page.snapshot.waiting) await this.#acknowledge(this.page.snapshot);
        for (const entry of ["mnuRegis", "mnuVitSigns"]) await this.#tell({fire: `MdiVorel.${entry}`});
    }

    async leave() {
        this.page?.close();
        if (this.cookie) await ask(this.port, "/sign-out", {method: "POST", cookie: this.cookie}).catch(() => {});
        this.page = this.cookie = null;
    }

    async register() {
        const surname = `${this.#mark()}${++this.patients}`;
        await this.#tell({fire: `${desk}.cmdAdd`});
        await this.#fill(desk, {...patient, txtsurNAme: surname});
        await this.#save(desk, surname);
    }

    /** The vital signs of the first of her own patients who wait. */
    async chart() {
        await this.#tell({fire: `${station}.cmdAdd`});
        const {state} = await this.#tell({get: `${station}.cboVehNo`});
        const row = state.items.findIndex(({text}) => text.startsWith(this.#mark()));
        if (row < 0) return void await this.#tell({fire: `${station}.cmdCancel`});
        await this.#fill(station, {cboVehNo: {row}, ...readings});
        await this.#save(station, /\[(\d+)\]$/.exec(state.items[row].text)[1]);
    }

    #mark() {
        return `SIEGE ${this.account.user.toUpperCase()} `;
    }

    async #fill(screen, content) {
        for (const [control, to] of Object.entries(content)) await this.#tell({set: `${screen}.${control}`, to});
    }

    async #save(screen, key) {
        this.page.said = [];
        let reply = await this.#tell({fire: `${screen}.OKButton`});
        if (reply.waiting?.kind !== "yesno") throw new Error(`a save was not begun: ${this.page.said.join("; ")}`);
        this.saves.set(key, "sent");
        reply = await this.#tell({answer: "yes"});
        if (this.page.said.includes(savedText)) this.saves.set(key, "confirmed");
        await this.#acknowledge(reply);
        if (this.saves.get(key) !== "confirmed") throw new Error(`a save failed: ${this.page.said.join("; ")}`);
    }

    async #acknowledge(first) {
        let reply = first;
        while (reply.waiting) reply = await this.#tell({answer: reply.waiting.kind === "message" ? "ok" : "no"});
    }

    async #tell(request) {
        await sleep(this.thinks());
        const reply = await this.#timed(() => this.page.request(request));
        const error = reply.events.find((event) => event.error);
        if (error) throw new Error(`${JSON.stringify(request)}: ${error.error}`);
        return reply;
    }

    async #load(path) {
        const answer = await this.#timed(() => ask(this.port, path, {cookie: this.cookie}));
        if (answer.status !== 200) throw new Error(`${path} was answered with ${answer.status}`);
        return answer;
    }

    async #timed(work) {
        const start = performance.now();
        try {
            return await work();
        } finally {
            this.journal.waits.push(performance.now() - start);
        }
    }
}

/** Works at a human pace until told to stop. Whatever keeps her from it stands in the journal. */
export function workOn(nurse, host, journal) {
    let over = false;
    const step = async (work) => over || await work();
    const shift = async () => {
        try {
            await nurse.arrive(host.port, journal);
            for (let patients = 0; patients < 2; ++patients) {
                await step(() => nurse.register());
                await step(() => nurse.chart());
            }
        } catch (error) {
            journal.refuse(error.message);
            await sleep(1000);
        } finally {
            await nurse.leave();
        }
    };
    const done = (async () => {
        while (!over && host.serving) await shift();
    })();
    return async () => {
        over = true;
        await done;
    };
}

/** Works as fast as she can until the host is killed. */
export async function workUntilKilled(nurse, host, journal) {
    while (host.serving) {
        try {
            await nurse.arrive(host.port, journal);
            for (;;) {
                await nurse.register();
                await nurse.chart();
            }
        } catch (error) {
            if (host.serving && !(error instanceof LineLost)) journal.refuse(error.message);
            await sleep(10);
        }
    }
}
