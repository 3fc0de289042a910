#pragma once

#include "tests/contract/corpus.h"
#include "tests/contract/layouts.h"
#include "tests/core/atscreen.h"

namespace test {

/// A nurse at a screen that keeps no records. Whatever a test did there: the layout has a place and words for all that
/// shows.
class PlainScreen : public AtScreen {
protected:
    PlainScreen(std::string screen, void (*provide)(core::Workplace&), void (*arrange)(TestHospital&) = {})
        : AtScreen(std::move(screen), provide, arrange) {}
    void TearDown() override {
        const auto* screen = place.desktop.loaded(name);
        if (screen) {
            EXPECT_EQ(faultsOfLayout(*screen), std::vector<std::string>{});
        }
    }
    /// Loads the screen anew.
    void open() {
        place.desktop.unload(name);
        hospital.forget();
        place.desktop.show(name);
    }
    /// The statements since the last `forget`, each of which has to be a known one.
    std::vector<std::string> sent() {
        for (const auto& statement : hospital.log()) {
            const bool text =
                statement.kind == db::Statement::Kind::read || statement.kind == db::Statement::Kind::execute;
            EXPECT_TRUE(!text || isKnown(statement.database, statement.text)) << statement.text;
        }
        return hospital.statements();
    }
    bool isOpen() { return place.desktop.loaded(name) != nullptr; }
    /// The texts of a grid's visible rows in some columns, "a|b" each and a line break behind it.
    std::string list(std::initializer_list<const char*> columns, const char* grid = "dGexp") {
        auto& rows = dynamic_cast<ui::DataGrid&>(*place.desktop.loaded(name)->find(grid)).rows();
        std::string all;
        for (rows.moveFirst(); !rows.eof(); rows.moveNext())
            for (const auto* column : columns)
                all += rows[column].textOr("null") + (column == *(columns.end() - 1) ? "\n" : "|");
        return all;
    }
    int row(const char* grid = "dGexp") { return place.desktop.get(name + "." + grid)["row"]; }
};

}  // namespace test
