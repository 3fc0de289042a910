#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>

#include "hospital/scripts.h"
#include "tests/hospital/hospital.h"
#include "tests/support/paths.h"

namespace {

using namespace db::literals;

/// The views and tables of a database without a row.
std::set<std::string> emptyOnes(db::Connection& connection) {
    std::set<std::string> empty;
    for (const auto& [kind, name] : connection.objects())
        if ((kind == "table" || kind == "view") &&
            connection.read("select top 1 * from "_sql + hospital::scriptSql(name)).empty())
            empty.insert(name);
    return empty;
}

TEST(Demonstration, EveryListAndReportHasRows) {
    test::DemonstrationFiles house;
    EXPECT_EQ(hospital::checkDatabases(house.databases), std::vector<std::string>{});
    // Other modules' scratch tables, what only deleting fills, and the list that a screen has built in.
    EXPECT_EQ(emptyOnes(house.hospital()),
              (std::set<std::string>{"PageSaves", "hConsultingDetailsTemp", "hNurseAllergyList", "hpatientsArchive",
                                     "hretainershipExempt", "stockIssueRetail"}));
    for (const auto* other : {"HospitalArchive", "SmsCenter", "Accounting"})
        EXPECT_EQ(emptyOnes(house.databases.named(other)), std::set<std::string>{}) << other;

    const auto& today = house.today;
    const db::Sql lists[] = {
        "select pno from qryhPatListForNurse where recDate ='"_sql + today + "' and attendedTo=0",
        "select pno from qryhPatListForNurse where recDate ='"_sql + today + "' and attendedTo=1",
        "select pno from qryhPatListForImmune where AttendedToByImmume = 0 and recdate='"_sql + today + "'",
        "select pno from qryhPatListForDialysis where attendedTo=0 and suppres=0 and recdate='"_sql + today + "'",
        "select Patient from vwAdmissionWaitList where date ='"_sql + today +
            "' and Doctor is not null and RoomNo is not null and Age is not null and Coyname is not null",
        "select Doctor from vwDocWaitingListGrouped where Date='"_sql + today + "' and NumOfPat > 0",
        "select Doctor from vwDocWaitingListGrouped where Date='"_sql + today + "' and NumOfPat = 0",
        "select SNo FROM vwhNotify where NotifyDept='NURSING' and Date='"_sql + today + "' and Fullname is not null",
        "select SNo FROM vwhComments where dept='NURSING' and Date='"_sql + today + "' and Fullname is not null",
        "select * from qryhAdmission where ClientCat in ('PHIS','NHIS','HMO') and getDate()>= "
        "IsNull(ExtendAdmissionLimitTo,getDate())"_sql,
        "select * from qryhAdmission where ClientCat in ('PHIS','NHIS','HMO') and ExtendAdmissionLimitTo > getdate()"_sql,
        "select * from qryhvitalsigns where predate = '"_sql + today + "' and Remarks = 'OUT-PATIENT'",
        "select * from qryhvitalsigns where predate = '"_sql + today + "' and AdmDate is not null",
        "select * from qryhNewBabies where bdate = '"_sql + today + "'",
        "select * from qryhAdmissionForToday where admdate = '"_sql + today + "'",
        "select * from qryhDischargedX where dischdate = '"_sql + today + "' and Approvedby is not null",
        "select * from qryhCardExpiredForPrivate"_sql,
        "select * from vwhpatients where RegDate = '"_sql + today + "'",
        "select * from vwhImmunization where ImDate < '"_sql + today + "'",
        "select * from vwbillInfo where amountGen > 0 and AmountPaid > 0"_sql,
    };
    for (const auto& list : lists) EXPECT_GT(house.count(list), 0U) << list.text();
}

/// Each query finds rows that break a rule; there are none, in a small hospital and in the usual one.
TEST(Demonstration, KeepsTheRulesThatScreensRelyOn) {
    for (const int patients : {60, 2000}) {
        test::DemonstrationFiles house(patients);
        std::ifstream rules(test::sourceDirectory() / "tests/hospital/demorules.sql");
        int count = 0;
        for (std::string rule; std::getline(rules, rule); ++count) {
            if (rule.starts_with("--")) continue;
            EXPECT_EQ(house.count(hospital::scriptSql(rule)), 0U) << patients << ": " << rule;
        }
        EXPECT_GT(count, 30);
        EXPECT_EQ(house.count("select PNo from hPatients"_sql), static_cast<std::size_t>(patients));
        EXPECT_GE(house.count("select username from vwUsers where loginrole='NURSING' and AccountStatus='ENABLED'"_sql),
                  3U);
        for (const auto* name : {"PATIENT2", "ConsultID2"}) {
            const auto number = test::nextNumber(house.hospital(), name);
            EXPECT_NE(number, "") << name;
            EXPECT_EQ(house.count("select PNo from hPatients where PNo='"_sql + number + "'"), 0U);
            EXPECT_EQ(house.count("select PNo from hRecords where consultID='"_sql + number + "'"), 0U);
        }
    }
}

/// All rows of the four databases, table by table.
std::string contents(db::Databases& databases) {
    std::string text;
    for (const auto& database : db::DataSources::names())
        for (const auto& [kind, name] : databases.named(database).objects()) {
            if (kind != "table" || name == "SchemaVersion") continue;
            const auto rows = databases.named(database).read("select * from "_sql + hospital::scriptSql(name));
            for (std::size_t row = 0; row < rows.rowCount(); ++row)
                for (std::size_t column = 0; column < rows.fields().size(); ++column) {
                    const auto value = rows.value(row, column);
                    const bool bytes = std::holds_alternative<db::Bytes>(value.content());
                    text += bytes ? std::to_string(value.bytes().size()) : value.textOr("null");
                    text += '|';
                }
        }
    return text;
}

TEST(Demonstration, ASeedMakesOneHospital) {
    const auto made = [](std::uint64_t seed) {
        test::DemonstrationFiles house(60, seed);
        return contents(house.databases);
    };
    const auto seven = made(7);
    EXPECT_TRUE(made(7) == seven) << "the same seed";
    EXPECT_FALSE(made(8) == seven) << "another seed";
}

TEST(Demonstration, NeedsNewDatabasesAndLeavesNothingOfAFailure) {
    const auto today = db::DateTime::of(2026, 11, 24);
    int writes = 0;
    int failing = 0;
    {
        test::MemoryDatabases whole;
        whole.databases.setRecorder(test::failingWrite(failing, writes));
        hospital::createDemonstration(whole.databases, {today, 60});
    }
    const int all = writes;
    test::MemoryDatabases memory;
    const auto create = [&](int patients) {
        return test::failureOf([&] { hospital::createDemonstration(memory.databases, {today, patients}); });
    };
    const auto before = contents(memory.databases);
    memory.databases.setRecorder(test::failingWrite(failing, writes));
    for (const int position : {1, all / 50, all / 5, all / 2, all - 200, all - 1, all}) {
        writes = 0;
        failing = position;
        ASSERT_EQ(create(60), test::Failure(db::Category::injected, "Injected failure")) << position;
        ASSERT_TRUE(contents(memory.databases) == before) << position;
    }
    memory.databases.setRecorder({});
    for (const int wrong : {0, 59, 5'000'001, -1}) EXPECT_EQ(create(wrong).first, db::Category::other) << wrong;
    EXPECT_TRUE(contents(memory.databases) == before);
    EXPECT_EQ(create(60).first, std::nullopt);
    const auto filled = contents(memory.databases);
    EXPECT_EQ(create(60).first, db::Category::other) << "the databases are in use";
    EXPECT_TRUE(contents(memory.databases) == filled);
}

}  // namespace
