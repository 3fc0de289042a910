#include <algorithm>

#include "db/error.h"
#include "db/letters.h"
#include "db/sqlite/sqliteengine.h"
#include "db/sqlite/text.h"
#include "db/sqlite/writer.h"

// A full-text index answers "COLUMN like '%part%'" without reading every row. It consists of a table with each row's
// key and folded texts, a column each ("text0", ...), and over that the engine's own index of all runs of three letters
// (fts5.html, section 4.3.4), which finds a longer part exactly. Triggers on the table behind the view keep both in
// step.

namespace db::sqlite {
namespace {

/// The names that belong to a view's index, ready for a statement.
struct Names {
    explicit Names(const std::string& view)
        : texts(quotedName("vorel_text " + view)), runs(quotedName("vorel_runs " + view)), view_(view) {}
    [[nodiscard]] std::string trigger(const std::string& event) const {
        return quotedName(view_ + " searched on " + event);
    }
    std::string texts, runs;

private:
    std::string view_;
};

constexpr const char* registry = "vorel_textindex";
constexpr const char* events[] = {"insert", "update", "delete"};

std::string textColumn(std::size_t place) {
    return "text" + std::to_string(place);
}

/// Something of every column, one after the other: "text0, text1".
template <class Spelling>
std::string eachColumn(const TextIndex& index, const Spelling& spelling) {
    std::string list;
    for (std::size_t place = 0; place < index.columns.size(); ++place)
        list += (place > 0 ? ", " : "") + spelling(place);
    return list;
}

std::string textColumns(const TextIndex& index) {
    return eachColumn(index, textColumn);
}

/// The columns as they are searched: folded.
std::string searched(const TextIndex& index) {
    return eachColumn(index, [&](std::size_t place) { return "tsql_lower(" + quotedName(index.columns[place]) + ")"; });
}

/// Takes a row out of the index; `key` is an expression.
std::string removal(const Names& names, const TextIndex& index, const std::string& key) {
    return "insert into " + names.runs + " (" + names.runs + ", rowid, " + textColumns(index) +
           ") select 'delete', id, " + textColumns(index) + " from " + names.texts + " where key = " + key +
           ";\ndelete from " + names.texts + " where key = " + key + ";\n";
}

std::string rows(const TextIndex& index) {
    return "select " + quotedName(index.key) + ", " + searched(index) + " from " + quotedName(index.view);
}

std::string addition(const Names& names, const TextIndex& index, const std::string& key) {
    return "insert into " + names.texts + " (key, " + textColumns(index) + ") " + rows(index) + " where " +
           quotedName(index.key) + " = " + key + ";\ninsert into " + names.runs + " (rowid, " + textColumns(index) +
           ") select id, " + textColumns(index) + " from " + names.texts + " where key = " + key + ";\n";
}

/// An insert looks for a row of before too: a table's other triggers may have changed the new row already.
std::string triggers(const Names& names, const TextIndex& index, const std::string& table, const std::string& key) {
    const auto before = "old." + key;
    const auto now = "new." + key;
    const auto on = [&](const std::string& event, const std::string& when, const std::string& work) {
        return "create trigger " + names.trigger(event) + " after " + event + " on " + table + when + " begin\n" +
               work + "end;\n";
    };
    const auto changed = " when " + before + " <> " + now + " or (select " + textColumns(index) + " from " +
                         names.texts + " where key = " + now + ") is not (select " + searched(index) + " from " +
                         quotedName(index.view) + " where " + quotedName(index.key) + " = " + now + ")";
    return on("insert", "", removal(names, index, now) + addition(names, index, now)) +
           on("update", changed, removal(names, index, before) + addition(names, index, now)) +
           on("delete", "", removal(names, index, before));
}

/// The names of columns as the registry keeps them, and back.
std::string listed(const std::vector<std::string>& names) {
    std::string list;
    for (const auto& name : names) list += (list.empty() ? "" : ",") + name;
    return list;
}

std::vector<std::string> unlisted(std::string_view list) {
    std::vector<std::string> names;
    for (std::size_t from = 0; from <= list.size();) {
        const auto end = std::min(list.find(',', from), list.size());
        names.emplace_back(list.substr(from, end - from));
        from = end + 1;
    }
    return names;
}

/// Whether the index gives what a pattern asks for: "%part%" with three characters or more, none of them special.
bool isServed(std::string_view pattern) {
    if (pattern.size() < 2 || pattern.front() != '%' || pattern.back() != '%') return false;
    const auto part = pattern.substr(1, pattern.size() - 2);
    return characterCount(part) >= 3 && part.find_first_of(std::string_view("%_[\0", 4)) == std::string_view::npos;
}

}  // namespace

void SqliteEngine::createTextIndex(const TextIndex& index) {
    const auto column = prepare("select " + quotedName(index.key) + " from " + quotedName(index.view));
    const auto* table = sqlite3_column_table_name(column.statement.get(), 0);
    const auto* key = sqlite3_column_origin_name(column.statement.get(), 0);
    if (table == nullptr || key == nullptr)
        throw Error(Category::syntax, "The key " + index.key + " is no column of a table.", "create");
    const Names names(index.view);
    whole([&] {
        line_.run((std::string("create table if not exists ") + registry +
                   " (view text primary key collate nocase, searched text not null, key text not null);\ninsert into " +
                   registry + " values (" + textLiteral(index.view) + ", " + textLiteral(listed(index.columns)) + ", " +
                   textLiteral(index.key) + ");\ncreate table " + names.texts +
                   " (id integer primary key, key text not null unique collate VTEXT, " +
                   eachColumn(index, [](std::size_t place) { return textColumn(place) + " text collate VTEXT"; }) +
                   ");\ninsert into " + names.texts + " (key, " + textColumns(index) + ") " + rows(index) +
                   ";\ncreate virtual table " + names.runs + " using fts5(" + textColumns(index) +
                   ", content=" + names.texts +
                   ", content_rowid=id, tokenize='trigram case_sensitive 1');\ninsert into " + names.runs + " (" +
                   names.runs + ") values ('rebuild');\n" + triggers(names, index, quotedName(table), quotedName(key)))
                      .c_str(),
                  "create");
    });
    textIndexes_.reset();
}

void SqliteEngine::dropTextIndex(const std::string& view) {
    const Names names(view);
    std::string text;
    for (const auto* event : events) text += "drop trigger " + names.trigger(event) + ";\n";
    text += "drop table " + names.runs + ";\ndrop table " + names.texts + ";\ndelete from " + registry +
            " where view = " + textLiteral(view);
    whole([&] { line_.run(text.c_str(), "drop"); });
    textIndexes_.reset();
}

const std::vector<TextIndex>& SqliteEngine::textIndexes() {
    if (textIndexes_) return *textIndexes_;
    textIndexes_.emplace();
    if (texts(std::string("select name from sqlite_master where name = '") + registry + "'").empty())
        return *textIndexes_;
    const auto ready = prepare(std::string("select view, searched, key from ") + registry);
    int code = SQLITE_OK;
    const auto field = [&](int column) {
        return std::string(reinterpret_cast<const char*>(sqlite3_column_text(ready.statement.get(), column)));
    };
    while ((code = sqlite3_step(ready.statement.get())) == SQLITE_ROW)
        textIndexes_->push_back({field(0), unlisted(field(1)), field(2)});
    line_.check(code, "read the full-text indexes");
    return *textIndexes_;
}

/// The first rows of a mere search are picked inside the index, where each row is short.
void SqliteEngine::addIndexed(Prepared& fresh, const dialect::Translated& translated) {
    const auto& search = translated.search;
    if (search.column.empty()) return;
    const auto& indexes = textIndexes();
    const auto index = std::find_if(indexes.begin(), indexes.end(),
                                    [&](const auto& known) { return sameName(known.view, translated.object); });
    if (index == indexes.end()) return;
    const auto column = std::find_if(index->columns.begin(), index->columns.end(),
                                     [&](const auto& known) { return sameName(quotedName(known), search.column); });
    const auto place = translated.text.find(search.condition);
    if (column == index->columns.end() || translated.text.find(search.condition, place + 1) != std::string::npos)
        return;
    const Names names(index->view);
    const auto text = textColumn(static_cast<std::size_t>(column - index->columns.begin()));
    const auto first = search.limit.empty() ? "" : " order by t." + text + search.limit;
    auto indexed = translated.text;
    indexed.replace(place, search.condition.size(),
                    "(" + search.condition + " and " + quotedName(index->key) + " in (select t.key from " + names.runs +
                        " r join " + names.texts + " t on t.id = r.rowid where r." + text + " match tsql_phrase(" +
                        search.place + ")" + first + "))");
    fresh.indexed = std::make_unique<Prepared>(prepareWithViews(indexed));
    fresh.indexed->object = fresh.object;
    fresh.pattern = std::stoul(search.place.substr(1)) - 1;
}

/// The statement as it is best run for these parameters.
Prepared& SqliteEngine::prepared(const Sql::Template& statement) {
    auto& ready = prepared(statement.text);
    if (!ready.indexed || ready.pattern >= statement.parameters.size()) return ready;
    const auto* pattern = std::get_if<std::string>(&statement.parameters[ready.pattern].content());
    return pattern != nullptr && isServed(*pattern) ? *ready.indexed : ready;
}

}  // namespace db::sqlite
