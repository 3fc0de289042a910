#include "core/care/staff.h"

#include "core/rows/entries.h"
#include "core/session/session.h"

namespace core {

using namespace db::literals;

void fillStaff(ui::ComboBox& list, db::Connection& hospital, const std::string& role, StaffOrder order) {
    const auto enabled =
        "select distinct empID,fullname from vwUsers where loginRole ='"_sql + role + "' and AccountStatus='ENABLED'";
    list.clear();
    list.add("");
    db::Recordset staff;
    if (order == StaffOrder::byName) staff = hospital.read(enabled + " order by Fullname");
    if (staff.empty()) staff = hospital.read(enabled);
    for (; !staff.eof(); staff.moveNext()) list.add(entryText(staff["fullName"].textOr(), staff["empID"].textOr()));
}

void fillEmployees(ui::ComboBox& list, db::Connection& hospital, const db::Sql& found) {
    list.clear();
    list.add(" ");
    addEntries(list, hospital, found, [](const db::Recordset& row) {
        return entryText(row["lastname"].textOr() + " " + row["firstName"].textOr(), row["empID"].textOr());
    });
}

NurseOnDuty::NurseOnDuty(ui::Screen& screen, std::string name, Workplace& place)
    : ComboBox(screen, std::move(name), Style::listOnly), place_(place) {
    on(ui::Event::click, [this] {
        const auto nurse = entryOf(text()).key;
        if (!nurse.empty()) place_.session.gEmpID = nurse;
    });
}

void NurseOnDuty::fill() {
    fillStaff(*this, place_.hospital(), place_.session.gModuleRole);
}

}  // namespace core
