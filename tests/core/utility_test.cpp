
#include <set>

#include "core/audit/activities.h"
#include "core/audit/audit.h"
#include "core/clock/clock.h"
#include "core/forms/form.h"
#include "core/numbers/numbers.h"
#include "core/patients/patient.h"
#include "core/session/mainwindow.h"
#include "core/session/session.h"
#include "core/session/workplace.h"
#include "core/texts/encoding.h"
#include "core/texts/texts.h"
#include "tests/core/stubs.h"

namespace {

using namespace db::literals;
using test::Ward;

class Utility : public testing::Test {
protected:
    Utility() { ward.start(); }
    core::Session& session() { return ward.place.session; }
    std::string activities() {
        return ward.dump(
            "select SNO, username, LoginDate, LoginTime, islogout, AppVersion, LogoutDate, LogoutTime, "
            "AutoLogoff, Remarks from UserActivities order by SNO"_sql);
    }
    void addPatient(const std::string& pno) {
        ward.execute("insert into hPatients (PNo, psurname, pfirstName) values ('"_sql + pno + "', 'Okoro', 'Ada')");
    }
    Ward ward;
};

TEST_F(Utility, TheServersClockIsTheTimeOfRecord) {
    ward.sources.clock().stopAt(db::DateTime::of(2026, 11, 25, 0, 10, 59));
    core::refreshServerClock(ward.place);
    EXPECT_EQ(session().gServerNow.iso(), "2026-11-25 00:10:59");
    EXPECT_EQ(session().gServerDate.text(), "25-Nov-2026");
    EXPECT_EQ(session().gServerTime.text(), "00:10:00");
    EXPECT_EQ(ward.statements().back(), "select sysDT from qrySysDateTime");
    // A server whose clock view gives no row.
    ward.execute("create view qrySysDateTime as select Period as sysDT from AccountMonth where 1=2"_sql, "Accounting");
    session().gConnHospital = session().gConnAccounting;
    EXPECT_EQ(core::GetServerNow(ward.place), db::DateTime());
}

TEST_F(Utility, ARunsRowIsOpenedAndClosed) {
    core::OpenUserActivity(ward.place, false, false, "NURSING");
    EXPECT_EQ(session().gActivitySNo, 1);
    EXPECT_EQ(activities(), "1|nurse|24-Nov-2026|09:30:00|False|7|null|null|False|NURSING\n");
    ward.sources.clock().stopAt(db::DateTime::of(2026, 11, 25, 7, 5, 30));
    session().gForcedLogoff = true;
    core::CloseUserActivity(ward.place, true, false, "NURSING/SELF");
    EXPECT_FALSE(session().gForcedLogoff);
    EXPECT_EQ(activities(), "1|nurse|24-Nov-2026|09:30:00|True|7|25-Nov-2026|07:05:00|False|NURSING\n");

    core::OpenUserActivity(ward.place, true, true, "X");
    EXPECT_EQ(session().gActivitySNo, 2);
    EXPECT_EQ(ward.dump("select * from UserActivities where SNO=2"_sql),
              "2|nurse|25-Nov-2026|07:05:00|True|7|25-Nov-2026|07:05:00|True|X\n");
}

TEST_F(Utility, WithoutARowNothingIsClosed) {
    core::CloseUserActivity(ward.place, true, false, "NURSING");
    EXPECT_EQ(ward.statements().back(), "select * from UserActivities where SNO=0");
    EXPECT_EQ(activities(), "");
}

TEST_F(Utility, TheLoginTrailIsWrittenByPosition) {
    auto& hospital = ward.place.hospital();
    core::WriteLoginTrailSuccess(hospital, "nurse", db::DateTime::of(2026, 2, 3, 4, 5, 6));
    core::WriteLoginTrailFailure(hospital, "O'Hara", db::DateTime::of(2026, 2, 3, 14, 5, 6));
    EXPECT_EQ(ward.dump("select * from LoginTrail"_sql),
              "nurse|Successful Logon|03-02-2026|04:05:06|1\nO'Hara|Failed Logon|03-02-2026|14:05:06|2\n");
}

TEST_F(Utility, TheAuditCarriesTheLastReadClock) {
    ward.sources.clock().stopAt(db::DateTime::of(2026, 12, 1));
    core::AuditTrail(ward.place, "nurse", "Saved", "T1", "", "WARD-3");
    EXPECT_EQ(ward.dump("select * from hAuditTrail"_sql),
              "1|nurse|Saved|24-Nov-2026|09:30:00|T1||WARD-3: from NURSING\n");
    const auto& call = ward.log().back();
    EXPECT_EQ(call.text, "SpAudiTrail");
    EXPECT_EQ(call.parameters.size(), 7u);

    ward.place.desktop.setBeforeBox({});
    core::AuditTrail(ward.place, std::string(51, 'x'), "", "", "", "");  // one character too many: a box, no row
    EXPECT_EQ(ward.value("select count(*) from hAuditTrail"_sql).int32(), 1);
}

TEST_F(Utility, VisitsAndNumbers) {
    addPatient("P1");
    ward.execute("insert into hRecords (PNo, recDate, consultID) values ('P1', '24-Nov-2026', '001000000041')"_sql);
    EXPECT_TRUE(core::HasVisitToday(ward.place, "P1"));
    EXPECT_FALSE(core::HasVisitToday(ward.place, "P2"));
    core::GetNextIdNo(ward.place, "PATIENT2");
    EXPECT_EQ(session().gNextId, "000000001/001");
    core::ResyncConsultId(ward.place);
    core::GetNextIdNo(ward.place, "ConsultID2");
    EXPECT_EQ(session().gNextId, "001000000047");
    core::GetNextIdNo(ward.place, "none");
    EXPECT_EQ(session().gNextId, "");
}

TEST_F(Utility, ResyncsLeaveAGapOrRaiseAnError) {
    const auto counter = [&] { return ward.value("select id from idgen where destNAme='PATIENT2'"_sql).int32(); };
    core::ResyncPatientId(ward.place);
    core::ResyncConsultId(ward.place);
    EXPECT_EQ(counter(), 0);
    for (const auto& [pno, id] :
         std::vector<std::pair<const char*, int>>{{"000000123/001", 128}, {"0010000200", 205}}) {
        addPatient(pno);
        core::ResyncPatientId(ward.place);
        EXPECT_EQ(counter(), id);
    }
    for (const auto* pno : {"9999", "9999x", "99992147483645", "99999999999999"}) {
        addPatient(pno);
        EXPECT_THROW(core::ResyncPatientId(ward.place), db::Error) << pno;
        EXPECT_EQ(counter(), 205);
    }
}

TEST(AgeText, CountsMonthsThenDays) {
    const auto day = [](int y, int m, int d) { return db::DateTime::of(y, m, d); };
    struct Case {
        db::DateTime born, today;
        const char* text;
    };
    const std::vector<Case> cases{
        {day(2026, 11, 24), day(2026, 11, 24), "0 yrs, 0 mths and 0 days"},
        {day(2025, 11, 24), day(2026, 11, 24), "1 yr, 0 mths and 0 days"},
        {day(2025, 9, 23), day(2026, 11, 24), "1 yr, 2 mths and 1 day"},
        {day(2026, 10, 31), day(2026, 11, 30), "0 yrs, 1 mth and 0 days"},
        {day(2026, 1, 31), day(2026, 3, 1), "0 yrs, 1 mth and 1 day"},
        {day(2024, 2, 29), day(2026, 2, 28), "2 yrs, 0 mths and 0 days"},
        {day(2026, 10, 30), day(2026, 11, 24), "0 yrs, 0 mths and 25 days"},
        {day(2026, 11, 25), day(2026, 11, 24), "0 yrs, -1 mths and 30 days"},
        {day(2027, 12, 24), day(2026, 11, 24), "-1 yrs, -1 mths and 0 days"},
    };
    for (const auto& one : cases) EXPECT_EQ(core::AgeText(one.born, one.today), one.text) << one.born.text();
    EXPECT_EQ(core::AgeText(db::DateTime::of(2026, 11, 23, 23), db::DateTime::of(2026, 11, 24, 1)),
              "0 yrs, 0 mths and 1 day");
}

TEST_F(Utility, AnAntenatalRemarkOpensTheComments) {
    int opened = 0;
    class Comments : public core::Form {
    public:
        Comments(core::Workplace& place, int& opened) : Form(place, "frmComments", "") { ++opened; }
        ui::Button cmdExit{*this, "cmdExit", "Exit", [this] { close(); }};
    };
    ward.place.desktop.provide("frmComments", [&] { return std::make_unique<Comments>(ward.place, opened); });
    addPatient("P1");
    for (const auto* info : {"", "NIL", "NONE"}) {
        ward.execute("update hPatients set ANCInfo='"_sql + std::string(info) + "'");
        core::ShowAncInfo(ward.place, "P1");
    }
    ward.execute("update hPatients set ANCInfo=null"_sql);
    core::ShowAncInfo(ward.place, "P1");
    core::ShowAncInfo(ward.place, "P2");
    EXPECT_EQ(opened, 0);
    ward.execute("update hPatients set ANCInfo='nil'"_sql);
    ward.then([&] { ward.place.desktop.fire("frmComments.cmdExit", false); });
    core::ShowAncInfo(ward.place, "P1");
    EXPECT_EQ(opened, 1);
}

TEST_F(Utility, DebtAndCreditReachTheRowAndTheMainWindow) {
    using Calls = std::vector<std::string>;
    struct Case {
        const char* name;
        const char* client;
        double billed, paid;
        double balance;
        Calls calls;
    };
    const Calls none{"debt 0", "Timer2", "disable"};
    const std::vector<Case> cases{
        {"debt", "0001", 12500.5, 500, 12000.5, {"debt 0", "Timer2", "debt Debt: 12,000.50", "enable"}},
        {"credit", "0001", 0, 20, -20, {"debt 0", "Timer2", "debt Credit: 20.00", "enable"}},
        {"even", "0001", 20, 20, 0, none},
        {"less than a kobo", "0001", 0.004, 0, 0.004, none},
        {"a company's", "0002", 900, 0, 0, none},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        ward.execute("delete from hPatients"_sql);
        addPatient("P1");
        ward.execute("insert into Billing (PNo, ClientID, AmountBilled, AmountPaid) values ('P1', '"_sql +
                     std::string(one.client) + "', " + one.billed + ", " + one.paid + ")");
        ward.main().calls.clear();
        core::RefreshDebtInfo(ward.place, "P1");
        EXPECT_DOUBLE_EQ(session().gPatientBalance, one.balance);
        EXPECT_EQ(session().gPatientHasBalance, one.calls != none);
        EXPECT_EQ(ward.main().calls, one.calls);
        const auto row = ward.read("select isRev, DebtBF, Debt from hPatients"_sql);
        EXPECT_TRUE(row["isRev"].flag());
        EXPECT_DOUBLE_EQ(row["DebtBF"].number(), one.balance);
        EXPECT_DOUBLE_EQ(row["Debt"].number(), one.balance);
    }
    core::RefreshDebtInfo(ward.place, "no bill");
    EXPECT_EQ(ward.statements().back(), "update hPatients set isRev = 1, DebtBF=0, Debt=0 where pno = 'no bill'");
}

TEST_F(Utility, WaitsWithEvents) {
    using namespace std::chrono_literals;
    bool worked = false;
    ward.loop.post([&] { worked = true; });
    EXPECT_EQ(core::WaitWithEvents(ward.place, 1ms), core::waitTimedOut);
    EXPECT_TRUE(worked);
    EXPECT_EQ(core::WaitWithEvents(ward.place, 1h, {[] { return false; }, [] { return true; }}), 1);
    EXPECT_EQ(core::WaitWithEvents(ward.place, -5ms), core::waitTimedOut);
}

TEST_F(Utility, EncodesPasswords) {
    const auto table = core::Settings::builtInEncodingTable();
    EXPECT_EQ(core::checkEncodingTable(table), "");
    EXPECT_EQ(std::set<char>(table.begin(), table.end()).size(), 34u);
    const std::string allButOne(93, 'a');
    for (const char* last : {"", "aa", "\t"}) EXPECT_NE(core::checkEncodingTable(allButOne + last), "") << last;
    EXPECT_NE(core::checkEncodingTable(allButOne.substr(1) + "\u00e9"), "");

    EXPECT_EQ(core::EncodeText(ward.place, "!~"), (std::string{table.front(), table.back()}));
    for (int i = 0; i < 4; ++i) ward.expectMessage("Invalid character detected!");
    const auto encoded = core::EncodeText(ward.place, "a b\u00e9\x7f\nc");
    EXPECT_EQ(encoded, core::EncodeText(ward.place, "abc"));
}

TEST(MoneyText, TwoDecimalsAndSeparators) {
    const std::vector<std::pair<double, const char*>> cases{
        {0, "0.00"},
        {0.004, "0.00"},
        {-0.004, "0.00"},
        {0.005, "0.01"},
        {1.005, "1.01"},
        {-1.005, "-1.01"},
        {999.995, "1,000.00"},
        {1234.5, "1,234.50"},
        {-123456, "-123,456.00"},
        {1e12, "1,000,000,000,000.00"},
    };
    for (const auto& [amount, text] : cases) EXPECT_EQ(core::moneyText(amount), text) << amount;
}

}  // namespace
