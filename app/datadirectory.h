#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "app/config.h"
#include "db/databases.h"

namespace app {

/// Throws std::runtime_error with one line where the directory is missing or cannot be written to.
void requireDataDirectory(const std::filesystem::path& data);

/// The data-source table: the four embedded databases of the directory, but for what the configuration says otherwise.
std::map<std::string, db::Source> dataSources(const std::filesystem::path& data, const Config& config);

/// Opens each database once. Throws db::Error for one that is missing or none.
void openDatabases(db::DataSources& sources);
/// The same, and each embedded one has to have this program's schema.
void requireDatabases(db::DataSources& sources);

/// Where the sessions' program directories lie.
std::filesystem::path sessionsDirectory(const std::filesystem::path& data);

}  // namespace app
