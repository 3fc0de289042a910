import {h, newId} from "../dom.js";

let library = null;

/** The chart library, fetched when a first chart is drawn. */
function loadLibrary() {
    library ??= new Promise((resolve, reject) => {
        const script = h("script", {src: "/static/chart/chart.min.js"});
        script.addEventListener("load", () => resolve(window.Chart));
        script.addEventListener("error", () => reject(new Error("The chart library could not be loaded")));
        document.head.append(script);
    });
    return library;
}

/**
 * Lines over labels. The values at a label show under the pointer, and by the arrow keys, which speak them too. The same
 * figures stand in a table below.
 */
export function lineChart(link) {
    const canvas = h("canvas", {role: "img", id: newId("chart"), tabindex: "0"});
    const spoken = h("div", {class: "visually-hidden", role: "status", "aria-live": "polite"});
    const table = h("table", {class: "table table-sm v-table"});
    const details = h("details", {class: "v-chart-table", open: true}, h("summary", {}, "Figures as a table"), table);
    const element = h("div", {class: "v-chart"}, h("div", {class: "v-chart-canvas"}, canvas), spoken, details);
    let chart = null;
    let drawn = "";
    let at = -1;
    const draw = async () => {
        const Chart = await loadLibrary();
        chart?.destroy();
        chart = new Chart(canvas, configuration(link.state, (name) => themeColor(element, name)));
    };
    const walkTo = (label) => {
        at = label;
        const active = label < 0 ? [] : link.state.series.flatMap(
            ({points}, datasetIndex) => (points[label] === null ? [] : [{datasetIndex, index: label}]));
        spoken.textContent = label < 0 ? "" : valuesAt(link.state, label);
        chart?.setActiveElements(active);
        chart?.tooltip.setActiveElements(active, {x: 0, y: 0});
        chart?.update();
    };
    canvas.addEventListener("keydown", (event) => {
        const last = link.state.labels.length - 1;
        const to = {ArrowRight: at + 1, ArrowLeft: at < 0 ? last : at - 1, Home: 0, End: last}[event.key];
        if (to === undefined || last < 0) return;
        event.preventDefault();
        walkTo(Math.max(0, Math.min(to, last)));
    });
    canvas.addEventListener("blur", () => walkTo(-1));
    document.addEventListener("themechange", () => element.isConnected && draw());
    return {
        element,
        input: canvas,
        group: true,
        update() {
            const {title, xTitle, yTitle, labels, series} = link.state;
            const shown = JSON.stringify([title, xTitle, yTitle, labels, series]);
            if (shown === drawn) return;
            drawn = shown;
            canvas.setAttribute("aria-label", describe(link.state));
            fillTable(table, link.state);
            at = -1;
            draw().catch(() => (details.open = true));
        },
        setEnabled() {},
        focusTarget: () => canvas,
    };
}

/** A colour of the theme as the canvas wants it. */
function themeColor(element, name) {
    element.style.color = `var(${name})`;
    const {color} = getComputedStyle(element);
    element.style.color = "";
    return color;
}

function describe({title, xTitle, yTitle, labels, series}) {
    const lines = series.map((line) => {
        const last = line.points.findLast((point) => point !== null);
        return last === undefined ? line.name : `${line.name}, last ${last}`;
    });
    const axes = [yTitle, xTitle].filter(Boolean).join(" by ");
    return `${title || "Chart"}: ${axes && `${axes}, `}${labels.length} points. ${lines.join("; ")}`;
}

/** What the lines have at a label, as it is read out. */
function valuesAt({labels, series}, label) {
    const values = series.map(({name, points}) => `${name} ${points[label] ?? "not taken"}`);
    return `${labels[label]}, ${label + 1} of ${labels.length}: ${values.join(", ")}`;
}

function fillTable(table, {title, xTitle, yTitle, labels, series}) {
    const head = h("tr", {}, h("th", {scope: "col"}, xTitle), ...series.map((line) => h("th", {scope: "col"}, line.name)));
    const rows = labels.map((label, at) => h(
        "tr", {}, h("th", {scope: "row"}, label), ...series.map((line) => h("td", {}, String(line.points[at] ?? "")))));
    table.replaceChildren(h("caption", {}, [title, yTitle].filter(Boolean).join(", ")), h("thead", {}, head), h("tbody", {}, ...rows));
}

/** Lines differ in colour, dash and mark, so that nobody has to tell colours apart. */
function configuration({title, xTitle, yTitle, labels, series}, color) {
    const looks = [{color: color("--v-line1"), dash: [], mark: "circle"}, {color: color("--v-line2"), dash: [6, 4], mark: "rectRot"}];
    const text = color("--v-text");
    const heading = (words) => ({display: Boolean(words), text: words, color: text});
    const scale = (words) => ({ticks: {color: text}, grid: {color: color("--v-border")}, title: heading(words)});
    return {
        type: "line",
        data: {
            labels,
            datasets: series.map((line, at) => {
                const look = looks[at % looks.length];
                return {label: line.name, data: line.points, borderColor: look.color, backgroundColor: look.color,
                        borderDash: look.dash, pointStyle: look.mark, pointRadius: 4, tension: 0.15};
            }),
        },
        options: {
            animation: false,
            responsive: true,
            maintainAspectRatio: false,
            color: text,
            interaction: {mode: "index", intersect: false},
            scales: {x: scale(xTitle), y: scale(yTitle)},
            plugins: {title: heading(title), legend: {labels: {color: text, usePointStyle: true}}},
        },
    };
}
