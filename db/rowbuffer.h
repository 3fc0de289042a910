#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "db/value.h"

namespace db {

/// The rows of a result set, read once from left to right: small fixed cells, their texts and bytes in one arena.
/// Moments stay in the text that the engine gave until somebody asks for the cell.
class RowBuffer {
public:
    /// How a column's stored form reads.
    enum class Reading : std::uint8_t { plain, date, time, datetime, flag, money };

    void addColumn(std::string name, Reading reading) {
        names_.push_back(std::move(name));
        readings_.push_back(reading);
    }
    /// A column behind all others that nobody asked for: a part of the row's key, which an update needs.
    void addHidden(std::string name, Reading reading) {
        hidden_.push_back(std::move(name));
        readings_.push_back(reading);
    }
    /// For a column whose reading shows only in its first value.
    void setReading(std::size_t column, Reading reading) { readings_[column] = reading; }
    /// Room for cells and for the bytes of their texts.
    struct Size {
        std::size_t cells = 0, bytes = 0;
    };
    [[nodiscard]] Size size() const noexcept { return {cells_.size(), arena_.size()}; }
    /// What a result may take in memory: nobody reads that many rows, and all sessions share one host.
    static constexpr std::size_t largest = std::size_t{128} * 1024 * 1024;
    [[nodiscard]] bool isTooLarge() const noexcept { return cells_.size() * sizeof(Cell) + arena_.size() > largest; }
    /// Makes the room at once that the rows are expected to need: growing costs a large result more than reading it.
    void reserve(const Size& expected) {
        cells_.reserve(expected.cells);
        arena_.reserve(expected.bytes);
    }
    /// Gives room back where much more was made than the rows needed.
    void fit() {
        if (cells_.capacity() > 2 * cells_.size()) cells_.shrink_to_fit();
        if (arena_.capacity() > 2 * arena_.size()) arena_.shrink_to_fit();
    }
    void addNull() { cells_.push_back(Cell{}); }
    void addInteger(std::int64_t number) { cells_.push_back(Cell{Kind::integer, 0, {.integer = number}}); }
    void addNumber(double number) { cells_.push_back(Cell{Kind::number, 0, {.number = number}}); }
    void addText(std::string_view text) { addArena(Kind::text, text); }
    void addBytes(std::string_view bytes) { addArena(Kind::bytes, bytes); }

    [[nodiscard]] const std::vector<std::string>& names() const noexcept { return names_; }
    [[nodiscard]] std::size_t columnCount() const noexcept { return names_.size(); }
    [[nodiscard]] std::size_t rowCount() const noexcept { return names_.empty() ? 0 : cells_.size() / width(); }
    /// The column of this name in any letter case, or columnCount().
    [[nodiscard]] std::size_t column(std::string_view name) const noexcept;
    /// The same with the hidden columns, which `value` gives too; `width()` for a name that is none of them.
    [[nodiscard]] std::size_t anyColumn(std::string_view name) const noexcept;
    [[nodiscard]] std::size_t width() const noexcept { return names_.size() + hidden_.size(); }
    [[nodiscard]] Value value(std::size_t row, std::size_t column) const;
    /// A hash of all cells of a row but the hidden ones: rows of the same hash read the same.
    [[nodiscard]] std::uint64_t hash(std::size_t row) const noexcept;
    /// The table that all columns come from, or "": what an update of the result set writes to.
    std::string table;

private:
    enum class Kind : std::uint8_t { null, integer, number, text, bytes };
    struct Cell {
        Kind kind = Kind::null;
        std::uint32_t size = 0;
        union {
            std::int64_t integer;
            double number;
            std::size_t offset;
        } content = {.integer = 0};
    };
    [[nodiscard]] std::string_view arena(const Cell& cell) const noexcept {
        return std::string_view(arena_).substr(cell.content.offset, cell.size);
    }
    void addArena(Kind kind, std::string_view content) {
        cells_.push_back(Cell{kind, static_cast<std::uint32_t>(content.size()), {.offset = arena_.size()}});
        arena_.append(content);
    }

    std::vector<std::string> names_;
    std::vector<std::string> hidden_;
    std::vector<Reading> readings_;  ///< of both
    std::vector<Cell> cells_;
    std::string arena_;
};

}  // namespace db
