#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "db/dialect/dialect.h"
#include "db/sqlite/engine.h"
#include "tests/support/directory.h"
#include "tests/support/failure.h"

namespace test {

/// One line to an embedded database whose clock stands at 24-Nov-2026 09:30.
class Line {
public:
    explicit Line(const std::string& file = ":memory:", const std::map<std::string, db::Source>& sisters = {}) {
        clock.stopAt(db::DateTime::of(2026, 11, 24, 9, 30));
        engine = db::openSqlite("Hospital", {"sqlite", file}, sisters, clock);
    }

    db::Outcome run(const std::string& statement, std::vector<db::Value> values = {}) {
        return engine->execute({statement, std::move(values)});
    }
    void script(const std::string& text) {
        for (const auto& statement : db::dialect::splitScript(text)) run(statement);
    }
    db::RowBuffer read(const std::string& statement, std::vector<db::Value> values = {}) {
        return engine->read({statement, std::move(values)});
    }
    /// All cells as texts: "a|b" a row, rows parted by "/", "null" for a null.
    std::string rows(const std::string& statement, std::vector<db::Value> values = {}) {
        return shown(read(statement, std::move(values)));
    }
    static std::string shown(const db::RowBuffer& rows) {
        std::string text;
        for (std::size_t row = 0; row < rows.rowCount(); ++row)
            for (std::size_t column = 0; column < rows.columnCount(); ++column) {
                const auto value = rows.value(row, column);
                text += column > 0 ? "|" : row > 0 ? "/" : "";
                text += value.isNull() ? "null" : value.text();
            }
        return text;
    }

    db::ServerClock clock;
    std::unique_ptr<db::Engine> engine;
};

}  // namespace test
