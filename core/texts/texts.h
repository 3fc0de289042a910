#pragma once

#include <string>
#include <string_view>

#include "db/datetime.h"

namespace core {

/// A text without the blanks at its ends.
std::string trimmed(std::string_view text);
/// Whether a text holds nothing but blanks.
bool blank(std::string_view text);
/// What stands between the first `open` and the first `close` behind it; to the end where none closes, "" where none
/// opens.
std::string between(std::string_view text, std::string_view open, std::string_view close);
/// The text as it stands between the quotes of a statement: every "'" doubled.
std::string quotesDoubled(std::string_view text);

/// The age at `today` of somebody born on `date`: "1 yr, 2 mths and 1 day". Negative parts for a date in the future.
std::string AgeText(db::DateTime date, db::DateTime today);

/// An amount rounded to two decimals, as its decimal digits round: 1.005 gives 1.01 although its double is a little
/// less.
double roundedToCents(double amount);
/// "1,234.50": two decimals, thousands separators. Halves are rounded away from zero.
std::string moneyText(double amount);

}  // namespace core
