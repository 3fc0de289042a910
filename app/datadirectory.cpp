#include "app/datadirectory.h"

#include <unistd.h>

#include <stdexcept>

#include "db/engine.h"
#include "hospital/schema.h"

namespace app {

namespace fs = std::filesystem;

void requireDataDirectory(const fs::path& data) {
    if (!fs::is_directory(data)) throw std::runtime_error(data.string() + ": no such directory");
    if (::access(data.c_str(), R_OK | W_OK | X_OK) != 0)
        throw std::runtime_error(data.string() + ": the directory cannot be read and written");
}

std::map<std::string, db::Source> dataSources(const fs::path& data, const Config& config) {
    auto sources = db::DataSources::embedded(data);
    for (const auto& [database, given] : config.sources) {
        auto& source = sources[database];
        source.engine = given.engine;
        if (!given.location.empty()) source.location = given.location;
    }
    return sources;
}

void requireDatabases(db::DataSources& sources) {
    openDatabases(sources);
    hospital::requireCurrentSchema(sources);
}

void openDatabases(db::DataSources& sources) {
    for (const auto& name : db::DataSources::names()) {
        auto& pool = sources.pool(name);
        pool.giveBack(pool.borrow());
    }
}

fs::path sessionsDirectory(const fs::path& data) {
    return data / "sessions";
}

}  // namespace app
