#include "inpatient/shared/stayrecord.h"

#include <utility>

#include "core/rows/entries.h"

namespace inpatient {

using namespace db::literals;

StayRecord::StayRecord(core::Workplace& place, std::string name, std::string caption, const char* emptyTitle)
    : RecordForm(place, std::move(name), std::move(caption)), emptyTitle_(emptyTitle) {
    // While a record is corrected the list shows whose it is, and that is no pick.
    bind(cboVehNo, ui::Event::click, [this] {
        if (adding()) picked();
    });
    lblTitle.setCaption(emptyTitle);
}

db::Recordset StayRecord::visitOf(const std::string& consultID) {
    return hospital().read("select * from qryhAdmission where consultID ='"_sql + consultID + "'");
}

void StayRecord::picked() {
    consultID_ = core::entryOf(cboVehNo.text()).key;
    labels_.clear();
    lblTitle.setCaption(emptyTitle_);
    const auto visit = visitOf(consultID_);
    if (visit.empty()) return;
    labels_.show(visit);
    lblTitle.setCaption("Patient : " + visit["fullName"].textOr());
}

void StayRecord::showPatient(const std::string& fullName, const std::string& entry) {
    consultID_ = core::entryOf(entry).key;
    cboVehNo.clear();
    cboVehNo.add(entry);
    cboVehNo.setIndex(0);
    lblTitle.setCaption("Patient : " + fullName);
}

// A record stays its patient's.
void StayRecord::entered(Mode /*mode*/) {
    cboVehNo.setEnabled(adding());
}

void StayRecord::clear() {
    RecordForm::clear();
    labels_.clear();
    lblTitle.setCaption(emptyTitle_);
    cboVehNo.clearText();
}

}  // namespace inpatient
