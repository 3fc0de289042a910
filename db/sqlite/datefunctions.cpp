#include <array>
#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "db/databases.h"
#include "db/error.h"
#include "db/letters.h"
#include "db/sqlite/arguments.h"
#include "db/sqlite/functions.h"
#include "db/sqlite/text.h"

namespace db::sqlite {
namespace {

DateTime momentOf(sqlite3_value* value) {
    const auto moment = sqlite3_value_type(value) == SQLITE_TEXT ? readMoment(textOf(value)) : std::nullopt;
    if (!moment) throw std::runtime_error(dateConversionFailed);
    return *moment;
}

void getDate(sqlite3_context* context, int, sqlite3_value**) {
    giveText(context, static_cast<ServerClock*>(sqlite3_user_data(context))->now().iso());
}

/// tsql_moment(text, kind): the stored form.
void toMoment(sqlite3_context* context, int, sqlite3_value** values) {
    if (isNull(values[0])) return;
    const auto stored = storedMoment(textOf(values[0]), textOf(values[1]).front());
    if (!stored) throw std::runtime_error(dateConversionFailed);
    giveText(context, *stored);
}

/// tsql_isstored(text, kind): true for a null too.
void isStoredFunction(sqlite3_context* context, int, sqlite3_value** values) {
    sqlite3_result_int(context, isNull(values[0]) || isStored(textOf(values[0]), textOf(values[1]).front()) ? 1 : 0);
}

void isDate(sqlite3_context* context, int, sqlite3_value** values) {
    const bool date = sqlite3_value_type(values[0]) == SQLITE_TEXT && readMoment(textOf(values[0]));
    sqlite3_result_int(context, date ? 1 : 0);
}

enum class Part { year, quarter, month, day, week, weekday, dayOfYear, hour, minute, second };

Part partOf(sqlite3_value* value) {
    struct Name {
        std::string_view name;
        Part part;
    };
    static constexpr Name names[] = {
        {"year", Part::year},       {"yy", Part::year},       {"yyyy", Part::year},
        {"quarter", Part::quarter}, {"qq", Part::quarter},    {"q", Part::quarter},
        {"month", Part::month},     {"mm", Part::month},      {"m", Part::month},
        {"day", Part::day},         {"dd", Part::day},        {"d", Part::day},
        {"week", Part::week},       {"wk", Part::week},       {"ww", Part::week},
        {"weekday", Part::weekday}, {"dw", Part::weekday},    {"dayofyear", Part::dayOfYear},
        {"dy", Part::dayOfYear},    {"y", Part::dayOfYear},   {"hour", Part::hour},
        {"hh", Part::hour},         {"minute", Part::minute}, {"mi", Part::minute},
        {"n", Part::minute},        {"second", Part::second}, {"ss", Part::second},
        {"s", Part::second}};
    for (const auto& name : names)
        if (sameName(name.name, textOf(value))) return name.part;
    throw std::runtime_error("The date part is not recognized.");
}

std::int64_t floorDivided(std::int64_t number, std::int64_t by) {
    return number / by - (number % by < 0 ? 1 : 0);
}

/// Days since a Sunday long ago.
std::int64_t dayNumber(const DateTime& moment) {
    return floorDivided(moment.seconds(), 86400) + 6;  // 30-Dec-1899 was a Saturday
}

std::int64_t datePart(Part part, const DateTime& moment) {
    const auto parts = moment.parts();
    const auto dayOfYear = DateTime::of(parts.year, 1, 1).daysUntil(moment) + 1;
    switch (part) {
        case Part::year:
            return parts.year;
        case Part::quarter:
            return (parts.month + 2) / 3;
        case Part::month:
            return parts.month;
        case Part::day:
            return parts.day;
        case Part::week:
            return floorDivided(dayNumber(moment), 7) - floorDivided(dayNumber(DateTime::of(parts.year, 1, 1)), 7) + 1;
        case Part::weekday:
            return dayNumber(moment) - floorDivided(dayNumber(moment), 7) * 7 + 1;
        case Part::dayOfYear:
            return dayOfYear;
        case Part::hour:
            return parts.hour;
        case Part::minute:
            return parts.minute;
        case Part::second:
            return parts.second;
    }
    return 0;
}

/// The number of the part that a moment lies in, counted through all time: differences count boundaries.
std::int64_t serial(Part part, const DateTime& moment) {
    const auto parts = moment.parts();
    switch (part) {
        case Part::year:
            return parts.year;
        case Part::quarter:
            return parts.year * 4 + (parts.month - 1) / 3;
        case Part::month:
            return parts.year * 12 + parts.month;
        case Part::week:
            return floorDivided(dayNumber(moment), 7);
        case Part::hour:
            return floorDivided(moment.seconds(), 3600);
        case Part::minute:
            return floorDivided(moment.seconds(), 60);
        case Part::second:
            return moment.seconds();
        default:
            return dayNumber(moment);
    }
}

void datePartFunction(sqlite3_context* context, int count, sqlite3_value** values) {
    if (!anyNull(count, values)) sqlite3_result_int64(context, datePart(partOf(values[0]), momentOf(values[1])));
}

void dateDiff(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    const auto part = partOf(values[0]);
    sqlite3_result_int64(context, serial(part, momentOf(values[2])) - serial(part, momentOf(values[1])));
}

DateTime moved(Part part, std::int64_t number, const DateTime& moment) {
    switch (part) {
        case Part::year:
            return moment.plusMonths(static_cast<int>(number * 12));
        case Part::quarter:
            return moment.plusMonths(static_cast<int>(number * 3));
        case Part::month:
            return moment.plusMonths(static_cast<int>(number));
        case Part::week:
            return moment.plusDays(number * 7);
        case Part::hour:
            return moment.plusHours(number);
        case Part::minute:
            return DateTime::fromSeconds(moment.seconds() + number * 60);
        case Part::second:
            return DateTime::fromSeconds(moment.seconds() + number);
        default:
            return moment.plusDays(number);
    }
}

/// Nothing beyond the years that the server knows.
std::optional<DateTime> added(Part part, std::int64_t number, const DateTime& moment) {
    const std::int64_t most = part == Part::year      ? 8'500
                              : part == Part::quarter ? 34'000
                              : part == Part::month   ? 102'000
                                                      : 300'000'000'000;
    if (number > most || number < -most) return {};
    try {
        const auto sum = moved(part, number, moment);
        if (sum < DateTime::of(1753, 1, 1) || sum > DateTime::of(9999, 12, 31, 23, 59, 59)) return {};
        return sum;
    } catch (const Error&) {
        return {};
    }
}

void dateAdd(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    const auto number = sqlite3_value_int64(values[1]);
    const auto part = partOf(values[0]);
    const auto moment = momentOf(values[2]);
    const auto sum = added(part, number, moment);
    if (!sum) throw std::runtime_error("Adding a value to a 'datetime' column caused an overflow.");
    giveText(context, sum->iso());
}

constexpr std::array<const char*, 12> monthNames = {"January",   "February", "March",    "April",
                                                    "May",       "June",     "July",     "August",
                                                    "September", "October",  "November", "December"};
constexpr std::array<const char*, 7> dayNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                 "Thursday", "Friday", "Saturday"};

void dateName(sqlite3_context* context, int count, sqlite3_value** values) {
    if (anyNull(count, values)) return;
    const auto part = partOf(values[0]);
    const auto number = datePart(part, momentOf(values[1]));
    const auto index = static_cast<std::size_t>(number - 1);
    giveText(context, part == Part::month     ? monthNames.at(index)
                      : part == Part::weekday ? dayNames.at(index)
                                              : std::to_string(number));
}

template <Part part>
void partFunction(sqlite3_context* context, int count, sqlite3_value** values) {
    if (!anyNull(count, values)) sqlite3_result_int64(context, datePart(part, momentOf(values[0])));
}

/// A moment in one of the server's numbered styles; an unknown style is an error.
std::string styled(const DateTime& moment, int style) {
    const auto p = moment.parts();
    const auto* month = monthNames.at(static_cast<std::size_t>(p.month - 1));
    const int hour12 = p.hour % 12 == 0 ? 12 : p.hour % 12;
    const auto* half = p.hour < 12 ? "AM" : "PM";
    std::array<char, 64> text{};
    const auto print = [&](const char* format, auto... values) {
        std::snprintf(text.data(), text.size(), format, values...);
        return std::string(text.data());
    };
    const int year = style < 100 && style != 0 ? p.year % 100 : p.year;
    const int digits = style < 100 && style != 0 ? 2 : 4;
    switch (style % 100) {
        case 0:
            return print("%.3s %2d %d %2d:%02d%s", month, p.day, p.year, hour12, p.minute, half);
        case 1:
            return print("%02d/%02d/%0*d", p.month, p.day, digits, year);
        case 2:
            return print("%0*d.%02d.%02d", digits, year, p.month, p.day);
        case 3:
            return print("%02d/%02d/%0*d", p.day, p.month, digits, year);
        case 4:
            return print("%02d.%02d.%0*d", p.day, p.month, digits, year);
        case 5:
            return print("%02d-%02d-%0*d", p.day, p.month, digits, year);
        case 6:
            return print("%02d %.3s %0*d", p.day, month, digits, year);
        case 7:
            return print("%.3s %02d, %0*d", month, p.day, digits, year);
        case 8:
            return moment.isoTime();
        case 10:
            return print("%02d-%02d-%0*d", p.month, p.day, digits, year);
        case 11:
            return print("%0*d/%02d/%02d", digits, year, p.month, p.day);
        case 12:
            return print("%0*d%02d%02d", digits, year, p.month, p.day);
        case 13:
            return print("%02d %.3s %d %02d:%02d:%02d", p.day, month, p.year, p.hour, p.minute, p.second);
        case 20:
            return moment.iso();
        case 21:
            return moment.iso() + ".000";
        case 26:
            return moment.isoDate() + "T" + moment.isoTime();
        default:
            throw std::runtime_error("The style number is not valid for the conversion of a date to a text.");
    }
}

/// tsql_text(value, length, style): dates in the style, cut off at the length; -1 for none.
void toText(sqlite3_context* context, int, sqlite3_value** values) {
    if (isNull(values[0])) return;
    const auto style = sqlite3_value_int(values[2]);
    const auto given = textOf(values[0]);
    const auto moment =
        style >= 0 && sqlite3_value_type(values[0]) == SQLITE_TEXT ? DateTime::parse(given) : std::nullopt;
    const auto text = moment ? styled(*moment, style) : std::string(given);
    const auto length = sqlite3_value_int64(values[1]);
    giveText(context, length < 0 ? std::string_view(text) : characters(text, 0, static_cast<std::size_t>(length)));
}

}  // namespace

void registerDateFunctions(sqlite3* line, ServerClock& clock) {
    addFunction<getDate>(line, "getdate", 0, false, &clock);
    addFunction<toMoment>(line, "tsql_moment", 2);
    addFunction<isStoredFunction>(line, "tsql_isstored", 2);
    addFunction<isDate>(line, "tsql_isdate", 1);
    addFunction<datePartFunction>(line, "tsql_datepart", 2);
    addFunction<dateName>(line, "tsql_datename", 2);
    addFunction<dateDiff>(line, "tsql_datediff", 3);
    addFunction<dateAdd>(line, "tsql_dateadd", 3);
    addFunction<partFunction<Part::year>>(line, "tsql_year", 1);
    addFunction<partFunction<Part::month>>(line, "tsql_month", 1);
    addFunction<partFunction<Part::day>>(line, "tsql_day", 1);
    addFunction<toText>(line, "tsql_text", 3);
}

}  // namespace db::sqlite
