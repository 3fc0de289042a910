// A bill by the keyboard: a drug that no template of the patient's client has, a typed price, a line taken back, the save;
// and a private patient's service.

import assert from "node:assert/strict";
import test from "node:test";

import {Screen, boxSays, openByName} from "./support/screen.mjs";
import {atWork, box, picture, useHost} from "./support/work.mjs";

const house = useHost();

/** Who lies in the wards, was seen by a doctor, and is of a category. */
const inWards = (category) => house.host.query(
    "select top 1 a.consultID, a.retainID from qryhAdmission a inner join hConsulting c on c.consultID = a.consultID " +
    `where c.clientCat = '${category}' and a.clientCat = '${category}' order by a.Fullname`)[0];

const linesOf = (patient) => house.host.query(
    `select drgName, Price, Qty, SubTotal, Capitated from billAccum where consultID='${patient.consultID}' order by SNO`);

/** Says yes to a question, once the box takes keys. */
async function answer(page, question) {
    await box(page).filter({hasText: question}).waitFor();
    await page.keyboard.press("Alt+y");
    await box(page).filter({hasText: question}).waitFor({state: "hidden"});
}

test("lines of a scheme's and of a private patient are priced, added, taken back and saved", async (context) => {
    const scheme = inWards("HMO");
    const own = inWards("PRIVATE");
    house.host.execute(`delete from DrugNHIS where Company='${scheme.retainID}'`);
    const [{Drug: drug}] = house.host.query(
        "select top 1 t.Drug from vwDrugNHIS t inner join vwDrugsForGrid g on g.Drug = t.Drug where t.coyID = '0001' and t.Price > 0 " +
        `and t.Drug not in (select drgName from billAccum where consultID='${scheme.consultID}') order by t.Drug desc`);
    const before = {scheme: linesOf(scheme).length, own: linesOf(own).length};
    const page = await atWork(house);
    context.after(() => picture(page, "bill-last"));
    await openByName(page, "frmBillService");
    const bill = new Screen(page, "frmBillService");
    const source = (text) => bill.part("lblSource").filter({hasText: text}).waitFor();

    await bill.has("cmdBill");
    await page.keyboard.press("Enter");
    await bill.has("cboVehNo");
    await page.keyboard.type(scheme.consultID);
    await page.keyboard.press("Enter");
    await bill.has("cboReason");
    await bill.pickAt("cboReason", 1);
    await bill.pickAt("cboCat", 1);
    await bill.pick("cboDrug", drug.slice(0, -1));
    await boxSays(page, "Price Template for this HMO/Company Yet to be Created!");
    await bill.has("txtQty");
    await source("Private tariff");
    await bill.type("txtPrice", "1234,5");
    await source("Typed");
    await bill.type("txtQty", "18");
    await bill.field("txtUsage").focus();
    await page.keyboard.type("2 TABS");
    await page.keyboard.press("Enter");
    await bill.part("lblTotal").filter({hasText: "22,221.00"}).waitFor();
    await bill.has("cboDrug");
    await bill.pickAt("cboCat", 3);
    await bill.pick("cboDrug", "SUTURING");
    await bill.has("cboDrug");
    await bill.pickAt("cboCap", 1);
    await bill.type("txtPrice", "2,500");
    await bill.press("cmdAdd");
    await bill.part("lblTotal").filter({hasText: "24,721.00"}).waitFor();
    await picture(page, "bill-lines");

    // The last row is the newest; End goes there, Enter takes it back.
    await bill.part("OrderGridDrug", "tbody tr[data-row]").focus();
    await page.keyboard.press("End");
    await page.keyboard.press("Enter");
    await answer(page, "Are you sure to Delete?");
    await boxSays(page, "Item Removed");
    assert.equal(await bill.part("OrderGridDrug", "tbody").locator("tr.v-marked").count(), 1);
    await bill.press("OKButton");
    await answer(page, "Are you sure to save?");
    await boxSays(page, "Record Succesfully saved");
    await bill.has("cmdBill");
    const line = linesOf(scheme).at(-1);
    assert.deepEqual([line.Price, line.Qty, line.SubTotal], [1234.5, 18, 22221]);
    assert.equal(linesOf(scheme).length, before.scheme + 1);

    await page.keyboard.press("Enter");
    await bill.has("cboVehNo");
    await page.keyboard.type(own.consultID);
    await page.keyboard.press("Enter");
    await boxSays(page, "This is a Private Patient!! Payment Required");
    await bill.pickAt("cboCat", 3);
    await bill.pick("cboDrug", "SUTURING");
    await source("Private tariff");
    await page.setViewportSize({width: 820, height: 1180});
    await picture(page, "bill-tablet");
    await bill.press("cmdAdd");
    await bill.part("OrderGridDrug", "tbody tr.v-marked").waitFor();
    await bill.press("OKButton");
    await answer(page, "Are you sure to save?");
    await boxSays(page, "Record Succesfully saved");
    assert.equal(linesOf(own).length, before.own + 1);
    assert.equal(linesOf(own).at(-1).Capitated, "NO");
    assert.deepEqual(page.problems, []);
});
