#pragma once

#include <initializer_list>
#include <string_view>

#include "db/recordset.h"
#include "ui/controls.h"

namespace core {

/// Shows a new reading of a grid's list without moving the row under the cursor: the current row stays the one with the
/// same texts in the columns of `key`, wherever it lies now. Where that row has gone, the cursor stays at its place.
/// A reading that brought nothing new leaves the grid, and the page, untouched; a list of other columns starts at its
/// first row.
void refreshRows(ui::DataGrid& grid, db::Recordset rows, std::initializer_list<std::string_view> key);

/// Puts the cursor on the first row with this text in a column, and leaves it where it is when there is none.
void selectRow(ui::DataGrid& grid, std::string_view column, std::string_view text);

}  // namespace core
