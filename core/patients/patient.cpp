#include "core/patients/patient.h"

#include <cmath>

#include "core/session/mainwindow.h"
#include "core/session/session.h"
#include "core/session/trap.h"
#include "core/session/workplace.h"
#include "core/texts/texts.h"

namespace core {
namespace {

using namespace db::literals;

double lastBalance(Workplace& place, const std::string& pno) {
    const auto bill = place.hospital().read(
        "select top 1 ClientID, (ISNULL(AmountBilled , 0) + ISNULL(dbo.Billing.DebtBF, 0)) - (ISNULL(Discount, 0) + "
        "ISNULL(AmountPaid, 0)) as Balance from Billing where PNo='"_sql +
        pno + "' order by ID desc");
    if (bill.empty() || bill["ClientID"].textOr() != place.session.gPrivateTariff) return 0;
    return bill["Balance"].numberOr(0);
}

void tellMainWindow(Workplace& place, double balance) {
    const auto amount = moneyText(std::abs(balance));
    const bool owes = amount != moneyText(0);
    place.session.gPatientHasBalance = owes;
    auto* window = place.mainWindow;
    if (window == nullptr) return;
    window->Timer2_Timer();
    if (owes) window->showDebt((balance > 0 ? "Debt: " : "Credit: ") + amount);
    window->enableTimer2(owes);
}

}  // namespace

bool HasVisitToday(Workplace& place, const std::string& pno) {
    bool visited = false;
    trapped(place, [&] {
        visited = !place.hospital().read("select pno from qryhVisitsForToday where pno='"_sql + pno + "'").empty();
    });
    return visited;
}

void ShowAncInfo(Workplace& place, const std::string& pno) {
    trapped(place, [&] {
        const auto patient = place.hospital().read("select top 1  ANCInfo  from hPatients where PNo='"_sql + pno + "'");
        if (patient.empty()) return;
        const auto info = patient["ANCInfo"].textOr();
        if (info.empty() || info == "NIL" || info == "NONE") return;
        place.desktop.showModal("frmComments");
    });
}

void RefreshDebtInfo(Workplace& place, const std::string& pno) {
    place.session.gPatientBalance = 0;
    if (place.mainWindow != nullptr) place.mainWindow->showDebt("0");
    const double balance = lastBalance(place, pno);
    place.hospital().execute("update hPatients set isRev = 1, DebtBF="_sql + balance + ", Debt=" + balance +
                             " where pno = '" + pno + "'");
    place.session.gPatientBalance = balance;
    tellMainWindow(place, balance);
}

}  // namespace core
