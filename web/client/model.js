// What the page knows of the session: the open screens and the state of their controls, kept up to date by events.

export class Model {
    /** @type {Map<string, object>} by the screen's name, in the order of opening */
    screens = new Map();
    main = "";
    active = "";

    /** Takes the session's picture of itself. */
    restore(snapshot) {
        this.title = snapshot.title ?? "";
        this.main = snapshot.main ?? "";
        this.active = snapshot.active ?? "";
        const depth = ({name}) => snapshot.modal.indexOf(name);  // modal screens last, the innermost in front
        const screens = snapshot.screens.toSorted((one, other) => depth(one) - depth(other));
        this.screens = new Map(screens.map((screen) => [screen.name, screen]));
    }

    get children() {
        return [...this.screens.keys()].filter((name) => name !== this.main);
    }

    control(path) {
        const [screen, name] = split(path);
        return this.screens.get(screen)?.controls[name];
    }

    /** Whether a user sees a control and can work it, with all that holds it. */
    worked(path) {
        const [screen] = split(path);
        const worked = {visible: true, enabled: true};
        for (let at = this.control(path); at; at = at.holder && this.control(`${screen}.${at.holder}`)) {
            worked.visible &&= at.visible;
            worked.enabled &&= at.enabled;
        }
        return worked;
    }

    /** The session took a content that the user gave. */
    take(path, content) {
        const control = this.control(path);
        const property = control && !control.password && taken[control.kind];
        if (!property) return;
        if (control.kind === "comboBox" && typeof content === "object") control.text = content.text;
        else control[property] = content?.row ?? content?.page ?? content?.zoom ?? content;
    }

    /** Merges changed properties by path. A path without a control means the screen's own. */
    change(path, properties) {
        const [screen, name] = split(path);
        const state = this.screens.get(screen);
        const target = name ? state?.controls[name] : state;
        if (!target) return;
        const {rows} = properties;
        Object.assign(target, properties, rows?.splices && {rows: spliced(target.rows, rows.splices)});
    }
}

/** Rows of which some went and others came: `from` counts them as they were. */
function spliced(before, splices) {
    const parts = splices.map(({from, come}, place) => {
        const last = splices[place - 1];
        return [before.slice(last ? last.from + last.gone : 0, from), come];
    });
    const {from, gone} = splices.at(-1);
    return [...parts, [before.slice(from + gone)]].flat(2);
}

/** The property that a kind's content goes to: the session tells it only where it ended otherwise than sent. */
const taken = {
    pictureViewer: "zoom",
    textBox: "text", comboBox: "text", checkBox: "checked", optionButton: "checked", datePicker: "date", listBox: "index",
    checkList: "index", treeView: "index", dataGrid: "row", flexGrid: "row", listView: "row", tabStrip: "page",
};

/** "frmX.txtY" as ["frmX", "txtY"]; a control's own name may hold dots no more than a screen's. */
export function split(path) {
    const dot = path.indexOf(".");
    return dot < 0 ? [path, ""] : [path.slice(0, dot), path.slice(dot + 1)];
}

/** Whether somebody filled a control in, or it has something to show. */
export function isFilled({text, checked, date, rows, image}) {
    return Boolean(text?.trim()) || checked === true || Boolean(date) || (rows?.length ?? 0) > 0 || Boolean(image);
}
