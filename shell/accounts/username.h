#pragma once

#include <cstddef>
#include <string_view>

namespace shell {

/// Characters that a user's name may have: as many as the suite's tables and its audit procedure hold.
inline constexpr std::size_t longestName = 50;

/// Characters of a text in UTF-8.
[[nodiscard]] std::size_t characterCount(std::string_view text) noexcept;

/// The first `count` characters of a text in UTF-8.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count) noexcept;

/// Whether every character can be seen: valid UTF-8 without control characters.
[[nodiscard]] bool printable(std::string_view text);

/// Whether a user can have this name: 1 to `longestName` printable characters and no quote of any kind, which would
/// break the statements that the suite builds with the name.
[[nodiscard]] bool isUserName(std::string_view name);

/// Whether the text holds a quote: the single and the double one, and the characters that a server may turn into one.
[[nodiscard]] bool hasQuote(std::string_view text) noexcept;

}  // namespace shell
