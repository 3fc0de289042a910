#include "db/rowbuffer.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <functional>
#include <unordered_map>
#include <utility>

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

std::size_t RowBuffer::column(std::string_view name, std::size_t guess) const noexcept {
    if (namesDiffer_ && guess < names_.size() && sameName(names_[guess], name)) return guess;
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

void RowBuffer::reserve(const Size& expected) {
    const auto cells = std::min(expected.cells, pageCells_);
    open_.cells.reserve(cells);
    if (expected.cells > 0) open_.texts.reserve(expected.bytes / (expected.cells / std::max<std::size_t>(cells, 1)));
}

void RowBuffer::closePage() {
    Page next;
    next.cells.reserve(pageCells_);
    next.texts.reserve(open_.texts.size() + open_.texts.size() / 8);
    fullCells_ += open_.cells.size();
    fullBytes_ += open_.texts.size();
    full_.push_back(std::make_shared<Page>(std::exchange(open_, std::move(next))));
}

RowBuffer::Place RowBuffer::place(std::size_t row) const noexcept {
    if (!runEnds_.empty()) {
        const auto run =
            static_cast<std::size_t>(std::upper_bound(runEnds_.begin(), runEnds_.end(), row) - runEnds_.begin());
        return {*full_[run], row - (run == 0 ? 0 : runEnds_[run - 1])};
    }
    const auto rowsOfPage = pageCells_ / width();
    const auto page = row / rowsOfPage;
    return {page < full_.size() ? *full_[page] : open_, row - std::min(page, full_.size()) * rowsOfPage};
}

Value RowBuffer::value(std::size_t row, std::size_t column) const {
    const auto [page, at] = place(row);
    const auto& cell = page.cells[at * width() + column];
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
            return isMoment(reading) ? momentOrText(page.content(cell)) : Value(page.content(cell));
        case Kind::bytes:
            return bytesOf(page.content(cell));
        case Kind::null:
            break;
    }
    return Null{};
}

std::uint64_t RowBuffer::hash(std::size_t row) const noexcept {
    const auto place = this->place(row);
    return place.page.hashes.empty() ? hash(place, columnCount()) : place.page.hashes[place.row];
}

/// Texts and bytes of a row lie side by side: one pass over them, and one over the cells.
std::uint64_t RowBuffer::hash(const Place& place, std::size_t columns) const noexcept {
    const auto* cells = place.page.cells.data() + place.row * width();
    std::uint64_t hash = 0;
    const Cell* first = nullptr;
    const Cell* last = nullptr;
    for (std::size_t column = 0; column < columns; ++column) {
        const auto& cell = cells[column];
        if (isLong(cell) && !first) first = &cell;
        if (isLong(cell)) last = &cell;
        const auto form = static_cast<std::uint64_t>(cell.kind) << 8U | static_cast<std::uint64_t>(readings_[column]);
        const auto content = cell.kind == Kind::number ? std::bit_cast<std::uint64_t>(cell.content.number)
                                                       : static_cast<std::uint64_t>(cell.content.integer);
        hash = mixed(mixed(hash, form), isLong(cell) ? cell.size : content);
    }
    if (!first) return hash;
    const auto from = first->content.offset;
    const auto texts = std::string_view(place.page.texts).substr(from, last->content.offset + last->size - from);
    return mixed(hash, std::hash<std::string_view>()(texts));
}

std::size_t RowBuffer::shareWith(const RowBuffer& earlier) {
    constexpr std::uint64_t rowsOfRun = 16;  // on average: short, since a change copies a run for each session
    std::unordered_map<std::uint64_t, std::shared_ptr<const Page>> runs;
    if (!earlier.runEnds_.empty())
        for (const auto& page : earlier.full_) runs.emplace(page->run, page);
    Pages pages;
    std::vector<std::size_t> ends;
    std::size_t fresh = 0;
    std::size_t begin = 0;
    std::uint64_t run = 0;
    for (std::size_t row = 0; row < rowCount(); ++row) {
        const auto whole = hash(place(row), width());
        run = mixed(run, whole);
        if (whole % rowsOfRun != 0 && row + 1 < rowCount()) continue;
        auto& page = runs[run];
        if (!page) {
            page = copied(begin, row + 1, run);
            fresh += row + 1 - begin;
        }
        pages.push_back(page);
        ends.push_back(row + 1);
        begin = row + 1;
        run = 0;
    }
    fullCells_ = size().cells;
    fullBytes_ = size().bytes;
    open_ = {};
    full_ = std::move(pages);
    runEnds_ = std::move(ends);
    return fresh;
}

std::shared_ptr<const RowBuffer::Page> RowBuffer::copied(std::size_t begin, std::size_t end, std::uint64_t run) const {
    auto copy = std::make_shared<Page>();
    copy->run = run;
    copy->cells.reserve((end - begin) * width());
    for (std::size_t row = begin; row < end; ++row) {
        const auto [page, at] = place(row);
        copy->hashes.push_back(hash({page, at}, columnCount()));
        for (std::size_t column = 0; column < width(); ++column) {
            const auto& cell = page.cells[at * width() + column];
            if (isLong(cell))
                copy->add(cell, page.content(cell));
            else
                copy->cells.push_back(cell);
        }
    }
    copy->texts.shrink_to_fit();
    copy->hashes.shrink_to_fit();
    return copy;
}

}  // namespace db
