#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace core {

// Files beside the program. What goes wrong is db::Error(other) with the platform's own words.

/// The whole of a file of at most `largest` bytes.
std::string readFile(const std::filesystem::path& path, std::size_t largest);
/// Writes a file over an earlier one, which stands until the new one is whole.
void writeFile(const std::filesystem::path& path, std::string_view content);

}  // namespace core
