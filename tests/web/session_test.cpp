// A session and its pages, without a network.

#include <gtest/gtest.h>

#include <latch>

#include "tests/web/site_fixture.h"
#include "web/sessions.h"

namespace {

using nlohmann::json;
using webtest::eventually;
using webtest::frmTest;
using webtest::TestPage;

class SessionTest : public testing::Test {
protected:
    web::Config config;
    web::NurseSession session{config, &webtest::makeTestSeat, {"nurse", "127.0.0.1"}};
    std::shared_ptr<TestPage> page = std::make_shared<TestPage>();

    void SetUp() override {
        web::setLogLevel(web::Level::off);
        session.attach(page);
        const auto greeting = page->next();
        ASSERT_EQ(greeting["received"], 0);
        ASSERT_EQ(greeting["snapshot"]["screens"][0]["name"], "frmTest");
        ASSERT_TRUE(greeting["waiting"].is_null());
    }

    json send(const json& request) {
        EXPECT_TRUE(session.receive(*page, request.dump()));
        return page->next();
    }
};

std::string errorOf(const json& reply) {
    for (const auto& event : reply["events"])
        if (event.contains("error")) return event["error"];
    return {};
}

TEST_F(SessionTest, ANewPageTakesOverInTheMiddleOfAQuestion) {
    EXPECT_EQ(send({{"fire", "frmTest.cmdAsk"}})["waiting"]["kind"], "yesno");
    const auto second = std::make_shared<TestPage>();
    session.attach(second);
    EXPECT_EQ(page->next(), json({{"replaced", true}}));
    EXPECT_TRUE(page->closed());
    const auto greeting = second->next();
    EXPECT_EQ(greeting["received"], 1);
    EXPECT_EQ(greeting["waiting"]["text"], "Sure?");
    // What the old page still sends, and that it goes, is nothing to the session.
    EXPECT_TRUE(session.receive(*page, R"({"answer":"no"})"));
    session.detach(*page);
    EXPECT_TRUE(session.receive(*second, R"({"answer":"yes"})"));
    EXPECT_EQ(second->next()["events"][0]["changed"]["frmTest.txtName"]["text"], "yes");
    EXPECT_EQ(session.abandoned(), web::NurseSession::Clock::duration::zero());
}

TEST_F(SessionTest, FilesAreAskedForAndAnsweredByTheTokensOfOwnUploadsOnly) {
    EXPECT_FALSE(session.asksForFile());
    EXPECT_EQ(send({{"fire", "frmTest.cmdFile"}})["waiting"]["kind"], "file");
    EXPECT_TRUE(session.asksForFile());
    const auto sysdoc = session.programDirectory() / "sysdoc.sys";
    for (const json& file : {json(sysdoc.string()), json("../sysdoc.sys"), json("0123"), json(), json(5)})
        EXPECT_EQ(errorOf(send({{"answer", {{"file", file}}}})), "no such uploaded file") << file;
    const std::string token = session.keepUpload("../../Photo.JPG", "content");
    const auto reply = send({{"answer", {{"file", token}}}});
    EXPECT_EQ(reply["events"][0]["changed"]["frmTest.txtName"]["text"], ".jpg");
    EXPECT_FALSE(session.asksForFile());
}

TEST_F(SessionTest, WhatOnlyScriptsMayAskIsRefusedOnAPagesLine) {
    for (const char* line :
         {R"({"start":true})", R"({"show":"frmTest"})", R"({"tick":"frmTest.tmrTest"})",
          R"({"clock":"2026-11-24 09:30:00"})", R"({"query":"select 1","on":"Hospital"})",
          R"({"execute":"delete from Users","on":"Hospital"})", R"({"trace":true})", R"({"fail":{"statement":1}})",
          R"({"get":"session"})", R"({"fire":"frmTest.cmdHidden","force":true})",
          R"({"set":"frmTest.txtLocked","to":"/etc/passwd","force":true})", R"({"fire":"frmTest.cmdHidden"})",
          R"({"set":"frmTest.txtLocked","to":"x"})", R"({"stored":"x' or '1'='1"})"}) {
        ASSERT_TRUE(session.receive(*page, line));
        const auto reply = page->next();
        EXPECT_NE(errorOf(reply), "") << line;
        EXPECT_FALSE(reply.contains("state")) << line;
    }
    EXPECT_EQ(send({{"get", "frmTest.txtLocked"}})["state"]["text"], "");
    EXPECT_EQ(send({{"get", "frmTest.txtName"}})["state"]["text"], "");
}

TEST_F(SessionTest, APageThatSendsFasterThanItsSessionWorksIsLetWait) {
    std::latch wakes{1};
    // cppcheck-suppress danglingLifetime; the session has ended before the latch goes
    frmTest::works = [&] { wakes.wait(); };
    ASSERT_TRUE(session.receive(*page, R"({"fire":"frmTest.cmdWork"})"));
    const std::string line(1 << 20, ' ');
    int taken = 0;
    while (session.receive(*page, line)) ASSERT_LT(++taken, 100);
    EXPECT_LE(taken, config.mostQueued / (1 << 20));
    wakes.count_down();
    EXPECT_TRUE(eventually([&] { return page->readsOn() == 1; }));
    for (int i = 0; i < taken + 3; ++i) page->next();
    EXPECT_EQ(send({{"get", "frmTest.txtName"}})["state"]["text"], "done");
}

TEST_F(SessionTest, APageSeesThatWorkHasBegunWhileItRuns) {
    std::latch seen{1};
    // cppcheck-suppress danglingLifetime; the session has ended before the latch goes
    frmTest::works = [&] { seen.wait(); };
    const auto begun = send({{"fire", "frmTest.cmdWork"}});
    EXPECT_EQ(begun["during"], 1);
    EXPECT_EQ(begun["events"][0]["changed"]["frmTest.txtName"]["text"], "working");
    seen.count_down();
    const auto reply = page->next();
    EXPECT_EQ(reply["reply"], 1);
    EXPECT_EQ(reply["events"], json::parse(R"([{"changed":{"frmTest.txtName":{"text":"done"}}}])"));
}

TEST_F(SessionTest, APictureIsFoundForAsLongAsItShows) {
    const auto shows = [&](const char* bytes) {
        send({{"set", "frmTest.txtName"}, {"to", bytes}});
        return send({{"fire", "frmTest.cmdPhoto"}})["events"][0]["changed"]["frmTest.picPhoto"]["image"];
    };
    EXPECT_EQ(shows("10"), "/pictures/1");
    EXPECT_EQ(session.pictures().find(1)->size(), 10U);
    EXPECT_EQ(send({{"get", "frmTest.picPhoto"}})["state"]["image"], "/pictures/1") << "fetched once";
    EXPECT_EQ(shows("11"), "/pictures/2");
    EXPECT_EQ(session.pictures().find(1), nullptr);
    EXPECT_TRUE(shows("9000000").is_null()) << "no picture of a patient is that large";
    EXPECT_TRUE(shows("0").is_null());
    EXPECT_EQ(session.pictures().find(2), nullptr);
}

TEST_F(SessionTest, TheLogSaysWhyAPagesRequestWasRefusedAndNotWhatItHeld) {
    web::setLogLevel(web::Level::warning);
    testing::internal::CaptureStderr();
    send({{"query", "select Secret"}});
    send({{"set", "frmTest.txtName"}, {"to", "Secret"}, {"Secret", 1}});
    const std::string log = testing::internal::GetCapturedStderr();
    web::setLogLevel(web::Level::off);
    for (const char* why : {R"(why="the request is unknown")", R"(why="set has a key that it does not take")"})
        EXPECT_NE(log.find(why), std::string::npos) << log;
    EXPECT_EQ(log.find("Secret"), std::string::npos) << log;
}

TEST_F(SessionTest, ASaveIsToldToItsPageAndToTheNextSessionThatAsks) {
    const auto reply = send({{"fire", "frmTest.cmdSave"}});
    EXPECT_EQ(reply["saved"], "frmTest");
    const auto stored = send({{"stored", std::string(64, 'a')}});
    EXPECT_EQ(stored["state"], json({{"request", 7}, {"screen", "frmTest"}}));
    EXPECT_TRUE(send({{"stored", std::string(64, 'b')}})["state"].is_null());
}

TEST_F(SessionTest, AnErrorIsShownAndTheSessionGoesOn) {
    EXPECT_EQ(send({{"fire", "frmTest.cmdFail"}})["waiting"]["text"], "It failed");
    send({{"answer", "ok"}});
    EXPECT_EQ(send({{"fire", "frmTest.cmdThrow"}})["waiting"]["kind"], "message");
    EXPECT_TRUE(send({{"answer", "ok"}})["waiting"].is_null());
    EXPECT_EQ(send({{"get", "frmTest.txtName"}})["state"]["text"], "");
}

TEST_F(SessionTest, TheEndTellsThePageAndLateOnesToo) {
    const auto reply = send({{"fire", "frmTest.cmdExit"}});
    EXPECT_EQ(reply["events"].back(), json({{"ended", "Good bye"}}));
    EXPECT_TRUE(page->closed());
    EXPECT_TRUE(eventually([&] { return session.over(); }));
    const auto late = std::make_shared<TestPage>();
    session.attach(late);
    EXPECT_EQ(late->next()["events"].back(), json({{"ended", "Good bye"}}));
    EXPECT_TRUE(late->closed());
}

TEST_F(SessionTest, ReportsCarryTheirNumberAndAreKept) {
    EXPECT_EQ(send({{"fire", "frmTest.cmdReport"}})["events"][0]["report"]["id"], 1);
    ASSERT_NE(session.reports().find(1), nullptr);
    EXPECT_EQ(session.reports().find(1)->hospital, "General & Co");
    EXPECT_EQ(session.reports().find(2), nullptr);
}

TEST(Log, WhatAnybodyMayCauseIsWrittenSoOftenASecond) {
    web::setLogLevel(web::Level::warning);
    std::string all;
    for (int turn = 0; turn < 300 && all.find("unlogged=") == std::string::npos; ++turn) {
        testing::internal::CaptureStderr();
        for (int i = 0; i < 100; ++i) web::logOften(web::Level::warning, "request-refused", {{"status", "400"}});
        all = testing::internal::GetCapturedStderr();
        EXPECT_LE(std::count(all.begin(), all.end(), '\n'), 40) << "twenty a second, and a second may end meanwhile";
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_NE(all.find(" unlogged="), std::string::npos);
    testing::internal::CaptureStderr();
    for (int i = 0; i < 100; ++i) web::logOften(web::Level::warning, "request-refused");
    web::logOften(web::Level::warning, "sign-in-refused");
    EXPECT_NE(testing::internal::GetCapturedStderr().find("sign-in-refused"), std::string::npos) << "no flood hides it";
    web::setLogLevel(web::Level::off);
}

class Sessions : public testing::Test {
protected:
    Sessions() { web::setLogLevel(web::Level::off); }
    web::Sessions::Opened open(const char* user) { return sessions.open({user, "127.0.0.1"}); }
    std::shared_ptr<TestPage> attachTo(const std::string& token) {
        auto page = std::make_shared<TestPage>();
        sessions.find(token)->attach(page);
        return page;
    }
    web::Config config;
    web::Sessions sessions{config, &webtest::makeTestSeat};
};

using Result = web::Sessions::Opened::Result;

TEST_F(Sessions, OneUserHasSoManyAndTheOldestWhosePageIsAwayGoesFirst) {
    config.mostSessionsOfUser = 2;
    const std::string first = open("nurse").token;
    const auto firstPage = attachTo(first);
    const std::string second = open("nurse").token;
    const auto secondPage = attachTo(second);
    EXPECT_EQ(open("nurse").result, Result::userFull) << "nobody's page is taken from her";
    EXPECT_EQ(open("other").result, Result::open);
    sessions.find(second)->detach(*secondPage);
    sessions.find(first)->detach(*firstPage);
    EXPECT_EQ(open("nurse").result, Result::open);
    EXPECT_EQ(sessions.find(first), nullptr);
    EXPECT_NE(sessions.find(second), nullptr);
    for (int i = 0; i < 20; ++i) EXPECT_EQ(open("nurse").result, Result::open);
    EXPECT_EQ(sessions.users(), (std::set<std::string>{"nurse", "other"}));
    sessions.closeOf("nurse", "Elsewhere");
    EXPECT_EQ(sessions.users(), std::set<std::string>{"other"});
    sessions.closeAll({});
}

TEST_F(Sessions, OnesWithoutAPageExpireAndOneThatCannotStartEnds) {
    config.sessionWaitMinutes = 0;
    config.mostSessions = 2;
    const std::string token = open("nurse").token;
    const auto page = attachTo(token);
    page->next();
    sessions.tend();
    EXPECT_NE(sessions.find(token), nullptr) << "a session with a page stays";
    EXPECT_NE(open("nurse").token, token);
    EXPECT_EQ(open("nurse").token, "") << "no more than the host may have";

    sessions.find(token)->detach(*page);
    EXPECT_TRUE(eventually([&] {
        sessions.tend();
        return sessions.count() == 0;
    }));
    EXPECT_EQ(sessions.find(token), nullptr);

    config.sessionWaitMinutes = 10;
    const std::string broken = open("nobody").token;
    EXPECT_TRUE(eventually([&] { return sessions.find(broken) == nullptr; }));
    const std::string other = open("nurse").token;
    EXPECT_NE(sessions.find(other), nullptr);
    sessions.closeAll("The end");
    EXPECT_EQ(sessions.find(other), nullptr);
}

}  // namespace
