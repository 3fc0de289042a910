#pragma once

#include <string>
#include <string_view>

namespace web {

/// The text as gzip, as small as it gets: for what is compressed once and sent often. Throws std::runtime_error.
std::string gzipped(std::string_view text);
/// The text as Brotli, likewise.
std::string brotlied(std::string_view text);

}  // namespace web
