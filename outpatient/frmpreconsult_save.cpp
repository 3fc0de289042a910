// The save: the readings, their twin for the trends and the attendance passed to the doctor, together or not at all.

#include "billing/billlines.h"
#include "core/grids.h"
#include "core/utility.h"
#include "outpatient/frmpreconsult.h"

using namespace db::literals;

namespace outpatient {

bool frmPreConsult::complete() {
    const bool adding = mode_ != Mode::editing;
    return passes({
        {core::trimmed(lblBill.caption()).empty() || consultID_.empty(),
         " Consultation ID is needed for this Patient !!! see Records"},
        {CboRef.text().empty(), " please specify Name of Doctor", &CboRef},
        {adding && cboVehNo.text().empty(), "Please select a valid Patient Name", &cboVehNo},
        {cboType.text().empty(), "Please select Clinic", &cboType},
        {txtTemp.text().empty(), " please specify Temp of Patient", &txtTemp},
        {txtPressure.text().empty(), "please specify Pressure of Patient or Enter zero", &txtPressure},
        {txtPressure2.text().empty(), "please specify second Pressure Value of Patient or Enter zero", &txtPressure2},
        {txtPause.text().empty(), "please specify Pulse of Patient or Enter zero", &txtPause},
        {txtResp.text().empty(), "please specify Respiratory Ratio of Patient or Enter zero", &txtResp},
        {txtHt.text().empty(), "please specify Height of Patient or Enter zero", &txtHt},
        {txtWt.text().empty(), "please specify Weight of Patient or Enter zero", &txtWt},
    });
}

void frmPreConsult::OKButton_Click() {
    if (!complete() || !confirmedSave()) return;
    saves(OKButton, [this] { save(); });
}

void frmPreConsult::save() {
    const bool editing = mode_ == Mode::editing;
    db::Transaction transaction(hospital());
    // The session's date and time stay those of its last reading: a corrected row's twin takes its time from them.
    session().gServerNow = core::GetServerNow(place());
    if (editing && usedByDoctor()) {
        transaction.rollback();
        return message("Cannot Edit this record! Already used by Doctor for Consultation");
    }
    if (editing)
        correctReadings();
    else
        addReadings();
    transaction.commit();
    message(editing ? "Record Succesfully updated" : "Record Succesfully saved");
    audit((editing ? "Edit Vitals of: " : "Insert Vitals of: ") + Label5.caption(), consultID_, "By Nurse");
    const std::string saved = recordID_;
    browse();
    refreshGrid();
    core::selectRow(grdData, "ID", saved);
    refreshQueue();
}

bool frmPreConsult::usedByDoctor() const {
    return !hospital().read("select consultID from hconsulting where consultID='"_sql + consultID_ + "'").empty();
}

void frmPreConsult::correctReadings() {
    auto row = hospital().read("select * from hPreconsult where ID="_sql + recordID_);
    core::setCells(row, readings());
    row.update();
    hospital().execute("Delete From hPreConsultChart where ID="_sql + recordID_);
    const auto date = dtDate.value() ? db::Value(*dtDate.value()) : db::Value();
    core::addRow(hospital(), "select * from hPreConsultChart where 1=2"_sql,
                 chartedReadings(row["ID"], date, session().gServerTime));
    passToDoctor();
}

void frmPreConsult::addReadings() {
    const auto date = session().gServerNow.date();
    const auto time = core::shortTime(session().gServerNow);
    auto cells = readings();
    cells.emplace_back("preTime", time);
    cells.emplace_back("Status", lblRem.caption());
    core::addRow(hospital(), "select * from hPreconsult where 1=2"_sql, cells);
    // Within the same transaction the highest number is this row's.
    const auto own = hospital().read("select top 1 ID from hPreconsult order by ID desc"_sql);
    recordID_ = own["ID"].text();
    core::addRow(hospital(), "select * from hPreConsultChart where 1=2"_sql, chartedReadings(own["ID"], date, time));
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
core::Cells frmPreConsult::readings() const {
    return {{"preDate", session().gServerNow.date()},
            {"PNo", lblNo.caption()},
            {"examinedby", session().gEmpID},
            {"Remarks", session().gDefaultPatClass},
            {"temp", txtTemp.text()},
            {"Pressure", txtPressure.text() + "/" + txtPressure2.text()},
            {"pulse", txtPause.text()},
            {"Weight", txtWt.text()},
            {"Height", txtHt.text()},
            {"urineAlb", txtAlb.text()},
            {"urineSug", txtSugar.text()},
            {"respRatio", txtResp.text()},
            {"clientCat", lblCat.caption()},
            {"consultID", consultID_},
            {"SPO2", core::trimmed(txtSPO2.text())},
            {"RBS", core::trimmed(txtRBS.text())},
            {"Positioning", core::trimmed(cboPosition.text())}};
}

/// The twin for the trends, which keeps the two pressures apart.
core::Cells frmPreConsult::chartedReadings(const db::Value& id, const db::Value& date, db::DateTime time) const {
    return {{"ID", id},
            {"consultID", consultID_},
            {"preDate", date},
            {"preTime", time},
            {"temp", txtTemp.text()},
            {"Pressure1", txtPressure.text()},
            {"Pressure2", txtPressure2.text()},
            {"pulse", txtPause.text()},
            {"Weight", txtWt.text()},
            {"Height", txtHt.text()},
            {"respRatio", txtResp.text()}};
}

}  // namespace outpatient
