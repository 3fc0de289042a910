#include "inpatient/shared/doctorsrecord.h"

#include <utility>

#include "core/care/staff.h"
#include "core/rows/entries.h"

namespace inpatient {

using namespace db::literals;

DoctorsRecord::DoctorsRecord(core::Workplace& place, std::string name, std::string caption, const char* emptyTitle)
    : StayRecord(place, std::move(name), std::move(caption), emptyTitle) {
    enableWhileEntering({&cboReason});
}

void DoctorsRecord::fillLists() {
    core::fillEmployees(cboReason, hospital(),
                        "select empID,lastname,firstname from employees where deptID = 'MED'"_sql);
}

void DoctorsRecord::startAdding() {
    cboVehNo.clear();
    cboVehNo.add(" ");
    addStays(cboVehNo, hospital(), "select pNO,fullname,consultID from qryhAdmission "_sql);
    desktop().focus(cboVehNo);
}

void DoctorsRecord::clear() {
    StayRecord::clear();
    cboReason.clearText();
}

std::string DoctorsRecord::doctor() const {
    return core::entryOf(cboReason.text()).key;
}

void DoctorsRecord::showDoctor(const std::string& name, const std::string& empID) {
    core::showEntry(cboReason, empID.empty() ? empID : core::entryText(name, empID));
}

}  // namespace inpatient
