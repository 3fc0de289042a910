#pragma once

#include <optional>
#include <string>
#include <vector>

#include "db/dialect/expression.h"

namespace db::dialect {

/// A column of a key or an index.
struct KeyColumn {
    std::string name;
    std::string direction;  ///< "asc" or "desc" as the statement has it, or ""
};

struct TableColumn {
    std::string name;
    TypeName type;
    bool notNull = false;
    std::optional<long> identity;        ///< the first number of an identity that counts by ones
    std::optional<Expression> computed;  ///< from the row's other columns; the column has no type then
    std::string rules;                   ///< its defaults, uniqueness, references and checks: " default (0) unique"
};

/// A `create table`, or the columns that an `alter table` adds or changes.
struct TableDefinition {
    std::string object;  ///< as Writer::object spells it
    std::string name;
    std::vector<TableColumn> columns;
    std::string key;                       ///< the primary key's columns as Writer::keyColumns spells them, or ""
    std::vector<std::string> constraints;  ///< all others: "unique (...)", "foreign key (...) references ..."
};

struct IndexDefinition {
    bool unique = false;
    std::string name;
    std::string table;  ///< as Writer::object spells it
    std::vector<KeyColumn> columns;
    std::vector<std::string> included;  ///< the columns that the index carries along
    std::string where;                  ///< " where ..." of an index over some rows, or ""
};

}  // namespace db::dialect
