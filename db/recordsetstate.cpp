// What a result set holds besides the rows that were read, and how a change of it is written.

#include "db/recordsetstate.h"

#include <algorithm>

#include "db/error.h"
#include "db/letters.h"

namespace db {

namespace {

[[noreturn]] void notUpdatable() {
    throw Error(Category::other,
                "Current Recordset does not support updating. This may be a limitation of the provider, or of the "
                "selected locktype.");
}
[[noreturn]] void noKey() {
    throw Error(Category::other, "Insufficient key column information for updating or refreshing.");
}

bool hasColumn(const Table& table, std::string_view name) {
    return std::any_of(table.columns.begin(), table.columns.end(),
                       [&](const Column& column) { return sameName(column.name, name); });
}

}  // namespace

[[noreturn]] void noSuchField() {
    throw Error(Category::other,
                "Item cannot be found in the collection corresponding to the requested name or ordinal.");
}

/// What updates put into a row since it was read, or nothing.
const RowCells* Recordset::State::written(std::size_t row) const noexcept {
    if (row >= rows->rowCount()) return row < count() ? &added[row - rows->rowCount()] : nullptr;
    if (changed.empty()) return nullptr;
    const auto cells = changed.find(row);
    return cells == changed.end() ? nullptr : &cells->second;
}

Value Recordset::State::stored(std::size_t row, std::size_t column) const {
    const auto* cells = written(row);
    const auto* value = cells ? cells->find(column) : nullptr;
    if (value) return *value;
    return row < rows->rowCount() ? rows->value(row, column) : Value();
}

void Recordset::State::dropPending() noexcept {
    pending.clear();
    adding = false;
}

const Table& Recordset::State::table() const {
    if (!connection || rows->table.empty()) notUpdatable();
    const auto* table = connection->withEngine("update", [&](Engine& engine) { return engine.table(rows->table); });
    if (!table) notUpdatable();
    return *table;
}

NamedCells Recordset::State::cellsSet(const Table& table) const {
    NamedCells set;
    for (const auto& [column, value] : pending) {
        const auto& name = rows->names()[column];
        if (!hasColumn(table, name)) noSuchField();
        set.add(name, value);
    }
    return set;
}

NamedCells Recordset::State::keyOfRow(const Table& table) const {
    NamedCells key;
    for (const auto& column : table.columns) {
        if (!column.key) continue;
        const auto field = rows->anyColumn(column.name);
        if (field == rows->width()) noKey();
        key.add(column.name, stored(pendingRow, field));
    }
    if (key.columns.empty()) noKey();
    return key;
}

void Recordset::State::recordUpdate(const Table& table, const NamedCells& set) const {
    if (!connection->recording()) return;
    std::vector<std::pair<std::string, Value>> parameters;
    parameters.reserve(set.columns.size());
    for (std::size_t i = 0; i < set.columns.size(); ++i) parameters.emplace_back(set.columns[i], set.values[i]);
    if (adding)
        connection->record(Statement::Kind::insert, "insert " + table.name, std::move(parameters));
    else
        connection->record(Statement::Kind::update, "update " + table.name, std::move(parameters));
}

Outcome Recordset::State::write(const Table& table, const NamedCells& set) {
    const auto key = adding ? NamedCells{} : keyOfRow(table);
    recordUpdate(table, set);
    return connection->withEngine("update", [&](Engine& engine) {
        return adding ? engine.insertRow(table, set.columns, set.values)
                      : engine.updateRow(table, set.columns, set.values, key.columns, key.values);
    });
}

/// The row now shows what was written.
void Recordset::State::keep(const Table& table, const Outcome& outcome) {
    for (const auto& column : table.columns) {
        if (!adding || !column.identity) continue;
        const auto field = rows->column(column.name);
        if (field < rows->columnCount()) pending.set(field, outcome.identity);
    }
    if (adding)
        added.push_back(std::move(pending));
    else
        changed[pendingRow].merge(std::move(pending));
    current = pendingRow;
    dropPending();
}

}  // namespace db
