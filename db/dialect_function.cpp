#include <algorithm>
#include <charconv>

#include "db/dialect_parser.h"
#include "db/error.h"

namespace db::dialect {
namespace {

struct Function {
    std::string_view name;      ///< in T-SQL
    std::string_view embedded;  ///< the engine's
    std::size_t least, most;    ///< arguments
    Type type;
};

constexpr Function functions[] = {
    {"isnull", "ifnull", 2, 2, Type::unknown},
    {"coalesce", "coalesce", 2, 99, Type::unknown},
    {"nullif", "nullif", 2, 2, Type::unknown},
    {"getdate", "getdate", 0, 0, Type::date},
    {"sysdatetime", "getdate", 0, 0, Type::date},
    {"scope_identity", "last_insert_rowid", 0, 0, Type::number},
    {"substring", "tsql_substring", 3, 3, Type::text},
    {"left", "tsql_left", 2, 2, Type::text},
    {"right", "tsql_right", 2, 2, Type::text},
    {"upper", "tsql_upper", 1, 1, Type::text},
    {"lower", "tsql_lower", 1, 1, Type::text},
    {"ltrim", "ltrim", 1, 1, Type::text},
    {"rtrim", "rtrim", 1, 1, Type::text},
    {"replace", "tsql_replace", 3, 3, Type::text},
    {"replicate", "tsql_replicate", 2, 2, Type::text},
    {"str", "tsql_str", 1, 3, Type::text},
    {"char", "char", 1, 1, Type::text},
    {"len", "tsql_len", 1, 1, Type::number},
    {"charindex", "tsql_charindex", 2, 3, Type::number},
    {"round", "tsql_round", 2, 2, Type::number},
    {"abs", "abs", 1, 1, Type::number},
    {"floor", "floor", 1, 1, Type::number},
    {"ceiling", "ceil", 1, 1, Type::number},
    {"year", "tsql_year", 1, 1, Type::number},
    {"month", "tsql_month", 1, 1, Type::number},
    {"day", "tsql_day", 1, 1, Type::number},
    {"isdate", "tsql_isdate", 1, 1, Type::number},
    {"isnumeric", "tsql_isnumeric", 1, 1, Type::number},
};

struct NamedType {
    std::string_view name;
    TypeName type;
};
using Family = TypeName::Family;

constexpr NamedType types[] = {
    {"varchar", {Family::text, 0}},
    {"nvarchar", {Family::text, 0}},
    {"char", {Family::text, 0}},
    {"nchar", {Family::text, 0}},
    {"text", {Family::text, -1}},
    {"ntext", {Family::text, -1}},
    {"tinyint", {Family::integer, -1, "0", "255"}},
    {"smallint", {Family::integer, -1, "-32768", "32767"}},
    {"int", {Family::integer, -1, "-2147483648", "2147483647"}},
    {"integer", {Family::integer, -1, "-2147483648", "2147483647"}},
    {"bigint", {Family::integer, -1, "-9223372036854775808", "9223372036854775807"}},
    {"bit", {Family::flag}},
    {"float", {Family::number}},
    {"real", {Family::number}},
    {"money", {Family::money, 4}},
    {"smallmoney", {Family::money, 4}},
    {"decimal", {Family::decimal, 0}},
    {"numeric", {Family::decimal, 0}},
    {"date", {Family::date}},
    {"time", {Family::time}},
    {"datetime", {Family::datetime}},
    {"datetime2", {Family::datetime}},
    {"smalldatetime", {Family::datetime}},
    {"binary", {Family::bytes}},
    {"varbinary", {Family::bytes}},
    {"image", {Family::bytes}},
};

std::string joinedArguments(const std::vector<Expression>& arguments) {
    std::string text;
    for (const auto& argument : arguments) text += (text.empty() ? "" : ", ") + argument.sql;
    return text;
}

/// What isnull and coalesce give: the last argument, a constant as a rule, shows what is meant.
Expression firstThatIs(std::string text, const std::vector<Expression>& arguments) {
    Expression result{std::move(text)};
    const auto& last = arguments.back();
    if (last.type == Type::number || last.type == Type::date) result.type = last.type;
    result.certain = std::all_of(arguments.begin(), arguments.end(),
                                 [&](const auto& argument) { return argument.type == last.type && argument.certain; });
    if (result.certain) result.type = last.type;
    return result;
}

}  // namespace

TypeName Parser::typeName() {
    const auto word = name();
    const auto* found =
        std::find_if(std::begin(types), std::end(types), [&](const auto& type) { return sameName(type.name, word); });
    if (found == std::end(types)) throw Error(Category::syntax, "Cannot find data type " + word + ".");
    auto type = found->type;
    if (!accept("(")) return type;
    if (accept("max")) {
        type.length = -1;
    } else {
        auto digits = take().text;
        if (accept(",")) digits = take().text;
        const bool counts = type.family == Family::text || type.family == Family::decimal;
        long length = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), length);
        if (error != std::errc() || end != digits.data() + digits.size()) fail();
        if (counts) type.length = length;
    }
    expect(")");
    return type;
}

std::vector<Expression> Parser::arguments() {
    std::vector<Expression> result;
    expect("(");
    if (accept(")")) return result;
    do result.push_back(expression());
    while (accept(","));
    expect(")");
    return result;
}

Expression Parser::function() {
    const Deeper deeper(*this);
    const auto word = take().text;
    for (const std::string_view known : {"count", "sum", "min", "max", "avg"})
        if (sameName(word, known)) return aggregate(std::string(known));
    for (const std::string_view known : {"datediff", "dateadd", "datepart", "datename"})
        if (sameName(word, known)) return datePart(std::string(known));
    if (sameName(word, "cast")) return castOf();
    if (sameName(word, "convert")) return convertOf();
    if (sameName(word, "row_number")) {
        expect("(");
        expect(")");
        return {"row_number()" + over(), Type::number};
    }
    const auto* known = std::find_if(std::begin(functions), std::end(functions),
                                     [&](const auto& function) { return sameName(function.name, word); });
    if (known == std::end(functions))
        throw Error(Category::syntax, "'" + word + "' is not a recognized built-in function name.");
    const auto given = arguments();
    if (given.size() < known->least || given.size() > known->most)
        throw Error(Category::syntax, "The " + word + " function is given a wrong number of arguments.");
    auto text = std::string(known->embedded) + "(" + joinedArguments(given) + ")";
    const bool firstOfAll = known->embedded == "ifnull" || known->embedded == "coalesce";
    return firstOfAll ? firstThatIs(std::move(text), given) : Expression{std::move(text), known->type};
}

Expression Parser::aggregate(const std::string& function) {
    expect("(");
    std::string text = function + "(";
    if (accept("distinct")) text += "distinct ";
    Expression inner;
    if (accept("*"))
        text += "*";
    else
        text += (inner = expression()).sql;
    expect(")");
    const bool ofColumn = function == "min" || function == "max";
    return {text + ")" + over(), ofColumn ? inner.type : Type::number};
}

std::string Parser::over() {
    if (!accept("over")) return {};
    expect("(");
    std::string text = " over (";
    if (accept("partition")) {
        expect("by");
        text += "partition by " + list();
    }
    text += orderBy();
    expect(")");
    return text + ")";
}

Expression Parser::datePart(const std::string& function) {
    expect("(");
    const auto part = take();
    if (part.kind != Token::Kind::word) fail();
    auto text = "tsql_" + function + "('" + part.text + "'";
    while (accept(",")) text += ", " + expression().sql;
    expect(")");
    const auto type = function == "dateadd" ? Type::date : function == "datename" ? Type::text : Type::number;
    return {text + ")", type};
}

Expression Parser::castOf() {
    expect("(");
    const auto value = expression().sql;
    expect("as");
    const auto type = typeName();
    expect(")");
    return converted(type, value, "-1");
}

Expression Parser::convertOf() {
    expect("(");
    auto type = typeName();
    expect(",");
    const auto value = expression().sql;
    const auto style = accept(",") ? expression().sql : "-1";
    expect(")");
    return converted(type, value, style);
}

Expression Parser::converted(const TypeName& type, const std::string& value, const std::string& style) {
    switch (type.family) {
        case Family::text: {
            const auto length = type.length == 0 ? 30 : type.length;
            return {"tsql_text(" + value + ", " + std::to_string(length) + ", " + style + ")", Type::text};
        }
        case Family::integer:
            return {
                "tsql_integer(" + value + ", " + std::string(type.smallest) + ", " + std::string(type.largest) + ")",
                Type::number};
        case Family::flag:
            return {"tsql_flag(" + value + ")", Type::number};
        case Family::number:
            return {"tsql_number(" + value + ", -1)", Type::number};
        case Family::money:
        case Family::decimal:
            return {"tsql_number(" + value + ", " + std::to_string(type.length) + ")", Type::number};
        case Family::date:
            return {"tsql_moment(" + value + ", 'd')", Type::date};
        case Family::time:
            return {"tsql_moment(" + value + ", 't')", Type::date};
        case Family::datetime:
            return {"tsql_moment(" + value + ", 'm')", Type::date};
        case Family::bytes:
            return {"cast(" + value + " as blob)", Type::unknown};
    }
    fail();
}

}  // namespace db::dialect
