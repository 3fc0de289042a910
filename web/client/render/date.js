import {h, setAttribute} from "../dom.js";

/** Dates before this one are a year that is still being typed. */
const earliest = "1753-01-01";

/** A date or a time of day, which may be blank. */
export function datePicker(link) {
    const time = link.state.format === "time";
    const input = h("input", {type: time ? "time" : "date", class: "form-control"});
    const clear = h("button", {type: "button", class: "btn v-clear", "aria-label": "Clear", title: "Clear", tabindex: "-1"},
                    "×");
    const send = () => {
        if (input.validity.badInput) return;
        if (!time && input.value !== "" && input.value < earliest) return;
        link.set(input.value === "" ? null : input.value);
    };
    input.addEventListener("input", send);
    clear.addEventListener("click", () => {
        input.value = "";
        link.set(null);
        input.focus();
    });
    return {
        element: h("div", {class: "v-date"}, input, clear),
        input,
        update() {
            const pending = link.pending;
            const value = pending ? pending.to : link.state.date;
            const text = asInput(value, time);
            const isTyping = input === document.activeElement && (pending || input.validity.badInput
                || (input.value !== "" && input.value < earliest && !time));
            if (!isTyping && input.value !== text) input.value = text;
            clear.hidden = text === "" || input.disabled;
        },
        setEnabled(enabled) {
            setAttribute(input, "disabled", !enabled);
            clear.hidden = input.value === "" || !enabled;
        },
    };
}

/** The wire's date, with or without a time, as the input wants it. */
export function asInput(value, time) {
    if (!value) return "";
    if (!time) return value.slice(0, 10);
    return value.includes(" ") || value.includes("T") ? value.slice(11, 16) : value.slice(0, 5);
}
