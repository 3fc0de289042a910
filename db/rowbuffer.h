#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "db/value.h"

namespace db {

/// The rows of a result set, read once from left to right: small fixed cells, their texts and bytes beside them, in
/// pages that are never moved. Moments stay in the text that the engine gave until somebody asks for the cell. A copy
/// shares its full pages with the original.
class RowBuffer {
public:
    /// How a column's stored form reads.
    enum class Reading : std::uint8_t { plain, date, time, datetime, flag, money };

    void addColumn(std::string name, Reading reading) {
        namesDiffer_ = namesDiffer_ && column(name) == names_.size();
        names_.push_back(std::move(name));
        addReading(reading);
    }
    /// A column behind all others that nobody asked for: a part of the row's key, which an update needs.
    void addHidden(std::string name, Reading reading) {
        hidden_.push_back(std::move(name));
        addReading(reading);
    }
    /// For a column whose reading shows only in its first value.
    void setReading(std::size_t column, Reading reading) { readings_[column] = reading; }
    /// Room for cells and for the bytes of their texts.
    struct Size {
        std::size_t cells = 0, bytes = 0;
    };
    [[nodiscard]] Size size() const noexcept {
        return {fullCells_ + open_.cells.size(), fullBytes_ + open_.texts.size()};
    }
    /// What a result may take in memory: nobody reads that many rows, and all sessions share one host.
    static constexpr std::size_t largest = std::size_t{128} * 1024 * 1024;
    [[nodiscard]] bool isTooLarge() const noexcept {
        const auto [cells, bytes] = size();
        return cells * sizeof(Cell) + bytes > largest;
    }
    /// Makes the room at once that the rows are expected to need: growing costs more than reading them.
    void reserve(const Size& expected);
    /// Gives room back where much more was made than the rows needed.
    void fit() {
        if (open_.cells.capacity() > 2 * open_.cells.size()) open_.cells.shrink_to_fit();
        if (open_.texts.capacity() > 2 * open_.texts.size()) open_.texts.shrink_to_fit();
    }
    void addNull() { add(Cell{}); }
    void addInteger(std::int64_t number) { add(Cell{Kind::integer, 0, {.integer = number}}); }
    void addNumber(double number) { add(Cell{Kind::number, 0, {.number = number}}); }
    void addText(std::string_view text) { addLong(Kind::text, text); }
    void addBytes(std::string_view bytes) { addLong(Kind::bytes, bytes); }

    /// Cuts the rows into short runs and takes over those that an earlier reading holds too, so that both hold them
    /// once in memory. Where a run ends depends on its rows alone: one new row changes one run, wherever it lies.
    /// Nothing can be added afterwards. Gives the number of rows that it did not find there.
    std::size_t shareWith(const RowBuffer& earlier);

    [[nodiscard]] const std::vector<std::string>& names() const noexcept { return names_; }
    [[nodiscard]] std::size_t columnCount() const noexcept { return names_.size(); }
    [[nodiscard]] std::size_t rowCount() const noexcept {
        return names_.empty() ? 0 : (fullCells_ + open_.cells.size()) / width();
    }
    /// The column of this name in any letter case, or columnCount().
    [[nodiscard]] std::size_t column(std::string_view name) const noexcept { return column(name, 0); }
    /// The same; where to look first saves the way there.
    [[nodiscard]] std::size_t column(std::string_view name, std::size_t guess) const noexcept;
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
    struct Page {
        std::vector<Cell> cells;
        std::string texts;
        std::vector<std::uint64_t> hashes;  ///< of the rows, in a run
        std::uint64_t run = 0;              ///< the hash of a run's rows with what is hidden
        [[nodiscard]] std::string_view content(const Cell& cell) const noexcept {
            return std::string_view(texts).substr(cell.content.offset, cell.size);
        }
        void add(Cell cell, std::string_view content) {
            cell.content.offset = texts.size();
            cells.push_back(cell);
            texts.append(content);
        }
    };
    using Pages = std::vector<std::shared_ptr<const Page>>;
    /// A row, as its page and its number there.
    struct Place {
        const Page& page;
        std::size_t row;
    };

    /// Few enough for a quick copy, and enough that a page costs nothing beside its rows.
    static constexpr std::size_t cellsOfPage = 4096;
    void addReading(Reading reading) {
        readings_.push_back(reading);
        pageCells_ = width() * (width() < cellsOfPage ? cellsOfPage / width() : 1);
    }
    void add(Cell cell) {
        if (open_.cells.size() == pageCells_) closePage();
        open_.cells.push_back(cell);
    }
    void addLong(Kind kind, std::string_view content) {
        if (open_.cells.size() == pageCells_) closePage();
        open_.add(Cell{kind, static_cast<std::uint32_t>(content.size())}, content);
    }
    static bool isLong(const Cell& cell) noexcept { return cell.kind == Kind::text || cell.kind == Kind::bytes; }
    void closePage();
    [[nodiscard]] Place place(std::size_t row) const noexcept;
    [[nodiscard]] std::uint64_t hash(const Place& place, std::size_t columns) const noexcept;
    [[nodiscard]] std::shared_ptr<const Page> copied(std::size_t begin, std::size_t end, std::uint64_t run) const;

    std::vector<std::string> names_;
    bool namesDiffer_ = true;  ///< otherwise the first of a name counts
    std::vector<std::string> hidden_;
    std::vector<Reading> readings_;  ///< of both
    std::size_t pageCells_ = 0;      ///< in a full page, which ends with a row
    Pages full_;
    std::size_t fullCells_ = 0, fullBytes_ = 0;
    std::vector<std::size_t> runEnds_;  ///< the row behind each run; none as long as all full pages are of one length
    Page open_;                         ///< the last page, which takes more
};

}  // namespace db
