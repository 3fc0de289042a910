#include "core/care/lastreadings.h"

#include "core/session/trap.h"

namespace core {

using namespace db::literals;

void LastReadings::show(Workplace& place, const std::string& pno) {
    grdLast.clear();
    if (pno.empty()) return;
    quietly(place, [&] {
        grdLast.bind(place.hospital().read(
            "select top 4 PreDate as Date,PreTime as Time,Temp,Pressure,Pulse,RespRatio,SPO2,Weight,Height from "
            "hPreConsult where PNo='"_sql +
            pno + "' order by ID desc"));
    });
}

}  // namespace core
