#include <algorithm>

#include "db/error.h"
#include "db/letters.h"
#include "db/sqlite/sqliteengine.h"
#include "db/sqlite/writer.h"

namespace db::sqlite {

/// A `create`, `alter` or `drop`: its statements together or none. What the engine itself cannot hold, procedures and
/// views over other databases, are texts in tables of the database, in T-SQL as they were written.
void SqliteEngine::define(const dialect::Definition& definition, const std::string& statement) {
    const bool creates = definition.verb == "create";
    if (definition.kind == "procedure") return defineProcedure(definition, statement);
    if (definition.kind == "fulltext index") {
        const auto index = readTextIndex(statement);
        return creates ? createTextIndex(index) : dropTextIndex(index.view);
    }
    if (definition.kind == "ordered index") {
        const auto index = readOrderedIndex(statement);
        return creates ? createOrderedIndex(index) : dropOrderedIndex(index.view);
    }
    const auto translated = translate(statement, database_);
    if (creates && !translated.databases.empty()) return keepText(definition, statement);
    if (definition.verb == "drop" && definition.kind == "view" && dropText(definition)) return;
    whole([&] {
        if (translated.column.empty())
            line_.run(translated.text.c_str(), definition.verb.c_str());
        else
            redefine(translated);
    });
    if (!creates) tables_.clear();
}

void SqliteEngine::defineProcedure(const dialect::Definition& definition, const std::string& statement) {
    if (definition.verb == "create") {
        const auto parsed = dialect::parseProcedure(statement);
        for (const auto& part : parsed.statements) translate(part, database_);
        return keepText(definition, statement);
    }
    if (definition.verb != "drop" || !dropText(definition))
        throw Error(Category::syntax, "There is no procedure '" + definition.name + "' to " + definition.verb + ".",
                    definition.verb);
}

/// SQLite alters no column: the new definition takes the old one's place in the table's own text, by the procedure that
/// its documentation gives for changes that leave the stored rows as they are (lang_altertable.html, section 7).
void SqliteEngine::redefine(const dialect::Translated& altered) {
    const auto* info = tableInfo(altered.object);
    const auto& columns = info == nullptr ? std::vector<Column>() : info->table.columns;
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const Column& column) { return sameName(column.name, altered.column); });
    if (found == columns.end() || found + 1 == columns.end())
        throw Error(Category::syntax, "Invalid column name '" + altered.column + "' to alter.", "alter");
    const auto& table = info->table.name;
    auto text = texts("select sql from sqlite_master where type = 'table' and name = " + textLiteral(table))[0];
    const auto begin = text.find(quotedName(found->name) + " ");
    const auto end = text.find(", " + quotedName((found + 1)->name) + " ", begin);
    if (begin == std::string::npos || end == std::string::npos)
        throw Error(Category::other, "The column " + altered.column + " cannot be altered.", "alter");
    text.replace(begin, end - begin, altered.text);
    const auto version = std::stol(texts("pragma schema_version")[0]) + 1;
    line_.run("pragma writable_schema = on", "alter");
    line_.run(("update sqlite_master set sql = " + textLiteral(text) +
               " where type = 'table' and name = " + textLiteral(table))
                  .c_str(),
              "alter");
    line_.run(("pragma schema_version = " + std::to_string(version) + "; pragma writable_schema = off").c_str(),
              "alter");
}

void SqliteEngine::keepText(const dialect::Definition& definition, const std::string& text) {
    whole([&] {
        line_.run(("create table if not exists vorel_" + definition.kind +
                   " (name text primary key collate nocase, text text not null)")
                      .c_str(),
                  "create");
        const auto insert = prepare("insert into vorel_" + definition.kind + " (name, text) values (?1, ?2)");
        const std::vector<Value> row{Value(definition.name), Value(text)};
        bindAll(insert.statement.get(), row);
        const auto code = sqlite3_step(insert.statement.get());
        if ((code & 0xFF) == SQLITE_CONSTRAINT)
            throw Error(Category::other, "There is already an object named '" + definition.name + "' in the database.",
                        "create");
        line_.check(code, "create");
    });
    viewsOpen_ = false;
}

/// False where no text is kept under that name.
bool SqliteEngine::dropText(const dialect::Definition& definition) {
    const auto kept = keptTexts(definition.kind);
    if (std::none_of(kept.begin(), kept.end(), [&](auto& pair) { return sameName(pair.first, definition.name); }))
        return false;
    whole([&] {
        const auto remove = prepare("delete from vorel_" + definition.kind + " where name = ?1");
        const Value name(definition.name);
        line_.check(bind(remove.statement.get(), 1, name), "bind");
        line_.check(sqlite3_step(remove.statement.get()), "drop");
        if (definition.kind == "view")
            line_.run(("drop view if exists temp." + quotedName(definition.name)).c_str(), "drop");
    });
    procedures_.clear();
    return true;
}

/// The texts of a kind by name, in the order of the names.
std::vector<std::pair<std::string, std::string>> SqliteEngine::keptTexts(const std::string& kind) {
    if (texts("select name from sqlite_master where name = 'vorel_" + kind + "'").empty()) return {};
    const auto select = " from vorel_" + kind + " order by name";
    auto names = texts("select name" + select);
    auto all = texts("select text" + select);
    std::vector<std::pair<std::string, std::string>> result;
    result.reserve(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) result.emplace_back(std::move(names[i]), std::move(all[i]));
    return result;
}

/// Brings the views over other databases into being on this line; false where there are none, or they stand already.
bool SqliteEngine::openViews() {
    if (viewsOpen_) return false;
    const auto views = keptTexts("view");
    for (const auto& [name, text] : views) {
        const auto translated = translate(text, database_);
        for (const auto& database : translated.databases) attach(database);
        const auto body = translated.text.substr(std::string("create view").size());
        line_.run(("create temp view if not exists" + overKeptRows(body)).c_str(), "create");
    }
    viewsOpen_ = true;
    return !views.empty();
}

std::vector<Object> SqliteEngine::objects() {
    requireUsable();
    std::vector<Object> result;
    const auto add = [&](const std::string& kind, const std::string& query) {
        for (auto& name : texts(query)) result.push_back({kind, std::move(name)});
    };
    const std::string own = " m.name not like 'sqlite[_]%' and m.name not like 'vorel[_]%'";
    add("table", "select m.name from sqlite_master m where m.type = 'table' and" + own);
    add("column",
        "select m.name || '.' || c.name from sqlite_master m, pragma_table_xinfo(m.name) c"
        " where m.type = 'table' and" +
            own);
    add("index", "select m.name from sqlite_master m where m.type = 'index' and" + own);
    add("view", "select m.name from sqlite_master m where m.type = 'view'");
    for (const auto* kind : {"view", "procedure"})
        for (auto& [name, text] : keptTexts(kind)) result.push_back({kind, std::move(name)});
    for (const auto& view : orderedViews()) result.push_back({"ordered index", "on " + view});
    for (const auto& index : textIndexes()) result.push_back({"fulltext index", "on " + index.view});
    return result;
}

}  // namespace db::sqlite
