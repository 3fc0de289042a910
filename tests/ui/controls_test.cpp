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

class Controls : public testing::Test {
protected:
    ui::EventLoop loop;
    ui::Desktop desktop{loop, "Program"};
    frmWard ward{desktop};
};

TEST_F(Controls, keyFiltersWorkCharacterByCharacter) {
    const struct {
        ui::KeyFilter filter;
        const char* typed;
        const char* text;
    } cases[] = {
        {ui::anyKey, "Ça va'; --", "Ça va'; --"},
        {ui::digitsOnly, "1a2 3.4-٣", "1234"},
        {ui::decimalOnly, ".5.6-1e3", ".5613"},
        {ui::upperCase, "opd 7 ü÷ÿß", "OPD 7 Ü÷Ÿß"},
        {ui::upperCase, "ọláyíwọlá ṣẹ́yẹ łódź ı", "ỌLÁYÍWỌLÁ ṢẸ́YẸ ŁÓDŹ ı"},
        {ui::upperCase, "ωμεγας жуковский ђ 医 😀", "ΩΜΕΓΑς ЖУКОВСКИЙ Ђ 医 😀"},
    };
    for (const auto& [filter, typed, text] : cases) {
        frmWard another(desktop);
        ui::TextBox box(another, "box", filter);
        box.take(typed);
        EXPECT_EQ(box.text(), text);
    }
}

TEST_F(Controls, aPasswordNeverLeavesTheSession) {
    ward.txtEcho.setPassword(true);
    ward.txtEcho.take("secret");
    EXPECT_EQ(ward.txtEcho.text(), "secret");
    EXPECT_EQ(ward.txtEcho.state().dump().find("secret"), std::string::npos);
    EXPECT_EQ(ward.txtEcho.state()["filled"], true);
}

TEST_F(Controls, combosPickByTextAndRaiseClickAlsoForTheSameItem) {
    ui::ComboBox combo(ward, "combo");
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
    EXPECT_THROW(ward.cboWard.setText("Attic"), db::Error);
}

TEST_F(Controls, gridsKeepRowAndRecordsetTogether) {
    ui::DataGrid& grid = ward.grdData;
    EXPECT_THROW(static_cast<void>(grid.text("name")), db::Error);
    grid.hideColumn("NO");
    grid.bind(test::sampleRows());
    EXPECT_EQ(grid.row(), 0);
    grid.take(json{{"row", 2}});
    EXPECT_EQ(grid.text("NAME"), "Chidi");
    EXPECT_EQ(grid.text("no"), "");
    EXPECT_EQ(grid.rows()["name"].text(), "Chidi");
    EXPECT_EQ(ward.lblInfo.caption(), "Chidi");
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

TEST_F(Controls, aCellIsWrittenOnlyWhereTheScreenLetsIt) {
    ui::DataGrid& grid = ward.grdData;
    grid.bind(test::sampleRows());
    std::string raised;
    grid.on(ui::Event::click, [&] { raised += "click "; });
    grid.on(ui::Event::cellEdit,
            [&] { raised += grid.text("name") + "." + grid.edited().column + "=" + grid.edited().text + " "; });
    const json cell{{"row", 1}, {"column", "NAME"}, {"text", "O'Bi"}};
    const auto with = [&](const char* key, const json& value) {
        json other = cell;
        other[key] = value;
        return other;
    };
    EXPECT_THROW(grid.take(cell), ui::Refused) << "no column is editable";
    grid.setEditable("name");
    for (const auto& wrong :
         {with("row", 3), with("row", -1), with("row", "1"), with("column", "no"), with("column", "age"),
          with("column", ""), with("column", 1), with("text", 150), with("text", nullptr),
          with("text", std::string(1 << 20, '9')), with("more", 1), json{{"row", 1}, {"column", "name"}}})
        EXPECT_THROW(grid.take(wrong), ui::Refused) << wrong.dump().substr(0, 80);
    EXPECT_EQ(grid.row(), 0);
    EXPECT_EQ(grid.state()["columns"][0]["editable"], true);
    EXPECT_FALSE(grid.state()["columns"][1].contains("editable"));
    grid.take(cell);
    EXPECT_EQ(raised, "Bola.name=O'Bi ");
    EXPECT_EQ(grid.text("name"), "Bola") << "the screen stores it and binds again";
    grid.hideColumn("name");
    EXPECT_THROW(grid.take(cell), ui::Refused) << "what nobody sees nobody writes";
    grid.hideOnly({});
    grid.setSearching(true);
    EXPECT_FALSE(grid.reachable());
    grid.setEditable("");
    EXPECT_THROW(grid.take(cell), ui::Refused);
    EXPECT_EQ(raised, "Bola.name=O'Bi ");
}

TEST_F(Controls, flexGridsAndListViewsCheckTheirSubscripts) {
    ui::FlexGrid cells(ward, "cells", {"A", "B"});
    cells.addRow({"1"});
    cells.addRow({"2", "x"});
    cells.take(json{{"row", 1}});
    EXPECT_EQ(cells.cell(0, 1), "");
    cells.removeRow(1);
    EXPECT_EQ(cells.row(), 0);
    EXPECT_THROW(static_cast<void>(cells.cell(1, 0)), db::Error);
    EXPECT_THROW(cells.removeRow(1), db::Error);

    ui::ListView list(ward, "list", {"Test"}, true);
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

TEST_F(Controls, checkListsTellTheItemThatWasTickedAndKeepTheirOrder) {
    ui::CheckList list(ward, "signs");
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

TEST_F(Controls, namesDoNotDependOnLetterCaseAndStandOnce) {
    EXPECT_EQ(ward.find("TXTNAME"), &ward.txtName);
    EXPECT_THROW(ui::Label(ward, "TxtName"), std::logic_error);
    EXPECT_EQ(ward.find("txtName"), &ward.txtName);
    ward.lblInfo.on(ui::Event::dblClick, [] {});
    EXPECT_TRUE(ward.lblInfo.handles(ui::Event::dblClick));
    EXPECT_FALSE(ward.lblInfo.handles(ui::Event::click));
}

TEST_F(Controls, theProtocolTellsEachPropertyOfEachKind) {
    std::ostringstream text;
    text << std::ifstream(test::sourceDirectory() / "docs" / "protocol.md").rdbuf();
    const std::string states = text.str().substr(text.str().find("## States"));
    const auto samples = ui::makeSamples(desktop);
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

TEST_F(Controls, aPictureGoesOverTheWireByItsAddressWhereItHasOne) {
    const auto image = [&] { return ward.panel.state()["image"]; };
    EXPECT_TRUE(image().is_null());
    ward.panel.setImage({std::byte{'j'}, std::byte{'p'}});
    EXPECT_EQ(image(), "data:image/jpeg;base64,anA=");
    desktop.setPictureKeeper([](const auto& jpeg) { return jpeg->size() > 1 ? "/pictures/7" : ""; });
    EXPECT_EQ(image(), "/pictures/7");
    ward.panel.setImage({std::byte{'j'}});
    EXPECT_TRUE(image().is_null()) << "none that it could be fetched from";
}

}  // namespace
