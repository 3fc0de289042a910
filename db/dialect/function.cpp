#include <algorithm>

#include "db/dialect/parser.h"
#include "db/error.h"

namespace db::dialect {
namespace {

struct Function {
    std::string_view name;
    std::size_t least, most;  ///< arguments
    Type type;
};

constexpr Function functions[] = {
    {"isnull", 2, 2, Type::unknown},   {"coalesce", 2, 99, Type::unknown}, {"nullif", 2, 2, Type::unknown},
    {"getdate", 0, 0, Type::date},     {"sysdatetime", 0, 0, Type::date},  {"scope_identity", 0, 0, Type::number},
    {"substring", 3, 3, Type::text},   {"left", 2, 2, Type::text},         {"right", 2, 2, Type::text},
    {"upper", 1, 1, Type::text},       {"lower", 1, 1, Type::text},        {"ltrim", 1, 1, Type::text},
    {"rtrim", 1, 1, Type::text},       {"replace", 3, 3, Type::text},      {"replicate", 2, 2, Type::text},
    {"str", 1, 3, Type::text},         {"char", 1, 1, Type::text},         {"len", 1, 1, Type::number},
    {"charindex", 2, 3, Type::number}, {"round", 2, 2, Type::number},      {"abs", 1, 1, Type::number},
    {"floor", 1, 1, Type::number},     {"ceiling", 1, 1, Type::number},    {"year", 1, 1, Type::number},
    {"month", 1, 1, Type::number},     {"day", 1, 1, Type::number},        {"isdate", 1, 1, Type::number},
    {"isnumeric", 1, 1, Type::number},
};

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
        if (sameName(word, known)) return dateCall(known);
    if (sameName(word, "cast")) return castOf();
    if (sameName(word, "convert")) return convertOf();
    if (sameName(word, "row_number")) return rowNumber();
    const auto* known = std::find_if(std::begin(functions), std::end(functions),
                                     [&](const auto& function) { return sameName(function.name, word); });
    if (known == std::end(functions))
        throw Error(Category::syntax, "'" + word + "' is not a recognized built-in function name.");
    const auto given = arguments();
    if (given.size() < known->least || given.size() > known->most)
        throw Error(Category::syntax, "The " + word + " function is given a wrong number of arguments.");
    auto text = writer_.call(known->name, given);
    const bool firstOfAll = known->name == "isnull" || known->name == "coalesce";
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

Expression Parser::rowNumber() {
    expect("(");
    expect(")");
    return {"row_number()" + over(), Type::number};
}

std::string Parser::over() {
    if (!accept("over")) return {};
    expect("(");
    std::string text = " over (";
    if (accept("partition")) {
        expect("by");
        text += "partition by " + groupKeys();
    }
    text += orderBy();
    expect(")");
    return text + ")";
}

Expression Parser::dateCall(std::string_view function) {
    expect("(");
    const auto part = take();
    if (part.kind != Token::Kind::word) fail();
    std::vector<Expression> given;
    while (accept(",")) given.push_back(expression());
    expect(")");
    const auto type = function == "dateadd" ? Type::date : function == "datename" ? Type::text : Type::number;
    return {writer_.dateCall(function, part.text, given), type};
}

}  // namespace db::dialect
