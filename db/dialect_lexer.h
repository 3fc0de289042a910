#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "db/letters.h"

namespace db::dialect {

struct Token {
    enum class Kind { word, name, text, number, place, variable, sign, end };
    Kind kind;
    std::string text;        ///< of a name without its brackets, of a text with its quotes; a sign or word as it stands
    std::size_t begin, end;  ///< where it stands in the source
};

/// The tokens of a T-SQL text without its comments, and one of the kind `end` behind them.
/// Throws Error(syntax) for an open quote, bracket or comment and for characters that T-SQL does not know.
std::vector<Token> tokens(std::string_view source);

/// "name" in double quotes, as SQLite wants a name that may be a keyword.
std::string quoted(std::string_view name);
/// A text as SQLite's literal: 'It''s'.
std::string textLiteral(std::string_view text);
/// A bare word of this spelling.
bool isWord(const Token& token, std::string_view word) noexcept;
bool isSign(const Token& token, std::string_view sign) noexcept;

}  // namespace db::dialect
