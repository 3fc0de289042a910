// What stands around a control: its label with the access key, unit, required mark and help.

import {h, newId, setAttribute, showCaption} from "./dom.js";

/** Kinds that carry their own caption, or need none. */
const selfLabelled = new Set(["button", "checkBox", "optionButton", "label", "tabStrip", "picture"]);

/** Widths in twelfths of the section. */
function widthClass(item, columns) {
    if (item.width === "full") return "v-w12";
    if (typeof item.width === "number") return `v-w${item.width}`;
    return `v-w${Math.round(12 / columns)}`;
}

export function makeField(control, view, columns) {
    const {item} = control;
    const target = view.input ?? view.element;
    const field = h("div", {class: `v-field v-kind-${control.state.kind} ${widthClass(item, columns)}`});
    field.dataset.control = control.path;
    field.classList.toggle("v-measured", item.measure !== undefined);
    if (!target.id) target.id = newId();
    const note = h("span", {class: "v-note", id: newId(), role: "status"});
    if (item.label !== undefined || !selfLabelled.has(control.state.kind))
        field.append(h("div", {class: "v-label-line"}, makeLabel(control, view, target), note));
    const holder = item.unit ? h("div", {class: "v-with-unit"}, view.element, unitOf(item, target)) : view.element;
    field.append(holder);
    if (item.help) field.append(helpOf(item, target));
    if (item.required) target.setAttribute("aria-required", "true");
    if (item.measure || view.showNote) describe(target, note.id);
    view.showNote?.(note);
    return {field, note};
}

function makeLabel(control, view, target) {
    const {item} = control;
    const composite = view.group === true;
    const id = newId();
    const label = h(composite ? "div" : "label", {id, class: "v-label", for: composite ? null : target.id});
    const caption = h("span");
    showCaption(caption, item.label ?? labelFromName(control.name), target);
    label.append(caption);
    if (item.required) label.append(h("span", {class: "v-required", title: "Required", "aria-hidden": "true"}, " *"));
    if (composite) target.setAttribute("aria-labelledby", id);
    return label;
}

/** A label for a control that the layout says nothing about, or a screen without a caption: "txtSurName" reads "Sur Name". */
export function labelFromName(name) {
    const bare = name.replace(/^(frm|txt|cbo|lst|grd|dG|dt|lbl|cmd|chk|opt|tree|lvw|chart|pic)(?=[A-Z])/, "");
    return bare.replace(/([a-z])([A-Z])/g, "$1 $2").replace(/\((\d+)\)$/, " $1");
}

function unitOf(item, target) {
    const id = newId();
    describe(target, id);
    return h("span", {id, class: "v-unit"}, item.unit);
}

function helpOf(item, target) {
    const id = newId();
    describe(target, id);
    return h("div", {id, class: "v-help"}, item.help);
}

const descriptions = (target) => (target.getAttribute("aria-describedby") ?? "").split(" ").filter(Boolean);

function describe(target, id) {
    target.setAttribute("aria-describedby", [...descriptions(target), id].join(" "));
}

/** Says below a field why its content was refused, until that is over. */
export function showProblem(field, view, problem = "") {
    const target = view.input ?? view.element;
    const line = field.querySelector(":scope > .v-problem");
    if ((line?.textContent ?? "") === problem.trim()) return;
    setAttribute(target, "aria-invalid", problem !== "" && "true");
    const id = `${target.id}-problem`;
    setAttribute(target, "aria-describedby", descriptions(target).filter((one) => one !== id).join(" ") || null);
    line?.remove();
    if (problem === "") return;
    field.append(h("div", {id, class: "v-problem"}, problem.trim()));
    describe(target, id);
}

/** Hides and disables a field by its control's state and by what holds it. */
export function showField(field, view, {visible, enabled}) {
    field.hidden = !visible || (view.vacant?.() ?? false);
    view.setEnabled?.(enabled);
    if (!view.setEnabled) setAttribute(view.input ?? view.element, "disabled", !enabled);
}
