#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace db::dialect {

class Writer;

/// The condition "COLUMN like ?n" of a query over one table or view: an engine with an index for it may use that.
struct Search {
    std::string column;     ///< as it stands in the translated text; "" where a query has no such condition
    std::string condition;  ///< likewise
    std::string place;      ///< the pattern's: "?1"
    /// What Writer::limit gave where the query asks for nothing but the first rows of this search in the column's own
    /// order.
    std::string limit;
};

/// A statement in an engine's own SQL, and what the parser has learned about it on the way.
struct Translated {
    /// One statement; a definition may be several, joined by ";\n".
    std::string text;
    /// Other databases that the text names ("HospitalArchive.dbo.T"): an engine may have to open them first.
    std::vector<std::string> databases;
    /// The one table or view that a query reads from, or that a change is made to; "" where there are several.
    std::string object;
    /// Where the list of a plain query over one table ends in the text, so that an engine may add a column; 0 for
    /// others.
    std::size_t listEnd = 0;
    /// The column that an `alter table ... alter column` is about.
    std::string column = {};
    Search search = {};
};

/// Turns one T-SQL statement (a query, a change, or a definition of a table, index or view) into an engine's SQL, as
/// its writer spells it. Parameter places ("?1") keep their numbers. `database` is the name of the database that the
/// statement runs on.
/// Throws Error(syntax) for text that is not T-SQL or uses what the translation does not know.
Translated translate(std::string_view statement, std::string_view database, const Writer& writer);

/// Splits a T-SQL script at its `GO` lines and, inside a batch, at its semicolons (not within a procedure's body).
/// Throws Error(syntax) for an open quote or comment.
std::vector<std::string> splitScript(std::string_view script);

/// A stored procedure for an engine that has none of its own: its statements in order, each with @names for its
/// parameters.
struct Procedure {
    std::string name;
    std::vector<std::string> parameters;  ///< with the "@", in the order of their declaration
    std::vector<std::string> statements;  ///< T-SQL, one each
};
/// Reads `create procedure NAME @a varchar(50), ... as begin ... end`. The body is a straight line of statements,
/// with or without semicolons between them; `set nocount on` is dropped.
/// Throws Error(syntax).
Procedure parseProcedure(std::string_view text);

/// What a statement defines or takes away: {"create", "view", "vwUsers"}.
struct Definition {
    std::string verb;  ///< "create", "alter" or "drop"; "" for any other statement
    std::string kind;  ///< "table", "view", "index", "fulltext index" or "procedure"
    std::string name;  ///< as it is written, without brackets; of a full-text index "on V", since it has no other
};
Definition definition(std::string_view statement);

}  // namespace db::dialect
