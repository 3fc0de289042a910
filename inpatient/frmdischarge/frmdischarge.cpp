#include "inpatient/frmdischarge/frmdischarge.h"

#include "core/care/staff.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"

namespace inpatient {

using namespace db::literals;
using ui::Event;

frmDischarge::frmDischarge(core::Workplace& place)
    : DischargeForm(place, "frmDischarge", "Doctors : Patient Summary Discharge", "CoyName", "Patient Discharge") {
    without({&cmdDel});
    enableWhileEntering({&cboCat, &dtAppt});
    bind(cboCat, Event::click, &frmDischarge::cboCat_Click);
}

void frmDischarge::fillLists() {
    dtDate.setValue(place().now().date());
    dtAppt.setValue({});
    core::fillEmployees(
        cboCat, hospital(),
        "select distinct empID,lastname,firstname from employees where deptID in ('MED','MEDICAL')"_sql);
    fillPatients();
}

void frmDischarge::fillPatients() {
    offer("select pNO,fullname,consultID from qryhAdmission where isdischarged=0"_sql);
}

void frmDischarge::showList() {
    core::refreshRows(
        grdData,
        hospital().read("select distinct * from qryhDischarge where dischdate = '"_sql + place().now().date() + "'"),
        {"ID"});
}

void frmDischarge::startAdding() {
    fillPatients();
    desktop().focus(cboVehNo);
}

void frmDischarge::startEditing() {
    DischargeForm::startEditing();
    core::showDate(dtAppt, grdData.rows()["apptDate"]);
    cboVehNo.add(grdData.text("pno"));
    cboVehNo.setIndex(0);
    showDoctor(grdData.text("StaffNo"));
}

/// A discharge from the overdue list has no doctor, and one who has left is no entry any more.
void frmDischarge::showDoctor(const std::string& empID) {
    const int entry = empID.empty() ? -1 : core::itemWithKey(cboCat, empID);
    if (entry >= 0)
        cboCat.setIndex(entry);
    else
        core::showEntry(cboCat, empID.empty() ? empID : core::entryText({}, empID));
}

void frmDischarge::cboCat_Click() {
    if (cboCat.text() == " ") refuse("Please enter Name of Staff on Duty", cboCat);
}

std::vector<core::Check> frmDischarge::checks() {
    return {{blank(cboVehNo), "Please specify Patient Name", &cboVehNo},
            {blank(lblBill), DischargeForm::noConsultation, &cboVehNo},
            {blank(cboCat), "Please specify Ward No", &cboCat},
            {!dtAppt.value(), "Please specify Next Appt Date", &dtAppt}};
}

core::Cells frmDischarge::cells() const {
    auto written = discharge();
    written.approvedBy = core::entryOf(cboCat.text()).key;
    written.nextVisit = dtAppt.value()->date();
    return core::joined(dischargeCells(written), visitCells(visit()));
}

std::optional<core::Refusal> frmDischarge::write() {
    if (editing()) {
        auto row = hospital().read("select * from hdischarge where consultID ='"_sql + consultID() + "'");
        core::setCells(row, cells());
        row.update();
        return std::nullopt;
    }
    core::addRow(hospital(), "select * from hdischarge where 1=2"_sql, cells());
    hospital().execute("Update hrecords set exitdate ='"_sql + discharge().date + "' where ConsultID = '" +
                       lblBill.caption() + "'");
    return std::nullopt;
}

void frmDischarge::committed() {
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved!!! Awaiting Nurses' Attention ");
}

void frmDischarge::clear() {
    DischargeForm::clear();
    cboCat.clearText();
    dtAppt.setValue({});
    dtDate.setValue(place().now().date());
}

}  // namespace inpatient
