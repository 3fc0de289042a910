// The watch timers of the main window, and what a fault or a kill leaves, through the built program.

#include <gtest/gtest.h>
#include <signal.h>

#include <set>
#include <thread>

#include "tests/e2e/program.h"

namespace {

using e2e::messages;
using e2e::Session;
using nlohmann::json;

class Watched : public ::testing::TestWithParam<int> {};

bool runs(Session& session, const std::string& timer) {
    return session.control("MdiVorel." + timer)["running"];
}

void emptyLists(Session& session, bool patients, bool admissions, bool notices) {
    if (patients) session.execute("update hRecords set recDate='01-Jan-2020'");
    if (admissions) session.execute("delete from hreferal");
    if (notices) session.execute("delete from hNotify");
}

TEST_P(Watched, TheLastOfTheThreeListsDecides) {
    const bool patients = (GetParam() & 1) != 0;
    const bool admissions = (GetParam() & 2) != 0;
    const bool notices = (GetParam() & 4) != 0;
    Session session(Session::usualFiles(), e2e::Rows::demonstration);
    // The demonstration stands on today's date.
    session.send({{"clock", session.query("select max(recDate) as d from hRecords").front()["d"].get<std::string>() +
                                " 09:30:00"}});
    emptyLists(session, !patients, !admissions, !notices);
    session.send({{"start", true}});
    EXPECT_TRUE(messages(session.events({{"tick", "MdiVorel.Timer1"}})).empty());

    EXPECT_EQ(session.variable("gPatientsWaiting"), patients);
    // An empty list of notices clears the flag of the admissions.
    EXPECT_EQ(session.variable("gAdmissionsWaiting"), admissions && notices);
    EXPECT_EQ(session.variable("gNotificationsWaiting"), notices);
    EXPECT_EQ(session.variable("gAnythingWaiting"), notices);
    EXPECT_EQ(session.variable("gWatchTimersOn"), patients);
    EXPECT_EQ(runs(session, "tmrNotify"), notices);
    EXPECT_EQ(runs(session, "tmrSound"), notices);
}
INSTANTIATE_TEST_SUITE_P(AllCombinations, Watched, ::testing::Range(0, 8));

TEST(Fault, AnActivityRowThatCannotBeWrittenLeavesNothingAndTheSessionWorks) {
    Session session;
    session.send({{"fail", {{"statement", 1}}}});
    const auto events = session.events({{"start", true}});
    EXPECT_EQ(messages(events), std::vector<std::string>{"Injected failure"});
    EXPECT_FALSE(e2e::ended(events));
    EXPECT_EQ(session.value("select count(*) from UserActivities"), 0);
    EXPECT_EQ(session.variable("gActivitySNo"), 0);
}

TEST(Fault, LeavingEndsTheSessionEvenWhenItsRowCannotBeWritten) {
    Session session;
    session.send({{"start", true}});
    session.send({{"fail", {{"statement", 1}}}});
    const auto events = session.events({{"fire", "MdiVorel.mnuEPE"}});
    EXPECT_EQ(messages(events), std::vector<std::string>{"Injected failure"});
    EXPECT_TRUE(e2e::ended(events));
    EXPECT_EQ(e2e::query(session.data.path(), "select islogout from UserActivities").front()["islogout"], false);
}

TEST(Kill, EveryCommittedSaveIsThereAndNoHalfOfOne) {
    for (int round = 0; round < 5; ++round) {
        const e2e::Directory data;
        e2e::layOutHospital(data.path());
        int acknowledged = 0;
        {
            e2e::Process process({"drive", "--data", data.path().string()});
            std::thread killer([&] {
                std::this_thread::sleep_for(std::chrono::milliseconds(150 + 70 * round));
                process.kill(SIGKILL);
            });
            for (int i = 1;; ++i) {
                // One statement, two rows: a half of it would show as an odd count.
                process.writeLine(json{
                    {"execute", "insert into hDepts (DeptName) select 'A" + std::to_string(i) +
                                    "' union all select 'B" + std::to_string(i) + "'"},
                    {"on",
                     "Hospital"}}.dump());
                if (process.readLine().empty()) break;
                acknowledged = i;
            }
            killer.join();
        }
        const int rows =
            e2e::query(data.path(), "select count(*) as n from hDepts where DeptName like '[AB][0-9]%'").front()["n"];
        EXPECT_EQ(rows % 2, 0);
        EXPECT_GE(rows / 2, acknowledged);
        EXPECT_LE(rows / 2, acknowledged + 1);
        EXPECT_EQ(e2e::run({"database", "check", "--data", data.path().string()}).status, 0);
    }
}

}  // namespace
