#include "db/scripts.h"

#include <iterator>

#include "db/dialect/dialect.h"
#include "db/embedded.h"
#include "db/letters.h"

namespace db {

std::vector<std::string> scriptStatements(std::string_view prefix) {
    std::vector<std::string> statements;
    for (const auto& file : embeddedFiles()) {
        if (!file.path.starts_with(prefix)) continue;
        auto ofFile = dialect::splitScript(file.text);
        statements.insert(statements.end(), std::make_move_iterator(ofFile.begin()),
                          std::make_move_iterator(ofFile.end()));
    }
    return statements;
}

std::vector<std::string> schemaStatements(const std::string& database) {
    std::string folder = database;
    for (auto& letter : folder) letter = lower(letter);
    return scriptStatements("schema/" + folder + "/");
}

Sql scriptSql(std::string_view statement) {
    return literals_sql(statement.data(), statement.size());
}

}  // namespace db
