#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "db/letters.h"
#include "db/value.h"

namespace db {

namespace {

/// How much of `text` from `at` on is digits.
std::size_t digitsFrom(std::string_view text, std::size_t at) noexcept {
    const auto start = at;
    while (at < text.size() && isDigit(text[at])) ++at;
    return at - start;
}

std::size_t signFrom(std::string_view text, std::size_t at) noexcept {
    return at < text.size() && (text[at] == '-' || text[at] == '+') ? 1 : 0;
}

/// The length of the exponent that stands at `at`: "e3", "E-05"; 0 where none does.
std::size_t exponentFrom(std::string_view text, std::size_t at) noexcept {
    if (at >= text.size() || lower(text[at]) != 'e') return 0;
    const auto sign = signFrom(text, at + 1);
    const auto digits = digitsFrom(text, at + 1 + sign);
    return digits == 0 ? 0 : 1 + sign + digits;
}

/// The length of the number at the start of `text`: sign, digits with at most one point, exponent.
std::size_t numberLength(std::string_view text) noexcept {
    auto at = signFrom(text, 0);
    auto digits = digitsFrom(text, at);
    at += digits;
    if (at < text.size() && text[at] == '.') {
        const auto decimals = digitsFrom(text, at + 1);
        digits += decimals;
        at += 1 + decimals;
    }
    return digits == 0 ? 0 : at + exponentFrom(text, at);
}

std::string_view withoutPlus(std::string_view number) noexcept {
    if (!number.empty() && number.front() == '+') number.remove_prefix(1);
    return number;
}

/// Of a text that is a number; infinite where it is beyond every double.
double converted(std::string_view number) noexcept {
    number = withoutPlus(number);
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec != std::errc::result_out_of_range) return value;
    const bool tiny = number.find("e-") != number.npos || number.find("E-") != number.npos;
    const double beyond = tiny ? 0 : std::numeric_limits<double>::infinity();
    return number.front() == '-' ? -beyond : beyond;
}

}  // namespace

double leadingNumber(std::string_view text) noexcept {
    std::array<char, 400> plain{};  // as long as any double is in full
    std::size_t size = 0;
    for (const char c : text) {
        if (size == plain.size()) break;
        if (!isBlank(c)) plain[size++] = c;
    }
    const std::string_view all(plain.data(), size);
    const auto length = numberLength(all);
    const double number = length == 0 ? 0 : converted(all.substr(0, length));
    return std::isfinite(number) ? number : std::copysign(std::numeric_limits<double>::max(), number);
}

std::optional<double> parseNumber(std::string_view text) noexcept {
    text = withoutBlanksAround(text);
    if (text.empty() || numberLength(text) != text.size()) return std::nullopt;
    const double number = converted(text);
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<std::int64_t> parseInteger(std::string_view text) noexcept {
    text = withoutBlanksAround(text);
    const auto sign = signFrom(text, 0);
    if (text.size() == sign || sign + digitsFrom(text, sign) != text.size()) return std::nullopt;
    text = withoutPlus(text);
    std::int64_t number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc{} ? std::optional(number) : std::nullopt;
}

std::optional<std::string> withoutThousandsSeparators(std::string_view text) {
    text = withoutBlanksAround(text);
    const auto sign = signFrom(text, 0);
    auto at = sign + digitsFrom(text, sign);
    if (at == sign || at > sign + 3) return std::nullopt;
    std::string plain(text.substr(0, at));
    while (at < text.size() && text[at] == ',') {
        if (digitsFrom(text, at + 1) != 3) return std::nullopt;
        plain += text.substr(at + 1, 3);
        at += 4;
    }
    return plain.append(text.substr(at));
}

std::string numberText(double number) {
    if (number == 0) return "0";  // the negative zero too
    std::array<char, 512> text{};
    const auto format = std::abs(number) < 1e15 ? std::chars_format::fixed : std::chars_format::scientific;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), number, format);
    return {text.data(), result.ptr};
}

}  // namespace db
