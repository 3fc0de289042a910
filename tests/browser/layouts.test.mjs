// A name that a layout file gets wrong is no error on the page: the control is drawn at the end, or the key does nothing.

import assert from "node:assert/strict";
import test from "node:test";

import {layoutNames, named, readLayout} from "../../scripts/pagelint/layoutfiles.mjs";
import {useHost} from "./support/work.mjs";

const house = useHost();

/** The samples are no screens of a script's session. */
const screens = layoutNames().filter((name) => !name.startsWith("frmSample"));

test("layouts name only controls that their screens have", () => {
    const requests = [{start: true}, ...screens.flatMap((screen) => [{show: screen}, {get: screen}])];
    const replies = house.host.drive(...requests);
    for (const [at, screen] of screens.entries()) {
        const {state} = replies[2 + 2 * at];
        assert.ok(state, `${screen}: ${JSON.stringify(replies[1 + 2 * at])}`);
        const there = new Set(Object.keys(state.controls).map((name) => name.toLowerCase()));
        assert.deepEqual(named(readLayout(screen)).filter((name) => !there.has(name.toLowerCase())), [], screen);
    }
});
