#include "hospital/demo/hospital.h"

#include <algorithm>

#include "db/error.h"

using namespace db::literals;

namespace hospital::demo {
namespace {

std::vector<std::string> texts(db::Connection& connection, const db::Sql& sql) {
    const auto rows = connection.read(sql);
    std::vector<std::string> result;
    result.reserve(rows.rowCount());
    for (std::size_t row = 0; row < rows.rowCount(); ++row) result.push_back(rows.value(row, 0).text());
    return result;
}

std::vector<Item> items(db::Connection& connection, const db::Sql& sql) {
    const auto rows = connection.read(sql);
    std::vector<Item> result;
    result.reserve(rows.rowCount());
    for (std::size_t row = 0; row < rows.rowCount(); ++row)
        result.push_back({rows.value(row, 0).text(), rows.value(row, 1).textOr(), rows.value(row, 2).numberOr(0)});
    return result;
}

}  // namespace

int Patient::ageOn(const db::DateTime& day) const noexcept {
    const auto birth = born.parts();
    const auto now = day.parts();
    const bool before = std::pair(now.month, now.day) < std::pair(birth.month, birth.day);
    return now.year - birth.year - (before ? 1 : 0);
}

Hospital::Hospital(db::Databases& databases, const Demonstration& wish)
    : rows(databases.named("Hospital")),
      archive(databases.named("HospitalArchive")),
      sms(databases.named("SmsCenter")),
      today(wish.today.date()),
      patients(wish.patients),
      random(wish.seed),
      progress(wish.progress) {
    readLists();
}

void Hospital::readLists() {
    const auto found = rows.read(
        "select retainID, retainName, retainCode, ClientType, clientcatID from hRetainership order by retainID"_sql);
    for (std::size_t row = 0; row < found.rowCount(); ++row)
        clients.push_back({found.value(row, 0).text(), found.value(row, 1).text(), found.value(row, 2).textOr(),
                           found.value(row, 3).textOr(), found.value(row, 4).textOr()});
    nurses = texts(rows, "select empID from employees where deptID in ('NUR', 'NURSING') order by empID"_sql);
    doctors = texts(rows, "select empID from employees where deptID in ('MED', 'MEDICAL') order by empID"_sql);
    wards = texts(rows, "select wardID from hWards order by wardID"_sql);
    areas = texts(rows, "select AreaName from hPatientArea order by AreaName"_sql);
    drugs = items(rows, "select Drug, Category, Price from vwDrugNHIS where coyID = '0001' order by Drug"_sql);
    tests =
        items(rows, "select LabItem, Category, Price from vwLabServiceNHIS where coyID = '0001' order by LabItem"_sql);
    services =
        items(rows, "select service, Category, Price from vwServiceNHIS where coyID = '0001' order by service"_sql);
    const auto clinics = rows.read("select empID, ClinicID from hDoctorClinics order by empID, ClinicID"_sql);
    for (std::size_t row = 0; row < clinics.rowCount(); ++row)
        doctorClinics_.push_back({clinics.value(row, 0).text(), clinics.value(row, 1).text()});
}

int Hospital::claim(const std::function<bool(const Patient&)>& fits) {
    for (int tries = 0; tries < 20'000; ++tries) {
        const int number = 1 + random.below(patients);
        if (claimed_.contains(number) || !fits(patient(number))) continue;
        claimed_.insert(number);
        return number;
    }
    return 0;
}

const std::string& Hospital::doctorOf(const std::string& clinic, Random& chance) const {
    std::vector<const std::string*> here;
    for (const auto& entry : doctorClinics_)
        if (entry.clinic == clinic) here.push_back(&entry.doctor);
    return here.empty() ? chance.pick(doctors) : *chance.pick(here);
}

int Hospital::several(double share, int least, int most) const {
    return std::clamp(static_cast<int>(share * patients), least, most);
}

const Item& Hospital::named(const std::vector<Item>& list, std::string_view name) {
    const auto found = std::find_if(list.begin(), list.end(), [&](const Item& item) { return item.name == name; });
    if (found == list.end())
        throw db::Error(db::Category::other, "No price list has the item " + std::string(name) + ".");
    return *found;
}

}  // namespace hospital::demo
