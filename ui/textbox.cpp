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
    raise("Change");
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
