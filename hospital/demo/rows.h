#pragma once

#include <string>
#include <vector>

#include "db/connection.h"

namespace hospital::demo {

/// Adds rows to one table, always with the same columns.
class Rows {
public:
    Rows(db::Connection& connection, std::string table, std::vector<std::string> columns)
        : connection_(connection), table_(std::move(table)), columns_(std::move(columns)) {}

    /// One value a column, in their order. Gives the identity that the row got, 0 without one.
    std::int64_t add(const std::vector<db::Value>& values) { return connection_.insertRow(table_, columns_, values); }

private:
    db::Connection& connection_;
    std::string table_;
    std::vector<std::string> columns_;
};

}  // namespace hospital::demo
