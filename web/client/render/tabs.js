import {h, newId, parseCaption, setAttribute, showCaption} from "../dom.js";

/** The pages of a screen. The arrow keys move between the captions; the page in front is the session's. */
export function tabStrip(link) {
    const element = h("div", {class: "v-tablist", role: "tablist"});
    let panels = [];
    let tabs = [];
    let front = -1;
    const show = (number) => {
        front = number;
        tabs.forEach((tab, place) => {
            tab.setAttribute("aria-selected", String(place === number));
            tab.tabIndex = place === number ? 0 : -1;
        });
        panels.forEach((panel, place) => (panel.hidden = place !== number));
    };
    const choose = (number) => {
        if (number === front) return;
        show(number);
        link.set({page: number});
    };
    const draw = () => {
        tabs = captions(link).map((caption, number) => {
            const tab = h("button", {type: "button", role: "tab", class: "v-tab", id: newId("tab"),
                                     onclick: () => choose(number)});
            showCaption(tab, caption);
            return tab;
        });
        element.replaceChildren(...tabs);
        connect();
    };
    const connect = () => panels.forEach((panel, number) => {
        setAttribute(panel, "aria-labelledby", tabs[number]?.id);
        setAttribute(tabs[number] ?? panel, "aria-controls", panel.id);
    });
    element.addEventListener("keydown", (event) => {
        const target = {ArrowRight: front + 1, ArrowLeft: front - 1, Home: 0, End: tabs.length - 1}[event.key];
        if (target === undefined) return;
        event.preventDefault();
        choose((target + tabs.length) % tabs.length);
        tabs[front].focus();
    });
    return {
        element,
        bring: show,
        choose,
        get front() {
            return front;
        },
        /** A page of which nothing shows has no tab; a mark says that somebody has filled something in. */
        showPage(number, {there, filled}) {
            tabs[number].hidden = !there && number !== front;
            tabs[number].classList.toggle("v-filled", filled);
            setAttribute(tabs[number], "aria-description", filled && "filled in");
        },
        setPanels(made) {
            panels = made;
            draw();
        },
        update() {
            if (tabs.map((tab) => tab.textContent).join() !== captions(link).map((text) => parseCaption(text).text).join())
                draw();
            if (!link.pending || front < 0) show(link.state.page);
        },
        setEnabled: (enabled) => tabs.forEach((tab) => setAttribute(tab, "disabled", !enabled)),
        focusTarget: () => tabs[front],
    };
}

const captions = (link) => link.item.captions ?? link.state.captions ?? [];
