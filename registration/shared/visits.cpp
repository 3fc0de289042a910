#include "registration/shared/visits.h"

#include "core/clock/clock.h"
#include "core/numbers/numbers.h"
#include "core/rows/cells.h"
#include "core/session/session.h"
#include "core/session/workplace.h"

namespace registration {

using namespace db::literals;

std::string drawConsultId(core::Workplace& place) {
    place.session.gNextId.clear();
    core::GetNextIdNo(place, "ConsultID2");
    return place.session.gNextId;
}

core::Cells newVisitCells(const core::Session& session, const Visit& visit) {
    const auto today = session.gServerNow.date();
    return {{"recDate", today},
            {"PNo", visit.pno},
            {"consultID", visit.consultID},
            {"empID", session.gEmpID},
            {"clinicType", visit.clinic},
            {"Remarks", visit.purpose},
            {"htime", core::shortTime(session.gServerNow)},
            {"HMORef", visit.hmoReferal},
            {"referal", visit.feeForService},
            {"suppres", 0},
            {"attendedto", 0},
            {"attendedtoByDoc", 0},
            {"attendedToByNurse", 0},
            {"BillDate", today},
            {"clientCat", visit.category},
            {"CoyName", visit.retainID},
            {"Debt", session.gPatientBalance}};
}

void addScreening(core::Workplace& place, const std::string& consultID, const std::string& purpose) {
    core::addRow(place.hospital(), "select * from hhScreeningAttnd where 1=2"_sql,
                 {{"recDate", place.session.gServerNow.date()}, {"consultID", consultID}, {"Remarks", purpose}});
}

}  // namespace registration
