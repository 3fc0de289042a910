#pragma once

#include <string>
#include <string_view>

#include "db/datetime.h"

namespace core {

/// Whether a billing category is a scheme that pays a stay for so many hours only: "HMO", "PHIS" or "NHIS".
bool isManagedCare(std::string_view category);

/// The moment at which a stay runs out, as screens show it: "24-Nov-2026 09:30".
std::string limitText(const db::DateTime& limit);
/// The moment of such a text. Throws db::Error(type) for one that is none, the empty one too.
db::DateTime limitOf(const std::string& text);

}  // namespace core
