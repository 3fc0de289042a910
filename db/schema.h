#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "db/databases.h"

namespace db {

/// Creates the embedded databases that do not exist yet below `directory`, with their schema and the rows without
/// which nothing starts. The schema is the T-SQL text built into the program from db/schema. One transaction a
/// database: an interrupted run leaves a database whole or absent. Throws Error.
void createDatabases(const std::filesystem::path& directory);

/// Creates the whole schema and the first rows in one database that is already open, for tests in memory.
void createSchema(Connection& connection);

/// Fills the databases with the demonstration hospital of the day `today`, in one transaction. Throws Error(other) when
/// the databases hold patients or a demonstration already.
void createDemonstration(Databases& databases, DateTime today, const std::function<void(const std::string&)>& progress);

/// What is wrong with the databases: one line each, none when all is well. Every table, view, index and procedure of
/// the schema is there, every view runs, and the engine's own integrity check passes.
std::vector<std::string> checkDatabases(Databases& databases);

}  // namespace db
