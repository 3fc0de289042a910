#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/sql.h"

namespace hospital {

/// The statements of the embedded files whose path begins with `prefix` ("schema/hospital/"), in order.
std::vector<std::string> scriptStatements(std::string_view prefix);
/// The statements that make the schema of an embedded database ("Hospital") and its first rows: those of every server,
/// then what its engine alone knows.
std::vector<std::string> schemaStatements(const std::string& database);
/// The number of the schema that this program makes and works on.
constexpr int schemaVersion = 7;

/// A statement of an embedded file as Sql. It is the program's own text, only not in a C++ literal.
db::Sql scriptSql(std::string_view statement);

}  // namespace hospital
