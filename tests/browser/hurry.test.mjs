// A nurse in a hurry: what she types while a box comes up, lists that are behind her typing, a slip of the fingers.

import assert from "node:assert/strict";
import test from "node:test";

import {atWork, box, control, focused, input, openPage, signIn, useHost} from "./support/work.mjs";

const house = useHost();
let page;
test.afterEach(async () => {
    assert.deepEqual(page.problems, []);
    await page.context().close();
});

const field = (name, part = "input") => page.locator(`[data-control="frmPreConsult.${name}"] ${part}`).first();
const note = (name) => field(name, ".v-note");

async function atStation(options) {
    page = await openPage(house, options);
    await signIn(page);
    await page.locator("#work:not([hidden])").waitFor();
    const menu = page.getByRole("button", {name: "☰ Menu"});
    if (await menu.isVisible()) await menu.click();
    await page.locator(".v-menu [data-name=mnuVitSigns]").click();
    await field("cmdAdd", "button").waitFor();
}

async function addReadings(place = 1) {
    await page.keyboard.press("Alt+a");
    await field("cboVehNo", "input:enabled").focus();
    await page.keyboard.press("Alt+ArrowDown");
    await field("cboVehNo", `[data-at='${place}']`).click();
    await page.locator(".v-banner").filter({hasText: "Age"}).waitFor();
}

test("a box that opens under typing takes none of it, and no key until the keyboard is quiet", async () => {
    page = await atWork(house);
    await input(page, "txtTemp").fill("36.81");
    await input(page, "txtName").focus();  // the temperature was left too long: a box comes
    await page.keyboard.type("tunde bola", {delay: 60});
    await page.locator(".v-aside:popover-open").waitFor();
    assert.equal(await focused(page), "frmSamples.txtName");
    await page.keyboard.press("Enter");  // is no answer
    await page.keyboard.type("lost");    // and what follows it was meant for elsewhere
    await box(page).waitFor();
    await page.keyboard.press("Enter");
    await box(page).waitFor({state: "hidden"});
    await page.waitForFunction(() => document.activeElement.closest("[data-control]")?.dataset.control === "frmSamples.txtTemp");
    assert.equal(await input(page, "txtName").inputValue(), "tunde bola");
});

test("readings show what is usual for the age, mark what is not and what cannot be, and stop nothing", async () => {
    await atStation();
    await addReadings();
    await field("txtTemp").focus();
    for (const [typed, level, says] of [["375", "impossible", /impossible/], ["39,5", "high", /high: 36.1–38/], ["35", "low", /low/], ["37", null, /36.1–38/]]) {
        await page.keyboard.press("Control+A");
        await page.keyboard.type(typed);
        assert.equal(await field("txtTemp").getAttribute("data-level"), level, typed);
        assert.match(await note("txtTemp").textContent(), says);
    }
    await field("txtPressure").focus();
    await page.keyboard.type("130/85");
    assert.deepEqual([await focused(page), await field("txtPressure").inputValue(), await field("txtPressure2").inputValue()],
                     ["frmPreConsult.txtPressure2", "130", "85"]);
    await field("txtHt").fill("1.70");
    await field("txtWt").fill("70");
    assert.equal(await note("txtWt").textContent(), "BMI 24.2");
    // Readings that stay when another patient is picked say whose they are.
    const first = await page.locator(".v-banner-name").textContent();
    await field("cboVehNo").focus();
    await page.keyboard.press("Alt+ArrowDown");
    await field("cboVehNo", "[data-at='3']").click();
    await page.locator(".v-banner-warning:visible").filter({hasText: `typed for ${first}`}).waitFor();
});

test("a refused save marks the field, Esc asks before it throws readings away, and Cancel does not", async () => {
    await atStation();
    await addReadings();
    await field("txtPressure2").focus();
    await page.keyboard.type("80");
    await page.keyboard.press("Enter");
    await box(page).filter({hasText: "please specify Name of Doctor"}).waitFor();
    await page.keyboard.press("Enter");
    await box(page).waitFor({state: "hidden"});
    assert.equal(await focused(page), "frmPreConsult.CboRef");
    assert.equal(await field("CboRef").getAttribute("aria-invalid"), "true");
    await page.keyboard.press("Escape");
    await box(page).filter({hasText: "Throw it away?"}).waitFor();
    await page.keyboard.press("Enter");
    assert.equal(await field("txtPressure2").inputValue(), "80");
    await field("CboRef").focus();
    await page.keyboard.press("Alt+ArrowDown");
    await field("CboRef", "[data-at='1']").click();
    await page.waitForFunction(() => !document.querySelector(`[data-control="frmPreConsult.CboRef"] [aria-invalid]`));
    await field("cmdCancel", "button").click();
    await field("cmdAdd", "button").waitFor();
    assert.equal(await box(page).count(), 0);
});

test("a reload with the keyboard on a check box, on a list, on a button comes up again", async () => {
    page = await atWork(house);
    for (const name of ["chkFasting", "cboWard", "cmdAsk"]) {
        await control(page, name).locator("input, button").first().focus();
        await page.reload();
        await page.waitForFunction((path) => document.activeElement.closest("[data-control]")?.dataset.control === path, `frmSamples.${name}`);
    }
});

test("a host that does not answer is told of after a second", async () => {
    page = await atWork(house);
    house.host.proxy.lose("host");
    await input(page, "txtName").focus();
    await page.keyboard.type("Ada");
    await page.locator(".v-connection").filter({hasText: "Waiting for the host"}).waitFor();
    house.host.proxy.cut();
    house.host.proxy.mend();
    await page.locator(".v-connection").waitFor({state: "hidden"});
    assert.equal(await input(page, "txtName").inputValue(), "Ada");
});

test("at 200 % zoom and on a phone the page scrolls as one document and nothing lies over a field", async () => {
    for (const viewport of [{width: 683, height: 384}, {width: 342, height: 192}, {width: 390, height: 844}]) {
        await page?.context().close();
        await atStation({viewport});
        await page.keyboard.press("Alt+a");
        await field("cboVehNo", "input:enabled").waitFor();
        assert.ok(await page.evaluate(() => document.documentElement.scrollHeight > innerHeight && document.documentElement.scrollWidth <= innerWidth));
        for (const name of ["txtTemp", "txtSugar", "cboType"]) {
            await field(name).focus();
            const covered = await field(name).evaluate((element) => {
                const {left, top, width, height} = element.getBoundingClientRect();
                const there = document.elementFromPoint(left + width / 2, top + height / 2);
                return element.contains(there) ? "" : (there?.outerHTML.slice(0, 100) ?? `out of sight at ${top}`);
            });
            assert.equal(covered, "", `${name} at ${viewport.width}`);
        }
    }
});

test("attention flashes for five seconds, and the sign stays", async () => {
    page = await atWork(house);
    const animations = () => page.evaluate(() => document.getAnimations().filter(({animationName}) => animationName?.startsWith("v-flash")).length);
    house.host.execute(`update hAdmission set ExtendAdmissionLimitTo='01-Jan-2020' where isdischarged=0`);
    await page.locator(".v-alert.v-attention").first().waitFor({timeout: 60000});
    await page.waitForTimeout(6000);
    assert.equal(await animations(), 0);
    assert.ok(await page.locator(".v-alert.v-attention").count() > 0);
});
