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

double cardRenewalFee(db::Connection& hospital, const std::string& retainID) {
    const auto client =
        hospital.read("select CardRenewAmount from hRetainership where retainID='"_sql + retainID + "'");
    return client.empty() ? 0 : core::roundedToCents(client["CardRenewAmount"].numberOr(0));
}

}  // namespace registration
