#include "core/outbox.h"
#include "core/utility.h"
#include "registration/cards.h"
#include "registration/registrationform.h"
#include "registration/visits.h"

namespace registration {

using namespace db::literals;

void RegistrationForm::OKButton_Click() {
    if (!editMode_) txtSupp.clear();  // a new patient's number is drawn by the save
    if (!passes(checks())) return;
    if (txtAdmitLimit.text().empty()) txtAdmitLimit.setText("0");  // only a scheme's patient needs a limit
    if (!confirmedSave()) return;
    auto saved = Saved::no;
    const auto card = txtOLD.text();
    const auto balance = session().gPatientBalance;
    const bool wentThrough = saves(OKButton, [&] { saved = save(); });
    if (saved == Saved::no) {  // the numbers that were drawn went with the transaction
        if (!editMode_) {
            txtSupp.clear();
            currentPNo_.clear();
        }
        consultId_.clear();
        txtOLD.setText(card);
        session().gPatientBalance = balance;
    }
    if (!wentThrough) {
        // The counters go behind the highest numbers, so that a number that was given twice cannot strike again.
        trapped([this] { core::ResyncConsultId(place()); });
        trapped([this] { core::ResyncPatientId(place()); });
        return;
    }
    if (saved == Saved::yes) trapped([this] { afterSave(); });
}

RegistrationForm::Saved RegistrationForm::save() {
    session().gServerNow = core::GetServerNow(place());
    return editMode_ ? saveEdited() : saveNew();
}

RegistrationForm::Saved RegistrationForm::saveEdited() {
    db::Transaction transaction(hospital());
    {
        db::Recordset row(hospital(), "select * from hpatients where pNO='"_sql + txtSupp.text() + "'");
        if (row.empty())
            throw db::Error(db::Category::other, "The patient " + txtSupp.text() + " is not there any more.");
        auto cells = patientCells();
        cells.emplace_back("introducedby", introducedById_);
        if (dtExpDate.value()) cells.emplace_back("expirydate", *dtExpDate.value());
        core::setCells(row, cells);
        row.update();
    }
    if (chkReg.checked()) {
        if (!NewConsultId()) {
            transaction.rollback();
            message("Unable to generate No!!! Function getIDNo Failed! ConsultID");
            return Saved::no;
        }
        TakeAttendance();
    }
    if (session().gRenewPending) PostCardRenewalFee();
    transaction.commit();
    editMode_ = false;
    auditEdit();
    if (chkReg.checked()) queueMessage({});
    message("Record Succesfully Edited and Updated");
    return Saved::yes;
}

RegistrationForm::Saved RegistrationForm::saveNew() {
    if (!db::parseNumber(lblDebt.caption()) && !db::withoutThousandsSeparators(lblDebt.caption()))
        lblDebt.setCaption("0");
    db::Transaction transaction(hospital());
    const auto refuseNumber = [&](const char* text) {
        transaction.rollback();
        message(text);
        return Saved::no;
    };
    if (!NewPatientNumber()) return refuseNumber("Unable to generate No!!! Function getIDNo Failed");
    core::addRow(hospital(), "select * from hpatients where 1=2"_sql, newPatientCells());
    if (!NewConsultId()) return refuseNumber("Unable to generate No!!! Function getIDNo Failed! ConsultID");
    if (chkReg.checked()) TakeAttendance();
    writeBehindNewPatient();
    transaction.commit();
    SSTab1.setPage(0);
    audit("Insert Reg for " + fullName(), currentPNo_);
    if (chkReg.checked()) queueMessage(cboClin.text() + " Clinic Appt");
    message("Record Succesfully saved");
    return Saved::yes;
}

core::Cells RegistrationForm::patientCells() const {
    const auto& variables = session();
    core::Cells cells = {{"PNo", core::trimmed(txtSupp.text())},
                         {"OldPNo", core::trimmed(txtOLD.text())},
                         {"Title", cboTitle.text()},
                         {"psurname", storedName(txtsurNAme.text())},
                         {"pfirstName", storedName(txtfirstNAme.text())},
                         {"homeAddress", txtHomeAddress.text()},
                         {"Area", cboArea.text()},
                         {"officeAddress", txtOfficeAddress.text()},
                         {"pPhoneNo", core::trimmed(txtPhone.text())},
                         {"Email", txtEmail.text()},
                         {"sex", txtSex.text()},
                         {"Maturity", cboMat.text()},
                         {"ref", CboRef.text()},
                         {"HMORef", cboRefHmo.text()},
                         {"clientCatID", variables.gBillingCat},
                         {"coyType", variables.gClientType},
                         {"CoyName", variables.gClientRetainID},
                         {"empNo", core::trimmed(txtEmp.text())},
                         {"PolicyType", txtPolicy.text()},
                         {"CardType", cboCard.text()},
                         {"fileduration", cboFile.text()},
                         {"regDate", *dtRegDate.value()},
                         {"MStatus", cboMStatus.text()},
                         {"bloodGroup", txtBG.text()},
                         {"genotype", txtGeno.text()},
                         {"occupation", txtOccu.text()},
                         {"religion", cboStatus.text()},
                         {"nextOfKin", txtKin.text()},
                         {"NOKPhone", core::trimmed(txtNOKPhone.text())},
                         {"relationToKin", txtKinRel.text()},
                         {"kinAddress", txtKinAddress.text()},
                         {"AdmissionDaysLimit", txtAdmitLimit.text()}};
    if (dtDate.value()) cells.emplace_back("DOB", *dtDate.value());
    return cells;
}

core::Cells RegistrationForm::newPatientCells() const {
    auto cells = kinshipCells();
    cells.emplace_back("username", session().gEmpID);
    const auto shared = patientCells();
    cells.insert(cells.end(), shared.begin(), shared.end());
    const bool dated = cboClient.text() == "PRIVATE" && dtExpDate.value();
    cells.emplace_back("expirydate", dated ? db::Value(*dtExpDate.value()) : db::Value());
    cells.emplace_back("NewReg", cboNew.text() == "NEW" ? "YES" : "NO");
    if (session().gPatientBalance != 0) {
        cells.emplace_back("Debt", session().gPatientBalance);
        cells.emplace_back("DebtBF", session().gPatientBalance);
    }
    return cells;
}

bool RegistrationForm::NewPatientNumber() {
    auto& variables = session();
    variables.gNextId.clear();
    core::GetNextIdNo(place(), "PATIENT2");
    if (variables.gNextId.empty()) return false;
    currentPNo_ = variables.gNextId;
    txtSupp.setText(currentPNo_);
    if (variables.gAutoCardNo == "YES" && txtOLD.text().empty()) {
        const auto year = std::to_string(variables.gServerDate.parts().year).substr(2);
        txtOLD.setText(year + "/" +
                       currentPNo_.substr(currentPNo_.size() - std::min<std::size_t>(5, currentPNo_.size())));
    }
    return true;
}

bool RegistrationForm::NewConsultId() {
    session().gNextId.clear();
    core::GetNextIdNo(place(), "ConsultID2");
    consultId_ = session().gNextId;
    return !consultId_.empty();
}

void RegistrationForm::PostCardRenewalFee() {
    const auto amount = cardRenewalFee(hospital(), session().gClientRetainID);
    addFee("CARD RENEWAL FEE", amount, "REGISTRATION",
           {{"Category", "CARD_RENEW"}, {"suppres", 0}, {"Capitated", "NO"}});
    audit("Card Renew Fee for " + fullName(), consultId_);
}

core::Cells RegistrationForm::visitCells() const {
    return newVisitCells(session(), {.pno = core::trimmed(txtSupp.text()),
                                     .consultID = consultId_,
                                     .clinic = cboClin.text(),
                                     .purpose = cboPurpose.text(),
                                     .hmoReferal = cboRefHmo.text(),
                                     .feeForService = CboRef.text(),
                                     .category = session().gBillingCat,
                                     .retainID = session().gClientRetainID});
}

void RegistrationForm::writeAppointment() {
    auto& variables = session();
    variables.gApptDate = dtNext.value() ? db::Value(*dtNext.value()) : db::Value();
    variables.gApptTime = dtRefTime.value() ? db::Value(*dtRefTime.value()) : db::Value();
    core::addRow(hospital(), "select  * from happointment where 1=2"_sql,
                 {{"consultID", consultId_},
                  {"clientCat", variables.gBillingCat},
                  {"clinicType", cboClin.text()},
                  {"ApptDate", variables.gApptDate},
                  {"ApptTime", variables.gApptTime},
                  {"Remarks", cboClin.text() + " Appointment"},
                  {"PNo", core::trimmed(txtSupp.text())},
                  {"entryDate", variables.gServerNow.date()},
                  {"entryTime", core::shortTime(variables.gServerNow)},
                  {"attendedto", 0}});
    audit("Insert Appt for: " + fullName(), consultId_);
    variables.gApptDate = {};
}

void RegistrationForm::auditEdit() const {
    const auto& variables = session();
    const auto number = core::trimmed(txtSupp.text());
    if (variables.gClientRetainID == old_.code) return audit("Edit Reg for " + fullName(), number);
    audit("Edit Reg: " + fullName(), number,
          "Changed Company from " + old_.code + ":" + old_.name + " to " + variables.gClientRetainID + ":" +
              variables.gClientName);
}

void RegistrationForm::queueMessage(const std::string& extra) {
    const auto pno = core::trimmed(txtSupp.text());
    const auto& variables = session();
    if (cboPurpose.text() != "APPOINTMENT")
        return core::QueueMessage(place(), pno, consultId_, "ATTEND", "ATTENDANCE", variables.gServerDate,
                                  variables.gServerTime, txtPhone.text(), extra);
    core::QueueMessage(place(), pno, consultId_, "APPT", cboClin.text(), dtNext.value().value_or(db::DateTime()),
                       dtRefTime.value().value_or(db::DateTime()), txtPhone.text(), extra);
}

/// The patient is saved: whatever fails from here on must not leave the form as if he were not.
void RegistrationForm::afterSave() {
    trapped([this] { photograph_.save(core::trimmed(txtSupp.text())); });
    addMode_ = false;
    session().gPatientHasBalance = false;
    SSTab1.setPage(0);
    showBrowsing(true);
    trapped([this] {
        ShowTodaysRegistrations();
        showQueues();
    });
    desktop().focus(txtName);
    saveFinished();
}

}  // namespace registration
