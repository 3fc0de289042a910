// A nurse at a page: the browser, signing in, and words for what she does and sees.

import {mkdirSync} from "node:fs";
import {fileURLToPath} from "node:url";
import {after, before} from "node:test";
import {chromium} from "playwright-core";

import {nurse, startHost} from "./host.mjs";

const output = fileURLToPath(new URL("../output/", import.meta.url));
const flags = ["--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
               "--disable-component-update", "--disable-sync"];

/** One host and one browser for the tests of a file. */
export function useHost(environment, options) {
    const house = {};
    before(async () => {
        house.host = await startHost(environment, options);
        house.browser = await chromium.launch({executablePath: "/usr/bin/chromium", headless: true, args: flags});
    });
    after(async () => {
        await house.browser?.close();
        await house.host?.stop();
    });
    return house;
}

export async function openPage(house, options = {}) {
    const context = await house.browser.newContext({viewport: {width: 1366, height: 768}, baseURL: house.host.url, ...options});
    const page = await context.newPage();
    page.setDefaultTimeout(15000);
    page.problems = [];
    page.on("pageerror", (error) => page.problems.push(error.message));
    page.on("console", (message) => /Content Security Policy/.test(message.text()) && page.problems.push(message.text()));
    return page;
}

export async function signIn(page, {user = nurse.user, password = nurse.password} = {}) {
    await page.goto("/sign-in");
    await page.getByLabel("User name").fill(user);
    await page.getByLabel("Password").fill(password);
    await page.keyboard.press("Enter");
}

/** Signs in, and has the samples in front. */
export async function atWork(house, options = {}) {
    const page = await openPage(house, options);
    await signIn(page);
    await control(page, "txtName").waitFor();
    return page;
}

/** A control of the samples: its field, or with a selector a part of it. */
export const control = (page, name, part = "") => page.locator(`[data-control="frmSamples.${name}"] ${part}`.trim());
export const input = (page, name) => control(page, name, "input");
export const says = (page, text) => control(page, "lblSays", ".v-output").filter({hasText: new RegExp(`^${text}$`)}).waitFor();
export const box = (page) => page.locator("dialog.v-box[open]");
export const focused = (page) => page.evaluate(
    () => document.activeElement?.closest("[data-control]")?.dataset.control ?? document.activeElement?.dataset?.name ?? "");

/** Picks a page of the samples' tab strip. */
export const turnTo = (page, caption) => page.getByRole("tab", {name: caption, exact: true}).click();

export async function picture(page, name) {
    mkdirSync(output, {recursive: true});
    await page.screenshot({path: `${output}${name}.png`});
}
