import assert from "node:assert/strict";
import {readFileSync} from "node:fs";
import {createRequire} from "node:module";
import test from "node:test";

import {openByName} from "./support/screen.mjs";
import {atWork, box, openPage, turnTo, useHost} from "./support/work.mjs";

const house = useHost({VOREL_REGISTRATION_DESK_IN_MENU: "true"});
const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");

/** What axe-core finds on a page, in words. */
async function faultsOf(page, where) {
    await page.evaluate(axe);
    const {violations} = await page.evaluate(() => globalThis.axe.run());
    return violations.flatMap(({id, nodes}) => nodes.map((node) => `${where}: ${id}: ${node.html.slice(0, 160)} (${node.failureSummary?.split("\n")[1]?.trim()})`));
}

const open = async (page, entry, screen) => {
    await page.locator(`.v-menu [data-name=${entry}]`).click();
    await page.locator(`.v-pane.v-active [data-screen=${screen}]`).waitFor();
};
const plainScreens = ["frmDischargeListOverdue", "frmRecover", "frmhPreConsultChart", "frmFlash", "frmFlashExpire", "frmComments",
                      "frmCommentsView", "frmReminder", "frmRests", "frmMedChart", "frmMedChartDisc", "frmMedChartComment",
                      "frmMedChartHistory", "frmNursingHist", "frmDocNotes", "frmSurgery", "frmViewLocal", "frmPatList",
                      "frmConsultInfo", "frmSuperPicture", "frmBillService", "frmDrugPrice", "frmStockItems", "frmDrugPriceHMO",
                      "frmLabPriceHMO", "frmServPriceHMO", "frmNurseInjection", "frmInjAndDress", "frmInjectionEntryForAdm",
                      "frmNurseDressing", "frmImmune"];
const button = (page, name) => page.locator(`.v-pane.v-active [data-control$=".${name}"] button`);

for (const colorScheme of ["light", "dark"]) {
    test(`axe finds nothing on the sign-in page and on any screen, ${colorScheme}`, async () => {
        const signIn = await openPage(house, {colorScheme});
        await signIn.goto("/sign-in");
        const faults = await faultsOf(signIn, "sign-in");
        await signIn.context().close();
        const page = await atWork(house, {colorScheme});
        for (const caption of ["Grid", "Lists", "Order", "Trend"]) {
            await turnTo(page, caption);
            faults.push(...await faultsOf(page, `samples, ${caption}`));
        }
        for (const [entry, screen] of [["mnuVitSigns", "frmPreConsult"], ["mnuPatAttnd", "frmRecords"], ["mnuPatReg", "frmPatientsNew"],
                                       ["mnuRegis", "frmPatientsNewNur"], ["mnuSI", "frmWards"], ["mnuGPFA", "frmReferalEdit"],
                                       ["mnuSIss", "frmAdmission"], ["mnuDTC", "frmPreConsultAdm"], ["mnuFC", "frmFluidChart"],
                                       ["mnuAllergy", "frmAllergy"], ["mnuDSAR", "frmDischargeForNuse"], ["mnuNNote", "frmNurseNote"],
                                       ["mnuNDR", "frmNurseDaily"]]) {
            await open(page, entry, screen);
            faults.push(...await faultsOf(page, screen));
            await button(page, "cmdAdd").click();
            await button(page, "OKButton").click();
            await box(page).waitFor();
            faults.push(...await faultsOf(page, `${screen}, a box`));
            await page.keyboard.press("Enter");
            await box(page).waitFor({state: "hidden"});
            faults.push(...await faultsOf(page, `${screen}, refused`));
        }
        for (const screen of plainScreens) {
            await openByName(page, screen);
            faults.push(...await faultsOf(page, screen));
        }
        await page.keyboard.press("F1");
        faults.push(...await faultsOf(page, "help"));
        assert.deepEqual(faults, []);
        assert.deepEqual(page.problems, []);
        await page.context().close();
    });
}
