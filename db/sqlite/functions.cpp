#include "db/sqlite/functions.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <stdexcept>

#include "db/letters.h"
#include "db/sqlite/arguments.h"
#include "db/sqlite/text.h"
#include "db/value.h"

namespace db::sqlite {
namespace {

template <int (*compare)(std::string_view, std::string_view) noexcept>
int collate(void*, int leftSize, const void* left, int rightSize, const void* right) {
    return compare({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                   {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

template <int (*compare)(std::string_view, std::string_view) noexcept>
void addCollation(sqlite3* line, const char* name) {
    sqlite3_create_collation_v2(line, name, SQLITE_UTF8, nullptr, collate<compare>, nullptr);
}

/// like(pattern, text [, escape])
void likeFunction(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    char32_t escape = 0;
    if (count == 3) {
        auto given = textOf(values[2]);
        escape = given.empty() ? 0 : takeCharacter(given);
    }
    sqlite3_result_int(context, like(textOf(values[1]), textOf(values[0]), escape) ? 1 : 0);
}

/// Two texts are joined; as soon as one is a number both are added.
void add(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    if (sqlite3_value_type(values[0]) == SQLITE_TEXT && sqlite3_value_type(values[1]) == SQLITE_TEXT)
        return giveText(context, std::string(textOf(values[0])) += textOf(values[1]));
    const auto left = sqlite3_value_numeric_type(values[0]);
    const auto right = sqlite3_value_numeric_type(values[1]);
    std::int64_t whole = 0;
    if (left == SQLITE_INTEGER && right == SQLITE_INTEGER &&
        !__builtin_add_overflow(sqlite3_value_int64(values[0]), sqlite3_value_int64(values[1]), &whole))
        return sqlite3_result_int64(context, whole);
    if (left == SQLITE_TEXT || right == SQLITE_TEXT)
        throw std::runtime_error("Conversion failed when converting a text to a number.");
    sqlite3_result_double(context, sqlite3_value_double(values[0]) + sqlite3_value_double(values[1]));
}

/// A text that spells a number as that number; anything else as it is.
void spelled(sqlite3_context* context, int, sqlite3_value** values) {
    sqlite3_value_numeric_type(values[0]);
    sqlite3_result_value(context, values[0]);
}

/// substring(text, start, length): characters before the first one count towards the length.
void substring(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    const auto start = sqlite3_value_int64(values[1]);
    const auto length = sqlite3_value_int64(values[2]);
    if (length < 0) throw std::runtime_error("Invalid length parameter passed to the substring function.");
    constexpr std::int64_t bound = std::numeric_limits<std::int32_t>::max();
    const auto from = std::clamp<std::int64_t>(start, -bound, bound) - 1;
    const auto to = std::max<std::int64_t>(from + std::min<std::int64_t>(length, bound), 0);
    const auto first = std::max<std::int64_t>(from, 0);
    giveText(context, characters(textOf(values[0]), static_cast<std::size_t>(first),
                                 static_cast<std::size_t>(std::max<std::int64_t>(to - first, 0))));
}

std::size_t countArgument(sqlite3_value* value) {
    const auto count = sqlite3_value_int64(value);
    if (count < 0)
        throw std::runtime_error("Invalid length parameter passed to the LEFT, RIGHT or replicate function.");
    return static_cast<std::size_t>(count);
}

void left(sqlite3_context* context, int count, sqlite3_value** values) {
    if (!anyNull(count, values)) giveText(context, characters(textOf(values[0]), 0, countArgument(values[1])));
}

void right(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    const auto text = textOf(values[0]);
    const auto size = characterCount(text);
    const auto wanted = std::min(countArgument(values[1]), size);
    giveText(context, characters(text, size - wanted, wanted));
}

/// The number of characters without the blanks at the end.
void length(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    auto text = textOf(values[0]);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    sqlite3_result_int64(context, static_cast<std::int64_t>(characterCount(text)));
}

void appendUtf8(std::string& text, char32_t c) {
    const auto put = [&](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    if (c >= 0x110000) return put(c - 0x110000);  // a byte that is no UTF-8 stays
    if (c < 0x80) return put(c);
    if (c >= 0x10000) {
        put(0xF0U | (c >> 18U));
        put(0x80U | ((c >> 12U) & 0x3FU));
    } else if (c >= 0x800) {
        put(0xE0U | (c >> 12U));
    } else {
        return put(0xC0U | (c >> 6U)), put(0x80U | (c & 0x3FU));
    }
    put(0x80U | ((c >> 6U) & 0x3FU));
    put(0x80U | (c & 0x3FU));
}

std::string lowered(std::string_view text) {
    std::string result;
    while (!text.empty()) appendUtf8(result, folded(takeCharacter(text)));
    return result;
}

/// The capital of a small letter: the one letter that folds to it.
char32_t capital(char32_t c) {
    if (c == 0xFF) return 0x178;
    for (const char32_t distance : {32U, 1U, 80U})
        if (c > distance && folded(c - distance) == c) return c - distance;
    return c;
}

void lowerText(sqlite3_context* context, int count, sqlite3_value** values) {
    if (!anyNull(count, values)) giveText(context, lowered(textOf(values[0])));
}

void upperText(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    std::string result;
    for (auto text = textOf(values[0]); !text.empty();) appendUtf8(result, capital(takeCharacter(text)));
    giveText(context, result);
}

/// tsql_phrase("%part%"): the part as a full-text index looks for it.
void phrase(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    auto pattern = textOf(values[0]);
    std::string result = "\"";
    for (const char c : lowered(pattern.substr(1, pattern.size() - 2))) result += c == '"' ? "\"\"" : std::string(1, c);
    giveText(context, result += '"');
}

/// The characters of a text in their folded form, for searching.
std::u32string foldedText(std::string_view text) {
    std::u32string result;
    while (!text.empty()) result += folded(takeCharacter(text));
    return result;
}

void replace(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    auto rest = textOf(values[0]);
    const auto text = foldedText(rest);
    const auto wanted = foldedText(textOf(values[1]));
    if (wanted.empty()) return giveText(context, rest);
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        const bool here = text.compare(i, wanted.size(), wanted) == 0;
        const auto piece = characters(rest, 0, here ? wanted.size() : 1);
        result += here ? textOf(values[2]) : piece;
        rest.remove_prefix(piece.size());
        i += here ? wanted.size() : 1;
    }
    giveText(context, result);
}

void replicate(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    const auto piece = textOf(values[0]);
    const auto times = std::min<std::size_t>(countArgument(values[1]), 8000);
    std::string result;
    for (std::size_t i = 0; i < times && result.size() < 8000; ++i) result += piece;
    giveText(context, result);
}

/// charindex(wanted, text [, start]): the place from 1, or 0.
void charIndex(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    const auto start = count == 3 ? std::max<std::int64_t>(sqlite3_value_int64(values[2]), 1) - 1 : 0;
    const auto wanted = foldedText(textOf(values[0]));
    const auto found = wanted.empty() ? std::u32string::npos
                                      : foldedText(textOf(values[1])).find(wanted, static_cast<std::size_t>(start));
    sqlite3_result_int64(context, found == std::u32string::npos ? 0 : static_cast<std::int64_t>(found) + 1);
}

/// str(number [, width [, decimals]]): right-aligned; asterisks where it does not fit.
void str(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    const int width = count > 1 ? std::clamp(sqlite3_value_int(values[1]), 1, 100) : 10;
    const int decimals = count > 2 ? std::clamp(sqlite3_value_int(values[2]), 0, 16) : 0;
    std::string text(400, ' ');
    const int size = std::snprintf(text.data(), text.size(), "%*.*f", width, decimals, sqlite3_value_double(values[0]));
    text.resize(static_cast<std::size_t>(size));
    giveText(context, size > width ? std::string(static_cast<std::size_t>(width), '*') : text);
}

double roundedTo(double number, int decimals) {
    const double scale = std::pow(10.0, decimals);
    return std::round(number * scale) / scale;
}

void roundNumber(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    const auto decimals = std::clamp(sqlite3_value_int(values[1]), -15, 15);
    if (sqlite3_value_type(values[0]) == SQLITE_INTEGER && decimals >= 0)
        return sqlite3_result_value(context, values[0]);
    sqlite3_result_double(context, roundedTo(sqlite3_value_double(values[0]), decimals));
}

double numberOf(sqlite3_value* value, const char* failure) {
    if (sqlite3_value_type(value) != SQLITE_TEXT) return sqlite3_value_double(value);
    const auto text = withoutBlanksAround(textOf(value));
    const auto number = text.empty() ? std::optional(0.0) : parseNumber(text);
    if (!number) throw std::runtime_error(failure);
    return *number;
}

/// tsql_integer(value, smallest, largest): fractions of numbers are cut off.
void toInteger(sqlite3_context* context, int, sqlite3_value** values) {
    if (isNull(values[0])) return;
    const auto smallest = sqlite3_value_int64(values[1]);
    const auto largest = sqlite3_value_int64(values[2]);
    auto whole = sqlite3_value_int64(values[0]);
    if (sqlite3_value_numeric_type(values[0]) != SQLITE_INTEGER) {
        const auto number = std::trunc(numberOf(values[0], "Conversion failed when converting a text to an integer."));
        if (!(std::abs(number) < 9.2e18))
            throw std::runtime_error("Arithmetic overflow error converting to an integer.");
        whole = static_cast<std::int64_t>(number);
    }
    if (whole < smallest || whole > largest)
        throw std::runtime_error("Arithmetic overflow error converting to an integer.");
    sqlite3_result_int64(context, whole);
}

void toFlag(sqlite3_context* context, int, sqlite3_value** values) {
    if (isNull(values[0])) return;
    const auto text = textOf(values[0]);
    const bool spelledOut = compareTexts(text, "true") == 0 || compareTexts(text, "false") == 0;
    const bool on = spelledOut ? compareTexts(text, "true") == 0
                               : numberOf(values[0], "Conversion failed when converting a text to a bit.") != 0;
    sqlite3_result_int(context, on ? 1 : 0);
}

/// tsql_number(value, decimals): -1 keeps all of them.
void toNumber(sqlite3_context* context, int, sqlite3_value** values) {
    if (isNull(values[0])) return;
    const auto number = numberOf(values[0], "Error converting a text to a number.");
    const auto decimals = sqlite3_value_int(values[1]);
    sqlite3_result_double(context, decimals < 0 ? number : roundedTo(number, decimals));
}

void isNumeric(sqlite3_context* context, int, sqlite3_value** values) {
    const bool numeric =
        !isNull(values[0]) && (sqlite3_value_type(values[0]) != SQLITE_TEXT || parseNumber(textOf(values[0])));
    sqlite3_result_int(context, numeric ? 1 : 0);
}

}  // namespace

void registerFunctions(sqlite3* line, ServerClock& clock) {
    addCollation<compareTexts>(line, "VTEXT");
    addCollation<compareMoments>(line, "VDATE");
    addCollation<compareMixed>(line, "VMIXED");
    addFunction<likeFunction>(line, "like", 2);
    addFunction<likeFunction>(line, "like", 3);
    addFunction<add>(line, "tsql_add", 2);
    addFunction<spelled>(line, "tsql_spelled", 1);
    addFunction<substring>(line, "tsql_substring", 3);
    addFunction<left>(line, "tsql_left", 2);
    addFunction<right>(line, "tsql_right", 2);
    addFunction<length>(line, "tsql_len", 1);
    addFunction<lowerText>(line, "tsql_lower", 1);
    addFunction<upperText>(line, "tsql_upper", 1);
    addFunction<phrase>(line, "tsql_phrase", 1);
    addFunction<replace>(line, "tsql_replace", 3);
    addFunction<replicate>(line, "tsql_replicate", 2);
    addFunction<charIndex>(line, "tsql_charindex", -1);
    addFunction<str>(line, "tsql_str", -1);
    addFunction<roundNumber>(line, "tsql_round", 2);
    addFunction<toInteger>(line, "tsql_integer", 3);
    addFunction<toFlag>(line, "tsql_flag", 1);
    addFunction<toNumber>(line, "tsql_number", 2);
    addFunction<isNumeric>(line, "tsql_isnumeric", 1);
    registerDateFunctions(line, clock);
}

}  // namespace db::sqlite
