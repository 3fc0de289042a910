#include "core/patients/doctorsqueue.h"

#include "core/rows/cells.h"
#include "core/rows/grids.h"
#include "core/session/workplace.h"

namespace core {

using namespace db::literals;

void refreshDoctorsQueue(Workplace& place, ui::DataGrid& grid, const ui::DatePicker& day) {
    refreshRows(grid,
                place.hospital().readShared(
                    "select distinct [Date],RoomNo,DocName,NumOfPat from vwDocWaitingListGrouped where date='"_sql +
                    textOf(day) + "'"),
                {"Date", "RoomNo", "DocName"});
}

}  // namespace core
