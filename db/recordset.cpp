#include "db/recordset.h"

#include <algorithm>

#include "db/error.h"
#include "db/recordsetstate.h"

namespace db {

namespace {

const std::shared_ptr<const RowBuffer>& noRows() {
    static const auto none = std::make_shared<const RowBuffer>();
    return none;
}
[[noreturn]] void noCurrentRow() {
    throw Error(Category::other, "Either BOF or EOF is True, or the current record has been deleted.");
}
[[noreturn]] void rowGone() {
    throw Error(Category::other,
                "Row cannot be located for updating. Some values may have been changed since it was last read.");
}
[[noreturn]] void otherRowPending() {
    throw Error(Category::other, "Operation is not allowed in this context.");
}

}  // namespace

Recordset::Recordset() : Recordset(noRows()) {}

Recordset::Recordset(RowBuffer rows) : Recordset(std::make_shared<RowBuffer>(std::move(rows))) {}

Recordset::Recordset(std::shared_ptr<const RowBuffer> rows) : state_(std::make_unique<State>()) {
    state_->rows = std::move(rows);
}

Recordset::Recordset(Connection& connection, const Sql& sql) : Recordset(connection.rows(sql)) {
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
    return state_->rows->names();
}

bool Recordset::hasField(std::string_view name) const noexcept {
    return state_->rows->column(name) < state_->rows->columnCount();
}

Value Recordset::value(std::string_view field) const {
    const auto column = state_->column(field);
    if (eof()) noCurrentRow();
    const auto* set = state_->current == state_->pendingRow ? state_->pending.find(column) : nullptr;
    return set ? *set : state_->stored(state_->current, column);
}

Value Recordset::value(std::size_t row, std::size_t column) const {
    if (column >= state_->rows->columnCount()) noSuchField();
    if (row >= state_->count()) noCurrentRow();
    return state_->stored(row, column);
}

std::uint64_t Recordset::rowHash(std::size_t row) const {
    if (row >= state_->count()) noCurrentRow();
    if (!state_->written(row)) return state_->rows->hash(row);
    RowBuffer written;  // it reads as what was set, and not as what the engine gave
    for (std::size_t column = 0; column < fields().size(); ++column) {
        written.addColumn({}, RowBuffer::Reading::plain);
        const auto value = state_->stored(row, column);
        const auto* bytes = std::get_if<Bytes>(&value.content());
        if (bytes)
            written.addBytes({reinterpret_cast<const char*>(bytes->data()), bytes->size()});
        else
            written.addText(value.textOr());
    }
    return written.hash(0);
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
