// The sign-in page: the keyboard stands where typing goes on. Whoever comes here from a session that is over reads why, and
// what is kept for her; what else the session left in this tab goes.

import "./theme.js";
import {h} from "./dom.js";
import {dropButton, keptWords, putAside, reasonOf} from "./kept.js";

const user = document.querySelector("#user");
const kept = putAside();
for (const key of ["vorel.outbox", "vorel.place"]) sessionStorage.removeItem(key);
if (kept) tell();
// Offered only where the host's message speaks of it.
const others = document.querySelector("#others");
others.hidden = !document.querySelector("#message").textContent.includes(others.textContent.trim());
if (user.value !== "") document.querySelector("#password").focus();

function tell() {
    const reason = reasonOf(kept, document.querySelector("meta[name=vorel-host]").content);
    const place = document.querySelector("#kept");
    const drop = dropButton(() => {
        place.replaceChildren(h("p", {}, "It is dropped."));
        user.focus();
    });
    place.append(h("p", {}, h("strong", {}, reason)), ...(kept.parts.length > 0 ? [...keptWords(kept), drop] : []));
    place.hidden = false;
    user.value ||= kept.user;
}
