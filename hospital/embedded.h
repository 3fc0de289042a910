#pragma once

#include <string_view>
#include <vector>

namespace hospital {

/// A T-SQL file that is built into the program: "schema/hospital/11-users.sql" and its text.
struct EmbeddedFile {
    std::string_view path;
    std::string_view text;
};

/// All files of the schema, the engines' own, of the migrations and of the demonstration, sorted by path.
const std::vector<EmbeddedFile>& embeddedFiles();

}  // namespace hospital
