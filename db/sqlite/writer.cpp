#include "db/sqlite/writer.h"

namespace db::sqlite {
namespace {

using dialect::Expression;
using dialect::Type;

/// The collation that values of a type are compared, sorted and made distinct by.
std::string_view collation(Type type) noexcept {
    switch (type) {
        case Type::text:
            return " collate VTEXT";
        case Type::date:
            return " collate VDATE";
        case Type::unknown:
            return " collate VMIXED";
        default:
            return "";
    }
}

std::string collated(const Expression& expression) {
    return expression.sql + std::string(collation(expression.type));
}

/// The left side of a comparison. Beside a column it takes the column's collation, beside a number none.
std::string collated(const Expression& side, const Expression& other) {
    const bool numbers = side.type == Type::number || other.type == Type::number;
    if (side.column || other.column || numbers) return side.sql;
    const auto type = side.type == Type::date || other.type == Type::date ? Type::date : side.type;
    return side.sql + std::string(collation(type));
}

/// A text beside a number counts as the number that it spells.
std::string beside(const Expression& side, const Expression& other) {
    const bool spelled = side.literal && !other.column && other.type == Type::number;
    return spelled ? "tsql_spelled(" + side.sql + ")" : side.sql;
}

std::string doubled(std::string_view text, char quote) {
    std::string result(1, quote);
    for (const char c : text) result.append(c == quote ? 2 : 1, c);
    return result += quote;
}

}  // namespace

std::string quotedName(std::string_view name) {
    return doubled(name, '"');
}

std::string textLiteral(std::string_view text) {
    return doubled(text, '\'');
}

dialect::Translated translate(std::string_view statement, std::string_view database) {
    return dialect::translate(statement, database, SqliteWriter());
}

std::string SqliteWriter::name(std::string_view name) const {
    return quotedName(name);
}

std::string SqliteWriter::object(std::string_view database, std::string_view name) const {
    return database.empty() ? quotedName(name) : quotedName(database) + "." + quotedName(name);
}

std::string SqliteWriter::text(std::string_view literal) const {
    return std::string(literal);
}

std::string SqliteWriter::bytes(std::string_view digits) const {
    return "X'" + std::string(digits) + "'";
}

std::string SqliteWriter::parameter(std::string_view mark) const {
    return std::string(mark);
}

std::string SqliteWriter::comparison(const Expression& left, std::string_view sign, const Expression& right) const {
    const bool spelled = left.literal && right.type == Type::number;
    return (spelled ? beside(left, right) : collated(left, right)) + " " + std::string(sign) + " " +
           beside(right, left);
}

std::string SqliteWriter::between(const Expression& value, bool negated, const Expression& low,
                                  const Expression& high) const {
    return collated(value, low) + (negated ? " not" : "") + " between " + beside(low, value) + " and " +
           beside(high, value);
}

std::string SqliteWriter::among(const Expression& value, bool negated, const std::vector<Expression>& list) const {
    std::string texts;
    for (const auto& one : list) texts += (texts.empty() ? "" : ", ") + beside(one, value);
    return amongRows(value, negated, texts);
}

std::string SqliteWriter::amongRows(const Expression& value, bool negated, const std::string& query) const {
    return collated(value, {}) + (negated ? " not in (" : " in (") + query + ")";
}

std::string SqliteWriter::like(const Expression& value, bool negated, const Expression& pattern,
                               const Expression* escape) const {
    const auto text = value.sql + (negated ? " not like " : " like ") + pattern.sql;
    return escape == nullptr ? text : text + " escape " + escape->sql;
}

std::string SqliteWriter::caseOf(const dialect::Case& parts) const {
    std::string text = "case";
    if (parts.subject) text += " " + collated(*parts.subject, {});
    for (const auto& [when, then] : parts.arms)
        text += " when " + (parts.subject ? beside(when, *parts.subject) : when.sql) + " then " + then.sql;
    if (parts.otherwise) text += " else " + parts.otherwise->sql;
    return text + " end";
}

std::string SqliteWriter::concatenation(const Expression& left, const Expression& right) const {
    return "(" + left.sql + " || " + right.sql + ")";
}

std::string SqliteWriter::addition(const Expression& left, const Expression& right) const {
    return "tsql_add(" + left.sql + ", " + right.sql + ")";
}

std::string SqliteWriter::top(std::string_view) const {
    return {};
}

std::string SqliteWriter::limit(std::string_view count) const {
    return " limit " + std::string(count);
}

/// SQLite takes no bare brackets here.
std::string SqliteWriter::arm(const std::string& query) const {
    return "select * from (" + query + ")";
}

/// In a view an expression takes also the affinity of a number along.
std::string SqliteWriter::item(const Expression& expression, bool ofView) const {
    if (expression.column || expression.literal)
        return expression.type == Type::text ? collated(expression) : expression.sql;
    if (ofView && expression.type == Type::number && expression.certain)
        return "cast(" + expression.sql + " as numeric)";
    return collated(expression);
}

std::string SqliteWriter::groupKey(const Expression& expression) const {
    return expression.column ? expression.sql : collated(expression);
}

std::string SqliteWriter::sortKey(const Expression& expression, std::string_view direction) const {
    return groupKey(expression) + (direction.empty() ? "" : " ") + std::string(direction);
}

/// Readers never wait here.
std::string SqliteWriter::hints(const std::vector<std::string>&) const {
    return {};
}

std::string SqliteWriter::outputPrefix(std::string_view) const {
    return {};
}

std::string SqliteWriter::output(const std::string&) const {
    return {};
}

std::string SqliteWriter::returning(const std::string& items) const {
    return " returning " + items;
}

std::string SqliteWriter::write(const std::string& column, const Expression& text, const Expression& offset,
                                const Expression& length) const {
    const auto old = "ifnull(" + column + ", '')";
    if (offset.type == Type::null) return column + " = " + old + " || " + text.sql;
    auto kept = column + " = substr(" + old + ", 1, " + offset.sql + ") || " + text.sql;
    if (length.type == Type::null) return kept;
    return kept + " || substr(" + old + ", " + offset.sql + " + " + length.sql + " + 1)";
}

}  // namespace db::sqlite
