#include "billing/billlines.h"
#include "core/numbers/numbers.h"
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
    cardBefore_ = card.txtOLD.text();
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
    visit.forgetNumber();
    card.txtOLD.setText(cardBefore_);
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
        cells.emplace_back("introducedby", contacts.introducer());
        if (card.dtExpDate.value()) cells.emplace_back("expirydate", *card.dtExpDate.value());
        core::setCells(row, cells);
        row.update();
    }
    if (visit.taken()) {
        if (!visit.drawNumber()) return core::Refusal{noConsultId};
        TakeAttendance();
    }
    if (session().gRenewPending) PostCardRenewalFee();
    return std::nullopt;
}

std::optional<core::Refusal> RegistrationForm::writeNew() {
    debt.normalise();
    if (!NewPatientNumber()) return core::Refusal{"Unable to generate No!!! Function getIDNo Failed"};
    core::addRow(hospital(), "select * from hpatients where 1=2"_sql, newPatientCells());
    if (!visit.drawNumber()) return core::Refusal{noConsultId};
    if (visit.taken()) TakeAttendance();
    writeBehindNewPatient();
    return std::nullopt;
}

void RegistrationForm::committed() {
    if (editing()) {
        auditEdit();
    } else {
        SSTab1.setPage(0);
        audit("Insert Reg for " + person.fullName(), currentPNo_);
    }
    if (visit.taken())
        visit.queueMessage(pno(), contacts.txtPhone.text(),
                           editing() ? std::string() : visit.cboClin.text() + " Clinic Appt");
    message(editing() ? "Record Succesfully Edited and Updated" : "Record Succesfully saved");
}

core::Cells RegistrationForm::patientCells() const {
    auto cells = fields().cells();
    cells.insert(cells.end(), {{"psurname", person.surname()},
                               {"pfirstName", person.firstName()},
                               {"clientCatID", session().gBillingCat},
                               {"coyType", session().gClientType},
                               {"CoyName", session().gClientRetainID}});
    if (person.dtDate.value()) cells.emplace_back("DOB", *person.dtDate.value());
    return cells;
}

ui::Control* RegistrationForm::controlOf(std::string_view column) {
    if (db::sameName(column, "psurname")) return &person.txtsurNAme;
    if (db::sameName(column, "pfirstName")) return &person.txtfirstNAme;
    return RecordForm::controlOf(column);
}

core::Cells RegistrationForm::newPatientCells() const {
    auto cells = kinshipCells();
    cells.emplace_back("username", session().gEmpID);
    cells = core::joined(std::move(cells), patientCells());
    const bool dated = client.cboClient.text() == "PRIVATE" && card.dtExpDate.value();
    cells.emplace_back("expirydate", dated ? db::Value(*card.dtExpDate.value()) : db::Value());
    cells.emplace_back("NewReg", cboNew.text() == "NEW" ? "YES" : "NO");
    return core::joined(std::move(cells), debt.cells());
}

bool RegistrationForm::NewPatientNumber() {
    auto& variables = session();
    variables.gNextId.clear();
    core::GetNextIdNo(place(), "PATIENT2");
    if (variables.gNextId.empty()) return false;
    currentPNo_ = variables.gNextId;
    txtSupp.setText(currentPNo_);
    card.drawNumber(currentPNo_);
    return true;
}

void RegistrationForm::PostCardRenewalFee() {
    const auto amount = cardRenewalFee(hospital(), session().gClientRetainID);
    addFee("CARD RENEWAL FEE", amount, "REGISTRATION",
           {{"Category", "CARD_RENEW"}, {"suppres", 0}, {"Capitated", "NO"}});
    audit("Card Renew Fee for " + person.fullName(), visit.number());
}

void RegistrationForm::addRegistrationFee(double amount) {
    addFee("REGISTRATION", amount, "REGISTRATION", {{"Category", "REGISTRATION"}, {"suppres", 0}, {"Capitated", "NO"}});
    audit("Reg Fee for " + person.fullName(), visit.number());
}

void RegistrationForm::addFee(const std::string& name, double amount, const std::string& revType,
                              const core::Cells& further) {
    billing::addServiceLine(hospital(),
                            {.date = session().gServerNow.date(),
                             .name = name,
                             .amount = amount,
                             .pno = pno(),
                             .consultID = visit.number(),
                             .conID = billing::classValue(card.feeClass(registrationClass)),
                             .coyName = session().gClientRetainID,
                             .billTo = client.retainCode(),
                             .revType = revType},
                            further);
}

void RegistrationForm::writeAppointment() {
    if (!visit.isAppointment()) return;
    visit.writeAppointment(pno());
    audit("Insert Appt for: " + person.fullName(), visit.number());
    session().gApptDate = {};
}

void RegistrationForm::auditEdit() {
    const auto change = client.change();
    audit((change.empty() ? "Edit Reg for " : "Edit Reg: ") + person.fullName(), pno(), change);
}

/// The patient is saved: whatever fails from here on must not leave the form as if he were not.
void RegistrationForm::afterSave() {
    trapped([this] { photograph.save(pno()); });
    session().gPatientHasBalance = false;
    SSTab1.setPage(0);
    enter(Mode::browsing);
    trapped([this] { showList(); });
    desktop().focus(restingPlace());
    finished();
}

}  // namespace registration
