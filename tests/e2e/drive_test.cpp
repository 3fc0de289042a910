// Driven sessions of the built program: start, reload and leave, a database that goes, and what a kill leaves.

#include <gtest/gtest.h>

#include <csignal>
#include <thread>

#include "tests/e2e/program.h"
#include "tests/support/directory.h"

namespace {

using e2e::Session;
using nlohmann::json;

const json start{{"start", true}};
const json reload{{"fire", "MdiVorel.mnuRDef"}};

/// A session with a hospital and a program directory of its own.
class Drive : public testing::Test {
protected:
    Drive() {
        e2e::layOutHospital(data.path());
        program.write("made.sys", "SVR:HOST1\nHNO=007\nXYZ=1\n");
        program.write("sysdoc.sys", "NURSE\n");
    }
    test::TemporaryDirectory data, program;
    Session session{data.path(), {"--program-dir", program.path().string()}};
};

TEST_F(Drive, StartsReloadsAndLeaves) {
    session.send({{"clock", "2026-11-24 09:30:00"}});
    session.send(start);
    EXPECT_EQ(session.variable("gServerName"), "HOST1");
    EXPECT_EQ(session.variable("gHospitalNo"), "007");
    EXPECT_EQ(session.variable("gUserName"), "nurse");
    EXPECT_EQ(session.control("MdiVorel.mnuEPE")["caption"], "Log Off nurse");
    EXPECT_EQ(session.control("MdiVorel")["caption"], "NURSING (Ver 1) : @ Lagos");

    session.execute("update AppDefaults set idval='Ibadan' where ID='AppLocation'");
    session.send(reload);
    EXPECT_EQ(session.variable("gAppLocation"), "Ibadan");
    EXPECT_EQ(session.query("select username, islogout, Remarks from UserActivities"),
              json::array({{{"username", "nurse"}, {"islogout", false}, {"Remarks", "NURSING"}}}));

    session.send({{"clock", "2026-11-24 17:45:00"}});
    EXPECT_TRUE(session.send({{"fire", "MdiVorel.mnuEPE"}})["events"].back().contains("ended"));
    EXPECT_EQ(session.wait(), 0);
    EXPECT_EQ(Session(data.path()).query("select islogout, AutoLogoff, LogoutTime from UserActivities"),
              json::array({{{"islogout", true}, {"AutoLogoff", false}, {"LogoutTime", "17:45:00"}}}));
}

TEST_F(Drive, AnOldVersionIsToldItsNumber) {
    session.execute("update AppDefaults set idval='YES' where ID='LockOldVersion'");
    session.execute("update Roles set MinVer=2 where LoginRole='NURSING'");
    const auto events = session.send(start)["events"];
    EXPECT_EQ(events[0]["message"]["title"], "Old Version 1.0 Not Allowed");
    EXPECT_TRUE(events.back().contains("ended")) << events;
}

TEST_F(Drive, ARunTimeErrorLeavesTheMainWindowOpenUntilTheDatabaseIsBack) {
    session.send(start);
    const auto file = data.path() / "Hospital.db";
    const auto away = data.path() / "away.db";
    const auto reloadWithFileAt = [&](const std::filesystem::path& from, const std::filesystem::path& to) {
        std::filesystem::rename(from, to);
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        json boxes = json::array();
        const json reply = session.send(reload);
        for (const auto& event : reply.at("events"))
            if (!event.contains("changed")) boxes.push_back(event);
        return boxes;
    };
    const auto failed = reloadWithFileAt(file, away);
    ASSERT_EQ(failed.size(), 1U) << failed;
    EXPECT_EQ(failed[0]["message"]["text"], "Invalid Login OR session has expired!!! Please Re-login");
    EXPECT_TRUE(reloadWithFileAt(away, file).empty());
}

TEST(Kill, EveryCommittedSaveIsThereAndNoHalfOfOne) {
    for (int round = 0; round < 5; ++round) {
        SCOPED_TRACE(round);
        const test::TemporaryDirectory data;
        e2e::layOutHospital(data.path());
        Session session(data.path());
        std::thread killer([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(150 + 70 * round));
            session.kill(SIGKILL);
        });
        int acknowledged = 0;
        for (;; ++acknowledged) {
            // One statement, two rows: a half of it would show as an odd count.
            const std::string name = std::to_string(acknowledged);
            const json save{
                {"execute", "insert into hDepts (DeptName) select 'A" + name + "' union all select 'B" + name + "'"},
                {"on", "Hospital"}};
            if (session.send(save).is_null()) break;
        }
        killer.join();
        const int rows = Session(data.path())
                             .query("select count(*) as n from hDepts where DeptName like '[AB][0-9]%'")
                             .front()["n"];
        EXPECT_EQ(rows % 2, 0);
        EXPECT_GE(rows / 2, acknowledged);
        EXPECT_LE(rows / 2, acknowledged + 1);
        EXPECT_EQ(e2e::run({"database", "check", "--data", data.path().string()}).status, 0);
    }
}

}  // namespace
