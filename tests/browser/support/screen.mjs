// A screen as a nurse works it with the keyboard: going to a control, typing, picking, pressing, and what boxes say.

import {box, input} from "./work.mjs";

/** Opens a screen from the menu, which a narrow page keeps behind a button. */
export async function openFromMenu(page, entry) {
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

/** Opens a screen by its name, from the samples: also one that the menu hides or that is modal elsewhere. */
export async function openByName(page, screen) {
    await page.getByRole("tab", {name: "Samples", exact: true}).click();
    await input(page, "txtScreen").fill(screen);
    await new Screen(page, "frmSamples").press("cmdShow");
    await page.locator(`.v-pane.v-active [data-screen=${screen}]`).waitFor();
}

export class Screen {
    constructor(page, name) {
        this.page = page;
        this.name = name;
    }

    /** A control, or with a selector the first such part of it. */
    part(control, selector = "") {
        return this.page.locator(`[data-control="${this.name}.${control}"] ${selector}`.trim()).first();
    }

    field(control) {
        return this.part(control, "input");
    }

    /** Goes to a control, types over what is there, and leaves with Tab. */
    async type(control, text) {
        await this.field(control).focus();
        await this.page.keyboard.press("Control+A");
        await this.page.keyboard.type(text);
        await this.page.keyboard.press("Tab");
    }

    /** Likewise, and takes the entry with Enter. */
    async pick(control, text) {
        await this.field(control).focus();
        await this.page.keyboard.press("Control+A");
        await this.page.keyboard.type(text);
        await this.page.keyboard.press("Enter");
    }

    /** Picks an entry of a list by its place, from 0. */
    async pickAt(control, place) {
        await this.part(control, "input:enabled").focus();
        await this.page.keyboard.press("Alt+ArrowDown");
        await this.part(control, `[data-at='${place}']`).click();
    }

    async press(control) {
        await this.part(control, "button").focus();
        await this.page.keyboard.press("Enter");
    }

    /** Waits until the keyboard is in a control. */
    async has(control) {
        await this.page.waitForFunction((path) => document.activeElement.closest("[data-control]")?.dataset.control === path,
                                        `${this.name}.${control}`);
    }
}

/** Waits for a box with this text, and presses OK. */
export async function boxSays(page, text) {
    await box(page).filter({hasText: text}).waitFor();
    await page.keyboard.press("Enter");
    await box(page).waitFor({state: "hidden"});
}

/** Waits for the question of a save. */
export async function asked(page) {
    await box(page).filter({hasText: "Are you sure to save"}).waitFor();
}

export async function yes(page) {
    await asked(page);
    await page.keyboard.press("Alt+y");
    await box(page).filter({hasText: "Are you sure to save"}).waitFor({state: "hidden"});
}
