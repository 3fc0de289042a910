#include "core/texts/figtowrd.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>

namespace core {
namespace {

constexpr double largest = 999999999999.99;

/// Whole numbers from 1 to 9 have a word; anything between them has none, so an inexact fraction of a naira loses its.
std::string digitWord(double value) {
    static constexpr std::array<const char*, 9> words{"One", "Two",   "Three", "Four", "Five",
                                                      "Six", "Seven", "Eight", "Nine"};
    for (std::size_t i = 0; i < words.size(); ++i)
        if (value == static_cast<double>(i + 1)) return words[i];
    return {};
}

std::string lastDigitWord(double value) {
    return digitWord(std::fmod(std::nearbyint(value), 10));
}

std::string teenWords(double value) {
    static constexpr std::array<const char*, 6> words{"Ten", "Eleven", "Twelve", "Thirteen", "Fourteen", "Fifteen"};
    for (std::size_t i = 0; i < words.size(); ++i)
        if (value == static_cast<double>(i + 10)) return words[i];
    return lastDigitWord(value) + "teen";
}

std::string twoDigitWords(double value) {
    static constexpr std::array<const char*, 8> tens{"Twenty", "Thirty",  "Fourty", "Fifty",
                                                     "Sixty",  "Seventy", "Eighty", "Ninety"};
    if (value < 10) return digitWord(value);
    if (value < 20) return teenWords(value);
    const auto ten = std::min(std::trunc(value / 10), 9.0);
    return std::string(tens[static_cast<std::size_t>(ten) - 2]) + " " + lastDigitWord(value);
}

std::string threeDigitWords(double value) {
    const double hundreds = std::trunc(value / 100);
    std::string text;
    if (hundreds > 0) text = digitWord(hundreds) + " Hundred";
    const double rest = std::trunc(value - hundreds * 100);
    if (rest > 0) text += (text.empty() ? "" : " And ") + twoDigitWords(rest);
    return text;
}

std::string nairaWords(double value, const std::string& delimiter) {
    struct Group {
        double size;
        const char* name;
    };
    static constexpr std::array<Group, 3> groups{{{1e9, " Billion"}, {1e6, " Million"}, {1e3, " Thousand"}}};
    std::string text;
    for (const auto& group : groups) {
        const double count = std::trunc(value / group.size);
        if (count > 0) text += threeDigitWords(count) + group.name + delimiter;
        value -= count * group.size;
    }
    const double units = std::trunc(value);
    if (units > 0) text += threeDigitWords(units);
    if (text.ends_with(',')) text.pop_back();
    if (text.starts_with(',')) text.erase(0, 1);
    return text;
}

std::string delimiterOf(int setting) {
    switch (setting) {
        case 0:
            return ", ";
        case 1:
            return " ";
        case 2:
            return "-";
        default:
            return {};
    }
}

std::string inCase(std::string text, int setting) {
    if (setting == 0) return text;
    std::transform(text.begin(), text.end(), text.begin(), [setting](unsigned char letter) {
        return static_cast<char>(setting == 1 ? std::toupper(letter) : std::tolower(letter));
    });
    return text;
}

std::string padded(const std::string& text, int setting) {
    switch (setting) {
        case 0:
            return text;
        case 1:
            return "*" + text + "*";
        case 2:
            return "***" + text + "***";
        default:
            return {};
    }
}

}  // namespace

std::string figToWrd::Num2String(double value) const {
    if (std::isnan(value) || value > largest) return "***";
    std::string text = nairaWords(value, delimiterOf(useDelimiter_));
    const double whole = std::trunc(value);
    if (value != whole)
        text += " Naria and " + twoDigitWords((value - whole) * 100) + " kobo only";
    else
        text += " Naria";
    return padded(inCase(std::move(text), useCase_), usePadding_);
}

}  // namespace core
