// One control of a screen as its view works with it: its state, and the requests that a user makes through it.

export class ControlLink {
    /**
     * @param {import("./screen.js").ScreenView} screen
     * @param {string} name
     * @param {object} item what the layout says of the control
     */
    constructor(screen, name, item) {
        this.screen = screen;
        this.name = name;
        this.item = item;
        this.path = `${screen.name}.${name}`;
        this.session = screen.work.session;
    }

    get state() {
        return this.screen.state.controls[this.name];
    }

    /** Whether a user sees it, if she turns to its page: the session tells nothing of lists that are hidden. */
    get shows() {
        return this.screen.work.model.worked(this.path).visible;
    }

    /** An event may come late, from an element of a screen that is gone: nothing handles it. */
    handles(event) {
        return this.screen.state?.controls[this.name].events?.includes(event) ?? false;
    }

    /** Runs an event of the control; without a name the one that firing it means. */
    fire(event = "") {
        if (event && !this.handles(event)) return;
        this.session.send({fire: event ? `${this.path}.${event}` : this.path});
    }

    /** Tells the session what the user typed or picked. The view is brought up to date when the session has answered. */
    set(content) {
        this.session.send({set: this.path, to: content}, this.state.password === true);
    }

    /** Asks for the entries of a long list that hold a text, from a place among them on; they come as `state.window`. */
    look(holds, from) {
        if (this.screen.state) this.session.send({list: this.path, holds, from});
    }

    /** What the user gave and the session has not confirmed yet, as `{to}`, or nothing. */
    get pending() {
        return this.session.pending(this.path);
    }

    /** The text to show: what was typed last, or what the session holds. */
    get text() {
        const pending = this.pending;
        return typeof pending?.to === "string" ? pending.to : (this.state.text ?? "");
    }
}
