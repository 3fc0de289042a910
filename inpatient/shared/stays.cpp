#include "inpatient/shared/stays.h"

#include "core/rows/entries.h"

namespace inpatient {

using namespace db::literals;

void addStays(ui::ItemControl& list, db::Connection& hospital, const db::Sql& sql, const char* gap) {
    core::addEntries(list, hospital, sql, [gap](const db::Recordset& row) {
        return core::entryText(row["fullname"].textOr() + gap, row["consultID"].textOr());
    });
}

db::Recordset StayLabels::open(db::Connection& hospital, const std::string& consultID) const {
    clear();
    auto stay = hospital.read("select * from qryhAdmission where consultID ='"_sql + consultID + "'");
    show(stay);
    return stay;
}

void StayLabels::show(const db::Recordset& stay) const {
    for (const auto& [label, column] : shown_) label->setCaption(stay.empty() ? std::string() : stay[column].textOr());
}

void StayLabels::clear() const {
    for (const auto& shown : shown_) shown.label->setCaption({});
}

std::string daysInWard(const db::Recordset& stay, const db::DateTime& until) {
    const auto admitted = stay["admdate"];
    return admitted.isNull() ? std::string() : std::to_string(admitted.moment().daysUntil(until));
}

void deleteNursesDischarge(db::Connection& hospital, const std::string& consultID) {
    hospital.execute("delete from hdischargeForNurse where consultID = '"_sql + consultID + "'");
}

}  // namespace inpatient
