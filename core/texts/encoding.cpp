#include "core/texts/encoding.h"

#include <algorithm>

#include "core/session/workplace.h"

namespace core {
namespace {

constexpr std::size_t tableLength = 94;
constexpr unsigned char firstCode = 33;

bool printable(char character) {
    return character >= ' ' && character <= '~';
}

/// The rest of a character that takes several bytes; no character of its own.
bool continuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace

// A table holds 94 printable characters, the first for the code 33 and the last for 126, and has to be the suite's:
// passwords are compared in their encoded form. This one uses 34 different characters, so that most outputs have two
// or three inputs and no output tells what was typed. A suite with another table configures it.
std::string_view Settings::builtInEncodingTable() {
    return "Q7mZ2xKf9RbW4tHc8JpN5vGd3YsL6kTqDn"
           "W4xH7pKQ2cJ9fZmR8bGtN5vYd3sL6nTqkD"
           "9RkT6vHd3QpW8mLc2ZxN7bJf4s";
}

std::string checkEncodingTable(std::string_view table) {
    if (table.size() != tableLength)
        return "the encoding table has " + std::to_string(table.size()) + " characters instead of 94";
    if (!std::all_of(table.begin(), table.end(), printable))
        return "the encoding table holds a character that is not printable ASCII";
    return {};
}

std::string EncodeText(std::string_view text, std::string_view table, const std::function<void()>& invalid) {
    std::string encoded;
    for (const char character : text) {
        if (continuation(character)) continue;
        const auto code = static_cast<unsigned char>(character);
        if (code < firstCode || code >= firstCode + tableLength)
            invalid();
        else
            encoded += table.at(code - firstCode);
    }
    return encoded;
}

std::string EncodeText(Workplace& place, std::string_view text) {
    return EncodeText(text, place.settings.encodingTable,
                      [&place] { place.desktop.message("Invalid character detected!"); });
}

}  // namespace core
