// The layout files, and what they name.

import {execFileSync} from "node:child_process";
import {readFileSync} from "node:fs";

const root = new URL("../../", import.meta.url);

/** A layout lies with its screen, "registration/frmrecords/frmRecords.json". */
const isLayout = (path) => /^(web\/layouts|[a-z]+\/(frm|mdi)[a-z]+)\/\w+\.json$/.test(path);

const files = new Map(execFileSync("git", ["ls-files", "-co", "--exclude-standard", "*.json"], {cwd: root, encoding: "utf8"})
    .split("\n").filter(isLayout).map((path) => [/(\w+)\.json$/.exec(path)[1], path]));

export const layoutNames = () => [...files.keys()].sort();

/** @throws SyntaxError where the file is no JSON, which names the place */
export const readLayout = (name) => JSON.parse(readFileSync(new URL(files.get(name), root), "utf8"));
export const pathOf = (name) => files.get(name);

function expand(entry) {
    const item = typeof entry === "string" ? {control: entry} : entry;
    const range = /^(.*)\((\d+)\.\.(\d+)\)$/.exec(item.control);
    if (!range) return [item.control];
    const [, name, first, last] = range;
    return Array.from({length: Number(last) - Number(first) + 1}, (_, step) => `${name}(${Number(first) + step})`);
}

const placedIn = (sections) => sections.flatMap((section) => (section.tabs ? [section.tabs, ...section.pages.flatMap(placedIn)]
    : section.rows.flat().flatMap(expand)));

const commands = ["cmdAdd", "cmdEdit", "cmdDel", "cmdRefresh", "OKButton", "cmdCancel", "CancelButton"];

/** The controls that a screen's layout places, in order. */
export const placed = ({record, sections = [], beside = [], buttons = []}) => [
    ...(record ? [...commands, ...record.flatMap(expand)] : []), ...placedIn(sections), ...placedIn(beside), ...buttons.flatMap(expand)];

const itemsIn = (sections) => sections.flatMap((section) => (section.tabs ? section.pages.flatMap(itemsIn) : section.rows.flat()));

/** All controls that a layout speaks of, the main window's too. */
export function named(layout) {
    const {main, sections = [], beside = [], patient} = layout;
    if (main) {
        const {clock = [], debt, status, windows, alerts = {buttons: []}} = main;
        const buttons = alerts.buttons.flatMap(({control, flash}) => [control, flash]);
        return [...clock, debt, status, windows, alerts.panel, alerts.flash, alerts.watch, ...buttons].filter(Boolean);
    }
    const banner = patient ? [...patient.name, ...patient.facts.map(({control}) => control)] : [];
    const labelled = itemsIn([...sections, ...beside]).map((item) => item.for).filter(Boolean);
    return [...placed(layout), ...banner, ...labelled, ...(layout.optional ?? []), layout.default, layout.cancel].filter(Boolean);
}
