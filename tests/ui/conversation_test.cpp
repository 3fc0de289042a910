#include <gtest/gtest.h>

#include "tests/ui/fixture.h"

namespace {

using test::json;

/// A request, and its reply without the number.
struct Turn {
    std::string request;
    json events;
    json waiting = nullptr;
};

Turn tells(const std::string& request, const char* events, const json& waiting = nullptr) {
    return {request, json::parse(events), waiting};
}
Turn asks(const std::string& request, const json& question) {
    return {request, {{{"ask", question}}}, question};
}
Turn refuses(const std::string& request, const char* error, const json& waiting = nullptr) {
    return {request, {{{"error", error}}}, waiting};
}

json box(const char* text, const char* title = "Program", const char* icon = "none") {
    return {{"text", text}, {"title", title}, {"icon", icon}};
}
/// The same as the question that waits.
json waitsFor(json box) {
    box["kind"] = "message";
    return box;
}
/// A request after which one box is all that there is to tell.
Turn shows(const std::string& request, const json& box) {
    return {request, {{{"message", box}}}, waitsFor(box)};
}

const json sure{{"kind", "yesno"}, {"text", "Sure?"}, {"title", "Check"}};
const json really{{"kind", "yesno"}, {"text", "Really?"}, {"title", "Close"}};
const json why{{"kind", "input"}, {"text", "Why?"}, {"title", "Reason"}, {"default", "none"}};

const char* const open = "the open question has to be answered first";

struct Transcript {
    const char* name;
    std::vector<Turn> turns;
};

class Conversation : public test::Talk {};

class Transcripts : public Conversation, public testing::WithParamInterface<Transcript> {};

TEST_P(Transcripts, read) {
    std::deque<std::string> requests;
    for (const auto& turn : GetParam().turns) requests.push_back(turn.request);
    const auto replies = say(requests);
    ASSERT_EQ(replies.size(), requests.size());
    for (std::size_t i = 0; i < replies.size(); ++i) {
        const auto& [request, events, waiting] = GetParam().turns[i];
        EXPECT_EQ(replies[i], json({{"reply", i + 1}, {"events", events}, {"waiting", waiting}}))
            << GetParam().name << ", after " << request;
    }
}

const Transcript transcripts[] = {
    {"A question inside a question's answer",
     {asks(R"({"fire":"frmWard.cmdAsk"})", sure), refuses(R"({"fire":"frmWard.cmdInside"})", open, sure),
      refuses(R"({"answer":"perhaps"})", R"(the open question takes "yes" or "no")", sure),
      asks(R"({"answer":"yes"})", why),
      tells(R"({"answer":{"text":"cancel"}})", R"([{"changed":{"frmWard.lblInfo":{"caption":"because cancel"}}}])"),
      refuses(R"({"answer":"yes"})", "no question is open")}},
    {"An input box that is cancelled",
     {asks(R"({"fire":"frmWard.cmdAsk"})", sure), asks(R"({"answer":"yes"})", why),
      tells(R"({"answer":"cancel"})", R"([{"changed":{"frmWard.lblInfo":{"caption":"no reason"}}}])")}},
    {"A box that only tells, and what the operation does behind it, in order",
     {tells(R"({"fire":"frmWard.cmdTell"})",
            R"([{"changed":{"frmWard.lblInfo":{"caption":"before"}}},
                {"message":{"text":"Said","title":"Title","icon":"warning"}},
                {"changed":{"frmWard.tabs":{"page":1}}},{"focus":"frmWard.txtTab"}])",
            waitsFor(box("Said", "Title", "warning"))),
      refuses(R"({"fire":"frmWard.cmdInside"})", open, waitsFor(box("Said", "Title", "warning"))),
      tells(R"({"answer":"ok"})", "[]")}},
    {"Boxes that tell come one after another, and a question waits for them",
     {tells(R"({"fire":"frmWard.cmdTellAndAsk"})",
            R"([{"message":{"text":"One","title":"Program","icon":"none"}},
                {"message":{"text":"Two","title":"Program","icon":"none"}}])",
            waitsFor(box("One"))),
      refuses(R"({"answer":"yes"})", R"(the open question takes "ok")", waitsFor(box("One"))),
      tells(R"({"answer":"ok"})", "[]", waitsFor(box("Two"))), asks(R"({"answer":"ok"})", sure),
      tells(R"({"answer":"no"})", R"([{"changed":{"frmWard.lblInfo":{"caption":"no reason"}}}])")}},
    {"What work shows before its end comes with a script's one reply",
     {tells(R"({"fire":"frmWard.cmdWork"})",
            R"([{"changed":{"frmWard.lblInfo":{"caption":"working"}}},
                {"changed":{"frmWard.lblInfo":{"caption":"done"}}}])")}},
    {"A modal screen keeps the others waiting and its caller goes on when it is hidden",
     {tells(R"({"fire":"frmWard.cmdModal"})", R"([{"opened":"frmModal","modal":true}])"),
      refuses(R"({"fire":"frmWard.cmdInside"})", "frmWard has to wait for frmModal"),
      tells(R"({"fire":"frmModal.cmdHide"})",
            R"([{"hidden":"frmModal"},{"changed":{"frmWard.lblInfo":{"caption":"back"}}}])"),
      refuses(R"({"fire":"frmModal.cmdHide"})", "frmModal is hidden")}},
    {"A modal screen that closes itself in its own operation",
     {tells(R"({"fire":"frmWard.cmdModal"})", R"([{"opened":"frmModal","modal":true}])"),
      tells(R"({"fire":"frmModal.cmdClose"})",
            R"([{"closed":"frmModal"},{"changed":{"frmWard.lblInfo":{"caption":"back"}}}])"),
      refuses(R"({"get":"frmModal"})", "frmModal is not open")}},
    {"Closing asks, and a No keeps the screen",
     {asks(R"({"fire":"frmWard.Unload"})", really), tells(R"({"answer":"no"})", "[]"),
      tells(R"({"set":"frmWard.mayClose","to":true})", "[]"),
      tells(R"({"fire":"frmWard.Unload"})", R"([{"closed":"frmWard"}])")}},
    {"An error that no trap takes, and a page that is not there yet",
     {shows(R"({"fire":"frmWard.cmdFail"})", box("It broke", "Program", "stop")), tells(R"({"answer":"ok"})", "[]"),
      shows(R"({"fire":"frmWard.cmdMissing"})", box("This page is not there yet: Nowhere", "Program", "information")),
      tells(R"({"answer":"ok"})", "[]")}},
    {"What a client set comes back only where it ended up different",
     {tells(R"({"set":"frmWard.txtTemp","to":"36.8"})", "[]"),
      tells(R"({"set":"frmWard.txtTemp","to":"3a6.8.1"})", R"([{"changed":{"frmWard.txtTemp":{"text":"36.81"}}}])"),
      tells(R"({"set":"frmWard.txtTemp","to":"36.81x"})", R"([{"changed":{"frmWard.txtTemp":{"text":"36.81"}}}])"),
      tells(R"({"set":"frmWard.txtName","to":"münchen"})", R"([{"changed":{"frmWard.txtName":{"text":"MÜNCH"}}}])"),
      tells(R"({"set":"frmWard.txtEcho","to":"clear me"})", R"([{"changed":{"frmWard.txtEcho":{"text":""}}}])"),
      tells(R"({"set":"frmWard.cboWard","to":"Female ward"})",
            R"([{"changed":{"frmWard.cboWard":{"index":1},"frmWard.lblInfo":{"caption":"picked F"}}}])"),
      tells(R"({"set":"frmWard.optA","to":true})", "[]"),
      tells(R"({"set":"frmWard.optB","to":true})", R"([{"changed":{"frmWard.optA":{"checked":false}}}])"),
      tells(R"({"set":"frmWard.dtVisit","to":"2026-11-24"})", "[]"),
      tells(R"({"set":"frmWard.dtVisit","to":"24-Nov-2026"})",
            R"([{"changed":{"frmWard.dtVisit":{"date":"2026-11-24"}}}])"),
      tells(R"({"set":"frmWard.dtVisit","to":null})", "[]"), tells(R"({"set":"frmWard.tabs","to":{"page":1}})", "[]")}},
};
INSTANTIATE_TEST_SUITE_P(All, Transcripts, testing::ValuesIn(transcripts));

TEST_F(Conversation, refusesWhatIsWrongWithOneReplyAndRunsNothing) {
    const std::string longest(ui::longestRequest + 1, ' ');
    const std::string deep = R"({"answer":)" + std::string(100000, '[');
    std::string many = R"({"answer":[0)";
    for (int i = 0; i < 2000; ++i) many += ",0";
    many += "]}";
    const std::pair<const char*, const char*> wrongs[] = {
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
    const json before = desktop.snapshot();
    for (const auto& [request, error] : wrongs) {
        const json reply = say(request);
        EXPECT_EQ(reply["events"], json::array({{{"error", error}}}));
        EXPECT_EQ(reply["waiting"], nullptr) << error;
    }
    EXPECT_EQ(desktop.snapshot(), before);
    EXPECT_EQ(conversation.received(), std::size(wrongs));
}

TEST_F(Conversation, hiddenAndDisabledControlsAreOutOfReach) {
    const auto fires = [&] { return say(R"({"fire":"frmWard.cmdInside"})")["events"].dump(); };
    const std::string refused = R"([{"error":"frmWard.cmdInside is hidden or disabled"}])";
    ward().panel.setVisible(false);
    conversation.flush();
    EXPECT_EQ(fires(), refused);
    ward().panel.setVisible(true);
    ward().cmdInside.setEnabled(false);
    conversation.flush();
    EXPECT_EQ(fires(), refused);
    desktop.hide("frmWard");
    conversation.flush();
    EXPECT_EQ(fires(), R"([{"error":"frmWard is hidden"}])");
}

TEST_F(Conversation, pushesWhatBelongsToNoRequestAndNothingElse) {
    conversation.flush();
    EXPECT_TRUE(sent.empty());
    ward().lblInfo.setCaption("news");
    ward().setCaption("Ward 2");
    ward().lblInfo.setCaption("later news");
    conversation.flush();
    ASSERT_EQ(sent.size(), 1U);
    EXPECT_EQ(sent[0], json::parse(R"({"reply":null,"waiting":null,"events":[
        {"changed":{"frmWard":{"caption":"Ward 2"},"frmWard.lblInfo":{"caption":"later news"}}}]})"));
}

TEST_F(Conversation, tellsWhoLooksOnOfWorkBeforeItsEnd) {
    desktop.setOnProgress([&] { conversation.push(); });
    const auto replies =
        say(std::deque<std::string>{R"({"fire":"frmWard.cmdWork"})", R"({"fire":"frmWard.cmdInside"})"});
    ASSERT_EQ(replies.size(), 3U);
    EXPECT_EQ(replies[0], json::parse(R"({"reply":null,"during":1,"waiting":null,"events":[
        {"changed":{"frmWard.lblInfo":{"caption":"working"}}}]})"));
    EXPECT_EQ(replies[1], json::parse(R"({"reply":1,"waiting":null,"events":[
        {"changed":{"frmWard.lblInfo":{"caption":"done"}}}]})"));
    ward().lblInfo.setCaption("by itself");
    desktop.showProgress();
    ASSERT_EQ(sent.size(), 1U);
    EXPECT_FALSE(sent[0].contains("during")) << "no request's work";
    desktop.showProgress();
    EXPECT_EQ(sent.size(), 1U) << "nothing new";
}

TEST_F(Conversation, aPageHearsOfABoxOnce) {
    desktop.setServesPage(true);
    const auto replies = say({R"({"fire":"frmWard.cmdTell"})", R"({"answer":"ok"})", R"({"fire":"frmWard.cmdAsk"})"});
    EXPECT_EQ(replies[0]["waiting"]["text"], "Said");
    EXPECT_EQ(replies[0]["events"], json::parse(R"([{"changed":{"frmWard.lblInfo":{"caption":"before"}}},
        {"changed":{"frmWard.tabs":{"page":1}}},{"focus":"frmWard.txtTab"}])"));
    EXPECT_EQ(replies[2]["waiting"]["text"], "Sure?");
    EXPECT_EQ(replies[2]["events"], json::array());
}

TEST_F(Conversation, repliesBeforeItTakesTheNextRequestAndTellsTheEnd) {
    conversation.receive(R"({"fire":"frmWard.cmdInside"})");
    conversation.receive(R"({"get":"frmWard.lblInfo"})");
    ASSERT_EQ(sent.size(), 1U);
    EXPECT_EQ(sent[0]["reply"], 1);
    EXPECT_THROW(conversation.receive(R"({"fire":"frmWard.cmdEnd"})"), ui::SessionEnded);
    conversation.ended("good bye");
    EXPECT_EQ(sent[1]["state"]["caption"], "inside");
    EXPECT_EQ(sent[2], json::parse(R"({"reply":3,"waiting":null,"events":[{"ended":"good bye"}]})"));
}

}  // namespace
