import {h, setAttribute, showText} from "../dom.js";

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
    let note = null;
    // The browser writes dates in its own language: here one is the same in words everywhere, as in lists and reports.
    const echo = () => note && showText(note, time ? "" : dateInWords(input.value));
    input.addEventListener("input", () => {
        echo();
        send();
    });
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
            echo();
            clear.hidden = text === "" || input.disabled;
        },
        setEnabled(enabled) {
            setAttribute(input, "disabled", !enabled);
            clear.hidden = input.value === "" || !enabled;
        },
        showNote(element) {
            note = element;
        },
    };
}

export const monthNames = ["Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"];

/** "1990-01-02" as "02-Jan-1990"; nothing for what is no date, or one that is still being typed. */
export function dateInWords(value) {
    const [, year, month, day] = /^(\d{4})-(\d{2})-(\d{2})/.exec(value ?? "") ?? [];
    if (!year || value.slice(0, 10) < earliest) return "";
    return `${day}-${monthNames[Number(month) - 1]}-${year}`;
}

/** The wire's date, with or without a time, as the input wants it. */
export function asInput(value, time) {
    if (!value) return "";
    if (!time) return value.slice(0, 10);
    return value.includes(" ") || value.includes("T") ? value.slice(11, 16) : value.slice(0, 5);
}
