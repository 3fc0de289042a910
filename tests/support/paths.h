#pragma once

#include <filesystem>

namespace test {

/// The directory of the running test program, where the built programs are.
inline std::filesystem::path buildDirectory() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

/// The sources that it was built from.
inline std::filesystem::path sourceDirectory() {
    auto directory = buildDirectory();
    while (!std::filesystem::exists(directory / "CMakePresets.json")) directory = directory.parent_path();
    return directory;
}

}  // namespace test
