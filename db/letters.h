#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace db {

// Letters and digits of ASCII, whatever the locale: names, keywords and numbers of statements consist of these.

[[nodiscard]] constexpr bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}
[[nodiscard]] constexpr char lower(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
[[nodiscard]] constexpr bool isLetter(char c) noexcept {
    return lower(c) >= 'a' && lower(c) <= 'z';
}
[[nodiscard]] constexpr bool isBlank(char c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

[[nodiscard]] inline std::string lowered(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

/// Characters of a text in UTF-8.
[[nodiscard]] inline std::size_t characterCount(std::string_view text) noexcept {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

/// Whether two names are the same in any letter case.
[[nodiscard]] inline bool sameName(std::string_view left, std::string_view right) noexcept {
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(), [](char a, char b) { return lower(a) == lower(b); });
}

[[nodiscard]] inline std::string_view withoutBlanksAround(std::string_view text) noexcept {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

}  // namespace db
