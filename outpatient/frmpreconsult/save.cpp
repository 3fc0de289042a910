// The save: the readings, their twin for the trends and the attendance passed to the doctor, together or not at all.

#include "billing/billlines.h"
#include "core/clock/clock.h"
#include "core/rows/cells.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "db/letters.h"
#include "outpatient/frmpreconsult/frmpreconsult.h"

using namespace db::literals;

namespace outpatient {

std::vector<core::Check> frmPreConsult::checks() {
    const auto unread = [](ui::TextBox& box, const char* text) { return core::Check{box.text().empty(), text, &box}; };
    auto& of = readings;
    return {
        {blank(lblBill) || consultID_.empty(), " Consultation ID is needed for this Patient !!! see Records"},
        {CboRef.text().empty(), " please specify Name of Doctor", &CboRef},
        {!editing() && cboVehNo.text().empty(), "Please select a valid Patient Name", &cboVehNo},
        {cboType.text().empty(), "Please select Clinic", &cboType},
        unread(of.txtTemp, " please specify Temp of Patient"),
        unread(of.txtPressure, "please specify Pressure of Patient or Enter zero"),
        unread(of.txtPressure2, "please specify second Pressure Value of Patient or Enter zero"),
        unread(of.txtPause, "please specify Pulse of Patient or Enter zero"),
        unread(of.txtResp, "please specify Respiratory Ratio of Patient or Enter zero"),
        unread(of.txtHt, "please specify Height of Patient or Enter zero"),
        unread(of.txtWt, "please specify Weight of Patient or Enter zero"),
    };
}

std::optional<core::Refusal> frmPreConsult::write() {
    if (editing() && usedByDoctor())
        return core::Refusal{"Cannot Edit this record! Already used by Doctor for Consultation"};
    if (editing())
        correctReadings();
    else
        addReadings();
    return std::nullopt;
}

void frmPreConsult::committed() {
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
    audit((editing() ? "Edit Vitals of: " : "Insert Vitals of: ") + Label5.caption(), consultID_, "By Nurse");
}

void frmPreConsult::finished() {
    core::selectRow(grdData, "ID", recordID_);
    refreshQueue();
}

bool frmPreConsult::usedByDoctor() {
    return !hospital().read("select consultID from hconsulting where consultID='"_sql + consultID_ + "'").empty();
}

/// The session's date and time stay those of its last reading: the twin of a corrected row takes its time from them.
void frmPreConsult::correctReadings() {
    const auto date = core::valueOf(dtDate);
    readings.correct(hospital(), recordID_, cells(), {consultID_, date, session().gServerTime});
    passToDoctor();
}

void frmPreConsult::addReadings() {
    const auto date = session().gServerNow.date();
    const auto time = core::shortTime(session().gServerNow);
    recordID_ = readings.add(hospital(), core::joined(cells(), {{"preTime", time}, {"Status", lblRem.caption()}}),
                             {consultID_, date, time});
    // Without a price on purpose: it marks the nursing service, which the bill prices.
    billing::addServiceLine(hospital(),
                            {.date = date,
                             .name = "NURSING FEE",
                             .pno = lblNo.caption(),
                             .consultID = consultID_,
                             .conID = db::Null{},
                             .coyName = retainID_,
                             .billTo = retainCode_,
                             .revType = session().gRevtypeConsult},
                            {{"AppVersion", place().settings.version.major}});
    passToDoctor();
    core::addRow(hospital(), "select  * from hPatientsTimeline where 1=2"_sql,
                 {{"consultID", consultID_}, {"ServicePoint", "VITALS"}});
}

/// The attendance leaves the nurse's list and stands on the doctor's, in the clinic that was chosen.
void frmPreConsult::passToDoctor() {
    hospital().execute("Update hrecords set  attendedto=1,attendedtoByNurse=1,PatVal = 1,DocAssigned='"_sql +
                       core::entryOf(CboRef.text()).key + "',clinicType='" + core::quotesDoubled(cboType.text()) +
                       "' where consultID = '" + consultID_ + "'");
}

/// What a new and a corrected row have in common. A correction moves the row to the day of the correction.
core::Cells frmPreConsult::cells() {
    return core::joined(fields().cells(), {{"preDate", session().gServerNow.date()},
                                           {"PNo", lblNo.caption()},
                                           {"examinedby", session().gEmpID},
                                           {"Remarks", session().gDefaultPatClass},
                                           {"Pressure", readings.pressure()},
                                           {"clientCat", lblCat.caption()},
                                           {"consultID", consultID_}});
}

ui::Control* frmPreConsult::controlOf(std::string_view column) {
    if (db::sameName(column, "Pressure")) return &readings.txtPressure;
    if (db::sameName(column, "clinicType")) return &cboType;
    return RecordForm::controlOf(column);
}

}  // namespace outpatient
