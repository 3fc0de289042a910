#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "db/datetime.h"

namespace db::sqlite {

// Texts and dates as the server compares and reads them.

/// The lower-case form of a letter: ASCII, Latin, Greek and Cyrillic; other characters are their own.
char32_t folded(char32_t letter) noexcept;
/// Takes one character from the front; a byte that is no UTF-8 counts as a character of its own.
char32_t takeCharacter(std::string_view& text) noexcept;
std::size_t characterCount(std::string_view text) noexcept;
/// The bytes of `count` characters from character `from` on (from 0), as far as the text reaches.
std::string_view characters(std::string_view text, std::size_t from, std::size_t count) noexcept;

/// Less than, equal to or more than 0; without regard to letter case and trailing blanks.
int compareTexts(std::string_view left, std::string_view right) noexcept;
/// Compares two texts as moments; by their bytes where one of them is none.
int compareMoments(std::string_view left, std::string_view right) noexcept;
/// As moments where both are, as texts otherwise: for expressions of which nothing is known.
int compareMixed(std::string_view left, std::string_view right) noexcept;
/// T-SQL's like: "%", "_", "[a-z]", "[^..]", without regard to letter case; trailing blanks of the text are no matter.
bool like(std::string_view text, std::string_view pattern, char32_t escape = 0) noexcept;

/// How a moment is stored: 'd' as a date, 't' as a time, 'm' as both.
using MomentKind = char;
/// A text as a moment, as the server converts it: an empty one is 1900-01-01, nothing for one that is no date.
std::optional<DateTime> readMoment(std::string_view text) noexcept;
/// The stored form of a moment.
std::string storedMoment(const DateTime& moment, MomentKind kind);
/// The stored form of a text; a bare time in a column of both stands on 1900-01-01, as on the server.
std::optional<std::string> storedMoment(std::string_view text, MomentKind kind);
/// Whether a text has the stored form already (only its shape is looked at).
bool isStored(std::string_view text, MomentKind kind) noexcept;

}  // namespace db::sqlite
