#include "db/datetime.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>

#include "db/datetimeparser.h"
#include "db/error.h"

namespace db {

namespace {

using namespace std::chrono;

constexpr std::int64_t secondsPerDay = 86'400;
constexpr sys_days zeroDate{year{1899} / December / 30};
constexpr std::array<const char*, 12> monthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

constexpr std::int64_t dayOf(std::int64_t seconds) noexcept {
    const auto day = seconds / secondsPerDay;
    return seconds % secondsPerDay < 0 ? day - 1 : day;
}

constexpr bool validYear(int year) noexcept {
    return year >= 100 && year <= 9999;
}

DateTime onDay(year_month_day date, std::int64_t secondOfDay) noexcept {
    return DateTime::fromSeconds((sys_days{date} - zeroDate).count() * secondsPerDay + secondOfDay);
}

void appendNumber(std::string& text, int number, int width) {
    std::array<char, 12> digits{};
    int count = 0;
    for (; number > 0 || count < width; number /= 10)
        digits[static_cast<std::size_t>(count++)] = static_cast<char>('0' + number % 10);
    while (count > 0) text += digits[static_cast<std::size_t>(--count)];
}

void appendTime(std::string& text, const DateTime::Parts& parts) {
    appendNumber(text, parts.hour, 2);
    text += ':';
    appendNumber(text, parts.minute, 2);
    text += ':';
    appendNumber(text, parts.second, 2);
}

void appendIsoDate(std::string& text, const DateTime::Parts& parts) {
    appendNumber(text, parts.year, 4);
    text += '-';
    appendNumber(text, parts.month, 2);
    text += '-';
    appendNumber(text, parts.day, 2);
}

void appendShortDate(std::string& text, const DateTime::Parts& parts) {
    appendNumber(text, parts.day, 2);
    text += '-';
    text += monthNames[static_cast<std::size_t>(parts.month - 1)];
    text += '-';
    appendNumber(text, parts.year, 4);
}

}  // namespace

bool DateTime::Parts::valid() const noexcept {
    if (!validYear(year) || month < 1 || month > 12 || day < 1 || day > 31) return false;
    return (std::chrono::year{year} / month / day).ok() && hour >= 0 && hour < 24 && minute >= 0 && minute < 60 &&
           second >= 0 && second < 60;
}

DateTime DateTime::of(int year, int month, int day, int hour, int minute, int second) {
    const Parts parts{year, month, day, hour, minute, second};
    if (!parts.valid()) throw Error(Category::type, "Overflow");
    return onDay(std::chrono::year{year} / month / day, (hour * 60 + minute) * 60 + second);
}

std::optional<DateTime> DateTime::parse(std::string_view text) noexcept {
    const auto parts = parseMoment(text);
    if (!parts || !parts->valid()) return std::nullopt;
    return onDay(year{parts->year} / parts->month / parts->day,
                 (parts->hour * 60 + parts->minute) * 60 + parts->second);
}

DateTime DateTime::now() {
    const std::time_t clock = std::time(nullptr);
    std::tm local{};
    localtime_r(&clock, &local);
    return of(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
              std::min(local.tm_sec, 59));
}

DateTime::Parts DateTime::parts() const noexcept {
    const auto day = dayOf(seconds_);
    const auto second = static_cast<int>(seconds_ - day * secondsPerDay);
    const year_month_day date{zeroDate + days{day}};
    return {int{date.year()},
            static_cast<int>(unsigned{date.month()}),
            static_cast<int>(unsigned{date.day()}),
            second / 3600,
            second / 60 % 60,
            second % 60};
}

DateTime DateTime::date() const noexcept {
    return fromSeconds(dayOf(seconds_) * secondsPerDay);
}

DateTime DateTime::timeOfDay() const noexcept {
    return fromSeconds(seconds_ - dayOf(seconds_) * secondsPerDay);
}

DateTime DateTime::plusDays(std::int64_t count) const noexcept {
    return fromSeconds(seconds_ + count * secondsPerDay);
}

DateTime DateTime::plusHours(std::int64_t count) const noexcept {
    return fromSeconds(seconds_ + count * 60 * 60);
}

DateTime DateTime::plusMonths(int count) const {
    const year_month_day today{zeroDate + days{dayOf(seconds_)}};
    auto later = today + std::chrono::months{count};
    if (!validYear(int{later.year()})) throw Error(Category::type, "Overflow");
    if (!later.ok()) later = later.year() / later.month() / last;
    return onDay(later, timeOfDay().seconds());
}

std::int64_t DateTime::daysUntil(const DateTime& other) const noexcept {
    return dayOf(other.seconds_) - dayOf(seconds_);
}

std::string DateTime::shortDate() const {
    std::string text;
    appendShortDate(text, parts());
    return text;
}

std::string DateTime::shortTime() const {
    return isoTime().substr(0, 5);
}

std::string DateTime::text() const {
    if (date() == DateTime{}) return isoTime();
    std::string text = shortDate();
    if (timeOfDay() == DateTime{}) return text;
    text += ' ';
    appendTime(text, parts());
    return text;
}

std::string DateTime::isoDate() const {
    std::string text;
    appendIsoDate(text, parts());
    return text;
}

std::string DateTime::isoTime() const {
    std::string text;
    appendTime(text, parts());
    return text;
}

std::string DateTime::iso() const {
    const auto all = parts();
    std::string text;
    text.reserve(19);
    appendIsoDate(text, all);
    text += ' ';
    appendTime(text, all);
    return text;
}

}  // namespace db
