#pragma once

#include "core/session/workplace.h"
#include "ui/controls.h"

namespace core {

/// Reads again how many patients wait for each doctor on a day, without moving the row under the cursor. A blank day
/// has nobody waiting. Throws db::Error.
void refreshDoctorsQueue(Workplace& place, ui::DataGrid& grid, const ui::DatePicker& day);

}  // namespace core
