// Light and dark: as the system has it, until the user chooses here.

const storageKey = "vorel.theme";
const dark = matchMedia("(prefers-color-scheme: dark)");
const chosen = () => localStorage.getItem(storageKey);

export const isDark = () => (chosen() ? chosen() === "dark" : dark.matches);

export function applyTheme() {
    document.documentElement.dataset.theme = isDark() ? "dark" : "light";
    document.dispatchEvent(new Event("themechange"));
}

export function switchTheme() {
    localStorage.setItem(storageKey, isDark() ? "light" : "dark");
    applyTheme();
}

dark.addEventListener("change", applyTheme);
applyTheme();
