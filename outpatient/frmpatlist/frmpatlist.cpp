#include "outpatient/frmpatlist/frmpatlist.h"

#include "core/rows/entries.h"
#include "core/session/session.h"
#include "db/letters.h"

namespace outpatient {

using namespace db::literals;
using ui::Event;

frmPatList::frmPatList(core::Workplace& place) : Form(place, "frmPatList", "Patient List") {
    bind(chkToday, Event::click,
         [this] { list(chkToday, "SELECT distinct fullname, pNo FROM qryhvisitsForToday order by fullname"_sql); });
    bind(chkAll, Event::click, [this] {
        list(chkAll, session().gHospitalArchiveExists == "YES"
                         ? "SELECT distinct fullname,pNo FROM qryhConsultedPatientsArchiveUnion  order by fullname"_sql
                         : "SELECT distinct fullname,pNo FROM qryhConsultedPatients  order by fullname"_sql);
    });
    bind(chkAdmit, Event::click,
         [this] { list(chkAdmit, "SELECT distinct fullname,pNo FROM qryhAdmission order by fullname"_sql); });
    bind(cboVehNo, Event::click, &frmPatList::cboVehNo_Click);
    bind(OKButton, Event::click, [this] { openFor("frmConsultInfo"); });
    bind(cmdAdmHist, Event::click, [this] { openFor("frmMedChartHistory"); });
    bind(cmdView, Event::click, &frmPatList::cmdView_Click);
    bind(CancelButton, Event::click, [this] { close(); });
}

void frmPatList::list(const ui::CheckBox& kind, const db::Sql& patients) {
    if (!kind.checked()) return;
    for (auto* other : {&chkToday, &chkAll, &chkAdmit})
        if (other != &kind) other->setChecked(false);
    cboVehNo.clear();
    core::addEntries(cboVehNo, hospital().readShared(patients), [](const db::Recordset& row) {
        return core::entryText(row["fullname"].textOr(), row["pNo"].textOr());
    });
    desktop().focus(cboVehNo);
}

void frmPatList::cboVehNo_Click() {
    const auto patient = core::entryOf(cboVehNo.text());
    session().gCurConsultPNo = patient.key;
    session().gCurConsultName = patient.name;
}

/// What was typed means the first entry that starts with it.
void frmPatList::complete() {
    if (cboVehNo.index() >= 0 || blank(cboVehNo)) return;
    const auto wanted = db::lowered(cboVehNo.text());
    for (const int row : cboVehNo.items().matching(cboVehNo.text())) {
        if (!db::lowered(cboVehNo.items().text(static_cast<std::size_t>(row))).starts_with(wanted)) return;
        return cboVehNo.setIndex(row);
    }
}

void frmPatList::openFor(const char* screen) {
    complete();
    if (!passes({{.failed = cboVehNo.index() < 0,
                  .text = "Invalid Patient No! Please Select Patient Name",
                  .control = &cboVehNo,
                  .icon = ui::Icon::stop}}))
        return;
    cboVehNo_Click();
    open(screen);
}

void frmPatList::cmdView_Click() {
    session().gPictureCaller = name();
    open("frmSuperPicture");
}

void frmPatList::open(const char* screen) {
    if (modal()) return desktop().showModal(screen);
    desktop().show(screen);
}

}  // namespace outpatient
