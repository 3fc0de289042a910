// The usual ranges of vital signs by age, and limits beyond which a number is a slip of the fingers. They warn; what a value
// means for a patient is for the nurse and the doctor to say.
//
// Sources:
// - From 16 years: what scores 0 in NEWS2 (Royal College of Physicians, National Early Warning Score 2, 2017; SpO2 scale 1).
// - Pulse and breathing below 16 years: 1st to 99th centile of Fleming and others, Lancet 2011; 377: 1011-18, tables of
//   centiles by age.
// - Systolic pressure below 16 years: the lower limits of paediatric advanced life support (American Heart Association,
//   2020): 60 mmHg below a month, 70 below a year, 70 + 2 × years up to ten years, 90 above. It has no upper limit.
// - Temperature and SpO2 below 16 years: those of NEWS2, which is made for adults, for want of ranges by age.
// - What cannot be: limits of our own, wider than any reading that was ever taken of a patient who lived.

/** @typedef {{below: number, low: number|null, high: number|null}} Band months of age below which it holds */

const months = (years) => years * 12;
const adult = months(16);

/** Bands as [below which age in months, low, high]. The last one holds for all who are older. */
const bands = {
    temperature: [[Infinity, 36.1, 38.0]],
    systolic: [
        [1, 60, null], [12, 70, null],
        ...Array.from({length: 9}, (_, place) => [months(place + 2), 70 + 2 * (place + 1), null]),
        [adult, 90, null], [Infinity, 111, 219],
    ],
    diastolic: [],
    pulse: [
        [3, 107, 181], [6, 104, 175], [9, 98, 168], [12, 93, 161], [18, 88, 156], [24, 82, 149], [months(3), 76, 142],
        [months(4), 70, 136], [months(6), 65, 131], [months(8), 59, 123], [months(12), 52, 115], [months(15), 47, 108],
        [adult, 43, 104], [Infinity, 51, 90],
    ],
    breathing: [
        [3, 25, 66], [6, 24, 64], [9, 23, 61], [12, 22, 58], [18, 21, 53], [24, 19, 46], [months(3), 18, 38],
        [months(4), 17, 33], [months(6), 17, 29], [months(8), 16, 27], [months(12), 14, 25], [months(15), 12, 23],
        [adult, 11, 22], [Infinity, 12, 20],
    ],
    saturation: [[Infinity, 96, 100]],
    height: [],
    weight: [],
};

/** What cannot be, in the field's unit: °C, mmHg, a minute, %, m, kg. */
const limits = {
    temperature: [25, 45], systolic: [30, 300], diastolic: [10, 200], pulse: [15, 350], breathing: [3, 150],
    saturation: [30, 100], height: [0.2, 2.6], weight: [0.3, 400],
};

/** "45", "45 yrs", "7 months" as a span of months [from, to): whole years may be any of their months. Nothing where unknown. */
export function ageInMonths(text) {
    const found = /(\d+)\s*(\w*)/.exec(text);
    if (!found) return null;
    const count = Number(found[1]);
    const unit = found[2].toLowerCase();
    if (unit.startsWith("mo") || unit.startsWith("mth")) return [count, count + 1];
    if (unit.startsWith("w") || unit.startsWith("d")) return [0, 1];
    return [months(count), months(count + 1)];
}

const widest = (values, choose) => (values.includes(null) ? null : choose(...values));

/** The usual range over a span of ages, as [low, high] with null for no limit; nothing where none is published. */
export function usualRange(measure, [from, to]) {
    const starts = bands[measure].map((_, place) => bands[measure][place - 1]?.[0] ?? 0);
    const held = bands[measure].filter(([below], place) => starts[place] < to && below > from);
    if (held.length === 0) return null;
    return [widest(held.map(([, low]) => low), Math.min), widest(held.map(([, , high]) => high), Math.max)];
}

function inWords([low, high]) {
    if (high === null) return `from ${low}`;
    return low === null ? `up to ${high}` : `${low}–${high}`;
}

/**
 * What a typed reading is: "usual", "low", "high", or "impossible". An empty one and 0, which stands for a reading that was
 * not taken, are usual. Without an age an adult's range counts, and is not shown.
 * @param {string} measure @param {string} text @param {number[]|null} age as `ageInMonths` gives it
 * @returns {{level: string, usual: string}}
 */
export function judge(measure, text, age) {
    const range = usualRange(measure, age ?? [adult, adult + 1]);
    const usual = range && age ? inWords(range) : "";
    const value = Number(text);
    if (text.trim() === "" || value === 0) return {level: "usual", usual};
    const [least, most] = limits[measure];
    if (Number.isNaN(value) || value < least || value > most) return {level: "impossible", usual};
    if (!range || !age) return {level: "usual", usual};
    if (range[0] !== null && value < range[0]) return {level: "low", usual};
    if (range[1] !== null && value > range[1]) return {level: "high", usual};
    return {level: "usual", usual};
}

export const measureNames = Object.keys(bands);
