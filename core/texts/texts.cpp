#include "core/texts/texts.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace core {

std::string trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

bool blank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

std::string between(std::string_view text, std::string_view open, std::string_view close) {
    const auto opened = text.find(open);
    if (opened == std::string_view::npos) return {};
    const auto inner = text.substr(opened + open.size());
    return std::string(inner.substr(0, inner.find(close)));
}

std::string quotesDoubled(std::string_view text) {
    std::string result;
    for (const char letter : text) result.append(letter == '\'' ? 2 : 1, letter);
    return result;
}

std::string AgeText(db::DateTime date, db::DateTime today) {
    const auto from = date.parts();
    const auto to = today.parts();
    int months = (to.year - from.year) * 12 + to.month - from.month;
    auto days = date.plusMonths(months).daysUntil(today);
    if (days < 0) days = date.plusMonths(--months).daysUntil(today);
    const auto part = [](std::int64_t count, const char* unit) {
        return std::to_string(count) + unit + (count == 1 ? "" : "s");
    };
    return part(months / 12, " yr") + ", " + part(months % 12, " mth") + " and " + part(days, " day");
}

double roundedToCents(double amount) {
    std::array<char, 40> digits{};
    std::snprintf(digits.data(), digits.size(), "%.15g", amount * 100);
    return std::round(std::strtod(digits.data(), nullptr)) / 100;
}

std::string moneyText(double amount) {
    std::array<char, 400> digits{};
    const double rounded = roundedToCents(amount);
    std::snprintf(digits.data(), digits.size(), "%.2f", std::fabs(rounded));
    std::string text = digits.data();
    constexpr std::size_t decimals = 3;
    for (std::size_t place = text.size() - decimals; place > 3;) {
        place -= 3;
        text.insert(place, ",");
    }
    return rounded < 0 ? "-" + text : text;
}

}  // namespace core
