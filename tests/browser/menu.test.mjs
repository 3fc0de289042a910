import assert from "node:assert/strict";
import test from "node:test";

import {atWork, box, focused, useHost} from "./support/work.mjs";

const house = useHost();
const entries = (page) => page.locator(".v-menu [role=treeitem]:not([aria-expanded])").evaluateAll(
    (items) => items.filter((item) => item.getClientRects().length > 0).map((item) => item.dataset.name));

/** A screen that an entry has brought to the front. */
const opened = (page) => page.locator(".v-pane.v-active .v-screen:not([data-screen=frmSamples])");

/** Presses Down until an entry has the keyboard. */
async function walkTo(page, name) {
    for (let step = 0; step < 100 && (await focused(page)) !== name; ++step) await page.keyboard.press("ArrowDown");
    assert.equal(await focused(page), name);
}

test("every visible entry is reached by the arrow keys and answers to Enter", async () => {
    const page = await atWork(house);
    await page.locator(".v-menu [role=treeitem]").first().focus();
    const names = await entries(page);
    assert.ok(names.length > 25, `${names.length} entries`);
    for (const name of names.filter((one) => !["mnuEPE", "mnuRDef"].includes(one) && !one.startsWith("window:"))) {
        await page.keyboard.press("Home");
        await walkTo(page, name);
        await page.keyboard.press("Enter");
        if (name.startsWith("mnuWindow")) continue;
        await Promise.race([box(page), page.locator(".v-notice").first(), opened(page)].map((answer) => answer.waitFor()));
        for (const close of await page.locator(".v-notice .v-close").all()) await close.click();
        if (await opened(page).count() > 0) await page.locator(".v-child-tab-holder.v-active .v-close").click();
        await opened(page).waitFor({state: "detached"});
        if (await box(page).count() > 0) await page.keyboard.press("Enter");
        await box(page).waitFor({state: "hidden"});
        await page.locator(".v-menu [role=treeitem]").first().focus();
    }
    assert.deepEqual(page.problems, []);
});

test("headings open and close, letters and access keys find entries, a box gives the keyboard back", async () => {
    const page = await atWork(house);
    await page.locator(".v-menu [role=treeitem]").first().focus();
    await page.keyboard.press("ArrowLeft");
    assert.equal(await page.locator("[data-name=mnuFile]").getAttribute("aria-expanded"), "false");
    await page.keyboard.press("ArrowRight");
    await page.keyboard.press("ArrowRight");
    assert.equal(await focused(page), "mnuSI");
    await page.keyboard.press("End");
    await page.keyboard.press("Home");
    assert.equal(await focused(page), "mnuFile");
    await page.keyboard.type("more r");
    assert.equal(await focused(page), "mnuMRpts");
    await page.keyboard.press("Enter");
    await box(page).waitFor();
    await page.keyboard.press("Escape");
    await box(page).waitFor({state: "hidden"});
    assert.equal(await focused(page), "mnuMRpts");
});

test("hidden entries are not there", async () => {
    const page = await atWork(house);
    for (const name of ["mnuBilling", "mnuGenBill", "mnuPrint", "mnuTariff"])
        assert.equal(await page.locator(`[data-name=${name}]`).count(), 0, name);
});

test("the watch is switched by a button and by the panel's double click", async () => {
    const page = await atWork(house);
    const pressed = (state) => page.locator(`.v-watch[aria-pressed=${state}]`).waitFor();
    await pressed(true);
    await page.locator(".v-watch").press("Enter");
    await pressed(false);
    await page.locator(".v-watch").press("Enter");  // on: the lists of who waits open
    const prompt = page.locator("[data-screen=frmFlash]");
    await prompt.waitFor();
    await pressed(true);
    await page.locator(".v-alerts").dblclick({position: {x: 2, y: 2}});
    await pressed(false);
    await prompt.waitFor({state: "hidden"});
});

test("arrangements show screens side by side on a wide page", async () => {
    const page = await atWork(house);
    for (const [entry, arrangement] of [["mnuWindowTV", "tileVertical"], ["mnuWindowTH", "tileHorizontal"], ["mnuWindowCascade", "cascade"]]) {
        await page.locator(`[data-name=${entry}]`).click();
        await page.locator(`.v-panes[data-arrangement=${arrangement}]`).waitFor();
    }
});
