// The page of a signed-in nurse: it starts the work place.

import "./theme.js";
import {WorkPlace} from "./workplace.js";

new WorkPlace(document.querySelector("#work")).start();
