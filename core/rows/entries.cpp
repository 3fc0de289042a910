#include "core/rows/entries.h"

#include <algorithm>

#include "core/texts/texts.h"

namespace core {

Entry entryOf(std::string_view text) {
    const auto bracket = text.find('[');
    if (bracket == std::string_view::npos) return {trimmed(text), {}};
    const auto key = text.substr(bracket + 1);
    return {trimmed(text.substr(0, bracket)), std::string(key.substr(0, key.empty() ? 0 : key.size() - 1))};
}

std::string entryText(std::string_view name, std::string_view key) {
    return std::string(name).append(" [").append(key).append("]");
}

void fill(ui::ItemControl& list, std::initializer_list<const char*> texts) {
    list.clear();
    for (const auto* text : texts) list.add(text);
}

void addEntries(ui::ItemControl& list, db::Connection& connection, const db::Sql& sql,
                const std::function<std::string(const db::Recordset&)>& text) {
    for (auto rows = connection.read(sql); !rows.eof(); rows.moveNext()) list.add(text(rows));
}

void addColumn(ui::ItemControl& list, db::Connection& connection, const db::Sql& sql, std::string_view column) {
    addEntries(list, connection, sql, [&](const db::Recordset& row) { return row[column].textOr(); });
}

int itemWithKey(const ui::ItemControl& list, std::string_view key) {
    const auto& items = list.items();
    const auto found = std::find_if(items.begin(), items.end(),
                                    [&](const ui::ListItem& item) { return entryOf(item.text).key == key; });
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

void showEntry(ui::ComboBox& list, const std::string& text) {
    list.clearText();
    if (text.empty()) return;
    const auto& items = list.items();
    if (std::none_of(items.begin(), items.end(), [&](const ui::ListItem& item) { return item.text == text; }))
        list.add(text);
    list.setText(text);
}

}  // namespace core
