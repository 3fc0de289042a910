#pragma once

#include <span>
#include <string>

namespace web {

/// 256 random bits from the system's cryptographic source, as 64 hexadecimal digits. Throws std::runtime_error.
std::string randomToken();
/// Whether a text has the form of one.
bool isToken(const std::string& text);

/// Names this run of the host to its pages.
const std::string& runToken();

/// Two digits a byte, in small letters.
std::string hexadecimal(std::span<const unsigned char> bytes);

}  // namespace web
