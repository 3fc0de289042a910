#include <gtest/gtest.h>

#include <map>
#include <set>

#include "db/command.h"
#include "db/error.h"
#include "hospital/scripts.h"
#include "tests/hospital/hospital.h"

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
        const db::Sql broken[] = {
            "select consultID from qryhAdmission group by consultID having count(*) > 1"_sql,
            "select pNo from qryhAdmission group by pNo having count(*) > 1"_sql,
            "select recID from hRecords where PNo not in (select PNo from hPatients)"_sql,
            "select consultID from hRecords group by consultID having count(*) > 1"_sql,
            "select recID from hRecords r where exists (select * from hRecords o where o.recID > r.recID and "
            "o.consultID < r.consultID)"_sql,
            "select PNo from hPatients where CoyName not in (select retainID from hRetainership)"_sql,
            "select retainID from hRetainership where clientcatID not in (select clientcatID from billingPrice)"_sql,
            "select PNo from hPatients where Principal is not null and Principal not in (select PNo from hPatients)"_sql,
            "select p.PNo from hPatients p inner join hRecords r on r.PNo = p.PNo where r.recDate < p.regDate"_sql,
            "select PNo from hPatients where DOB > regDate or regDate > getdate()"_sql,
            "select SNO from hAdmission where consultID not in (select consultID from hRecords)"_sql,
            "select SNO from hAdmission where wardID not in (select wardID from hWards)"_sql,
            "select SNO from hAdmission where isdischarged = 1 and consultID not in "
            "(select consultID from hdischargeForNurse)"_sql,
            "select a.SNO from hAdmission a inner join hConsulting c on c.ID = a.conID where c.consultID <> "
            "a.consultID"_sql,
            "select d.ID from hdischargeForNurse d inner join hAdmission a on a.consultID = d.consultID where "
            "a.isdischarged = 0"_sql,
            "select ID from hPreConsult where consultID not in (select consultID from hRecords)"_sql,
            "select ID from hPreConsultChart where ID not in (select ID from hPreConsult)"_sql,
            "select ID from hConsulting where consultID not in (select consultID from hRecords)"_sql,
            "select conID from hconsultingDetails where conID not in (select ID from hConsulting)"_sql,
            "select drgName from hconsultingDetails where drgName not in (select drgName from DrugMaster)"_sql,
            "select SNO from billAccum where consultID <> '' and consultID not in (select consultID from hRecords)"_sql,
            "select SNO from billAccum where abs(SubTotal - Price * Qty) > 0.01"_sql,
            "select BillNo from Payments where BillNo not in (select consultID from hRecords)"_sql,
            "select ID from hMedChartMonitor where numtaken > numOfTimes or (attendedto = 1 and numtaken <> "
            "numOfTimes)"_sql,
            "select SNo from hMedChartForNurse where iDNo not in (select ID from hMedChartMonitor)"_sql,
            "select SNo from hDialysis where consultID not in (select consultID from hRecords)"_sql,
            "select SNO from hDelivery where consultID not in (select consultID from hRecords)"_sql,
            "select r.SNo from hAntenatalReg r inner join hPatients p on p.PNo = r.PNo where p.sex <> 'FEMALE'"_sql,
            "select empID from hRecords where empID not in (select empID from employees)"_sql,
            "select treatedBy from hConsulting where treatedBy not in (select empID from employees)"_sql,
            "select PNo from hPatients where expired = 1 and expirydate > getdate()"_sql,
        };
        for (const auto& rule : broken) EXPECT_EQ(house.count(rule), 0U) << patients << ": " << rule.text();
        EXPECT_EQ(house.count("select PNo from hPatients"_sql), static_cast<std::size_t>(patients));
        EXPECT_GE(house.count("select username from vwUsers where loginrole='NURSING' and AccountStatus='ENABLED'"_sql),
                  3U);
        for (const auto* name : {"PATIENT2", "ConsultID2"}) {
            db::Command command(house.hospital(), "getIDNo");
            command.append("DestName", db::Command::Type::varText, 50, name);
            const auto number = command.execute()["getIDNo"].text();
            EXPECT_EQ(house.count("select PNo from hPatients where PNo='"_sql + number + "'"), 0U);
            EXPECT_EQ(house.count("select PNo from hRecords where consultID='"_sql + number + "'"), 0U);
        }
    }
}

/// All rows of a database, table by table.
std::string contents(db::Connection& connection) {
    std::string text;
    for (const auto& [kind, name] : connection.objects()) {
        if (kind != "table" || name == "SchemaVersion") continue;
        const auto rows = connection.read("select * from "_sql + hospital::scriptSql(name));
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
    std::map<int, std::string> byRun;
    for (int run = 0; run < 3; ++run) {
        test::DemonstrationFiles house(60, run < 2 ? 7 : 8);
        for (const auto* name : {"Hospital", "HospitalArchive", "SmsCenter"})
            byRun[run] += contents(house.databases.named(name));
    }
    EXPECT_TRUE(byRun[0] == byRun[1]) << "the same seed";
    EXPECT_FALSE(byRun[0] == byRun[2]) << "another seed";
}

TEST(Demonstration, NeedsNewDatabasesAndLeavesNothingOfAFailure) {
    const auto today = db::DateTime::of(2026, 11, 24);
    test::MemoryDatabases memory;
    const auto count = [&](const db::Sql& sql) { return memory.hospital().read(sql).rowCount(); };
    const auto create = [&] { hospital::createDemonstration(memory.databases, {today, 60}); };
    int writes = 0;
    int failing = 0;
    memory.databases.setRecorder([&](const db::Statement& statement) {
        if (statement.writes() && ++writes == failing) throw db::Error(db::Category::injected, "Injected failure");
    });
    {
        test::MemoryDatabases other;
        other.databases.setRecorder([&](const db::Statement& statement) { writes += statement.writes() ? 1 : 0; });
        hospital::createDemonstration(other.databases, {today, 60});
    }
    const int all = writes;
    for (const int position : {1, all / 50, all / 5, all / 2, all - 200, all - 1, all}) {
        writes = 0;
        failing = position;
        try {
            create();
            ADD_FAILURE() << "write " << position << " did not fail";
        } catch (const db::Error& error) {
            ASSERT_EQ(error.category(), db::Category::injected) << failing << ": " << error.what();
        }
        for (const auto& table : {"select PNo from hPatients"_sql, "select empID from employees"_sql,
                                  "select SNO from hAdmission"_sql, "select id from idgen where id > 0"_sql})
            ASSERT_EQ(count(table), 0U) << failing << ": " << table.text();
        ASSERT_TRUE(memory.databases.named("SmsCenter").read("select pno from SmsPatients"_sql).empty()) << failing;
        ASSERT_TRUE(memory.databases.named("HospitalArchive").read("select PNo from hPatients"_sql).empty());
    }
    failing = 0;
    create();
    const auto patients = count("select PNo from hPatients"_sql);
    EXPECT_EQ(patients, 60U);
    EXPECT_THROW(create(), db::Error) << "the databases are in use";
    EXPECT_EQ(count("select PNo from hPatients"_sql), patients);
    for (const int wrong : {0, 59, 5'000'001, -1})
        EXPECT_THROW(hospital::createDemonstration(memory.databases, {today, wrong}), db::Error) << wrong;
}

}  // namespace
