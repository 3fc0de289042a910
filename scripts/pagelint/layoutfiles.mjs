// The layout files, and what they name.

import {readFileSync, readdirSync} from "node:fs";

const folder = new URL("../../web/layouts/", import.meta.url);

export const layoutNames = () => readdirSync(folder).map((file) => file.replace(/\.json$/, ""));

/** @throws SyntaxError where the file is no JSON, which names the place */
export const readLayout = (name) => JSON.parse(readFileSync(new URL(`${name}.json`, folder), "utf8"));

function expand(entry) {
    const item = typeof entry === "string" ? {control: entry} : entry;
    const range = /^(.*)\((\d+)\.\.(\d+)\)$/.exec(item.control);
    if (!range) return [item.control];
    const [, name, first, last] = range;
    return Array.from({length: Number(last) - Number(first) + 1}, (_, step) => `${name}(${Number(first) + step})`);
}

const placedIn = (sections) => sections.flatMap((section) => (section.tabs ? [section.tabs, ...section.pages.flatMap(placedIn)]
    : section.rows.flat().flatMap(expand)));

/** The controls that a screen's layout places, in order. */
export const placed = ({sections = [], buttons = []}) => [...placedIn(sections), ...buttons.flatMap(expand)];

const itemsIn = (sections) => sections.flatMap((section) => (section.tabs ? section.pages.flatMap(itemsIn) : section.rows.flat()));

/** All controls that a layout speaks of, the main window's too. */
export function named(layout) {
    const {main, sections = []} = layout;
    if (main) {
        const {clock = [], debt, status, windows, alerts = {buttons: []}} = main;
        const buttons = alerts.buttons.flatMap(({control, flash}) => [control, flash]);
        return [...clock, debt, status, windows, alerts.panel, alerts.flash, alerts.watch, ...buttons].filter(Boolean);
    }
    const labelled = itemsIn(sections).map((item) => item.for).filter(Boolean);
    return [...placed(layout), ...labelled, ...(layout.optional ?? []), layout.default, layout.cancel].filter(Boolean);
}
