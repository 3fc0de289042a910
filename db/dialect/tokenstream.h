#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "db/dialect/lexer.h"

namespace db::dialect {

/// The tokens of one statement, read from left to right. Words and signs are given as a statement may hold them, words
/// in any letter case.
class TokenStream {
public:
    /// Throws Error(syntax), as tokens() does.
    explicit TokenStream(std::string_view statement);

    /// The next token or one behind it; the one of the kind `end` for all beyond the last.
    [[nodiscard]] const Token& peek(std::size_t ahead = 0) const;
    [[nodiscard]] bool at(std::string_view wordOrSign, std::size_t ahead = 0) const;
    /// A name in brackets, or a word that is no keyword.
    [[nodiscard]] bool atName(std::size_t ahead = 0) const;
    /// How many tokens have been read.
    [[nodiscard]] std::size_t position() const noexcept { return position_; }

    bool accept(std::string_view wordOrSign);
    void skip(std::size_t count) noexcept { position_ += count; }

    // These fail where the statement goes on otherwise.
    Token take();
    void expect(std::string_view wordOrSign);
    std::string name();
    /// The end of the statement, with the semicolons before it.
    void expectEnd();

    /// Throws the Error(syntax) that names the next token.
    [[noreturn]] void fail() const;

private:
    std::vector<Token> tokens_;
    std::size_t position_ = 0;
};

}  // namespace db::dialect
