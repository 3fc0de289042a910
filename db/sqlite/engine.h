#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "db/databases.h"
#include "db/engine.h"

namespace db {

/// Opens a line to the SQLite file of `source` (":memory:" for a database of this line alone). `sisters` are the other
/// databases by name: a statement may read from them ("HospitalArchive.dbo.T"). `clock` outlives the line.
/// Throws Error(lostConnection) for a file that is missing (none is created), that is no database or that cannot be
/// read.
std::unique_ptr<Engine> openSqlite(const std::string& database, const Source& source,
                                   const std::map<std::string, Source>& sisters, ServerClock& clock);

/// Makes an empty database file with a write-ahead log. Throws Error(other) where the file exists or cannot be made.
void createSqliteFile(const std::filesystem::path& file);

}  // namespace db
