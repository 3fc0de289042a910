// A name that a layout file gets wrong is no error on the page: the control is drawn at the end, or the key does nothing.

import assert from "node:assert/strict";
import test from "node:test";

import {layoutNames, named, readLayout} from "../../scripts/pagelint/layoutfiles.mjs";
import {useHost} from "./support/work.mjs";

const house = useHost({VOREL_REGISTRATION_DESK_IN_MENU: "true"});

/** The samples are no screens of a script's session. */
const screens = layoutNames().filter((name) => !name.startsWith("frmSample"));

const same = (one, other) => one.toLowerCase() === other.toLowerCase();

/** The controls of each screen, by its name. */
function controlsOfAll() {
    const replies = house.host.drive({start: true}, ...screens.flatMap((screen) => [{show: screen}, {get: screen}]));
    return screens.map((screen, at) => {
        const {state} = replies[2 + 2 * at];
        assert.ok(state, `${screen}: ${JSON.stringify(replies[1 + 2 * at])}`);
        return [screen, state.controls];
    });
}

/** A layout with what it has from the one that it is like. */
function wholeLayout(name) {
    const layout = readLayout(name);
    return layout.like ? {...wholeLayout(layout.like), ...layout} : layout;
}

/** Labels by control, and on which page of a tab set each lies. */
function labelsOf(sections, page = "") {
    return sections.flatMap((section) => (section.tabs
        ? section.pages.flatMap((one, number) => labelsOf(one, `${section.tabs} ${number}`))
        : section.rows.flat().filter((item) => item.control).map(({control, label}) => ({control, label, page}))));
}

/** Each access key of a screen with what has it. */
function keysOf(layout, controls) {
    const placed = labelsOf([...layout.sections, ...(layout.beside ?? [])]);
    return Object.entries(controls).filter(([, {kind}]) => kind !== "menuItem").flatMap(([name, {caption}]) => {
        const {label, page = ""} = placed.find(({control}) => same(control, name)) ?? {};
        const key = /&([^& ])/.exec(label ?? caption ?? "")?.[1].toLowerCase();
        return key ? [{key, name, page}] : [];
    });
}

const screensWithControls = () => controlsOfAll().filter(([screen]) => screen !== "MdiVorel");

test("layouts name only controls that their screens have", () => {
    for (const [screen, controls] of controlsOfAll()) {
        const there = new Set(Object.keys(controls).map((name) => name.toLowerCase()));
        assert.deepEqual(named(readLayout(screen)).filter((name) => !there.has(name.toLowerCase())), [], screen);
    }
});

test("no two controls of a screen that can be in sight together have one access key", () => {
    for (const [screen, controls] of screensWithControls()) {
        const keys = keysOf(wholeLayout(screen), controls);
        const clashes = keys.flatMap(({key, name, page}, at) => keys.slice(at + 1)
            .filter((other) => other.key === key && (!page || !other.page || page === other.page))
            .map((other) => `Alt+${key}: ${name} and ${other.name}`));
        assert.deepEqual(clashes, [], screen);
    }
});

test("the commands of a record have the same letters on every screen", () => {
    const letters = {cmdAdd: "a", cmdEdit: "e", OKButton: "s", cmdCancel: "c", cmdDel: "d", cmdRefresh: "r"};
    for (const [screen, controls] of screensWithControls().filter(([name]) => wholeLayout(name).record)) {
        const keys = keysOf(wholeLayout(screen), controls);
        assert.deepEqual(Object.fromEntries(Object.keys(letters).map((name) => [name, keys.find((one) => one.name === name)?.key])),
                         letters, screen);
    }
});
