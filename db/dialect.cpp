#include "db/dialect.h"

#include <algorithm>

#include "db/dialect_parser.h"
#include "db/error.h"

namespace db::dialect {

Parser::Parser(std::string_view statement, std::string_view database)
    : tokens_(tokens(statement)), database_(database) {}

const Token& Parser::peek(std::size_t ahead) const {
    return tokens_[std::min(position_ + ahead, tokens_.size() - 1)];
}

Token Parser::take() {
    Token token = peek();
    if (token.kind == Token::Kind::end) fail();
    ++position_;
    return token;
}

bool Parser::at(std::string_view wordOrSign, std::size_t ahead) const {
    return isWord(peek(ahead), wordOrSign) || isSign(peek(ahead), wordOrSign);
}

bool Parser::accept(std::string_view wordOrSign) {
    if (!at(wordOrSign)) return false;
    ++position_;
    return true;
}

void Parser::expect(std::string_view wordOrSign) {
    if (!accept(wordOrSign)) fail();
}

bool Parser::atName(std::size_t ahead) const {
    static constexpr std::string_view reserved[] = {
        "select", "from",   "where",   "group",  "order",  "by",      "having", "union",  "except", "intersect",
        "join",   "inner",  "left",    "right",  "full",   "cross",   "on",     "as",     "and",    "or",
        "not",    "in",     "between", "like",   "is",     "null",    "case",   "when",   "then",   "else",
        "end",    "exists", "insert",  "update", "delete", "into",    "values", "create", "set",    "distinct",
        "top",    "with",   "option",  "outer",  "escape", "default", "asc",    "desc"};
    const auto& token = peek(ahead);
    if (token.kind == Token::Kind::name) return true;
    return token.kind == Token::Kind::word && std::none_of(std::begin(reserved), std::end(reserved),
                                                           [&](auto word) { return sameName(word, token.text); });
}

std::string Parser::name() {
    if (!atName()) fail();
    return take().text;
}

void Parser::fail() const {
    const auto& token = peek();
    if (token.kind == Token::Kind::end)
        throw Error(Category::syntax, "Incorrect syntax: the statement ends too early.");
    if (token.kind == Token::Kind::text) throw Error(Category::syntax, "Incorrect syntax near a text.");
    throw Error(Category::syntax, "Incorrect syntax near '" + token.text + "'.");
}

Translated Parser::statement() {
    if (at("select") || at("("))
        result_.text = query(false);
    else if (accept("insert"))
        result_.text = insert();
    else if (accept("update"))
        result_.text = update();
    else if (accept("delete"))
        result_.text = deletion();
    else if (accept("create"))
        result_.text = create();
    else if (accept("alter"))
        result_.text = alter();
    else if (accept("drop"))
        result_.text = drop();
    else
        fail();
    while (accept(";")) {
    }
    if (peek().kind != Token::Kind::end) fail();
    return std::move(result_);
}

Translated toSqlite(std::string_view statement, std::string_view database) {
    return Parser(statement, database).statement();
}

}  // namespace db::dialect
