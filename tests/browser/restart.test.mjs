// The host falls while a nurse works: what she had not saved is offered to her, and to nobody else, when she is back.

import assert from "node:assert/strict";
import test from "node:test";

import {colleague} from "./support/host.mjs";
import {Screen, asked, boxSays, openFromMenu} from "./support/screen.mjs";
import {box, focused, input, openPage, picture, says, signIn, useHost} from "./support/work.mjs";

const house = useHost();
const at = (page) => new Screen(page, "frmPreConsult");
const readings = {txtTemp: "36.8", txtPressure: "120", txtPressure2: "80", txtPause: "72", txtResp: "18", txtHt: "1.70", txtWt: "68"};
const offer = (page) => page.getByRole("dialog", {name: "Your work from before"});

async function openStation(page) {
    await openFromMenu(page, "mnuVitSigns");
    await at(page).part("cmdAdd", "button").waitFor();
}

/** Takes the vital signs of the first patient who waits, up to the save. @returns the visit's number */
async function takeVitals(page) {
    await openStation(page);
    const station = at(page);
    await station.press("cmdAdd");
    await station.pickAt("cboVehNo", 1);
    await station.part("lblBill").filter({hasText: /001\d{9}/}).waitFor();
    for (const [name, text] of Object.entries(readings)) await station.type(name, text);
    await station.pickAt("CboRef", 1);
    await station.field("txtResp").focus();
    await settled(page);
    return station.part("lblBill").textContent();
}

/** Waits until the session has answered everything. */
const settled = (page) => page.waitForFunction(() => JSON.parse(sessionStorage.getItem("vorel.outbox")).entries.length === 0);

const rowsFor = (visit) => house.host.query(`select temp, pressure from hPreConsult where consultID='${visit}'`);

/** Waits until the host has stored the readings, which no page tells of. */
function untilStored(visit) {
    for (let tries = 0; tries < 100; ++tries) if (rowsFor(visit).length > 0) return;
    assert.fail("the readings were not stored");
}

/** Presses Save; the "yes", or its reply, is lost on the way. */
async function saveInto(page, lostSide) {
    await at(page).press("OKButton");
    await asked(page);
    house.host.proxy.lose(lostSide);
    await page.keyboard.press("Alt+y");
    await box(page).waitFor({state: "hidden"});
}

async function fall(page) {
    await house.host.kill();
    await house.host.restart();
    await page.waitForURL(/\/sign-in$/);
}

/** Signs in where the page stands: the user's name is there already. */
async function signInAgain(page) {
    await page.waitForFunction(() => document.activeElement.id === "password");
    await page.keyboard.type("Plain7words");
    await page.keyboard.press("Enter");
}

async function bringBack(page) {
    await page.keyboard.press("Enter");  // typed on: decides nothing
    await page.keyboard.press("Alt+b");
    await page.locator(".v-notice").filter({hasText: "as you left it"}).waitFor();
}

async function save(page) {
    await at(page).press("OKButton");
    await asked(page);
    await page.keyboard.press("Alt+y");
}

test("vital signs half typed come back after a fall, are saved once, and leave nothing", async () => {
    const page = await openPage(house);
    await signIn(page);
    const visit = await takeVitals(page);
    const patient = await at(page).field("cboVehNo").inputValue();
    await fall(page);
    const told = await page.locator("#kept").textContent();
    assert.match(told, /The host was started anew.*Vital Signs: 9 fields/);
    assert.doesNotMatch(told, /36\.8/);
    await picture(page, "comeback-signin");
    await signInAgain(page);
    await offer(page).filter({hasText: "Vital Signs was not saved"}).waitFor();
    await picture(page, "comeback-offer");
    await bringBack(page);
    assert.equal(await at(page).field("cboVehNo").inputValue(), patient);
    for (const [name, text] of Object.entries(readings)) assert.equal(await at(page).field(name).inputValue(), text, name);
    assert.equal(await focused(page), "frmPreConsult.txtResp");
    await picture(page, "comeback-back");
    assert.deepEqual(rowsFor(visit), []);
    await save(page);
    await boxSays(page, "Record Succesfully saved");
    await settled(page);
    assert.equal(rowsFor(visit).length, 1);
    await fall(page);
    assert.doesNotMatch(await page.locator("#kept").textContent(), /Vital/);
    assert.deepEqual(page.problems, []);
});

test("a pick of a list that stays with the host comes back by its text", async () => {
    const page = await openPage(house);
    await signIn(page);
    await input(page, "cboPatient").fill("lawal musa [0864");
    await page.keyboard.press("Enter");
    await says(page, "Chosen: LAWAL MUSA \\[0864\\]");
    await settled(page);
    await fall(page);
    await signInAgain(page);
    await offer(page).waitFor();
    await bringBack(page);
    await page.reload();  // the session has it
    await input(page, "cboPatient").waitFor();
    assert.equal(await input(page, "cboPatient").inputValue(), "LAWAL MUSA [0864]");
});

test("a save that was stored before its reply says so, and is not typed again", async () => {
    const page = await openPage(house);
    await signIn(page);
    const visit = await takeVitals(page);
    await saveInto(page, "host");
    untilStored(visit);
    await fall(page);
    await page.locator("#kept").filter({hasText: "Save was pressed; whether it was stored you will see after signing in"}).waitFor();
    await signInAgain(page);
    await offer(page).filter({hasText: "The save of Vital Signs was stored."}).waitFor();
    assert.equal(await offer(page).getByRole("button", {name: "Bring back"}).count(), 0);
    await picture(page, "comeback-stored");
    await page.keyboard.press("Escape");
    await offer(page).waitFor({state: "detached"});
    assert.equal(rowsFor(visit).length, 1);
    await page.reload();
    await page.locator(".v-menu").waitFor();
    assert.equal(await page.evaluate(() => sessionStorage.getItem("vorel.kept")), null);
});

test("a save that never arrived says so, and comes back unsaved", async () => {
    const page = await openPage(house);
    await signIn(page);
    const visit = await takeVitals(page);
    await saveInto(page, "pages");
    await fall(page);
    await signInAgain(page);
    await offer(page).filter({hasText: "The save of Vital Signs was not stored."}).waitFor();
    await bringBack(page);
    assert.equal(await box(page).count(), 0);
    assert.equal(await at(page).field("txtTemp").inputValue(), "36.8");
    assert.deepEqual(rowsFor(visit), []);
});

test("a save whose reply the line lost leaves nothing to bring back", async () => {
    const page = await openPage(house);
    await signIn(page);
    const visit = await takeVitals(page);
    await saveInto(page, "host");
    untilStored(visit);
    house.host.proxy.cut();
    house.host.proxy.mend();
    await boxSays(page, "Record Succesfully saved");
    await settled(page);
    await fall(page);
    assert.doesNotMatch(await page.locator("#kept").textContent(), /Vital/);
});

test("readings of a patient who waits no more are told and typed nowhere", async () => {
    const page = await openPage(house);
    await signIn(page);
    const visit = await takeVitals(page);
    await fall(page);
    house.host.execute(`update hrecords set attendedto=1 where consultID='${visit}'`);
    await signInAgain(page);
    await offer(page).waitFor();
    await bringBack(page);
    const told = await page.locator(".v-notice").textContent();
    assert.match(told, new RegExp(`${visit}\\] is not in the list any more.*Temperature: 36\\.8`));
    assert.equal(await at(page).field("txtTemp").inputValue(), "");
    await picture(page, "comeback-gone");
    await page.getByRole("treeitem", {name: "Log Off nurse"}).last().click();
    await page.getByRole("heading", {name: "The session has ended"}).waitFor();
    assert.doesNotMatch(await page.locator("body").textContent(), /36\.8/);
});

test("a registration that carries its patient's name tells it neither where the session ended nor to whoever comes by", async () => {
    const [{FullName: name}] = house.host.query("select top 1 FullName from vwhpatients where FullName like 'OLA%'");
    const page = await openPage(house);
    const form = new Screen(page, "frmPatientsNew");
    await signIn(page);
    await openFromMenu(page, "mnuPatReg");
    await form.field("txtName").focus();
    await page.keyboard.type(name.slice(0, 12));
    await form.part("grdData", `tbody tr[data-row]:has-text("${name}")`).focus();
    await page.keyboard.press("Enter");
    await page.getByRole("tab", {name}).waitFor();
    await form.field("txtfirstNAme").fill("AYO");
    await settled(page);
    await fall(page);
    const told = await page.locator("#kept").textContent();
    assert.match(told, /Patient Attendance \/ Registration: \d+ fields?/);
    assert.doesNotMatch(told, new RegExp(name.split(" ")[0], "i"));
});

test("what is kept is neither shown to another user nor left in the tab", async () => {
    const page = await openPage(house);
    await signIn(page);
    await takeVitals(page);
    await fall(page);
    await page.getByLabel("User name").fill(colleague.user);
    await page.getByLabel("Password").fill(colleague.password);
    await page.keyboard.press("Enter");
    await openStation(page);
    assert.equal(await offer(page).count(), 0);
    assert.doesNotMatch(await page.evaluate(() => JSON.stringify(Object.entries(sessionStorage))), /36\.8/);
});

test("logging off keeps nothing", async () => {
    const page = await openPage(house);
    await signIn(page);
    await takeVitals(page);
    await page.getByRole("treeitem", {name: "Log Off nurse"}).last().click();
    await page.getByRole("link", {name: "Sign in again"}).click();
    await page.getByLabel("User name").waitFor();
    assert.equal(await page.locator("#kept").isVisible(), false);
    assert.doesNotMatch(await page.evaluate(() => JSON.stringify(Object.entries(sessionStorage))), /36\.8/);
});
