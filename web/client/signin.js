// The sign-in page: what an earlier session left in this tab goes, and the keyboard stands where typing goes on.

import "./theme.js";

for (const key of ["vorel.outbox", "vorel.place"]) sessionStorage.removeItem(key);
const user = document.querySelector("#user");
if (user.value !== "") document.querySelector("#password").focus();
