#pragma once

#include <sqlite3.h>

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "db/rowbuffer.h"
#include "db/value.h"

namespace db::sqlite {

struct Finalizer {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};

/// A statement that is ready to run, with what is known of its rows.
struct Prepared {
    std::unique_ptr<sqlite3_stmt, Finalizer> statement;
    std::string object;  ///< the one table or view that it concerns, or ""
    bool writes = false;
    int hidden = 0;                 ///< columns at the end that were added for the row's key
    bool countsRows = false;        ///< an insert into a table with an identity
    bool described = false;         ///< whether the three below hold
    int preparations = 0;           ///< how often the engine had prepared it when it was described
    RowBuffer header;               ///< the columns, without rows
    std::vector<char> expressions;  ///< a 1 for each column that is none of a table
    RowBuffer::Size expected;       ///< how much the last run gave
    std::vector<char> kinds;        ///< of a row's insert or update: what each parameter is stored as
    /// Where the query is a search that an index may serve: the same with the index, and the pattern's parameter.
    std::unique_ptr<Prepared> indexed;
    std::size_t pattern = 0;
};

/// Resets a statement when it goes, so that no line keeps an old state of the database open.
class Use {
public:
    explicit Use(sqlite3_stmt* statement) : statement_(statement) {}
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
    ~Use() {
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
    }

private:
    sqlite3_stmt* statement_;
};

/// The statements used last, by their text. What it gives is good until it is asked to add another.
class StatementCache {
public:
    Prepared* find(std::string_view key);
    Prepared& add(std::string key, Prepared prepared);

private:
    using Entry = std::pair<std::string, Prepared>;
    static constexpr std::size_t capacity = 96;
    std::list<Entry> entries_;  ///< the one used last in front
    std::unordered_map<std::string_view, std::list<Entry>::iterator> byKey_;
};

/// Binds a parameter as it is; the value has to stay until the statement is reset.
int bind(sqlite3_stmt* statement, int place, const Value& value);
/// Binds a column's value in its stored form. `kind`: see `columnKind`. Throws Error(type) for a value that the column
/// cannot hold.
int bindColumn(sqlite3_stmt* statement, int place, const Value& value, char kind);

/// How a column of this declared type is stored: 'd', 't', 'm' a date, a time, both; 'i' an integer, 'f' a flag,
/// 'n' a number, '$' an amount, 's' a text; ' ' as it comes.
char columnKind(std::string_view declaredType) noexcept;
RowBuffer::Reading reading(const char* declaredType) noexcept;

/// Names and readings of the columns.
void describe(Prepared& prepared);
/// Adds the statement's current row.
void addRow(RowBuffer& rows, Prepared& prepared);

}  // namespace db::sqlite
