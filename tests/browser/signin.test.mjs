import assert from "node:assert/strict";
import {renameSync} from "node:fs";
import path from "node:path";
import test from "node:test";

import {nurse} from "./support/host.mjs";
import {atWork, box, openPage, picture, signIn, useHost} from "./support/work.mjs";

const house = useHost();

test("who is not signed in comes to the sign-in page", async () => {
    const page = await openPage(house);
    await page.goto("/");
    assert.match(page.url(), /\/sign-in$/);
    assert.equal(await page.evaluate(() => document.activeElement.id), "user");
    await picture(page, "sign-in");
});

test("a wrong password is refused and the name stays", async () => {
    const page = await openPage(house);
    for (const wrong of [{password: "other"}, {user: "nobody"}, {user: "'\"><b>x</b>"}]) {
        await signIn(page, wrong);
        await page.getByRole("alert").filter({hasText: /\S/}).waitFor();
        assert.equal(await page.getByLabel("User name").inputValue(), wrong.user ?? nurse.user);
    }
    await page.waitForFunction(() => document.activeElement.id === "password");
    await picture(page, "sign-in-wrong");
});

test("the right password opens the work place with clock, menu, alerts and status bar", async () => {
    const page = await atWork(house);
    assert.match(await page.locator(".v-clock").textContent(), /\d{2}-[A-Z][a-z]{2}-\d{4}\d{2}:\d{2}/);
    await page.getByRole("treeitem", {name: "OPD Vital Signs"}).waitFor();
    for (const name of ["Expired Admission", "New Comment", "Notifications", "View Comments"])
        await page.locator(".v-alerts").getByRole("button", {name}).waitFor();
    assert.match(await page.locator("footer").textContent(), /Please Log off your User Account when Necessary/);
    assert.deepEqual(page.problems, []);
    await picture(page, "work");
});

test("the host says how it is", async () => {
    const says = async (status, failing) => {
        for (;;) {
            const answer = await fetch(`${house.host.url}/health`);
            if (answer.status === status) return assert.deepEqual((await answer.json()).failing, failing);
        }
    };
    const file = path.join(house.host.data, "SmsCenter.db");
    await says(200, undefined);
    renameSync(file, `${file}.away`);
    await says(503, ["SmsCenter"]);
    renameSync(`${file}.away`, file);
    await says(200, undefined);
});

test("logging off ends the session and shows the way back", async () => {
    const page = await atWork(house);
    await page.getByRole("treeitem", {name: `Log Off ${nurse.user}`, exact: false}).last().click();
    await page.getByRole("link", {name: "Sign in again"}).click();
    await page.getByLabel("User name").waitFor();
    await page.goto("/");
    assert.match(page.url(), /\/sign-in$/);
    assert.equal(await box(page).count(), 0);
});

test("a second window takes the session over, and the first can take it back", async () => {
    const page = await atWork(house);
    const other = await page.context().newPage();
    await other.goto("/");
    await other.locator("[data-control='frmSamples.txtName'] input").waitFor();
    await page.getByRole("button", {name: "Work here again"}).waitFor();
    assert.equal(await page.locator("#work").evaluate((work) => work.inert), true);
    await page.getByRole("button", {name: "Work here again"}).click();
    await page.locator(".v-connection").waitFor({state: "hidden"});
    await other.getByRole("button", {name: "Work here again"}).waitFor();
});
