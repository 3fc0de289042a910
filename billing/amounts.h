#pragma once

#include <optional>
#include <string_view>

namespace billing {

/// A price or a number of units as it is entered: digits, with or without thousands separators, and at most one decimal
/// point. Nothing for anything else, a sign and an exponent included.
std::optional<double> enteredAmount(std::string_view text);

/// Below this, in naira, sums and products of amounts keep every kobo.
inline constexpr double amountLimit = 1e12;

/// Whether a field may be stored as a price: it is blank, or an amount below the limit.
bool isPrice(std::string_view text);

}  // namespace billing
