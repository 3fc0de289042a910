#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "web/http.h"

namespace web {

/// True for "css/app.css": names of letters, digits, "-", "_" and ".", none starting with ".", with "/" between them.
/// Nothing else ever reaches the file system.
bool isPlainPath(std::string_view path);

/// The file of this plain path below `root` with an entity tag, 304 where the browser has it already, 404 where there
/// is none. `caching` is the Cache-Control value.
Response serveFile(const std::filesystem::path& root, std::string_view path, const Request& request,
                   const char* caching = "no-cache");

/// The whole file, or nothing.
std::optional<std::string> readFile(const std::filesystem::path& file);

}  // namespace web
