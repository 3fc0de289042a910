#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/session/workplace.h"
#include "db/databases.h"
#include "web/config.h"

namespace app {

/// All that an operator can set: the host's own settings, and those of the rooms behind it.
struct Config {
    web::Config host;
    core::Settings session;              ///< what every session starts with
    std::string hospitalNumber = "001";  ///< ends patients' numbers
    std::string serverName = "SERVER";   ///< of the databases, as the suite names it
    /// By database name; one without a location lies in the data directory.
    std::map<std::string, db::Source> sources;
};

/// All settings, into the configuration.
std::vector<web::Setting> settingsOf(Config& config);

/// Reads the file, or none where its name is "", and the environment. Throws web::ConfigError.
Config readConfig(const std::string& file);

}  // namespace app
