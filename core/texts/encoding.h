#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/session/workplace.h"

namespace core {

/// What is wrong with an encoding table, in words, or "": it holds 94 characters of printable ASCII.
std::string checkEncodingTable(std::string_view table);
/// The stored form of a password. Each character from code 33 to 126 becomes the table's character at its code less 32,
/// counting from 1; any other is skipped after `invalid` was told.
std::string EncodeText(std::string_view text, std::string_view table, const std::function<void()>& invalid);
/// The same with the session's table; an invalid character shows "Invalid character detected!".
std::string EncodeText(Workplace& place, std::string_view text);

}  // namespace core
