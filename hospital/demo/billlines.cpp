#include "hospital/demo/billlines.h"

#include "hospital/demo/stays.h"

using namespace db::literals;

namespace hospital::demo {
namespace {

std::map<std::string, double, std::less<>> numbers(db::Connection& connection, const db::Sql& sql) {
    const auto rows = connection.read(sql);
    std::map<std::string, double, std::less<>> result;
    for (std::size_t row = 0; row < rows.rowCount(); ++row)
        result.emplace(rows.value(row, 0).text(), rows.value(row, 1).numberOr(0));
    return result;
}

double found(const std::map<std::string, double, std::less<>>& map, std::string_view key) {
    const auto entry = map.find(key);
    return entry == map.end() ? 0 : entry->second;
}

}  // namespace

BillLines::BillLines(Hospital& hospital)
    : hospital_(hospital),
      costs_(numbers(hospital.rows, "select drgname, cost from qryhdrugPrice"_sql)),
      surcharges_(numbers(hospital.rows, "select clientcatID, pvalue from billingPrice"_sql)),
      lines_(hospital.rows, "billAccum",
             {"dtDate",     "PNo",     "consultID", "drgName", "Category",  "Price",     "Qty",
              "SubTotal",   "usage",   "billType",  "BillTo",  "CoyName",   "conID",     "Capitated",
              "attendedto", "suppres", "isbilled",  "revType", "RevClinic", "AppVersion"}) {
    const auto items = hospital.rows.read(
        "select drgName from DrugMaster where Capitated = 'YES' union all select drgname from labservices where "
        "Capitated = 'YES' union all select service from hServices where Capitated = 'YES'"_sql);
    for (std::size_t row = 0; row < items.rowCount(); ++row) capitatedItems_.insert(items.value(row, 0).text());
}

void BillLines::add(const Visit& visit, const Patient& patient, const db::DateTime& day, const Charge& charge) {
    write(visit.consultID, patient, day, charge, closed(visit) && day < hospital_.today);
}

void BillLines::addWithoutVisit(const Patient& patient, const db::DateTime& day, const Charge& charge) {
    write("", patient, day, charge, false);
}

bool BillLines::closed(const Visit& visit) const {
    const auto* stay = visit.stay < 0 ? nullptr : &hospital_.stays[static_cast<std::size_t>(visit.stay)];
    const auto end = !stay ? visit.at : stay->until.value_or(hospital_.today);
    return end.date() < hospital_.today;
}

double BillLines::fee(std::string_view name, const Patient& patient) const {
    const double cost = found(costs_, name);
    return cost + cost * found(surcharges_, patient.client->category);
}

void BillLines::write(const db::Value& consultID, const Patient& patient, const db::DateTime& day, const Charge& charge,
                      bool billed) {
    const bool nobody = charge.payer == Payer::nobody;
    lines_.add({day.date(),
                patient.pno,
                consultID,
                charge.item,
                charge.category,
                charge.price,
                charge.quantity,
                charge.price * charge.quantity,
                charge.usage,
                charge.billType,
                nobody                      ? db::Value()
                : charge.payer == Payer::id ? patient.client->id
                                            : patient.client->code,
                nobody ? db::Value() : patient.client->id,
                charge.conID,
                nobody ? db::Value() : capitated(patient, charge),
                billed ? 1 : 0,
                0,
                billed ? 1 : 0,
                charge.revType,
                charge.clinic,
                1});
}

/// Schemes pay a sum a head for what is marked as capitated.
db::Value BillLines::capitated(const Patient& patient, const Charge& charge) const {
    const bool covered = isScheme(*patient.client) && capitatedItems_.contains(charge.item);
    return covered && std::string_view(charge.revType) == "TREATMENT" ? "YES" : "NO";
}

}  // namespace hospital::demo
