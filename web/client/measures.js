// Readings that are measured: what is usual for the patient's age stands beside the field, and a value outside it is marked.
// Nothing of this is stored, and nothing stops a save.

import {setAttribute, showText} from "./dom.js";
import {ageInMonths, judge} from "./ranges.js";

const words = {
    low: (usual) => `▼ low: ${usual}`,
    high: (usual) => `▲ high: ${usual}`,
    impossible: () => "✕ impossible",
    usual: (usual) => usual,
};

export class Measures {
    /** For whom the first reading was typed. */
    #typedFor = null;

    /** @param {import("./screen.js").ScreenView} screen @param {object[]} parts those of its parts that name a measure */
    constructor(screen, parts) {
        this.screen = screen;
        this.parts = parts;
        for (const part of parts) part.view.input.addEventListener("input", () => this.#typed());
    }

    #textOf(measure) {
        return this.parts.find(({link}) => link.item.measure === measure)?.view.input.value ?? "";
    }

    #typed() {
        this.#typedFor ??= this.screen.banner?.patient ?? null;
        this.update();
    }

    update() {
        const age = ageInMonths(this.screen.banner?.fact("Age") ?? "");
        for (const {link, view, note} of this.parts) {
            const {level, usual} = judge(link.item.measure, view.input.value, age);
            const text = link.item.measure === "weight" && level === "usual" ? bodyMass(this.#textOf("weight"), this.#textOf("height")) : "";
            showText(note, text || (level === "usual" && !usual ? "" : words[level](usual)));
            note.className = `v-note v-${level}`;
            setAttribute(view.input, "data-level", level !== "usual" && level);
        }
        this.#warnOfOtherPatient();
    }

    /** Readings stay when another patient is picked: then they say whose they are. */
    #warnOfOtherPatient() {
        const {banner} = this.screen;
        if (!banner) return;
        if (this.parts.every(({view}) => view.input.value === "")) this.#typedFor = null;
        const {number} = banner.patient;
        if (this.#typedFor?.number === "") this.#typedFor = banner.patient;
        const other = this.#typedFor && number !== "" && this.#typedFor.number !== number;
        banner.warn(other ? `The readings below were typed for ${this.#typedFor.name}` : "");
    }
}

/** Body-mass index, kg/m² (weight by the square of height; Quetelet 1832, Keys and others 1972). */
function bodyMass(weight, height) {
    const [kilograms, metres] = [Number(weight), Number(height)];
    if (!(kilograms > 0) || !(metres > 0.2 && metres < 2.6)) return "";
    return `BMI ${(kilograms / metres ** 2).toFixed(1)}`;
}
