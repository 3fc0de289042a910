#include <algorithm>

#include "db/dialect_parser.h"

namespace db::dialect {
namespace {

Expression condition(std::string sql) {
    return {std::move(sql), Type::number};
}

/// Of several results one: the type that all agree on.
Type common(Type left, Type right) {
    if (left == right || right == Type::null) return left;
    return left == Type::null ? right : Type::unknown;
}

std::string collated(const Expression& side, const Expression& other) {
    const bool numbers = side.type == Type::number || other.type == Type::number;
    if (side.column || other.column || numbers) return side.sql;
    const auto kind = side.type == Type::date || other.type == Type::date ? Type::date : side.type;
    return side.sql + std::string(collation({{}, kind}));
}

/// A text beside a number counts as the number that it spells.
std::string beside(const Expression& side, const Expression& other) {
    const bool spelled = side.literal && !other.column && other.type == Type::number;
    return spelled ? "tsql_spelled(" + side.sql + ")" : side.sql;
}

}  // namespace

std::string_view collation(const Expression& expression) noexcept {
    switch (expression.type) {
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

Expression Parser::expression() {
    const Deeper deeper(*this);
    auto left = conjunction();
    while (accept("or")) left = condition(left.sql + " or " + conjunction().sql);
    return left;
}

Expression Parser::conjunction() {
    auto left = negation();
    while (accept("and")) left = condition(left.sql + " and " + negation().sql);
    return left;
}

Expression Parser::negation() {
    const Deeper deeper(*this);
    if (accept("not")) return condition("not " + negation().sql);
    return predicate();
}

Expression Parser::predicate() {
    if (accept("exists")) {
        expect("(");
        auto inner = query(true);
        expect(")");
        return condition("exists (" + inner + ")");
    }
    auto left = sum();
    for (const std::string_view sign : {"=", "<>", "!=", "<=", ">=", "<", ">", "!<", "!>"})
        if (peek().kind == Token::Kind::sign && accept(sign)) return comparison(left, std::string(sign));
    if (accept("is")) {
        const bool negated = accept("not");
        expect("null");
        return condition(left.sql + (negated ? " is not null" : " is null"));
    }
    const bool negated = at("not") && (at("in", 1) || at("between", 1) || at("like", 1)) && accept("not");
    if (accept("in")) return membership(left, negated);
    if (accept("between")) return between(left, negated);
    if (accept("like")) return like(left, negated);
    return left;
}

Expression Parser::comparison(const Expression& left, const std::string& sign) {
    const auto right = sum();
    const auto plain = sign == "!=" ? "<>" : sign == "!<" ? ">=" : sign == "!>" ? "<=" : sign;
    auto leftText = left.literal && right.type == Type::number ? beside(left, right) : collated(left, right);
    return condition(leftText + " " + plain + " " + beside(right, left));
}

Expression Parser::between(const Expression& left, bool negated) {
    const auto low = sum();
    expect("and");
    const auto high = sum();
    return condition(collated(left, low) + (negated ? " not" : "") + " between " + beside(low, left) + " and " +
                     beside(high, left));
}

Expression Parser::membership(const Expression& left, bool negated) {
    expect("(");
    std::string inner;
    if (at("select")) {
        inner = query(true);
    } else {
        do inner += (inner.empty() ? "" : ", ") + beside(sum(), left);
        while (accept(","));
    }
    expect(")");
    return condition(collated(left, {}) + (negated ? " not in (" : " in (") + inner + ")");
}

Expression Parser::like(const Expression& left, bool negated) {
    const auto pattern = sum();
    auto text = left.sql + (negated ? " not like " : " like ") + pattern.sql;
    const bool escaped = accept("escape");
    if (escaped) text += " escape " + primary().sql;
    const bool isSearch = !negated && !escaped && left.column && pattern.sql.front() == '?';
    if (isSearch && search_.column.empty()) search_ = {left.sql, text, pattern.sql, {}};
    return condition(text);
}

/// A chain of additions is a text when one of its operands is one. Where nothing tells, the engine decides by the
/// values, as the server does by the columns' types.
Expression Parser::sum() {
    auto left = product();
    while (at("+") || at("-") || at("&") || at("|") || at("^") || peek().kind == Token::Kind::place) {
        // "numTaken ?1": the number that follows carries its sign.
        const bool carriesSign = peek().kind == Token::Kind::place;
        const auto sign = carriesSign ? "+" : take().text;
        const auto right = product();
        const bool texts = !carriesSign && (left.type == Type::text || right.type == Type::text);
        const bool numbers = carriesSign || left.type == Type::number || right.type == Type::number;
        if (sign == "^") fail();
        if (sign == "+" && texts)
            left = {"(" + left.sql + " || " + right.sql + ")", Type::text};
        else if (sign == "+" && !numbers)
            left = {"tsql_add(" + left.sql + ", " + right.sql + ")", Type::unknown};
        else
            left = {"(" + left.sql + " " + sign + " " + right.sql + ")", Type::number};
    }
    return left;
}

Expression Parser::product() {
    auto left = unary();
    while (at("*") || at("/") || at("%")) {
        const auto sign = take().text;
        left = {"(" + left.sql + " " + sign + " " + unary().sql + ")", Type::number};
    }
    return left;
}

Expression Parser::unary() {
    const Deeper deeper(*this);
    for (const std::string_view sign : {"-", "+", "~"})
        if (accept(sign)) return {"(" + std::string(sign) + " " + unary().sql + ")", Type::number};
    return primary();
}

Expression Parser::primary() {
    switch (peek().kind) {
        case Token::Kind::text:
            return {take().text, Type::text, false, true, true};
        case Token::Kind::number:
            return {take().text, Type::number};
        case Token::Kind::place:
            return {take().text, Type::unknown, false, false, true};
        case Token::Kind::variable:
            if (sameName(peek().text, "@@identity")) return take(), Expression{"last_insert_rowid()", Type::number};
            return {take().text, Type::unknown, false, false, true};
        default:
            break;
    }
    if (accept("(")) return parenthesised();
    if (accept("null")) return {"null", Type::null};
    if (accept("case")) return caseOf();
    if (accept("current_timestamp")) return {"getdate()", Type::date};
    if (peek().kind == Token::Kind::word && at("(", 1)) return function();
    return column();
}

Expression Parser::parenthesised() {
    const Deeper deeper(*this);
    Expression inner;
    if (at("select"))
        inner.sql = query(true);
    else
        inner = expression();
    expect(")");
    inner.sql = "(" + inner.sql + ")";
    return inner;
}

Expression Parser::caseOf() {
    const Deeper deeper(*this);
    std::string text = "case";
    Expression subject;
    const bool simple = !at("when");
    if (simple) {
        subject = expression();
        text += " " + collated(subject, {});
    }
    auto type = Type::null;
    while (accept("when")) {
        const auto when = expression();
        expect("then");
        const auto then = expression();
        text += " when " + (simple ? beside(when, subject) : when.sql) + " then " + then.sql;
        type = common(type, then.type);
    }
    if (accept("else")) {
        const auto otherwise = expression();
        text += " else " + otherwise.sql;
        type = common(type, otherwise.type);
    }
    expect("end");
    return {text + " end", type};
}

/// "dbo.Billing.DebtBF": only the table and the column count.
Expression Parser::column() {
    std::vector<std::string> parts{name()};
    while (accept(".")) {
        if (at(".")) continue;  // "Hospital..T.c"
        parts.push_back(name());
    }
    if (parts.size() > 4) fail();
    if (parts.size() == 2 && !outputRow_.empty() && sameName(parts[0], outputRow_)) parts.erase(parts.begin());
    auto text = quoted(parts.back());
    if (parts.size() > 1) text.insert(0, quoted(parts[parts.size() - 2]) + ".");
    return {text, Type::unknown, true};
}

}  // namespace db::dialect
