#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "tests/support/paths.h"
#include "tests/ui/fixture.h"
#include "ui/checklist.h"
#include "ui/samples.h"

namespace {

using test::frmWard;
using test::json;

struct Typed {
    ui::KeyFilter filter;
    const char* typed;
    const char* text;
};

struct Desk {
    ui::EventLoop loop;
    ui::Desktop desktop{loop, "Program"};
    frmWard ward{desktop};
};

TEST(Controls, keyFiltersWorkCharacterByCharacter) {
    const Typed table[] = {
        {ui::anyKey, "Ça va'; --", "Ça va'; --"},
        {ui::digitsOnly, "1a2 3.4-٣", "1234"},
        {ui::decimalOnly, ".5.6-1e3", ".5613"},
        {ui::upperCase, "opd 7 ü÷ÿß", "OPD 7 Ü÷Ÿß"},
        {ui::upperCase, "ọláyíwọlá ṣẹ́yẹ łódź ı", "ỌLÁYÍWỌLÁ ṢẸ́YẸ ŁÓDŹ ı"},
        {ui::upperCase, "ωμεγας жуковский ђ 医 😀", "ΩΜΕΓΑς ЖУКОВСКИЙ Ђ 医 😀"},
    };
    for (const Typed& one : table) {
        Desk desk;
        ui::TextBox box(desk.ward, "box", one.filter);
        box.take(one.typed);
        EXPECT_EQ(box.text(), one.text);
    }
}

TEST(Controls, aPasswordNeverLeavesTheSession) {
    Desk desk;
    desk.ward.txtEcho.setPassword(true);
    desk.ward.txtEcho.take("secret");
    EXPECT_EQ(desk.ward.txtEcho.text(), "secret");
    EXPECT_EQ(desk.ward.txtEcho.state().dump().find("secret"), std::string::npos);
    EXPECT_EQ(desk.ward.txtEcho.state()["filled"], true);
}

TEST(Controls, combosPickByTextAndRaiseClickAlsoForTheSameItem) {
    Desk desk;
    ui::ComboBox combo(desk.ward, "combo");
    std::string raised;
    combo.on(ui::Event::click, [&] { raised += "click "; });
    combo.on(ui::Event::change, [&] { raised += "change "; });
    combo.setItems({{"Ada [1]", "1"}, {"Bola [2]", "2"}});
    combo.take("Bola [2]");
    combo.take("Bola [2]");
    EXPECT_EQ(combo.key(), "2");
    combo.take("Bola");
    EXPECT_EQ(combo.index(), -1);
    EXPECT_EQ(combo.key(), "");
    combo.take(json{{"row", 0}});
    EXPECT_EQ(combo.text(), "Ada [1]");
    EXPECT_EQ(raised, "click click change click ");
    combo.clear();
    EXPECT_EQ(combo.text() + std::to_string(combo.items().size()), "0");
    EXPECT_THROW(combo.setIndex(0), db::Error);
    EXPECT_THROW(desk.ward.cboWard.setText("Attic"), db::Error);
}

TEST(Controls, gridsKeepRowAndRecordsetTogether) {
    Desk desk;
    ui::DataGrid& grid = desk.ward.grdData;
    EXPECT_THROW(static_cast<void>(grid.text("name")), db::Error);
    grid.hideColumn("NO");
    grid.bind(test::sampleRows());
    EXPECT_EQ(grid.row(), 0);
    grid.take(json{{"row", 2}});
    EXPECT_EQ(grid.text("NAME"), "Chidi");
    EXPECT_EQ(grid.text("no"), "");
    EXPECT_EQ(grid.rows()["name"].text(), "Chidi");
    EXPECT_EQ(desk.ward.lblInfo.caption(), "Chidi");
    EXPECT_THROW(static_cast<void>(grid.text("age")), db::Error);
    EXPECT_THROW(grid.take(json{{"row", 3}}), ui::Refused);
    EXPECT_THROW(grid.setRow(3), db::Error);
    const json state = grid.state();
    EXPECT_EQ(state["columns"].dump(),
              R"([{"caption":"name","name":"name","visible":true},{"caption":"no","name":"no","visible":false}])");
    EXPECT_EQ(state["rows"].dump(), R"([["Ada",""],["Bola",""],["Chidi",""]])");
    grid.clear();
    EXPECT_EQ(grid.state()["rows"].size() + grid.state()["columns"].size(), 0U);
    EXPECT_EQ(grid.row(), -1);
}

TEST(Controls, flexGridsAndListViewsCheckTheirSubscripts) {
    Desk desk;
    ui::FlexGrid cells(desk.ward, "cells", {"A", "B"});
    cells.addRow({"1"});
    cells.addRow({"2", "x"});
    cells.take(json{{"row", 1}});
    EXPECT_EQ(cells.cell(0, 1), "");
    cells.removeRow(1);
    EXPECT_EQ(cells.row(), 0);
    EXPECT_THROW(static_cast<void>(cells.cell(1, 0)), db::Error);
    EXPECT_THROW(cells.removeRow(1), db::Error);

    ui::ListView list(desk.ward, "list", {"Test"}, true);
    std::string raised;
    list.on(ui::Event::itemClick, [&] { raised += "click "; });
    list.on(ui::Event::itemCheck, [&] { raised += "check "; });
    list.addRow({"Malaria"});
    list.take(json{{"row", 0}});
    list.take(json{{"row", 0}, {"checked", true}});
    list.take(json{{"row", 0}, {"checked", true}});
    EXPECT_TRUE(list.checked(0));
    EXPECT_EQ(raised, "click check ");
    EXPECT_THROW(list.take(json{{"row", 0}, {"checked", 1}}), ui::Refused);
}

TEST(Controls, checkListsTellTheItemThatWasTickedAndKeepTheirOrder) {
    Desk desk;
    ui::CheckList list(desk.ward, "signs");
    std::string raised;
    list.on(ui::Event::click, [&] { raised += "click" + list.key() + " "; });
    list.on(ui::Event::itemCheck, [&] {
        raised += "check" + list.key() + " ";
        if (list.checkedCount() > 2) list.setChecked(list.index(), false);
    });
    list.setItems({{"Rash", "r"}, {"Fever", "f"}, {"Cough", "c"}});
    for (const int row : {2, 0, 1, 0, 0}) list.take(json{{"row", row}, {"checked", true}});
    list.take(json{{"row", 1}});
    EXPECT_EQ(raised, "checkc checkr checkf clickf ");
    EXPECT_EQ(list.state()["checked"].dump(), "[0,2]");
    ASSERT_EQ(list.checkedItems().size(), 2U);
    EXPECT_EQ(list.checkedItems()[1].key, "c");

    for (const char* content :
         {R"({"row":3,"checked":true})", R"({"row":-1,"checked":true})", R"({"row":0,"checked":1})",
          R"({"row":0,"checked":null})", R"({"row":0,"checked":false,"all":true})", R"({"row":0,"all":true})",
          R"({"checked":true})", "[0]", "0", "\"Rash\"", "null"})
        EXPECT_THROW(list.take(json::parse(content)), ui::Refused) << content;
    EXPECT_EQ(list.state()["checked"].dump(), "[0,2]");

    list.checkAll(true);
    EXPECT_EQ(list.checkedCount(), 3U);
    list.setItems({{"Itch", "i"}});
    EXPECT_FALSE(list.checked(0));
    EXPECT_THROW(list.setChecked(1, true), db::Error);
    EXPECT_EQ(raised, "checkc checkr checkf clickf ");
}

TEST(Controls, namesDoNotDependOnLetterCaseAndStandOnce) {
    Desk desk;
    EXPECT_EQ(desk.ward.find("TXTNAME"), &desk.ward.txtName);
    EXPECT_THROW(ui::Label(desk.ward, "TxtName"), std::logic_error);
    EXPECT_EQ(desk.ward.find("txtName"), &desk.ward.txtName);
    desk.ward.lblInfo.on(ui::Event::dblClick, [] {});
    EXPECT_TRUE(desk.ward.lblInfo.handles(ui::Event::dblClick));
    EXPECT_FALSE(desk.ward.lblInfo.handles(ui::Event::click));
}

TEST(Controls, theProtocolTellsEachPropertyOfEachKind) {
    std::ostringstream text;
    text << std::ifstream(test::sourceDirectory() / "docs" / "protocol.md").rdbuf();
    const std::string states = text.str().substr(text.str().find("## States"));
    Desk desk;
    const auto samples = ui::makeSamples(desk.desktop);
    ui::StatusBar bar(*samples, "extraBar", 3);
    ui::Timer timer(*samples, "extraTimer", std::chrono::seconds(1), false, {});
    ui::MenuItem item(*samples, "extraItem", "&File");
    ui::ChildArea area(*samples, "extraArea");
    std::set<std::string> kinds;
    for (const ui::Control* control : samples->controls()) {
        const json state = control->state();
        const auto at = states.find("\n| `" + state["kind"].get<std::string>() + "` |");
        ASSERT_NE(at, std::string::npos) << state["kind"];
        const std::string told = states.substr(at + 1, states.find('\n', at + 1) - at);
        for (const std::string_view property : control->properties()) {
            EXPECT_TRUE(state.contains(property)) << control->path() << " " << property;
            EXPECT_NE(told.find("`" + std::string(property) + "`"), std::string::npos) << told << property;
        }
        kinds.insert(state["kind"]);
    }
    EXPECT_EQ(kinds.size(), 20U) << "the samples show every kind";
}

TEST(Controls, aPictureGoesOverTheWireByItsAddressWhereItHasOne) {
    Desk desk;
    const auto image = [&] { return desk.ward.panel.state()["image"]; };
    EXPECT_TRUE(image().is_null());
    desk.ward.panel.setImage({std::byte{'j'}, std::byte{'p'}});
    EXPECT_EQ(image(), "data:image/jpeg;base64,anA=");
    desk.desktop.setPictureKeeper([](const auto& jpeg) { return jpeg->size() > 1 ? "/pictures/7" : ""; });
    EXPECT_EQ(image(), "/pictures/7");
    desk.ward.panel.setImage({std::byte{'j'}});
    EXPECT_TRUE(image().is_null()) << "none that it could be fetched from";
}

}  // namespace
