// Compares what nurses were told with the rows of the database.

/** The highest number of each table that a save writes to, where numbers only grow. */
const marks = {patient: ["hPatients", "PNo"], visit: ["hRecords", "recID"], line: ["billAccum", "SNO"],
               reading: ["hPreConsult", "ID"], step: ["hPatientsTimeline", "SNo"], audit: ["hAuditTrail", "SNO"]};

const fees = {registration: ["ATTENDANCE", "REGISTRATION"], readings: ["NURSING FEE"]};

export class Books {
    constructor(host) {
        this.host = host;
        this.found = new Set(); // what earlier comparisons have seen stored
        this.cut = 0; // how many saves earlier comparisons have seen cut off
    }

    /** The rows before this moment are not the siege's. */
    async open() {
        this.first = this.since = await this.#marks();
    }

    /**
     * Compares the rows since the last comparison, or since the beginning, with `saves` (see Nurse). While it reads,
     * nobody saves. How many saves are stored, how many of them had been confirmed or were cut off before, how
     * many are without an audit row, and what does not hold.
     */
    async compare(saves, {all = false} = {}) {
        const from = all ? this.first : this.since;
        const rows = await this.#rows(from);
        this.since = await this.#marks();
        const stored = [...registrations(rows), ...vitals(rows)];
        const keys = stored.map(({key}) => key);
        const faults = [...leftOver(rows, stored)];
        for (const {key, lacks} of stored) if (lacks.length > 0) faults.push(`${key} is stored in part: without ${lacks.join(", ")}`);
        for (const key of keys) if (!saves.has(key)) faults.push(`${key} is stored, and nobody saved it`);
        const twice = keys.length - new Set(keys).size;
        if (twice > 0) faults.push(`${twice} saves are stored twice`);
        if (all) this.found.clear();
        for (const key of keys) this.found.add(key);
        const lost = [...saves].filter(([key, state]) => state === "confirmed" && !this.found.has(key)).map(([key]) => key);
        for (const key of lost) faults.push(`${key} was confirmed and is lost`);
        const cut = [...saves.values()].filter((state) => state === "sent").length;
        const cutNow = cut - (all ? 0 : this.cut);
        this.cut = cut;
        const inState = (state) => stored.filter(({key}) => saves.get(key) === state);
        const without = (list) => list.filter((row) => !row.audited).length;
        return {stored: stored.length, confirmed: inState("confirmed").length, cut: cutNow, unconfirmed: inState("sent").length, lost: lost.length,
                unaudited: without(inState("confirmed")), unauditedUnconfirmed: without(inState("sent")), faults};
    }

    async #marks() {
        const statements = Object.values(marks).map(([table, column]) => `select max(${column}) as highest from ${table}`);
        const rows = await this.host.rows(statements);
        return Object.fromEntries(Object.keys(marks).map((name, at) => [name, rows[at][0].highest ?? 0]));
    }

    async #rows(from) {
        const statements = {
            patients: `select PNo, psurname, LastConsultID from hPatients where PNo > '${from.patient}'`,
            clinics: `select PNo from hPatientClinics where PNo > '${from.patient}'`,
            visits: `select PNo, consultID from hRecords where recID > ${from.visit}`,
            lines: `select consultID, drgName from billAccum where SNO > ${from.line}`,
            readings: `select v.ID, v.consultID, r.attendedto, r.DocAssigned from hPreConsult v
                       left join hRecords r on r.consultID = v.consultID where v.ID > ${from.reading}`,
            twins: `select ID, consultID from hPreConsultChart where ID > ${from.reading}`,
            steps: `select consultID, ServicePoint from hPatientsTimeline where SNo > ${from.step}`,
            audits: `select TranCode, userAction from hAuditTrail where SNO > ${from.audit}`,
        };
        const rows = await this.host.rows(Object.values(statements).map((text) => text.replace(/\s+/g, " ")));
        return Object.fromEntries(Object.keys(statements).map((name, at) => [name, rows[at]]));
    }
}

/** How many rows have the same values in the columns. */
function counted(rows, ...columns) {
    const counts = new Map();
    for (const row of rows) {
        const key = columns.map((column) => row[column]).join("|");
        counts.set(key, (counts.get(key) ?? 0) + 1);
    }
    return (...values) => counts.get(values.join("|")) ?? 0;
}

/** Audit rows by their record and the first two words of what was done. */
function audited(rows) {
    const counts = counted(rows.audits.map((row) => ({...row, act: row.userAction.split(" ").slice(0, 2).join(" ")})), "TranCode", "act");
    return (code, act) => counts(code, act) > 0;
}

const missing = (needed) => Object.entries(needed).filter(([, there]) => !there).map(([name]) => name);

function registrations(rows) {
    const visitOf = new Map(rows.visits.map(({PNo, consultID}) => [PNo, consultID]));
    const clinics = counted(rows.clinics, "PNo");
    const lines = counted(rows.lines, "consultID", "drgName");
    const audit = audited(rows);
    return rows.patients.map(({PNo, psurname, LastConsultID}) => {
        const visit = visitOf.get(PNo);
        return {key: psurname, fees: fees.registration,
                audited: audit(PNo, "Insert Reg") && audit(visit, "Insert Attnd") && audit(visit, "Reg Fee"),
                lacks: missing({"its visit": visit !== undefined && LastConsultID === visit, "its clinic": clinics(PNo) === 1,
                                "its fees": fees.registration.every((name) => lines(visit, name) === 1)})};
    });
}

function vitals(rows) {
    const twins = counted(rows.twins, "ID", "consultID");
    const lines = counted(rows.lines, "consultID", "drgName");
    const steps = counted(rows.steps, "consultID", "ServicePoint");
    const audit = audited(rows);
    return rows.readings.map(({ID, consultID, attendedto, DocAssigned}) => (
        {key: consultID, fees: fees.readings, audited: audit(consultID, "Insert Vitals"),
         lacks: missing({"its twin": twins(ID, consultID) === 1, "its fee": lines(consultID, "NURSING FEE") === 1,
                         "its step": steps(consultID, "VITALS") === 1, "its place on the doctor's list": attendedto === 1 && DocAssigned})}));
}

/** Rows that belong to no save: parts of one that was never whole. */
function* leftOver(rows, stored) {
    const expected = {clinics: rows.patients.length, visits: rows.patients.length, twins: rows.readings.length, steps: rows.readings.length,
                      lines: stored.reduce((sum, save) => sum + save.fees.length, 0)};
    for (const [name, count] of Object.entries(expected))
        if (rows[name].length !== count) yield `${rows[name].length} ${name} where ${count} belong to saves`;
}
