#include "inpatient/frmreferaledit/frmreferaledit.h"

#include "core/clock/clock.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "core/texts/texts.h"

namespace inpatient {

using namespace db::literals;
using ui::Event;

namespace {

constexpr const char* wards = "(IN-PATIENT)";

}  // namespace

frmReferalEdit::frmReferalEdit(core::Workplace& place) : RecordForm(place, "frmReferalEdit", "Admission / Referals") {
    keep({{&lblNo, "pno"},
          {&lblClient, "ClientCat"},
          {&txtREason, "refReason", "refReason"},
          {&dtNext, "ApptDate", "ApptDate"},
          {&dtDate, "RefDate", "refDate"}});
    enableWhileEntering({&CboRef, &dtTime});
    txtGen.setEnabled(false);
    bind(cmdPat, Event::click, &frmReferalEdit::fillPatients);
    bind(cboVehNo, Event::click, &frmReferalEdit::cboVehNo_Click);
    bind(chkAll, Event::click, &frmReferalEdit::fillClinics);
    for (const char* column : {"ID", "pno"}) grdData.hideColumn(column);
}

void frmReferalEdit::fillLists() {
    days.start(session().gServerDate);
    fillClinics();
}

void frmReferalEdit::fillClinics() {
    const auto all = "select clinicID,clinicName,clinicdays from ClinicTypes"_sql;
    CboRef.clear();
    CboRef.add("");
    core::addEntries(CboRef, hospital(), chkAll.checked() ? all : all + " where clinicID='(IN-PATIENT)'",
                     [](const db::Recordset& row) {
                         return core::entryText(row["clinicName"].textOr() + " :" + row["clinicdays"].textOr() + ":",
                                                row["clinicID"].textOr());
                     });
    if (!editing()) CboRef.setIndex(core::itemWithKey(CboRef, wards));
}

/// Those who were consulted in the days that are asked for. Each entry keeps its consultation's ID.
void frmReferalEdit::fillPatients() {
    auto consulted = hospital().read(
        "SELECT  distinct id,CDate,fullname,pNo,consultid FROM qryhconsulting where cdate between '"_sql +
        days.first() + "' and '" + days.last() + "' order by fullname");
    cboVehNo.clear();
    cboVehNo.expect(consulted.rowCount());
    for (; !consulted.eof(); consulted.moveNext()) {
        const auto text = [&](const char* column) { return consulted[column].textOr(); };
        cboVehNo.add(
            core::entryText(text("fullname") + " @" + text("CDate") + " (" + text("id") + ")", text("consultid")),
            text("id"));
    }
}

void frmReferalEdit::showList() {
    core::refreshRows(grdData,
                      hospital().read("select distinct RefDate,RefTime,pno,psurname as Surname,pfirstname as "
                                      "Firstname,ApptDate,ID,ClientCat,referTo,refReason,ConsultID,AttendedTo from "
                                      "qryhreferal where refdate = '"_sql +
                                      session().gServerDate + "'"),
                      {"ID"});
}

// A referral stays its patient's.
void frmReferalEdit::entered(Mode /*mode*/) {
    cboVehNo.setEnabled(adding());
    cmdPat.setEnabled(adding());
}

void frmReferalEdit::clear() {
    RecordForm::clear();
    cboVehNo.clear();
    dtTime.setValue({});
    txtGen.clear();
    consultID_.clear();
    showPatient({});
    CboRef.setIndex(core::itemWithKey(CboRef, wards));
}

void frmReferalEdit::startAdding() {
    fillPatients();
    dtDate.setValue(session().gServerDate);
    desktop().focus(cboVehNo);
}

void frmReferalEdit::startEditing() {
    RecordForm::startEditing();
    consultID_ = grdData.text("ConsultID");
    cboVehNo.clear();
    cboVehNo.add(core::trimmed(grdData.text("pno")));
    cboVehNo.setIndex(0);
    showPatient(grdData.text("Surname") + " " + grdData.text("Firstname"));
    // The clinic is chosen anew, so that none slips in unseen.
    CboRef.setIndex(-1);
    desktop().focus(CboRef);
}

void frmReferalEdit::cboVehNo_Click() {
    if (editing()) return;
    consultID_ = core::entryOf(cboVehNo.text()).key;
    for (auto* label : {&lblClient, &lblNo}) label->setCaption({});
    txtGen.clear();
    showPatient({});
    const auto found = hospital().read(
        "select genphy,clientcat,fullname,pno,diagnosis from qryhconsulting where consultID ='"_sql + consultID_ + "'");
    if (found.empty()) return;
    lblClient.setCaption(found["clientcat"].textOr());
    txtGen.setText(found["diagnosis"].textOr());
    lblNo.setCaption(found["pno"].textOr());
    showPatient(found["fullname"].textOr());
}

void frmReferalEdit::showPatient(const std::string& name) {
    patient_ = name;
    lblTitle.setCaption(name.empty() ? caption() : "Patient Referal for : " + name);
}

std::string frmReferalEdit::clinic() const {
    return core::entryOf(CboRef.text()).key;
}

std::vector<core::Check> frmReferalEdit::checks() {
    const auto last = editing() ? "!!! Last chosen clinic was " + grdData.text("referTo") : std::string();
    // A consultation that has gone, or could not be read, has left its name in the list and nobody on the screen.
    return {{cboVehNo.text().empty() || blank(lblNo), "Please specify Patient Name", &cboVehNo},
            {CboRef.text().empty(), "Please specify Referal Clinic" + last, &CboRef},
            {!dtDate.value(), "Please specify EntryDate", &dtDate},
            {!dtNext.value(), "Please specify Referal/Admission Date", &dtNext},
            {!dtTime.value(), "Please specify Referal Time for referal", &dtTime},
            {txtREason.text().empty(), "Please specify Reason for Referal", &txtREason}};
}

std::optional<core::Refusal> frmReferalEdit::write() {
    const core::Referral referral{.consultID = core::trimmed(consultID_),
                                  .category = core::trimmed(lblClient.caption()),
                                  .clinic = clinic(),
                                  .reason = txtREason.text(),
                                  .pno = core::trimmed(lblNo.caption()),
                                  .date = dtDate.value()->date(),
                                  .time = core::shortTime(session().gServerNow)};
    const core::Appointment appointment{.consultID = referral.consultID,
                                        .category = referral.category,
                                        .clinic = referral.clinic,
                                        .date = dtNext.value()->date(),
                                        .time = core::shortTime(*dtTime.value()),
                                        .remarks = editing() ? "REFERAL'" : "REFERAL EDIT",
                                        .pno = referral.pno,
                                        .entered = session().gServerNow};
    const auto cells =
        core::joined(core::referralCells(referral),
                     {{"ApptDate", appointment.date}, {"ApptTime", appointment.time}, {"attendedto", 0}});
    if (editing())
        correctReferral(cells, core::appointmentCells(appointment));
    else
        addReferral(cells, core::appointmentCells(appointment));
    written_ = consultID_;
    return std::nullopt;
}

void frmReferalEdit::addReferral(const core::Cells& referral, const core::Cells& appointment) {
    const core::Cells consultation{{"conID", db::Value(cboVehNo.key()).int32()}};
    core::addRow(hospital(), "select * from hreferal where 1=2"_sql, core::joined(referral, consultation));
    core::addRow(hospital(), "select * from happointment where 1=2"_sql, core::joined(appointment, consultation));
}

/// The rows keep their consultation. A newborn's referral has no twin.
void frmReferalEdit::correctReferral(const core::Cells& referral, const core::Cells& appointment) {
    auto row = hospital().read("select * from hreferal where consultid='"_sql + consultID_ + "'");
    core::setCells(row, referral);
    row.update();
    auto twin = hospital().read("Select * from happointment where consultid='"_sql + consultID_ + "'");
    if (twin.empty()) return;
    core::setCells(twin, appointment);
    twin.update();
}

void frmReferalEdit::committed() {
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
    audit((editing() ? "Edit Referal/Appt: " : "Add Referal/Appt: ") + patient_, consultID_,
          (editing() ? "Edit Ref to: " : "Add Ref: ") + clinic());
}

void frmReferalEdit::finished() {
    core::selectRow(grdData, "ConsultID", written_);
}

std::optional<core::Refusal> frmReferalEdit::erase() {
    const auto consultID = grdData.text("ConsultID");
    hospital().execute("delete from hAppointment where consultID = '"_sql + consultID + "'");
    hospital().execute("delete from hreferal where consultID = '"_sql + consultID + "'");
    return std::nullopt;
}

}  // namespace inpatient
