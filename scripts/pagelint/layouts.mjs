// Checks the layout files: each has the keys of the schema alone, places no control twice, and is like a layout that is
// there; docs/screens.md describes the schema's keys, all of them and no others.

import {readFileSync} from "node:fs";

import Ajv from "ajv";

import {layoutNames, pathOf, placed, readLayout} from "./layoutfiles.mjs";

const schema = JSON.parse(readFileSync(new URL("layout.schema.json", import.meta.url), "utf8"));
const fits = new Ajv({allErrors: true, verbose: true, strictRequired: false}).compile(schema);

function faultsOf(name) {
    try {
        const layout = readLayout(name);
        if (!fits(layout)) return fits.errors.filter(({keyword}) => keyword !== "if").map(inWords);
        return [...twice(layout), ...likeNone(layout)];
    } catch (error) {
        return [error.message];
    }
}

function inWords({instancePath, message, params, data}) {
    const what = params.additionalProperty ?? params.allowedValues?.join(", ") ?? (typeof data === "object" ? "" : JSON.stringify(data));
    return `${instancePath || "/"} ${message}${what ? `: ${what}` : ""}`;
}

function twice(layout) {
    const names = placed(layout).map((name) => name.toLowerCase());
    return [...new Set(names.filter((name, at) => names.indexOf(name) !== at))].map((name) => `${name} is placed twice`);
}

const likeNone = ({like}) => (like && !layoutNames().includes(like) ? [`like ${like}, which has no layout`] : []);

/** The keys in the table under a heading of docs/screens.md. */
function described(document, heading) {
    const [, chapter] = document.split(`\n### ${heading}\n`);
    const rows = chapter.split("\n#")[0].split("\n").filter((line) => line.startsWith("| `"));
    return rows.flatMap((row) => [...row.split("|")[1].matchAll(/`(\w+)`/g)].map(([, key]) => key));
}

function undescribed() {
    const document = readFileSync(new URL("../../docs/screens.md", import.meta.url), "utf8");
    return [["The screen", "screen"], ["A section", "section"], ["A control", "control"]].flatMap(([heading, definition]) => {
        const known = Object.keys(schema.definitions[definition].properties);
        const told = described(document, heading);
        return [...known.filter((key) => !told.includes(key)).map((key) => `"${heading}" does not tell of ${key}`),
                ...told.filter((key) => !known.includes(key)).map((key) => `"${heading}" tells of ${key}, which no layout may have`)];
    });
}

const faults = [...layoutNames().flatMap((name) => faultsOf(name).map((fault) => `${pathOf(name)}: ${fault}`)),
                ...undescribed().map((fault) => `docs/screens.md: ${fault}`)];
for (const fault of faults) console.error(fault);
process.exitCode = faults.length > 0 ? 1 : 0;
