#pragma once

#include <string>

#include "core/session/workplace.h"
#include "ui/controls.h"

namespace core {

/// The last readings of a patient beside the fields of the new ones: a help to the eye, of which nothing is stored.
class LastReadings {
public:
    explicit LastReadings(ui::Screen& screen) : grdLast(screen, "grdLast") {}

    ui::DataGrid grdLast;

    /// Shows the four newest readings of a patient by the system number. One that fails is a line in the log, and shows
    /// none.
    void show(Workplace& place, const std::string& pno);
    void clear() { grdLast.clear(); }
};

}  // namespace core
