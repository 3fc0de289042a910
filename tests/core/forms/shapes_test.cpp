// Entry grids, dose boxes, tables of fields, and the lists of staff.

#include "core/care/staff.h"
#include "core/care/treatmenttext.h"
#include "core/forms/doseboxes.h"
#include "core/forms/entrygrid.h"
#include "core/forms/fields.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "tests/core/stubs.h"

namespace test {
namespace {

using namespace db::literals;

class Sheet : public core::Form {
public:
    explicit Sheet(core::Workplace& place) : Form(place, "Sheet", "Sheet"), cboNurse(*this, "cboNurse", place) {}
    core::EntryGrid OrderGrid{*this, "OrderGrid", "Item|Price|Usage"};
    int counted = 0;
    core::DoseBoxes doses{*this, "chk", 4, [this] { ++counted; }};
    core::NurseOnDuty cboNurse;
    ui::ComboBox cboDoc{*this, "cboDoc", ui::ComboBox::Style::listOnly};
    ui::ComboBox cboEvent{*this, "cboEvent"};
    ui::TextBox txtNote{*this, "txtNote"};
    ui::CheckBox chkDone{*this, "chkDone", "Done"};
    ui::DatePicker dtDate{*this, "dtDate"};
    ui::Label lblNo{*this, "lblNo"};
    ui::DataGrid grdData{*this, "grdData"};
};

class Shapes : public testing::Test {
protected:
    Shapes() {
        hospital.start();
        place.desktop.provide("Sheet", [this] { return std::make_unique<Sheet>(place); });
        place.desktop.show("Sheet");
    }
    Sheet& sheet() { return dynamic_cast<Sheet&>(*place.desktop.loaded("Sheet")); }
    void set(const std::string& control, const nlohmann::json& content) {
        place.desktop.set("Sheet." + control, content, false);
    }
    Ward hospital;
    core::Workplace& place = hospital.place;
};

TEST_F(Shapes, AnEntryGridKeepsOneEmptyLastLine) {
    auto& grid = sheet().OrderGrid;
    grid.addLine({"Gauze", "1,250.50", "DAILY"});
    grid.addLine({"Saline", "no price"});
    EXPECT_EQ(grid.lineCount(), 2U);
    EXPECT_EQ(grid.rowCount(), 3U);
    EXPECT_TRUE(grid.has(0, "Saline"));
    EXPECT_FALSE(grid.has(0, "")) << "the empty line is none";
    EXPECT_EQ(grid.sum(1), 1250.5);

    set("OrderGrid", {{"row", 2}});
    EXPECT_EQ(grid.takeBack(), std::nullopt) << "the empty line cannot be taken";
    set("OrderGrid", {{"row", 0}});
    hospital.answer("no");
    EXPECT_EQ(grid.takeBack(), std::nullopt);
    hospital.answer("yes");
    hospital.expectMessage("Item Removed");
    std::string taken;
    const auto line = grid.takeBack([&](std::size_t at, const core::EntryGrid::Line& cells) {
        taken = std::to_string(at) + cells[0] + ", then " + grid.text(at, 0);
        EXPECT_EQ(hospital.boxes().back().text, "Are you sure to Delete?") << "before the user is told";
    });
    EXPECT_EQ(line, (core::EntryGrid::Line{"Gauze", "1,250.50", "DAILY"}));
    EXPECT_EQ(taken, "0Gauze, then Saline");
    EXPECT_EQ(hospital.boxes().front().text + hospital.boxes().front().title,
              "Are you sure to Delete?Check before Delete");
    grid.clearLines();
    EXPECT_EQ(grid.rowCount(), 1U);
}

TEST_F(Shapes, DoseBoxesCountWhatIsTickedInThisAct) {
    auto& doses = sheet().doses;
    const auto boxes = [&] {
        std::string all;
        for (int box = 0; box < 4; ++box) {
            const auto state = hospital.place.desktop.get("Sheet.chk(" + std::to_string(box) + ")");
            all += state["checked"] ? "x" : "-";
            all += state["enabled"] ? "o " : " ";
        }
        return all;
    };
    EXPECT_EQ(boxes(), "- - - - ");
    doses.layOut(3, 1);
    EXPECT_EQ(boxes(), "x -o -o - ");
    EXPECT_EQ(sheet().counted, 0);
    set("chk(1)", true);
    set("chk(2)", true);
    set("chk(1)", false);
    EXPECT_EQ(sheet().counted, 3);
    EXPECT_EQ(doses.ticked(), 1);
    EXPECT_EQ(doses.taken(), 2);
    EXPECT_THROW(set("chk(0)", false), ui::Refused) << "a dose once given stays";
    doses.layOut(192, 2);
    EXPECT_EQ(boxes(), "x x -o -o ") << "as far as there are boxes";
    EXPECT_EQ(doses.ticked(), 0);
}

TEST_F(Shapes, AFieldIsFilledFromTheListAndKeptInTheTable) {
    auto& on = sheet();
    on.cboDoc.add("Tunde Ojo [D1]");
    const core::Fields fields{{&on.cboDoc, "Doctor", "Doctor", core::Keeps::key},
                              {&on.cboEvent, "Event", "Event", core::Keeps::trimmed},
                              {&on.txtNote, "Note"},
                              {&on.chkDone, "Done", "isDone"},
                              {&on.dtDate, "Date", "nDate"},
                              {&on.lblNo, "PNo", "PNo"}};
    on.grdData.bind(place.hospital().read(
        "select 'D1' as Doctor, ' fell ' as Event, 'seen' as Note, 1 as Done, null as Date, 'P1' as PNo"_sql));
    fields.fill(on.grdData);
    EXPECT_EQ(on.cboDoc.text() + on.cboEvent.text() + on.txtNote.text() + on.lblNo.caption(),
              "Tunde Ojo [D1] fell seenP1");
    EXPECT_TRUE(on.chkDone.checked());
    EXPECT_FALSE(on.dtDate.value());
    const core::Cells kept{{"Doctor", "D1"}, {"Event", "fell"}, {"isDone", 1}, {"nDate", db::Null{}}, {"PNo", "P1"}};
    const auto cells = fields.cells();
    ASSERT_EQ(cells.size(), kept.size());
    for (std::size_t i = 0; i < kept.size(); ++i) {
        EXPECT_STREQ(cells[i].first, kept[i].first);
        EXPECT_EQ(cells[i].second, kept[i].second) << kept[i].first;
    }
    EXPECT_EQ(fields.keeping("EVENT"), &on.cboEvent);
    EXPECT_EQ(fields.keeping("Note"), nullptr) << "it is only shown";
    fields.clear();
    EXPECT_EQ(on.cboDoc.text() + on.cboEvent.text() + on.lblNo.caption(), "");
}

TEST_F(Shapes, WhoIsPickedAsNurseIsOnDutyForTheRestOfTheSession) {
    hospital.addUser("joy", "NURSING", "Joy Ade", "E007");
    sheet().cboNurse.fill();
    set("cboNurse", "Joy Ade [E007]");
    EXPECT_EQ(place.session.gEmpID, "E007");
    set("cboNurse", "");
    EXPECT_EQ(place.session.gEmpID, "E007") << "nobody is no nurse";

    hospital.addUser("ojo", "CONSULTING", "Tunde Ojo", "D1");
    core::fillStaff(sheet().cboDoc, place.hospital(), "CONSULTING");
    EXPECT_EQ(sheet().cboDoc.items().size(), 2U);
    EXPECT_EQ(sheet().cboDoc.items().back().text, "Tunde Ojo [D1]");
}

TEST_F(Shapes, ATreatmentReadsWhoFirstAndEndsWithItsEnd) {
    EXPECT_EQ(core::treatmentText(place.hospital(), "7"), "N/A");
    EXPECT_EQ(core::between("Ada [C1] (old)", "[", "]"), "C1");
    EXPECT_EQ(core::between("Ada [C1", "[", "]"), "C1");
    EXPECT_EQ(core::between("Ada", "[", "]"), "");
}

}  // namespace
}  // namespace test
