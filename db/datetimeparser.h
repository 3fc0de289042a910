#pragma once

#include <optional>
#include <string_view>

#include "db/datetime.h"

namespace db {

/// The calendar parts that a text names, in the forms of DateTime::parse, whether or not the calendar has them. A time
/// alone stands on the zero date.
std::optional<DateTime::Parts> parseMoment(std::string_view text) noexcept;

}  // namespace db
