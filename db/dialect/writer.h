#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/dialect/expression.h"
#include "db/dialect/table.h"

namespace db::dialect {

/// Spells what engines spell differently. The parser puts together what all of them share (joins, unions, conditions,
/// arithmetic, aggregates); for everything else it asks the engine's writer, from the inside of a statement outwards:
/// what a member is given as an expression or a query has been spelled already. A writer has no state and serves all
/// threads. Where a statement asks for what an engine cannot do, its writer throws Error(syntax).
class Writer {
public:
    Writer() = default;
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;
    virtual ~Writer() = default;

    // Names and constants.

    /// A name without brackets, so that it may be a keyword and hold blanks.
    [[nodiscard]] virtual std::string name(std::string_view name) const = 0;
    /// A table or view; `database` is "" for the statement's own.
    [[nodiscard]] virtual std::string object(std::string_view database, std::string_view name) const = 0;
    /// A text in its quotes, inner ones doubled: 'It''s'. The mark N has gone: every text is Unicode.
    [[nodiscard]] virtual std::string text(std::string_view literal) const = 0;
    /// A binary constant by its hexadecimal digits, two a byte: "FFD8".
    [[nodiscard]] virtual std::string bytes(std::string_view digits) const = 0;
    /// A place ("?1"), or a stored procedure's parameter ("@pno").
    [[nodiscard]] virtual std::string parameter(std::string_view mark) const = 0;

    // Comparisons. Texts ignore case and trailing blanks, dates compare as dates whatever their text form, and a text
    // beside a number counts as the number that it spells.

    /// `sign` is one of = <> < <= > >=.
    [[nodiscard]] virtual std::string comparison(const Expression& left, std::string_view sign,
                                                 const Expression& right) const = 0;
    [[nodiscard]] virtual std::string between(const Expression& value, bool negated, const Expression& low,
                                              const Expression& high) const = 0;
    [[nodiscard]] virtual std::string among(const Expression& value, bool negated,
                                            const std::vector<Expression>& list) const = 0;
    [[nodiscard]] virtual std::string amongRows(const Expression& value, bool negated,
                                                const std::string& query) const = 0;
    /// `escape` is null where the pattern has no character of its own for it. Sets of characters ("[a-k]") count.
    [[nodiscard]] virtual std::string like(const Expression& value, bool negated, const Expression& pattern,
                                           const Expression* escape) const = 0;
    [[nodiscard]] virtual std::string caseOf(const Case& parts) const = 0;

    // Values.

    /// "+" where one side is a text. A null makes the whole null.
    [[nodiscard]] virtual std::string concatenation(const Expression& left, const Expression& right) const = 0;
    /// "+" where no side tells: a text if both are texts, else the sum.
    [[nodiscard]] virtual std::string addition(const Expression& left, const Expression& right) const = 0;
    /// A function by its T-SQL name in small letters ("isnull", "charindex"; see the parser's table).
    [[nodiscard]] virtual std::string call(std::string_view function,
                                           const std::vector<Expression>& arguments) const = 0;
    /// datediff, dateadd, datepart or datename; `part` is the bare word, also an abbreviated one ("dd").
    [[nodiscard]] virtual std::string dateCall(std::string_view function, std::string_view part,
                                               const std::vector<Expression>& arguments) const = 0;
    /// cast and convert; `style` is "" where none is given.
    [[nodiscard]] virtual std::string conversion(const TypeName& type, const Expression& value,
                                                 std::string_view style) const = 0;

    // Queries.

    /// The first `count` rows: what stands behind "select " and "distinct " ("top (5) "), or "".
    [[nodiscard]] virtual std::string top(std::string_view count) const = 0;
    /// The same behind the query and its order (" limit 5"), or "".
    [[nodiscard]] virtual std::string limit(std::string_view count) const = 0;
    /// A query in brackets that stands as one: an arm of a union.
    [[nodiscard]] virtual std::string arm(const std::string& query) const = 0;
    /// An expression among the columns of the rows. A view's columns keep their types for the statements that use it.
    [[nodiscard]] virtual std::string item(const Expression& expression, bool ofView) const = 0;
    /// An expression that rows are grouped or parted by.
    [[nodiscard]] virtual std::string groupKey(const Expression& expression) const = 0;
    /// An expression or a column's number that rows are sorted by, nulls first; `direction` as in KeyColumn.
    [[nodiscard]] virtual std::string sortKey(const Expression& expression, std::string_view direction) const = 0;
    /// "(nolock)" or "with (updlock, holdlock)" behind a table, or "" where readers never wait.
    [[nodiscard]] virtual std::string hints(const std::vector<std::string>& words) const = 0;

    // Changes.

    /// What an output clause's column begins with: "inserted." (`row` is "inserted" or "deleted"), or "".
    [[nodiscard]] virtual std::string outputPrefix(std::string_view row) const = 0;
    /// The output clause at its place in T-SQL (" output inserted.x"), or "".
    [[nodiscard]] virtual std::string output(const std::string& items) const = 0;
    /// The same at the statement's end (" returning x"), or "".
    [[nodiscard]] virtual std::string returning(const std::string& items) const = 0;
    /// The assignment "column.write(text, offset, length)", which replaces a part of a long text: a null length reaches
    /// to its end, a null offset appends. `column` is spelled already.
    [[nodiscard]] virtual std::string write(const std::string& column, const Expression& text, const Expression& offset,
                                            const Expression& length) const = 0;

    // Definitions. Several statements are joined by ";\n". What a column may hold is the writer's to guard: the length
    // of a text, the range of a number, a date that is one; and that all of them are kept in one form.

    [[nodiscard]] virtual std::string createTable(const TableDefinition& table) const = 0;
    [[nodiscard]] virtual std::string addColumns(const TableDefinition& table) const = 0;
    /// The new definition of the only column, a text.
    [[nodiscard]] virtual std::string alterColumn(const TableDefinition& table) const = 0;
    /// The columns of a primary key or a unique constraint, without brackets.
    [[nodiscard]] virtual std::string keyColumns(const std::vector<KeyColumn>& columns) const = 0;
    [[nodiscard]] virtual std::string createIndex(const IndexDefinition& index) const = 0;
    /// `table` as object() spells it.
    [[nodiscard]] virtual std::string dropIndex(std::string_view name, const std::string& table) const = 0;
};

}  // namespace db::dialect
