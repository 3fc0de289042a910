import {h, setAttribute, showText} from "../dom.js";

const smallest = 10;
const usual = 100;
const largest = 1000;
const step = 10;

/** A picture that is enlarged, moved about and printed: by mouse, by two fingers, by the keys + - 0 and the arrows. */
export const pictureViewer = (link) => new Viewer(link);

class Viewer {
    group = true;
    /** The fingers and the mouse on the picture, by their numbers. */
    #pointers = new Map();
    #spread = 0;
    #shown = null;

    constructor(link) {
        this.link = link;
        this.image = h("img", {class: "v-viewer-image", alt: link.item.label ?? "Image", draggable: "false", hidden: true});
        this.empty = h("div", {class: "v-picture-empty"}, "No image");
        this.frame = h("div", {class: "v-viewer-frame", tabindex: "0", role: "group"}, this.image, this.empty);
        this.bar = h("div", {class: "v-viewer-bar", hidden: true}, this.#button("−", "Smaller", () => this.#zoomTo(this.zoom - step)),
                     this.#button("+", "Larger", () => this.#zoomTo(this.zoom + step)), this.#button("Whole", "The whole image", () => this.#zoomTo(usual)));
        this.level = h("span", {class: "v-count", role: "status"});
        this.element = h("div", {class: "v-viewer"}, this.frame, h("div", {class: "v-grid-bar"}, this.level, this.bar));
        this.input = this.frame;
        this.#listen();
    }

    #button(sign, name, work) {
        return h("button", {type: "button", class: "btn btn-sm btn-outline-secondary", "aria-label": name, title: name, onclick: work}, sign);
    }

    #listen() {
        this.frame.addEventListener("click", () => this.link.fire("Click"));
        this.frame.addEventListener("dblclick", () => this.link.fire("DblClick"));
        this.frame.addEventListener("keydown", (event) => this.#key(event));
        this.frame.addEventListener("wheel", (event) => this.#wheel(event), {passive: false});
        this.frame.addEventListener("pointerdown", (event) => this.#down(event));
        this.frame.addEventListener("pointermove", (event) => this.#move(event));
        for (const name of ["pointerup", "pointercancel"])
            this.frame.addEventListener(name, (event) => this.#pointers.delete(event.pointerId));
        this.image.addEventListener("error", () => this.#show(false, "The image cannot be shown"));
    }

    get zoom() {
        return this.link.pending?.to?.zoom ?? this.link.state.zoom;
    }

    #zoomTo(percent) {
        const zoom = Math.min(largest, Math.max(smallest, Math.round(percent / step) * step));
        if (zoom === this.zoom) return;
        this.link.set({zoom});
        this.update();
    }

    #key(event) {
        const zoom = {"+": this.zoom + step, "-": this.zoom - step, 0: usual}[event.key];
        if (event.key === "Enter") this.link.fire("DblClick");
        else if (zoom !== undefined) this.#zoomTo(zoom);
        else return;
        event.preventDefault();
    }

    #wheel(event) {
        event.preventDefault();
        this.#zoomTo(this.zoom + (event.deltaY < 0 ? step : -step));
    }

    #down(event) {
        this.#pointers.set(event.pointerId, {x: event.clientX, y: event.clientY});
        this.#spread = this.#distance();
        if (this.link.state.panning || this.#pointers.size === 2) this.frame.setPointerCapture(event.pointerId);
    }

    /** Two fingers enlarge; one finger, or the mouse, moves the picture while panning is on. */
    #move(event) {
        const before = this.#pointers.get(event.pointerId);
        if (!before) return;
        this.#pointers.set(event.pointerId, {x: event.clientX, y: event.clientY});
        if (this.#pointers.size === 2) return this.#pinch();
        if (this.link.state.panning) this.frame.scrollBy(before.x - event.clientX, before.y - event.clientY);
        return undefined;
    }

    #distance() {
        const [one, other] = this.#pointers.values();
        return other ? Math.hypot(one.x - other.x, one.y - other.y) : 0;
    }

    #pinch() {
        const spread = this.#distance();
        const zoom = Math.round((this.zoom * spread) / this.#spread / step) * step;
        if (this.#spread === 0 || zoom === this.zoom) return;
        this.#spread = spread;
        this.#zoomTo(zoom);
    }

    #show(there, why = "No image") {
        this.image.hidden = !there;
        this.empty.hidden = there;
        showText(this.empty, why);
    }

    update() {
        const {image, panning, quickBar} = this.link.state;
        if (image !== this.#shown) {  // setting it again would fetch it again
            this.#shown = image;
            setAttribute(this.image, "src", image);
            this.#show(Boolean(image));
        }
        const middle = this.#middle();
        this.image.style.setProperty("--v-zoom", this.zoom / usual);
        this.#keepMiddle(middle);
        this.frame.classList.toggle("v-panning", panning);
        this.bar.hidden = !quickBar;
        showText(this.level, image ? `${this.zoom} %` : "");
    }

    /** Where in the picture the middle of the frame lies, from 0 to 1: it stays there while the picture grows. */
    #middle() {
        const {scrollLeft, scrollTop, clientWidth, clientHeight, scrollWidth, scrollHeight} = this.frame;
        return {x: (scrollLeft + clientWidth / 2) / scrollWidth, y: (scrollTop + clientHeight / 2) / scrollHeight};
    }

    #keepMiddle({x, y}) {
        const {clientWidth, clientHeight, scrollWidth, scrollHeight} = this.frame;
        this.frame.scrollTo(x * scrollWidth - clientWidth / 2, y * scrollHeight - clientHeight / 2);
    }

    setEnabled() {}
}
