#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "tests/ui/fixture.h"

namespace {

using test::json;
using namespace std::chrono_literals;

class Desktop : public test::Talk {
protected:
    /// The events since the last time, as they went over the line.
    std::string told() {
        conversation.flush();
        std::string all;
        for (const json& reply : std::exchange(sent, {}))
            for (const json& event : reply["events"]) all += event.dump();
        return all;
    }
};

TEST_F(Desktop, aScreenThatIsShownAgainIsHiddenFirstAndKeepsItsContent) {
    ward().txtName.setText("ADA");
    conversation.flush();
    sent.clear();
    desktop.show("FRMWARD");
    EXPECT_EQ(told(), R"({"hidden":"frmWard"}{"modal":false,"opened":"frmWard"})");
    EXPECT_EQ(ward().txtName.text(), "ADA");
    desktop.hide("frmWard");
    EXPECT_EQ(desktop.activeChild(), nullptr);
    ward().lblInfo.setCaption("while hidden");
    desktop.focus(ward().txtName);
    EXPECT_EQ(told(), R"({"hidden":"frmWard"}{"changed":{"frmWard.lblInfo":{"caption":"while hidden"}}})");
    desktop.show("frmWard");
    EXPECT_EQ(told(), R"({"modal":false,"opened":"frmWard"}{"focus":"frmWard.txtName"})");
    desktop.show("frmWard");
    EXPECT_EQ(told(), R"({"hidden":"frmWard"}{"modal":false,"opened":"frmWard"})");
}

TEST_F(Desktop, theActiveChildIsTheLastOneThatWasWorkedAndIsStillOpen) {
    desktop.show("frmModal");
    EXPECT_EQ(desktop.activeChild()->name(), "frmModal");
    desktop.fire("frmWard.Activate", false);
    EXPECT_EQ(desktop.activeChild()->name(), "frmWard");
    desktop.hide("frmWard");
    EXPECT_EQ(desktop.activeChild()->name(), "frmModal");
    EXPECT_TRUE(desktop.unload("frmModal"));
    EXPECT_EQ(desktop.activeChild(), nullptr);
}

TEST_F(Desktop, aNewScreenOfTheSameNameKnowsNothingOfWhatWasTypedInTheOldOne) {
    say({R"({"set":"frmWard.txtEcho","to":"old"})", R"({"set":"frmWard.mayClose","to":true})",
         R"({"fire":"frmWard.Unload"})"});
    desktop.show("frmWard");
    told();
    ward().txtEcho.setText("old");
    EXPECT_EQ(told(), R"({"changed":{"frmWard.txtEcho":{"text":"old"}}})");
}

TEST_F(Desktop, aPageIsToldTheWholeStateWithAnOpenedScreen) {
    desktop.setServesPage(true);
    desktop.show("frmModal");
    EXPECT_NE(told().find(R"("state":{"caption":"Modal")"), std::string::npos);
    const json snapshot = desktop.snapshot();
    EXPECT_EQ(snapshot["active"], "frmModal");
    EXPECT_EQ(snapshot["screens"][0]["name"], "frmWard");
    EXPECT_EQ(snapshot["screens"][0]["controls"]["cmdInside"]["holder"], "panel");
    EXPECT_EQ(snapshot["screens"][0]["controls"]["txtTab"]["tab"], json::parse(R"(["tabs",1])"));
}

TEST_F(Desktop, acknowledgedBoxesReturnAtOnceAndTheirGuardSeesThemFirst) {
    int seen = 0;
    desktop.setBeforeBox([&](const ui::Desktop::Question&) { ++seen; });
    desktop.setAcknowledges(true);
    bool rolledBack = false;
    desktop.setOnFailure([&] { rolledBack = seen == 0; });
    const json reply = say(R"({"fire":"frmWard.cmdFail"})");
    EXPECT_EQ(reply["events"][0]["message"]["text"], "It broke");
    EXPECT_EQ(reply["waiting"], nullptr);
    EXPECT_EQ(seen, 1);
    EXPECT_TRUE(rolledBack);
}

TEST_F(Desktop, aSessionEndsWhenItsLastBoxWasRead) {
    const auto replies = say(std::deque<std::string>{R"({"fire":"frmWard.cmdTellAndEnd"})", R"({"answer":"ok"})"});
    ASSERT_EQ(replies.size(), 1U);
    EXPECT_EQ(replies[0]["waiting"]["text"], "Last");
    EXPECT_EQ(reason, "good bye");
}

TEST_F(Desktop, aTimersBoxCoversNoQuestionAndShowsOnceHoweverOftenItComes) {
    std::vector<std::string> shown;
    loop.setBeforeWait([&] {
        shown.push_back(desktop.waiting()->text);
        const bool asked = shown.back() == "Sure?";
        if (shown.size() < 3)
            loop.post([&] { desktop.message("News"); });
        else
            loop.post([&, asked] { desktop.answer(asked ? "no" : "ok"); });
    });
    EXPECT_FALSE(desktop.askYesNo("Sure?", "Check"));
    loop.runUntil([&] { return desktop.waiting() == nullptr; });
    EXPECT_EQ(shown, (std::vector<std::string>{"Sure?", "Sure?", "Sure?", "News"}));
}

TEST_F(Desktop, aUserReadsSentencesAndTheLogHearsOfTheErrorItself) {
    std::string heard;
    desktop.setOnError([&](const std::exception& error) { heard = error.what(); });
    EXPECT_EQ(desktop.describe(db::Error(db::Category::other, "It broke")), "It broke");
    const std::filesystem::filesystem_error full("copy", "/secret/place",
                                                 std::make_error_code(std::errc::no_space_on_device));
    EXPECT_EQ(desktop.describe(full), "A file cannot be read or written: No space left on device.");
    EXPECT_EQ(heard, full.what());
    EXPECT_EQ(desktop.describe(std::bad_alloc()).find("bad_alloc"), std::string::npos);
    EXPECT_EQ(desktop.describe(std::runtime_error("vector::at")).find("vector"), std::string::npos);
}

using EventLoop = test::Talk;

TEST_F(EventLoop, timersTickByHandOrByTheLoopAndOnlyWhileTheyRun) {
    desktop.tick("frmWard.tmrWatch");
    ward().tmrWatch.setRunning(false);
    desktop.tick("frmWard.tmrWatch");
    EXPECT_EQ(ward().ticks, 1);
    EXPECT_THROW(desktop.tick("frmWard.txtName"), ui::Refused);
    ward().tmrWatch.setRunning(true);
    EXPECT_FALSE(loop.runFor(20ms, [] { return false; }));
    EXPECT_EQ(ward().ticks, 1) << "a script's timers stand still";
    loop.setTimersRun(true);
    loop.setBeforeWait({});
    EXPECT_TRUE(loop.runFor(10s, [&] { return ward().ticks >= 4; }));
}

TEST_F(EventLoop, aTimerWhoseJobShowsABoxTicksNoSecondTimeMeanwhile) {
    int boxes = 0;
    loop.setTimersRun(true);
    loop.setBeforeWait({});
    ward().tmrWatch.on(ui::Event::timer, [&] {
        ++boxes;
        desktop.message("Look");
        ward().tmrWatch.setRunning(false);
    });
    std::thread nurse([&] {
        std::this_thread::sleep_for(40ms);
        loop.post([&] { desktop.answer("ok"); });
    });
    loop.runUntil([&] { return boxes > 0 && !desktop.waiting(); });
    nurse.join();
    EXPECT_EQ(boxes, 1);
    EXPECT_FALSE(ward().tmrWatch.running());
}

TEST_F(EventLoop, tasksOfOtherThreadsRunInOrderOnTheLoopsThread) {
    loop.setBeforeWait({});
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

TEST_F(EventLoop, aWaitWithADeadlineLeavesTheScriptUnread) {
    lines = {R"({"fire":"frmWard.cmdInside"})"};
    EXPECT_FALSE(loop.runFor(5ms, [] { return false; }));
    EXPECT_EQ(lines.size(), 1U);
}

}  // namespace
