
#include "core/rows/grids.h"
#include "db/rowbuffer.h"
#include "tests/support/hospital.h"

namespace {

using Rows = std::vector<std::pair<const char*, const char*>>;

db::Recordset list(const Rows& rows) {
    db::RowBuffer buffer;
    for (const char* column : {"Doctor", "Waiting"}) buffer.addColumn(column, db::RowBuffer::Reading::plain);
    for (const auto& [doctor, waiting] : rows) {
        buffer.addText(doctor);
        buffer.addText(waiting);
    }
    return db::Recordset(std::move(buffer));
}

class QueueScreen : public ui::Screen {
public:
    explicit QueueScreen(ui::Desktop& desktop) : Screen(desktop, "frmQueue", "Queue") {
        grid.on(ui::Event::rowChange, [this] { ++rowChanges; });
    }
    ui::DataGrid grid{*this, "grid"};
    int rowChanges = 0;
};

TEST(Grids, ANewReadingKeepsTheRowUnderTheCursor) {
    test::TestHospital hospital;
    hospital.place.desktop.provide("frmQueue", [&] { return std::make_unique<QueueScreen>(hospital.place.desktop); });
    hospital.place.desktop.show("frmQueue");
    auto& screen = dynamic_cast<QueueScreen&>(*hospital.place.desktop.loaded("frmQueue"));
    auto& grid = screen.grid;
    struct Case {
        const char* name;
        Rows before;
        int row;
        Rows after;
        int rowAfter;
        bool told;
    };
    const Case cases[] = {
        {"the first list", {}, -1, {{"Ade", "1"}, {"Ojo", "2"}}, 0, true},
        {"nothing new", {{"Ade", "1"}, {"Ojo", "2"}}, 1, {{"Ade", "1"}, {"Ojo", "2"}}, 1, false},
        {"another value", {{"Ade", "1"}, {"Ojo", "2"}}, 1, {{"Ade", "1"}, {"Ojo", "3"}}, 1, true},
        {"a row before", {{"Ade", "1"}, {"Ojo", "2"}}, 1, {{"Abu", "1"}, {"Ade", "1"}, {"Ojo", "2"}}, 2, true},
        {"another order", {{"Ade", "1"}, {"Ojo", "2"}}, 1, {{"Ojo", "2"}, {"Ade", "1"}}, 0, true},
        {"gone", {{"Ade", "1"}, {"Ojo", "2"}, {"Zia", "3"}}, 1, {{"Ade", "1"}, {"Zia", "3"}}, 1, true},
        {"gone at the end", {{"Ade", "1"}, {"Ojo", "2"}}, 1, {{"Ade", "1"}}, 0, true},
        {"all gone", {{"Ade", "1"}, {"Ojo", "2"}}, 1, {}, -1, true},
    };
    for (const auto& [name, before, row, after, rowAfter, told] : cases) {
        grid.bind(list(before));
        grid.setRow(row);
        screen.rowChanges = 0;
        hospital.place.desktop.flushChanges();
        hospital.forget();
        core::refreshRows(grid, list(after), {"Doctor"});
        hospital.place.desktop.flushChanges();
        EXPECT_EQ(grid.row(), rowAfter) << name;
        EXPECT_EQ(rowAfter < 0 ? "" : grid.text("Doctor"), rowAfter < 0 ? "" : grid.rows()["Doctor"].text()) << name;
        EXPECT_EQ(!hospital.events().empty(), told) << name;
        EXPECT_EQ(screen.rowChanges, 0) << name;
    }
}

}  // namespace
