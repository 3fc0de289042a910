// The patient whom a screen is about, above its fields and always in sight. A pick is read out.

import {h, parseCaption, setAttribute, showText} from "./dom.js";
import {dateInWords} from "./render/date.js";

/** An entry of a list without what ends it: the time after "@", the key in brackets. */
const bare = (entry) => entry.replace(/\s*@.*$/, "").replace(/\s*\[[^\]]*\]\s*$/, "");

/** What a control shows. */
function textOf({kind, text, caption, date}) {
    if (kind === "datePicker") return dateInWords(date);
    if (kind === "label") return parseCaption(caption ?? "").text.trim();
    return text ?? "";
}

export class Banner {
    #told = "";

    /**
     * @param {import("./screen.js").ScreenView} screen
     * @param {{name: string[], facts: {control: string, label: string}[]}} layout `facts` begins with the number by which
     *     patients are told apart; while it is empty nobody is chosen
     */
    constructor(screen, {name, facts}) {
        this.screen = screen;
        this.names = name;
        this.name = h("strong", {class: "v-banner-name"});
        this.facts = facts.map(({control, label}) => {
            const value = h("dd", {"data-control": `${screen.name}.${control}`});
            return {control, label, value, element: h("div", {}, h("dt", {}, label), value)};
        });
        this.warning = h("span", {class: "v-banner-warning", role: "alert", hidden: true});
        this.element = h("section", {class: "v-banner", "aria-label": "Patient"}, this.name,
                         h("dl", {}, ...this.facts.map(({element}) => element)), this.warning);
    }

    /** The patient now; both are empty while none is known. */
    get patient() {
        const number = this.#text(this.facts[0].control);
        const name = this.names.map((control) => bare(this.#text(control))).filter(Boolean).join(" ");
        return {name: number && name, number};
    }

    /** The value under a label, or nothing. */
    fact(label) {
        const found = this.facts.find((one) => one.label === label);
        return found && this.#text(found.control);
    }

    #text(control) {
        const state = this.screen.stateOf(control);
        return state ? textOf(state) : "";
    }

    update() {
        const {name, number} = this.patient;
        showText(this.name, name || "No patient chosen");
        this.element.classList.toggle("v-nobody", name === "");
        for (const {control, value, element} of this.facts) {
            const text = this.#text(control);
            showText(value, text);
            element.hidden = text === "" || number === "";
        }
        this.#tell(name, number);
    }

    /** Read out when another patient comes, and not while a name is being typed. */
    #tell(name, number) {
        if (number === this.#told) return;
        this.#told = number;
        const facts = this.facts.filter(({value}) => value.textContent).map(({label, value}) => `${label} ${value.textContent}`);
        if (number) this.screen.work.notices.say([name, ...facts].join(", "));
    }

    warn(text) {
        showText(this.warning, text);
        setAttribute(this.warning, "hidden", text === "");
    }
}
