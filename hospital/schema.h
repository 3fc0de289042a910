#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "db/databases.h"

namespace hospital {

/// Hears of each step of long work; may be empty.
using Progress = std::function<void(const std::string&)>;

/// Creates the embedded databases that do not exist yet below `directory`, with their schema and the rows without
/// which nothing starts, and brings the others forward. The schema is the T-SQL text built into the program from
/// hospital/schema, and from hospital/sqlite what the embedded engine alone knows. One transaction a database: an
/// interrupted run leaves a database whole, as it was, or absent. Throws db::Error.
void createDatabases(const std::filesystem::path& directory, const Progress& progress = {});

/// Brings an open database to the schema of this program, all rows kept, in one transaction. From an older version the
/// steps of hospital/migrations change what stands, then everything that the schema has besides comes into being. A
/// database of this version gets back the views, procedures and indexes that it lacks; a table is never made anew
/// there, since an empty one would hide that its rows are lost. Throws db::Error, also for such a table and for a
/// database that is newer than this program; it is then as it was.
void bringForward(db::Connection& connection, const Progress& progress = {});

/// Throws db::Error where an embedded database has another schema than this program's; opens each of them on the way.
void requireCurrentSchema(db::DataSources& sources);

/// Creates the whole schema and the first rows in one database that is already open, for tests in memory.
void createSchema(db::Connection& connection);

/// What a demonstration hospital is to be: the same seed, day and number of patients give the same hospital.
struct Demonstration {
    db::DateTime today;
    int patients = 2000;  ///< from 60 to 5,000,000
    std::uint64_t seed = 1;
    Progress progress = {};
};

/// Fills new databases with the demonstration hospital, in one transaction a database: an interrupted run leaves them
/// as they were. Throws db::Error(other) when the databases hold patients or staff already, or for a wish out of
/// bounds.
void createDemonstration(db::Databases& databases, const Demonstration& wish);

/// What is wrong with the databases: one line each, none when all is well. Every table, view, index and procedure of
/// the schema is there, every view runs, and the engine's own integrity check passes.
std::vector<std::string> checkDatabases(db::Databases& databases);

}  // namespace hospital
