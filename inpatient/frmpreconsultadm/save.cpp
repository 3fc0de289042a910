// The save: an observation and its twin for the trends, together or not at all.

#include <algorithm>

#include "core/clock/clock.h"
#include "core/rows/cells.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "db/letters.h"
#include "inpatient/frmpreconsultadm/frmpreconsultadm.h"

namespace inpatient {

using namespace db::literals;

namespace {

/// A comment as it is stored: every zero is a blank.
std::string withoutZeros(std::string comment) {
    std::replace(comment.begin(), comment.end(), '0', ' ');
    return comment;
}

}  // namespace

std::vector<core::Check> frmPreConsultAdm::checks() {
    return {
        {!dtDate.value(), "Specify Date", &dtDate},
        {!dtTime.value(), "Specify Time", &dtTime},
        {blank(lblBill) || consultID_.empty(), " Consultation ID is needed for this Patient !!! see Records", &LstDate},
        {lblNo.caption().empty(), " please specify name of Patient", &LstDate}};
}

std::optional<core::Refusal> frmPreConsultAdm::write() {
    if (editing()) {
        readings.correct(hospital(), recordID_, cells(), taken());
        return std::nullopt;
    }
    if (hospital().read("select pno from hpatients where pno = '"_sql + lblNo.caption() + "'").empty())
        return core::Refusal{" Please select a patient from the list OR specified patient does not exist", &LstDate};
    recordID_ = readings.add(hospital(), cells(), taken());
    return std::nullopt;
}

core::VitalReadings::Taken frmPreConsultAdm::taken() const {
    return {lblBill.caption(), dtDate.value()->date(), core::shortTime(*dtTime.value())};
}

core::Cells frmPreConsultAdm::cells() {
    return core::joined(fields().cells(), {{"preTime", dtTime.value()->timeOfDay()},
                                           {"Comment", withoutZeros(txtRem.text())},
                                           {"PNo", lblNo.caption()},
                                           {"examinedby", session().gEmpID},
                                           {"Remarks", "ADMISSION"},
                                           {"Pressure", readings.pressure()},
                                           {"clientCat", lblCat.caption()},
                                           {"consultID", lblBill.caption()}});
}

void frmPreConsultAdm::committed() {
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
    audit((editing() ? "Edit IPD Vitals: " : "Insert IPD Vitals: ") + patient_, lblBill.caption(), "By Nurse");
}

void frmPreConsultAdm::finished() {
    core::selectRow(grdData, "ID", recordID_);
}

ui::Control* frmPreConsultAdm::controlOf(std::string_view column) {
    if (db::sameName(column, "Pressure")) return &readings.txtPressure;
    if (db::sameName(column, "Comment")) return &txtRem;
    return RecordForm::controlOf(column);
}

}  // namespace inpatient
