#include "core/rows/grids.h"

#include <algorithm>
#include <string>
#include <vector>

namespace core {
namespace {

bool sameRows(const db::Recordset& left, const db::Recordset& right) {
    if (left.fields() != right.fields() || left.rowCount() != right.rowCount()) return false;
    for (std::size_t row = 0; row < left.rowCount(); ++row)
        if (left.rowHash(row) != right.rowHash(row)) return false;
    return true;
}

/// Texts by the columns that hold them.
using Wanted = std::vector<std::pair<std::string_view, std::string>>;

/// The first row that holds these texts, from 0, or `otherwise`.
int placeOf(const Wanted& wanted, db::Recordset& rows, int otherwise) {
    const auto holds = [&rows](const auto& cell) { return rows[cell.first].textOr() == cell.second; };
    for (rows.moveFirst(); !rows.eof(); rows.moveNext())
        if (std::all_of(wanted.begin(), wanted.end(), holds)) return static_cast<int>(rows.row());
    return otherwise;
}

}  // namespace

void refreshRows(ui::DataGrid& grid, db::Recordset rows, std::initializer_list<std::string_view> key) {
    if (sameRows(grid.rows(), rows)) return;
    if (grid.row() < 0 || grid.rows().fields() != rows.fields()) return grid.bind(std::move(rows));
    Wanted current;
    for (const auto column : key) current.emplace_back(column, grid.text(column));
    const int place = placeOf(current, rows, grid.row());
    grid.bind(std::move(rows), place);
}

void selectRow(ui::DataGrid& grid, std::string_view column, std::string_view text) {
    grid.setRow(placeOf({{column, std::string(text)}}, grid.rows(), grid.row()));
}

}  // namespace core
