#include "inpatient/frmdischargelistoverdue/frmdischargelistoverdue.h"

#include <map>

#include "core/clock/clock.h"
#include "core/rows/entries.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "inpatient/shared/dischargeform.h"

namespace inpatient {

using namespace db::literals;
using ui::Event;

namespace {

/// A patient of the list: "ADA OBI [001000000001](000000001/001)".
struct Overdue {
    std::string name;
    DischargedVisit visit;
};

Overdue overdueOf(const std::string& entry) {
    const auto number = entry.substr(entry.rfind('(') + 1);
    return {core::trimmed(entry.substr(0, entry.find('['))),
            {number.substr(0, number.size() - 1), core::between(entry, "[", "]"), "N/A"}};
}

Discharge dischargeNow(const db::DateTime& now) {
    constexpr const char* reason = "From Discharge Overdue List";
    return {.date = now.date(),
            .time = core::shortTime(now),
            .ward = {},
            .reason = reason,
            .remarks = reason,
            .approvedBy = db::Null{},
            .nextVisit = now.date()};
}

void add(db::Recordset& discharges, const core::Cells& cells) {
    discharges.addNew();
    core::setCells(discharges, cells);
    discharges.update();
}

}  // namespace

frmDischargeListOverdue::frmDischargeListOverdue(core::Workplace& place)
    : Form(place, "frmDischargeListOverdue", "Admission List ") {
    lblProgress.setVisible(false);
    bind(cmdAll, Event::click, [this] { tickAll(true, "No Item to select"); });
    bind(cmdDeSelect, Event::click, [this] { tickAll(false, "No Item to Deselect"); });
    bind(cmdProcess, Event::click, &frmDischargeListOverdue::cmdProcess_Click);
    bind(cmdRefresh, Event::click, &frmDischargeListOverdue::showPatients);
    bind(CancelButton, Event::click, [this] { close(); });
}

void frmDischargeListOverdue::load() {
    trapped([this] { showPatients(); });
}

void frmDischargeListOverdue::showPatients() {
    auto patients =
        hospital().read("select  distinct sno,consultid,fullname,pno from qryhAdmission order by fullname"_sql);
    std::map<std::string, std::string> days;
    auto stays = hospital().read("select SNO,NoOfDays from qryhAdmission"_sql);
    for (; !stays.eof(); stays.moveNext()) days[stays["SNO"].textOr()] = stays["NoOfDays"].textOr();
    lstPat.clear();
    std::vector<std::string> notes;
    for (; !patients.eof(); patients.moveNext()) {
        const auto text = [&](const char* column) { return patients[column].textOr(); };
        lstPat.add(core::entryText(text("fullName"), text("consultid")) + "(" + text("pno") + ")", text("sno"));
        const auto& stayed = days[text("sno")];
        notes.push_back(stayed.empty() ? std::string() : stayed + (stayed == "1" ? " day" : " days"));
    }
    lstPat.setNotes(std::move(notes));
    setCaption("Admission List : " + std::to_string(lstPat.items().size()));
}

void frmDischargeListOverdue::tickAll(bool ticked, const char* whenEmpty) {
    if (lstPat.items().empty()) return message(whenEmpty);
    lstPat.checkAll(ticked);
}

void frmDischargeListOverdue::cmdProcess_Click() {
    const auto chosen = lstPat.checkedItems();
    if (chosen.empty()) return refuse("No Item is selected", lstPat);
    if (!confirmed("Are you sure to Delete these Patients from Admission List (Overdue List already Discharged) ?",
                   "About to save"))
        return;
    const bool wentThrough = saves(cmdProcess, [&] {
        session().gServerNow = core::GetServerNow(place());
        db::Transaction transaction(hospital());
        discharge(chosen);
        transaction.commit();
    });
    lblProgress.setVisible(false);
    if (!wentThrough) return;
    message(std::to_string(chosen.size()) + " Overdue Patients Discharge Done");
    showPatients();
}

/// One whom a doctor has discharged leaves the list; for the others both discharges are written too.
void frmDischargeListOverdue::discharge(const std::vector<ui::ListItem>& patients) {
    lblProgress.setVisible(true);
    db::Recordset byDoctor(hospital(), "select * from hdischarge where 1=2"_sql);
    db::Recordset byNurse(hospital(), "select * from hdischargeForNurse where 1=2"_sql);
    for (std::size_t at = 0; at < patients.size(); ++at) {
        lblProgress.setCaption(std::to_string(at + 1) + " of " + std::to_string(patients.size()));
        desktop().showProgress();
        const auto patient = overdueOf(patients[at].text);
        const auto& consultID = patient.visit.consultID;
        if (hospital().read("select * from hdischarge where consultid='"_sql + consultID + "'").empty()) {
            const auto cells =
                core::joined(dischargeCells(dischargeNow(session().gServerNow)), visitCells(patient.visit));
            for (auto* discharges : {&byDoctor, &byNurse}) add(*discharges, cells);
        }
        hospital().execute("Update hAdmission set isdischarged = 1 where ConsultID = '"_sql + consultID + "'");
        audit("Patient Discharged from Overdue List: " + patient.name, consultID, "Overdue Dischrge List");
    }
}

}  // namespace inpatient
