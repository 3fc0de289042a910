// Layout files: how a screen's controls lie. docs/screens.md describes every key.

const cache = new Map();

/** The layout of a screen as the renderer wants it; a screen without a file gets all its controls in their order. */
export async function layoutOf(name, state) {
    if (!cache.has(name)) cache.set(name, await load(name));
    const layout = normalise(cache.get(name));
    return complete(layout.like ? onlyOwn(layout, state) : layout, state);
}

/** A layout may be like another screen's: it then has that one's keys, but for those of its own. */
async function load(name) {
    try {
        const answer = await fetch(`/layouts/${encodeURIComponent(name)}.json`);
        const layout = answer.ok ? await answer.json() : {};
        return layout.like ? {...(await load(layout.like)), ...layout} : layout;
    } catch {
        return {};
    }
}

const toItem = (entry) => (typeof entry === "string" ? {control: entry} : entry);

/** "chk(1..24)" stands for the elements of a control array. */
function expand(entry) {
    const item = toItem(entry);
    const range = /^(.*)\((\d+)\.\.(\d+)\)$/.exec(item.control);
    if (!range) return [item];
    const [, name, first, last] = range;
    const indexes = Array.from({length: Number(last) - Number(first) + 1}, (_, step) => Number(first) + step);
    return indexes.map((index) => ({...item, control: `${name}(${index})`}));
}

/** Rows are lists; an entry that is none is a row's part that flows with its neighbours. */
function normaliseSection(section) {
    if (section.tabs) return {...section, pages: section.pages.map((page) => page.map(normaliseSection))};
    const rows = (section.rows ?? []).map((row) => ({
        together: Array.isArray(row),
        items: (Array.isArray(row) ? row : [row]).flatMap(expand),
    }));
    return {...section, columns: section.columns ?? 2, rows};
}

/** A record screen has its commands where each has them: its layout names only what it has besides. */
function withCommands(layout) {
    const commands = [{control: "cmdAdd", width: 2, style: "primary"}, {control: "cmdEdit", width: 2},
                      {control: "cmdDel", width: 2, style: "danger"}, {control: "cmdRefresh", width: 2}, ...layout.record];
    return {
        default: "OKButton",
        cancel: "cmdCancel",
        ...layout,
        sections: [{rows: [commands]}, ...(layout.sections ?? [])],
        buttons: ["OKButton", "cmdCancel", ...(layout.buttons ?? []), "CancelButton"],
    };
}

export function normalise(file) {
    const layout = file.record ? withCommands(file) : file;
    return {
        ...layout,
        sections: (layout.sections ?? []).map(normaliseSection),
        beside: (layout.beside ?? []).map(normaliseSection),
        buttons: (layout.buttons ?? []).flatMap(expand),
    };
}

function* itemsOf(sections) {
    for (const section of sections) {
        if (section.tabs) yield {control: section.tabs};
        if (section.tabs) for (const page of section.pages) yield* itemsOf(page);
        else for (const row of section.rows) yield* row.items;
    }
}

/** Controls that are nothing to see on a screen of their own. */
const unseen = new Set(["timer", "menuItem", "childArea"]);
const wide = new Set(["dataGrid", "flexGrid", "listView", "lineChart", "treeView"]);

const sectionOf = (controls) => ({
    columns: 2,
    rows: controls.map(([name, {kind}]) => ({
        together: false,
        items: [{control: name, ...(wide.has(kind) ? {width: "full"} : {})}],
    })),
});

/** The other screen's controls that this one does not have are left out, and its marks that do not hold here. */
function onlyOwn(layout, state) {
    const names = new Set(Object.keys(state.controls).map((name) => name.toLowerCase()));
    const optional = new Set(layout.optional ?? []);
    const has = (item) => names.has(item.control.toLowerCase());
    const marked = (item) => optional.has(item.control) ? {...item, required: false} : item;
    const section = (part) => part.tabs
        ? {...part, pages: part.pages.map((page) => page.map(section))}
        : {...part, rows: part.rows.map((row) => ({...row, items: row.items.filter(has).map(marked)}))
                              .filter((row) => row.items.length > 0)};
    return {...layout, sections: layout.sections.map(section), beside: layout.beside.map(section), buttons: layout.buttons.filter(has)};
}

const inBanner = ({patient}) => (patient ? [...patient.name.map(toItem), ...patient.facts] : []);

/** Adds what the file does not name, in the order of declaration, so that no control is ever lost to the user. */
function complete(layout, state) {
    const named = new Set([...itemsOf([...layout.sections, ...layout.beside]), ...inBanner(layout), ...layout.buttons].map((item) => item.control.toLowerCase()));
    const holders = new Set(Object.values(state.controls).map((control) => control.holder));
    const isMissing = ([name, {kind}]) => !named.has(name.toLowerCase()) && !unseen.has(kind) && !holders.has(name);
    const all = (state.order ?? Object.keys(state.controls)).map((name) => [name, state.controls[name]]);
    const missing = all.filter(isMissing);
    const fields = missing.filter(([, {kind, tab}]) => !tab && kind !== "button" && kind !== "tabStrip");
    const strips = missing.filter(([, {kind}]) => kind === "tabStrip");
    const buttons = missing.filter(([, {kind, tab}]) => !tab && kind === "button");
    const pageOf = (strip, page) => missing.filter(([, {tab}]) => tab?.[0] === strip && tab[1] === page);
    const tabs = strips.map(([name, {captions}]) => ({
        tabs: name, pages: captions.map((_, page) => [sectionOf(pageOf(name, page))]),
    }));
    const sections = [...layout.sections, ...(fields.length > 0 ? [sectionOf(fields)] : []), ...tabs];
    return {...layout, sections, buttons: [...layout.buttons, ...buttons.map(([name]) => ({control: name}))]};
}
