#include <gtest/gtest.h>

#include <map>
#include <set>

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
