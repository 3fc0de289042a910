#pragma once

#include <filesystem>
#include <string>

namespace app {

/// What the suite leaves beside the program.
struct SuiteFiles {
    std::string user;               ///< for `sysdoc.sys`
    std::string server;             ///< for `made.sys`
    std::string hospitalNumber;     ///< for `made.sys`
    std::filesystem::path program;  ///< holds the ring and the receipt picture
};

/// A session's program directory: a folder of its own that goes with it.
class ProgramDirectory {
public:
    /// Makes and fills it below `parent`. Throws std::runtime_error.
    ProgramDirectory(const std::filesystem::path& parent, const SuiteFiles& files);
    ProgramDirectory(const ProgramDirectory&) = delete;
    ProgramDirectory& operator=(const ProgramDirectory&) = delete;
    ~ProgramDirectory();

    [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }

private:
    std::filesystem::path path_;
};

/// Removes the directories that programs left behind which were killed.
void removeOrphans(const std::filesystem::path& parent);

}  // namespace app
