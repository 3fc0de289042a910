import {h, newId, setAttribute} from "../dom.js";
import {TreeList} from "../treelist.js";

/** A tree of nodes with one picked. */
export function treeView(link) {
    const element = h("ul", {class: "v-tree", role: "tree", id: newId("tree")});
    let enabled = true;
    let nodes = null;
    const pick = (at, event) => {
        if (!enabled) return;
        link.set({row: at});
        if (event === "DblClick") link.fire("DblClick");
    };
    const tree = new TreeList(element, {choose: (item) => pick(Number(item.dataset.at), "")});
    element.addEventListener("dblclick", (event) => {
        const item = event.target.closest("[role=treeitem]");
        if (item) pick(Number(item.dataset.at), "DblClick");
    });
    const node = (at) => {
        const children = nodes.flatMap((other, place) => (other.parent === at ? [place] : []));
        return tree.item(nodes[at].text, children.map(node), {"data-at": at});
    };
    const draw = () => {
        ({nodes} = link.state);
        const roots = nodes.flatMap((other, place) => (other.parent < 0 ? [place] : []));
        element.replaceChildren(...roots.map(node));
        if (roots.length === 0) element.append(h("li", {class: "v-empty", role: "none"}, link.item.empty ?? "Nothing to show"));
    };
    return {
        element,
        input: element,
        group: true,
        update() {
            if (nodes !== link.state.nodes) draw();
            const at = link.pending?.to?.row ?? link.state.index;
            for (const item of element.querySelectorAll("[role=treeitem]"))
                item.setAttribute("aria-selected", String(Number(item.dataset.at) === at));
            tree.stopAt(element.querySelector(`[data-at="${at}"]`));
        },
        setEnabled(flag) {
            enabled = flag;
            setAttribute(element, "aria-disabled", !flag && "true");
            element.classList.toggle("v-disabled", !flag);
        },
        focusTarget: () => tree.stop,
    };
}
