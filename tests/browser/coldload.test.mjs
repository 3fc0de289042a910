// What a nurse waits for who has never been here, at the end of a slow line: every byte that the host sends counts.

import assert from "node:assert/strict";
import test from "node:test";

import {openPage, signIn, useHost} from "./support/work.mjs";

const house = useHost({}, []);

const line = {offline: false, latency: 200, downloadThroughput: 750_000 / 8, uploadThroughput: 750_000 / 8};

/** A page at the end of the slow line, and what its requests took by address, as the browser counts. */
async function onSlowLine() {
    const page = await openPage(house);
    const devtools = await page.context().newCDPSession(page);
    const sent = new Map();
    const addresses = new Map();
    devtools.on("Network.requestWillBeSent", ({requestId, request}) => addresses.set(requestId, new URL(request.url).pathname));
    devtools.on("Network.loadingFinished", ({requestId, encodedDataLength}) => sent.set(addresses.get(requestId), encodedDataLength));
    await devtools.send("Network.enable");
    await devtools.send("Network.emulateNetworkConditions", line);
    return {page, sent};
}

test("sign-in and main window together are below 110 KB", async (context) => {
    const {page, sent} = await onSlowLine();
    const before = house.host.proxy.told;
    const start = performance.now();
    await signIn(page);
    await page.getByRole("treeitem", {name: "OPD Vital Signs"}).waitFor();
    await page.locator(".v-connection").waitFor({state: "hidden"});
    const seconds = (performance.now() - start) / 1000;
    await page.waitForLoadState("networkidle");
    const bytes = house.host.proxy.told - before;
    context.diagnostic(`${(bytes / 1000).toFixed(1)} KB, ${seconds.toFixed(2)} s`);
    for (const [address, length] of sent) context.diagnostic(`${address}: ${length}`);
    assert.ok(bytes < 110_000, `${bytes} bytes`);
});
