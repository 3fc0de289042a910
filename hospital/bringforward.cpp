#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "db/dialect/dialect.h"
#include "db/engine.h"
#include "db/error.h"
#include "db/letters.h"
#include "hospital/schema.h"
#include "hospital/scripts.h"

using namespace db::literals;

namespace hospital {
namespace {

int versionOf(db::Connection& connection) {
    const auto rows = connection.read("select max(version) as version from SchemaVersion"_sql);
    return rows.empty() ? 0 : rows["version"].int32Or(0);
}

/// Views, procedures and the indexes of views hold no rows of their own: they go, and come back as the schema has them
/// now.
void dropWhatHoldsNoRows(db::Connection& connection) {
    for (const auto& [kind, name] : connection.objects())
        if (kind == "view" || kind == "procedure" || kind.ends_with(" index"))
            connection.execute(scriptSql("drop " + kind + " " + name));
}

std::set<std::string> presentNames(db::Connection& connection) {
    std::set<std::string> names;
    for (const auto& object : connection.objects()) names.insert(db::lowered(object.name));
    return names;
}

std::set<std::string> schemaTables(const std::string& database) {
    std::set<std::string> tables;
    for (const auto& statement : schemaStatements(database))
        if (const auto definition = db::dialect::definition(statement); definition.kind == "table")
            tables.insert(db::lowered(definition.name));
    return tables;
}

/// The words of a statement, in small letters.
std::set<std::string> wordsOf(const std::string& statement) {
    std::set<std::string> words;
    std::string word;
    for (const char c : db::lowered(statement) + ' ') {
        if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_') {
            word += c;
        } else if (!word.empty()) {
            words.insert(std::exchange(word, {}));
        }
    }
    return words;
}

/// The steps of one version change the tables that stand; one that an older version lacks comes whole from the schema.
void takeSteps(db::Connection& connection, int version) {
    const auto file = "migrations/" + db::lowered(connection.database()) + "-" + std::to_string(version) + ".sql";
    const auto tables = schemaTables(connection.database());
    for (const auto& statement : scriptStatements(file)) {
        const auto definition = db::dialect::definition(statement);
        const auto made = definition.verb == "create" ? db::lowered(definition.name) : std::string();
        const auto present = presentNames(connection);
        const auto words = wordsOf(statement);
        const bool lacksItsTable = std::any_of(words.begin(), words.end(), [&](const auto& word) {
            return word != made && tables.contains(word) && !present.contains(word);
        });
        if (!lacksItsTable) connection.execute(scriptSql(statement));
    }
}

/// The table that an `insert into T` fills, in small letters; "" for any other statement.
std::string filledTable(const std::string& statement) {
    constexpr std::string_view start = "insert into ";
    if (!db::sameName(std::string_view(statement).substr(0, start.size()), start)) return {};
    return db::lowered(statement.substr(start.size(), statement.find_first_of(" (", start.size()) - start.size()));
}

/// The statements of the schema whose objects are missing; a table among them gets its first rows.
std::vector<std::string> missingStatements(db::Connection& connection) {
    const auto present = presentNames(connection);
    std::set<std::string> fresh;
    std::vector<std::string> missing;
    for (const auto& statement : schemaStatements(connection.database())) {
        const auto definition = db::dialect::definition(statement);
        const auto name = db::lowered(definition.name);
        const bool wanted = definition.verb.empty() ? fresh.contains(filledTable(statement)) : !present.contains(name);
        if (!wanted) continue;
        missing.push_back(statement);
        if (definition.kind == "table") fresh.insert(name);
    }
    return missing;
}

/// Views, procedures and indexes come back; a table does not, since an empty one would hide that its rows are lost.
void bringBackWhatIsMissing(db::Connection& connection, const Progress& progress) {
    const auto missing = missingStatements(connection);
    for (const auto& statement : missing) {
        const auto [verb, kind, name] = db::dialect::definition(statement);
        if (kind == "table")
            throw db::Error(db::Category::other,
                            "the table " + name + " is missing, and its rows with it: put a backup back");
    }
    if (missing.empty()) return;
    db::Transaction transaction(connection);
    for (const auto& statement : missing) {
        const auto [verb, kind, name] = db::dialect::definition(statement);
        if (progress) progress("Creating the missing " + kind + " " + name + " of " + connection.database());
        connection.execute(scriptSql(statement));
    }
    transaction.commit();
}

}  // namespace

void bringForward(db::Connection& connection, const Progress& progress) {
    const auto version = versionOf(connection);
    if (version == schemaVersion) return bringBackWhatIsMissing(connection, progress);
    if (version > schemaVersion || version < 1)
        throw db::Error(db::Category::other, "its schema has version " + std::to_string(version) +
                                                 ", this program's is " + std::to_string(schemaVersion) +
                                                 ": a newer program is needed");
    if (progress)
        progress("Bringing " + connection.database() + " from version " + std::to_string(version) + " to " +
                 std::to_string(schemaVersion));
    db::Transaction transaction(connection);
    dropWhatHoldsNoRows(connection);
    for (int step = version + 1; step <= schemaVersion; ++step) takeSteps(connection, step);
    for (const auto& statement : missingStatements(connection)) connection.execute(scriptSql(statement));
    connection.execute("insert into SchemaVersion (version) values ("_sql + schemaVersion + ")");
    transaction.commit();
}

void requireCurrentSchema(db::DataSources& sources) {
    const db::Recorder none;
    for (const auto& [name, source] : sources.sources()) {
        if (source.engine != "sqlite") continue;
        db::Connection connection(name, sources.pool(name), none);
        const auto version = versionOf(connection);
        if (version != schemaVersion)
            throw db::Error(db::Category::other, name + ": its schema has version " + std::to_string(version) +
                                                     ", this program's is " + std::to_string(schemaVersion) +
                                                     ": run \"vorel database create\" or a newer program");
    }
}

}  // namespace hospital
