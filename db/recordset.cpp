#include "db/recordset.h"

#include <algorithm>
#include <unordered_map>

#include "db/connection.h"
#include "db/engine.h"
#include "db/error.h"
#include "db/letters.h"
#include "db/rowbuffer.h"

namespace db {

namespace {

[[noreturn]] void noSuchField() {
    throw Error(Category::other,
                "Item cannot be found in the collection corresponding to the requested name or ordinal.");
}
[[noreturn]] void noCurrentRow() {
    throw Error(Category::other, "Either BOF or EOF is True, or the current record has been deleted.");
}
[[noreturn]] void notUpdatable() {
    throw Error(Category::other,
                "Current Recordset does not support updating. This may be a limitation of the provider, or of the "
                "selected locktype.");
}
[[noreturn]] void noKey() {
    throw Error(Category::other, "Insufficient key column information for updating or refreshing.");
}
[[noreturn]] void rowGone() {
    throw Error(Category::other,
                "Row cannot be located for updating. Some values may have been changed since it was last read.");
}
[[noreturn]] void otherRowPending() {
    throw Error(Category::other, "Operation is not allowed in this context.");
}

bool hasColumn(const Table& table, std::string_view name) {
    return std::any_of(table.columns.begin(), table.columns.end(),
                       [&](const Column& column) { return sameName(column.name, name); });
}

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

}  // namespace

/// The rows as they were read, what updates changed in them since, and what is set but not written.
struct Recordset::State {
    RowBuffer rows;
    Connection* connection = nullptr;
    std::size_t current = 0;
    std::unordered_map<std::size_t, RowCells> changed;  ///< by the number of the row
    std::vector<RowCells> added;                        ///< the rows behind those of `rows`

    bool adding = false;
    std::size_t rowBeforeNew = 0;
    std::size_t pendingRow = 0;
    RowCells pending;

    [[nodiscard]] std::size_t count() const noexcept { return rows.rowCount() + added.size(); }
    [[nodiscard]] bool onRow() const noexcept { return current < count() || (adding && current == count()); }
    [[nodiscard]] bool anythingPending() const noexcept { return adding || !pending.empty(); }
    [[nodiscard]] std::size_t column(std::string_view name) const {
        const auto column = rows.column(name);
        if (column == rows.columnCount()) noSuchField();
        return column;
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

/// What updates put into a row since it was read, or nothing.
const RowCells* Recordset::State::written(std::size_t row) const noexcept {
    if (row >= rows.rowCount()) return row < count() ? &added[row - rows.rowCount()] : nullptr;
    if (changed.empty()) return nullptr;
    const auto cells = changed.find(row);
    return cells == changed.end() ? nullptr : &cells->second;
}

Value Recordset::State::stored(std::size_t row, std::size_t column) const {
    const auto* cells = written(row);
    const auto* value = cells ? cells->find(column) : nullptr;
    if (value) return *value;
    return row < rows.rowCount() ? rows.value(row, column) : Value();
}

void Recordset::State::dropPending() noexcept {
    pending.clear();
    adding = false;
}

const Table& Recordset::State::table() const {
    if (!connection || rows.table.empty()) notUpdatable();
    const auto* table = connection->withEngine("update", [&](Engine& engine) { return engine.table(rows.table); });
    if (!table) notUpdatable();
    return *table;
}

NamedCells Recordset::State::cellsSet(const Table& table) const {
    NamedCells set;
    for (const auto& [column, value] : pending) {
        const auto& name = rows.names()[column];
        if (!hasColumn(table, name)) noSuchField();
        set.add(name, value);
    }
    return set;
}

NamedCells Recordset::State::keyOfRow(const Table& table) const {
    NamedCells key;
    for (const auto& column : table.columns) {
        if (!column.key) continue;
        const auto field = rows.anyColumn(column.name);
        if (field == rows.width()) noKey();
        key.add(column.name, stored(pendingRow, field));
    }
    if (key.columns.empty()) noKey();
    return key;
}

void Recordset::State::recordUpdate(const Table& table, const NamedCells& set) const {
    if (!connection->recording()) return;
    std::vector<std::pair<std::string, Value>> parameters;
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
        const auto field = rows.column(column.name);
        if (field < rows.columnCount()) pending.set(field, outcome.identity);
    }
    if (adding)
        added.push_back(std::move(pending));
    else
        changed[pendingRow].merge(std::move(pending));
    current = pendingRow;
    dropPending();
}

Recordset::Recordset() : state_(std::make_unique<State>()) {}

Recordset::Recordset(RowBuffer rows) : Recordset() {
    state_->rows = std::move(rows);
}

Recordset::Recordset(Connection& connection, const Sql& sql) : Recordset() {
    if (connection.recording()) connection.record(Statement::Kind::read, sql.text());
    state_->rows = connection.withEngine("read", [&](Engine& engine) { return engine.read(sql.bound()); });
    state_->connection = &connection;
}

Recordset::Recordset(Recordset&& other) noexcept = default;
Recordset& Recordset::operator=(Recordset&& other) noexcept = default;
Recordset::~Recordset() = default;

bool Recordset::eof() const noexcept {
    return !state_->onRow();
}

std::size_t Recordset::rowCount() const noexcept {
    return state_->count();
}

std::size_t Recordset::row() const noexcept {
    return state_->current;
}

void Recordset::moveFirst() noexcept {
    state_->current = 0;
}

void Recordset::moveNext() noexcept {
    moveTo(state_->current + 1);
}

void Recordset::moveTo(std::size_t row) noexcept {
    state_->current = std::min(row, state_->count());
}

const std::vector<std::string>& Recordset::fields() const noexcept {
    return state_->rows.names();
}

bool Recordset::hasField(std::string_view name) const noexcept {
    return state_->rows.column(name) < state_->rows.columnCount();
}

Value Recordset::value(std::string_view field) const {
    const auto column = state_->column(field);
    if (eof()) noCurrentRow();
    const auto* set = state_->current == state_->pendingRow ? state_->pending.find(column) : nullptr;
    return set ? *set : state_->stored(state_->current, column);
}

Value Recordset::value(std::size_t row, std::size_t column) const {
    if (column >= state_->rows.columnCount()) noSuchField();
    if (row >= state_->count()) noCurrentRow();
    return state_->stored(row, column);
}

void Recordset::addNew() {
    if (state_->anythingPending()) otherRowPending();
    state_->rowBeforeNew = state_->current;
    state_->adding = true;
    state_->current = state_->pendingRow = state_->count();
}

void Recordset::set(std::string_view field, Value value) {
    const auto column = state_->column(field);
    if (eof()) noCurrentRow();
    if (state_->anythingPending() && state_->pendingRow != state_->current) otherRowPending();
    state_->pendingRow = state_->current;
    state_->pending.set(column, std::move(value));
}

void Recordset::update() {
    const auto& table = state_->table();
    if (!state_->anythingPending()) return eof() ? noCurrentRow() : void();
    const auto set = state_->cellsSet(table);
    const auto outcome = state_->write(table, set);
    if (!state_->adding && outcome.affected == 0) rowGone();
    state_->keep(table, outcome);
}

void Recordset::cancelUpdate() noexcept {
    if (state_->adding && state_->current == state_->pendingRow) state_->current = state_->rowBeforeNew;
    state_->dropPending();
}

}  // namespace db
