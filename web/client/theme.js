// Light and dark: as the system has it, until the user chooses here.

const storageKey = "vorel.theme";
const dark = matchMedia("(prefers-color-scheme: dark)");
const chosen = () => localStorage.getItem(storageKey);

export const isDark = () => (chosen() ? chosen() === "dark" : dark.matches);

function show(theme) {
    document.documentElement.dataset.theme = theme;
    document.dispatchEvent(new Event("themechange"));
}

export function applyTheme() {
    show(isDark() ? "dark" : "light");
}

export function switchTheme() {
    localStorage.setItem(storageKey, isDark() ? "light" : "dark");
    applyTheme();
}

dark.addEventListener("change", applyTheme);
applyTheme();
// Paper is white, whatever the screen is.
addEventListener("beforeprint", () => show("light"));
addEventListener("afterprint", applyTheme);
