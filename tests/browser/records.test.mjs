// The chart of a ward and the history of a patient, by the keyboard: what a nurse charts and what she reads.

import assert from "node:assert/strict";
import test from "node:test";

import {nurse} from "./support/host.mjs";
import {Screen, boxSays, openByName, openFromMenu} from "./support/screen.mjs";
import {atWork, box, openPage, picture, signIn, useHost} from "./support/work.mjs";

const house = useHost();

const sql = (text) => house.host.query(text);
const list = (screen, control) => screen.part(control, "[role=listbox]");

/** Goes to a list and to the entry that holds a text, as by the arrow keys. */
async function walkTo(screen, control, text) {
    const rows = list(screen, control).locator("[role=option]");
    await rows.filter({hasText: text}).waitFor();
    await list(screen, control).focus();
    await screen.page.keyboard.press("Home");
    for (let down = await rows.evaluateAll((all, wanted) => all.findIndex((row) => row.textContent.includes(wanted)), text); down > 0; down -= 1)
        await screen.page.keyboard.press("ArrowDown");
}

async function answer(page, question, key) {
    await box(page).filter({hasText: question}).waitFor();
    await page.waitForTimeout(600);  // a box takes no key until the keyboard was quiet
    await page.keyboard.press(key);
}

/** Makes a stay the only one that a scheme pays for, up to a moment: the others open without a word. */
function limit({consultID}, until) {
    house.host.execute("update hAdmission set clientCat='PRIVATE', Comment=null where isdischarged=0");
    house.host.execute(`update hAdmission set clientCat='HMO', ExtendAdmissionLimitTo='${until}' where consultID='${consultID}'`);
}

/** Two stays of the wards; what was dispensed to the first is not charted yet. */
function twoStays() {
    const [stay, other] = sql("select top 2 a.consultID, a.PNo, p.psurname + ' ' + p.pfirstName as name from hAdmission a " +
                              "inner join hPatients p on p.PNo = a.PNo where a.isdischarged=0 order by a.consultID desc");
    const {consultID, PNo} = stay;
    for (const table of ["hMedChartMonitor", "hMedChartForNurse", "hconsultingDetails"])
        house.host.execute(`delete from ${table} where consultID='${consultID}'`);
    house.host.execute("insert into hconsultingDetails (consultID, conID, PNo, dtDate, dtTime, drgName, drgCatName, Qty, usage) " +
                       `select '${consultID}', max(ID), '${PNo}', '2026-11-24', '09:00', 'PARACETAMOL', 'TABLETS', 12, '2 TABS 3 TIMES DAILY' from hConsulting`);
    return {stay, other};
}

for (const [size, viewport] of [["desktop", {width: 1366, height: 768}], ["tablet", {width: 820, height: 1180}]]) {
    test(`a chart is barred, loaded, ticked, discontinued and printed on a ${size}`, async (context) => {
        const {stay, other} = twoStays();
        const page = await openPage(house, {viewport});
        context.after(() => picture(page, `records-last-${size}`));
        await signIn(page);
        const chart = new Screen(page, "frmMedChart");
        await openFromMenu(page, "mnuMC");
        limit(other, "2026-01-01");
        await walkTo(chart, "lstPat", other.consultID);
        await boxSays(page, "Call the FrontDesk Officer for Extension");
        await chart.part("LstDate").filter({hasText: "No drug to give"}).waitFor();
        limit(stay, "2099-01-01");
        await walkTo(chart, "lstPat", stay.consultID);
        await boxSays(page, "hrs to Stay in Admission");
        await chart.press("cmdPat");
        await boxSays(page, "Patient Chart Added Successfully");
        await boxSays(page, "hrs to Stay in Admission");
        await walkTo(chart, "LstDate", "PARACETAMOL");
        await chart.part("lblDrug").filter({hasText: "PARACETAMOL"}).waitFor();
        assert.equal(await page.locator(".v-dose:visible").count(), 12);
        await page.locator(".v-dose:enabled").first().focus();
        for (const key of [" ", "ArrowRight", " ", "ArrowRight", " "]) await page.keyboard.press(key);
        await chart.part("lblCNum").filter({hasText: "3"}).waitFor();
        await picture(page, `records-chart-${size}`);
        await page.keyboard.press("Alt+s");
        await answer(page, "Are you sure to Save Record", "Alt+y");
        await boxSays(page, "Record Succesfully saved");
        assert.deepEqual(sql(`select numtaken from hMedChartForNurse where consultID='${stay.consultID}'`), [{numtaken: 3}]);
        await walkTo(chart, "LstDate", "PARACETAMOL");
        await page.locator("[data-dose=given]").nth(2).waitFor();
        await list(chart, "LstDate").focus();
        await page.keyboard.press("Enter");
        await answer(page, "Are you sure to Discontinue PARACETAMOL", "Alt+y");
        await box(page).filter({hasText: "Give Reason"}).waitFor();
        await page.waitForTimeout(600);
        await page.keyboard.type("PATIENT VOMITS");
        await page.keyboard.press("Enter");
        await chart.part("LstDate").filter({hasText: "No drug to give"}).waitFor();
        house.host.execute("insert into UserRoles (Username, RoleID) " +
                           `select '${nurse.user}', RoleID from Roles where LoginRole='MANAGEMENT' and not exists ` +
                           `(select * from UserRoles u where u.Username='${nurse.user}' and u.RoleID=Roles.RoleID)`);
        await chart.press("cmdDisp");
        const gone = new Screen(page, "frmMedChartDisc");
        await gone.part("grdData", "tbody").filter({hasText: "PARACETAMOL"}).waitFor();
        await picture(page, `records-discontinued-${size}`);
        await gone.press("cmdDisp");
        await answer(page, "Are you sure to Recall PARACETAMOL", "Alt+y");
        await box(page).filter({hasText: "Give Reason to Recall"}).waitFor();
        await page.waitForTimeout(600);
        await page.keyboard.type("DOCTOR SAYS SO");
        await page.keyboard.press("Enter");
        await list(chart, "LstDate").locator("[role=option]").filter({hasText: "PARACETAMOL"}).waitFor();
        await printedHistory(page, stay, size);
        assert.deepEqual(page.problems, []);
    });
}

async function printedHistory(page, stay, size) {
    await openFromMenu(page, "mnuConHistQ");
    const patients = new Screen(page, "frmPatList");
    await patients.part("chkAdmit", "input").focus();
    await page.keyboard.press(" ");
    await patients.has("cboVehNo");
    await page.keyboard.type(stay.name.slice(0, -2).toLowerCase(), {delay: 20});
    await page.waitForFunction((name) => document.activeElement.value?.startsWith(name), stay.name.toUpperCase().slice(0, 3)).catch(() => {});
    await page.keyboard.press("Enter");
    await patients.press("cmdAdmHist");
    const history = new Screen(page, "frmMedChartHistory");
    await history.field("cboCust").focus();
    await page.keyboard.type(stay.consultID);
    await page.keyboard.press("Enter");
    await history.pick("cboDrug", "(ALL)");
    await picture(page, `records-history-${size}`);
    const opened = page.context().waitForEvent("page");
    await history.press("cmdDisplay");
    const report = await opened;
    await report.getByText("Med Chart History for").first().waitFor();
    await report.close();
}

test("a consultation is found, read, searched, and its image enlarged", async () => {
    const [image] = sql("select top 1 x.PNo, p.psurname + ' ' + p.pfirstName as name from hPix x inner join hPatients p on p.PNo = x.PNo " +
                        "where exists (select * from hConsulting n where n.PNo = x.PNo)");
    const page = await atWork(house);
    await openFromMenu(page, "mnuConHistQ");
    const patients = new Screen(page, "frmPatList");
    await patients.part("chkAll", "input").focus();
    await page.keyboard.press(" ");
    await patients.has("cboVehNo");
    await page.keyboard.type(image.name.toLowerCase(), {delay: 20});
    // The first entry that starts so stands behind what was typed, selected; Enter takes the one with this number.
    await page.waitForFunction(() => document.activeElement.selectionEnd > document.activeElement.selectionStart);
    await page.keyboard.type(` [${image.PNo}`);
    await page.keyboard.press("Enter");
    await patients.press("OKButton");
    const info = new Screen(page, "frmConsultInfo");
    await list(info, "LstDate").locator("[role=option]").first().waitFor();
    await list(info, "LstDate").focus();
    await page.keyboard.press("ArrowDown");
    const diagnosis = info.part("txtDiag", ".v-reads");
    await diagnosis.waitFor();
    const word = (await diagnosis.textContent()).split(/\W+/)[0];
    await page.getByLabel("Find in the texts").fill(word.toLowerCase());
    await page.locator(".v-find .v-count").filter({hasText: /^1 of /}).waitFor();
    await picture(page, "records-consultation");
    // What holds something stands open and first, the rest folded behind it.
    const sheets = await page.locator("[data-screen=frmConsultInfo] .v-sheet").evaluateAll((all) => all.map((sheet) => sheet.open));
    assert.deepEqual(sheets, sheets.toSorted((one, other) => other - one));
    await list(info, "lstDate2").focus();
    await page.keyboard.press("ArrowDown");
    await info.part("imgPix", "img").waitFor();
    await info.part("imgPix", "[role=button]").focus();
    await page.keyboard.press("Enter");
    const viewer = new Screen(page, "frmSuperPicture");
    await viewer.part("SuperPic", "img").waitFor();
    const width = () => viewer.part("SuperPic", "img").evaluate((one) => one.getBoundingClientRect().width);
    const before = await width();
    await viewer.part("SuperPic", ".v-viewer-frame").focus();
    for (let times = 0; times < 3; times += 1) await page.keyboard.press("+");
    await list(viewer, "lstEvents").filter({hasText: "ZoomChanged(130)"}).waitFor();
    assert.ok(await width() > before * 1.25);
    await picture(page, "records-image");
    assert.deepEqual(page.problems, []);
});

test("a long form is one way for the Tab key, and marks its pages", async () => {
    const page = await atWork(house);
    await openByName(page, "frmSurgery");
    const surgery = new Screen(page, "frmSurgery");
    await surgery.press("cmdAdd");
    await surgery.has("cboVehNo");
    await surgery.field("txtFields(27)").focus();  // the last of the first page
    await page.keyboard.type("dr ojo");
    await page.keyboard.press("Tab");
    await surgery.has("txtFields(7)");
    await page.keyboard.press("Shift+Tab");
    await surgery.has("txtFields(27)");
    const marked = await page.locator("[data-screen=frmSurgery] .v-tab.v-filled").allTextContents();
    assert.deepEqual(marked, ["Operation"]);
    assert.deepEqual(page.problems, []);
});
