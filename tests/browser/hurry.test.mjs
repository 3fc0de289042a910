// A nurse in a hurry: what she types while a box comes up, lists that are behind her typing, a slip of the fingers.

import assert from "node:assert/strict";
import test from "node:test";

import {Screen, boxSays, openFromMenu, yes} from "./support/screen.mjs";
import {atWork, box, control, focused, input, openPage, signIn, useHost} from "./support/work.mjs";

const house = useHost();
let page;
test.afterEach(async () => {
    assert.deepEqual(page.problems, []);
    await page.context().close();
});

/** The nurse's station, in `page` from then on. */
async function atStation(options) {
    page = await openPage(house, options);
    await signIn(page);
    const station = new Screen(page, "frmPreConsult");
    await openFromMenu(page, "mnuVitSigns");
    await station.part("cmdAdd", "button").waitFor();
    return station;
}

async function addReadings(options) {
    const station = await atStation(options);
    await page.keyboard.press("Alt+a");
    await station.pickAt("cboVehNo", 1);
    await page.locator(".v-banner").filter({hasText: "Age"}).waitFor();
    return station;
}

test("a box that opens under typing takes none of it, and no key until the keyboard is quiet", async () => {
    page = await atWork(house);
    await input(page, "txtTemp").focus();
    await page.keyboard.type("36.81");
    await input(page, "txtName").focus();  // the temperature was left too long: a box comes
    const aside = page.locator(".v-aside:popover-open");
    for (let typed = 0; typed < 100 && await aside.count() === 0; ++typed) await page.keyboard.type("a", {delay: 50});
    await page.keyboard.type("tunde bola");
    assert.equal(await aside.count(), 1);
    assert.equal(await focused(page), "frmSamples.txtName");
    await page.keyboard.press("Enter");  // is no answer
    await page.keyboard.type("lost");    // and what follows it was meant for elsewhere
    await box(page).waitFor();
    await page.keyboard.press("Enter");
    await box(page).waitFor({state: "hidden"});
    await page.waitForFunction(() => document.activeElement.closest("[data-control]")?.dataset.control === "frmSamples.txtTemp");
    assert.match(await input(page, "txtName").inputValue(), /^a*tunde bola$/);
});

test("readings show what is usual for the age, mark what is not and what cannot be, and stop nothing", async () => {
    const station = await addReadings();
    await station.field("txtTemp").focus();
    for (const [typed, level, says] of [["375", "impossible", /impossible/], ["39,5", "high", /high: 36.1–38/], ["35", "low", /low/], ["37", null, /36.1–38/]]) {
        await page.keyboard.press("Control+A");
        await page.keyboard.type(typed);
        assert.equal(await station.field("txtTemp").getAttribute("data-level"), level, typed);
        assert.match(await station.part("txtTemp", ".v-note").textContent(), says);
    }
    await station.field("txtPressure").focus();
    await page.keyboard.type("130/85");
    assert.deepEqual([await focused(page), await station.field("txtPressure").inputValue(), await station.field("txtPressure2").inputValue()],
                     ["frmPreConsult.txtPressure2", "130", "85"]);
    await station.field("txtHt").fill("1.70");
    await station.field("txtWt").fill("70");
    assert.equal(await station.part("txtWt", ".v-note").textContent(), "BMI 24.2");
    // Readings that stay when another patient is picked say whose they are.
    const first = await page.locator(".v-banner-name").textContent();
    await station.pickAt("cboVehNo", 3);
    await page.locator(".v-banner-warning:visible").filter({hasText: `typed for ${first}`}).waitFor();
});

test("a full set of vital signs takes at most 60 keys and no mouse", async () => {
    const station = await atStation();
    let keys = 0;
    const press = async (...names) => {
        for (const name of names) await page.keyboard.press(name);
        keys += names.length;
    };
    const type = async (text) => {
        await page.keyboard.type(text);
        keys += text.length;
    };
    await press("Alt+a");
    await station.has("cboVehNo");
    await press("ArrowDown", "ArrowDown", "ArrowDown", "Enter", "Tab");
    await page.locator(".v-banner").filter({hasText: "Age"}).waitFor();
    for (const reading of ["36.8", "120/80", "72", "18", "1.70", "68", "98", "5.6"]) {
        await type(reading);
        await press("Tab");
    }
    await press("Tab");  // the position
    for (const reading of ["NIL", "NIL"]) {
        await type(reading);
        await press("Tab");
    }
    await press("ArrowDown", "ArrowDown", "ArrowDown", "Enter", "Alt+s");
    await yes(page);
    await boxSays(page, "Record Succesfully saved");
    keys += 2;  // the answers
    assert.ok(keys <= 60, `${keys} keys`);
});

test("a refused save marks the field, Esc asks before it throws readings away, and Cancel does not", async () => {
    const station = await addReadings();
    await station.field("txtPressure2").focus();
    await page.keyboard.type("80");
    await page.keyboard.press("Enter");
    await boxSays(page, "please specify Name of Doctor");
    assert.equal(await focused(page), "frmPreConsult.CboRef");
    assert.equal(await station.field("CboRef").getAttribute("aria-invalid"), "true");
    await page.keyboard.press("Escape");
    await box(page).filter({hasText: "Throw it away?"}).waitFor();
    await page.keyboard.press("Enter");
    assert.equal(await station.field("txtPressure2").inputValue(), "80");
    await station.pickAt("CboRef", 1);
    await page.waitForFunction(() => !document.querySelector(`[data-control="frmPreConsult.CboRef"] [aria-invalid]`));
    await station.part("cmdCancel", "button").click();
    await station.part("cmdAdd", "button").waitFor();
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
        const station = await atStation({viewport});
        await page.keyboard.press("Alt+a");
        await station.part("cboVehNo", "input:enabled").waitFor();
        assert.ok(await page.evaluate(() => document.documentElement.scrollHeight > innerHeight && document.documentElement.scrollWidth <= innerWidth));
        for (const name of ["txtTemp", "txtSugar", "cboType"]) {
            await station.field(name).focus();
            const covered = await station.field(name).evaluate((element) => {
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
