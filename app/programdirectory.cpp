#include "app/programdirectory.h"

#include <unistd.h>

#include <charconv>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace app {

namespace {

namespace fs = std::filesystem;

/// Named by the process, so that a later one knows what nobody owns any more.
fs::path makeUnique(const fs::path& parent) {
    fs::create_directories(parent);
    std::string name = (parent / (std::to_string(::getpid()) + "-XXXXXX")).string();
    if (::mkdtemp(name.data()) == nullptr)
        throw std::runtime_error(parent.string() + ": no directory can be made here");
    return name;
}

void writeText(const fs::path& file, const std::string& text) {
    std::ofstream stream(file);
    stream << text;
    if (!stream.flush()) throw std::runtime_error(file.string() + ": cannot be written");
}

bool isOrphan(const fs::path& directory) {
    const std::string name = directory.filename().string();
    pid_t owner = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), owner);
    if (error != std::errc{} || *end != '-' || owner <= 0) return false;
    return ::kill(owner, 0) != 0 && errno == ESRCH;
}

}  // namespace

ProgramDirectory::ProgramDirectory(const fs::path& parent, const SuiteFiles& files) : path_(makeUnique(parent)) {
    try {
        writeText(path_ / "sysdoc.sys", files.user + "\n");
        writeText(path_ / "made.sys", "SVR=" + files.server + "\nHNO=" + files.hospitalNumber + "\n");
        for (const char* name : {"ring1.wav", "RctPix.JPG"}) fs::copy_file(files.program / name, path_ / name);
    } catch (...) {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
        throw;
    }
}

ProgramDirectory::~ProgramDirectory() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void removeOrphans(const fs::path& parent) {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(parent, error)) {
        if (isOrphan(entry.path())) fs::remove_all(entry.path(), error);
    }
}

}  // namespace app
