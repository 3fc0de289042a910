#include "inpatient/shared/stays.h"

#include "core/rows/entries.h"

namespace inpatient {

using namespace db::literals;

void addStays(ui::ItemControl& list, db::Connection& hospital, const db::Sql& sql) {
    core::addEntries(list, hospital, sql, [](const db::Recordset& row) {
        return core::entryText(row["fullname"].textOr(), row["consultID"].textOr());
    });
}

db::Recordset StayLabels::open(db::Connection& hospital, const std::string& consultID) const {
    clear();
    auto stay = hospital.read("select * from qryhAdmission where consultID ='"_sql + consultID + "'");
    if (!stay.empty())
        for (const auto& [label, column] : shown_) label->setCaption(stay[column].textOr());
    return stay;
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
