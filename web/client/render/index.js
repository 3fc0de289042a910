// Which module draws which kind of control.

import {h} from "../dom.js";
import {button, label} from "./basic.js";
import {lineChart} from "./chart.js";
import {checkList} from "./checklist.js";
import {checkBox, optionButton} from "./choice.js";
import {comboBox} from "./combo.js";
import {datePicker} from "./date.js";
import {dose} from "./dose.js";
import {grid} from "./grid.js";
import {listBox, listView} from "./list.js";
import {picture} from "./picture.js";
import {pictureViewer} from "./pictureviewer.js";
import {reading} from "./reading.js";
import {statusBar} from "./statusbar.js";
import {tabStrip} from "./tabs.js";
import {textBox} from "./text.js";
import {treeView} from "./tree.js";

const makers = {
    textBox, comboBox, listBox, checkList, checkBox, optionButton, datePicker, label, button, picture, pictureViewer, tabStrip,
    treeView, listView, lineChart, statusBar, dataGrid: grid, flexGrid: grid,
};

/**
 * A control's view: `element` is what is drawn, `input` what takes the keyboard and carries the label, `group` true where
 * several elements make up the control, `update()` brings it up to date, `setEnabled(flag)` where a plain "disabled" will
 * not do, `focusTarget()` where the keyboard belongs elsewhere than on `input`, `vacant()` true while there is nothing to see.
 */
export function makeView(link) {
    const make = madeOtherwise(link.item) ?? makers[link.state.kind];
    return make ? make(link) : {element: h("div", {class: "v-unknown"}), update() {}};
}

/** What the layout wants drawn in another way than its kind usually is. */
function madeOtherwise({reads, style}) {
    if (reads) return reading;
    return style === "dose" ? dose : null;
}
