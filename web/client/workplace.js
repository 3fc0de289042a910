// The work place: it hears the session and keeps menu, alerts, screens and boxes true to it.

import {Boxes} from "./boxes.js";
import {Children} from "./children.js";
import {Comeback} from "./comeback.js";
import {Frame} from "./frame.js";
import {Journal} from "./journal.js";
import {installKeys} from "./keys.js";
import {layoutOf} from "./layout.js";
import {Modals} from "./modals.js";
import {Model, split} from "./model.js";
import {Notices} from "./notices.js";
import {Places} from "./places.js";
import {Session} from "./session.js";
import {ring} from "./sound.js";

export class WorkPlace {
    /** Focus that moves now is the page's own doing: no control hears of it. */
    focusIsQuiet = false;
    layout = {};

    constructor(root) {
        this.model = new Model();
        this.notices = new Notices();
        this.session = new Session({
            resumed: (line) => this.#restore(line),
            message: (message, request, before) => this.#hear(message, request, before),
            progress: (events, request, before) => this.#draw(events, request, before),
            sent: (request) => this.journal.sent(request),
            state: (state) => this.#connection(state),
            ended: (reason) => this.#ended(reason),
            signedOut: () => location.assign("/sign-in"),
            failed: (error) => this.#failed(error),
        });
        this.journal = new Journal(this);
        this.comeback = new Comeback(this);
        this.children = new Children(this);
        this.modals = new Modals(this);
        this.boxes = new Boxes(this);
        this.frame = new Frame(this, root);
        this.places = new Places(this);
        installKeys(this);
    }

    start() {
        this.notices.connection("connecting");
        this.session.connect();
    }

    get main() {
        return this.model.screens.get(this.model.main);
    }

    get childArea() {
        return Object.values(this.main?.controls ?? {}).find((control) => control.kind === "childArea");
    }

    /** Fires a control of the main window. */
    fire(name, event = "") {
        this.session.send({fire: `${this.model.main}.${name}${event ? `.${event}` : ""}`});
    }

    view(name) {
        return this.modals.view(name) ?? this.children.view(name);
    }

    /** Runs something that moves the focus without any control hearing of it. */
    quietly(work) {
        const before = this.focusIsQuiet;
        this.focusIsQuiet = true;
        try {
            work();
        } finally {
            this.focusIsQuiet = before;
        }
    }

    #failed(error) {
        console.error(error);
        this.notices.show("Something on this page went wrong. Reload it: the session keeps your work.", [], {stays: true});
    }

    async #restore(line) {
        const place = this.places.current();
        this.boxes.show(null);
        this.quietly(() => {
            this.modals.clear();
            this.children.clear();
        });
        this.frame.root.inert = false;
        this.host = line.host;
        this.model.restore(line.snapshot);
        this.journal.resumed(line);
        document.title = this.model.title || document.title;
        if (this.main) await this.#drawMain();
        await this.#drawScreens();
        if (!this.boxes.open && !this.places.restore(place)) this.focusLost();
        this.boxes.show(this.session.question);
        this.comeback.heard();
    }

    async #drawMain() {
        this.layout = (await layoutOf(this.model.main, this.main)).main ?? {};
        this.frame.draw();
    }

    async #drawScreens() {
        await this.children.refresh();
        await this.modals.refresh();
        if (this.main) this.frame.update();
    }

    /** Takes a reply or a push. The journal hears of an operation when it is over, and then of all that it did. */
    async #hear(message, request, before) {
        const events = message.events ?? [];
        const refused = events.find((event) => "error" in event);
        // Where the keyboard is to go beside a box it goes after the box: it may be typing.
        const focus = message.waiting ? events.findLast((event) => "focus" in event)?.focus : undefined;
        await this.#draw(focus ? events.filter((event) => !("focus" in event)) : events, request, before);
        if (request && "set" in request) this.#refresh(request.set);
        this.journal.replied({...message, events: [...before, ...events]}, request);
        if (refused && request && !message.waiting) this.#refused(request, refused.error);
        if (request && "answer" in request) this.boxes.forget();
        if ("waiting" in message) this.boxes.show(message.waiting, focus);
        this.comeback.heard(message);
    }

    /** Takes events one by one. What a user set holds until they say otherwise. */
    async #draw(events, request, before) {
        const first = before.length === 0 && !events.some((event) => "error" in event);
        if (request && "set" in request && first) this.model.take(request.set, request.to);
        for (const event of events) await this.#event(event);
    }

    async #event(event) {
        const [kind] = Object.keys(event).filter((key) => key in this.#hearers);
        if (kind) await this.#hearers[kind](event);
    }

    #hearers = {
        opened: (event) => this.#opened(event),
        hidden: ({hidden}) => this.#gone(hidden, (screen) => (screen.visible = false)),
        closed: ({closed}) => this.#gone(closed, () => this.model.screens.delete(closed)),
        changed: ({changed}) => this.#changed(changed),
        focus: ({focus}) => this.focus(focus),
        sound: ({sound}) => ring(sound),
        report: ({report}) => this.notices.report(report),
        print: () => window.print(),
    };

    async #opened({opened, modal, state}) {
        this.model.screens.delete(opened);
        this.model.screens.set(opened, {...state, name: opened, visible: true, modal});
        if (opened === this.model.main || (!this.model.main && isMainWindow(state))) {
            this.model.main = opened;
            return this.#drawMain();
        }
        if (!modal) this.model.active = opened;
        await this.#drawScreens();
        if (!modal && !this.boxes.open) this.quietly(() => this.children.view(opened)?.focusFirst());
    }

    async #gone(name, forget) {
        const screen = this.model.screens.get(name);
        if (!screen) return;
        forget(screen);
        if (this.model.active === name) this.model.active = this.model.children.findLast(
            (other) => this.model.screens.get(other).visible) ?? "";
        await this.#drawScreens();
    }

    #refresh(path) {
        const [screen, control] = split(path);
        this.view(screen)?.refresh([control]);
    }

    #changed(changes) {
        for (const [path, properties] of Object.entries(changes)) this.model.change(path, properties);
        const paths = Object.keys(changes).map(split);
        const screens = new Set(paths.map(([screen]) => screen));
        for (const screen of screens) {
            const controls = paths.filter(([one]) => one === screen).map(([, control]) => control);
            if (controls.includes("")) this.#captionChanged(screen);
            this.view(screen)?.refresh(controls);
        }
        if (screens.has(this.model.main)) return this.#mainChanged();
        return undefined;
    }

    #captionChanged(screen) {
        this.children.captionChanged(screen);
        this.view(screen)?.showTitle();
    }

    async #mainChanged() {
        const active = this.childArea?.children?.find((child) => child.active)?.name;
        if (active) this.model.active = active;
        this.frame.update();
        await this.children.refresh();
    }

    /** The session moves the keyboard; what it leaves does not hear of that, what it comes to does. */
    focus(path) {
        const [screen, control] = split(path);
        this.quietly(() => this.view(screen)?.focus(control));
        this.view(screen)?.gotFocus(control);
    }

    #refused(request, error) {
        if (this.comeback.running) return;  // it tells at its end what could not be done
        if ("set" in request || "fire" in request) this.notices.show(`Not possible now: ${error}`);
    }

    /** Where nothing has the keyboard any more, the screen in front gets it. */
    focusLost() {
        queueMicrotask(() => {
            if (this.boxes.open || document.activeElement !== document.body) return;
            const view = this.children.view(this.model.active);
            this.quietly(() => (view ? view.focusAgain() : this.frame.menu.focus()));
        });
    }

    menuChosen() {
        this.frame.closeMenu();
    }

    #connection(state) {
        if (state === "replaced") this.#lieStill();
        this.notices.connection(state, () => this.session.takeBack());
    }

    /** What works this session now is another page. */
    #lieStill() {
        this.boxes.show(null);
        this.quietly(() => this.modals.clear());
        this.frame.root.inert = true;
    }

    #ended(reason) {
        this.boxes.show(null);
        this.modals.clear();
        this.frame.root.inert = false;
        this.frame.ended(reason, this.journal.ended(reason));
    }
}

const isMainWindow = (state) => Object.values(state.controls).some((control) => control.kind === "childArea");
