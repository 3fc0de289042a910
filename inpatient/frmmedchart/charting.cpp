// What is written into a chart.

#include "core/care/chartitems.h"
#include "core/rows/cells.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "inpatient/frmmedchart/frmmedchart.h"

namespace inpatient {

using namespace db::literals;

namespace {

/// A count of doses as its column takes it: 16 bits. Throws db::Error(type).
db::Value doseCount(const db::Value& count) {
    return count.isNull() ? count : db::Value(int{count.int16()});
}

}  // namespace

void frmMedChart::OKButton_Click() {
    if (!passes({{blank(lblCon), "This record cannot be Saved Consultation ID required.", &lstPat},
                 {doses.ticked() == 0, "Please tick to indicate that Medication has been given", &LstDate}}) ||
        !confirmed("Are you sure to Save Record", "Delete"))
        return;
    if (!saves(OKButton, [this] { chart(); })) return;
    message("Record Succesfully saved");
    audit("Med Chart for: " + name_, lblCon.caption(),
          line_->drug + ": took (" + lblCNum.caption() + ") , Total taken:(" + lblTaken.caption() + ") out of (" +
              txtNum.text() + ")\r\nGiven to " + name_ + " by " + session().gUserFullName);
    clearLine();
    showHistory();
    showDrugs();
    desktop().focus(LstDate);
}

/// The figure on the screen stands, whatever another nurse has charted meanwhile; both acts are kept.
void frmMedChart::chart() {
    db::Transaction transaction(hospital());
    db::Recordset line(hospital(), "select * from hMedchartMonitor where ID ='"_sql + line_->id + "'");
    line.set("numtaken", doseCount(lblTaken.caption()));
    if (lblTaken.caption() == txtNum.text()) line.set("attendedto", true);
    line.update();
    core::addRow(hospital(), "select * from hMedChartForNurse where 1=2"_sql,
                 {{"conID", line_->conID},
                  {"mdate", core::valueOf(dtDate)},
                  {"mtime", core::valueOf(dtTime)},
                  {"PNo", lblNo.caption()},
                  {"drgName", line_->drug},
                  {"givenBy", session().gEmpID},
                  {"consultID", lblCon.caption()},
                  {"iDNo", line_->id},
                  {"numtaken", doses.ticked()}});
    transaction.commit();
}

void frmMedChart::cmdUpd_Click() {
    const auto total = core::trimmed(txtNum.text());
    if (!passes({{!line_, "empty Drug Name not allowed", &LstDate},
                 {!db::parseNumber(total), "Please specify Numeric figure", &txtNum}}))
        return;
    db::Value newTotal;
    if (!saves(cmdUpd, [&] {
            db::Transaction transaction(hospital());
            db::Recordset line(hospital(), "select numOfTimes from hMedChartMonitor  where  ID="_sql + line_->id);
            newTotal = doseCount(total);
            line.set("numOfTimes", newTotal);
            line.update();
            transaction.commit();
        }))
        return;
    doses.layOut(newTotal.int32(), doses.taken() - doses.ticked(), doses.ticked());
    counted();
    message("Update Successful");
}

void frmMedChart::discontinue() {
    if (LstDate.text().empty() || !line_) return refuse("empty Drug Name not allowed", LstDate);
    if (!confirmed("Are you sure to Discontinue " + line_->drug, "Delete")) return;
    const auto reason =
        desktop().askInput("Give Reason to Discontinue this Drug " + line_->drug, "Drug to Discontinue").value_or("");
    if (core::blank(reason)) return refuse("Please Specify Reason to Discontinue Drug", LstDate);
    db::Transaction transaction(hospital());
    db::Recordset line(hospital(), "select * from hMedchartMonitor where ID ='"_sql + line_->id + "'");
    core::setCells(line, {{"suppres", true}, {"Remarks", reason}});
    line.update();
    transaction.commit();
    audit(line_->drug + " Discontinued for: " + name_, lblCon.caption(), reason);
    clearLine();
    showDrugs();
    showHistory();
}

void frmMedChart::cmdDel_Click() {
    if (grdData.row() < 0) return refuse("Please select a record from the list", grdData);
    if (confirmed("Are you sure to Delete Selected Med Chart Item: " + grdData.text("Drug") + " Dated " +
                      grdData.text("Date"),
                  "Delete"))
        deleteAct();
}

/// A drug that was given in full stays off the chart, although it is no longer.
void frmMedChart::deleteAct() {
    const auto line = grdData.text("ID");
    const auto act = "Med Chart Item: " + grdData.text("Drug") + " Charted on " + grdData.text("Date") + ":" +
                     grdData.text("Time") + " Deleted for: " + name_;
    db::Transaction transaction(hospital());
    hospital().execute("delete from hMedChartForNurse where SNo ="_sql + grdData.text("SNo"));
    hospital().execute("update hMedChartMonitor set numTaken = numTaken "_sql + -grdData.rows()["NumTaken"].int32Or(0) +
                       " where ID = " + line);
    transaction.commit();
    audit(act, lblCon.caption());
    message(" Record successfully deleted ");
    // The doses of the open line are other ones now.
    if (line_ && line_->id == line)
        openLine();
    else
        showHistory();
}

void frmMedChart::cmdPat_Click() {
    if (blank(lblCon)) return refuse("Specify a Patient", lstPat);
    const bool first =
        hospital()
            .read("select distinct consultID from hMedChartMonitor where consultID='"_sql + consultID_ + "'")
            .empty();
    const auto ofVisit = "select distinct * from hconsultingDetails where consultID='"_sql + consultID_;
    auto dispensed = hospital().read(
        first ? ofVisit + "'"
              : ofVisit + "' and drgName not in (select drgNAme from hMedChartMonitor where consultID='" + consultID_ +
                    "') ");
    if (dispensed.empty())
        return message(first
                           ? "No Drug Dispensed for this Patient"
                           : "All Dispensed Drugs for this Patient are showing on the Med Chart Page!. Check if it is "
                             "Discomtinued OR Completely given as shown in the grid");
    if (!saves(cmdPat, [&] { loadDrugs(dispensed); })) return;
    audit((first ? "Dispensed Drugs Added by Button Click (cmdPat) to Med Chart for: "
                 : "Outstanding Dispensed Drugs Added to Med Chart for: ") +
              name_,
          lblCon.caption());
    message(first ? "Patient Chart Added Successfully" : "Patient Chart Updated Successfully");
    openPatient();
    desktop().focus(LstDate);
}

void frmMedChart::loadDrugs(db::Recordset& dispensed) {
    db::Transaction transaction(hospital());
    db::Recordset chart(hospital(), core::emptyChart(core::Chart::wards));
    for (; !dispensed.eof(); dispensed.moveNext()) {
        chart.addNew();
        core::setCells(chart, core::chartCells(core::Chart::wards, {.conID = dispensed["conID"],
                                                                    .consultID = consultID_,
                                                                    .pno = dispensed["PNo"].textOr(),
                                                                    .name = dispensed["drgName"].textOr(),
                                                                    .category = dispensed["drgCatName"],
                                                                    .times = doseCount(dispensed["Qty"]),
                                                                    .dosage = dispensed["usage"],
                                                                    .clientCat = lblClient.caption(),
                                                                    .date = dispensed["dtDate"],
                                                                    .time = dispensed["dtTime"]}));
        chart.update();
    }
    hospital().execute("update hConsulting set remarks='ADMISSION' where consultID ='"_sql + consultID_ + "'");
    transaction.commit();
}

}  // namespace inpatient
