// What out-patients are given, by the keyboard: an injection to its last dose, a child's immunization.

import assert from "node:assert/strict";
import test from "node:test";

import {Screen, boxSays, openByName, openFromMenu, yes} from "./support/screen.mjs";
import {atWork, picture, useHost} from "./support/work.mjs";

const house = useHost();
const sql = (text) => house.host.query(text);

test("those who wait for injections are worked one after the other, to the last dose", async () => {
    const [{ID, consultID, injname}] = sql("select top 1 ID, consultID, injname from hInjAndDressing where attendedto=0 order by ID desc");
    house.host.execute(`update hInjAndDressing set attendedto=1 where ID<>${ID}`);
    house.host.execute(`update hInjAndDressing set numOfTimes=3, numtaken=1 where ID=${ID}`);
    const page = await atWork(house);
    await openFromMenu(page, "mnuInj");
    const chart = new Screen(page, "frmNurseInjection");
    await chart.part("lstWaiting", "[role=option]").waitFor();
    await page.keyboard.press("Alt+x");
    await chart.part("LstDate", "[role=option]").filter({hasText: injname}).waitFor();
    await chart.part("LstDate", "[role=listbox]").focus();
    await page.keyboard.press("Home");
    await chart.part("lblName").filter({hasText: injname}).waitFor();
    assert.equal(await page.locator(".v-dose:visible").count(), 3);
    await page.locator(".v-dose:enabled").first().focus();
    for (const key of [" ", "ArrowRight", " "]) await page.keyboard.press(key);
    await chart.part("lblTaken").filter({hasText: "3"}).waitFor();
    await picture(page, "charges-injection");
    await page.keyboard.press("Alt+s");
    await boxSays(page, "Record Succesfully saved");
    await chart.part("lstWaiting").filter({hasText: "Nobody waits"}).waitFor();
    assert.deepEqual(sql(`select numtaken, attendedto from hInjAndDressing where ID=${ID}`), [{numtaken: 3, attendedto: 1}]);
    assert.equal(sql(`select * from billAccum where consultID='${consultID}' and drgName='INJECTION_FEE'`).length, 1);
    assert.deepEqual(page.problems, []);
});

test("a prescription comes to the chart, and the wards' treatment to the bill", async () => {
    const page = await atWork(house);
    await openByName(page, "frmInjAndDress");
    const adding = new Screen(page, "frmInjAndDress");
    await adding.press("cmdNext");
    await adding.part("txtDosage", ".v-reads").waitFor();
    await adding.pick("cboCat", "INJECTIONS");
    await adding.pick("cboDrug", "CEFTRIAXONE INJ 1G");
    await adding.type("txtNum", "5");
    await adding.type("txtUsage", "1G DAILY");
    await page.keyboard.press("Enter");
    await adding.part("OrderGrid", "tbody tr[data-row]").filter({hasText: "1G DAILY"}).waitFor();
    await picture(page, "charges-adding");
    await saveLines(page);
    assert.equal(sql("select * from hMedChartMonitor where dosage='1G DAILY' and numOfTimes=5").length +
                 sql("select * from hInjAndDressing where dosage='1G DAILY' and numOfTimes=5").length, 1);
    house.host.execute("delete from hServiceNHIS where drgName='BURNS DRESSING'");
    await openByName(page, "frmInjectionEntryForAdm");
    const treatment = new Screen(page, "frmInjectionEntryForAdm");
    await treatment.press("cmdNext");
    await treatment.pick("cboCat", "DRESSING");
    await treatment.field("cboDrug").focus();
    await page.keyboard.type("burns");
    await page.keyboard.press("Enter");
    await boxSays(page, "Price Template for this HMO/Company Yet to be Created!");
    await boxSays(page, "No price for this Item Please confirm");
    await treatment.part("lblSource").filter({hasText: "No tariff"}).waitFor();
    await treatment.type("txtPrice", "2,500.50");
    await treatment.type("txtQty", "2");
    await picture(page, "charges-treatment");
    await treatment.press("cmdAdd");
    await treatment.part("lblTotal").filter({hasText: "5,001.00"}).waitFor();
    await saveLines(page);
    assert.deepEqual(sql("select Price, Qty, SubTotal from billAccum where drgName='BURNS DRESSING' and billType='MEDICATION' and SubTotal=5001"),
                     [{Price: 2500.5, Qty: 2, SubTotal: 5001}]);
    assert.deepEqual(page.problems, []);
});

async function saveLines(page) {
    await page.keyboard.press("Alt+s");
    await yes(page);
    await boxSays(page, "Record Succesfully saved");
}

test("a child is immunized, with the next appointment, its referral and its message", async () => {
    const page = await atWork(house);
    await openFromMenu(page, "mnuImmune");
    const visit = new Screen(page, "frmImmune");
    await visit.part("lstWaiting", "[role=option]").waitFor();
    await visit.press("cmdNext");
    await visit.part("grdSchedule", "tbody tr[data-row]").waitFor();
    const consultID = /\[(\w+)\]$/.exec(await visit.field("cboVehNo").inputValue())[1];
    await visit.field("cboAge").focus();
    await page.keyboard.type("6 WKS");
    await page.keyboard.press("Tab");
    const [{drgName}] = sql("select top 1 drgName from DrugMaster where DrgCatName='VACCINES' order by drgName");
    await visit.pick("cboDrug", drgName);
    await visit.type("txtPrice", "1500");
    await visit.press("cmdAddToGrid");
    await visit.part("OrderGrid", "tbody tr[data-row]").filter({hasText: drgName}).waitFor();
    await visit.part("chkRef", "input").focus();
    await page.keyboard.press(" ");
    await visit.field("dtNext").fill("2030-01-15");
    await visit.type("txtImm", "PENTA 2");
    await picture(page, "charges-immunization");
    await page.keyboard.press("Alt+s");
    await boxSays(page, "Record Succesfully saved");
    await visit.part("grdData", "tbody").filter({hasText: drgName}).waitFor();
    assert.deepEqual(sql(`select IMMUNIZATION, ImmType from hImmunization where consultID='${consultID}'`), [{IMMUNIZATION: drgName, ImmType: "PENTA 2"}]);
    assert.equal(sql(`select * from hAppointment where consultID='${consultID}' and ClinicType='IMMUNIZATION'`).length, 1);
    assert.equal(sql(`select * from hReferal where consultID='${consultID}' and referTo='IMMUNIZATION'`).length, 1);
    assert.ok(house.host.query("select * from MessageOut where Message like '%15-Jan-2030%'", "SmsCenter").length > 0);
    assert.deepEqual(page.problems, []);
});
