#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "db/letters.h"

namespace db::dialect {

struct Token {
    enum class Kind { word, name, text, number, bytes, place, variable, sign, end };
    Kind kind;
    /// Of a name without its brackets, of a text with its quotes, of a binary constant its digits, two a byte; a sign
    /// or word as it stands.
    std::string text;
    std::size_t begin, end;  ///< where it stands in the source
};

/// The tokens of a T-SQL text without its comments, and one of the kind `end` behind them.
/// Throws Error(syntax) for an open quote, bracket or comment and for characters that T-SQL does not know.
std::vector<Token> tokens(std::string_view source);

/// The token as an error names it: "'from'". What may be a value of a patient's is not shown.
std::string shown(const Token& token);
/// A bare word of this spelling.
bool isWord(const Token& token, std::string_view word) noexcept;
bool isSign(const Token& token, std::string_view sign) noexcept;

}  // namespace db::dialect
