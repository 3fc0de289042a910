#pragma once

#include "core/forms/part.h"
#include "ui/controls.h"

namespace core {

/// The patients who wait, in sight beside a screen that picks them in a combo: the same entries, a pick in either is a
/// pick in both, and a button that goes on to the next one.
class WaitingList : public Part {
public:
    WaitingList(Workplace& place, ui::Screen& screen, ui::ComboBox& patients);

    /// Shows the combo's entries: for the screen to call when it has filled it.
    void show();
    /// Marks the combo's pick: for the screen to call when a patient was picked.
    void follow();

    ui::ListBox lstWaiting;
    ui::Button cmdNext;

private:
    void pickNext();

    ui::ComboBox& patients_;
};

}  // namespace core
