#include "db/datetimeparser.h"

#include <array>

#include "db/letters.h"

namespace db {

namespace {

constexpr std::array<std::string_view, 12> wholeMonthNames = {"January",   "February", "March",    "April",
                                                              "May",       "June",     "July",     "August",
                                                              "September", "October",  "November", "December"};

/// Reads a text from left to right. Each reader gives nothing, or false, where its part does not stand.
class Cursor {
public:
    explicit Cursor(std::string_view text) noexcept : rest_(text) {}

    [[nodiscard]] bool atEnd() const noexcept { return rest_.empty(); }
    [[nodiscard]] char peek() const noexcept { return rest_.empty() ? '\0' : rest_.front(); }
    [[nodiscard]] std::size_t digits() const noexcept { return run(isDigit); }

    bool accept(char c) noexcept {
        if (peek() != c || rest_.empty()) return false;
        rest_.remove_prefix(1);
        return true;
    }
    bool blanks() noexcept {
        const auto before = rest_.size();
        while (accept(' ')) {
        }
        return rest_.size() != before;
    }
    std::string_view word() noexcept { return take(run(isLetter)); }

    /// A number of at least `least` and at most `most` digits.
    std::optional<int> number(std::size_t least, std::size_t most) noexcept {
        const auto count = digits();
        if (count < least || count > most) return std::nullopt;
        int value = 0;
        for (const char c : take(count)) value = value * 10 + (c - '0');
        return value;
    }
    std::optional<int> month() noexcept {
        const auto name = word();
        for (std::size_t i = 0; i < wholeMonthNames.size(); ++i)
            if (sameName(name, wholeMonthNames[i]) || sameName(name, wholeMonthNames[i].substr(0, 3)))
                return static_cast<int>(i + 1);
        return std::nullopt;
    }
    std::optional<int> year() noexcept {
        const auto count = digits();
        if (count == 4) return number(4, 4);
        const auto shortYear = number(2, 2);
        if (!shortYear) return std::nullopt;
        return *shortYear + (*shortYear <= 29 ? 2000 : 1900);
    }

private:
    std::size_t run(bool (*belongs)(char)) const noexcept {
        std::size_t count = 0;
        while (count < rest_.size() && belongs(rest_[count])) ++count;
        return count;
    }
    std::string_view take(std::size_t count) noexcept {
        const auto taken = rest_.substr(0, count);
        rest_.remove_prefix(count);
        return taken;
    }

    std::string_view rest_;
};

using Parts = DateTime::Parts;

bool store(int& part, std::optional<int> read) noexcept {
    part = read.value_or(0);
    return read.has_value();
}

/// "20261124"
bool compactDate(Cursor& text, Parts& parts) noexcept {
    int all = 0;
    if (!store(all, text.number(8, 8))) return false;
    parts.year = all / 10000;
    parts.month = all / 100 % 100;
    parts.day = all % 100;
    return true;
}

/// "2026-11-24"
bool yearFirst(Cursor& text, Parts& parts) noexcept {
    if (!store(parts.year, text.number(4, 4))) return false;
    const char separator = text.peek();
    return (separator == '-' || separator == '/') && text.accept(separator) && store(parts.month, text.number(1, 2)) &&
           text.accept(separator) && store(parts.day, text.number(1, 2));
}

/// "24-Nov-2026", "24 Nov 2026", "24/11/2026"
bool dayFirst(Cursor& text, Parts& parts) noexcept {
    if (!store(parts.day, text.number(1, 2))) return false;
    const char separator = text.peek();
    if (separator != '-' && separator != '/' && separator != ' ') return false;
    if (separator == ' ' ? !text.blanks() : !text.accept(separator)) return false;
    const bool named = isLetter(text.peek());
    if (!named && separator == ' ') return false;
    return store(parts.month, named ? text.month() : text.number(1, 2)) &&
           (separator == ' ' ? text.blanks() : text.accept(separator)) && store(parts.year, text.year());
}

/// "Nov 24 2026", "Nov 24, 2026"
bool monthFirst(Cursor& text, Parts& parts) noexcept {
    if (!store(parts.month, text.month()) || !text.blanks() || !store(parts.day, text.number(1, 2))) return false;
    const bool comma = text.accept(',');
    return (text.blanks() || comma) && store(parts.year, text.year());
}

bool date(Cursor& text, Parts& parts) noexcept {
    if (isLetter(text.peek())) return monthFirst(text, parts);
    switch (text.digits()) {
        case 8:
            return compactDate(text, parts);
        case 4:
            return yearFirst(text, parts);
        default:
            return dayFirst(text, parts);
    }
}

/// "AM" and "PM" need an hour from 1 to 12.
bool halfOfDay(Cursor& text, Parts& parts) noexcept {
    const auto word = text.word();
    const bool afternoon = sameName(word, "pm");
    if ((!afternoon && !sameName(word, "am")) || parts.hour < 1 || parts.hour > 12) return false;
    parts.hour = parts.hour % 12 + (afternoon ? 12 : 0);
    return true;
}

/// "09:30", "9:30:05.123", "11:59 PM"; a part of a second is dropped.
bool time(Cursor& text, Parts& parts) noexcept {
    if (!store(parts.hour, text.number(1, 2)) || !text.accept(':') || !store(parts.minute, text.number(2, 2)))
        return false;
    if (text.accept(':')) {
        if (!store(parts.second, text.number(2, 2))) return false;
        if (text.accept('.') && !text.number(1, 9)) return false;
    }
    text.blanks();
    return text.atEnd() || halfOfDay(text, parts);
}

bool isTimeAlone(std::string_view text) noexcept {
    const auto digits = Cursor(text).digits();
    return digits < text.size() && text[digits] == ':';
}

}  // namespace

std::optional<DateTime::Parts> parseMoment(std::string_view text) noexcept {
    text = withoutBlanksAround(text);
    Cursor cursor(text);
    Parts parts{1899, 12, 30, 0, 0, 0};
    if (!isTimeAlone(text)) {
        if (!date(cursor, parts)) return std::nullopt;
        if (cursor.atEnd()) return parts;
        if (!cursor.accept('T') && !cursor.blanks()) return std::nullopt;
    }
    if (!time(cursor, parts) || !cursor.atEnd()) return std::nullopt;
    return parts;
}

}  // namespace db
