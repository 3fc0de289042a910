// What a nurse waits for who has never been here, at the end of a slow line: every byte that the host sends counts.

import assert from "node:assert/strict";
import test from "node:test";

import {nurse} from "./support/host.mjs";
import {openPage, signIn, useHost} from "./support/work.mjs";

const house = useHost({}, []);

const slowLine = {offline: false, latency: 200, downloadThroughput: 750_000 / 8, uploadThroughput: 750_000 / 8};

async function onSlowLine() {
    const page = await openPage(house);
    const devtools = await page.context().newCDPSession(page);
    await devtools.send("Network.enable");
    await devtools.send("Network.emulateNetworkConditions", slowLine);
    return page;
}

async function seconds(work) {
    const start = performance.now();
    await work();
    return (performance.now() - start) / 1000;
}

test("sign-in and main window together are below 110 KB", async (context) => {
    const page = await onSlowLine();
    const before = house.host.proxy.told;
    const signInPage = await seconds(() => page.goto("/sign-in", {waitUntil: "domcontentloaded"}));  // typing may begin
    await page.getByLabel("User name").fill(nurse.user);
    await page.getByLabel("Password").fill(nurse.password);
    const mainWindow = await seconds(async () => {
        await page.keyboard.press("Enter");
        await page.getByRole("treeitem", {name: "OPD Vital Signs"}).waitFor();
    });
    await page.waitForLoadState("networkidle");
    const bytes = house.host.proxy.told - before;
    context.diagnostic(`${(bytes / 1000).toFixed(1)} KB, ${signInPage.toFixed(2)} s and ${mainWindow.toFixed(2)} s`);
    assert.deepEqual(page.problems, []);
    assert.ok(bytes < 110_000, `${bytes} bytes`);
});

test("who comes again loads pages and layouts, and no script and no style", async (context) => {
    const page = await openPage(house);
    await signIn(page);
    await page.getByRole("treeitem", {name: "OPD Vital Signs"}).waitFor();
    await page.waitForLoadState("networkidle");
    const before = house.host.proxy.told;
    await page.reload();
    await page.getByRole("treeitem", {name: "OPD Vital Signs"}).waitFor();
    const bytes = house.host.proxy.told - before;
    context.diagnostic(`${(bytes / 1000).toFixed(1)} KB`);
    assert.ok(bytes < 15_000, `${bytes} bytes`);
});
