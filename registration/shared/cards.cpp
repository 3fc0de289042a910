#include "registration/shared/cards.h"

#include "core/session/session.h"
#include "core/texts/texts.h"

namespace registration {

using namespace db::literals;

bool cardExpired(const core::Session& session, const std::optional<db::DateTime>& expiry) {
    return expiry && expiry->date() <= session.gServerDate.date();
}

void refuseExpiredCard(core::Workplace& place, const std::string& pno, ui::Button& cmdRenew) {
    place.desktop.message("Patient's Card has Expired");
    place.hospital().execute("update  hpatients set expired =1 where pno='"_sql + pno + "'");
    cmdRenew.setEnabled(true);
}

bool isGeneralClass(const std::string& patientClass) {
    return patientClass == "GENERAL" || patientClass == "OUT-PATIENT" || patientClass == "(GENERAL)";
}

double statedFee(db::Connection& hospital, const db::Sql& sql, std::string_view column) {
    const auto rows = hospital.read(sql);
    return rows.empty() ? 0 : core::roundedToCents(rows[column].numberOr(0));
}

double cardRenewalFee(db::Connection& hospital, const std::string& retainID) {
    return statedFee(hospital, "select CardRenewAmount from hRetainership where retainID='"_sql + retainID + "'",
                     "CardRenewAmount");
}

}  // namespace registration
