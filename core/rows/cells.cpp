#include "core/rows/cells.h"

namespace core {

Cells joined(Cells cells, const Cells& further) {
    cells.insert(cells.end(), further.begin(), further.end());
    return cells;
}

void setCells(db::Recordset& rows, const Cells& cells) {
    for (const auto& [column, value] : cells) rows.set(column, value);
}

void addRow(db::Connection& connection, const db::Sql& emptySet, const Cells& cells) {
    db::Recordset rows(connection, emptySet);
    rows.addNew();
    setCells(rows, cells);
    rows.update();
}

db::Value valueOf(const ui::DatePicker& date) {
    return date.value() ? db::Value(*date.value()) : db::Value();
}

std::string textOf(const ui::DatePicker& date) {
    return valueOf(date).textOr();
}

void showDate(ui::DatePicker& date, const db::Value& stored) {
    if (stored.isNullOrEmpty()) return date.setValue({});
    date.setValue(stored.moment());
}

}  // namespace core
