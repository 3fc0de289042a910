#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <system_error>

namespace test {

/// A directory of its own that goes with the object.
class TemporaryDirectory {
public:
    TemporaryDirectory() {
        auto pattern = (std::filesystem::temp_directory_path() / "vorel-test-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary directory");
        path_ = pattern;
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }
    [[nodiscard]] std::filesystem::path file(const std::string& name) const { return path_ / name; }
    /// Writes a file, and the directories that its name goes through; gives its path.
    std::filesystem::path write(const std::string& name, const std::string& content) const {
        auto written = file(name);
        std::filesystem::create_directories(written.parent_path());
        std::ofstream(written, std::ios::binary) << content;
        return written;
    }

private:
    std::filesystem::path path_;
};

}  // namespace test
