#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "db/rowbuffer.h"
#include "db/sql.h"
#include "db/value.h"

namespace db {

/// A column of a table, as `update` of a result set needs it.
struct Column {
    std::string name;
    bool key = false;
    bool identity = false;
};

struct Table {
    std::string name;
    std::vector<Column> columns;
};

/// Something that a database holds.
struct Object {
    std::string kind;  ///< "table", "column", "index", "view", "procedure" or "fulltext index"
    std::string name;  ///< of a column "hPatients.PNo", of a full-text index "on vwhpatients"
};

/// What `execute` did.
struct Outcome {
    std::int64_t affected = 0;
    std::int64_t identity = 0;  ///< the identity that the last inserted row got; 0 without one
};

/// One open line to one database, as an engine gives it. Statements arrive as T-SQL templates with numbered places;
/// the engine translates and prepares a template once. All members throw Error. One thread at a time uses a line.
class Engine {
public:
    Engine() = default;
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    virtual ~Engine() = default;

    /// Reads all rows of a statement. A statement that has none (an update) is run and gives an empty buffer.
    virtual RowBuffer read(const Sql::Template& statement) = 0;
    virtual Outcome execute(const Sql::Template& statement) = 0;
    /// Runs a stored procedure with its arguments by name; the rows of its last statement that has any.
    virtual RowBuffer call(std::string_view procedure, const std::vector<std::pair<std::string, Value>>& arguments) = 0;

    /// The columns of a table, or nothing where the name is a view's or nobody's.
    virtual const Table* table(std::string_view name) = 0;
    /// Adds a row; `columns` and `values` run in parallel.
    virtual Outcome insertRow(const Table& table, const std::vector<std::string>& columns,
                              const std::vector<Value>& values) = 0;
    /// Changes the row of this key; the same order of columns for both halves.
    virtual Outcome updateRow(const Table& table, const std::vector<std::string>& columns,
                              const std::vector<Value>& values, const std::vector<std::string>& keys,
                              const std::vector<Value>& keyValues) = 0;

    /// A transaction's reads see what is committed, its first write waits for the other writers.
    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void rollback() noexcept = 0;
    /// True while this line keeps other writers waiting.
    [[nodiscard]] virtual bool holdsWriteLock() const noexcept = 0;
    /// False once the database behind the line is gone; the line is then dropped and a new one opened.
    [[nodiscard]] virtual bool alive() noexcept = 0;

    /// The tables, their columns, the indexes, views, stored procedures and full-text indexes that the database holds,
    /// in that order.
    virtual std::vector<Object> objects() = 0;
    /// What the engine's own integrity check finds wrong: one line each, none when all is well.
    virtual std::vector<std::string> integrity() = 0;
    /// How the engine would run a statement, one line a step ("SEARCH hRecords USING INDEX ..."): for the tests of
    /// indexes.
    virtual std::vector<std::string> plan(const Sql::Template& statement) = 0;
};

}  // namespace db
