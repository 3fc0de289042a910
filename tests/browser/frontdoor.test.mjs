// The first steps of a stay, as the desk and the nurse take them with the keyboard alone: a patient is registered with a
// photograph, found again, attends, and has the vital signs taken.

import assert from "node:assert/strict";
import test from "node:test";

import {box, openPage, picture, signIn, useHost} from "./support/work.mjs";

const house = useHost({VOREL_REGISTRATION_DESK_IN_MENU: "true"});

/** The smallest JPEG: one grey pixel. */
const photograph = Buffer.from(
    "/9j/4AAQSkZJRgABAQEASABIAAD/2wBDAAMCAgICAgMCAgIDAwMDBAYEBAQEBAgGBgUGCQgKCgkICQkKDA8MCgsOCwkJDRENDg8QEBEQCgwSExIQEw8QEBD/yQALCAABAAEBAREA/8wABgAQEAX/2gAIAQEAAD8A0s8g/9k=",
    "base64");

const field = (page, screen, name, part = "input") => page.locator(`[data-control="${screen}.${name}"] ${part}`).first();

/** Goes to a control as a keyboard does when its label is known, types, and leaves with Tab. */
async function type(page, screen, name, text) {
    await field(page, screen, name).focus();
    await page.keyboard.press("Control+A");
    await page.keyboard.type(text);
    await page.keyboard.press("Tab");
}

async function pick(page, screen, name, text) {
    await field(page, screen, name).focus();
    await page.keyboard.press("Control+A");
    await page.keyboard.type(text);
    await page.keyboard.press("Enter");
}

const press = async (page, screen, name) => {
    await field(page, screen, name, "button").focus();
    await page.keyboard.press("Enter");
};

async function boxSays(page, text) {
    await box(page).filter({hasText: text}).waitFor();
    await page.keyboard.press("Enter");
    await box(page).waitFor({state: "hidden"});
}

async function yes(page) {
    const question = box(page).filter({hasText: "Are you sure to save"});
    await question.waitFor();
    await page.keyboard.press("Alt+y");
    await question.waitFor({state: "hidden"});
}

/** Opens a screen from the menu, which a tablet keeps behind a button. */
async function openFromMenu(page, entry) {
    const item = page.locator(`.v-menu [data-name=${entry}]`);
    await item.waitFor({state: "attached"});
    const button = page.getByRole("button", {name: "☰ Menu"});
    if (await button.isVisible()) {
        await button.focus();
        await page.keyboard.press("Enter");
    }
    await item.waitFor();
    await item.focus();
    await page.keyboard.press("Enter");
}

for (const [size, viewport] of [["desktop", {width: 1366, height: 768}], ["tablet", {width: 820, height: 1180}]]) {
    test(`register, find, attend and take vital signs on a ${size}`, async (context) => {
        const page = await openPage(house, {viewport});
        context.after(() => picture(page, `frontdoor-last-${size}`));
        await signIn(page);
        const surname = size === "desktop" ? "OLAYIWOLA" : "ONUKWUGHA";
        const screen = "frmPatientsNew";

        await openFromMenu(page, "mnuPatReg");
        await press(page, screen, "cmdAdd");
        await pick(page, screen, "cboNew", "NEW");
        await pick(page, screen, "cboTitle", "MRS");
        await type(page, screen, "txtsurNAme", surname.toLowerCase());
        await type(page, screen, "txtfirstNAme", "ayo");
        await pick(page, screen, "txtSex", "FEMALE");
        await pick(page, screen, "cboPat", "(PRIVATE) [0001]");
        await pick(page, screen, "cboArea", "Ikeja");
        await press(page, screen, "OKButton");
        await boxSays(page, "Patient Maturity  Cannot be Blank");
        await page.waitForFunction(() => document.activeElement.closest("[data-control]")?.dataset.control === "frmPatientsNew.cboMat");
        await pick(page, screen, "cboMat", "ADULT");
        await type(page, screen, "txtPhone", "08031234567");
        await type(page, screen, "txtKin", "Tunde");
        await type(page, screen, "txtNOKPhone", "08090000000");
        await press(page, screen, "cmdPix");
        await box(page).locator("input[type=file]").setInputFiles({name: "face.jpg", mimeType: "image/jpeg", buffer: photograph});
        await box(page).getByRole("button", {name: "OK"}).focus();
        await page.keyboard.press("Enter");
        await page.locator(`[data-control="${screen}.imgPix"] img`).waitFor();
        await picture(page, `frontdoor-register-${size}`);
        await press(page, screen, "OKButton");
        await yes(page);
        await boxSays(page, "Record Succesfully saved");

        await type(page, screen, "txtName", surname.slice(1, 7));
        await page.locator(`[data-control="${screen}.lblFound"]`).filter({hasText: "1 Records Found"}).waitFor();
        await page.locator(`[data-control="${screen}.grdData"] tbody`).filter({hasText: surname}).waitFor();
        await picture(page, `frontdoor-found-${size}`);

        const desk = "frmRecords";
        await openFromMenu(page, "mnuPatAttnd");
        await press(page, desk, "cmdAdd");
        await type(page, desk, "txtName", surname);
        await press(page, desk, "cmdOK");
        await page.locator(`[data-control="${desk}.grdData"] tbody`).filter({hasText: surname}).waitFor();
        await field(page, desk, "grdData", "tbody tr[data-row]").focus();
        await page.keyboard.press("Enter");
        await page.waitForFunction((path) => document.querySelector(`[data-control="${path}"] input`)?.value.length > 3, `${desk}.cboVehNo`);
        await pick(page, desk, "cboType", "(GENERAL)");
        await pick(page, desk, "cboPurpose", "(CONSULTATION)");
        await picture(page, `frontdoor-attend-${size}`);
        await press(page, desk, "OKButton");
        await yes(page);
        await boxSays(page, "Record Succesfully saved");

        const station = "frmPreConsult";
        await openFromMenu(page, "mnuVitSigns");
        await press(page, station, "cmdAdd");
        await field(page, station, "cboVehNo").focus();
        await page.keyboard.type(surname);
        await page.keyboard.press("Enter");
        await page.locator(`[data-control="${station}.lblBill"]`).filter({hasText: /001\d{9}/}).waitFor();
        for (const [name, text] of [["txtPressure", "120"], ["txtPressure2", "80"], ["txtPause", "72"], ["txtResp", "18"],
                                    ["txtHt", "1.70"], ["txtWt", "68"]])
            await type(page, station, name, text);
        await field(page, station, "CboRef").focus();
        await page.keyboard.type("NWOSU");
        await page.keyboard.press("Enter");
        await press(page, station, "OKButton");
        await boxSays(page, "please specify Temp of Patient");
        await page.waitForFunction(() => document.activeElement.closest("[data-control]")?.dataset.control === "frmPreConsult.txtTemp");
        await page.keyboard.type("36.8");
        await page.keyboard.press("Tab");
        const letGo = await house.host.holdWrites();
        await press(page, station, "OKButton");
        await yes(page);
        await field(page, station, "OKButton", "button").filter({hasText: "Saving ..."}).waitFor();
        assert.equal(await field(page, station, "OKButton", "button").isDisabled(), true);
        await picture(page, `frontdoor-saving-${size}`);
        await letGo();
        await boxSays(page, "Record Succesfully saved");
        await page.locator(`[data-control="${station}.grdDoc"] tbody`).filter({hasText: "NWOSU"}).waitFor();
        await page.locator(`[data-control="${station}.grdData"] tbody`).filter({hasText: surname}).waitFor();
        await picture(page, `frontdoor-vitals-${size}`);
        assert.deepEqual(page.problems, []);
    });
}
