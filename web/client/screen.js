// Draws one screen from its controls and its layout, and keeps it up to date.

import {Banner} from "./banner.js";
import {ControlLink} from "./control.js";
import {ask} from "./dialogs.js";
import {h, isShown, newId, parseCaption, showCaption} from "./dom.js";
import {labelFromName, makeField, showField, showProblem} from "./field.js";
import {Find} from "./find.js";
import {layoutOf} from "./layout.js";
import {Measures} from "./measures.js";
import {Pages} from "./pages.js";
import {makeView} from "./render/index.js";
import {Sheets} from "./sheets.js";

export class ScreenView {
    /** @type {Map<string, {link: ControlLink, view: object, field: HTMLElement, page: object|null}>} */
    #parts = new Map();

    /**
     * @param {object} work the work place that the screen belongs to
     * @param {string} name
     */
    constructor(work, name) {
        this.work = work;
        this.name = name;
        this.titleId = newId("title");
        this.title = h("h2", {id: this.titleId, class: "v-screen-title"});
        this.body = h("form", {class: "v-screen-body", novalidate: true, autocomplete: "off"});
        this.element = h("section", {class: "v-screen", "aria-labelledby": this.titleId}, this.title, this.body);
        this.element.dataset.screen = name;
        this.body.addEventListener("submit", (event) => event.preventDefault());
        this.body.addEventListener("keydown", (event) => this.#key(event));
        this.body.addEventListener("focusin", (event) => this.#focusMoved(event, "GotFocus"));
        this.body.addEventListener("focusout", (event) => this.#focusMoved(event, "LostFocus"));
    }

    get state() {
        return this.work.model.screens.get(this.name);
    }

    async draw() {
        const layout = await layoutOf(this.name, this.state);
        if (!this.state) return;
        this.layout = layout;
        this.#parts.clear();
        this.#pages = new Pages(this.#parts);
        this.#labels = this.#labelsByTarget(layout);
        this.element.classList.toggle("v-narrow", layout.width === "narrow");
        this.banner = layout.patient ? new Banner(this, layout.patient) : null;
        this.find = layout.search ? new Find(this.body) : null;
        const form = h("div", {class: "v-form"}, this.find?.element, ...this.#sections(layout.sections, null));
        if (layout.help) form.append(h("p", {class: "v-screen-help"}, layout.help));
        const columns = [form];
        if (layout.beside.length > 0) {
            const beside = h("aside", {class: "v-beside"}, ...this.#sections(layout.beside, null));
            // What the form is filled from comes ahead of it, for the Tab key too.
            if (layout.besideFirst) columns.unshift(beside);
            else columns.push(beside);
        }
        this.body.replaceChildren(...(this.banner ? [this.banner.element] : []), h("div", {class: "v-columns"}, ...columns));
        if (layout.buttons.length > 0) this.body.append(this.#buttonBar(layout.buttons));
        const measured = [...this.#parts.values()].filter((part) => part.link.item.measure);
        this.sheets = new Sheets(form, this.#parts);
        this.measures = measured.length > 0 ? new Measures(this, measured) : null;
        this.refreshAll();
    }

    /** The state of a control by its name in a layout, or nothing. */
    stateOf(name) {
        return this.state?.controls[this.#nameOf(name)];
    }

    #labels = new Map();
    #pages = null;

    /** A label control with "for" is the label of another control, and is drawn there. */
    #labelsByTarget(layout) {
        const labels = new Map();
        const walk = (sections) => sections.forEach((section) => section.tabs
            ? section.pages.forEach(walk)
            : section.rows.forEach((row) => row.items.filter((item) => item.for).forEach(
                (item) => labels.set(item.for, item.control))));
        walk([...layout.sections, ...layout.beside]);
        return labels;
    }

    #sections(sections, page) {
        return sections.map((section) => (section.tabs ? this.#tabs(section, page) : this.#section(section, page)));
    }

    #section(section, page) {
        const fields = h("div", {class: "v-fields"});
        for (const row of section.rows) {
            const into = row.together ? h("div", {class: "v-row"}) : fields;
            const columns = row.together ? row.items.length : section.columns;
            for (const item of row.items) {
                const part = this.#part(item, page, columns);
                if (part && !item.for) into.append(part.field);
            }
            if (row.together) fields.append(into);
        }
        if (section.fold) return h("details", {class: "v-section v-sheet"}, h("summary", {}, section.title), helpLine(section), fields);
        if (!section.title) return h("div", {class: "v-section"}, helpLine(section), fields);
        return h("fieldset", {class: "v-section"}, h("legend", {}, section.title), helpLine(section), fields);
    }

    #tabs(section, page) {
        const strip = this.#part({control: section.tabs}, page);
        const panels = section.pages.map((sections, number) => h(
            "div", {role: "tabpanel", class: "v-tab-page", id: newId()},
            ...this.#sections(sections, {strip: section.tabs, number, outer: page})));
        strip?.view.setPanels(panels);
        if (strip) this.#pages.add({strip: strip.link.name, view: strip.view, panels, form: section.form === true});
        return h("div", {class: "v-tabs"}, strip?.field, ...panels);
    }

    #buttonBar(items) {
        const bar = h("div", {class: "v-buttons"});
        for (const item of items) {
            const part = this.#part({style: item.control === this.layout.default ? "primary" : undefined, ...item}, null);
            if (part) bar.append(part.field);
        }
        return bar;
    }

    #part(item, page, columns = 1) {
        const name = this.#nameOf(item.control);
        if (!name) return null;
        const labelControl = this.#labels.get(item.control);
        const label = labelControl ? this.state.controls[this.#nameOf(labelControl)]?.caption : undefined;
        const link = new ControlLink(this, name, label === undefined ? item : {label, ...item});
        const view = makeView(link);
        const part = {link, view, ...makeField(link, view, columns), page};
        this.#parts.set(name, part);
        return part;
    }

    /** Names in layouts are found whatever their letter case. */
    #nameOf(wanted) {
        if (wanted in this.state.controls) return wanted;
        return Object.keys(this.state.controls).find((name) => name.toLowerCase() === wanted.toLowerCase());
    }

    /** Brings controls' views up to date with their states, and once what all of them show and hide. */
    refresh(names) {
        const drawn = names.filter((name) => this.#parts.has(name) && this.state?.controls[name]);
        for (const name of drawn) {
            this.#parts.get(name).view.update();
            this.#refreshLabel(name);
        }
        if (drawn.length > 0) this.#showParts();
        // The banner's facts may have no field of their own.
        else this.banner?.update();
    }

    #refreshLabel(name) {
        const target = [...this.#labels].find(([, control]) => this.#nameOf(control) === name)?.[0];
        const part = target && this.#parts.get(this.#nameOf(target));
        const caption = part?.field.querySelector(".v-label > span");
        if (caption) showCaption(caption, this.state.controls[name].caption, part.view.input ?? part.view.element);
    }

    showTitle() {
        showCaption(this.title, this.layout?.title ?? this.state.caption);
    }

    refreshAll() {
        this.showTitle();
        for (const part of this.#parts.values()) part.view.update();
        this.#showParts();
    }

    #showParts() {
        this.banner?.update();
        this.measures?.update();
        const worked = document.activeElement;
        for (const {link, field, view} of this.#parts.values()) {
            showField(field, view, this.work.model.worked(link.path));
            showProblem(field, view, link.state.problem);
        }
        for (const section of this.body.querySelectorAll(".v-section:not(.v-sheet)"))
            section.hidden = [...section.querySelectorAll(".v-field")].every((field) => field.hidden);
        this.#pages.show();
        this.sheets.show();
        this.find?.update();
        this.#keepKeyboard(worked);
    }

    #left = null;

    /** A button that is disabled while its work goes on loses the keyboard, and has it again when the work is done. */
    #keepKeyboard(worked) {
        if (worked?.matches("button:disabled") && this.body.contains(worked)) this.#left = worked;
        if (!this.#left || this.#left.disabled) return;
        if (document.activeElement === document.body) this.work.quietly(() => this.#left.focus());
        this.#left = null;
    }

    /** Moves the keyboard to a control, with the page that it lies on. */
    focus(name) {
        const part = this.#parts.get(this.#nameOf(name) ?? "");
        if (!part) return false;
        for (let page = part.page; page; page = page.outer) this.#parts.get(this.#nameOf(page.strip))?.view.bring(page.number);
        (part.view.focusTarget?.() ?? part.view.input ?? part.view.element).focus();
        return true;
    }

    /** Moves the keyboard to the reading that follows one of a pair: from the systolic to the diastolic pressure. */
    focusMeasure(measure) {
        const part = [...this.#parts.values()].find(({link}) => link.item.measure === measure);
        if (!part) return null;
        part.view.input.focus();
        part.view.input.select();
        return part;
    }

    /** Moves the keyboard to where it was on this screen last, or to the first control. */
    focusAgain() {
        const part = this.#parts.get(this.#last);
        const target = part && (part.view.focusTarget?.() ?? part.view.input);
        if (target && !target.disabled && isShown(target)) this.focus(this.#last);
        else this.focusFirst();
    }

    #last = "";

    /** Moves the keyboard to the first control that takes it. */
    focusFirst() {
        const first = [...this.#parts.values()].find((part) => {
            const target = part.view.focusTarget?.() ?? part.view.input;
            return target && !target.disabled && isShown(target);
        });
        if (first) this.focus(first.link.name);
        else this.#heading();
    }

    #heading() {
        this.title.tabIndex = -1;
        this.title.focus();
    }

    /** Enter means the default button, Esc the cancel button. */
    #key(event) {
        if (event.defaultPrevented || event.altKey || event.ctrlKey || event.isComposing) return;
        if (event.key === "Tab") return this.#pages.goOn(event);
        const plainField = event.target.matches("input, select");
        if (event.key === "Enter" && plainField) this.#press(this.layout.default, event);
        if (event.key === "Escape" && this.#pressable(this.layout.cancel)) {
            event.preventDefault();
            this.leave(() => this.#press(this.layout.cancel, event));
        }
        return undefined;
    }

    #pressable(name) {
        const part = name && this.#parts.get(this.#nameOf(name) ?? "");
        return part && !part.field.hidden && !part.view.element.disabled ? part : null;
    }

    #press(name, event) {
        const part = this.#pressable(name);
        if (!part) return;
        event.preventDefault();
        part.link.fire();
    }

    /** Esc comes quickly by mistake: where something was typed, it asks first. */
    async leave(go) {
        const typed = this.work.journal.hasTyped(this.name);
        if (typed && !await ask("Cancel", "What you typed is not saved. Throw it away?", "Throw away", "Keep")) return;
        go();
    }

    /** True where the user sees the screen now. */
    get shown() {
        return this.element.getClientRects().length > 0;
    }

    gotFocus(name) {
        this.#parts.get(this.#nameOf(name) ?? "")?.link.fire("GotFocus");
    }

    get cancelButton() {
        return this.layout?.cancel;
    }

    get defaultButton() {
        return this.layout?.default;
    }

    /** What stands before a control, or on it. */
    labelOf(name) {
        const part = this.#parts.get(name);
        const label = part?.field.querySelector(".v-label > span")?.textContent;
        return label || parseCaption(part?.link.state.caption ?? "").text || labelFromName(name);
    }

    #focusMoved(event, name) {
        const worked = event.target.closest("[data-control]")?.dataset.control;
        if (name === "GotFocus" && worked) this.#last = worked.slice(this.name.length + 1);
        if (this.work.focusIsQuiet || !document.hasFocus()) return;
        const field = event.target.closest("[data-control]");
        if (!field || field.contains(event.relatedTarget)) return;
        this.#parts.get(field.dataset.control.slice(this.name.length + 1))?.link.fire(name);
    }
}

const helpLine = (section) => (section.help ? h("p", {class: "v-help"}, section.help) : null);
