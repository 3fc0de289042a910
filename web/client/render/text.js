import {plainAmount} from "../amounts.js";
import {h, setAttribute} from "../dom.js";

/** Writes a text into a field and leaves the caret where it was, counted from the end. */
export function writeText(input, text) {
    if (input.value === text) return;
    const fromEnd = input.value.length - (input.selectionEnd ?? input.value.length);
    input.value = text;
    if (input !== document.activeElement) return;
    const caret = Math.max(0, text.length - fromEnd);
    input.setSelectionRange(caret, caret);
}

/**
 * A text box: every input goes to the session at once, and its answer (what the key filter and the length let through)
 * comes back when all of the typing is answered, so that no older echo meets newer typing.
 */
export function textBox(link) {
    const {state, item} = link;
    const input = item.lines ? h("textarea", {class: "form-control", rows: item.lines})
                             : h("input", {class: "form-control", type: state.password ? "password" : "text"});
    setAttribute(input, "placeholder", item.hint);
    setAttribute(input, "inputmode", item.amount ? "decimal" : item.keys);
    input.classList.toggle("v-amount", item.amount === true);
    const read = item.amount ? plainAmount : (text) => text;
    if (state.password) input.autocomplete = "off";
    let composing = false;
    const typed = () => {
        if (item.measure) readAsMeasure(link, input);
        link.set(read(input.value));
    };
    input.addEventListener("compositionstart", () => (composing = true));
    input.addEventListener("compositionend", () => {
        composing = false;
        link.set(read(input.value));
    });
    input.addEventListener("input", () => composing || typed());
    // While an amount is typed it stays as it is typed; left, it shows how it was read.
    if (item.amount) input.addEventListener("blur", () => writeText(input, link.text));
    input.addEventListener("click", () => link.fire("Click"));
    input.addEventListener("keydown", (event) => {
        if (event.key !== "Enter" || event.isComposing || !link.handles("KeyReturn")) return;
        event.preventDefault();
        link.fire("KeyReturn");
    });
    return {
        element: input,
        input,
        update() {
            if (link.state.password) showPassword(link, input);
            else if (!composing && read(input.value) !== link.text) writeText(input, link.text);
        },
    };
}

/** A comma is a decimal point; a "/" after the systolic pressure goes on to the diastolic one. */
function readAsMeasure({item, screen}, input) {
    if (item.measure !== "systolic") return writeText(input, input.value.replaceAll(",", "."));
    const [systolic, diastolic] = input.value.split("/");
    if (diastolic === undefined) return undefined;
    writeText(input, systolic);
    const next = screen.focusMeasure("diastolic");
    if (next && diastolic) {
        writeText(next.view.input, diastolic);
        next.link.set(diastolic);
    }
    return undefined;
}

/** A password's text stays in the session, which tells only whether there is one. */
function showPassword(link, input) {
    const {filled} = link.state;
    if (!filled && !link.pending) input.value = "";
    setAttribute(input, "placeholder", filled ? "\u2022".repeat(8) : link.item.hint);
}
