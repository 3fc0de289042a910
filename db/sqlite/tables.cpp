#include <algorithm>

#include "db/error.h"
#include "db/letters.h"
#include "db/sqlite/sqliteengine.h"
#include "db/sqlite/writer.h"

namespace db::sqlite {
namespace {

std::string_view text(sqlite3_stmt* statement, int column) {
    const auto* content = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return content == nullptr ? std::string_view() : content;
}

std::string assignments(const std::vector<std::string>& columns, const char* between) {
    std::string result;
    for (const auto& column : columns) result += (result.empty() ? "" : between) + quotedName(column) + " = ?";
    return result;
}

}  // namespace

const Table* SqliteEngine::table(std::string_view name) {
    requireUsable();
    auto* info = tableInfo(name);
    return info == nullptr ? nullptr : &info->table;
}

SqliteEngine::TableInfo* SqliteEngine::tableInfo(std::string_view name) {
    auto key = lowered(name);
    if (const auto known = tables_.find(key); known != tables_.end()) return known->second.get();
    auto info = std::make_unique<TableInfo>();
    const auto ready = prepare(
        "select m.name, c.name, c.type, c.pk from sqlite_master m, pragma_table_info(m.name) c"
        " where m.type = 'table' and m.name = ?1 collate nocase order by c.cid");
    auto* statement = ready.statement.get();
    const Value wanted(key);
    line_.check(bind(statement, 1, wanted), "bind");
    int code = SQLITE_OK;
    while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
        info->table.name = text(statement, 0);
        const auto type = text(statement, 2);
        const bool isKey = sqlite3_column_int(statement, 3) > 0;
        // Only an identity is declared with this name of the type.
        info->table.columns.push_back({std::string(text(statement, 1)), isKey, isKey && type == "INTEGER"});
        info->kinds.push_back(columnKind(type));
    }
    line_.check(code, "read a table's columns");
    if (info->table.columns.empty()) return nullptr;
    return tables_.emplace(std::move(key), std::move(info)).first->second.get();
}

/// The prepared statement of a row's write, found by its table and columns; `text` writes it where it is new.
template <typename Text>
Prepared& SqliteEngine::preparedRow(const char* kind, const Table& table, const std::vector<std::string>& columns,
                                    const std::vector<std::string>& keys, Text text) {
    rowKey_.assign(kind).append(table.name);
    for (const auto* names : {&columns, &keys})
        for (const auto& name : *names) rowKey_.append(names == &columns ? "\n" : "\r").append(name);
    if (auto* known = statements_.find(rowKey_)) return *known;
    const auto* info = tableInfo(table.name);
    if (info == nullptr) throw Error(Category::syntax, "Invalid object name '" + table.name + "'.", "write a row");
    auto fresh = prepare(text());
    fresh.object = info->table.name;
    fresh.countsRows = keys.empty() && hasIdentity(fresh.object);
    for (const auto* names : {&columns, &keys})
        for (const auto& name : *names) fresh.kinds.push_back(kindOf(*info, name));
    return statements_.add(rowKey_, std::move(fresh));
}

char SqliteEngine::kindOf(const TableInfo& info, const std::string& column) {
    const auto& all = info.table.columns;
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const auto& known) { return sameName(known.name, column); });
    if (found == all.end()) throw Error(Category::syntax, "Invalid column name '" + column + "'.", "write a row");
    return info.kinds[static_cast<std::size_t>(found - all.begin())];
}

Outcome SqliteEngine::insertRow(const Table& table, const std::vector<std::string>& columns,
                                const std::vector<Value>& values) {
    requireUsable();
    auto& ready = preparedRow("insert ", table, columns, {}, [&] {
        if (columns.empty()) return "insert into " + quotedName(table.name) + " default values";
        std::string names;
        std::string places;
        for (const auto& column : columns) {
            names += (names.empty() ? "" : ", ") + quotedName(column);
            places += places.empty() ? "?" : ", ?";
        }
        return "insert into " + quotedName(table.name) + " (" + names + ") values (" + places + ")";
    });
    return runRow(ready, values, {});
}

Outcome SqliteEngine::updateRow(const Table& table, const std::vector<std::string>& columns,
                                const std::vector<Value>& values, const std::vector<std::string>& keys,
                                const std::vector<Value>& keyValues) {
    requireUsable();
    if (columns.empty()) return {};
    if (keys.empty()) throw Error(Category::other, "The row has no key.", "update a row");
    auto& ready = preparedRow("update ", table, columns, keys, [&] {
        return "update " + quotedName(table.name) + " set " + assignments(columns, ", ") + " where " +
               assignments(keys, " and ");
    });
    return runRow(ready, values, keyValues);
}

Outcome SqliteEngine::runRow(Prepared& ready, const std::vector<Value>& values, const std::vector<Value>& keyValues) {
    const Use use(ready.statement.get());
    for (std::size_t i = 0; i < ready.kinds.size(); ++i) {
        const auto& value = i < values.size() ? values[i] : keyValues.at(i - values.size());
        line_.check(bindColumn(ready.statement.get(), static_cast<int>(i) + 1, value, ready.kinds[i]), "bind");
    }
    step(ready, nullptr);
    return outcome(ready);
}

}  // namespace db::sqlite
