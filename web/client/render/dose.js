import {h, setAttribute, showText} from "../dom.js";

/** What a dose is, with its sign: seen at a glance, and not by its colour alone. */
const kinds = {given: "✓ given", now: "+ now", open: "open"};

/** A dose of a drug as a tile for a finger. The doses of a page are one stop of the Tab key; the arrow keys walk them. */
export function dose(link) {
    const number = link.state.caption.replace(/\D+/g, "");
    const sign = h("span", {class: "v-dose-sign"});
    const element = h("button", {type: "button", class: "v-dose", role: "checkbox"}, h("span", {class: "v-dose-number"}, number), sign);
    const checked = () => link.pending?.to ?? link.state.checked;
    const draw = () => {
        const kind = checked() ? (link.state.enabled ? "now" : "given") : "open";
        element.dataset.dose = kind;
        element.setAttribute("aria-checked", String(checked()));
        element.setAttribute("aria-label", `Dose ${number}, ${kind}`);
        showText(sign, kinds[kind]);
    };
    element.addEventListener("click", () => {
        link.set(!checked());
        draw();
    });
    element.addEventListener("keydown", (event) => walk(event, element));
    element.addEventListener("focus", () => makeStop(element));
    return {
        element,
        input: element,
        update: draw,
        setEnabled(enabled) {
            setAttribute(element, "disabled", !enabled);
            if (enabled && element.parentElement) queueMicrotask(() => keepOneStop(element));
        },
    };
}

const tilesAround = (element) => [...(element.closest(".v-fields")?.querySelectorAll(".v-dose:enabled") ?? [])];

function makeStop(element) {
    for (const tile of tilesAround(element)) tile.tabIndex = tile === element ? 0 : -1;
}

/** One tile of the page takes the Tab key: the one worked last, or the first that is open. */
function keepOneStop(element) {
    const tiles = tilesAround(element);
    const stops = tiles.filter((tile) => tile.tabIndex === 0);
    if (tiles.length > 0 && stops.length !== 1) makeStop(tiles[0]);
}

function walk(event, element) {
    const tiles = tilesAround(element);
    const at = tiles.indexOf(element);
    const inRow = tiles.filter((tile) => tile.offsetTop === element.offsetTop).length;
    const step = {ArrowRight: 1, ArrowLeft: -1, ArrowDown: inRow, ArrowUp: -inRow, Home: -at, End: tiles.length - 1 - at}[event.key];
    if (step === undefined || !tiles[at + step]) return;
    event.preventDefault();
    tiles[at + step].focus();
}
