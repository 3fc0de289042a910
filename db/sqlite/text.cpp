#include "db/sqlite/text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "db/letters.h"

namespace db::sqlite {
namespace {

std::string_view withoutTrailingBlanks(std::string_view text) {
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

unsigned char byte(std::string_view text, std::size_t index) {
    return static_cast<unsigned char>(text[index]);
}

/// How many characters, of one byte each, two texts begin with alike, as far as eight of them go: every seek in an
/// index of numbers compares such beginnings.
std::size_t sameBeginning(std::string_view left, std::string_view right) {
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    constexpr std::size_t width = sizeof highBits;
    std::size_t same = 0;
    for (const auto size = std::min(left.size(), right.size()); same + width <= size; same += width) {
        std::uint64_t a = 0;
        std::uint64_t b = 0;
        std::memcpy(&a, left.data() + same, width);
        std::memcpy(&b, right.data() + same, width);
        if (a != b || (a & highBits) != 0) break;
    }
    return same;
}

/// "dddd-dd-dd", the shape alone.
bool isIsoDate(std::string_view text) {
    for (std::size_t i = 0; i < 10; ++i)
        if (i == 4 || i == 7 ? text[i] != '-' : !isDigit(text[i])) return false;
    return true;
}
/// "dd:dd:dd"
bool isIsoTime(std::string_view text) {
    for (std::size_t i = 0; i < 8; ++i)
        if (i == 2 || i == 5 ? text[i] != ':' : !isDigit(text[i])) return false;
    return true;
}

bool isBareTime(std::string_view text) {
    return text.find(':') <= 2;
}

const DateTime firstDay = DateTime::fromSeconds(std::int64_t{2} * 86400);  // 1900-01-01

int sign(int difference) {
    return static_cast<int>(difference > 0) - static_cast<int>(difference < 0);
}

/// One bracketed set of a pattern: takes it from the pattern's front.
bool matchesSet(char32_t letter, std::string_view& pattern) {
    const bool negated = !pattern.empty() && pattern.front() == '^';
    if (negated) pattern.remove_prefix(1);
    bool found = false;
    for (bool first = true; !pattern.empty() && (first || pattern.front() != ']'); first = false) {
        const auto low = folded(takeCharacter(pattern));
        auto high = low;
        if (pattern.size() >= 2 && pattern[0] == '-' && pattern[1] != ']') {
            pattern.remove_prefix(1);
            high = folded(takeCharacter(pattern));
        }
        found = found || (low <= letter && letter <= high);
    }
    if (!pattern.empty()) pattern.remove_prefix(1);
    return found != negated;
}

/// Matches one character of the text against the element at the pattern's front and takes both.
bool matchesOne(std::string_view& text, std::string_view& pattern, char32_t escape) {
    if (text.empty()) return false;
    const auto letter = folded(takeCharacter(text));
    const auto wanted = takeCharacter(pattern);
    if (escape != 0 && wanted == escape) return !pattern.empty() && folded(takeCharacter(pattern)) == letter;
    if (wanted == '_') return true;
    if (wanted == '[') return matchesSet(letter, pattern);
    return folded(wanted) == letter;
}

}  // namespace

char32_t folded(char32_t c) noexcept {
    if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 32;
    if (c == 0x178) return 0xFF;
    if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E)) return (c & 1U) != 0 ? c + 1 : c;
    if (c >= 0x100 && c <= 0x177 && c != 0x130 && c != 0x131 && c != 0x138 && c != 0x149) return c | 1U;
    if (c >= 0x1E00 && c <= 0x1EFF && (c < 0x1E96 || c > 0x1E9F)) return c | 1U;
    if (c >= 0x391 && c <= 0x3A9) return c + 32;
    if (c >= 0x410 && c <= 0x42F) return c + 32;
    if (c >= 0x400 && c <= 0x40F) return c + 80;
    return c;
}

char32_t takeCharacter(std::string_view& text) noexcept {
    const char32_t first = byte(text, 0);
    const std::size_t size = first < 0xC2 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF5 ? 4 : 1;
    char32_t character = size == 1 ? first : first & (0x7FU >> size);
    bool whole = size <= text.size();
    for (std::size_t i = 1; whole && i < size; ++i) {
        whole = (byte(text, i) & 0xC0U) == 0x80;
        character = (character << 6U) | (byte(text, i) & 0x3FU);
    }
    if (size == 1 || !whole) {
        text.remove_prefix(1);
        return first < 0x80 ? first : 0x110000 + first;  // no character has this number
    }
    text.remove_prefix(size);
    return character;
}

std::size_t characterCount(std::string_view text) noexcept {
    std::size_t count = 0;
    for (; !text.empty(); ++count) takeCharacter(text);
    return count;
}

std::string_view characters(std::string_view text, std::size_t from, std::size_t count) noexcept {
    for (; from > 0 && !text.empty(); --from) takeCharacter(text);
    auto rest = text;
    for (; count > 0 && !rest.empty(); --count) takeCharacter(rest);
    return text.substr(0, text.size() - rest.size());
}

int compareTexts(std::string_view left, std::string_view right) noexcept {
    left = withoutTrailingBlanks(left);
    right = withoutTrailingBlanks(right);
    const auto same = sameBeginning(left, right);
    left.remove_prefix(same);
    right.remove_prefix(same);
    while (!left.empty() && !right.empty()) {
        if (((byte(left, 0) | byte(right, 0)) & 0x80U) == 0) {
            const char a = lower(left.front());
            const char b = lower(right.front());
            if (a != b) return a < b ? -1 : 1;
            left.remove_prefix(1);
            right.remove_prefix(1);
            continue;
        }
        const auto a = folded(takeCharacter(left));
        const auto b = folded(takeCharacter(right));
        if (a != b) return a < b ? -1 : 1;
    }
    return (left.empty() ? 0 : 1) - (right.empty() ? 0 : 1);
}

int compareMoments(std::string_view left, std::string_view right) noexcept {
    if (left.size() == right.size()) {
        const bool bothIso = (left.size() == 10 && isIsoDate(left) && isIsoDate(right)) ||
                             (left.size() == 19 && isStored(left, 'm') && isStored(right, 'm')) ||
                             (left.size() == 8 && isIsoTime(left) && isIsoTime(right));
        if (bothIso) return sign(std::memcmp(left.data(), right.data(), left.size()));
    }
    const auto a = readMoment(left);
    const auto b = readMoment(right);
    if (a && b) return *a < *b ? -1 : *a == *b ? 0 : 1;
    return sign(left.compare(right));
}

int compareMixed(std::string_view left, std::string_view right) noexcept {
    const auto isDate = [](std::string_view text) {
        return text.size() >= 8 && text.find_first_of("-/:") != std::string_view::npos && readMoment(text);
    };
    return isDate(left) && isDate(right) ? compareMoments(left, right) : compareTexts(left, right);
}

/// Goes back to the last "%" where something does not fit: linear in the pattern times the text.
bool like(std::string_view text, std::string_view pattern, char32_t escape) noexcept {
    std::optional<std::string_view> retryPattern;
    std::string_view retryText;
    for (;;) {
        if (!pattern.empty() && pattern.front() == '%') {
            pattern.remove_prefix(1);
            retryPattern = pattern;
            retryText = text;
            if (pattern.empty()) return true;
            continue;
        }
        if (pattern.empty() && withoutTrailingBlanks(text).empty()) return true;
        auto restText = text;
        auto restPattern = pattern;
        if (!pattern.empty() && matchesOne(restText, restPattern, escape)) {
            text = restText;
            pattern = restPattern;
            continue;
        }
        if (!retryPattern || retryText.empty()) return false;
        takeCharacter(retryText);
        text = retryText;
        pattern = *retryPattern;
    }
}

std::optional<DateTime> readMoment(std::string_view text) noexcept {
    text = withoutBlanksAround(text);
    if (text.empty()) return firstDay;
    return DateTime::parse(text);
}

std::string storedMoment(const DateTime& moment, MomentKind kind) {
    return kind == 'd' ? moment.isoDate() : kind == 't' ? moment.isoTime() : moment.iso();
}

std::optional<std::string> storedMoment(std::string_view text, MomentKind kind) {
    auto moment = readMoment(text);
    if (!moment) return {};
    if (kind != 't' && isBareTime(withoutBlanksAround(text)))
        moment = DateTime::fromSeconds(firstDay.seconds() + moment->seconds());
    return storedMoment(*moment, kind);
}

bool isStored(std::string_view text, MomentKind kind) noexcept {
    if (kind == 'd') return text.size() == 10 && isIsoDate(text);
    if (kind == 't') return text.size() == 8 && isIsoTime(text);
    return text.size() == 19 && isIsoDate(text) && text[10] == ' ' && isIsoTime(text.substr(11));
}

}  // namespace db::sqlite
