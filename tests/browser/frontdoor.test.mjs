// The first steps of a stay, as the desk and the nurse take them with the keyboard alone: a patient is registered with a
// photograph, found again, attends, and has the vital signs taken.

import assert from "node:assert/strict";
import test from "node:test";

import {Screen, boxSays, openFromMenu, yes} from "./support/screen.mjs";
import {box, openPage, picture, signIn, useHost} from "./support/work.mjs";

const house = useHost({VOREL_REGISTRATION_DESK_IN_MENU: "true"});

/** The smallest JPEG: one grey pixel. */
const photograph = Buffer.from(
    "/9j/4AAQSkZJRgABAQEASABIAAD/2wBDAAMCAgICAgMCAgIDAwMDBAYEBAQEBAgGBgUGCQgKCgkICQkKDA8MCgsOCwkJDRENDg8QEBEQCgwSExIQEw8QEBD/yQALCAABAAEBAREA/8wABgAQEAX/2gAIAQEAAD8A0s8g/9k=",
    "base64");

for (const [size, viewport] of [["desktop", {width: 1366, height: 768}], ["tablet", {width: 820, height: 1180}]]) {
    test(`register, find, attend and take vital signs on a ${size}`, async (context) => {
        const page = await openPage(house, {viewport});
        context.after(() => picture(page, `frontdoor-last-${size}`));
        await signIn(page);
        const surname = size === "desktop" ? "OLAYIWOLA" : "ONUKWUGHA";
        const screen = new Screen(page, "frmPatientsNew");

        await openFromMenu(page, "mnuPatReg");
        await screen.press("cmdAdd");
        await screen.pick("cboNew", "NEW");
        await screen.pick("cboTitle", "MRS");
        await screen.type("txtsurNAme", surname.toLowerCase());
        await screen.type("txtfirstNAme", "ayo");
        await screen.pick("txtSex", "FEMALE");
        await screen.pick("cboPat", "(PRIVATE) [0001]");
        await screen.pick("cboArea", "Ikeja");
        await screen.press("OKButton");
        await boxSays(page, "Patient Maturity  Cannot be Blank");
        await screen.has("cboMat");
        await screen.pick("cboMat", "ADULT");
        await screen.type("txtPhone", "08031234567");
        await screen.type("txtKin", "Tunde");
        await screen.type("txtNOKPhone", "08090000000");
        await screen.press("cmdPix");
        await box(page).locator("input[type=file]").setInputFiles({name: "face.jpg", mimeType: "image/jpeg", buffer: photograph});
        await box(page).getByRole("button", {name: "OK"}).focus();
        await page.keyboard.press("Enter");
        await screen.part("imgPix", "img").waitFor();
        await picture(page, `frontdoor-register-${size}`);
        await screen.press("OKButton");
        await yes(page);
        await boxSays(page, "Record Succesfully saved");

        await screen.type("txtName", surname.slice(1, 7));
        await screen.part("lblFound").filter({hasText: "1 Records Found"}).waitFor();
        await screen.part("grdData", "tbody").filter({hasText: surname}).waitFor();
        await picture(page, `frontdoor-found-${size}`);

        const desk = new Screen(page, "frmRecords");
        await openFromMenu(page, "mnuPatAttnd");
        await desk.press("cmdAdd");
        await desk.type("txtName", surname);
        await desk.press("cmdOK");
        await desk.part("grdData", "tbody").filter({hasText: surname}).waitFor();
        await desk.part("grdData", "tbody tr[data-row]").focus();
        await page.keyboard.press("Enter");
        await page.waitForFunction((path) => document.querySelector(`[data-control="${path}"] input`)?.value.length > 3, "frmRecords.cboVehNo");
        await desk.pick("cboType", "(GENERAL)");
        await desk.pick("cboPurpose", "(CONSULTATION)");
        await picture(page, `frontdoor-attend-${size}`);
        await desk.press("OKButton");
        await yes(page);
        await boxSays(page, "Record Succesfully saved");

        const station = new Screen(page, "frmPreConsult");
        await openFromMenu(page, "mnuVitSigns");
        await station.press("cmdAdd");
        await station.field("cboVehNo").focus();
        await page.keyboard.type(surname);
        await page.keyboard.press("Enter");
        await station.part("lblBill").filter({hasText: /001\d{9}/}).waitFor();
        for (const [name, text] of [["txtPressure", "120"], ["txtPressure2", "80"], ["txtPause", "72"], ["txtResp", "18"],
                                    ["txtHt", "1.70"], ["txtWt", "68"]])
            await station.type(name, text);
        await station.field("CboRef").focus();
        await page.keyboard.type("NWOSU");
        await page.keyboard.press("Enter");
        await station.press("OKButton");
        await boxSays(page, "please specify Temp of Patient");
        await station.has("txtTemp");
        await page.keyboard.type("36.8");
        await page.keyboard.press("Tab");
        const letGo = await house.host.holdWrites();
        await station.press("OKButton");
        await yes(page);
        await station.part("OKButton", "button").filter({hasText: "Saving ..."}).waitFor();
        assert.equal(await station.part("OKButton", "button").isDisabled(), true);
        await picture(page, `frontdoor-saving-${size}`);
        await letGo();
        await boxSays(page, "Record Succesfully saved");
        await station.part("grdDoc", "tbody").filter({hasText: "NWOSU"}).waitFor();
        await station.part("grdData", "tbody").filter({hasText: surname}).waitFor();
        await picture(page, `frontdoor-vitals-${size}`);
        assert.deepEqual(page.problems, []);
    });
}
