#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "tests/ui/fixture.h"

namespace {

using test::json;
using test::Talk;
using namespace std::chrono_literals;

std::string events(Talk& talk) {
    talk.conversation.flush();
    std::string all;
    for (const json& reply : std::exchange(talk.replies, {}))
        for (const json& event : reply["events"]) all += event.dump();
    return all;
}

TEST(Desktop, aScreenThatIsShownAgainIsHiddenFirstAndKeepsItsContent) {
    Talk talk;
    talk.ward().txtName.setText("ADA");
    talk.conversation.flush();
    talk.replies.clear();
    talk.desktop.show("FRMWARD");
    EXPECT_EQ(events(talk), R"({"hidden":"frmWard"}{"modal":false,"opened":"frmWard"})");
    EXPECT_EQ(talk.ward().txtName.text(), "ADA");
    talk.desktop.hide("frmWard");
    EXPECT_EQ(talk.desktop.activeChild(), nullptr);
    talk.ward().lblInfo.setCaption("while hidden");
    talk.desktop.focus(talk.ward().txtName);
    EXPECT_EQ(events(talk), R"({"hidden":"frmWard"}{"changed":{"frmWard.lblInfo":{"caption":"while hidden"}}})");
    talk.desktop.show("frmWard");
    EXPECT_EQ(events(talk), R"({"modal":false,"opened":"frmWard"}{"focus":"frmWard.txtName"})");
    talk.desktop.show("frmWard");
    EXPECT_EQ(events(talk), R"({"hidden":"frmWard"}{"modal":false,"opened":"frmWard"})");
}

TEST(Desktop, theActiveChildIsTheLastOneThatWasWorkedAndIsStillOpen) {
    Talk talk;
    talk.desktop.show("frmModal");
    EXPECT_EQ(talk.desktop.activeChild()->name(), "frmModal");
    talk.desktop.fire("frmWard.Activate", false);
    EXPECT_EQ(talk.desktop.activeChild()->name(), "frmWard");
    talk.desktop.hide("frmWard");
    EXPECT_EQ(talk.desktop.activeChild()->name(), "frmModal");
    EXPECT_TRUE(talk.desktop.unload("frmModal"));
    EXPECT_EQ(talk.desktop.activeChild(), nullptr);
}

TEST(Desktop, aNewScreenOfTheSameNameKnowsNothingOfWhatWasTypedInTheOldOne) {
    Talk talk;
    talk.say({R"({"set":"frmWard.txtEcho","to":"old"})", R"({"set":"frmWard.mayClose","to":true})",
              R"({"fire":"frmWard.Unload"})"});
    talk.desktop.show("frmWard");
    events(talk);
    talk.ward().txtEcho.setText("old");
    EXPECT_EQ(events(talk), R"({"changed":{"frmWard.txtEcho":{"text":"old"}}})");
}

TEST(Desktop, aPageIsToldTheWholeStateWithAnOpenedScreen) {
    Talk talk;
    talk.desktop.setServesPage(true);
    talk.desktop.show("frmModal");
    EXPECT_NE(events(talk).find(R"("state":{"caption":"Modal")"), std::string::npos);
    const json snapshot = talk.desktop.snapshot();
    EXPECT_EQ(snapshot["active"], "frmModal");
    EXPECT_EQ(snapshot["screens"][0]["name"], "frmWard");
    EXPECT_EQ(snapshot["screens"][0]["controls"]["cmdInside"]["holder"], "panel");
    EXPECT_EQ(snapshot["screens"][0]["controls"]["txtTab"]["tab"], json::parse(R"(["tabs",1])"));
}

TEST(Desktop, acknowledgedBoxesReturnAtOnceAndTheirGuardSeesThemFirst) {
    Talk talk;
    int seen = 0;
    talk.desktop.setBeforeBox([&](const ui::Desktop::Question&) { ++seen; });
    talk.desktop.setAcknowledges(true);
    bool rolledBack = false;
    talk.desktop.setOnFailure([&] { rolledBack = seen == 0; });
    const json reply = talk.say(R"({"fire":"frmWard.cmdFail"})");
    EXPECT_EQ(reply["events"][0]["message"]["text"], "It broke");
    EXPECT_EQ(reply["waiting"], nullptr);
    EXPECT_EQ(seen, 1);
    EXPECT_TRUE(rolledBack);
}

TEST(Desktop, aSessionEndsWhenItsLastBoxWasRead) {
    Talk talk;
    const auto replies = talk.say(std::deque<std::string>{R"({"fire":"frmWard.cmdTellAndEnd"})", R"({"answer":"ok"})"});
    ASSERT_EQ(replies.size(), 1U);
    EXPECT_EQ(replies[0]["waiting"]["text"], "Last");
    EXPECT_EQ(talk.reason, "good bye");
}

TEST(Desktop, aTimersBoxCoversNoQuestionAndShowsOnceHoweverOftenItComes) {
    Talk talk;
    std::vector<std::string> shown;
    talk.loop.setBeforeWait([&] {
        shown.push_back(talk.desktop.waiting()->text);
        const bool asked = shown.back() == "Sure?";
        if (shown.size() < 3)
            talk.loop.post([&] { talk.desktop.message("News"); });
        else
            talk.loop.post([&, asked] { talk.desktop.answer(asked ? "no" : "ok"); });
    });
    EXPECT_FALSE(talk.desktop.askYesNo("Sure?", "Check"));
    talk.loop.runUntil([&] { return talk.desktop.waiting() == nullptr; });
    EXPECT_EQ(shown, (std::vector<std::string>{"Sure?", "Sure?", "Sure?", "News"}));
}

TEST(Desktop, aUserReadsSentencesAndTheLogHearsOfTheErrorItself) {
    Talk talk;
    std::string heard;
    talk.desktop.setOnError([&](const std::exception& error) { heard = error.what(); });
    EXPECT_EQ(talk.desktop.describe(db::Error(db::Category::other, "It broke")), "It broke");
    const std::filesystem::filesystem_error full("copy", "/secret/place",
                                                 std::make_error_code(std::errc::no_space_on_device));
    EXPECT_EQ(talk.desktop.describe(full), "A file cannot be read or written: No space left on device.");
    EXPECT_EQ(heard, full.what());
    EXPECT_EQ(talk.desktop.describe(std::bad_alloc()).find("bad_alloc"), std::string::npos);
    EXPECT_EQ(talk.desktop.describe(std::runtime_error("vector::at")).find("vector"), std::string::npos);
}

TEST(EventLoop, timersTickByHandOrByTheLoopAndOnlyWhileTheyRun) {
    Talk talk;
    talk.desktop.tick("frmWard.tmrWatch");
    talk.ward().tmrWatch.setRunning(false);
    talk.desktop.tick("frmWard.tmrWatch");
    EXPECT_EQ(talk.ward().ticks, 1);
    EXPECT_THROW(talk.desktop.tick("frmWard.txtName"), ui::Refused);
    talk.ward().tmrWatch.setRunning(true);
    EXPECT_FALSE(talk.loop.runFor(20ms, [] { return false; }));
    EXPECT_EQ(talk.ward().ticks, 1) << "a script's timers stand still";
    talk.loop.setTimersRun(true);
    talk.loop.setBeforeWait({});
    EXPECT_TRUE(talk.loop.runFor(10s, [&] { return talk.ward().ticks >= 4; }));
}

TEST(EventLoop, aTimerWhoseJobShowsABoxTicksNoSecondTimeMeanwhile) {
    Talk talk;
    int boxes = 0;
    talk.loop.setTimersRun(true);
    talk.loop.setBeforeWait({});
    talk.ward().tmrWatch.on(ui::Event::timer, [&] {
        ++boxes;
        talk.desktop.message("Look");
        talk.ward().tmrWatch.setRunning(false);
    });
    std::thread nurse([&] {
        std::this_thread::sleep_for(40ms);
        talk.loop.post([&] { talk.desktop.answer("ok"); });
    });
    talk.loop.runUntil([&] { return boxes > 0 && !talk.desktop.waiting(); });
    nurse.join();
    EXPECT_EQ(boxes, 1);
    EXPECT_FALSE(talk.ward().tmrWatch.running());
}

TEST(EventLoop, tasksOfOtherThreadsRunInOrderOnTheLoopsThread) {
    ui::EventLoop loop;
    const auto self = std::this_thread::get_id();
    std::vector<int> order;
    std::thread other([&] {
        for (int i = 0; i < 1000; ++i)
            loop.post([&order, self, i] {
                if (std::this_thread::get_id() == self) order.push_back(i);
            });
    });
    loop.runUntil([&] { return order.size() == 1000; });
    other.join();
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

TEST(EventLoop, aWaitWithADeadlineLeavesTheScriptUnread) {
    Talk talk;
    talk.lines = {R"({"fire":"frmWard.cmdInside"})"};
    EXPECT_FALSE(talk.loop.runFor(5ms, [] { return false; }));
    EXPECT_EQ(talk.lines.size(), 1U);
}

}  // namespace
