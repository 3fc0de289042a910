#pragma once

#include <string>

namespace web {

/// 256 random bits from the system's cryptographic source, as 64 hexadecimal digits. Throws std::runtime_error.
std::string randomToken();

}  // namespace web
