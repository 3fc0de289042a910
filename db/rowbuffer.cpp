#include "db/rowbuffer.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <functional>

#include "db/letters.h"

namespace db {

namespace {

constexpr double moneyUnits = 10000;

Bytes bytesOf(std::string_view content) {
    Bytes bytes(content.size());
    if (!content.empty()) std::memcpy(bytes.data(), content.data(), content.size());
    return bytes;
}

/// A text that is no moment stays a text: the reader of the cell then gets the type error.
Value momentOrText(std::string_view text) {
    const auto moment = DateTime::parse(text);
    return moment ? Value(*moment) : Value(text);
}

bool isMoment(RowBuffer::Reading reading) noexcept {
    using Reading = RowBuffer::Reading;
    return reading == Reading::date || reading == Reading::time || reading == Reading::datetime;
}

/// A hash with one more number in it.
std::uint64_t mixed(std::uint64_t hash, std::uint64_t number) noexcept {
    constexpr std::uint64_t odd = 0x9E3779B97F4A7C15U;
    hash = (hash ^ number) * odd;
    return hash ^ hash >> 32U;
}

}  // namespace

std::size_t RowBuffer::column(std::string_view name) const noexcept {
    std::size_t column = 0;
    while (column < names_.size() && !sameName(names_[column], name)) ++column;
    return column;
}

std::size_t RowBuffer::anyColumn(std::string_view name) const noexcept {
    if (const auto shown = column(name); shown < names_.size()) return shown;
    std::size_t hidden = 0;
    while (hidden < hidden_.size() && !sameName(hidden_[hidden], name)) ++hidden;
    return names_.size() + hidden;
}

Value RowBuffer::value(std::size_t row, std::size_t column) const {
    const auto& cell = cells_[row * width() + column];
    const auto reading = readings_[column];
    switch (cell.kind) {
        case Kind::integer:
            if (reading == Reading::flag) return cell.content.integer != 0;
            if (reading == Reading::money) return static_cast<double>(cell.content.integer);
            return cell.content.integer;
        case Kind::number:
            if (reading == Reading::money) return std::round(cell.content.number * moneyUnits) / moneyUnits;
            return cell.content.number;
        case Kind::text:
            return isMoment(reading) ? momentOrText(arena(cell)) : Value(arena(cell));
        case Kind::bytes:
            return bytesOf(arena(cell));
        case Kind::null:
            break;
    }
    return Null{};
}

/// Texts and bytes of a row lie side by side in the arena: one pass over them, and one over the cells.
std::uint64_t RowBuffer::hash(std::size_t row) const noexcept {
    const auto* cells = cells_.data() + row * width();
    std::uint64_t hash = 0;
    const Cell* first = nullptr;
    const Cell* last = nullptr;
    for (std::size_t column = 0; column < columnCount(); ++column) {
        const auto& cell = cells[column];
        const bool inArena = cell.kind == Kind::text || cell.kind == Kind::bytes;
        if (inArena && !first) first = &cell;
        if (inArena) last = &cell;
        const auto form = static_cast<std::uint64_t>(cell.kind) << 8U | static_cast<std::uint64_t>(readings_[column]);
        const auto content = cell.kind == Kind::number ? std::bit_cast<std::uint64_t>(cell.content.number)
                                                       : static_cast<std::uint64_t>(cell.content.integer);
        hash = mixed(mixed(hash, form), inArena ? cell.size : content);
    }
    if (!first) return hash;
    const auto from = first->content.offset;
    const auto texts = std::string_view(arena_).substr(from, last->content.offset + last->size - from);
    return mixed(hash, std::hash<std::string_view>()(texts));
}

}  // namespace db
