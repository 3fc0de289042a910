import assert from "node:assert/strict";
import test from "node:test";

import {atWork, box, control, focused, input, openPage, picture, says, signIn, turnTo, useHost} from "./support/work.mjs";

const house = useHost();
let page;
test.beforeEach(async () => (page = await atWork(house)));
test.afterEach(async () => {
    assert.deepEqual(page.problems, []);
    await page.context().close();
});

test("texts: filters, length, Enter, leaving and coming", async () => {
    for (const [name, typed, shown] of [["txtTemp", "3a6.8", "36.8"], ["txtPulse", "7x2999", "729"], ["txtCode", "ab1", "AB1"]]) {
        await input(page, name).pressSequentially(typed);
        await page.waitForFunction(([path, text]) => document.querySelector(`[data-control="${path}"] input`).value === text,
                                   [`frmSamples.${name}`, shown]);
    }
    await input(page, "txtTemp").fill("36.81");
    await page.keyboard.press("Tab");  // it was left too long
    await box(page).waitFor();
    await page.keyboard.press("Enter");
    await page.waitForFunction(() => document.activeElement.closest("[data-control]")?.dataset.control === "frmSamples.txtTemp");
    await input(page, "txtTemp").fill("36.8");
    await input(page, "txtName").fill("Ada");
    await page.keyboard.press("Enter");
    await says(page, "Name: Ada");
    await page.keyboard.press("Tab");
    await says(page, "Left the name");
    await input(page, "txtCode").focus();
    await says(page, "Came to the code");
    assert.equal(await input(page, "txtLocked").isDisabled(), true);
    assert.equal(await input(page, "txtPassword").getAttribute("type"), "password");
});

test("a filter's answer never meets newer typing", async () => {
    const name = input(page, "txtName");
    const text = "the quick brown fox jumps over the lazy dog";
    await name.pressSequentially(text);
    await page.waitForTimeout(300);
    assert.equal(await name.inputValue(), text);
});

test("a combo narrows as one types and is picked by keyboard; a list-only one takes nothing else", async () => {
    await input(page, "cboDrug").pressSequentially("para");
    assert.deepEqual(await control(page, "cboDrug", "[role=option]").allTextContents(), ["Paracetamol 500 mg", "Paracetamol syrup"]);
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("Enter");
    await says(page, "Drug: Paracetamol syrup");
    await input(page, "cboWard").pressSequentially("mat");
    await page.keyboard.press("Enter");
    await says(page, "Ward: Maternity");
    await input(page, "cboWard").fill("nowhere");
    await page.keyboard.press("Tab");
    assert.equal(await input(page, "cboWard").inputValue(), "Maternity");
});

test("a long list stays with the host: typing narrows it, Enter takes the marked or the only match", async () => {
    const patient = input(page, "cboPatient");
    const shown = () => control(page, "cboPatient", "[role=option]");
    const remark = (text) => control(page, "cboPatient", ".v-popup-more").filter({hasText: text}).waitFor();
    await patient.click();
    await remark("900 more: type to narrow");
    assert.equal(await shown().count(), 100);
    await patient.pressSequentially("lawal mu");
    await shown().filter({hasText: "LAWAL MUSA [0861]"}).waitFor();
    await page.waitForFunction(() => document.querySelectorAll("[data-control='frmSamples.cboPatient'] [role=option]").length === 10);
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("Enter");
    await says(page, "Chosen: LAWAL MUSA \\[0862\\]");
    await patient.fill("[0123]");
    await page.keyboard.press("Enter");  // before the host has answered
    await says(page, "Chosen: BELLO CHIDI \\[0123\\]");
    await patient.fill("okafor zainab [1000");
    await page.keyboard.press("Tab");
    await says(page, "Chosen: OKAFOR ZAINAB \\[1000\\]");
    await patient.fill("nobody");
    await remark("No entry");
    await page.keyboard.press("Tab");
    assert.equal(await patient.inputValue(), "OKAFOR ZAINAB [1000]");
    await page.reload();
    await patient.click();
    await remark("900 more");
    assert.equal(await patient.inputValue(), "OKAFOR ZAINAB [1000]");
});

test("a slow host is waited for in words, and its answer to an older question is none", async () => {
    let held = null;
    const slow = await openPage(house);
    await slow.routeWebSocket("**/session", (socket) => {
        const host = socket.connectToServer();
        host.onMessage((line) => (held ? held.push(() => socket.send(line)) : socket.send(line)));
    });
    await signIn(slow);
    const patient = input(slow, "cboPatient");
    await patient.click();
    await control(slow, "cboPatient", "[role=option]").first().waitFor();
    held = [];
    await patient.pressSequentially("garba", {delay: 120});
    await control(slow, "cboPatient", ".v-popup-more").filter({hasText: "Searching …"}).waitFor();
    await patient.fill("eze t");
    await slow.waitForTimeout(300);
    const [last, ...older] = held.toReversed();
    for (const tell of older.toReversed()) tell();
    assert.equal(await control(slow, "cboPatient", "[role=option]").count(), 0);
    last();
    await control(slow, "cboPatient", "[role=option]").first().filter({hasText: "EZE TUNDE [0481]"}).waitFor();
    await slow.context().close();
});

test("a long list box shows a hundred at a time, by the keyboard and by its buttons", async () => {
    await turnTo(page, "Lists");
    const list = control(page, "lstNames", "[role=listbox]");
    const counted = (text) => control(page, "lstNames", ".v-count").filter({hasText: text}).waitFor();
    await counted("1 to 100 of 1000");
    await list.focus();
    await page.keyboard.press("ArrowDown");
    await says(page, "Name: ADEBAYO ADA \\[0001\\]");
    await page.keyboard.press("End");
    await says(page, "Name: OKAFOR ZAINAB \\[1000\\]");
    await counted("901 to 1000 of 1000");
    await page.keyboard.press("Home");
    await says(page, "Name: ADEBAYO ADA \\[0001\\]");
    await page.keyboard.type("gar");
    await says(page, "Name: GARBA ADA \\[0601\\]");
    await counted("601 to 700 of 1000");
    await page.getByRole("button", {name: "Previous entries"}).click();
    await counted("501 to 600 of 1000");
    await control(page, "lstNames", "[role=option]").first().click();
    await says(page, "Name: FASHOLA ADA \\[0501\\]");
    await page.reload();
    await counted("501 to 600 of 1000");
    await picture(page, "samples-longlist");
});

test("a grid takes in the rows that came and stays as it is sorted and narrowed", async () => {
    const rows = control(page, "grdData", "tbody tr");
    const count = (text) => control(page, "grdData", ".v-count").filter({hasText: text}).waitFor();
    await control(page, "cmdArrival", "button").click();
    await count("26 rows");
    assert.equal(await rows.first().locator("td").first().textContent(), "P026");
    await control(page, "grdData", ".v-filter").fill("ada");
    await page.getByRole("button", {name: "Age"}).click();
    await control(page, "cmdArrival", "button").click();
    await count("of 27 rows");
    const ages = await rows.locator("td:nth-child(3)").allTextContents();
    assert.deepEqual(ages, ages.toSorted((one, other) => one - other));
    await rows.last().click();
    await says(page, `Patient: ${await rows.last().locator("td").first().textContent()}`);
});

test("a date is set, cleared and blank", async () => {
    await input(page, "dtVisit").fill("2026-11-24");
    await says(page, "Visit: 2026-11-24");
    await control(page, "dtVisit", ".v-clear").click();
    await says(page, "No visit");
    await input(page, "dtTime").fill("09:30");
    await page.reload();
    await input(page, "dtTime").waitFor();
    assert.equal(await input(page, "dtTime").inputValue(), "09:30");
});

test("marks, options of one group, and what a panel holds", async () => {
    await input(page, "chkFasting").check();
    await says(page, "Fasting");
    await input(page, "optMale").check();
    await says(page, "Male");
    await page.keyboard.press("ArrowDown");
    await says(page, "Female");
    assert.equal(await input(page, "optMale").isChecked(), false);
    await input(page, "chkHold").check();
    await page.locator("[data-control='frmSamples.txtHeld'] input:disabled").waitFor();
    assert.equal(await control(page, "chkDay(3)").count(), 1);
});

test("a grid sorts, narrows and pages, and tells the session its own row numbers", async () => {
    const rows = control(page, "grdData", "tbody tr");
    const first = () => rows.first().locator("td").nth(2).textContent();
    assert.equal(await rows.count(), 10);
    assert.equal(await page.getByRole("columnheader", {name: "consultID"}).count(), 0);
    // The headings are one stop of the Tab key.
    await control(page, "grdData", ".v-sort").first().focus();
    for (const key of ["End", "Home", "ArrowRight", "ArrowRight", "Enter", "Enter"]) await page.keyboard.press(key);
    assert.equal(await control(page, "grdData", ".v-sort[tabindex='0']").textContent(), "Age ▼");
    const oldest = Number(await first());
    assert.equal(oldest, 96);
    await rows.first().click();
    const number = await rows.first().locator("td").first().textContent();
    await says(page, `Patient: ${number}`);
    await page.keyboard.press("Enter");
    await says(page, `Opened: ${number} C${Number(number.slice(1))}`);
    await page.keyboard.press("ArrowDown");
    await says(page, `Patient: ${await rows.nth(1).locator("td").first().textContent()}`);
    await control(page, "grdData", ".v-filter").fill("zainab");
    assert.match(await control(page, "grdData", ".v-count").textContent(), /^\d of 25 rows$/);
    await control(page, "grdData", ".v-filter").fill("");
    await page.getByRole("button", {name: "Next page"}).click();
    assert.match(await control(page, "grdData", ".v-count").textContent(), /page 2 of 3/);
    await picture(page, "samples-grid");
});

test("lists, trees and marks work by keyboard", async () => {
    await turnTo(page, "Lists");
    await says(page, "Page 2");
    await control(page, "lstBeds", "[role=listbox]").focus();
    await page.keyboard.press("ArrowDown");
    await says(page, "Bed 1");
    await page.keyboard.press("End");
    await says(page, "Bed 12");
    await page.keyboard.press("Enter");
    await says(page, "Opened: Bed 12");
    await control(page, "treeUnits", "[role=treeitem]").first().focus();
    await page.keyboard.press("ArrowRight");
    await page.keyboard.press("Enter");
    await says(page, "Unit: Male");
    await control(page, "lvwTests", "[role=listbox]").focus();
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press(" ");
    await says(page, "Haemoglobin checked");
    await picture(page, "samples-lists");
});

test("a list of ticks: by box, by blank, all at once as far as the session takes them", async () => {
    await turnTo(page, "Lists");
    const list = control(page, "lstSigns", "[role=listbox]");
    const counted = (text) => control(page, "lstSigns", ".v-list-count").filter({hasText: text}).waitFor();
    await list.focus();
    await page.keyboard.press("ArrowDown");
    await says(page, "Sign: Rash");
    await page.keyboard.press(" ");
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press(" ");
    await says(page, "Signs: Rash, Swelling");
    await control(page, "lstSigns", "[data-check='0']").click();
    await says(page, "Signs: Swelling");
    await counted("1 of 5 ticked");
    await control(page, "lstSigns", "[role=option]").nth(1).getByText("Fever").click();
    await says(page, "Sign: Fever");
    assert.equal(await page.getByRole("option", {name: "Swelling", exact: true}).getAttribute("aria-checked"), "true");
    await list.focus();
    await page.keyboard.press("Control+a");
    await box(page).filter({hasText: "Four signs are enough"}).waitFor();
    await page.keyboard.press("Enter");
    await box(page).waitFor({state: "hidden"});
    await counted("4 of 5 ticked");
    await page.reload();
    await counted("4 of 5 ticked");
    await control(page, "lstSigns", "[data-check='0']").click();
    await counted("3 of 5 ticked");
    await picture(page, "samples-ticks");
});

test("a grid of cells, a focus that brings its page, a chart with its table, a picture", async () => {
    await control(page, "cmdFocus", "button").click();
    await page.waitForFunction(() => document.activeElement.closest("[data-control]")?.dataset.control === "frmSamples.cmdAddLine");
    for (const [typed, left, shown] of [["12,50", "12.50", "12.50"], ["1,234", "1234", "1,234.00"], ["1,234.567", "1234.567", "1,234.567"],
                                        ["7x.5.1", "7.51", "7.51"], ["12,3456", "123456", "123,456.00"], ["", "", ""]]) {
        await input(page, "txtPrice").fill("");
        await input(page, "txtPrice").pressSequentially(typed);
        await control(page, "cmdAddLine", "button").focus();
        await page.waitForFunction((text) => document.querySelector('[data-control="frmSamples.txtPrice"] input').value === text, left);
        await page.keyboard.press("Enter");
        await control(page, "OrderGrid", "tbody tr[data-row]:last-child .v-amount").filter({hasText: new RegExp(`^${shown.replace(".", "[.]")}$`)}).waitFor();
        await control(page, "OrderGrid", "tbody tr[data-row]").first().click();
        await control(page, "cmdRemoveLine", "button").click();
        await control(page, "OrderGrid", ".v-empty").waitFor();
    }
    await control(page, "OrderGrid", ".v-empty").waitFor();
    await turnTo(page, "Trend");
    assert.match(await control(page, "chtTrend", "canvas").getAttribute("aria-label"), /^Blood pressure: Pressure \(mmHg\) by Time, 4 points/);
    await control(page, "chtTrend", "summary").click();
    assert.deepEqual(await control(page, "chtTrend", "tbody tr").nth(2).locator("td").allTextContents(), ["", "84"]);
    assert.ok(await control(page, "picPhoto", "img").evaluate((image) => image.decode().then(() => image.naturalWidth > 0)));
    await page.waitForTimeout(500);
    await picture(page, "samples-trend");
});

test("boxes stand on the safe answer and give the keyboard back", async () => {
    await control(page, "cmdAsk", "button").click();
    await box(page).waitFor();
    assert.equal(await page.evaluate(() => document.activeElement.textContent), "No");
    await page.keyboard.press("Enter");
    await says(page, "Not saved");
    assert.equal(await focused(page), "frmSamples.cmdAsk");
    await page.keyboard.press("Enter");
    await box(page).waitFor();
    await page.keyboard.press("Alt+y");
    await says(page, "Saved");
    await control(page, "cmdInput", "button").click();
    await box(page).locator("input").fill("36");
    await page.keyboard.press("Enter");
    await says(page, "Hours: 36");
    await control(page, "cmdInput", "button").click();
    await box(page).waitFor();
    await page.keyboard.press("Escape");
    await says(page, "No hours");
    await control(page, "cmdFile", "button").click();
    await box(page).locator("input[type=file]").setInputFiles({name: "photo.jpg", mimeType: "image/jpeg", buffer: Buffer.from("x")});
    await box(page).getByRole("button", {name: "OK"}).click();
    await says(page, "File: .jpg");
    await control(page, "cmdDelete", "button").click();
    await box(page).filter({hasText: "Nothing to delete"}).waitFor();
    await picture(page, "box");
    await page.keyboard.press("Enter");
});

test("a double click opens a row, and a cell that may be written", async () => {
    await control(page, "grdData", "tbody tr[data-row]").nth(2).dblclick();
    await says(page, "Opened: P003 C3");
    await turnTo(page, "Order");
    await control(page, "grdPrices", "tbody tr[data-row] td").nth(1).dblclick();
    await page.waitForFunction(() => document.activeElement.getAttribute("aria-label") === "Price, Dressing");
});

test("a cell is written in place: Enter stores it and goes on, Esc leaves, what is no amount is told", async () => {
    await turnTo(page, "Order");
    const row = (place) => control(page, "grdPrices", "tbody tr[data-row]").nth(place);
    const cell = control(page, "grdPrices", ".v-cell-edit");
    await row(0).click();
    await page.keyboard.press("F2");
    assert.equal(await cell.getAttribute("aria-label"), "Price, Dressing");
    await page.keyboard.type("1e9");
    await page.keyboard.press("Enter");
    await control(page, "grdPrices", ".v-problem").filter({hasText: "An amount is a number of 0 or more"}).waitFor();
    await page.keyboard.press("Control+A");
    await page.keyboard.type("1,750.50");
    await page.keyboard.press("Enter");
    await says(page, "Dressing costs 1750.5");
    await row(0).filter({hasText: "1,750.50"}).waitFor();
    await page.waitForFunction(() => document.activeElement.getAttribute("aria-label") === "Price, Injection");
    await picture(page, "samples-cell");
    await page.keyboard.type("8");
    await page.keyboard.press("Escape");
    await cell.waitFor({state: "detached"});
    await row(1).filter({hasText: "750.00"}).waitFor();
    await page.waitForFunction(() => document.activeElement.dataset.row === "1");
});

test("a modal screen holds the keyboard until it is gone", async () => {
    await control(page, "cmdModal", "button").click();
    await page.locator("dialog.v-modal[open]").waitFor();
    assert.equal(await focused(page), "frmSampleModal.txtReason");
    await picture(page, "modal");
    await page.reload();
    await page.locator("dialog.v-modal[open]").waitFor();
    await page.keyboard.press("Escape");
    await says(page, "The modal screen is gone");
    assert.match(await focused(page), /^frmSamples\./);
});

test("a report opens as a page of its own, and as CSV", async () => {
    const opened = page.context().waitForEvent("page");
    await control(page, "cmdReport", "button").click();
    const report = await opened;
    await report.getByRole("heading", {name: "Sample patients"}).waitFor();
    await picture(report, "report");
    await report.emulateMedia({media: "print"});
    await report.setViewportSize({width: 700, height: 1000});  // upright A4 within its margins
    assert.ok(await report.evaluate(() => document.querySelector("table").getBoundingClientRect().right <= innerWidth));
    await report.emulateMedia({media: "screen"});
    assert.ok(await report.getByRole("button", {name: "Print"}).isVisible());
    const [file] = await Promise.all([page.waitForEvent("download"), page.getByRole("link", {name: "Download as CSV"}).click()]);
    assert.match(file.suggestedFilename(), /\.csv$/);
});

test("the ring is fetched from the session", async () => {
    const sound = page.waitForResponse((response) => response.url().endsWith("/program/ring1.wav"));
    await control(page, "cmdRing", "button").click();
    assert.ok([200, 206].includes((await sound).status()));
});

test("closing asks, and No keeps the screen", async () => {
    await page.locator(".v-child-tab-holder.v-active .v-close").click();
    await box(page).waitFor();
    await page.keyboard.press("Enter");
    await input(page, "txtName").waitFor();
    await page.locator(".v-child-tab-holder.v-active .v-close").click();
    await box(page).getByRole("button", {name: "Yes"}).click();
    await page.getByText("Choose an entry in the menu").waitFor();
});
