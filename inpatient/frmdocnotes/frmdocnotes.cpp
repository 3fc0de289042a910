#include "inpatient/frmdocnotes/frmdocnotes.h"

#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "inpatient/shared/doctorsorders.h"

namespace inpatient {

using namespace db::literals;

frmDocNotes::frmDocNotes(core::Workplace& place) : DoctorsRecord(place, "frmDocNotes", "Doctors' Report") {
    keep({{&lblNo, "pno", "PNo"},
          {&lblClient, "clientcat", "clientCat"},
          {&lblBill, "consultid", "consultID"},
          {&txtPresc, "prescription", "preScription"},
          {&txtRem, "notes", "notes"},
          {&dtDate, "ndate", "nDate"}});
    for (const char* column : {"Notes", "SNO", "prescription"}) grdData.hideColumn(column);
}

void frmDocNotes::fillLists() {
    DoctorsRecord::fillLists();
    dtDate.setValue(session().gServerDate);
}

void frmDocNotes::showList() {
    if (consultID().empty()) return grdData.clear();
    core::refreshRows(
        grdData,
        hospital().read("select distinct empID,pno,sno,fullname,clientcat,consultid,ndate,ntime,notes,empname,"
                        "prescription from qryhInPatientNotesForDoctors where consultID = '"_sql +
                        consultID() + "'"),
        {"sno"});
}

void frmDocNotes::picked() {
    DoctorsRecord::picked();
    txtPresc.clear();
    auto orders = hospital().read(
        "select top 3  id,prescription ,cdate,ctime from qryhconsulting where prescription <>'' and consultID ='"_sql +
        consultID() + "'");
    txtPresc.setText(ordersText(orders, "Prescription", "prescription", [](const db::Recordset& order) {
        return order["cdate"].textOr() + " " + order["ctime"].textOr();
    }));
    showList();
    vitals.show(hospital(), consultID());
}

void frmDocNotes::startEditing() {
    RecordForm::startEditing();
    sno_ = grdData.text("sno");
    showPatient(grdData.text("fullname"), core::entryText(grdData.text("fullname"), lblBill.caption()));
    showDoctor(grdData.text("empname"), grdData.text("empID"));
    desktop().focus(txtRem);
}

std::vector<core::Check> frmDocNotes::checks() {
    return {{blank(cboReason), "Please specify Doctor's Name", &cboReason},
            {nobody(), "Please specify Patient's Name", &cboVehNo}};
}

std::optional<core::Refusal> frmDocNotes::write() {
    db::Recordset row(hospital(), editing() ? "select * from hInPatientNotesForDoctors where sno ='"_sql + sno_ + "'"
                                            : "select * from hInPatientNotesForDoctors where 1=2"_sql);
    if (adding()) row.addNew();
    core::setCells(row, core::joined(fields().cells(), {{"nTime", session().gServerTime}, {"empID", doctor()}}));
    row.update();
    sno_ = row["sno"].text();
    return std::nullopt;
}

void frmDocNotes::committed() {
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
}

void frmDocNotes::finished() {
    core::selectRow(grdData, "sno", sno_);
}

void frmDocNotes::clear() {
    DoctorsRecord::clear();
    vitals.clear();
    dtDate.setValue(session().gServerDate);
}

}  // namespace inpatient
