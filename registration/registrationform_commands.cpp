#include "core/utility.h"
#include "registration/registrationform.h"

namespace registration {

using namespace db::literals;

void RegistrationForm::cmdAdd_Click() {
    txtAdmitLimit.setText(session().gAdmissionLimitExists == "YES" ? "" : "0");
    if (!dependantMode_) session().gClientRetainID.clear();
    lblDebtCap.setCaption("Carry Over Debt");
    lblDebt.setCaption("0");
    setCaption(title_);
    dependantMode_ = editMode_ = false;
    session().gPatientBalance = 0;
    addMode_ = true;
    session().gApptDate = {};
    currentPNo_.clear();
    defaultClass_ = "(GENERAL)";
    dtRegDate.setValue(place().now().date());
    SSTab1.setPage(1);
    showBrowsing(false);
    cboRefHmo.setText("NO");
    txtSupp.clear();
    chkReg.setChecked(mayTakeAttendance());
    fraAttd.setEnabled(chkReg.checked());
    dtDate.setValue({});
    desktop().focus(cboNew);
}

void RegistrationForm::cmdEdit_Click() {
    if (core::trimmed(txtSupp.text()).empty()) return refuse("Specify Patient Info to Edit by Searching", txtName);
    LoadPatientFromGrid();
    startEditing();
}

void RegistrationForm::startEditing() {
    addMode_ = dependantMode_ = false;
    editMode_ = true;
    showBrowsing(false);
    chkReg.setChecked(true);
    chkReg_Click();
    desktop().focus(txtsurNAme);
}

void RegistrationForm::cmdCancel_Click() {
    addMode_ = editMode_ = false;
    showBrowsing(true);
    ClearPatientForm();
    desktop().focus(txtName);
}

void RegistrationForm::cmdRefresh_Click() {
    trapped([this] {
        reloadLookups();
        ShowTodaysRegistrations();
        showQueues();
    });
}

void RegistrationForm::cmdDel_Click() {
    trapped([this] {
        const auto manager =
            hospital().read("select username from vwusers where loginrole = 'MANAGEMENT' and username='"_sql +
                            session().gUserName + "'");
        if (manager.empty()) return message(deleteRefusal());
        if (grdData.row() < 0) return message("Specify Patient to Delete by Searching");
        if (!confirmed("Are you sure to Delete Record", "Delete")) return;
        deleteLoaded(grdData.text("pno"));
    });
}

void RegistrationForm::deleteLoaded(const std::string& pno) {
    if (!hospital().read("select TOP 1 * from hPreConsult where pno ='"_sql + pno + "'").empty())
        return message("Patient Cannot be Deleted!!! Has Vital Signs Information");
    if (!hospital().read("select TOP 1 * from hconsulting where pno ='"_sql + pno + "'").empty())
        return message("Patient Cannot be Deleted!!! Has Consultation Information");
    const auto name = grdData.text("FullName");
    db::Transaction transaction(hospital());
    hospital().execute("insert into hpatientsArchive select * from hpatients where pno = '"_sql + pno + "'");
    hospital().execute("delete from hpatients where pno = '"_sql + pno + "'");
    transaction.commit();
    audit("Delete Patient: " + name, pno);
    message(" Record successfully deleted ");
    if (core::trimmed(txtName.text()).empty()) return ShowTodaysRegistrations();
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
    trapped([this] {
        const auto plan = txtPolicy.text();
        desktop().showModal("frmPlan");
        client_.loadPlans();
        core::showEntry(txtPolicy, plan);
    });
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
