#include "shell/accounts/username.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace shell {
namespace {

constexpr std::string_view quotes[] = {"'",      "\"",     "`",      "\u2018", "\u2019", "\u201a",
                                       "\u201c", "\u201d", "\u201e", "\u02bc", "\uff07", "\uff02"};

/// Whether a character of UTF-8 begins with this byte.
bool begins(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

bool isControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7f';
}

bool isUtf8(std::string_view text) {
    try {
        static_cast<void>(nlohmann::json(text).dump());
        return true;
    } catch (const nlohmann::json::type_error&) {
        return false;
    }
}

}  // namespace

std::size_t characterCount(std::string_view text) noexcept {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins));
}

std::string_view firstCharacters(std::string_view text, std::size_t count) noexcept {
    const auto end = std::find_if(text.begin(), text.end(), [&](char byte) { return begins(byte) && count-- == 0; });
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

bool printable(std::string_view text) {
    return std::none_of(text.begin(), text.end(), isControl) && isUtf8(text);
}

bool hasQuote(std::string_view text) noexcept {
    return std::any_of(std::begin(quotes), std::end(quotes),
                       [&](std::string_view quote) { return text.find(quote) != std::string_view::npos; });
}

bool isUserName(std::string_view name) {
    return !name.empty() && characterCount(name) <= longestName && printable(name) && !hasQuote(name);
}

}  // namespace shell
