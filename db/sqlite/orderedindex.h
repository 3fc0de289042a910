#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace db::sqlite {

/// A view's rows, kept in the order of its columns, so that a long list costs neither looking its rows up nor sorting
/// them. The columns are all that the view has, and texts. Rows of one `key` come and go with the rows of the tables
/// that the view is made from.
struct OrderedIndex {
    /// A table behind the view: the first of its columns names the key, the others are what else the view shows of it.
    struct Table {
        std::string name;
        std::vector<std::string> columns;
    };
    std::string view;
    std::vector<std::string> columns;
    std::string key;
    std::vector<Table> tables;
};

/// Reads this engine's own statements `create ordered index on VIEW (COLUMN, ...) key index KEY following
/// TABLE (COLUMN, ...), ...` and `drop ordered index on VIEW`; the latter gives the view alone. Throws Error(syntax).
OrderedIndex readOrderedIndex(std::string_view statement);

}  // namespace db::sqlite
