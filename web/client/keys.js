// Keys of the whole page: access keys, moving between screens and regions, help.

const regionKey = "F6";

export const keyHelp = [
    ["Alt + underlined letter", "Goes to the field, presses the button or opens the menu heading"],
    ["F6 / Shift + F6", "Next or previous region: menu, alerts, screen"],
    ["Ctrl + F6, Alt + Page Down", "Next open screen (with Shift, or Page Up: the previous one)"],
    ["Delete on a screen's tab", "Closes the screen"],
    ["Tab / Shift + Tab", "Next or previous field"],
    ["Enter / Esc", "The screen's default button, its cancel button (Esc asks where something was typed)"],
    ["Enter in a field with a list", "Takes the only entry that is left, or opens the list"],
    ["Arrow keys, Home, End, letters", "Move in menus, lists and grids"],
    ["Blank, Ctrl + A in a list with ticks", "Ticks the entry, ticks all or none"],
    ["Enter in a grid", "The same as a double click"],
    ["Enter or F2 in a grid with prices to write", "Opens the price; Enter writes it and goes to the next row, Esc leaves it"],
    ["Alt + Down in a field with a list", "Opens the list"],
    ["F1", "This help"],
];

export function installKeys(work) {
    document.addEventListener("keydown", (event) => {
        if (event.defaultPrevented || event.isComposing) return;
        // A held Enter must not press what has the keyboard after a box has gone.
        if (event.repeat && event.key === "Enter" && event.target.matches("button")) return event.preventDefault();
        if (handle(work, event)) event.preventDefault();
        return undefined;
    });
}

function handle(work, event) {
    if (event.altKey && !event.ctrlKey && event.key.length === 1) return pressAccessKey(work, event.key.toLowerCase());
    const dialogOpen = document.querySelector("dialog[open]") !== null;
    if (dialogOpen) return false;
    if (event.key === "F1") return done(work.frame.showHelp());
    if (event.key === "F6" && event.ctrlKey) return done(work.children.step(event.shiftKey ? -1 : 1));
    if (event.altKey && event.key === "PageDown") return done(work.children.step(1));
    if (event.altKey && event.key === "PageUp") return done(work.children.step(-1));
    if (event.key === regionKey) return done(work.frame.nextRegion(event.shiftKey ? -1 : 1));
    return false;
}

const done = () => true;

/** The innermost open place has its access keys: a box, a modal screen, the screen in front, the frame. */
function pressAccessKey(work, key) {
    const dialogs = [...document.querySelectorAll("dialog[open]")];
    const front = work.children.view(work.model.active)?.element;
    const innermost = dialogs.find((dialog) => dialog.contains(document.activeElement)) ?? dialogs.at(-1);
    const places = innermost ? [innermost] : [front, document.body];
    for (const place of places.filter(Boolean)) {
        const target = [...place.querySelectorAll(`[data-access-key="${CSS.escape(key)}"]`)]
            .find((element) => element.getClientRects().length > 0 && !element.disabled);
        if (target) return done(use(work, target));
    }
    return false;
}

function use(work, target) {
    if (target.getAttribute("role") === "treeitem" && target.closest(".v-menu")) work.frame.menu.access(target);
    else if (target.matches("button, input[type=checkbox], input[type=radio]")) {
        target.focus();
        target.click();
    } else {
        target.focus();
    }
}
