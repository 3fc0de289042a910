#include "registration/shared/registrationform/card.h"

#include <algorithm>

#include "core/rows/entries.h"
#include "core/session/session.h"
#include "registration/shared/cards.h"

namespace registration {

Card::Card(core::Workplace& place, ui::Screen& screen, const Stage& stage) : Part(place, screen), stage_(stage) {
    core::fill(cboCard, {"", "SINGLE", "FAMILY"});
    core::fill(cboFile, {"", "WHILE STILL IN SERVICE", "ONE YEAR", "TILL END OF YEAR"});
    bind(cboFile, ui::Event::click, [this] { pickDuration(); });
}

void Card::pickDuration() {
    if (stage_.loading || cboFile.index() < 0) return;
    const auto today = place().now().date();
    dtExpDate.setValue({});
    if (stage_.editing) return;  // the nurse sets the date of an existing card by hand
    if (cboFile.text() == "ONE YEAR" && dtRegDate.value()) dtExpDate.setValue(dtRegDate.value()->plusMonths(12));
    if (cboFile.text() == "TILL END OF YEAR") dtExpDate.setValue(db::DateTime::of(today.parts().year, 12, 31));
}

void Card::drawNumber(const std::string& pno) {
    if (session().gAutoCardNo != "YES" || !txtOLD.text().empty()) return;
    const auto year = std::to_string(session().gServerDate.parts().year).substr(2);
    txtOLD.setText(year + "/" + pno.substr(pno.size() - std::min<std::size_t>(5, pno.size())));
}

bool Card::isGood() const {
    return dtExpDate.value() && !cardExpired(session(), dtExpDate.value());
}

void Card::refuseVisit(const std::string& pno) {
    if (!dtExpDate.value()) return refuse(" Please Specify Expiration Date for this Private Patient", dtExpDate);
    refuseExpiredCard(place(), pno, cmdRenew);
}

std::string Card::feeClass(const std::string& patientClass) const {
    const bool ofCard = cboCard.text() == "SINGLE" || cboCard.text() == "FAMILY";
    return isGeneralClass(patientClass) && ofCard ? cboCard.text() : patientClass;
}

}  // namespace registration
