#include <gtest/gtest.h>

#include "tests/ui/fixture.h"

namespace {

using test::json;
using test::Talk;

struct Transcript {
    const char* name;
    std::vector<std::pair<std::string, std::string>> turns;  ///< a request, and its reply without the number
};

class Transcripts : public testing::TestWithParam<Transcript> {};

TEST_P(Transcripts, read) {
    Talk talk;
    std::deque<std::string> requests;
    for (const auto& [request, reply] : GetParam().turns) requests.push_back(request);
    const auto replies = talk.say(requests);
    ASSERT_EQ(replies.size(), requests.size());
    for (std::size_t i = 0; i < replies.size(); ++i) {
        json expected = json::parse(GetParam().turns[i].second);
        expected["reply"] = i + 1;
        if (!expected.contains("waiting")) expected["waiting"] = nullptr;
        EXPECT_EQ(replies[i], expected) << "after " << requests[i];
    }
}

const Transcript transcripts[] = {
    {"A question inside a question's answer",
     {{R"({"fire":"frmWard.cmdAsk"})",
       R"({"events":[{"ask":{"kind":"yesno","text":"Sure?","title":"Check"}}],
           "waiting":{"kind":"yesno","text":"Sure?","title":"Check"}})"},
      {R"({"fire":"frmWard.cmdInside"})",
       R"({"events":[{"error":"the open question has to be answered first"}],
           "waiting":{"kind":"yesno","text":"Sure?","title":"Check"}})"},
      {R"({"answer":"perhaps"})",
       R"({"events":[{"error":"the open question takes \"yes\" or \"no\""}],
           "waiting":{"kind":"yesno","text":"Sure?","title":"Check"}})"},
      {R"({"answer":"yes"})",
       R"({"events":[{"ask":{"kind":"input","text":"Why?","title":"Reason","default":"none"}}],
           "waiting":{"kind":"input","text":"Why?","title":"Reason","default":"none"}})"},
      {R"({"answer":{"text":"cancel"}})",
       R"({"events":[{"changed":{"frmWard.lblInfo":{"caption":"because cancel"}}}]})"},
      {R"({"answer":"yes"})", R"({"events":[{"error":"no question is open"}]})"}}},
    {"An input box that is cancelled",
     {{R"({"fire":"frmWard.cmdAsk"})",
       R"({"events":[{"ask":{"kind":"yesno","text":"Sure?","title":"Check"}}],
           "waiting":{"kind":"yesno","text":"Sure?","title":"Check"}})"},
      {R"({"answer":"yes"})",
       R"({"events":[{"ask":{"kind":"input","text":"Why?","title":"Reason","default":"none"}}],
           "waiting":{"kind":"input","text":"Why?","title":"Reason","default":"none"}})"},
      {R"({"answer":"cancel"})", R"({"events":[{"changed":{"frmWard.lblInfo":{"caption":"no reason"}}}]})"}}},
    {"A box that only tells, and what the operation does behind it, in order",
     {{R"({"fire":"frmWard.cmdTell"})",
       R"({"events":[{"changed":{"frmWard.lblInfo":{"caption":"before"}}},
                     {"message":{"text":"Said","title":"Title","icon":"warning"}},
                     {"changed":{"frmWard.tabs":{"page":1}}},{"focus":"frmWard.txtTab"}],
           "waiting":{"kind":"message","text":"Said","title":"Title","icon":"warning"}})"},
      {R"({"fire":"frmWard.cmdInside"})",
       R"({"events":[{"error":"the open question has to be answered first"}],
           "waiting":{"kind":"message","text":"Said","title":"Title","icon":"warning"}})"},
      {R"({"answer":"ok"})", R"({"events":[]})"}}},
    {"Boxes that tell come one after another, and a question waits for them",
     {{R"({"fire":"frmWard.cmdTellAndAsk"})",
       R"({"events":[{"message":{"text":"One","title":"Program","icon":"none"}},
                     {"message":{"text":"Two","title":"Program","icon":"none"}}],
           "waiting":{"kind":"message","text":"One","title":"Program","icon":"none"}})"},
      {R"({"answer":"yes"})",
       R"({"events":[{"error":"the open question takes \"ok\""}],
           "waiting":{"kind":"message","text":"One","title":"Program","icon":"none"}})"},
      {R"({"answer":"ok"})",
       R"({"events":[],"waiting":{"kind":"message","text":"Two","title":"Program","icon":"none"}})"},
      {R"({"answer":"ok"})",
       R"({"events":[{"ask":{"kind":"yesno","text":"Sure?","title":"Check"}}],
           "waiting":{"kind":"yesno","text":"Sure?","title":"Check"}})"},
      {R"({"answer":"no"})", R"({"events":[{"changed":{"frmWard.lblInfo":{"caption":"no reason"}}}]})"}}},
    {"What work shows before its end comes with a script's one reply",
     {{R"({"fire":"frmWard.cmdWork"})",
       R"({"events":[{"changed":{"frmWard.lblInfo":{"caption":"working"}}},
                     {"changed":{"frmWard.lblInfo":{"caption":"done"}}}]})"}}},
    {"A modal screen keeps the others waiting and its caller goes on when it is hidden",
     {{R"({"fire":"frmWard.cmdModal"})", R"({"events":[{"opened":"frmModal","modal":true}]})"},
      {R"({"fire":"frmWard.cmdInside"})", R"({"events":[{"error":"frmWard has to wait for frmModal"}]})"},
      {R"({"fire":"frmModal.cmdHide"})",
       R"({"events":[{"hidden":"frmModal"},{"changed":{"frmWard.lblInfo":{"caption":"back"}}}]})"},
      {R"({"fire":"frmModal.cmdHide"})", R"({"events":[{"error":"frmModal is hidden"}]})"}}},
    {"A modal screen that closes itself in its own operation",
     {{R"({"fire":"frmWard.cmdModal"})", R"({"events":[{"opened":"frmModal","modal":true}]})"},
      {R"({"fire":"frmModal.cmdClose"})",
       R"({"events":[{"closed":"frmModal"},{"changed":{"frmWard.lblInfo":{"caption":"back"}}}]})"},
      {R"({"get":"frmModal"})", R"({"events":[{"error":"frmModal is not open"}]})"}}},
    {"Closing asks, and a No keeps the screen",
     {{R"({"fire":"frmWard.Unload"})",
       R"({"events":[{"ask":{"kind":"yesno","text":"Really?","title":"Close"}}],
           "waiting":{"kind":"yesno","text":"Really?","title":"Close"}})"},
      {R"({"answer":"no"})", R"({"events":[]})"},
      {R"({"set":"frmWard.mayClose","to":true})", R"({"events":[]})"},
      {R"({"fire":"frmWard.Unload"})", R"({"events":[{"closed":"frmWard"}]})"}}},
    {"An error that no trap takes, and a page that is not there yet",
     {{R"({"fire":"frmWard.cmdFail"})",
       R"({"events":[{"message":{"text":"It broke","title":"Program","icon":"stop"}}],
           "waiting":{"kind":"message","text":"It broke","title":"Program","icon":"stop"}})"},
      {R"({"answer":"ok"})", R"({"events":[]})"},
      {R"({"fire":"frmWard.cmdMissing"})",
       R"({"events":[{"message":{"text":"This page is not there yet: Nowhere","title":"Program",
                                 "icon":"information"}}],
           "waiting":{"kind":"message","text":"This page is not there yet: Nowhere","title":"Program",
                      "icon":"information"}})"},
      {R"({"answer":"ok"})", R"({"events":[]})"}}},
    {"What a client set comes back only where it ended up different",
     {{R"({"set":"frmWard.txtTemp","to":"36.8"})", R"({"events":[]})"},
      {R"({"set":"frmWard.txtTemp","to":"3a6.8.1"})",
       R"({"events":[{"changed":{"frmWard.txtTemp":{"text":"36.81"}}}]})"},
      {R"({"set":"frmWard.txtTemp","to":"36.81x"})",
       R"({"events":[{"changed":{"frmWard.txtTemp":{"text":"36.81"}}}]})"},
      {R"({"set":"frmWard.txtName","to":"münchen"})",
       R"({"events":[{"changed":{"frmWard.txtName":{"text":"MÜNCH"}}}]})"},
      {R"({"set":"frmWard.txtEcho","to":"clear me"})", R"({"events":[{"changed":{"frmWard.txtEcho":{"text":""}}}]})"},
      {R"({"set":"frmWard.cboWard","to":"Female ward"})",
       R"({"events":[{"changed":{"frmWard.cboWard":{"index":1},"frmWard.lblInfo":{"caption":"picked F"}}}]})"},
      {R"({"set":"frmWard.optA","to":true})", R"({"events":[]})"},
      {R"({"set":"frmWard.optB","to":true})", R"({"events":[{"changed":{"frmWard.optA":{"checked":false}}}]})"},
      {R"({"set":"frmWard.dtVisit","to":"2026-11-24"})", R"({"events":[]})"},
      {R"({"set":"frmWard.dtVisit","to":"24-Nov-2026"})",
       R"({"events":[{"changed":{"frmWard.dtVisit":{"date":"2026-11-24"}}}]})"},
      {R"({"set":"frmWard.dtVisit","to":null})", R"({"events":[]})"},
      {R"({"set":"frmWard.tabs","to":{"page":1}})", R"({"events":[]})"}}},
};
INSTANTIATE_TEST_SUITE_P(All, Transcripts, testing::ValuesIn(transcripts),
                         [](const auto& each) { return "n" + std::to_string(each.index); });

struct Wrong {
    const char* request;
    const char* error;
};

TEST(Conversation, refusesWhatIsWrongWithOneReplyAndRunsNothing) {
    const std::string longest(ui::longestRequest + 1, ' ');
    const std::string deep = R"({"answer":)" + std::string(100000, '[');
    std::string many = R"({"answer":[0)";
    for (int i = 0; i < 2000; ++i) many += ",0";
    many += "]}";
    const Wrong wrongs[] = {
        {"", "the request is no JSON in UTF-8"},
        {"{\"fire\":\"frmWard.cmdInside\"", "the request is no JSON in UTF-8"},
        {"{\"fire\":\"frm\xFF\"}", "the request is no JSON in UTF-8"},
        {"[1]", "the request is no object"},
        {longest.c_str(), "the request is longer than 1 MiB"},
        {deep.c_str(), "the request is nested too deep"},
        {"{}", "the request is unknown"},
        {R"({"query":"select 1"})", "the request is unknown"},
        {R"({"fire":"frmWard.cmdInside","get":"frmWard"})", "two requests in one: fire and get"},
        {R"({"fire":"frmWard.cmdInside","to":1})", "fire has a key that it does not take"},
        {R"({"fire":7})", "fire takes a text"},
        {R"({"fire":"frmWard.cmdInside","force":true})", "fire has a key that it does not take"},
        {R"({"set":"frmWard.txtName","to":"x","force":true})", "set has a key that it does not take"},
        {many.c_str(), "the request has too many parts"},
        {R"({"fire":"frmWard"})", "frmWard is a screen: name an event of it"},
        {R"({"fire":"frmNone.cmd"})", "frmNone is not open"},
        {R"({"fire":"frmWard.cmdNone"})", "frmWard has no control cmdNone"},
        {R"({"fire":"frmWard.cmdInside.DblClick"})", "frmWard.cmdInside has no event DblClick"},
        {R"({"fire":"frmWard.tmrWatch"})", "frmWard.tmrWatch is a timer: use tick"},
        {R"({"set":"frmWard.txtName"})", "set takes a content under to"},
        {R"({"set":"frmWard.txtName","to":7})", "frmWard.txtName takes a text"},
        {R"({"set":"frmWard","to":"x"})", "frmWard is no control"},
        {R"({"set":"frmWard.lblInfo","to":"x"})", "frmWard.lblInfo takes nothing from a user"},
        {R"({"set":"frmWard.cboWard","to":"Attic"})", "frmWard.cboWard takes an entry of its list only"},
        {R"({"set":"frmWard.grdData","to":{"row":0}})", "frmWard.grdData takes {\"row\":N} of its 0 rows"},
        {R"({"set":"frmWard.dtVisit","to":"32-Nov-2026"})", "frmWard.dtVisit takes a date or null"},
        {R"({"set":"frmWard.tabs","to":{"page":2}})", "frmWard.tabs takes {\"page\":N} of its 2 pages"},
        {R"({"get":"frmWard.Unload"})", "frmWard.Unload is no screen or control"},
    };
    Talk talk;
    const json before = talk.desktop.snapshot();
    for (const Wrong& wrong : wrongs) {
        const json reply = talk.say(wrong.request);
        EXPECT_EQ(reply["events"], json::array({{{"error", wrong.error}}}));
        EXPECT_EQ(reply["waiting"], nullptr);
    }
    EXPECT_EQ(talk.desktop.snapshot(), before);
    EXPECT_EQ(talk.conversation.received(), std::size(wrongs));
}

TEST(Conversation, hiddenAndDisabledControlsAreOutOfReach) {
    Talk talk;
    const auto fires = [&] { return talk.say(R"({"fire":"frmWard.cmdInside"})")["events"].dump(); };
    const std::string refused = R"([{"error":"frmWard.cmdInside is hidden or disabled"}])";
    talk.ward().panel.setVisible(false);
    talk.conversation.flush();
    EXPECT_EQ(fires(), refused);
    talk.ward().panel.setVisible(true);
    talk.ward().cmdInside.setEnabled(false);
    talk.conversation.flush();
    EXPECT_EQ(fires(), refused);
    talk.desktop.hide("frmWard");
    talk.conversation.flush();
    EXPECT_EQ(fires(), R"([{"error":"frmWard is hidden"}])");
}

TEST(Conversation, pushesWhatBelongsToNoRequestAndNothingElse) {
    Talk talk;
    talk.conversation.flush();
    EXPECT_TRUE(talk.replies.empty());
    talk.ward().lblInfo.setCaption("news");
    talk.ward().setCaption("Ward 2");
    talk.ward().lblInfo.setCaption("later news");
    talk.conversation.flush();
    ASSERT_EQ(talk.replies.size(), 1U);
    EXPECT_EQ(talk.replies[0], json::parse(R"({"reply":null,"waiting":null,"events":[
        {"changed":{"frmWard":{"caption":"Ward 2"},"frmWard.lblInfo":{"caption":"later news"}}}]})"));
}

TEST(Conversation, tellsWhoLooksOnOfWorkBeforeItsEnd) {
    Talk talk;
    talk.desktop.setOnProgress([&] { talk.conversation.push(); });
    const auto replies =
        talk.say(std::deque<std::string>{R"({"fire":"frmWard.cmdWork"})", R"({"fire":"frmWard.cmdInside"})"});
    ASSERT_EQ(replies.size(), 3U);
    EXPECT_EQ(replies[0], json::parse(R"({"reply":null,"during":1,"waiting":null,"events":[
        {"changed":{"frmWard.lblInfo":{"caption":"working"}}}]})"));
    EXPECT_EQ(replies[1], json::parse(R"({"reply":1,"waiting":null,"events":[
        {"changed":{"frmWard.lblInfo":{"caption":"done"}}}]})"));
    talk.ward().lblInfo.setCaption("by itself");
    talk.desktop.showProgress();
    ASSERT_EQ(talk.replies.size(), 1U);
    EXPECT_FALSE(talk.replies[0].contains("during")) << "no request's work";
    talk.desktop.showProgress();
    EXPECT_EQ(talk.replies.size(), 1U) << "nothing new";
}

TEST(Conversation, aPageHearsOfABoxOnce) {
    Talk talk;
    talk.desktop.setServesPage(true);
    const auto replies =
        talk.say({R"({"fire":"frmWard.cmdTell"})", R"({"answer":"ok"})", R"({"fire":"frmWard.cmdAsk"})"});
    EXPECT_EQ(replies[0]["waiting"]["text"], "Said");
    EXPECT_EQ(replies[0]["events"], json::parse(R"([{"changed":{"frmWard.lblInfo":{"caption":"before"}}},
        {"changed":{"frmWard.tabs":{"page":1}}},{"focus":"frmWard.txtTab"}])"));
    EXPECT_EQ(replies[2]["waiting"]["text"], "Sure?");
    EXPECT_EQ(replies[2]["events"], json::array());
}

TEST(Conversation, repliesBeforeItTakesTheNextRequestAndTellsTheEnd) {
    Talk talk;
    talk.conversation.receive(R"({"fire":"frmWard.cmdInside"})");
    talk.conversation.receive(R"({"get":"frmWard.lblInfo"})");
    ASSERT_EQ(talk.replies.size(), 1U);
    EXPECT_EQ(talk.replies[0]["reply"], 1);
    EXPECT_THROW(talk.conversation.receive(R"({"fire":"frmWard.cmdEnd"})"), ui::SessionEnded);
    talk.conversation.ended("good bye");
    EXPECT_EQ(talk.replies[1]["state"]["caption"], "inside");
    EXPECT_EQ(talk.replies[2], json::parse(R"({"reply":3,"waiting":null,"events":[{"ended":"good bye"}]})"));
}

}  // namespace
