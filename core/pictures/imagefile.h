#pragma once

#include <filesystem>

#include "db/value.h"

namespace core {

/// Images that are looked at and kept as they are: the largest that is shown, in bytes.
inline constexpr std::size_t largestImage = std::size_t{16} * 1024 * 1024;

/// Checks that an image is a JPEG of a size that can be shown. Throws db::Error(other).
void requireImage(const db::Bytes& image);
/// Such an image from a file. Throws db::Error(other), with the platform's own words where it cannot be read.
db::Bytes imageFromFile(const std::filesystem::path& file);
/// Writes an image over a file. Throws db::Error(other) likewise.
void writeImage(const std::filesystem::path& file, const db::Bytes& image);

}  // namespace core
