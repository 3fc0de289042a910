#include "inpatient/frmnursinghist/frmnursinghist.h"

#include "core/clock/clock.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"

namespace inpatient {

using namespace db::literals;

frmNursingHist::frmNursingHist(core::Workplace& place)
    : StayRecord(place, "frmNursingHist", "Nursing History/State of Health") {
    keep({{&dtDate, "dtDate", "dtDate"},
          {&lblNo, "pno", "PNo"},
          {&lblBill, "consultid", "consultID"},
          {&txtInfo, "informnt", "informnt"},
          {&txtPresent, "present", "present"},
          {&txtPast, "past", "past"},
          {&txtNutri, "nutrition", "nutrition"},
          {&txtElim, "elimin", "elimin"},
          {&txtActivity, "exercise", "exercise"},
          {&txtSleep, "sleep", "sleep"},
          {&txtComm, "comm", "comm"},
          {&txtPercep, "perception", "perception"},
          {&txtFamily, "socialstat", "socialstat"},
          {&txtSex, "sexuality", "sexuality"},
          {&txtCoping, "stress", "stress"},
          {&txtValues, "beliefs", "beliefs"},
          {&txtHabits, "habits", "habits"},
          {&txtValuables, "valuables", "valuables"},
          {&txtUrine, "urinalysis", "urinalysis"},
          {&txtGen, "genInspec", "genInspec"},
          {&txtPalpation, "palpation", "palpation"},
          {&txtPercu, "percussion", "percussion"},
          {&txtAuscu, "auscultation", "auscultation"},
          {&txtLab, "labresult", "labresult"},
          {&txtNursing, "nursediag", "nursediag"},
          {&txtAllerg, "allergies", "allergies"},
          {&chkBCG, "bcg", "bcg"},
          {&chkPolio, "polio", "polio"},
          {&chkTet, "tetanus", "tetanus"},
          {&chkWhoop, "whooping", "whooping"},
          {&chkDiph, "dipthe", "dipthe"},
          {&chkMea, "measles", "measles"},
          {&txtOthers, "others", "others"},
          {&dtLMP, "LMP", "LMP"},
          {&dtEdd, "EDD", "EDD"},
          {&txtAssess, "nurAssess", "nurAssess", core::Keeps::trimmed}});
    layOutPages();
    for (const char* column : {"empID", "ID", "pno"}) grdData.hideColumn(column);
}

void frmNursingHist::layOutPages() {
    const std::vector<std::vector<ui::Control*>> pages = {
        {&txtInfo, &txtPresent, &txtPast, &txtAllerg, &txtPercep},
        {&txtNutri, &txtElim, &txtActivity, &txtSleep, &txtComm, &txtHabits},
        {&txtFamily, &txtSex, &txtCoping, &txtValues, &txtValuables},
        {&txtUrine, &txtGen, &txtPalpation, &txtPercu, &txtAuscu, &txtLab, &txtNursing, &txtAssess},
        {&chkBCG, &chkPolio, &chkTet, &chkWhoop, &chkDiph, &chkMea, &txtOthers, &dtLMP, &dtEdd}};
    for (int number = 0; const auto& page : pages) {
        for (auto* control : page) control->onPage(SSTab1, number);
        ++number;
    }
}

void frmNursingHist::fillLists() {
    dtDate.setValue(place().now().date());
    for (auto* date : {&dtEdd, &dtLMP}) date->setValue({});
}

void frmNursingHist::showList() {
    core::refreshRows(grdData,
                      hospital().read("select distinct dtdate as Date,pno,ID,empID,fullname,empfullname as "
                                      "Nurse,consultid from qryhNursingHist where dtdate = '"_sql +
                                      place().now().date() + "'"),
                      {"ID"});
}

void frmNursingHist::startAdding() {
    cboVehNo.clear();
    addStays(cboVehNo, hospital(), "select pNO,fullname,consultID from qryhAdmission "_sql);
    fillLists();
    SSTab1.setPage(0);
    desktop().focus(cboVehNo);
}

void frmNursingHist::picked() {
    StayRecord::picked();
    showList();
    vitals.show(hospital(), consultID());
}

void frmNursingHist::startEditing() {
    recordID_ = grdData.text("ID");
    const auto row = hospital().read("select * from qryhNursingHist where ID ='"_sql + recordID_ + "'");
    fields().fill(row);
    showPatient(row["fullname"].textOr(), core::entryText(row["fullname"].textOr(), lblBill.caption()));
    vitals.show(hospital(), consultID());
    SSTab1.setPage(0);
    desktop().focus(txtInfo);
}

std::vector<core::Check> frmNursingHist::checks() {
    return {{nobody(), "Please specify Patient's Name", &cboVehNo}, {!dtDate.value(), "Please date", &dtDate}};
}

std::optional<core::Refusal> frmNursingHist::write() {
    db::Recordset row(hospital(), editing() ? "select * from hNursingHist where ID ='"_sql + recordID_ + "'"
                                            : "select * from hNursingHist where 1=2"_sql);
    if (adding()) row.addNew();
    core::setCells(row, core::joined(fields().cells(), {{"empID", session().gEmpID}}));
    row.update();
    recordID_ = row["ID"].text();
    return std::nullopt;
}

void frmNursingHist::committed() {
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
}

void frmNursingHist::finished() {
    core::selectRow(grdData, "ID", recordID_);
    lblAsOf.setCaption(core::upToDateAsOf(session().gServerNow));
}

void frmNursingHist::clear() {
    StayRecord::clear();
    vitals.clear();
    fillLists();
    SSTab1.setPage(0);
    lblAsOf.setCaption({});
}

}  // namespace inpatient
