#include "core/rows/entries.h"
#include "core/session/roles.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "registration/shared/registrationform/registrationform.h"

namespace registration {

using namespace db::literals;

void RegistrationForm::startAdding() {
    txtAdmitLimit.setText(session().gAdmissionLimitExists == "YES" ? "" : "0");
    if (!dependantMode_) session().gClientRetainID.clear();
    lblDebtCap.setCaption("Carry Over Debt");
    lblDebt.setCaption("0");
    setCaption(title_);
    dependantMode_ = false;
    session().gPatientBalance = 0;
    session().gApptDate = {};
    currentPNo_.clear();
    defaultClass_ = "(GENERAL)";
    dtRegDate.setValue(place().now().date());
    SSTab1.setPage(1);
    cboRefHmo.setText("NO");
    txtSupp.clear();
    chkReg.setChecked(mayTakeAttendance());
    fraAttd.setEnabled(chkReg.checked());
    dtDate.setValue({});
    desktop().focus(cboNew);
}

std::optional<core::Refusal> RegistrationForm::mayEdit() {
    if (!blank(txtSupp)) return std::nullopt;
    return core::Refusal{"Specify Patient Info to Edit by Searching", &txtName};
}

void RegistrationForm::startEditing() {
    LoadPatientFromGrid();
    dependantMode_ = false;
    chkReg.setChecked(true);
    chkReg_Click();
    desktop().focus(txtsurNAme);
}

std::optional<core::Refusal> RegistrationForm::mayErase() {
    if (!core::isManager(place())) return core::Refusal{ways_.deleteRefusal};
    if (grdData.row() < 0) return core::Refusal{"Specify Patient to Delete by Searching"};
    return std::nullopt;
}

std::optional<core::Refusal> RegistrationForm::erase() {
    const auto pno = grdData.text("pno");
    if (!hospital().read("select TOP 1 * from hPreConsult where pno ='"_sql + pno + "'").empty())
        return core::Refusal{"Patient Cannot be Deleted!!! Has Vital Signs Information"};
    if (!hospital().read("select TOP 1 * from hconsulting where pno ='"_sql + pno + "'").empty())
        return core::Refusal{"Patient Cannot be Deleted!!! Has Consultation Information"};
    hospital().execute("insert into hpatientsArchive select * from hpatients where pno = '"_sql + pno + "'");
    hospital().execute("delete from hpatients where pno = '"_sql + pno + "'");
    return std::nullopt;
}

void RegistrationForm::erased() {
    audit("Delete Patient: " + grdData.text("FullName"), grdData.text("pno"));
    message(" Record successfully deleted ");
    if (blank(txtName)) return ShowTodaysRegistrations();
    showSearch(SearchKind::name);
}

void RegistrationForm::cmdRenew_Click() {
    session().gCurPatientName = fullName();
    session().gCurPNo = core::trimmed(txtSupp.text());
    session().gRenewCaller = "REG";
    session().gRenewPending = true;
    desktop().show("frmRenew");
}

void RegistrationForm::cmdPlan_Click() {
    const auto plan = txtPolicy.text();
    desktop().showModal("frmPlan");
    client_.loadPlans();
    core::showEntry(txtPolicy, plan);
}

void RegistrationForm::cmdANC_Click() {
    const auto number = core::trimmed(txtSupp.text());
    if (number.empty()) return message("Patient System No Required! Please select a Patient");
    if (txtSex.text() != "FEMALE") return message("Patient Sex has to be female");
    session().gCurPNo = number;
    session().gCurPatientName = fullName();
    desktop().show("frmAnteNatalReg");
}

void RegistrationForm::cmdComm_Click() {
    session().gCurConsultPNo = core::trimmed(txtSupp.text());
    if (session().gCurConsultPNo.empty()) return message("No Patient is specified");
    desktop().show("frmConsultInfo");
}

}  // namespace registration
