#include "inpatient/frmallergy/frmallergy.h"

#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "db/letters.h"

namespace inpatient {

using namespace db::literals;
using ui::Event;

namespace {

constexpr const char* lineBreak = "\r\n";

}  // namespace

frmAllergy::frmAllergy(core::Workplace& place)
    : RecordForm(place, "frmAllergy", "Allergic Reaction/Anaphylaxis Record"),
      cboCat(*this, "cboCat", place),
      labels_{{&lblBill, "consultID"},
              {&lblClient, "clientCat"},
              {&lblWard, "wardID"},
              {&lblNo, "PNo"},
              {&lblCoy, "Company"}} {
    keep({{&lblBill, "consultID"},
          {&lblNo, "pno"},
          {&dtDate, "Date", "ADate"},
          {&cboEvent, "Event", "Event", core::Keeps::trimmed},
          {&dtTime, "ReactionTime", "tReaction"},
          {&dtDoc, "TimeSeenByDoctor", "tDoc"},
          {&txtSymptoms, "SignsAndSymptoms"},
          {&txtOther, "Others", "others", core::Keeps::trimmed},
          {&txtRem, "Comments", "Comments", core::Keeps::trimmed},
          {&txtNote, "Note", "Note", core::Keeps::trimmed}});
    enableWhileEntering({&cboCat, &cboDoc, &LstDate});
    bind(cboVehNo, Event::click, &frmAllergy::cboVehNo_Click);
    bind(LstDate, Event::itemCheck, &frmAllergy::gatherSigns);
    for (const char* column : {"NurseID", "DocID", "SNo"}) grdData.hideColumn(column);
    showTitle({});
}

void frmAllergy::fillLists() {
    dtDate.setValue(place().now().date());
    core::fill(cboEvent, {"", "IMMUNIZATION", "MEDICATION ADMINISTERED", "BLOOD ADMINISTERED"});
    cboCat.fill();
    core::fillStaff(cboDoc, hospital(), "CONSULTING");
    fillSigns();
}

/// The hospital's own list of signs stands in place of the usual ones.
void frmAllergy::fillSigns() {
    LstDate.clear();
    core::addColumn(LstDate, hospital(), "select Allergy from hNurseAllergyList"_sql, "Allergy");
    if (!LstDate.items().empty()) return;
    core::fill(LstDate, {"APPREHENSION", "CHOKING SENSATION", "FLUSHING AND/OR SKIN EDEMA", "COUGHING AND WHEEZING",
                         "PALPITATIONS", "DIFFICULTY BREATHING", "NUMBNESS AND TINGLING", "NAUSEA AND VOMITING",
                         "ITCHING", "SEVERE HYPOTENSION", "LOCALIZED OR GENERALIZED URTICARIA (RASH, WELTS)",
                         "VASOMOTOR COLLAPSE", "LOSS OF CONSCIOUSNESS"});
}

void frmAllergy::gatherSigns() {
    std::string signs;
    for (const auto& sign : LstDate.checkedItems()) signs += sign.text + lineBreak;
    txtSymptoms.setText(signs);
}

/// What is stored of the signs: without the blanks and line breaks at their ends.
std::string frmAllergy::signs() const {
    const auto& text = txtSymptoms.text();
    const auto last = text.find_last_not_of(" \r\n");
    return last == std::string::npos ? std::string() : core::trimmed(text.substr(0, last + 1));
}

void frmAllergy::showList() {
    if (consultID_.empty()) return;
    core::refreshRows(
        grdData, hospital().read("select distinct * from vwhNurseAllergy where consultID = '"_sql + consultID_ + "'"),
        {"SNo"});
}

// Signs are ticked for a new reaction, and corrected as the text that was stored.
void frmAllergy::entered(Mode /*mode*/) {
    cboVehNo.setEnabled(adding());
    LstDate.setVisible(!editing());
    txtSymptoms.setVisible(editing());
}

void frmAllergy::clear() {
    RecordForm::clear();
    labels_.clear();
    for (auto* label : {&lblDays, &lblDate}) label->setCaption({});
    showTitle({});
    cboVehNo.clear();
    cboCat.clearText();
    cboDoc.clearText();
    LstDate.checkAll(false);
    dtDate.setValue(place().now().date());
}

void frmAllergy::showTitle(const std::string& name) {
    lblTitle.setCaption(name.empty() ? caption() : name + lineBreak + caption());
}

void frmAllergy::startAdding() {
    cboVehNo.clear();
    addStays(cboVehNo, hospital(), "select pNO,fullname,consultID from qryhAdmission"_sql);
    desktop().focus(cboVehNo);
}

void frmAllergy::cboVehNo_Click() {
    if (!adding()) return;
    consultID_ = core::entryOf(cboVehNo.text()).key;
    for (auto* label : {&lblDays, &lblDate}) label->setCaption({});
    lblTitle.setCaption("Patient Discharge");
    const auto stay = labels_.open(hospital(), consultID_);
    if (!stay.empty()) {
        lblDays.setCaption(daysInWard(stay, session().gServerDate));
        lblDate.setCaption(stay["Age"].textOr() + " / " + stay["DOB"].textOr());
        showTitle(stay["fullName"].textOr());
    }
    showList();
}

/// Whoever corrects says anew which nurse was in attendance: what the row has does not change who is signed in.
void frmAllergy::startEditing() {
    RecordForm::startEditing();
    sno_ = grdData.text("SNo");
    cboVehNo.clear();
    cboVehNo.add(core::entryText(grdData.text("fullname"), lblBill.caption()));
    cboVehNo.setIndex(0);
    cboCat.clearText();
    const auto doctor = grdData.text("DocID");
    core::showEntry(cboDoc, doctor.empty() ? doctor : core::entryText(grdData.text("Doctor"), doctor));
    showTitle(grdData.text("fullname"));
    desktop().focus(cboCat);
}

std::vector<core::Check> frmAllergy::checks() {
    ui::Control* signsField = editing() ? static_cast<ui::Control*>(&txtSymptoms) : &LstDate;
    // A stay that ended meanwhile has left its name in the list and nobody on the screen.
    return {{adding() && (cboVehNo.text().empty() || blank(lblBill)), "Please specify Patient Name", &cboVehNo},
            {blank(cboCat), "Please specify Name of Nurse", &cboCat},
            {cboDoc.text() == " " || cboCat.text().empty(), "Please specify Name of Doctor in Attendance", &cboDoc},
            {!dtTime.value(), "Please specify Time of Reaction", &dtTime},
            {!dtDoc.value(), "Please specify Doctor's Time of Attendance", &dtDoc},
            {signs().empty(), "Please Tick Signs and Symptoms", signsField},
            {blank(txtNote), "Please specify Note of immediate response to care", &txtNote},
            {blank(cboEvent), "Please specify Event which preceded reaction", &cboEvent}};
}

std::optional<core::Refusal> frmAllergy::write() {
    db::Recordset row(hospital(), editing() ? "select * from hNurseAllergy where SNo ='"_sql + sno_ + "'"
                                            : "select * from hNurseAllergy where 1=2"_sql);
    if (adding()) row.addNew();
    if (adding()) core::setCells(row, {{"consultID", lblBill.caption()}, {"PNo", lblNo.caption()}});
    core::setCells(row, core::joined(fields().cells(), {{"Symptoms", signs()},
                                                        {"Nurse", session().gEmpID},
                                                        {"Doctor", core::entryOf(cboDoc.text()).key}}));
    row.update();
    sno_ = row["SNo"].text();
    return std::nullopt;
}

void frmAllergy::committed() {
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
    audit((editing() ? "Edit Pat Allergy: " : "Insert Pat Allergy: ") + lblTitle.caption(), lblBill.caption(), signs());
}

void frmAllergy::finished() {
    core::selectRow(grdData, "SNo", sno_);
}

/// Reactions are kept: what Delete takes away here is the nurses' discharge of the row's visit.
std::optional<core::Refusal> frmAllergy::erase() {
    deleteNursesDischarge(hospital(), grdData.text("consultID"));
    return std::nullopt;
}

ui::Control* frmAllergy::controlOf(std::string_view column) {
    if (db::sameName(column, "Symptoms")) return editing() ? static_cast<ui::Control*>(&txtSymptoms) : &LstDate;
    return RecordForm::controlOf(column);
}

}  // namespace inpatient
