#include "db/dialect/dialect.h"
#include "db/error.h"
#include "db/letters.h"
#include "hospital/demo/hospital.h"
#include "hospital/schema.h"
#include "hospital/scripts.h"

using namespace db::literals;

namespace hospital {
namespace {

/// The statement with the day in place of every "@today".
db::Sql ofDay(std::string_view statement, const db::DateTime& today) {
    constexpr std::string_view mark = "@today";
    auto at = statement.find(mark);
    auto sql = scriptSql(statement.substr(0, at));
    while (at != std::string_view::npos) {
        statement.remove_prefix(at + mark.size());
        at = statement.find(mark);
        sql += "'";
        sql += today.isoDate();
        sql += "'";
        sql += scriptSql(statement.substr(0, at));
    }
    return sql;
}

/// What a new hospital has none of. A run that was cut off between two commits leaves rows in a side's database alone.
void requireNew(db::Databases& databases) {
    const std::pair<const char*, db::Sql> none[] = {
        {"Hospital", "select top 1 PNo from hPatients"_sql},
        {"Hospital", "select top 1 empID from employees"_sql},
        {"HospitalArchive", "select top 1 PNo from hPatients"_sql},
        {"SmsCenter", "select top 1 pno from SmsPatients"_sql},
    };
    for (const auto& [database, sql] : none)
        if (!databases.named(database).read(sql).empty())
            throw db::Error(db::Category::other,
                            std::string(database) + " holds rows already; the demonstration needs new databases.");
}

/// Indexes go while many rows come, and are made anew from the full tables: a tenth of the time for a large hospital.
class IndexesAside {
public:
    explicit IndexesAside(db::Connection& connection) : connection_(connection) {
        for (const auto& statement : schemaStatements(connection.database())) {
            const auto definition = db::dialect::definition(statement);
            if (definition.verb != "create" || !definition.kind.ends_with("index")) continue;
            const auto on = statement.find(" on ") + 4;
            const auto table = statement.substr(on, statement.find(' ', on) - on);
            const bool named = definition.kind == "index";
            connection.execute(scriptSql(named ? "drop index " + definition.name + " on " + table
                                               : "drop " + definition.kind + " on " + table));
            statements_.push_back(statement);
        }
    }
    void bringBack() {
        for (const auto& statement : statements_) connection_.execute(scriptSql(statement));
    }

private:
    db::Connection& connection_;
    std::vector<std::string> statements_;
};

/// The parts in their order: what is planned comes before what is written, patients before their visits.
const std::vector<std::pair<const char*, void (*)(demo::Hospital&)>>& parts() {
    static const std::vector<std::pair<const char*, void (*)(demo::Hospital&)>> list = {
        {"Planning visits", demo::planVisits},
        {"Planning stays", demo::planStays},
        {"Planning pregnancies", demo::planPregnancies},
        {"Numbering visits", demo::orderVisits},
        {"Patients", demo::writePatients},
        {"Visits, vital signs and consultations", demo::writeVisits},
        {"Stays in the wards", demo::writeStays},
        {"Ward charts", demo::writeCharts},
        {"Pregnancies and births", demo::writeBirths},
        {"Injections, immunizations and dialysis", demo::writeTreatments},
        {"Bills", demo::writeBills},
        {"Laboratory results", demo::writeResults},
        {"Older consultations", demo::writeOlderRecords},
        {"Comments, notifications and messages", demo::writeMessages},
    };
    return list;
}

}  // namespace

void createDemonstration(db::Databases& databases, const Demonstration& wish) {
    if (wish.patients < 60 || wish.patients > 5'000'000)
        throw db::Error(db::Category::other, "A demonstration hospital has from 60 to 5000000 patients.");
    auto& hospital = databases.named("Hospital");
    db::Transaction ofHospital(hospital);
    db::Transaction ofArchive(databases.named("HospitalArchive"));
    db::Transaction ofSms(databases.named("SmsCenter"));
    requireNew(databases);
    const auto say = [&](const char* text) {
        if (wish.progress) wish.progress(text);
    };
    say("Staff, clients, price lists");
    IndexesAside indexes(hospital);
    for (const auto& statement : scriptStatements("demo/reference.sql")) hospital.execute(ofDay(statement, wish.today));
    demo::Hospital plan(databases, wish);
    for (const auto& [name, part] : parts()) {
        say(name);
        part(plan);
    }
    say("Indexes");
    indexes.bringBack();
    // What holds patients is committed last: a hospital is there with all that belongs to it, or it is not there.
    ofSms.commit();
    ofArchive.commit();
    ofHospital.commit();
}

}  // namespace hospital
