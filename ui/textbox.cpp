#include <nlohmann/json.hpp>

#include "ui/content.h"

namespace ui {

namespace {

/// Bytes of the character that starts with this byte.
std::size_t characterLength(char first) {
    const auto byte = static_cast<unsigned char>(first);
    if (byte < 0x80) return 1;
    if (byte < 0xE0) return 2;
    return byte < 0xF0 ? 3 : 4;
}

/// The capital of a Latin, Greek or Cyrillic letter beyond ASCII; other characters are their own.
char32_t capital(char32_t c) {
    const auto within = [c](char32_t first, char32_t last) { return first <= c && c <= last; };
    if (within(0xE0, 0xFE) && c != 0xF7) return c - 0x20;
    if (c == 0xFF) return 0x178;
    if (within(0x139, 0x148) || within(0x179, 0x17E)) return c % 2 == 0 ? c - 1 : c;
    if ((within(0x100, 0x177) && c != 0x131 && c != 0x138 && c != 0x149) ||
        (within(0x1E00, 0x1EFF) && !within(0x1E96, 0x1E9F)))
        return c & ~char32_t{1};
    if ((within(0x3B1, 0x3C9) && c != 0x3C2) || within(0x430, 0x44F)) return c - 0x20;
    return within(0x450, 0x45F) ? c - 0x50 : c;
}

/// The number of a character of two or three bytes in UTF-8.
char32_t codeOf(std::string_view character) {
    const auto bits = [&](std::size_t at, unsigned mask) { return static_cast<unsigned char>(character[at]) & mask; };
    if (character.size() == 2) return bits(0, 0x1F) << 6U | bits(1, 0x3F);
    return bits(0, 0x0F) << 12U | bits(1, 0x3F) << 6U | bits(2, 0x3F);
}

std::string utf8(char32_t c) {
    const auto byte = [](char32_t value) { return static_cast<char>(static_cast<unsigned char>(value)); };
    if (c < 0x800) return {byte(0xC0U | c >> 6U), byte(0x80U | (c & 0x3FU))};
    return {byte(0xE0U | c >> 12U), byte(0x80U | (c >> 6U & 0x3FU)), byte(0x80U | (c & 0x3FU))};
}

bool isDigit(std::string_view character) {
    return character.size() == 1 && character[0] >= '0' && character[0] <= '9';
}

}  // namespace

std::string typed(std::string_view text, KeyFilter filter, std::size_t maxLength) {
    std::string result;
    std::size_t length = 0;
    while (!text.empty() && (maxLength == 0 || length < maxLength)) {
        const std::string_view character = text.substr(0, characterLength(text[0]));
        text.remove_prefix(character.size());
        const std::string passed = filter(character, result);
        if (!passed.empty()) ++length;
        result += passed;
    }
    return result;
}

std::string anyKey(std::string_view character, std::string_view /*before*/) {
    return std::string(character);
}

std::string digitsOnly(std::string_view character, std::string_view /*before*/) {
    return isDigit(character) ? std::string(character) : std::string();
}

std::string decimalOnly(std::string_view character, std::string_view before) {
    const bool firstPoint = character == "." && before.find('.') == std::string_view::npos;
    return isDigit(character) || firstPoint ? std::string(character) : std::string();
}

std::string upperCase(std::string_view character, std::string_view /*before*/) {
    if (character.size() == 2 || character.size() == 3) return utf8(capital(codeOf(character)));
    std::string upper(character);
    if (upper.size() == 1 && upper[0] >= 'a' && upper[0] <= 'z') upper[0] = static_cast<char>(upper[0] - 'a' + 'A');
    return upper;
}

TextBox::TextBox(Screen& screen, std::string name, KeyFilter filter)
    : Control(screen, std::move(name)), filter_(filter) {}

void TextBox::setText(std::string text) {
    if (text == text_) return;
    const bool wasFilled = !text_.empty();
    text_ = std::move(text);
    if (!password_)
        touch("text");
    else if (wasFilled == text_.empty())
        touch("filled");
    raise(Event::change);
}

std::vector<std::string_view> TextBox::properties() const {
    if (password_) return {"text", "password", "filled", "maxLength"};
    return {"text", "password", "maxLength"};
}

nlohmann::json TextBox::property(std::string_view name) const {
    if (name == "password") return password_;
    if (name == "filled") return !text_.empty();
    if (name == "maxLength") return maxLength_;
    return password_ ? std::string() : text_;
}

void TextBox::take(const nlohmann::json& content) {
    if (!content.is_string()) throw Refused{path() + " takes a text"};
    setText(typed(content.get_ref<const std::string&>(), filter_, maxLength_));
}

}  // namespace ui
