#include "app/health.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <set>

#include "db/databases.h"

namespace app {

using namespace db::literals;
namespace fs = std::filesystem;

namespace {

/// A few pages on the disk itself: a file system that is full or read-only shows only then.
bool canWrite(const fs::path& directory) {
    static constexpr std::array<char, 65536> content{};
    std::string name = (directory / ".health-XXXXXX").string();
    const int file = ::mkstemp(name.data());
    if (file < 0) return false;
    const bool written =
        ::write(file, content.data(), content.size()) == static_cast<ssize_t>(content.size()) && ::fsync(file) == 0;
    ::close(file);
    ::unlink(name.c_str());
    return written;
}

bool answers(db::DataSources& sources, const std::string& database, const db::Source& source) {
    if (source.engine == "sqlite" && !fs::exists(source.location)) return false;  // an open line would not notice
    try {
        db::Databases databases(sources);
        return !databases.named(database).read("select max(version) as version from SchemaVersion"_sql).empty();
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace

web::Faults faultsOf(db::DataSources& sources, const fs::path& data) {
    web::Faults faults;
    std::set<fs::path> directories{data};
    for (const auto& [name, source] : sources.sources()) {
        if (source.engine == "sqlite") directories.insert(fs::path(source.location).parent_path());
        if (!answers(sources, name, source)) faults.push_back(name);
    }
    for (const auto& directory : directories) {
        if (canWrite(directory)) continue;
        faults.insert(faults.begin(), "disk");
        break;
    }
    return faults;
}

}  // namespace app
