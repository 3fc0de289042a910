#include <algorithm>

#include "db/error.h"
#include "db/letters.h"
#include "db/sqlite/sqliteengine.h"

namespace db::sqlite {

const dialect::Procedure& SqliteEngine::procedure(std::string_view name) {
    auto key = lowered(name);
    if (const auto known = procedures_.find(key); known != procedures_.end()) return known->second;
    for (const auto& [kept, text] : keptTexts("procedure"))
        if (sameName(kept, name))
            return procedures_.emplace(std::move(key), dialect::parseProcedure(text)).first->second;
    throw Error(Category::other, "Could not find stored procedure '" + std::string(name) + "'.", "call");
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
