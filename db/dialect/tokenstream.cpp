#include "db/dialect/tokenstream.h"

#include <algorithm>

#include "db/error.h"

namespace db::dialect {

TokenStream::TokenStream(std::string_view statement) : tokens_(tokens(statement)) {}

const Token& TokenStream::peek(std::size_t ahead) const {
    return tokens_[std::min(position_ + ahead, tokens_.size() - 1)];
}

bool TokenStream::at(std::string_view wordOrSign, std::size_t ahead) const {
    return isWord(peek(ahead), wordOrSign) || isSign(peek(ahead), wordOrSign);
}

bool TokenStream::atName(std::size_t ahead) const {
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

bool TokenStream::accept(std::string_view wordOrSign) {
    if (!at(wordOrSign)) return false;
    ++position_;
    return true;
}

Token TokenStream::take() {
    Token token = peek();
    if (token.kind == Token::Kind::end) fail();
    ++position_;
    return token;
}

void TokenStream::expect(std::string_view wordOrSign) {
    if (!accept(wordOrSign)) fail();
}

std::string TokenStream::name() {
    if (!atName()) fail();
    return take().text;
}

void TokenStream::expectEnd() {
    while (accept(";")) {
    }
    if (peek().kind != Token::Kind::end) fail();
}

void TokenStream::fail() const {
    const auto& token = peek();
    if (token.kind == Token::Kind::end)
        throw Error(Category::syntax, "Incorrect syntax: the statement ends too early.");
    throw Error(Category::syntax, "Incorrect syntax near " + shown(token) + ".");
}

}  // namespace db::dialect
