#include <algorithm>

#include "db/error.h"
#include "db/letters.h"
#include "db/sqlite/sqliteengine.h"

namespace db::sqlite {

/// Procedures are texts in a table of the database, in T-SQL as they were written.
void SqliteEngine::createProcedure(const std::string& text) {
    const auto parsed = dialect::parseProcedure(text);
    for (const auto& statement : parsed.statements) dialect::toSqlite(statement, database_);
    whole([&] {
        line_.run(
            "create table if not exists vorel_procedure (name text primary key collate nocase, text text not null)",
            "create");
        const auto insert = prepare("insert into vorel_procedure (name, text) values (?1, ?2)");
        const std::vector<Value> row{Value(parsed.name), Value(text)};
        bindAll(insert.statement.get(), row);
        const auto code = sqlite3_step(insert.statement.get());
        if ((code & 0xFF) == SQLITE_CONSTRAINT)
            throw Error(Category::other, "There is already an object named '" + parsed.name + "' in the database.",
                        "create procedure");
        line_.check(code, "create procedure");
    });
}

const dialect::Procedure& SqliteEngine::procedure(std::string_view name) {
    std::string key(name);
    std::transform(key.begin(), key.end(), key.begin(), lower);
    if (const auto known = procedures_.find(key); known != procedures_.end()) return known->second;
    const auto missing = [&] {
        return Error(Category::other, "Could not find stored procedure '" + std::string(name) + "'.", "call");
    };
    if (texts("select name from sqlite_master where name = 'vorel_procedure'").empty()) throw missing();
    const auto select = prepare("select text from vorel_procedure where name = ?1");
    const Value wanted(key);
    line_.check(bind(select.statement.get(), 1, wanted), "bind");
    const auto code = sqlite3_step(select.statement.get());
    line_.check(code, "read a procedure");
    if (code != SQLITE_ROW) throw missing();
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(select.statement.get(), 0));
    return procedures_.emplace(std::move(key), dialect::parseProcedure(text)).first->second;
}

RowBuffer SqliteEngine::call(std::string_view name, const std::vector<std::pair<std::string, Value>>& arguments) {
    requireUsable();
    const auto& called = procedure(name);
    const auto bare = [](std::string_view parameter) { return parameter.substr(parameter.starts_with('@') ? 1 : 0); };
    std::vector<std::pair<std::string, Value>> given;
    for (const auto& parameter : called.parameters) {
        const auto argument = std::find_if(arguments.begin(), arguments.end(), [&](const auto& pair) {
            return sameName(bare(pair.first), bare(parameter));
        });
        if (argument == arguments.end())
            throw Error(Category::other,
                        "Procedure or function '" + called.name + "' expects parameter '" + parameter +
                            "', which was not supplied.",
                        "call");
        given.emplace_back(parameter, argument->second);
    }
    if (given.size() != arguments.size())
        throw Error(Category::other, "Procedure or function " + called.name + " has too many arguments specified.",
                    "call");
    RowBuffer rows;
    const bool writes = std::any_of(called.statements.begin(), called.statements.end(),
                                    [&](const auto& statement) { return prepared(statement).writes; });
    if (writes)
        whole([&] { runProcedure(called, given, rows); });
    else
        runProcedure(called, given, rows);
    return rows;
}

void SqliteEngine::runProcedure(const dialect::Procedure& called,
                                const std::vector<std::pair<std::string, Value>>& arguments, RowBuffer& rows) {
    for (const auto& text : called.statements) {
        auto& ready = prepared(text);
        auto* statement = ready.statement.get();
        const Use use(statement);
        for (int place = 1; place <= sqlite3_bind_parameter_count(statement); ++place) {
            const std::string_view name = sqlite3_bind_parameter_name(statement, place);
            const auto argument = std::find_if(arguments.begin(), arguments.end(),
                                               [&](const auto& pair) { return sameName(pair.first, name); });
            if (argument == arguments.end())
                throw Error(Category::syntax, "Must declare the scalar variable \"" + std::string(name) + "\".",
                            "call");
            line_.check(bind(statement, place, argument->second), "bind");
        }
        step(ready, sqlite3_column_count(statement) > 0 ? &rows : nullptr);
    }
}

}  // namespace db::sqlite
