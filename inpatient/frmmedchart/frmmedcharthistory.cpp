#include "inpatient/frmmedchart/frmmedcharthistory.h"

#include "core/rows/entries.h"
#include "core/session/session.h"
#include "core/texts/texts.h"

namespace inpatient {

using namespace db::literals;
using ui::Event;

namespace {

constexpr const char* allDrugs = "(ALL)";

}  // namespace

frmMedChartHistory::frmMedChartHistory(core::Workplace& place)
    : Form(place, "frmMedChartHistory", "Medication Chart History") {
    bind(cmdPat, Event::click, &frmMedChartHistory::cmdPat_Click);
    bind(cboCust, Event::click, &frmMedChartHistory::cboCust_Click);
    bind(cmdDisplay, Event::click, &frmMedChartHistory::cmdDisplay_Click);
    bind(cmdHist, Event::click, &frmMedChartHistory::cmdHist_Click);
    bind(CancelButton, Event::click, [this] { close(); });
}

/// Another patient may have been chosen since the screen was open last.
void frmMedChartHistory::showing() {
    setCaption("Medication Chart History for " + session().gCurConsultName);
    if (pno_ != session().gCurConsultPNo) trapped([this] { cmdPat_Click(); });
}

void frmMedChartHistory::cmdPat_Click() {
    pno_ = session().gCurConsultPNo;
    for (auto* list : {&cboCust, &cboDrug}) list->clear();
    core::addEntries(
        cboCust, hospital(),
        "SELECT distinct ConsultID,fullname,AdmDate,ATime FROM vwhAdmissionHist where pNO ='"_sql + pno_ + "'",
        [](const db::Recordset& stay) {
            return core::entryText(
                stay["fullname"].textOr() + " @" + stay["AdmDate"].textOr() + " " + stay["ATime"].textOr(),
                stay["ConsultID"].textOr());
        });
}

void frmMedChartHistory::cboCust_Click() {
    cboDrug.clear();
    cboDrug.add(allDrugs);
    core::addColumn(cboDrug, hospital(),
                    "select distinct drgName from hMedChartMonitor where ConsultID='"_sql +
                        core::entryOf(cboCust.text()).key + "' order by drgName",
                    "drgName");
}

void frmMedChartHistory::cmdDisplay_Click() {
    const auto consultID = core::entryOf(cboCust.text()).key;
    if (!passes({{consultID.empty(), "Please select Admission", &cboCust},
                 {cboDrug.text().empty(), "Please select Drug", &cboDrug}}))
        return;
    const bool all = cboDrug.text() == allDrugs;
    auto given = hospital().read((all ? "select distinct * from qryhMedChartForNurse where ConsultID='"_sql
                                      : "select distinct * from qryhMedChartForNurse where drgName='"_sql +
                                            core::quotesDoubled(cboDrug.text()) + "' and ConsultID='") +
                                 consultID + "'  order by drgname asc, mDate desc,mTime desc ");
    if (given.empty()) return message("No Report for the specified Patient");
    const auto headline = "Med Chart History for: " + given["FullName"].textOr() +
                          (all ? " (ALL Drugs Given)" : " (" + cboDrug.text() + ")");
    desktop().report({"rptMedChartHistory", headline, std::move(given)});
}

/// The text of the list is the laboratory's number here; one that is no admission's is a public one.
void frmMedChartHistory::cmdHist_Click() {
    const auto number = core::quotesDoubled(cboCust.text());
    auto results = hospital().read((core::entryOf(cboCust.text()).key.empty()
                                        ? "select distinct * from vwHistPathologyPublic where LabNo='"_sql
                                        : "select distinct * from vwHistPathology where LabNo='"_sql) +
                                   number + "'");
    if (results.empty()) return message("No HistPathology Report for the specified Patient");
    desktop().report({"InvResultHistPath", "HistoPathology", std::move(results)});
}

}  // namespace inpatient
