#include "db/letters.h"
#include "db/sqlite/orderedindex.h"
#include "db/sqlite/sqliteengine.h"
#include "db/sqlite/writer.h"

// An ordered index is a table with a view's rows and an index over all its columns. Queries of the view read the table;
// triggers on the tables behind the view read the rows of a key anew when one of its rows comes, changes or goes.

namespace db::sqlite {
namespace {

constexpr const char* registry = "vorel_orderedindex";
constexpr std::string_view prefix = "vorel_order ";

std::string keptRows(const std::string& view) {
    return quotedName(std::string(prefix) + view);
}

std::string listed(const std::vector<std::string>& names, const std::string& behindEach = "") {
    std::string list;
    for (const auto& name : names) list += (list.empty() ? "" : ", ") + quotedName(name) + behindEach;
    return list;
}

std::string rows(const OrderedIndex& index) {
    return "insert into " + keptRows(index.view) + " select " + listed(index.columns) + " from " +
           quotedName(index.view);
}

/// Reads the rows of a key anew; `key` is an expression.
std::string refresh(const OrderedIndex& index, const std::string& key) {
    const auto ofKey = " where " + quotedName(index.key) + " = " + key + ";\n";
    return "delete from " + keptRows(index.view) + ofKey + rows(index) + ofKey;
}

std::string triggers(const OrderedIndex& index, const OrderedIndex::Table& table) {
    const auto before = "old." + quotedName(table.columns.front());
    const auto now = "new." + quotedName(table.columns.front());
    const auto on = [&](const std::string& event, const std::string& columns, const std::string& work) {
        return "create trigger " + quotedName(std::string(prefix) + index.view + " " + table.name + " " + event) +
               " after " + event + columns + " on " + quotedName(table.name) + " begin\n" + work + "end;\n";
    };
    return on("insert", "", refresh(index, now)) +
           on("update", " of " + listed(table.columns), refresh(index, before) + refresh(index, now)) +
           on("delete", "", refresh(index, before));
}

/// Puts `other` for a name, in whatever letters it stands, wherever it stands in a statement.
void rename(std::string& text, const std::string& name, const std::string& other) {
    const auto wanted = lowered(name);
    auto small = lowered(text);
    for (std::size_t at = 0; (at = small.find(wanted, at)) != std::string::npos; at += other.size()) {
        text.replace(at, name.size(), other);
        small.replace(at, name.size(), other);
    }
}

}  // namespace

void SqliteEngine::createOrderedIndex(const OrderedIndex& index) {
    const auto table = keptRows(index.view);
    const auto over = [&](const std::string& name, const std::string& columns) {
        return "create index " + quotedName(std::string(prefix) + index.view + name) + " on " + table + " (" + columns +
               ");\n";
    };
    auto text = std::string("create table if not exists ") + registry +
                " (view text primary key collate nocase);\ninsert into " + registry + " values (" +
                textLiteral(index.view) + ");\ncreate table " + table + " (" +
                listed(index.columns, " TEXT collate VTEXT") + ");\n" + rows(index) + ";\n" +
                over(" order", listed(index.columns)) + over(" key", quotedName(index.key));
    for (const auto& behind : index.tables) text += triggers(index, behind);
    whole([&] { line_.run(text.c_str(), "create"); });
    orderedViews_.reset();
}

void SqliteEngine::dropOrderedIndex(const std::string& view) {
    std::string text;
    for (const auto& trigger : texts("select name from sqlite_master where type = 'trigger' and name like " +
                                     textLiteral(std::string(prefix) + view + " %")))
        text += "drop trigger " + quotedName(trigger) + ";\n";
    text += "drop table " + keptRows(view) + ";\ndelete from " + registry + " where view = " + textLiteral(view);
    whole([&] { line_.run(text.c_str(), "drop"); });
    orderedViews_.reset();
}

const std::vector<std::string>& SqliteEngine::orderedViews() {
    if (orderedViews_) return *orderedViews_;
    orderedViews_.emplace();
    if (!texts(std::string("select name from sqlite_master where name = '") + registry + "'").empty())
        orderedViews_ = texts(std::string("select view from ") + registry);
    return *orderedViews_;
}

/// A query, with the kept rows in the place of the views that have some.
std::string SqliteEngine::overKeptRows(std::string query) {
    for (const auto& view : orderedViews()) rename(query, quotedName(view), keptRows(view));
    return query;
}

}  // namespace db::sqlite
