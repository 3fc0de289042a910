// The ring. Browsers let a page sound only after the user has touched it; a ring that came earlier sounds then.

let pending = null;

async function play(file) {
    try {
        await new Audio(`/program/${encodeURIComponent(file)}`).play();
    } catch (error) {
        if (error.name !== "NotAllowedError") return;
        if (!pending) for (const touch of ["pointerdown", "keydown"]) addEventListener(touch, late, {once: true});
        pending = file;
    }
}

function late() {
    const file = pending;
    pending = null;
    if (file) play(file);
}

/** Plays a sound file of the session's program directory. */
export const ring = (file) => play(file.replaceAll("\\", "/").split("/").at(-1));
