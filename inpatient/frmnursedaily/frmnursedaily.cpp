#include "inpatient/frmnursedaily/frmnursedaily.h"

#include "core/files/file.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "ui/raised.h"

namespace inpatient {

using namespace db::literals;
using ui::Event;

namespace {

constexpr const char* dailyReport = "Nurses' Daily Report";
/// In bytes: more than anybody writes in one report.
constexpr std::size_t longestCopy = std::size_t{16} * 1024 * 1024;

}  // namespace

frmNurseDaily::frmNurseDaily(core::Workplace& place, std::string& viewed)
    : RecordForm(place, "frmNurseDaily", "Daily Report"), viewed_(viewed) {
    keep({{&cboYes, nullptr, "Completed"}, {&txtSub, nullptr, "subHead"}, {&txtAdmin, nullptr, "Details"}});
    lblTitle.setCaption(dailyReport);
    core::fill(cboShift, {"MORNING", "AFTERNOON", "NIGHT"});
    core::fill(cboVehNo, {"ADMIN REPORT", "MINOR THEATHER", "MAIN THEATHER", "SITUATION REPORT", "OVERALL REPORT"});
    core::fill(cboYes, {"YES", "NO"});
    for (auto* pick : {&cboShift, &cboVehNo}) bind(*pick, Event::click, &frmNurseDaily::loadReport);
    bind(dtDate, Event::change, &frmNurseDaily::dateChanged);
    bind(grdData, Event::click, &frmNurseDaily::chooseRow);
    bind(grdData, Event::dblClick, [this] {
        if (!browsing()) return cmdEdit_Click();
        chooseRow();
        cmdEdit_Click();
    });
    bind(cmdLocal, Event::click, &frmNurseDaily::cmdLocal_Click);
    bind(cmdRet, Event::click, &frmNurseDaily::cmdRet_Click);
    bind(cmdView, Event::click, &frmNurseDaily::cmdView_Click);
    grdData.hideColumn("SNO");
}

void frmNurseDaily::fillLists() {
    dtDate.setValue(session().gServerDate);
}

/// The reports of the date, so that nobody has to guess which there are.
void frmNurseDaily::showList() {
    core::refreshRows(grdData,
                      hospital().read("select SNO, Shift, rptHead as Heading, SubHead, Completed, dtTime as Time, "
                                      "empFullname as Nurse, isOLD from vwhNurseRpt where dtDate='"_sql +
                                      core::textOf(dtDate) + "' order by SNO desc"),
                      {"SNO"});
}

// Which report it is stays while one is corrected: to pick another would load its text over what was typed.
void frmNurseDaily::entered(Mode /*mode*/) {
    for (ui::Control* key : std::initializer_list<ui::Control*>{&cboShift, &cboVehNo, &dtDate})
        key->setEnabled(!editing());
    for (auto* local : {&cmdLocal, &cmdRet, &cmdView}) local->setEnabled(editing());
}

void frmNurseDaily::clear() {
    RecordForm::clear();
    for (auto* list : {&cboShift, &cboVehNo}) list->clearText();
    lblTitle.setCaption(dailyReport);
    shown_.reset();
    open_ = {};
}

// -- what is there --

void frmNurseDaily::dateChanged() {
    if (!browsing()) return;
    if (!cboShift.text().empty() && !cboVehNo.text().empty() && dtDate.value()) loadReport();
    showList();
}

void frmNurseDaily::loadReport() {
    if (!browsing() || choosing_) return;
    if (passes({{cboShift.text().empty(), "Please specify Date and Shift", &cboShift},
                {cboVehNo.text().empty(), "Please Report Heading", &cboVehNo},
                {!dtDate.value(), "Please specify Date", &dtDate}}))
        showReport();
}

/// Of several reports the latest shows.
void frmNurseDaily::showReport() {
    shown_.reset();
    RecordForm::clear();
    auto reports = hospital().read(
        "select   SNO,dtDate, dtTime, Shift, empID, Details, rptHead, SubHead, Completed,FirstName,LastName from "
        "vwhNurseRpt where dtdate='"_sql +
        core::textOf(dtDate) + "' and shift ='" + cboShift.text() + "' and rptHead ='" + cboVehNo.text() + "'");
    if (reports.empty()) return;
    std::int64_t latest = 0;
    std::size_t row = 0;
    for (; !reports.eof(); reports.moveNext())
        if (const auto sno = reports["SNO"].int64(); sno > latest) {
            latest = sno;
            row = reports.row();
        }
    reports.moveTo(row);
    shown_ = Report{reports["SNO"].text(), cboShift.text(), cboVehNo.text(), reports["Details"].textOr()};
    txtSub.setText(reports["SubHead"].textOr());
    core::showEntry(cboYes, reports["Completed"].textOr());
    txtAdmin.setText(shown_->details);
}

void frmNurseDaily::chooseRow() {
    if (!browsing() || grdData.row() < 0) return;
    {
        const ui::Raised choosing(choosing_);
        core::showEntry(cboShift, grdData.text("Shift"));
        core::showEntry(cboVehNo, grdData.text("Heading"));
    }
    loadReport();
}

// -- a new report, and one under correction --

void frmNurseDaily::startAdding() {
    clear();
    dtDate.setValue(session().gServerDate);
    desktop().focus(cboShift);
}

std::optional<core::Refusal> frmNurseDaily::mayEdit() {
    if (!browsing()) return core::Refusal{"Save or cancel the current entry first"};
    if (cboShift.text().empty()) return core::Refusal{"Please specify Date and Shift", &cboShift};
    if (!dtDate.value()) return core::Refusal{"Please specify Date", &dtDate};
    if (cboVehNo.text().empty()) return core::Refusal{"Please specify Report Heading", &cboVehNo};
    // Any heading's report of the shift that can still be edited is the one that is opened.
    const auto row = hospital().read(
        "select  top 1  SNO,dtDate, dtTime, Shift, empID, Details, rptHead, SubHead, Completed,FirstName,LastName from "
        "vwhNurseRpt where isOLD=0 and Completed='NO' and dtdate='"_sql +
        core::textOf(dtDate) + "' and shift ='" + cboShift.text() + "'");
    if (row.empty()) return core::Refusal{"This Report is Not Allowed for Editing!!! Already Completed"};
    open_ = {row["SNO"].text(), row["Shift"].textOr(), row["rptHead"].textOr(), row["Details"].textOr()};
    return std::nullopt;
}

/// The fields stay as they show.
void frmNurseDaily::startEditing() {
    if (shown_ && shown_->sno == open_.sno) open_.details = shown_->details;
    lblTitle.setCaption(std::string(dailyReport) + " : " + open_.shift + ", " + open_.heading);
    desktop().focus(txtAdmin);
}

std::vector<core::Check> frmNurseDaily::checks() {
    return {{!dtDate.value(), "Please specify Date", &dtDate},
            {cboShift.text().empty(), "Please specify Shift", &cboShift},
            {cboVehNo.text().empty(), "Please specify Report Heading", &cboVehNo},
            {cboYes.text().empty(),
             "Please specify 'YES' if the Report is Complete or Choose 'NO' if it can still be Edited Later", &cboYes},
            {txtAdmin.text().empty(), "Please enter Report Details", &txtAdmin}};
}

/// Who changed the report under correction since it was read, for the question; "" where nobody did.
std::string frmNurseDaily::changedMeanwhile() {
    if (!editing()) return {};
    const auto now = hospital().read("select Details, dtTime, empFullname from vwhNurseRpt where SNO="_sql + open_.sno);
    if (now.empty() || now["Details"].textOr() == open_.details) return {};
    return now["empFullname"].textOr("Somebody") + " has changed this report at " + now["dtTime"].textOr() +
           ", after you opened it. What you save takes the place of that text.\r\n\r\n";
}

bool frmNurseDaily::maySave() {
    return confirmed(changedMeanwhile() + "Are you sure to save", "Check before save");
}

std::optional<core::Refusal> frmNurseDaily::write() {
    if (!editing()) {
        insertReport();
        return std::nullopt;
    }
    if (updateReport()) return std::nullopt;
    return core::Refusal{"This report is not there any more: somebody has deleted it meanwhile", &txtAdmin};
}

bool frmNurseDaily::updateReport() {
    saved_ = open_.sno;
    return hospital().execute(
               "update hNurseOverRpt set dtDate='"_sql + core::textOf(dtDate) + "',dtTime='" +
               place().now().timeOfDay() + "',Shift='" + core::quotesDoubled(cboShift.text()) + "',EmpID='" +
               core::quotesDoubled(session().gEmpID) + "',RptHead='" + core::quotesDoubled(cboVehNo.text()) +
               "',subHead='" + core::quotesDoubled(core::trimmed(txtSub.text())) + "',Completed='" +
               core::quotesDoubled(cboYes.text()) + "',Details .write('" +
               core::quotesDoubled(core::trimmed(txtAdmin.text())) + "',0,null) where sno=" + open_.sno) > 0;
}

/// Earlier reports of the shift and heading become old, whatever their date.
void frmNurseDaily::insertReport() {
    const auto shift = core::quotesDoubled(cboShift.text());
    const auto heading = core::quotesDoubled(cboVehNo.text());
    hospital().execute("Update hNurseOverRpt set isOLD = 1 where  shift ='"_sql + shift + "' and rptHead ='" + heading +
                       "'");
    hospital().execute(
        "insert into hNurseOverRpt(dtDate,dtTime,Shift,EmpID,RptHead,subHead,Completed,Details,isOLD) values ('"_sql +
        core::textOf(dtDate) + "','" + place().now().timeOfDay() + "','" + shift + "','" +
        core::quotesDoubled(session().gEmpID) + "','" + heading + "','" +
        core::quotesDoubled(core::trimmed(txtSub.text())) + "','" + core::quotesDoubled(cboYes.text()) + "','" +
        core::quotesDoubled(core::trimmed(txtAdmin.text())) + "','0')");
    saved_.clear();
}

void frmNurseDaily::committed() {
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
    audit((editing() ? "Edit Nurse Report: " : "Insert Nurse Report: ") + cboVehNo.text(), txtSub.text(), "By Nurse");
}

void frmNurseDaily::finished() {
    core::selectRow(grdData, "SNO", saved_);
}

// -- the local copy --

std::vector<core::Check> frmNurseDaily::localChecks(const char* withoutReport) {
    return {{open_.sno.empty(), withoutReport},
            {!dtDate.value(), "Please specify Date", &dtDate},
            {cboShift.text().empty(), "Please specify Shift", &cboShift},
            {cboVehNo.text().empty(), "Please specify Report Heading", &cboVehNo}};
}

std::filesystem::path frmNurseDaily::localFile() const {
    return place().programFile(open_.sno + ".txt");
}

std::string frmNurseDaily::localCopy() const {
    return core::readFile(localFile(), longestCopy);
}

void frmNurseDaily::cmdLocal_Click() {
    if (!passes(localChecks("To save to Local, Please Click Edit Button"))) return;
    core::writeFile(localFile(), core::trimmed(txtAdmin.text()));
    cmdRet.setEnabled(true);
    message("File Saved Temporarily to your Local Disk!!! Continue with your Report");
}

void frmNurseDaily::cmdRet_Click() {
    if (!passes(localChecks("To Retrieve from Local, Please Click Edit Button"))) return;
    const auto copy = localCopy();
    const bool typed = txtAdmin.text() != open_.details && txtAdmin.text() != copy;
    if (typed && !confirmed("You have changed the report since you opened it. Put the local copy in its place",
                            "Retrieve from Local"))
        return;
    txtAdmin.setText(copy);
    cmdRet.setEnabled(false);
    desktop().focus(txtAdmin);
}

void frmNurseDaily::cmdView_Click() {
    if (!passes(localChecks("To Retrieve from Local, Please Click Edit Button"))) return;
    viewed_ = localCopy();
    desktop().showModal("frmViewLocal");
    viewed_.clear();
}

}  // namespace inpatient
