#include "inpatient/frmnursenote/frmnursenote.h"

#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "inpatient/shared/doctorsorders.h"

namespace inpatient {

using namespace db::literals;

frmNurseNote::frmNurseNote(core::Workplace& place)
    : StayRecord(place, "frmNurseNote", "Nurses' Report on Individual Patients") {
    keep({{&lblNo, "pno", "PNo"},
          {&lblClient, "clientcat", "clientCat"},
          {&lblBill, "consultid", "consultID"},
          {&dtDate, "Date", "nDate"},
          {&txtRem, "notes", "notes"}});
    core::fill(cboDept, {"IPD", "OPD"});
    // The orders are the doctors': they are read here, and stored as they stood.
    for (auto* orders : {&txtPresc, &txtPlan}) orders->setEnabled(false);
    bind(cboDept, ui::Event::click, [this] {
        if (adding()) offerPatients();
    });
    for (const char* column : {"Notes", "SNO", "prescription", "lastname", "firstname"}) grdData.hideColumn(column);
}

void frmNurseNote::showing() {
    if (browsing()) cboDept.setText(session().gNoteScope == "OPD" ? "OPD" : "IPD");
}

void frmNurseNote::fillLists() {
    dtDate.setValue(session().gServerDate);
}

void frmNurseNote::showList() {
    if (consultID().empty()) return grdData.clear();
    core::refreshRows(
        grdData,
        hospital().read(
            "select  LastName,FirstName,ndate as[Date], ntime as [Time],notes,empID,pno,sno,fullname,"
            "prescription,clientcat,consultid,empname from qryhInPatientNotesForNurses where consultID = '"_sql +
            consultID() + "' ORDER BY nDate DESC,nTime DESC"),
        {"sno"});
}

// Whose notes these are is settled once one of them is being corrected.
void frmNurseNote::entered(Mode mode) {
    StayRecord::entered(mode);
    cboDept.setEnabled(!editing());
}

void frmNurseNote::startAdding() {
    offerPatients();
    desktop().focus(cboVehNo);
}

void frmNurseNote::offerPatients() {
    cboVehNo.clear();
    cboVehNo.add(" ");
    addStays(cboVehNo, hospital(),
             outPatients() ? "SELECT distinct fullname, pNo,consultID FROM qryhvisitsForToday where PNo not in (select "
                             "pno from qryhAdmission) order by fullname"_sql
                           : "select pNO,fullname,consultID from qryhAdmission order by fullname"_sql,
             " ");
}

db::Recordset frmNurseNote::visitOf(const std::string& consultID) {
    if (outPatients()) return hospital().read("select * from qryhPreConsult where consultID ='"_sql + consultID + "'");
    return StayRecord::visitOf(consultID);
}

void frmNurseNote::picked() {
    StayRecord::picked();
    showOrders();
    showList();
}

void frmNurseNote::showOrders() {
    for (auto* orders : {&txtPresc, &txtPlan}) orders->clear();
    auto found = hospital().read(
        (outPatients()
             ? "select id,prescription ,cdate,ctime,treatPlan from qryhconsulting where prescription <>'' and "
               "consultID ='"_sql
             : "select top 3  id,prescription ,cdate,ctime,treatPlan from qryhconsulting where prescription "
               "<>'' and consultID ='"_sql) +
        consultID() + "'");
    const auto when = [](const db::Recordset& order) {
        const auto time = order["ctime"];
        return (time.isNullOrEmpty() ? std::string() : time.moment().shortTime()) + " " + order["cdate"].textOr() + " ";
    };
    txtPresc.setText(ordersText(found, "Prescription", "prescription", when));
    txtPlan.setText(ordersText(found, "Treatment Plan", "treatPlan", when));
}

void frmNurseNote::startEditing() {
    RecordForm::startEditing();
    sno_ = grdData.text("sno");
    txtPresc.setText(grdData.text("prescription"));
    showPatient(grdData.text("fullname"), core::entryText(grdData.text("fullname") + " ", lblBill.caption()));
    desktop().focus(txtRem);
}

std::vector<core::Check> frmNurseNote::checks() {
    return {{nobody(), "Please specify Patient's Name", &cboVehNo},
            {blank(txtRem), "Please enter report for this patient", &txtRem},
            {!dtDate.value(), "Please specify date", &dtDate}};
}

std::optional<core::Refusal> frmNurseNote::write() {
    db::Recordset row(hospital(), editing() ? "select * from hInPatientNotesForNurses where sno ='"_sql + sno_ + "'"
                                            : "select * from hInPatientNotesForNurses where 1=2"_sql);
    if (adding()) row.addNew();
    core::setCells(row,
                   core::joined(fields().cells(), {{"nTime", session().gServerTime}, {"empID", session().gEmpID}}));
    if (adding()) row.set("preScription", txtPresc.text());
    row.update();
    sno_ = row["sno"].text();
    return std::nullopt;
}

void frmNurseNote::committed() {
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
    audit((editing() ? "Edit Nurse Note: " : "Insert Nurse Note: ") + lblTitle.caption(), lblBill.caption(),
          "By Nurse");
}

void frmNurseNote::finished() {
    core::selectRow(grdData, "sno", sno_);
}

void frmNurseNote::clear() {
    StayRecord::clear();
    for (auto* orders : {&txtPresc, &txtPlan}) orders->clear();
    dtDate.setValue(session().gServerDate);
}

}  // namespace inpatient
