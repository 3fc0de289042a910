#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "db/connection.h"
#include "ui/controls.h"

namespace core {

/// An entry of a list, "ADA OBI [N001]": what is shown, and the key in the brackets.
struct Entry {
    std::string name;  ///< the text before the first "[", trimmed; all of it where there is none
    std::string key;   ///< the text behind the first "[" without the last character; "" where there is none
};
Entry entryOf(std::string_view text);
/// "ADA OBI [N001]".
std::string entryText(std::string_view name, std::string_view key);

/// Offers these texts alone.
void fill(ui::ItemControl& list, std::initializer_list<const char*> texts);

/// Appends an item for each row, as `text` makes it from the row.
void addEntries(ui::ItemControl& list, db::Recordset rows,
                const std::function<std::string(const db::Recordset&)>& text);
/// The same with the rows that a statement finds. Throws db::Error.
void addEntries(ui::ItemControl& list, db::Connection& connection, const db::Sql& sql,
                const std::function<std::string(const db::Recordset&)>& text);
/// The same with the text of one column, null as "".
void addColumn(ui::ItemControl& list, db::Connection& connection, const db::Sql& sql, std::string_view column);

/// The place of the item whose entry has this key; -1 without one.
int itemWithKey(const ui::ItemControl& list, std::string_view key);
/// Shows a stored text in a list: picks its entry, which is added where the list does not have it (any more), and
/// raises Click. An empty text picks nothing.
void showEntry(ui::ComboBox& list, const std::string& text);

}  // namespace core
