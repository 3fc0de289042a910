#pragma once

#include <string>
#include <utility>
#include <vector>

#include "db/connection.h"
#include "db/recordset.h"
#include "ui/controls.h"

namespace core {

/// The columns that a save sets, in their order.
using Cells = std::vector<std::pair<const char*, db::Value>>;
/// The same with further ones behind them.
[[nodiscard]] Cells joined(Cells cells, const Cells& further);
/// Sets them in the current or the new row of a result set.
void setCells(db::Recordset& rows, const Cells& cells);
/// Adds one row to the table that an empty result set ("select * from T where 1=2") opens. Throws db::Error.
void addRow(db::Connection& connection, const db::Sql& emptySet, const Cells& cells);

/// What a date picker holds, as it is stored: Null for a blank one.
[[nodiscard]] db::Value valueOf(const ui::DatePicker& date);
/// The same between the quotes of a statement: "" for a blank one.
[[nodiscard]] std::string textOf(const ui::DatePicker& date);
/// Shows a stored date; a Null and an empty text are a blank. Throws db::Error(type) for what is none.
void showDate(ui::DatePicker& date, const db::Value& stored);

}  // namespace core
