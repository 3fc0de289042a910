#include "core/forms/entrygrid.h"

#include "db/value.h"
#include "ui/desktop.h"
#include "ui/screen.h"

namespace core {
namespace {

std::vector<std::string> columnsOf(std::string_view header) {
    std::vector<std::string> columns;
    for (std::size_t from = 0; from <= header.size();) {
        const auto bar = std::min(header.find('|', from), header.size());
        columns.emplace_back(header.substr(from, bar - from));
        from = bar + 1;
    }
    return columns;
}

}  // namespace

EntryGrid::EntryGrid(ui::Screen& screen, std::string name, std::string_view header)
    : FlexGrid(screen, std::move(name), columnsOf(header)) {
    addRow({});
}

bool EntryGrid::has(std::size_t column, std::string_view text) const {
    for (std::size_t line = 0; line < lineCount(); ++line)
        if (cell(line, column) == text) return true;
    return false;
}

double EntryGrid::sum(std::size_t column) const {
    double sum = 0;
    for (std::size_t line = 0; line < lineCount(); ++line) {
        const auto& text = cell(line, column);
        sum += db::parseNumber(db::withoutThousandsSeparators(text).value_or(text)).value_or(0);
    }
    return sum;
}

void EntryGrid::addLine(Line cells) {
    const auto last = lineCount();
    for (std::size_t column = 0; column < cells.size(); ++column) setCell(last, column, std::move(cells[column]));
    addRow({});
}

std::optional<std::size_t> EntryGrid::picked() const noexcept {
    if (row() < 0 || static_cast<std::size_t>(row()) >= lineCount()) return std::nullopt;
    return static_cast<std::size_t>(row());
}

std::optional<EntryGrid::Line> EntryGrid::takeBack(const Taken& taken) {
    const auto line = picked();
    auto& desktop = screen().desktop();
    if (!line || !desktop.askYesNo("Are you sure to Delete?", "Check before Delete")) return std::nullopt;
    Line cells = this->cells(*line);
    removeRow(*line);
    if (taken) taken(*line, cells);
    desktop.message("Item Removed");
    return cells;
}

void EntryGrid::clearLines() {
    clear();
    addRow({});
}

}  // namespace core
