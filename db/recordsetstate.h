#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "db/connection.h"
#include "db/engine.h"
#include "db/recordset.h"
#include "db/rowbuffer.h"

namespace db {

/// Names and values of one row's columns, side by side, as an engine takes them.
struct NamedCells {
    std::vector<std::string> columns;
    std::vector<Value> values;
    void add(const std::string& column, Value value) {
        columns.push_back(column);
        values.push_back(std::move(value));
    }
};

/// Some cells of one row, by column.
class RowCells {
public:
    [[nodiscard]] bool empty() const noexcept { return cells_.empty(); }
    [[nodiscard]] auto begin() const noexcept { return cells_.begin(); }
    [[nodiscard]] auto end() const noexcept { return cells_.end(); }
    [[nodiscard]] const Value* find(std::size_t column) const noexcept {
        const auto cell = position(column);
        return cell == cells_.size() ? nullptr : &cells_[cell].second;
    }
    void set(std::size_t column, Value value) {
        const auto cell = position(column);
        if (cell == cells_.size())
            cells_.emplace_back(column, std::move(value));
        else
            cells_[cell].second = std::move(value);
    }
    void merge(RowCells&& other) {
        for (auto& [column, value] : other.cells_) set(column, std::move(value));
    }
    void clear() noexcept { cells_.clear(); }

private:
    [[nodiscard]] std::size_t position(std::size_t column) const noexcept {
        std::size_t cell = 0;
        while (cell < cells_.size() && cells_[cell].first != column) ++cell;
        return cell;
    }

    std::vector<std::pair<std::size_t, Value>> cells_;
};

[[noreturn]] void noSuchField();

/// The rows as they were read, what updates changed in them since, and what is set but not written.
struct Recordset::State {
    std::shared_ptr<const RowBuffer> rows;
    Connection* connection = nullptr;
    std::size_t current = 0;
    mutable std::size_t lastColumn = 0;  ///< the one that was asked for last: screens read rows from left to right
    std::unordered_map<std::size_t, RowCells> changed;  ///< by the number of the row
    std::vector<RowCells> added;                        ///< the rows behind those of `rows`

    bool adding = false;
    std::size_t rowBeforeNew = 0;
    std::size_t pendingRow = 0;
    RowCells pending;

    [[nodiscard]] std::size_t count() const noexcept { return rows->rowCount() + added.size(); }
    [[nodiscard]] bool onRow() const noexcept { return current < count() || (adding && current == count()); }
    [[nodiscard]] bool anythingPending() const noexcept { return adding || !pending.empty(); }
    [[nodiscard]] std::size_t column(std::string_view name) const {
        lastColumn = rows->column(name, lastColumn + 1);
        if (lastColumn == rows->columnCount()) noSuchField();
        return lastColumn;
    }
    [[nodiscard]] const RowCells* written(std::size_t row) const noexcept;
    [[nodiscard]] Value stored(std::size_t row, std::size_t column) const;
    void dropPending() noexcept;

    [[nodiscard]] const Table& table() const;
    [[nodiscard]] NamedCells cellsSet(const Table& table) const;
    [[nodiscard]] NamedCells keyOfRow(const Table& table) const;
    void recordUpdate(const Table& table, const NamedCells& set) const;
    Outcome write(const Table& table, const NamedCells& set);
    void keep(const Table& table, const Outcome& outcome);
};

}  // namespace db
