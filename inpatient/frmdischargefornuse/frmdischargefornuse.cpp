#include "inpatient/frmdischargefornuse/frmdischargefornuse.h"

#include "core/rows/grids.h"
#include "core/session/session.h"

namespace inpatient {

using namespace db::literals;

// The form opens without a date: the nurse has to give it.
frmDischargeForNuse::frmDischargeForNuse(core::Workplace& place)
    : DischargeForm(place, "frmDischargeForNuse", "Patient Summary Discharge : Nurses", "Company",
                    "Nursing Summary Discharge") {}

void frmDischargeForNuse::showList() {
    core::refreshRows(
        grdData,
        hospital().read("select distinct ID,DischDate,DischTime,Fullname,StaffName,WardID,Remarks,Reason,ClientCat,"
                        "ConsultID,PNo from qryhDischargeForNurse where dischdate = '"_sql +
                        place().now().date() + "'"),
        {"ID"});
}

void frmDischargeForNuse::startAdding() {
    offer(
        "select pNO,fullname,consultID from qryhAdmission   where consultID in (select consultID from hdischarge)"_sql);
    desktop().focus(dtDate);
}

void frmDischargeForNuse::startEditing() {
    DischargeForm::startEditing();
    const auto name = grdData.text("fullname");
    cboVehNo.add(name);
    cboVehNo.setIndex(0);
    lblTitle.setCaption("Patient Discharge : " + name);
}

void frmDischargeForNuse::picked() {
    if (dtDate.value()) return DischargeForm::picked();
    cboVehNo.clearText();
    refuse("Specify Discharge Date", dtDate);
}

std::vector<core::Check> frmDischargeForNuse::checks() {
    return {{cboVehNo.text().empty(), "Please specify Patient Name", &cboVehNo},
            {lblBill.caption().empty() || consultID().empty(), "Invalid ConsultID! Please Re-Select Name of Patient",
             &cboVehNo},
            {!dtDate.value(), "Please specify Discharge Date", &dtDate}};
}

core::Cells frmDischargeForNuse::cells() const {
    auto written = discharge();
    written.approvedBy = session().gEmpID;
    written.nextVisit = session().gServerDate;
    return dischargeCells(written);
}

std::optional<core::Refusal> frmDischargeForNuse::write() {
    if (editing()) {
        auto row = hospital().read("select * from hdischargeForNurse where consultID ='"_sql + consultID() + "'");
        core::setCells(row, cells());
        row.update();
        return std::nullopt;
    }
    if (!dischargedByDoctor()) return core::Refusal{"Doctor has not discharged this Patient!!! Discharge Disallowed"};
    core::addRow(hospital(), "select * from hdischargeForNurse where 1=2"_sql,
                 core::joined(cells(), visitCells(visit())));
    endStay();
    return std::nullopt;
}

bool frmDischargeForNuse::dischargedByDoctor() {
    return !hospital().read("select * from hdischarge where consultID ='"_sql + consultID() + "'").empty();
}

/// The patient leaves the wards, and the bill runs to this day.
void frmDischargeForNuse::endStay() {
    const auto day = dtDate.value()->date();
    hospital().execute("Update hAdmission set isdischarged = 1,DischDate='"_sql + day + "' where ConsultID = '" +
                       consultID() + "'");
    hospital().execute("Update hrecords set BillDate ='"_sql + day + "',  exitdate ='" + day + "' where ConsultID = '" +
                       consultID() + "'");
}

void frmDischargeForNuse::committed() {
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
    audit((editing() ? "Edit Pat Discharge: " : "Insert Pat Discharge: ") + lblTitle.caption(), consultID(),
          lblDays.caption() + "on Adm");
}

std::optional<core::Refusal> frmDischargeForNuse::erase() {
    deleteNursesDischarge(hospital(), grdData.text("ConsultID"));
    return std::nullopt;
}

}  // namespace inpatient
