// Starts, reloads and leaves, through the built program with real program directories.

#include <gtest/gtest.h>
#include <unistd.h>

#include "tests/e2e/program.h"

namespace {

using e2e::ended;
using e2e::messages;
using e2e::Session;
using nlohmann::json;

const std::string loginMessage = "Invalid Login OR session has expired!!! Please Re-login";

using Files = std::vector<std::pair<std::string, std::string>>;

struct Start {
    const char* name;
    Files files;                          ///< the program directory
    std::vector<std::string> statements;  ///< what is different in the databases before the start
    std::string message;                  ///< "" when the start goes through
    bool ends = true;
};

Files with(const std::string& made, const std::string& sysdoc) {
    return {{"made.sys", made}, {"sysdoc.sys", sysdoc}};
}
const Files usual = Session::usualFiles();

std::string drop(const std::string& key) {
    return "delete from AppDefaults where ID='" + key + "'";
}
std::string put(const std::string& key, const std::string& value) {
    return "update AppDefaults set idval='" + value + "' where ID='" + key + "'";
}

/// What an accounting hospital has set, so that each case can leave one thing out.
std::vector<std::string> accounting(const std::vector<std::string>& change) {
    std::vector<std::string> all{put("AcctPostOn", "YES")};
    for (const auto* key :
         {"AUTO_TRAN_NO", "AcctCostCenter", "AcctNoPOS", "AcctNoCheque", "AcctNoTransfer", "AcctNoCash", "AcctNoOthers",
          "CashAccountIndex", "ARAccountIndex", "AcctNoSales", "AcctNoSalesInv"}) {
        all.push_back(drop(key));
        all.push_back(std::string("insert into AppDefaults (ID, idval) values ('") + key + "', '7')");
    }
    all.insert(all.end(), change.begin(), change.end());
    return all;
}

std::vector<Start> starts() {
    std::vector<Start> table = {
        {"usual", usual, {}, "", false},
        {"no made.sys",
         {{"sysdoc.sys", "nurse\n"}},
         {},
         "A System inifile bAccum required for this Application is MISSING"},
        {"no sysdoc.sys",
         {{"made.sys", "HNO=001\n"}},
         {},
         "A System file UName required for this Application is MISSING"},
        {"empty sysdoc.sys", with("HNO=001\n", ""), {}, loginMessage},
        {"last line is the user", with("", "nobody\nnurse\n"), {}, "", false},
        {"last line is nobody", with("", "nurse\nnobody\n"), {}, loginMessage},
        {"apostrophe in the user", with("", "o'nurse\n"), {}, loginMessage},
        {"other role only", usual, {"update Roles set LoginRole='RECORDS' where LoginRole='NURSING'"}, loginMessage},
        {"no PRIVATE", usual, {drop("PRIVATE")}, "System Default Value needed for Private Tariff"},
        {"no NHISFEE", usual, {drop("NHISFEE")}, "System Default Value needed for NHIS % Fee", false},
        {"no Clinic_PhoneNo",
         usual,
         {drop("Clinic_PhoneNo")},
         "Clinic_PhoneNo Default Required to Send SMS Appointments",
         false},
        {"wait time too large", usual, {put("SearchWaitTime", "40000")}, loginMessage},
        {"date that is none", usual, {put("TranxStartDateForDebt", "soon")}, loginMessage},
        {"flag that is none", usual, {put("AcctPostOn", "perhaps")}, loginMessage},
        {"old version",
         usual,
         {put("LockOldVersion", "YES"), "update Roles set MinVer=99 where LoginRole='NURSING'"},
         "This Version of NURSING Module is OLD!\nOnly Versions 99 and Above are Allowed"},
        {"lock in lower case",
         usual,
         {put("LockOldVersion", "yes"), "update Roles set MinVer=99 where LoginRole='NURSING'"},
         "",
         false},
        {"null version",
         usual,
         {put("LockOldVersion", "YES"), "update Roles set MinVer=null where LoginRole='NURSING'"},
         "",
         false},
        {"own version",
         usual,
         {put("LockOldVersion", "YES"), "update Roles set MinVer=1 where LoginRole='NURSING'"},
         "",
         false},
        {"accounting", usual, accounting({}), "", false},
    };
    struct Missing {
        const char* key;
        const char* absent;  ///< "" when its absence is no trouble
        const char* empty;
        const char* nothing = "";
    };
    for (const Missing& row : std::initializer_list<Missing>{
             {"AUTO_TRAN_NO", "", "AUTO_TRAN_NO needed for Posting"},
             {"AcctCostCenter", "AcctCostCenter needed for Posting", "AcctCostCenter needed for Posting"},
             {"AcctNoPOS", "POS Acct No needed for Posting", "POS Acct No needed for Posting"},
             {"AcctNoCheque", "Cheque Acct No needed for Posting", "Cheque Acct No needed for Posting"},
             {"AcctNoTransfer", "Transfer Acct No needed for Posting", "Transfer Acct No needed for Posting"},
             {"AcctNoCash", "Cash Acct No needed for Posting", "Cash Acct No needed for Posting"},
             {"AcctNoOthers", "", ""},
             {"CashAccountIndex", "CashAccountIndex needed for Posting", "Cash Acct Index No needed for Posting", "0"},
             {"ARAccountIndex", "Cash Acct Index No needed for Posting", "ARAccountIndex needed for Posting", "0"},
             {"AcctNoSales", "Sales Acct No needed for Posting", "Cash Sales Acct No needed for Posting"},
             {"AcctNoSalesInv", "Sales Invoice Acct No needed for Posting",
              "Sales Invoice Acct No needed for Posting"}}) {
        table.push_back({row.key, usual, accounting({drop(row.key)}), row.absent, *row.absent != 0});
        table.push_back({row.key, usual, accounting({put(row.key, row.nothing)}), row.empty, *row.empty != 0});
    }
    return table;
}

TEST(Start, EveryRefusalAndWhatIsNone) {
    for (const auto& start : starts()) {
        SCOPED_TRACE(start.name);
        Session session(start.files);
        session.execute(
            "insert into AccountMonth (Period) select '2026-11' where not exists (select * from AccountMonth)",
            "Accounting");
        for (const auto& statement : start.statements) session.execute(statement);
        const auto events = session.events({{"start", true}});
        const auto shown = messages(events);
        EXPECT_EQ(shown, start.message.empty() ? std::vector<std::string>{} : std::vector<std::string>{start.message});
        EXPECT_EQ(ended(events), start.ends) << events.dump();
    }
}

TEST(Start, AccountingWithoutItsPeriod) {
    Session session;
    session.execute("delete from AccountMonth", "Accounting");
    for (const auto& statement : accounting({})) session.execute(statement);
    const auto events = session.events({{"start", true}});
    EXPECT_EQ(messages(events), std::vector<std::string>{"Acct Current_Period missing"});
    EXPECT_TRUE(ended(events));
}

TEST(Start, TheOldVersionBoxNamesThisVersion) {
    Session session;
    session.execute(put("LockOldVersion", "YES"));
    session.execute("update Roles set MinVer=2 where LoginRole='NURSING'");
    const auto box = session.events({{"start", true}})[0]["message"];
    EXPECT_EQ(box["title"], "Old Version 1.0 Not Allowed");
    EXPECT_EQ(box["icon"], "stop");
}

TEST(Start, ReadsItsFilesAndOpensTheMainWindow) {
    Session session({{"made.sys", "SVR:HOST1\nHNO=007\nXYZ=1\n"}, {"sysdoc.sys", "NURSE\n"}});
    session.send({{"start", true}});
    EXPECT_EQ(session.variable("gServerName"), "HOST1");
    EXPECT_EQ(session.variable("gHospitalNo"), "007");
    EXPECT_EQ(session.variable("gUserName"), "nurse");
    EXPECT_EQ(session.variable("gBillType"), "0");
    EXPECT_EQ(session.control("MdiVorel.mnuEPE")["caption"], "Log Off nurse");
    EXPECT_EQ(session.control("MdiVorel")["caption"], "NURSING (Ver 1) : @ Lagos");
    const auto row = session.query("select username, islogout, Remarks from UserActivities");
    EXPECT_EQ(row, json::array({{{"username", "nurse"}, {"islogout", false}, {"Remarks", "NURSING"}}}));
}

TEST(Start, ADatabaseThatIsGoneIsAnInvalidLogin) {
    Session session;
    std::filesystem::rename(session.data.path() / "Hospital.db", session.data.path() / "away.db");
    const auto events = session.events({{"start", true}});
    EXPECT_EQ(messages(events), std::vector<std::string>{loginMessage});
    EXPECT_TRUE(ended(events));
}

TEST(Reload, ReadsAgainAndCanEndTheSession) {
    Session session;
    session.send({{"start", true}});
    session.execute(put("AppLocation", "Ibadan"));
    EXPECT_TRUE(messages(session.events({{"fire", "MdiVorel.mnuRDef"}})).empty());
    EXPECT_EQ(session.variable("gAppLocation"), "Ibadan");
    EXPECT_EQ(session.value("select count(*) from UserActivities"), 1);

    session.execute(drop("PRIVATE"));
    const auto events = session.events({{"fire", "MdiVorel.mnuRDef"}});
    EXPECT_EQ(messages(events), std::vector<std::string>{"System Default Value needed for Private Tariff"});
    EXPECT_TRUE(ended(events));
}

TEST(Reload, ARunTimeErrorLeavesTheMainWindowOpenUntilTheDatabaseIsBack) {
    Session session;
    session.send({{"start", true}});
    const auto file = session.data.path() / "Hospital.db";
    const auto away = session.data.path() / "away.db";
    std::filesystem::rename(file, away);
    usleep(200'000);
    auto events = session.events({{"fire", "MdiVorel.mnuRDef"}});
    EXPECT_EQ(messages(events), std::vector<std::string>{loginMessage});
    EXPECT_FALSE(ended(events));

    std::filesystem::rename(away, file);
    usleep(200'000);
    EXPECT_TRUE(messages(session.events({{"fire", "MdiVorel.mnuRDef"}})).empty());
}

json activity(const Session& session) {
    return e2e::query(session.data.path(), "select islogout, AutoLogoff, LogoutTime, Remarks from UserActivities")
        .front();
}

TEST(Leave, ByTheMenuAtOnce) {
    Session session;
    session.send({{"start", true}});
    session.send({{"clock", "2026-11-24 17:45:00"}});
    EXPECT_TRUE(ended(session.events({{"fire", "MdiVorel.mnuEPE"}})));
    EXPECT_EQ(activity(session),
              (json{{"islogout", true}, {"AutoLogoff", false}, {"LogoutTime", "17:45:00"}, {"Remarks", "NURSING"}}));
}

TEST(Leave, ByClosingTheWindowAsksFirst) {
    for (const bool leave : {false, true}) {
        Session session;
        session.send({{"start", true}});
        const auto reply = session.send({{"fire", "MdiVorel.Unload"}});
        EXPECT_EQ(reply["waiting"]["kind"], "yesno");
        EXPECT_EQ(reply["events"].back()["ask"]["text"], " Do you want to Exit the Application?");
        EXPECT_EQ(reply["events"].back()["ask"]["title"], "Exit Application");
        const auto events = session.events({{"answer", leave ? "yes" : "no"}});
        EXPECT_EQ(ended(events), leave);
        EXPECT_EQ(activity(session)["islogout"], leave);
    }
}

}  // namespace
