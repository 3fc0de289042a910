#include "shell/frmrests/frmrests.h"

#include "core/rows/entries.h"
#include "db/connection.h"

namespace shell {

using namespace db::literals;
using ui::Event;

namespace {

db::Sql rowOf(const std::string& pno) {
    return "select * from hRests where pNO ='"_sql + pno + "'";
}

}  // namespace

frmRests::frmRests(core::Workplace& place) : Form(place, "frmRests", "Patient Rest") {
    fields_ = {{&dtDate, "rDate", "rDate"},
               {&dtTime, "rtime", "rtime"},
               {&cboVehNo, nullptr, "PNo"},
               {&cboCat, "wardID", "wardID"},
               {&cboReason, "certifiedby", "certifiedby"},
               {&dtDisch, "moveDate", "moveDate"},
               {&txtRem, "Remarks", "Remarks"},
               {&cboCause, "Reason", "Reason"},
               {&txtAge, "Age", "Age"}};
    untouched_ = fields_.cells();
    bind(cboVehNo, Event::click, &frmRests::cboVehNo_Click);
    bind(OKButton, Event::click, &frmRests::OKButton_Click);
    bind(cmdCancel, Event::click, &frmRests::clear);
    bind(CancelButton, Event::click, [this] { close(); });
}

void frmRests::load() {
    core::fill(cboCause, {"Brief Illness", "protracted Illness", "Child Birth", "Infant Mortality", "Others"});
    core::fill(txtAge, {"Less than a week", "A Day", "Less than a Month", "Less than 2 yrs", "Old Age", "Adult"});
    trapped([this] {
        core::addColumn(cboCat, hospital(), "select wardID from hWards"_sql, "wardID");
        core::addColumn(cboVehNo, hospital(), "select pNO from hPatients"_sql, "pNO");
        core::addColumn(cboReason, hospital(), "select empID from employees"_sql, "empID");
    });
}

/// The row of a patient who has one fills what the nurse has not filled in herself: a save would empty the rest of it.
void frmRests::cboVehNo_Click() {
    const auto row = hospital().read(rowOf(cboVehNo.text()));
    editedPNo_ = row.empty() ? std::string() : cboVehNo.text();
    const auto now = fields_.cells();
    for (std::size_t at = 0; at < now.size(); ++at) {
        if (now[at].second != untouched_[at].second) continue;
        const core::Fields field{fields_.all()[at]};
        field.clear();
        if (editing()) field.fill(row);
        untouched_[at] = field.cells().front();
    }
}

void frmRests::OKButton_Click() {
    if (!confirmedSave() || !saves(OKButton, [this] { write(); })) return;
    message("Record Succesfully saved");
    clear();
}

void frmRests::write() {
    db::Transaction transaction(hospital());
    db::Recordset row(hospital(), editing() ? rowOf(editedPNo_) : "select * from hRests"_sql);
    if (!editing()) row.addNew();
    core::setCells(row, fields_.cells());
    row.update();
    transaction.commit();
}

void frmRests::clear() {
    clearProblems();
    fields_.clear();
    untouched_ = fields_.cells();
    editedPNo_.clear();
    desktop().focus(cboVehNo);
}

}  // namespace shell
