// What the frame of a record screen does by itself; what it owes to every screen is in the contract.

#include <fstream>
#include <sstream>

#include "docs/example/frmnotices.h"
#include "tests/core/stubs.h"
#include "tests/support/paths.h"

namespace test {
namespace {

class RecordFormTest : public testing::Test {
protected:
    RecordFormTest() {
        hospital.start();
        place.desktop.provide("frmNotices", [this] { return std::make_unique<example::frmNotices>(place); });
        place.desktop.show("frmNotices");
        hospital.forget();
    }
    example::frmNotices& screen() { return dynamic_cast<example::frmNotices&>(*place.desktop.loaded("frmNotices")); }
    void fire(const std::string& control) { place.desktop.fire("frmNotices." + control, false); }
    void set(const std::string& control, const nlohmann::json& content) {
        place.desktop.set("frmNotices." + control, content, false);
    }
    void saveOne() {
        fire("cmdAdd");
        set("cboDept", "NURSING");
        set("txtRem", "Saline");
        hospital.answer("yes");
        hospital.expectMessage("Record Succesfully saved");
        fire("OKButton");
        hospital.forget();
    }
    /// The commands that show, and whether the fields take anything.
    std::string shows() {
        std::string shown;
        for (const auto* command : {&screen().cmdAdd, &screen().cmdEdit, &screen().cmdDel, &screen().cmdRefresh,
                                    &screen().OKButton, &screen().cmdCancel, &screen().CancelButton})
            if (command->visible()) shown += command->caption() + " ";
        return shown + (screen().txtRem.enabled() && screen().cboDept.enabled() ? "open" : "locked");
    }

    Ward hospital;
    core::Workplace& place = hospital.place;
};

TEST_F(RecordFormTest, ARefusedFieldSaysWhyUntilItIsChangedOrLeft) {
    const auto refuse = [&] {
        hospital.expectMessage("Please specify Department");
        fire("OKButton");
        EXPECT_EQ(screen().cboDept.problem(), "Please specify Department");
    };
    fire("cmdAdd");
    refuse();
    set("cboDept", "NURSING");
    EXPECT_EQ(screen().cboDept.problem(), "");
    set("cboDept", "");
    refuse();
    fire("cmdCancel");
    EXPECT_EQ(screen().cboDept.problem(), "");
}

TEST_F(RecordFormTest, EachModeHasItsCommandsAndFields) {
    const std::string browsing = "&Add &Edit &Delete &Refresh Close locked";
    const std::string entering = "&Save &Cancel Close open";
    EXPECT_EQ(shows(), browsing);
    fire("cmdAdd");
    EXPECT_EQ(shows(), entering);
    EXPECT_EQ(hospital.focus(), "frmNotices.cboDept");
    set("txtRem", "typed");
    fire("cmdCancel");
    EXPECT_EQ(shows(), browsing);
    EXPECT_EQ(screen().txtRem.text(), "");
    EXPECT_EQ(hospital.focus(), "frmNotices.cmdAdd");
    saveOne();
    EXPECT_EQ(shows(), browsing);
    fire("grdData.DblClick");
    EXPECT_EQ(shows(), entering);
    EXPECT_EQ(screen().txtRem.text() + screen().cboDept.text(), "SalineNURSING");
}

TEST_F(RecordFormTest, ACommandNeedsARowAndAnEntryUnderWayIsKept) {
    hospital.expectMessage("Please select a record from the list");
    fire("cmdEdit");
    EXPECT_TRUE(screen().cmdAdd.visible());
    saveOne();
    fire("cmdAdd");
    set("txtRem", "typed");
    hospital.expectMessage("Save or cancel the current entry first");
    fire("grdData.DblClick");
    EXPECT_EQ(screen().txtRem.text(), "typed");
}

TEST_F(RecordFormTest, AnErrorBehindTheCommitCannotHaveTheRecordSavedTwice) {
    fire("cmdAdd");
    set("cboDept", "NURSING");
    set("txtRem", "Saline");
    hospital.failStatement("select SNo, nDate as Date");
    hospital.answer("yes");
    hospital.expectMessage("Record Succesfully saved");
    hospital.expectMessage("Injected failure");
    fire("OKButton");
    EXPECT_TRUE(screen().cmdAdd.visible());
    EXPECT_EQ(screen().txtRem.text(), "");
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
