#include "core/rows/entries.h"
#include "core/session/roles.h"
#include "core/session/session.h"
#include "registration/shared/registrationform/registrationform.h"

namespace registration {

using namespace db::literals;

void RegistrationForm::startAdding() {
    txtAdmitLimit.setText(session().gAdmissionLimitExists == "YES" ? "" : "0");
    if (!dependantMode_) session().gClientRetainID.clear();
    debt.clear();
    setCaption(title_);
    dependantMode_ = false;
    session().gApptDate = {};
    currentPNo_.clear();
    card.dtRegDate.setValue(place().now().date());
    SSTab1.setPage(1);
    client.cboRefHmo.setText("NO");
    txtSupp.clear();
    visit.offer();
    person.dtDate.setValue({});
    desktop().focus(cboNew);
}

std::optional<core::Refusal> RegistrationForm::mayEdit() {
    if (!blank(txtSupp)) return std::nullopt;
    return core::Refusal{"Specify Patient Info to Edit by Searching", &finder.txtName};
}

void RegistrationForm::startEditing() {
    LoadPatientFromGrid();
    dependantMode_ = false;
    visit.request();
    desktop().focus(person.txtsurNAme);
}

std::optional<core::Refusal> RegistrationForm::mayErase() {
    if (!core::isManager(place())) return core::Refusal{deleteRefusal_};
    if (grdData.row() < 0) return core::Refusal{"Specify Patient to Delete by Searching"};
    return std::nullopt;
}

std::optional<core::Refusal> RegistrationForm::erase() {
    const auto erased = grdData.text("pno");
    if (!hospital().read("select TOP 1 * from hPreConsult where pno ='"_sql + erased + "'").empty())
        return core::Refusal{"Patient Cannot be Deleted!!! Has Vital Signs Information"};
    if (!hospital().read("select TOP 1 * from hconsulting where pno ='"_sql + erased + "'").empty())
        return core::Refusal{"Patient Cannot be Deleted!!! Has Consultation Information"};
    hospital().execute("insert into hpatientsArchive select * from hpatients where pno = '"_sql + erased + "'");
    hospital().execute("delete from hpatients where pno = '"_sql + erased + "'");
    return std::nullopt;
}

void RegistrationForm::erased() {
    audit("Delete Patient: " + grdData.text("FullName"), grdData.text("pno"));
    message(" Record successfully deleted ");
    finder.showAgain();
}

void RegistrationForm::cmdRenew_Click() {
    session().gCurPatientName = person.fullName();
    session().gCurPNo = pno();
    session().gRenewCaller = "REG";
    session().gRenewPending = true;
    desktop().show("frmRenew");
}

void RegistrationForm::cmdPlan_Click() {
    const auto plan = client.txtPolicy.text();
    desktop().showModal("frmPlan");
    client.loadPlans();
    core::showEntry(client.txtPolicy, plan);
}

void RegistrationForm::cmdANC_Click() {
    const auto number = pno();
    if (number.empty()) return message("Patient System No Required! Please select a Patient");
    if (person.txtSex.text() != "FEMALE") return message("Patient Sex has to be female");
    session().gCurPNo = number;
    session().gCurPatientName = person.fullName();
    desktop().show("frmAnteNatalReg");
}

void RegistrationForm::cmdComm_Click() {
    session().gCurConsultPNo = pno();
    if (session().gCurConsultPNo.empty()) return message("No Patient is specified");
    desktop().show("frmConsultInfo");
}

}  // namespace registration
