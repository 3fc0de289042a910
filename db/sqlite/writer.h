#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/dialect/dialect.h"
#include "db/dialect/writer.h"

namespace db::sqlite {

/// "name" in double quotes, as SQLite wants a name that may be a keyword.
std::string quotedName(std::string_view name);
/// A text as SQLite's literal: 'It''s'.
std::string textLiteral(std::string_view text);

/// Spells statements for SQLite with the collations and functions of registerFunctions().
///
/// A text column compares by the collation VTEXT, a date column by VDATE; an expression brings its collation along
/// where it is compared, sorted or made distinct, VMIXED where its text does not tell what it gives.
class SqliteWriter : public dialect::Writer {
public:
    using Expression = dialect::Expression;

    [[nodiscard]] std::string name(std::string_view name) const override;
    [[nodiscard]] std::string object(std::string_view database, std::string_view name) const override;
    [[nodiscard]] std::string text(std::string_view literal) const override;
    [[nodiscard]] std::string bytes(std::string_view digits) const override;
    [[nodiscard]] std::string parameter(std::string_view mark) const override;

    [[nodiscard]] std::string comparison(const Expression& left, std::string_view sign,
                                         const Expression& right) const override;
    [[nodiscard]] std::string between(const Expression& value, bool negated, const Expression& low,
                                      const Expression& high) const override;
    [[nodiscard]] std::string among(const Expression& value, bool negated,
                                    const std::vector<Expression>& list) const override;
    [[nodiscard]] std::string amongRows(const Expression& value, bool negated, const std::string& query) const override;
    [[nodiscard]] std::string like(const Expression& value, bool negated, const Expression& pattern,
                                   const Expression* escape) const override;
    [[nodiscard]] std::string caseOf(const dialect::Case& parts) const override;

    [[nodiscard]] std::string concatenation(const Expression& left, const Expression& right) const override;
    [[nodiscard]] std::string addition(const Expression& left, const Expression& right) const override;
    [[nodiscard]] std::string call(std::string_view function, const std::vector<Expression>& arguments) const override;
    [[nodiscard]] std::string dateCall(std::string_view function, std::string_view part,
                                       const std::vector<Expression>& arguments) const override;
    [[nodiscard]] std::string conversion(const dialect::TypeName& type, const Expression& value,
                                         std::string_view style) const override;

    [[nodiscard]] std::string top(std::string_view count) const override;
    [[nodiscard]] std::string limit(std::string_view count) const override;
    [[nodiscard]] std::string arm(const std::string& query) const override;
    [[nodiscard]] std::string item(const Expression& expression, bool ofView) const override;
    [[nodiscard]] std::string groupKey(const Expression& expression) const override;
    [[nodiscard]] std::string sortKey(const Expression& expression, std::string_view direction) const override;
    [[nodiscard]] std::string hints(const std::vector<std::string>& words) const override;

    [[nodiscard]] std::string outputPrefix(std::string_view row) const override;
    [[nodiscard]] std::string output(const std::string& items) const override;
    [[nodiscard]] std::string returning(const std::string& items) const override;
    [[nodiscard]] std::string write(const std::string& column, const Expression& text, const Expression& offset,
                                    const Expression& length) const override;

    /// The table, then the triggers that bring its dates and amounts into their stored form.
    [[nodiscard]] std::string createTable(const dialect::TableDefinition& table) const override;
    [[nodiscard]] std::string addColumns(const dialect::TableDefinition& table) const override;
    /// The definition alone, since SQLite alters no column: the engine puts it into the table's text.
    [[nodiscard]] std::string alterColumn(const dialect::TableDefinition& table) const override;
    [[nodiscard]] std::string keyColumns(const std::vector<dialect::KeyColumn>& columns) const override;
    [[nodiscard]] std::string createIndex(const dialect::IndexDefinition& index) const override;
    [[nodiscard]] std::string dropIndex(std::string_view name, const std::string& table) const override;
};

/// A T-SQL statement in SQLite's SQL; see dialect::translate().
dialect::Translated translate(std::string_view statement, std::string_view database);

}  // namespace db::sqlite
