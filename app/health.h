#pragma once

#include <filesystem>

#include "db/databases.h"
#include "web/health.h"

namespace app {

/// What keeps the host from working: "disk" where nothing can be written any more, in the data directory or beside an
/// embedded database, and the name of each database that does not answer.
web::Faults faultsOf(db::DataSources& sources, const std::filesystem::path& data);

}  // namespace app
