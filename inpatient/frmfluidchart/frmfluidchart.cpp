#include "inpatient/frmfluidchart/frmfluidchart.h"

#include <cstdio>

#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "db/letters.h"

namespace inpatient {

using namespace db::literals;
using ui::Event;

namespace {

std::string twoDecimals(double volume) {
    char text[64];
    std::snprintf(text, sizeof text, "%.2f", volume);
    return text;
}

/// What a volume's column gets: nothing for an empty field. Throws db::Error(type) for what is no number.
db::Value volume(const ui::TextBox& box, const char* column) {
    if (box.text().empty()) return {};
    if (const auto number = db::parseNumber(box.text())) return *number;
    throw db::Error(db::Category::type, "Type mismatch: the volume is no number", {}, {}, column);
}

}  // namespace

frmFluidChart::frmFluidChart(core::Workplace& place) : RecordForm(place, "frmFluidChart", "Fluid Chart") {
    // The output's kind stands ahead of its fluid, which it fills.
    keep({{&cboTime, "Time", "ChartTime"},
          {&cboIntake, "IntakeFluidType", "IntakeFluidType"},
          {&txtInOthers, "InTakeFluid", "IntakeFluid", core::Keeps::trimmed},
          {&txtInVol, "IntakeVol"},
          {&cboOutput, "OutPutFluidType", "OutputFluidType"},
          {&txtOutOthers, "OutputFluid", "OutPutFluid", core::Keeps::trimmed},
          {&txtOutVol, "OutputVol"}});
    bind(cboVehNo, Event::click, &frmFluidChart::cboVehNo_Click);
    bind(cboOutput, Event::click, [this] { txtOutOthers.setText(cboOutput.text()); });
    bind(cmdChart, Event::click, &frmFluidChart::cmdChart_Click);
    for (const char* column : {"empID", "SNO", "OutPutFluidType"}) grdData.hideColumn(column);
}

void frmFluidChart::fillLists() {
    core::fill(cboIntake, {"ORAL", "IV", "OTHERS"});
    core::fill(cboOutput, {"URINE", "VOMIT", "ASPIRATION"});
    // In the order of a nursing day.
    core::fill(cboTime,
               {"6 AM", "7 AM", "8 AM", "9 AM", "10 AM", "11 AM", "12 NOON", "1 PM", "2 PM", "3 PM", "4 PM", "5 PM",
                "6 PM", "7 PM", "8 PM", "9 PM", "10 PM", "11 PM", "12 MN",   "1 AM", "2 AM", "3 AM", "4 AM", "5 AM"});
    cboVehNo.clear();
    cboVehNo.add("");
    addStays(cboVehNo, hospital(), "select pNO,fullname,consultID from qryhAdmission "_sql);
    if (!dtDate.value()) dtDate.setValue(session().gServerDate);
}

void frmFluidChart::showList() {
    if (blank(lblBill)) return grdData.clear();
    core::refreshRows(
        grdData,
        hospital().read("select distinct SNo,EmpID,Date,ChartTime as Time,FullName,IntakeFluidType,InTakeFluid,IntVol "
                        "as IntakeVol,OutPutFluidType,OutputFluid,OutVol as OutputVol,ConsultID,PNo,ClientCat from "
                        "qryhfluidchart where consultID = '"_sql +
                        lblBill.caption() + "' and Date='" + core::textOf(dtDate) + "'"),
        {"SNo"});
}

void frmFluidChart::showTotals() {
    for (auto* total : {&lblIntVol, &lblOutVol}) total->setCaption("0");
    const auto sums = hospital().read(
        "select sum(IntVol) as IntVol,sum(OutVol) as OutVol FROM  qryhFluidChart where consultID = '"_sql +
        lblBill.caption() + "' and Date='" + core::textOf(dtDate) + "'");
    if (!sums["IntVol"].isNull()) lblIntVol.setCaption(twoDecimals(sums["IntVol"].number()));
    if (!sums["OutVol"].isNull()) lblOutVol.setCaption(twoDecimals(sums["OutVol"].number()));
}

// A line stays its patient's; a new one may be anybody's, and patients are looked through while browsing.
void frmFluidChart::entered(Mode /*mode*/) {
    cboVehNo.setEnabled(!editing());
}

void frmFluidChart::cboVehNo_Click() {
    if (editing()) return;
    const auto stay = labels_.open(hospital(), core::entryOf(cboVehNo.text()).key);
    lblTitle.setCaption(stay.empty() ? std::string("Patient :") : "Patient : " + stay["fullName"].textOr());
    showTotals();
    showList();
}

void frmFluidChart::startAdding() {
    dtDate.setValue(session().gServerDate);
    for (auto* box : {&txtInVol, &txtOutVol}) box->setText("0");
    desktop().focus(blank(lblBill) ? cboVehNo : cboTime);
}

void frmFluidChart::startEditing() {
    RecordForm::startEditing();
    sno_ = grdData.text("SNo");
    lblNo.setCaption(grdData.text("PNo"));
    lblClient.setCaption(grdData.text("ClientCat"));
    lblBill.setCaption(grdData.text("ConsultID"));
    lblTitle.setCaption("Patient : " + grdData.text("FullName"));
    core::showDate(dtDate, grdData.rows()["Date"]);
    core::showEntry(cboVehNo, core::entryText(grdData.text("FullName"), lblBill.caption()));
    desktop().focus(cboTime);
}

std::vector<core::Check> frmFluidChart::checks() {
    // A stay that ended meanwhile has left its name in the list and nobody on the screen.
    return {{cboVehNo.text().empty() || blank(lblBill), "Please specify Patient's Name", &cboVehNo},
            {!dtDate.value(), "Please specify date", &dtDate},
            {cboTime.text().empty(), "Please specify Time", &cboTime}};
}

std::optional<core::Refusal> frmFluidChart::write() {
    const auto cells = core::joined(fields().cells(), {{"nDate", dtDate.value()->date()},
                                                       {"nTime", session().gServerTime},
                                                       {"empID", session().gEmpID},
                                                       {"IntVol", volume(txtInVol, "IntVol")},
                                                       {"OutVol", volume(txtOutVol, "OutVol")}});
    db::Recordset line(hospital(), editing() ? "select * from hfluidChart where sno ='"_sql + sno_ + "'"
                                             : "select * from hfluidChart where 1=2"_sql);
    if (adding()) line.addNew();
    core::setCells(line, cells);
    if (adding())
        core::setCells(
            line, {{"PNo", lblNo.caption()}, {"consultID", lblBill.caption()}, {"clientCat", lblClient.caption()}});
    line.update();
    sno_ = line["sno"].text();
    return std::nullopt;
}

void frmFluidChart::committed() {
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
    if (editing())
        audit("Edit FLUID CHART: " + lblTitle.caption(), lblBill.caption(), "By Nurse");
    else
        audit("Insert Fluid Chart: " + lblTitle.caption(), lblBill.caption(), session().gUserFullName);
}

void frmFluidChart::finished() {
    showTotals();
    core::selectRow(grdData, "SNo", sno_);
}

void frmFluidChart::refresh() {
    fillLists();
    clear();
    labels_.clear();
    lblTitle.setCaption("Patient :");
    for (auto* total : {&lblIntVol, &lblOutVol}) total->setCaption("0");
    grdData.clear();
}

void frmFluidChart::cmdChart_Click() {
    if (cboVehNo.text().empty()) return refuse("Please specify Patient's Name", cboVehNo);
    if (!dtDate.value()) return refuse("Please specify date", dtDate);
    const auto patient = core::entryOf(cboVehNo.text());
    auto lines = hospital().read("Select * from qryhFluidChart  where consultID='"_sql + patient.key +
                                 "' and Date = '" + core::textOf(dtDate) + "' order by SNo");
    if (lines.empty()) return message("No Report for the Specfied Patient and Date");
    desktop().report({"rptFluidChart", "Fluid Chart Report", std::move(lines),
                      patient.name + " Fluid Chart for " + core::textOf(dtDate)});
}

ui::Control* frmFluidChart::controlOf(std::string_view column) {
    if (db::sameName(column, "IntVol")) return &txtInVol;
    if (db::sameName(column, "OutVol")) return &txtOutVol;
    return RecordForm::controlOf(column);
}

}  // namespace inpatient
