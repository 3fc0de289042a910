#include "db/dialect/parser.h"

namespace db::dialect {
namespace {

/// Of several results one: the type that all agree on.
Type common(Type left, Type right) {
    if (left == right || right == Type::null) return left;
    return left == Type::null ? right : Type::unknown;
}

}  // namespace

Expression Parser::sum() {
    auto left = product();
    for (;;) {
        if (peek().kind == Token::Kind::place) {
            // "numTaken ?1": the number that follows carries its sign.
            left = {"(" + left.sql + " + " + product().sql + ")", Type::number};
        } else if (accept("+")) {
            left = added(left, product());
        } else if (at("-") || at("&") || at("|")) {
            const auto sign = take().text;
            left = {"(" + left.sql + " " + sign + " " + product().sql + ")", Type::number};
        } else {
            return left;
        }
    }
}

/// A chain of additions is a text when one of its operands is one. Where nothing tells, the engine decides by the
/// values, as the server does by the columns' types.
Expression Parser::added(const Expression& left, const Expression& right) const {
    if (left.type == Type::text || right.type == Type::text) return {writer_.concatenation(left, right), Type::text};
    if (left.type == Type::number || right.type == Type::number)
        return {"(" + left.sql + " + " + right.sql + ")", Type::number};
    return {writer_.addition(left, right), Type::unknown};
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
            return {writer_.text(take().text), Type::text, false, true, true};
        case Token::Kind::number:
            return {take().text, Type::number};
        case Token::Kind::bytes:
            return {writer_.bytes(take().text), Type::bytes};
        case Token::Kind::variable:
            if (sameName(peek().text, "@@identity"))
                return take(), Expression{writer_.call("scope_identity", {}), Type::number};
            [[fallthrough]];
        case Token::Kind::place:
            return {writer_.parameter(take().text), Type::unknown, false, false, true};
        default:
            break;
    }
    if (accept("(")) return parenthesised();
    if (accept("null")) return {"null", Type::null};
    if (accept("case")) return caseOf();
    if (accept("current_timestamp")) return {writer_.call("getdate", {}), Type::date};
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
    Case parts;
    if (!at("when")) parts.subject = expression();
    auto type = Type::null;
    while (accept("when")) {
        auto when = expression();
        expect("then");
        auto then = expression();
        type = common(type, then.type);
        parts.arms.push_back({std::move(when), std::move(then)});
    }
    if (accept("else")) {
        parts.otherwise = expression();
        type = common(type, parts.otherwise->type);
    }
    expect("end");
    return {writer_.caseOf(parts), type};
}

/// "dbo.Billing.DebtBF": only the table and the column count.
Expression Parser::column() {
    std::vector<std::string> parts{name()};
    while (accept(".")) {
        if (at(".")) continue;  // "Hospital..T.c"
        parts.push_back(name());
    }
    if (parts.size() > 4) fail();
    const bool ofOutput = parts.size() == 2 && !outputRow_.empty() && sameName(parts[0], outputRow_);
    const auto text = writer_.name(parts.back());
    if (ofOutput) return {writer_.outputPrefix(outputRow_) + text, Type::unknown, true};
    if (parts.size() == 1) return {text, Type::unknown, true};
    return {writer_.name(parts[parts.size() - 2]) + "." + text, Type::unknown, true};
}

}  // namespace db::dialect
