#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace db::sqlite {

/// What a search inside one of a view's columns may use. The view gives one row for each row of one table, and `key` is
/// that table's key.
struct TextIndex {
    std::string view;
    std::vector<std::string> columns;
    std::string key;
};

/// Reads this engine's own statements `create fulltext index on VIEW (COLUMN, ...) key index KEY` and
/// `drop fulltext index on VIEW`; the latter gives the view alone. Throws Error(syntax).
TextIndex readTextIndex(std::string_view statement);

}  // namespace db::sqlite
