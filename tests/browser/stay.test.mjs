// A stay from the referral to the recall, by the keyboard alone: what the ward's nurses, the doctor's desk and the alert
// buttons make of one patient.

import assert from "node:assert/strict";
import test from "node:test";

import {Screen, boxSays, openByName, openFromMenu, yes} from "./support/screen.mjs";
import {atWork, box, openPage, picture, signIn, useHost} from "./support/work.mjs";

const house = useHost();

/** Says yes to a question, once the box takes keys. */
async function answer(page, question) {
    await box(page).filter({hasText: question}).waitFor();
    await page.keyboard.press("Alt+y");
    await box(page).filter({hasText: question}).waitFor({state: "hidden"});
}

/** Types a part of a name into a list, and takes the entry that is left. */
async function find(screen, control, text) {
    await screen.field(control).focus();
    await screen.page.keyboard.type(text);
    await screen.page.keyboard.press("Enter");
}

/** A patient who was consulted today and whom nobody has referred, in a scheme with a limit of 24 hours. */
function consulted(host, number) {
    const found = host.query("select distinct top 20 c.consultID, c.PNo, p.psurname + ' ' + p.pfirstName as name from hConsulting c " +
                             "inner join hPatients p on p.PNo = c.PNo where c.CDate = cast(getdate() as date) " +
                             "and c.consultID not in (select consultID from hreferal) and c.PNo not in (select PNo from hAdmission)");
    const patient = found[number];
    host.execute(`update hConsulting set clientCat='HMO' where consultID='${patient.consultID}'`);
    for (const table of ["hPreConsult", "hPreConsultChart"]) host.execute(`delete from ${table} where consultID='${patient.consultID}'`);
    host.execute(`update hPatients set AdmissionDaysLimit=24 where PNo='${patient.PNo}'`);
    host.execute("update AppDefaults set idval='YES' where ID='Admission_Limit_Exists'");
    return patient;
}

for (const [number, size, viewport] of [[0, "desktop", {width: 1366, height: 768}], [1, "tablet", {width: 820, height: 1180}]]) {
    test(`refer, admit, observe, chart, extend, discharge and recall on a ${size}`, async (context) => {
        const patient = consulted(house.host, number);
        const page = await openPage(house, {viewport});
        context.after(() => picture(page, `stay-last-${size}`));
        await signIn(page);

        const referral = new Screen(page, "frmReferalEdit");
        await openFromMenu(page, "mnuGPFA");
        await referral.press("cmdAdd");
        await referral.has("cboVehNo");
        await find(referral, "cboVehNo", patient.consultID);
        await referral.part("lblNo").filter({hasText: patient.PNo}).waitFor();
        const today = new Date().toISOString().slice(0, 10);
        await referral.field("dtNext").fill(today);
        await referral.field("dtTime").fill("14:00");
        await referral.press("OKButton");
        await boxSays(page, "Please specify Reason for Referal");
        await referral.has("txtREason");
        await page.keyboard.type("Severe malaria");
        await picture(page, `stay-referral-${size}`);
        await referral.press("OKButton");
        await answer(page, "Are you sure to save?");
        await boxSays(page, "Record Succesfully saved");

        const admission = new Screen(page, "frmAdmission");
        await openFromMenu(page, "mnuSIss");
        await admission.press("cmdAdd");
        await admission.has("cboVehNo");
        await find(admission, "cboVehNo", patient.consultID);
        await admission.part("lblRules").filter({hasText: "24 hours from the admission."}).waitFor();
        await find(admission, "cboWard", "FEMALE WARD");
        await picture(page, `stay-admission-${size}`);
        await admission.press("OKButton");
        await yes(page);
        await boxSays(page, "Record Succesfully saved");

        const chart = new Screen(page, "frmPreConsultAdm");
        await openFromMenu(page, "mnuDTC");
        await chart.part("LstDate", "[role=listbox]").focus();
        for (const character of patient.name) await page.keyboard.press(character);
        await chart.part("lblBill").filter({hasText: patient.consultID}).waitFor();
        for (const [temp, systolic] of [["38.4", "150"], ["", "142"], ["37.1", "128"]]) {
            await page.keyboard.press("Alt+a");
            await chart.has("txtTemp");
            await page.keyboard.type(temp);
            await page.keyboard.press("Tab");
            await page.keyboard.type(`${systolic}/90`);
            await page.keyboard.press("Alt+s");
            await yes(page);
            await boxSays(page, "Record Succesfully saved");
            await chart.has("LstDate");
        }
        assert.equal(await chart.part("grdData", "tbody").locator("tr[data-row]").count(), 3);
        await picture(page, `stay-observations-${size}`);
        await trends(page, chart, size);

        const fluids = new Screen(page, "frmFluidChart");
        await openFromMenu(page, "mnuFC");
        await find(fluids, "cboVehNo", patient.consultID);
        await fluids.part("lblBill").filter({hasText: patient.consultID}).waitFor();
        await page.keyboard.press("Alt+a");
        await fluids.has("cboTime");
        await find(fluids, "cboTime", "12 NOON");
        await find(fluids, "cboIntake", "IV");
        await fluids.type("txtInVol", "500");
        await fluids.press("OKButton");
        await yes(page);
        await boxSays(page, "Record Succesfully saved");
        await fluids.part("lblIntVol").filter({hasText: "500.00"}).waitFor();
        await picture(page, `stay-fluids-${size}`);

        // The limit passes: it is moved, rather than everybody's clock.
        house.host.execute(`update hAdmission set ExtendAdmissionLimitTo='${today} 00:01' where consultID='${patient.consultID}'`);
        const expired = new Screen(page, "frmFlashExpire");
        await page.getByRole("button", {name: "Expired Admission"}).focus();
        await page.keyboard.press("Enter");
        const row = expired.part("dGexp", "tbody").locator("tr[data-row]").filter({hasText: patient.consultID});
        await row.waitFor();
        await expired.part("dGexp", "tbody tr[data-row]").focus();
        for (let down = Number(await row.getAttribute("data-row")); down > 0; down -= 1) await page.keyboard.press("ArrowDown");
        await page.keyboard.press("Enter");
        await expired.part("lblCon").filter({hasText: patient.consultID}).waitFor();
        await expired.has("txtLimit");
        await page.keyboard.type("72");
        await picture(page, `stay-expired-${size}`);
        await expired.press("cmdUpdate");
        await answer(page, "Are you sure to Extend Stay in Admission of");
        await boxSays(page, "Stay in Admission Succefully Extended!");
        await row.waitFor({state: "detached"});
        await page.keyboard.press("Escape");
        await page.locator("[data-screen=frmFlashExpire]").waitFor({state: "detached"});

        // The doctor's half is written at his own desk.
        const doctor = house.host.drive(
            {start: true}, {show: "frmDischarge"}, {fire: "frmDischarge.cmdAdd"},
            {set: "frmDischarge.cboVehNo", to: `${patient.name} [${patient.consultID}]`}, {get: "frmDischarge.cboCat"});
        const entry = doctor.at(-1).state.items[1].text;
        house.host.drive(
            {start: true}, {show: "frmDischarge"}, {fire: "frmDischarge.cmdAdd"},
            {set: "frmDischarge.cboVehNo", to: `${patient.name} [${patient.consultID}]`}, {set: "frmDischarge.cboCat", to: entry},
            {set: "frmDischarge.dtAppt", to: "2027-01-08"}, {fire: "frmDischarge.OKButton"}, {answer: "yes"});
        assert.equal(house.host.query(`select count(*) as n from hdischarge where consultID='${patient.consultID}'`)[0].n, 1);

        const discharge = new Screen(page, "frmDischargeForNuse");
        await openFromMenu(page, "mnuDSAR");
        await discharge.press("cmdAdd");
        await discharge.has("dtDate");
        await discharge.field("dtDate").fill(today);
        await find(discharge, "cboVehNo", patient.consultID);
        await discharge.part("lblBill").filter({hasText: patient.consultID}).waitFor();
        await discharge.part("txtREason", "textarea").focus();
        await page.keyboard.type("Well");
        await picture(page, `stay-discharge-${size}`);
        await discharge.press("OKButton");
        await answer(page, "Are you sure to Discharge this Patient");
        await boxSays(page, "Record Succesfully saved");
        await discharge.part("grdData", "tbody").filter({hasText: patient.consultID}).waitFor();

        const recall = new Screen(page, "frmRecover");
        await openFromMenu(page, "mnuRecover");
        await recall.press("cmdPat");
        await recall.has("cboVehNo");
        await find(recall, "cboVehNo", patient.consultID);
        await recall.press("cmdRecall");
        await answer(page, "Are you sure to Recall Patient");
        await boxSays(page, "Patient Info Successfully recalled");
        const [stay] = house.host.query(`select isdischarged from hAdmission where consultID='${patient.consultID}'`);
        assert.equal(stay.isdischarged, false);
        assert.deepEqual(page.problems, []);
    });
}

/** The pressure's trend has a point an observation; the temperature's has a gap. Arrow keys walk and speak them. */
async function trends(page, chart, size) {
    await chart.press("cmdBP");
    const pressure = new Screen(page, "frmhPreConsultChart");
    await pressure.has("chart");
    const spoken = pressure.part("chart", ".v-chart [role=status]");
    await page.keyboard.press("End");
    await spoken.filter({hasText: "3 of 3: Systolic 128, Diastolic 90"}).waitFor();
    await page.keyboard.press("ArrowLeft");
    await spoken.filter({hasText: "2 of 3: Systolic 142, Diastolic 90"}).waitFor();
    await picture(page, `stay-trend-${size}`);
    await page.keyboard.press("Escape");
    await page.locator("[data-screen=frmhPreConsultChart]").waitFor({state: "detached"});
    await chart.press("cmdTemp");
    const temperature = new Screen(page, "frmhPreConsultChartTemp");
    await temperature.has("chart");
    await page.keyboard.press("Home");
    await page.keyboard.press("ArrowRight");
    await temperature.part("chart", ".v-chart [role=status]").filter({hasText: "2 of 3: Temperature not taken"}).waitFor();
    const figures = await temperature.part("chart", "table tbody").locator("td").allTextContents();
    assert.deepEqual(figures, ["38.4", "", "37.1"]);
    await page.keyboard.press("Escape");
    await page.locator("[data-screen=frmhPreConsultChartTemp]").waitFor({state: "detached"});
}

test("a pick of which only the banner tells shows there", async () => {
    const page = await atWork(house);
    await openByName(page, "frmFlashExpire");
    const expired = new Screen(page, "frmFlashExpire");
    const row = expired.part("dGexp", "tbody tr[data-row]");
    await row.focus();
    await page.keyboard.press("Enter");
    const number = await row.locator("td").first().textContent();
    await page.locator("[data-screen=frmFlashExpire] .v-banner").filter({hasText: number}).waitFor();
    assert.deepEqual(page.problems, []);
});
