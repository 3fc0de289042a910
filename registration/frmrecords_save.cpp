// The save: a visit with its lines and the patient in step with it, together or not at all.

#include "core/grids.h"
#include "core/utility.h"
#include "registration/cards.h"
#include "registration/frmrecords.h"

namespace registration {

using namespace db::literals;

bool frmRecords::complete() {
    const auto blank = [](const auto& control) { return core::trimmed(control.text()).empty(); };
    const auto& category = cboClient.text();
    return passes({
        {pno_.empty(), " please specify Name of Patient", &cboVehNo},
        {category.empty() || category == "SERVICES",
         " Billing Category cannot be empty! Invalid Client Tariff or Billing Category", &cboClient},
        {cboType.text().empty(), " please specify clinic for Patient", &cboType},
        {blank(cboPurpose), " please specify Purpose of Visit for Patient", &cboPurpose},
        {session().gAttendPurpose.empty(), "Specify Purpose of Attendance", &cboPurpose},
        {isManagedCare(category) && blank(txtEmp), "HMO Enrolle No Needed OR enter NIL if No Enrolle Num ", &txtEmp},
        {blank(CboRef), " please specify Whether Patient is FeeForService", &CboRef},
        {blank(cboRefHmo), " please specify Whether Patient is a Referal", &cboRefHmo},
    });
}

void frmRecords::OKButton_Click() {
    if (!complete() || !confirmedSave()) return;
    const bool wentThrough = saves(OKButton, [this] {
        session().gServerNow = core::GetServerNow(place());
        if (mode_ == Mode::editing)
            saveCorrection();
        else
            saveNew();
    });
    if (!wentThrough && mode_ == Mode::adding) lblBill.setCaption({});
}

void frmRecords::saveCorrection() {
    const auto now = visit();
    db::Transaction transaction(hospital());
    db::Recordset row(hospital(), "select * from hRecords where recID="_sql + recID_);
    core::setCells(row, {{"clientCat", now.category},
                         {"clinicType", now.clinic},
                         {"Remarks", now.purpose},
                         {"HMORef", now.hmoReferal},
                         {"referal", now.feeForService},
                         {"empID", session().gEmpID},
                         {"CoyName", now.retainID},
                         {"attendedtoByDoc", 0}});
    row.update();
    keepPatientInStep("', HmoRef='");
    transaction.commit();
    audit("Edit Attendance for " + lblTitle.caption(), now.consultID,
          now.category + "/" + now.clinic + "/" + now.purpose + "/" + clientName_);
    saved("Record Succesfully Edited and Updated");
}

void frmRecords::saveNew() {
    db::Transaction transaction(hospital());
    if (!drawNumber()) {
        transaction.rollback();
        return message("Unable to generate No!!! Function getIDNo Failed! ConsultID");
    }
    core::addRow(hospital(), "select  * from hRecords where 1=2"_sql, newVisitCells(session(), visit()));
    if (session().gRenewPending) addRenewalFee();
    keepPatientInStep("', HmoRef ='");
    addAttendanceLine();
    if (session().gAttendPurpose == "SCREENING") addScreening(place(), lblBill.caption(), cboPurpose.text());
    audit("Insert Attnd Fee for " + lblTitle.caption(), lblBill.caption());
    // Lines that were left without a visit join this one.
    hospital().execute("update billaccum set consultID='"_sql + lblBill.caption() + "' where pno = '" + pno_ +
                       "' and consultID = ''");
    transaction.commit();
    audit("Insert Attendance for " + lblTitle.caption(), lblBill.caption());
    saved("Record Succesfully saved");
}

bool frmRecords::drawNumber() {
    session().gNextId.clear();
    core::GetNextIdNo(place(), "ConsultID2");
    lblBill.setCaption(session().gNextId);
    return !session().gNextId.empty();
}

billing::ServiceLine frmRecords::billLine(const std::string& name, const std::string& revType) const {
    return {.date = session().gServerNow.date(),
            .name = name,
            .pno = pno_,
            .consultID = lblBill.caption(),
            .conID = billing::classValue(cboType.text()),
            .coyName = retainID_,
            .billTo = client_.retainCode(),
            .revType = revType};
}

void frmRecords::addRenewalFee() {
    auto line = billLine("CARD RENEWAL FEE", "REGISTRATION");
    line.amount = cardRenewalFee(hospital(), retainID_);
    billing::addServiceLine(hospital(), line, {{"Category", "REGISTRATION"}, {"suppres", 0}, {"Capitated", "NO"}});
}

/// A line without a price marks the visit; its fees come in at the care screens.
void frmRecords::addAttendanceLine() {
    billing::addServiceLine(hospital(), billLine("ATTENDANCE", "CONSULTATION"));
}

/// The patient's own scheme becomes what was stated at the desk.
void frmRecords::keepPatientInStep(const db::Literal& hmoRef) {
    hospital().execute("Update hpatients set ref='"_sql + CboRef.text() + hmoRef + cboRefHmo.text() +
                       "', PolicyType='" + txtPolicy.text() + "', EmpNo='" +
                       core::quotesDoubled(core::trimmed(txtEmp.text())) + "', ClientCatID='" + cboClient.text() +
                       "', CoyName='" + retainID_ + "' where pno = '" + pno_ + "'");
}

Visit frmRecords::visit() const {
    return {.pno = pno_,
            .consultID = lblBill.caption(),
            .clinic = cboType.text(),
            .purpose = cboPurpose.text(),
            .hmoReferal = cboRefHmo.text(),
            .feeForService = CboRef.text(),
            .category = cboClient.text(),
            .retainID = retainID_};
}

/// The form is empty again before the list is read: an error there cannot have the visit saved twice.
void frmRecords::saved(const std::string& says) {
    message(says);
    const auto number = lblBill.caption();
    browse();
    session().gPatientHasBalance = false;
    showToday();
    core::selectRow(grdData, "ConsultID", number);
    desktop().focus(txtName);
}

}  // namespace registration
