#include <gtest/gtest.h>

#include <sstream>

#include "core/forms/form.h"
#include "core/session/session.h"
#include "core/session/workplace.h"
#include "drive/driver.h"
#include "tests/support/hospital.h"

namespace {

using nlohmann::json;
using namespace db::literals;

/// Writes in each way that a screen can, under its trap.
class frmWrites : public core::Form {
public:
    explicit frmWrites(core::Workplace& workplace) : Form(workplace, "frmWrites", "Writes") {
        cmdHidden.setVisible(false);
        txtHidden.setEnabled(false);
    }
    ui::Button cmdSave{*this, "cmdSave", "Save", [this] { trapped([this] { save(); }); }};
    ui::Button cmdUntrapped{*this, "cmdUntrapped", "Untrapped", [this] {
                                hospital().beginTrans();
                                hospital().execute("delete from AppDefaults"_sql);
                                throw db::Error(db::Category::other, "left in the middle");
                            }};
    ui::Button cmdAsk{*this, "cmdAsk", "Ask", [this] { saved = confirmedSave(); }};
    ui::Button cmdHidden{*this, "cmdHidden", "Hidden", [this] { message("Worked"); }};
    ui::TextBox txtHidden{*this, "txtHidden"};
    ui::Button cmdLeave{*this, "cmdLeave", "Leave", [this] { place().endProcess("Gone home"); }};
    ui::Timer tmrWatch{*this, "tmrWatch", std::chrono::minutes(1), true, [this] { ++ticks; }};
    int ticks = 0;
    bool saved = false;

private:
    void save() {
        db::Transaction transaction(hospital());
        hospital().execute("update AppDefaults set idval='written' where ID='DRIVE'"_sql);
        db::Recordset row(hospital(), "select * from AppDefaults where 1=2"_sql);
        row.addNew();
        row.set("ID", "ROW");
        row.set("idval", "a");
        row.update();
        transaction.commit();
        message("Saved");
    }
};

/// The replies to a script's lines, in a hospital of its own.
std::vector<json> run(const std::string& lines) {
    test::TestHospital hospital;
    hospital.place.desktop.setBeforeBox({});
    hospital.place.desktop.provide("frmWrites", [&] { return std::make_unique<frmWrites>(hospital.place); });
    std::istringstream requests(lines);
    std::ostringstream replies;
    const auto start = [](core::Workplace& place) {
        place.session.gConnHospital = "Driver={SQL Server};Server=S;Database=Hospital;UID=u;PWD=p";
        place.session.gServerDate = db::DateTime::of(2026, 11, 24);
        place.session.gPatientBalance = 12.5;
        place.desktop.show("frmWrites");
    };
    drive::Driver driver(hospital.place, start, requests, replies);
    EXPECT_EQ(driver.run(), 0);
    std::vector<json> parsed;
    std::istringstream read(replies.str());
    for (std::string line; std::getline(read, line);) parsed.push_back(json::parse(line));
    return parsed;
}

const std::string prepare =
    R"-({"execute":"insert into AppDefaults (ID,idval) values ('DRIVE','before')","on":"Hospital"}
{"start":true}
)-";
const std::string look =
    R"-({"query":"select ID,idval from AppDefaults where ID in ('DRIVE','ROW') order by ID","on":"Hospital"}
)-";

TEST(Driver, startsOnceAndShowsTheSession) {
    const auto replies = run(R"({"show":"frmWrites"}
{"get":"session"}
{"start":true}
{"start":true}
{"get":"session"}
{"show":"frmNowhere"}
{"show":"frmWrites"}
{"start":1}
)");
    ASSERT_EQ(replies.size(), 8U);
    EXPECT_EQ(replies[0]["events"].dump(), R"([{"error":"the session has not been started"}])");
    EXPECT_EQ(replies[1]["state"]["gServerDate"], "1899-12-30");
    EXPECT_EQ(replies[2], json::parse(R"({"reply":3,"events":[{"opened":"frmWrites","modal":false}],"waiting":null})"));
    EXPECT_EQ(replies[3]["events"].dump(), R"([{"error":"the session has been started already"}])");
    EXPECT_EQ(replies[4]["state"]["gServerDate"], "2026-11-24");
    EXPECT_EQ(replies[4]["state"]["gPatientBalance"], 12.5);
    EXPECT_EQ(replies[4]["state"]["gForcedLogoff"], false);
    EXPECT_EQ(replies[5]["events"].dump(), R"([{"error":"there is no screen frmNowhere"}])");
    EXPECT_EQ(replies[6]["events"].dump(), R"([{"hidden":"frmWrites"},{"modal":false,"opened":"frmWrites"}])");
    EXPECT_EQ(replies[7]["events"].dump(), R"([{"error":"start takes true or false"}])");
}

TEST(Driver, readsAndPreparesRowsInEachDatabaseBesideTheTrace) {
    const auto replies = run(R"({"trace":true}
{"query":"select 1 as n, 1.5 as x, 'a' as t, null as nothing","on":"Hospital"}
{"clock":"2026-12-01 08:15:00"}
{"query":"select getdate() as now","on":"Accounting"}
{"query":"select ID from AppDefaults where ID='none'","on":"Hospital"}
{"execute":"delete from AppDefaults","on":"Nowhere"}
{"execute":"delete from AppDefaults; delete from hPatients","on":"Hospital"}
{"query":"selec","on":"Hospital"}
{"clock":"soon"}
{"execute":"delete from AppDefaults where ID='none'","on":"Hospital"}
{"query":"select 1"}
)");
    ASSERT_EQ(replies.size(), 11U);
    EXPECT_EQ(replies[1]["rows"], json::parse(R"([{"n":1,"x":1.5,"t":"a","nothing":null}])"));
    EXPECT_EQ(replies[3]["rows"].dump(), R"([{"now":"2026-12-01 08:15:00"}])");
    EXPECT_EQ(replies[4]["rows"].dump(), "[]");
    for (const std::size_t wrong : {5U, 6U, 7U, 8U, 10U}) {
        ASSERT_EQ(replies[wrong]["events"].size(), 1U);
        EXPECT_TRUE(replies[wrong]["events"][0].contains("error")) << replies[wrong];
    }
    EXPECT_EQ(replies[9]["affected"], 0);
    EXPECT_EQ(replies[9]["events"].dump(), "[]");
}

TEST(Driver, tracesWhatScreensRunInOrderWithTheirBoxes) {
    const auto replies = run(prepare + std::string(R"({"trace":true}
{"fire":"frmWrites.cmdSave"}
{"trace":false}
{"fire":"frmWrites.cmdSave"}
)") + look);
    ASSERT_EQ(replies.size(), 7U);
    EXPECT_EQ(replies[3]["events"], json::parse(R"([
        {"sql":{"text":"update AppDefaults set idval='written' where ID='DRIVE'","on":"Hospital"}},
        {"sql":{"text":"select * from AppDefaults where 1=2","on":"Hospital"}},
        {"sql":{"text":"insert AppDefaults","insert":"AppDefaults","on":"Hospital","columns":{"ID":"ROW","idval":"a"}}},
        {"message":{"text":"Saved","title":"Vorel Nursing","icon":"none"}}])"));
    ASSERT_EQ(replies[5]["events"].size(), 1U) << "the same key again is refused, without a trace";
    EXPECT_TRUE(replies[5]["events"][0].contains("message"));
    EXPECT_EQ(replies[6]["rows"].dump(), R"([{"ID":"DRIVE","idval":"written"},{"ID":"ROW","idval":"a"}])");
}

TEST(Driver, aFailingWriteLeavesNothingHalfWritten) {
    for (const char* write : {"1", "2"}) {
        SCOPED_TRACE(write);
        const auto replies = run(std::string(R"({"fail":{"statement":)") + write + "}}\n" + prepare +
                                 R"({"execute":"update AppDefaults set idval='before' where ID='DRIVE'","on":"Hospital"}
{"fire":"frmWrites.cmdSave"}
)" + look + R"({"fire":"frmWrites.cmdSave"}
)");
        ASSERT_EQ(replies.size(), 7U);
        EXPECT_EQ(replies[4]["events"].dump(),
                  R"([{"message":{"icon":"none","text":"Injected failure","title":"Vorel Nursing"}}])");
        EXPECT_EQ(replies[5]["rows"].dump(), R"([{"ID":"DRIVE","idval":"before"}])");
        EXPECT_EQ(replies[6]["events"][0]["message"]["text"], "Saved") << "only that one write fails";
    }
}

TEST(Driver, aScriptMayForceWhatIsOutOfReach) {
    const auto replies = run(R"({"start":true}
{"fire":"frmWrites.cmdHidden"}
{"set":"frmWrites.txtHidden","to":"x"}
{"fire":"frmWrites.cmdHidden","force":"yes"}
{"fire":"frmWrites.cmdHidden","force":true}
{"set":"frmWrites.txtHidden","to":"x","force":true}
{"get":"frmWrites.txtHidden"}
)");
    EXPECT_EQ(replies[1]["events"][0]["error"], "frmWrites.cmdHidden is hidden or disabled");
    EXPECT_EQ(replies[2]["events"][0]["error"], "frmWrites.txtHidden is hidden or disabled");
    EXPECT_EQ(replies[3]["events"][0]["error"], "force takes true or false");
    EXPECT_EQ(replies[4]["events"][0]["message"]["text"], "Worked");
    EXPECT_EQ(replies[6]["state"]["text"], "x");
}

TEST(Driver, rollsBackWhatAnOperationWithoutATrapLeftOpen) {
    const auto replies = run(prepare + std::string(R"({"fire":"frmWrites.cmdUntrapped"}
)") + look);
    EXPECT_EQ(replies.at(2)["events"][0]["message"]["text"], "left in the middle");
    EXPECT_EQ(replies.at(3)["rows"].dump(), R"([{"ID":"DRIVE","idval":"before"}])");
}

TEST(Driver, ticksTimersByHandAndEndsWithTheSessionOrTheScript) {
    const auto replies = run(R"({"start":true}
{"tick":"frmWrites.tmrWatch"}
{"tick":"frmWrites.cmdSave"}
{"fail":{"statement":0}}
{"fire":"frmWrites.cmdLeave"}
{"get":"session"}
)");
    ASSERT_EQ(replies.size(), 5U);
    EXPECT_EQ(replies[1]["events"].dump(), "[]");
    EXPECT_EQ(replies[2]["events"].dump(), R"([{"error":"frmWrites.cmdSave is no timer"}])");
    EXPECT_TRUE(replies[3]["events"][0].contains("error"));
    EXPECT_EQ(replies[4], json::parse(R"({"reply":5,"events":[{"ended":"Gone home"}],"waiting":null})"));

    const auto open = run(R"({"start":true}
{"fire":"frmWrites.cmdAsk"}
)");
    EXPECT_EQ(open.at(1)["waiting"]["kind"], "yesno");
    EXPECT_EQ(open.size(), 2U) << "a script that stops at a question closes the workstation";
}

}  // namespace
