#include <gtest/gtest.h>

#include "db/command.h"
#include "db/error.h"
#include "tests/db/hospital.h"

namespace {

using namespace db::literals;

const auto today = db::DateTime::of(2026, 11, 24);

class Demonstration : public testing::Test {
protected:
    void create() { db::createDemonstration(memory.databases, today, {}); }
    std::size_t count(const db::Sql& sql) { return memory.hospital().read(sql).rowCount(); }
    test::MemoryDatabases memory;
};

TEST_F(Demonstration, EveryListAndReportOfTheMainWindowHasRows) {
    create();
    EXPECT_EQ(db::checkDatabases(memory.databases), std::vector<std::string>{});
    const db::Sql lists[] = {
        "select recDate as Date,hTime as Time,pSurname as Surname,pfirstName as FirstName,Age,ClinicType from "
        "qryhPatListForNurse where recDate ='"_sql +
            today + "' and attendedTo=0",
        "select pno from qryhPatListForNurse where recDate ='"_sql + today + "' and attendedTo=1",
        "select Patient from vwAdmissionWaitList where date ='"_sql + today +
            "' and Doctor is not null and RoomNo is not null and Age is not null and Coyname is not null",
        "select SNo FROM vwhNotify where NotifyDept='NURSING' and Date='"_sql + today + "' and Fullname is not null",
        "select SNo FROM vwhComments where dept='NURSING' and Date='"_sql + today + "' and Fullname is not null",
        "select * from qryhAdmission where ClientCat in ('PHIS','NHIS','HMO') and getDate()>= "
        "IsNull(ExtendAdmissionLimitTo,getDate())"_sql,
        "select * from qryhAdmission where ClientCat in ('PHIS','NHIS','HMO') and ExtendAdmissionLimitTo > getdate()"_sql,
        "select * from qryhAdmission order by fullname"_sql,
        "select * from qryhvitalsigns where predate = '"_sql + today + "'",
        "select * from qryhNewBabies where bdate = '"_sql + today + "'",
        "select * from qryhAdmissionForToday where admdate = '"_sql + today + "'",
        "select * from qryhDischargedX where dischdate = '"_sql + today + "' and Approvedby is not null",
        "select * from qryhEDD"_sql,
        "select * from qryhBabyDischarge"_sql,
        "select * from qryhBillingBalance"_sql,
        "select pno from qryhVisitsForToday"_sql,
    };
    for (const auto& list : lists) EXPECT_GT(count(list), 0U) << list.text();
}

TEST_F(Demonstration, KeepsTheRulesThatScreensRelyOn) {
    create();
    const db::Sql none[] = {
        "select consultID from qryhAdmission group by consultID having count(*) > 1"_sql,
        "select pNo from qryhAdmission group by pNo having count(*) > 1"_sql,
        "select recID from hRecords where PNo not in (select PNo from hPatients)"_sql,
        "select consultID from hRecords group by consultID having count(*) > 1"_sql,
        "select PNo from hPatients where CoyName not in (select retainID from hRetainership)"_sql,
        "select SNO from hAdmission where consultID not in (select consultID from hRecords)"_sql,
        "select SNO from hAdmission where wardID not in (select wardID from hWards)"_sql,
        "select a.SNO from hAdmission a inner join hConsulting c on c.ID = a.conID where c.consultID <> a.consultID"_sql,
        "select d.ID from hdischargeForNurse d inner join hAdmission a on a.consultID = d.consultID where "
        "a.isdischarged = 0"_sql,
        "select ID from hPreConsult where consultID not in (select consultID from hRecords)"_sql,
        "select PNo from hPatients where DOB > regDate and Maturity = 'ADULT'"_sql,
    };
    for (const auto& rule : none) EXPECT_EQ(count(rule), 0U) << rule.text();
    EXPECT_GE(count("select username from vwUsers where loginrole='NURSING' and AccountStatus='ENABLED'"_sql), 3U);
    EXPECT_EQ(count("select n.username from vwUsers n inner join vwUsers m on m.username = n.username where "
                    "n.loginrole='NURSING' and m.loginrole='MANAGEMENT'"_sql),
              1U);
    EXPECT_EQ(count("select * from qryhBillingBalance where Balance > 0"_sql),
              count("select * from qryhBillingBalance"_sql));
    for (const auto* name : {"PATIENT2", "ConsultID2"}) {
        db::Command command(memory.hospital(), "getIDNo");
        command.append("DestName", db::Command::Type::varText, 50, name);
        const auto number = command.execute()["getIDNo"].text();
        EXPECT_EQ(count("select PNo from hPatients where PNo='"_sql + number + "'"), 0U);
        EXPECT_EQ(count("select PNo from hRecords where consultID='"_sql + number + "'"), 0U);
    }
}

TEST_F(Demonstration, NeedsNewDatabasesAndLeavesNothingOfAFailure) {
    for (int failing = 1;; ++failing) {
        int writes = 0;
        memory.databases.setRecorder([&](const db::Statement& statement) {
            if (statement.writes() && ++writes == failing) throw db::Error(db::Category::injected, "Injected failure");
        });
        try {
            create();
        } catch (const db::Error& error) {
            ASSERT_EQ(error.category(), db::Category::injected) << failing << ": " << error.what();
        }
        memory.databases.setRecorder({});
        if (writes < failing) break;
        for (const auto& table : {"select PNo from hPatients"_sql, "select empID from employees"_sql,
                                  "select SNO from hAdmission"_sql, "select id from idgen where id > 0"_sql})
            ASSERT_EQ(count(table), 0U) << failing << ": " << table.text();
        ASSERT_TRUE(memory.databases.named("SmsCenter").read("select pno from SmsPatients"_sql).empty()) << failing;
    }
    const auto patients = count("select PNo from hPatients"_sql);
    EXPECT_GT(patients, 0U);
    EXPECT_THROW(create(), db::Error);
    EXPECT_EQ(count("select PNo from hPatients"_sql), patients);
}

}  // namespace
