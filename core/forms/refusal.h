#pragma once

#include <string>

#include "core/session/workplace.h"
#include "ui/desktop.h"

namespace core {

/// Why something is not done: what is said, and the control, if any, that then gets the cursor.
struct Refusal {
    std::string text;
    ui::Control* control = nullptr;
    std::string title = {};  ///< of the box; empty for the program's
    ui::Icon icon = ui::Icon::none;
};

/// Says why something is not done, in a box and beside the control in question, and puts the cursor there.
void refuse(Workplace& place, const Refusal& refusal);

}  // namespace core
