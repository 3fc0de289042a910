// What the frame of a record screen does by itself; what it owes to every screen is in the contract.

#include <fstream>
#include <sstream>

#include "docs/example/frmnotices.h"
#include "tests/core/atscreen.h"
#include "tests/support/paths.h"

namespace test {
namespace {

class RecordFormTest : public AtScreen {
protected:
    RecordFormTest() : AtScreen("frmNotices", &provide) {}
    static void provide(core::Workplace& place) {
        place.desktop.provide("frmNotices", [&place] { return std::make_unique<example::frmNotices>(place); });
    }
    void take() {
        fire("cmdAdd");
        fill({{"cboDept", "NURSING"}, {"txtRem", "Saline"}});
    }
    /// The commands that show, and whether the fields take anything.
    std::string shows() {
        std::string all;
        for (const auto* command :
             {"cmdAdd", "cmdEdit", "cmdDel", "cmdRefresh", "OKButton", "cmdCancel", "CancelButton"})
            if (is(command, "visible")) all += shown({command}) + " ";
        return all + (is("txtRem", "enabled") && is("cboDept", "enabled") ? "open" : "locked");
    }
    const std::string browsing = "&Add &Edit &Delete &Refresh Close locked";
};

TEST_F(RecordFormTest, ARefusedFieldSaysWhyUntilItIsChangedOrLeft) {
    const auto& problem = as<example::frmNotices>().cboDept.problem();
    const auto refuse = [&] {
        fire("OKButton", {"Please specify Department"});
        EXPECT_EQ(problem, "Please specify Department");
    };
    fire("cmdAdd");
    refuse();
    set("cboDept", "NURSING");
    EXPECT_EQ(problem, "");
    set("cboDept", "");
    refuse();
    fire("cmdCancel");
    EXPECT_EQ(problem, "");
}

TEST_F(RecordFormTest, EachModeHasItsCommandsAndFields) {
    const std::string entering = "&Save &Cancel Close open";
    EXPECT_EQ(shows(), browsing);
    fire("cmdAdd");
    EXPECT_EQ(shows(), entering);
    EXPECT_EQ(focus(), "frmNotices.cboDept");
    set("txtRem", "typed");
    fire("cmdCancel");
    EXPECT_EQ(shows(), browsing);
    EXPECT_EQ(shown({"txtRem"}), "");
    EXPECT_EQ(focus(), "frmNotices.cmdAdd");
    take();
    save();
    EXPECT_EQ(shows(), browsing);
    fire("grdData.DblClick");
    EXPECT_EQ(shows(), entering);
    EXPECT_EQ(shown({"txtRem", "cboDept"}), "Saline|NURSING");
}

TEST_F(RecordFormTest, ACommandNeedsARowAndAnEntryUnderWayIsKept) {
    for (const char* command : {"cmdEdit", "grdData.DblClick"}) {
        fire(command, {"Please select a record from the list"});
        EXPECT_EQ(shows(), browsing) << command;
    }
    take();
    save();
    fire("cmdAdd");
    set("txtRem", "typed");
    fire("grdData.DblClick", {"Save or cancel the current entry first"});
    EXPECT_EQ(shown({"txtRem"}), "typed");
}

TEST_F(RecordFormTest, AnErrorBehindTheCommitCannotHaveTheRecordSavedTwice) {
    take();
    hospital.failStatement("select SNo, nDate as Date");
    save({"Record Succesfully saved", "Injected failure"});
    EXPECT_EQ(shows(), browsing);
    EXPECT_EQ(shown({"txtRem"}), "");
}

TEST(Example, StandsInTheDocumentAsItIsBuilt) {
    const auto read = [](const std::string& name) {
        std::ifstream file(sourceDirectory() / name);
        std::stringstream text;
        text << file.rdbuf();
        return text.str();
    };
    const auto document = read("docs/screens.md");
    for (const char* file : {"docs/example/frmnotices.h", "docs/example/frmNotices.json"})
        EXPECT_NE(document.find(read(file)), std::string::npos) << file;
}

}  // namespace
}  // namespace test
