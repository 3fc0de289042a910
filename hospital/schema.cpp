#include "hospital/schema.h"

#include <system_error>

#include "db/error.h"
#include "db/sqlite/engine.h"
#include "hospital/scripts.h"

namespace fs = std::filesystem;

namespace hospital {
namespace {

const std::vector<std::string> companions = {"", "-wal", "-shm", "-journal"};

void removeFile(const fs::path& file) {
    for (const auto& companion : companions) {
        std::error_code ignored;
        fs::remove(fs::path(file) += companion, ignored);
    }
}

/// Opens one database file and calls `work` with a connection to it; all lines are closed behind it.
template <typename Work>
void onFile(const std::string& database, const fs::path& file, Work work) {
    db::ServerClock clock;
    const std::map<std::string, db::Source> sisters;
    const db::Recorder none;
    db::EnginePool pool(database, db::Source{"sqlite", file.string()}, sisters, clock);
    db::Connection connection(database, pool, none);
    work(connection);
}

/// The file grows under another name and takes its own when it is whole and closed.
void createFile(const std::string& database, const fs::path& file) {
    const fs::path growing = fs::path(file) += ".new";
    removeFile(growing);
    try {
        db::createSqliteFile(growing);
        onFile(database, growing, [](db::Connection& connection) { createSchema(connection); });
        fs::rename(growing, file);
    } catch (...) {
        removeFile(growing);
        throw;
    }
}

[[noreturn]] void refuse(const fs::path& file, const char* what, const std::string& operation) {
    throw db::Error(db::Category::other, file.string() + ": " + what, operation);
}

}  // namespace

void createDatabases(const fs::path& directory, const Progress& progress) {
    if (!fs::is_directory(directory)) refuse(directory, "no such directory", "create databases");
    for (const auto& [database, source] : db::DataSources::embedded(directory)) {
        const fs::path file = source.location;
        try {
            if (fs::exists(file))
                onFile(database, file, [&](db::Connection& connection) { bringForward(connection, progress); });
            else
                createFile(database, file);
        } catch (const std::exception& error) {  // an Error, or what the file system says
            refuse(file, error.what(), "create " + database);
        }
    }
}

void createSchema(db::Connection& connection) {
    const auto statements = schemaStatements(connection.database());
    if (statements.empty()) throw db::Error(db::Category::other, "There is no schema for " + connection.database());
    db::Transaction transaction(connection);
    for (const auto& statement : statements) connection.execute(scriptSql(statement));
    transaction.commit();
}

}  // namespace hospital
