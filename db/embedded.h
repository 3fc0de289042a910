#pragma once

#include <string_view>
#include <vector>

namespace db {

/// A T-SQL file that is built into the program: "schema/hospital/10-users.sql" and its text.
struct EmbeddedFile {
    std::string_view path;
    std::string_view text;
};

/// All schema and demonstration files, sorted by path.
const std::vector<EmbeddedFile>& embeddedFiles();

}  // namespace db
