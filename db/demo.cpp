#include "db/error.h"
#include "db/schema.h"
#include "db/scripts.h"

namespace db {
namespace {

/// The statement with the day in place of every "@today".
Sql ofDay(std::string_view statement, const DateTime& today) {
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

void run(Connection& connection, std::string_view file, const DateTime& today) {
    for (const auto& statement : scriptStatements(file)) connection.execute(ofDay(statement, today));
}

void requireEmpty(Connection& hospital) {
    if (!hospital.read("select top 1 PNo from hPatients"_sql).empty())
        throw Error(Category::other, "The databases hold patients already; the demonstration needs new ones.");
    if (!hospital.read("select top 1 empID from employees"_sql).empty())
        throw Error(Category::other, "The databases hold staff already; the demonstration needs new ones.");
}

}  // namespace

void createDemonstration(Databases& databases, DateTime today,
                         const std::function<void(const std::string&)>& progress) {
    auto& hospital = databases.named("Hospital");
    auto& sms = databases.named("SmsCenter");
    Transaction ofHospital(hospital);
    Transaction ofSms(sms);
    requireEmpty(hospital);
    if (progress) progress("Staff, patients, visits and wards");
    run(hospital, "demo/hospital.sql", today);
    if (progress) progress("Addresses of text messages");
    run(sms, "demo/smscenter.sql", today);
    // The messages' side is written anew by a second run, so it goes first: what holds patients is committed last.
    ofSms.commit();
    ofHospital.commit();
}

}  // namespace db
