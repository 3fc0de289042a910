#include "registration/shared/purposes.h"

#include "core/session/session.h"
#include "core/session/workplace.h"
#include "core/texts/texts.h"

namespace registration {

using namespace db::literals;

namespace {

/// The amount of the first row, as a text; "0" without one or for a null.
std::string amount(db::Connection& hospital, const db::Sql& sql) {
    const auto rows = hospital.read(sql);
    return rows.empty() ? "0" : rows["Amount"].textOr("0");
}

}  // namespace

db::Value settingNumber(const std::string& setting) {
    if (core::trimmed(setting).empty()) return 0;
    return db::Value(setting).int64();
}

void routePurpose(core::Workplace& place, const std::string& purpose, const std::string& retainID, ConsultPrice price) {
    if (purpose.empty()) return;
    auto& session = place.session;
    session.gAttendPurpose.clear();
    session.gScreeningAmount = "0";
    session.gConsultAmount.clear();
    auto& hospital = place.hospital();
    if (purpose == "SCREENING" || purpose == "EXEC-SCREENING" || purpose == "PRE-EMPLOYMENT") {
        session.gAttendPurpose = "SCREENING";
        session.gScreeningAmount =
            amount(hospital, "select Amount   from hScreeningAmount where coycode='"_sql + retainID + "'");
        return;
    }
    session.gAttendPurpose = purpose;
    if (purpose != "(CONSULTATION)") return;
    session.gConsultAmount =
        price == ConsultPrice::service
            ? amount(hospital, "select Price as Amount   from hserviceNHIS where SNo="_sql +
                                   settingNumber(session.gNhisServiceNo))
            : amount(hospital, "select ConAmount as Amount   from hRetainership where retainID='"_sql + retainID + "'");
}

}  // namespace registration
