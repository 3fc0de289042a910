#include "hospital/scripts.h"

#include <iterator>

#include "db/dialect/dialect.h"
#include "db/letters.h"
#include "hospital/embedded.h"

namespace hospital {

namespace {

void append(std::vector<std::string>& statements, std::vector<std::string> more) {
    statements.insert(statements.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

}  // namespace

std::vector<std::string> scriptStatements(std::string_view prefix) {
    std::vector<std::string> statements;
    for (const auto& file : embeddedFiles())
        if (file.path.starts_with(prefix)) append(statements, db::dialect::splitScript(file.text));
    return statements;
}

std::vector<std::string> schemaStatements(const std::string& database) {
    const auto folder = db::lowered(database) + "/";
    auto statements = scriptStatements("schema/" + folder);
    append(statements, scriptStatements("sqlite/" + folder));
    return statements;
}

db::Sql scriptSql(std::string_view statement) {
    return db::literals_sql(statement.data(), statement.size());
}

}  // namespace hospital
