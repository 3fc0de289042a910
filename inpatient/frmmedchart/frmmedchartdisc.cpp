#include "inpatient/frmmedchart/frmmedchartdisc.h"

#include "core/texts/texts.h"

namespace inpatient {

using namespace db::literals;
using ui::Event;

frmMedChartDisc::frmMedChartDisc(core::Workplace& place, const ChartedPatient& patient)
    : Form(place, "frmMedChartDisc", "Discontinued/Completed Drug for " + patient.name), patient_(patient) {
    for (const char* column : {"ID", "Reason"}) grdData.hideColumn(column);
    for (const auto event : {Event::click, Event::rowChange}) bind(grdData, event, &frmMedChartDisc::showReason);
    bind(grdData, Event::dblClick, &frmMedChartDisc::cmdDisp_Click);
    bind(cmdDisp, Event::click, &frmMedChartDisc::cmdDisp_Click);
    bind(CancelButton, Event::click, [this] { close(); });
}

void frmMedChartDisc::load() {
    trapped([this] {
        grdData.bind(hospital().read(
            "select ID,drgName as Drug,NumOfTimes as TotalToTake,NumTaken as TotalTaken,DrugFullyGiven,Discontinued,"
            "Reason,ConsultID from qryhMedChartMonitorForDisconDrugs where consultID ='"_sql +
            patient_.consultID + "' order by drgName"));
        showReason();
    });
}

void frmMedChartDisc::showReason() {
    lblReason.setCaption(grdData.row() < 0 ? std::string() : grdData.text("Reason"));
}

void frmMedChartDisc::cmdDisp_Click() {
    if (grdData.row() < 0) return refuse("empty Drug Name not allowed", grdData);
    if (grdData.text("DrugFullyGiven") == "YES")
        return refuse("This Drug has been Fully Charted! Check the Grid", grdData);
    const auto drug = grdData.text("Drug");
    if (!confirmed("Are you sure to Recall " + drug, "Recall Drug to Chart")) return;
    const auto reason = desktop().askInput("Give Reason to Recall this Drug to ChartDrug to Recall", {}).value_or("");
    if (core::blank(reason)) return refuse("Please Specify Reason to Recall Drug to Chart", grdData);
    db::Transaction transaction(hospital());
    hospital().execute("Update hMedchartMonitor set suppres=0,Remarks='"_sql + core::quotesDoubled(reason) +
                       "' where ID =" + grdData.text("ID"));
    transaction.commit();
    audit(drug + " Recalled to Chart for: " + patient_.name, patient_.consultID, reason);
    close();
}

}  // namespace inpatient
