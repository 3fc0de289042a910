import assert from "node:assert/strict";
import test from "node:test";

import {atWork, box, control, focused, input, says, turnTo, useHost} from "./support/work.mjs";

const house = useHost();

test("a reload brings back the text, the page in front and the keyboard", async () => {
    const page = await atWork(house);
    await turnTo(page, "Lists");
    await input(page, "txtName").fill("Ada Obi");
    await input(page, "txtName").press("ArrowLeft");
    await page.reload();
    await input(page, "txtName").waitFor();
    assert.equal(await input(page, "txtName").inputValue(), "Ada Obi");
    assert.equal(await control(page, "lstBeds").isVisible(), true);
    await page.waitForFunction(() => document.activeElement.closest("[data-control]")?.dataset.control === "frmSamples.txtName");
    assert.equal(await input(page, "txtName").evaluate((element) => element.selectionStart), 6);
});

test("what is typed while the line is cut arrives when it is back", async () => {
    const page = await atWork(house);
    await input(page, "txtName").pressSequentially("before ");
    house.host.proxy.cut();
    await page.locator(".v-connection").filter({hasText: "The connection is lost"}).waitFor();
    await input(page, "txtName").pressSequentially("and after");
    await input(page, "txtPulse").pressSequentially("8x8");
    house.host.proxy.mend();
    await page.locator(".v-connection").waitFor({state: "hidden"});
    assert.equal(await input(page, "txtName").inputValue(), "before and after");
    await page.waitForFunction(() => document.querySelector("[data-control='frmSamples.txtPulse'] input").value === "88");
    assert.equal(await focused(page), "frmSamples.txtPulse");
    await control(page, "OKButton", "button").click();
    await box(page).filter({hasText: "You typed: before and after"}).waitFor();
});

test("a reload while the line is cut loses nothing either", async () => {
    const page = await atWork(house);
    house.host.proxy.cut();
    await page.locator(".v-connection").filter({hasText: "The connection is lost"}).waitFor();
    await control(page, "txtNote", "textarea").pressSequentially("kept");
    await page.goto("about:blank");
    house.host.proxy.mend();
    await page.goto("/");
    await says(page, "Note: 4");
    assert.equal(await control(page, "txtNote", "textarea").inputValue(), "kept");
});

test("a question survives the loss of the line and a reload", async () => {
    const page = await atWork(house);
    await control(page, "cmdAsk", "button").click();
    await box(page).waitFor();
    house.host.proxy.cut();
    await page.locator(".v-connection").filter({hasText: "The connection is lost"}).waitFor();
    house.host.proxy.mend();
    await page.reload();
    await box(page).getByRole("button", {name: "Yes"}).click();
    await says(page, "Saved");
});

test("typing that a question overtook is kept until it is answered", async () => {
    const page = await atWork(house);
    await page.evaluate(() => {
        document.querySelector("[data-control='frmSamples.cmdAsk'] button").click();
        const name = document.querySelector("[data-control='frmSamples.txtName'] input");
        name.value = "typed at once";
        name.dispatchEvent(new Event("input"));
    });
    await box(page).getByRole("button", {name: "No"}).click();
    await says(page, "Not saved");
    await page.reload();
    await input(page, "txtName").waitFor();
    assert.equal(await input(page, "txtName").inputValue(), "typed at once");
});
