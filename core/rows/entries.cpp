#include "core/rows/entries.h"

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

void addEntries(ui::ItemControl& list, db::Recordset rows,
                const std::function<std::string(const db::Recordset&)>& text) {
    list.expect(rows.rowCount());
    for (; !rows.eof(); rows.moveNext()) list.add(text(rows));
}

void addEntries(ui::ItemControl& list, db::Connection& connection, const db::Sql& sql,
                const std::function<std::string(const db::Recordset&)>& text) {
    addEntries(list, connection.read(sql), text);
}

void addColumn(ui::ItemControl& list, db::Connection& connection, const db::Sql& sql, std::string_view column) {
    addEntries(list, connection, sql, [&](const db::Recordset& row) { return row[column].textOr(); });
}

int itemWithKey(const ui::ItemControl& list, std::string_view key) {
    for (std::size_t at = 0; at < list.items().size(); ++at)
        if (entryOf(list.items().text(at)).key == key) return static_cast<int>(at);
    return -1;
}

void showEntry(ui::ComboBox& list, const std::string& text) {
    list.clearText();
    if (text.empty()) return;
    if (list.items().find(text) < 0) list.add(text);
    list.setText(text);
}

}  // namespace core
