#include "billing/billlines.h"
#include "core/rows/cells.h"
#include "core/rows/entries.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "registration/shared/cards.h"
#include "registration/shared/registrationform/registrationform.h"
#include "ui/raised.h"

namespace registration {

void RegistrationForm::cboPat_Click() {
    if (rowLoading_ || !client_.pickClient()) return;
    dtExpDate.setValue({});
    if (isPrivate()) {
        cboFile.setText("ONE YEAR");
        cboClient.setText("PRIVATE");
        txtEmp.setText("NIL");
        txtPolicy.setText("NIL");
        CboRef.setText("YES");
        cboRefHmo.setText("NO");
    } else {
        for (auto* list : {&cboFile, &cboClient, &txtPolicy, &CboRef, &cboRefHmo}) list->setIndex(-1);
        txtEmp.clear();
    }
    cboCard.setText("SINGLE");
}

void RegistrationForm::cboClient_Click() {
    if (rowLoading_) return;
    client_.pickCategory();
    if (!cboClient.text().empty()) categoryPicked();
}

void RegistrationForm::chkAll_Click() {
    if (chkAll.checked()) client_.offerAllCategories();
}

/// A family's card leads to dependants at once.
void RegistrationForm::cboCard_Click() {
    if (!rowLoading_ && !editing() && cboCard.text() == "FAMILY") dependantMode_ = true;
}

void RegistrationForm::cboFile_Click() {
    if (rowLoading_ || cboFile.index() < 0) return;
    const auto today = place().now().date();
    dtExpDate.setValue({});
    if (editing()) return;  // the nurse sets the date of an existing card by hand
    if (cboFile.text() == "ONE YEAR" && dtRegDate.value()) dtExpDate.setValue(dtRegDate.value()->plusMonths(12));
    if (cboFile.text() == "TILL END OF YEAR") dtExpDate.setValue(db::DateTime::of(today.parts().year, 12, 31));
}

void RegistrationForm::cboMat_Click() {
    if (rowLoading_) return;
    if (cboMat.text() == "NEONATE")
        core::showEntry(cboClin, "(IN-PATIENT)");
    else
        clearClinic();
}

void RegistrationForm::cboIntro_Click() {
    const auto entry = core::entryOf(cboIntro.text());
    introducedById_ = entry.key.empty() ? entry.name : entry.key;
}

void RegistrationForm::chkReg_Click() {
    if (chkReg.checked() && !mayTakeAttendance()) {
        chkReg.setChecked(false);
        return message("Only FrontDesk Module can take Attendance! Edit Allowed");
    }
    fraAttd.setEnabled(chkReg.checked());
}

void RegistrationForm::dtDate_Change() {
    if (typingAge_) return;
    txtAge.setText(dtDate.value() ? core::AgeText(*dtDate.value(), place().now().date()) : std::string());
}

/// A number of years makes a birth date while a patient is added; the age shows in words when the cursor has left it.
void RegistrationForm::txtAge_Change() {
    const auto years = db::parseInteger(txtAge.text());
    if (!adding() || !years || *years < 0 || *years > 150) return;
    const ui::Raised typing(typingAge_);
    dtDate.setValue(place().now().date().plusMonths(static_cast<int>(-12 * *years)));
}

void RegistrationForm::txtAge_LostFocus() {
    if (dtDate.value()) dtDate_Change();
}

void RegistrationForm::lblDebt_DblClick() {
    if (editing()) return message("Debt Information Cannot be Edited Here! Only Carry Over Debt can be Entered");
    const auto answer = desktop().askInput("Carry Over Debt", "Debt", "0");
    if (!answer) return;
    session().gPatientBalance = db::Value(*answer).number();
    lblDebt.setCaption(core::moneyText(session().gPatientBalance));
}

void RegistrationForm::routeThePurpose() {
    if (rowLoading_) return;
    routePurpose(place(), cboPurpose.text(), session().gClientRetainID, ways_.consultPrice);
    if (cboPurpose.text() == "APPOINTMENT" && cboClin.text().empty()) {
        session().gAttendPurpose.clear();
        return refuse("Specify Clinic", cboClin);
    }
    if (!cboPurpose.text().empty()) purposePicked();
}

bool RegistrationForm::cardIsGood() {
    cmdRenew.setEnabled(false);
    if (!isPrivate()) return true;
    if (!dtExpDate.value()) {
        clearClinic();
        refuse(" Please Specify Expiration Date for this Private Patient", dtExpDate);
        return false;
    }
    if (!cardExpired(session(), dtExpDate.value())) return true;
    clearClinic();
    refuseExpiredCard(place(), core::trimmed(txtSupp.text()), cmdRenew);
    return false;
}

void RegistrationForm::addFee(const std::string& name, double amount, const std::string& revType,
                              const core::Cells& further) {
    billing::addServiceLine(hospital(),
                            {.date = session().gServerNow.date(),
                             .name = name,
                             .amount = amount,
                             .pno = core::trimmed(txtSupp.text()),
                             .consultID = consultId_,
                             .conID = billing::classValue(feeClass(defaultClass_)),
                             .coyName = session().gClientRetainID,
                             .billTo = client_.retainCode(),
                             .revType = revType},
                            further);
}

std::string RegistrationForm::feeClass(const std::string& patientClass) const {
    const bool ofCard = cboCard.text() == "SINGLE" || cboCard.text() == "FAMILY";
    return isGeneralClass(patientClass) && ofCard ? cboCard.text() : patientClass;
}

double RegistrationForm::clientFee(const db::Sql& sql, std::string_view column) {
    const auto rows = hospital().read(sql);
    return rows.empty() ? 0 : core::roundedToCents(rows[column].numberOr(0));
}

}  // namespace registration
