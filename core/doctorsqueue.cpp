#include "core/doctorsqueue.h"

#include "core/grids.h"

namespace core {

using namespace db::literals;

void refreshDoctorsQueue(Workplace& place, ui::DataGrid& grid, const ui::DatePicker& day) {
    const auto date = day.value() ? db::Value(*day.value()) : db::Value("");
    refreshRows(grid,
                place.hospital().read(
                    "select distinct [Date],RoomNo,DocName,NumOfPat from vwDocWaitingListGrouped where date='"_sql +
                    date + "'"),
                {"Date", "RoomNo", "DocName"});
}

}  // namespace core
