#include "core/clock/clock.h"
#include "core/numbers/numbers.h"
#include "core/patients/outbox.h"
#include "core/rows/cells.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "db/letters.h"
#include "registration/shared/cards.h"
#include "registration/shared/registrationform/registrationform.h"
#include "registration/shared/visits.h"

namespace registration {

using namespace db::literals;

std::vector<core::Check> RegistrationForm::checks() {
    if (!editing()) txtSupp.clear();  // a new patient's number is drawn by the save
    return checksOfPatient();
}

bool RegistrationForm::maySave() {
    if (txtAdmitLimit.text().empty()) txtAdmitLimit.setText("0");  // only a scheme's patient needs a limit
    cardBefore_ = txtOLD.text();
    balanceBefore_ = session().gPatientBalance;
    return confirmedSave();
}

std::optional<core::Refusal> RegistrationForm::write() {
    return editing() ? writeEdited() : writeNew();
}

/// The numbers that were drawn went with the transaction.
void RegistrationForm::undone() {
    if (!editing()) {
        txtSupp.clear();
        currentPNo_.clear();
    }
    consultId_.clear();
    txtOLD.setText(cardBefore_);
    session().gPatientBalance = balanceBefore_;
}

/// The counters go behind the highest numbers, so that a number that was given twice cannot strike again.
void RegistrationForm::failed() {
    trapped([this] { core::ResyncConsultId(place()); });
    trapped([this] { core::ResyncPatientId(place()); });
}

std::optional<core::Refusal> RegistrationForm::writeEdited() {
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
        if (!NewConsultId()) return core::Refusal{"Unable to generate No!!! Function getIDNo Failed! ConsultID"};
        TakeAttendance();
    }
    if (session().gRenewPending) PostCardRenewalFee();
    return std::nullopt;
}

std::optional<core::Refusal> RegistrationForm::writeNew() {
    if (!db::parseNumber(lblDebt.caption()) && !db::withoutThousandsSeparators(lblDebt.caption()))
        lblDebt.setCaption("0");
    if (!NewPatientNumber()) return core::Refusal{"Unable to generate No!!! Function getIDNo Failed"};
    core::addRow(hospital(), "select * from hpatients where 1=2"_sql, newPatientCells());
    if (!NewConsultId()) return core::Refusal{"Unable to generate No!!! Function getIDNo Failed! ConsultID"};
    if (chkReg.checked()) TakeAttendance();
    writeBehindNewPatient();
    return std::nullopt;
}

void RegistrationForm::committed() {
    if (editing()) {
        auditEdit();
    } else {
        SSTab1.setPage(0);
        audit("Insert Reg for " + fullName(), currentPNo_);
    }
    if (chkReg.checked()) queueMessage(editing() ? std::string() : cboClin.text() + " Clinic Appt");
    message(editing() ? "Record Succesfully Edited and Updated" : "Record Succesfully saved");
}

core::Cells RegistrationForm::patientCells() const {
    auto cells = fields().cells();
    cells.insert(cells.end(), {{"psurname", storedName(txtsurNAme.text())},
                               {"pfirstName", storedName(txtfirstNAme.text())},
                               {"clientCatID", session().gBillingCat},
                               {"coyType", session().gClientType},
                               {"CoyName", session().gClientRetainID}});
    if (dtDate.value()) cells.emplace_back("DOB", *dtDate.value());
    return cells;
}

ui::Control* RegistrationForm::controlOf(std::string_view column) {
    if (db::sameName(column, "psurname")) return &txtsurNAme;
    if (db::sameName(column, "pfirstName")) return &txtfirstNAme;
    return RecordForm::controlOf(column);
}

core::Cells RegistrationForm::newPatientCells() const {
    auto cells = kinshipCells();
    cells.emplace_back("username", session().gEmpID);
    cells = core::joined(std::move(cells), patientCells());
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

void RegistrationForm::auditEdit() {
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
    session().gPatientHasBalance = false;
    SSTab1.setPage(0);
    enter(Mode::browsing);
    trapped([this] { showList(); });
    desktop().focus(restingPlace());
    finished();
}

}  // namespace registration
