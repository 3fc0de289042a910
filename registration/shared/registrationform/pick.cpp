#include "core/patients/patient.h"
#include "core/rows/entries.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "registration/shared/registrationform/registrationform.h"
#include "ui/raised.h"

namespace registration {

void RegistrationForm::pickClient() {
    if (stage_.loading || !client.pickClient()) return;
    card.dtExpDate.setValue({});
    if (client.isPrivate()) {
        card.cboFile.setText("ONE YEAR");
        client.cboClient.setText("PRIVATE");
        client.txtEmp.setText("NIL");
        client.txtPolicy.setText("NIL");
        client.CboRef.setText("YES");
        client.cboRefHmo.setText("NO");
    } else {
        for (auto* list : {&card.cboFile, &client.cboClient, &client.txtPolicy, &client.CboRef, &client.cboRefHmo})
            list->setIndex(-1);
        client.txtEmp.clear();
    }
    card.cboCard.setText("SINGLE");
}

void RegistrationForm::pickCategory() {
    if (stage_.loading) return;
    client.pickCategory();
    if (!client.cboClient.text().empty()) categoryPicked();
}

/// A family's card leads to dependants at once.
void RegistrationForm::pickCard() {
    if (!stage_.loading && !editing() && card.cboCard.text() == "FAMILY") dependantMode_ = true;
}

void RegistrationForm::pickMaturity() {
    if (stage_.loading) return;
    if (contacts.cboMat.text() == "NEONATE")
        core::showEntry(visit.cboClin, "(IN-PATIENT)");
    else
        visit.clearClinic();
}

void RegistrationForm::checkCard() {
    card.cmdRenew.setEnabled(false);
    if (!client.isPrivate() || card.isGood()) return;
    visit.clearClinic();
    card.refuseVisit(pno());
}

void RegistrationForm::grdData_DblClick() {
    if (grdData.row() < 0) return;
    const bool typed = adding() && !core::blank(person.fullName());
    if (typed && !confirmed("Leave the patient who is being added?", title_)) return;
    correct();
    if (!editing()) return;
    cmdPatDep.setEnabled(true);
    core::ShowAncInfo(place(), currentPNo_);
    core::RefreshDebtInfo(place(), currentPNo_);
}

void RegistrationForm::LoadPatientFromGrid() {
    // The fee of a renewal is that patient's alone.
    if (currentPNo_ != grdData.text("pno")) session().gRenewPending = false;
    fillFromGrid();
    if (visit.allowed() && !contacts.cboMat.text().empty()) pickMaturity();
    cmdANC.setEnabled(session().gModuleRole == "NURSING" && grdData.text("Sex") == "FEMALE");
    photograph.load(currentPNo_);
}

/// No pick fills in its defaults meanwhile, so that the patient can be saved at once.
void RegistrationForm::fillFromGrid() {
    const ui::Raised loading(stage_.loading);
    const auto text = [this](const char* column) { return grdData.text(column); };
    currentPNo_ = text("pno");
    setCaption(text("FullName"));
    fields().fill(grdData);
    if (!text("fileDuration").empty()) core::showEntry(card.cboFile, text("fileDuration"));
    if (!text("Maturity").empty()) core::showEntry(contacts.cboMat, text("Maturity"));
    core::showEntry(client.CboRef, text("ref").empty() ? "NO" : text("ref"));
    core::showEntry(client.cboRefHmo, text("HmoRef").empty() ? "NO" : text("HmoRef"));
    core::showEntry(cboNew, text("newReg") == "YES" ? "NEW" : "EXISTING");
    person.showAge();
    patCatLoaded_ = text("patcat");
    contacts.showIntroducer(text("introducedBy"));
    client.show({text("coyname"), text("Client"), text("BillingCat"), text("coyType")}, text("policyType"));
    // The clinic and the purpose that were picked for somebody else would pass this patient's locks and card by.
    visit.forgetPicks();
}

}  // namespace registration
