import assert from "node:assert/strict";
import test from "node:test";

import {atWork, control, input, picture, turnTo, useHost} from "./support/work.mjs";

const house = useHost();
const tablet = {viewport: {width: 820, height: 1180}, hasTouch: true};

/** Buttons and fields in sight that are lower than a finger needs. */
const tooSmall = (page) => page.evaluate(() => [...document.querySelectorAll("button, input:not([type=checkbox], [type=radio]), textarea, [role=option]")]
    .filter((element) => element.getClientRects().length > 0 && element.getBoundingClientRect().height < 42)
    .map((element) => element.outerHTML.slice(0, 120)));

test("on a tablet targets fit fingers, nothing runs out of the page, and the menu opens over it", async () => {
    const page = await atWork(house, tablet);
    assert.deepEqual(await tooSmall(page), []);
    assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth));
    await page.getByRole("button", {name: "Menu"}).tap();
    await page.getByRole("treeitem", {name: "OPD Vital Signs"}).waitFor();
    await picture(page, "tablet-menu");
    await page.keyboard.press("Escape");
    await picture(page, "tablet");
});

test("on a phone's width fields lie in one column", async () => {
    const page = await atWork(house, {viewport: {width: 480, height: 900}, hasTouch: true});
    const [name, temperature] = await Promise.all(["txtName", "txtTemp"].map((one) => control(page, one).boundingBox()));
    assert.equal(name.x, temperature.x);
    assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth));
    await picture(page, "phone");
});

test("dark is the system's choice until the switch says otherwise, and stays", async () => {
    const page = await atWork(house, {colorScheme: "dark"});
    const lightness = () => page.evaluate(() => Number(getComputedStyle(document.body).backgroundColor.match(/\d+/)[0]));
    assert.ok(await lightness() < 60);
    await turnTo(page, "Trend");
    await page.waitForTimeout(500);
    await picture(page, "dark");
    await page.getByRole("button", {name: "Switch to light colours"}).click();
    assert.ok(await lightness() > 200);
    await page.reload();
    await input(page, "txtName").waitFor();
    assert.ok(await lightness() > 200);
});
