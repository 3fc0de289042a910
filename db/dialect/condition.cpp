#include "db/dialect/parser.h"

namespace db::dialect {
namespace {

Expression condition(std::string sql) {
    return {std::move(sql), Type::number};
}

}  // namespace

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
    if (accept("exists")) return existence();
    auto left = sum();
    for (const std::string_view sign : {"=", "<>", "!=", "<=", ">=", "<", ">", "!<", "!>"})
        if (peek().kind == Token::Kind::sign && accept(sign)) return comparison(left, sign);
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

Expression Parser::existence() {
    expect("(");
    auto inner = query(true);
    expect(")");
    return condition("exists (" + inner + ")");
}

Expression Parser::comparison(const Expression& left, std::string_view sign) {
    const auto right = sum();
    const auto plain = sign == "!=" ? "<>" : sign == "!<" ? ">=" : sign == "!>" ? "<=" : sign;
    return condition(writer_.comparison(left, plain, right));
}

Expression Parser::between(const Expression& left, bool negated) {
    const auto low = sum();
    expect("and");
    const auto high = sum();
    return condition(writer_.between(left, negated, low, high));
}

Expression Parser::membership(const Expression& left, bool negated) {
    expect("(");
    std::string text;
    if (at("select")) {
        text = writer_.amongRows(left, negated, query(true));
    } else {
        std::vector<Expression> list{sum()};
        while (accept(",")) list.push_back(sum());
        text = writer_.among(left, negated, list);
    }
    expect(")");
    return condition(std::move(text));
}

Expression Parser::like(const Expression& left, bool negated) {
    const auto first = peek();
    const auto behind = position() + 1;
    const auto pattern = sum();
    const bool isPlace = first.kind == Token::Kind::place && position() == behind;
    const bool escaped = accept("escape");
    const auto escape = escaped ? primary() : Expression();
    auto text = writer_.like(left, negated, pattern, escaped ? &escape : nullptr);
    const bool isSearch = !negated && !escaped && left.column && isPlace;
    if (isSearch && search_.column.empty()) search_ = {left.sql, text, first.text, {}};
    return condition(std::move(text));
}

}  // namespace db::dialect
