#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace db {

/// A moment on the wall clock, without a zone, to the second. The default is the zero date,
/// 30-Dec-1899 00:00:00: a moment on the zero date stands for a time of day, one at midnight for a date.
class DateTime {
public:
    constexpr DateTime() = default;

    /// The moment of these calendar parts. Throws Error(type) "Overflow" for parts that no calendar has
    /// and for years outside 100 to 9999.
    static DateTime of(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
    /// The moment so many seconds after the zero date.
    static constexpr DateTime fromSeconds(std::int64_t seconds) {
        DateTime moment;
        moment.seconds_ = seconds;
        return moment;
    }
    /// Reads "2026-11-24", "2026-11-24 09:30[:05[.123]]" (a "T" for the blank too), "20261124", "24-Nov-2026",
    /// "24-Nov-26", "24/11/2026", "24 Nov 2026", "Nov 24 2026", each with or without a time of day, and a time
    /// alone ("09:30", "9:30:05", "11:59 PM"). Two-digit years up to 29 are 20xx. Nothing otherwise.
    static std::optional<DateTime> parse(std::string_view text) noexcept;
    /// The workstation's clock.
    static DateTime now();

    struct Parts {
        int year, month, day, hour, minute, second;
        /// Whether a calendar and a clock have these parts, in a year from 100 to 9999.
        [[nodiscard]] bool valid() const noexcept;
    };
    [[nodiscard]] Parts parts() const noexcept;
    [[nodiscard]] constexpr std::int64_t seconds() const noexcept { return seconds_; }

    /// This day at midnight.
    [[nodiscard]] DateTime date() const noexcept;
    /// This time of day on the zero date.
    [[nodiscard]] DateTime timeOfDay() const noexcept;
    [[nodiscard]] DateTime plusDays(std::int64_t days) const noexcept;
    [[nodiscard]] DateTime plusHours(std::int64_t hours) const noexcept;
    /// The same day of a later (or earlier) month; the month's last day where it has no such day.
    [[nodiscard]] DateTime plusMonths(int months) const;
    /// Whole days from this day's midnight to that of `other`; negative when `other` is earlier.
    [[nodiscard]] std::int64_t daysUntil(const DateTime& other) const noexcept;

    /// "24-Nov-2026": unambiguous in any language of a server.
    [[nodiscard]] std::string shortDate() const;
    /// "09:30".
    [[nodiscard]] std::string shortTime() const;
    /// The text that stands for the moment in statements and on screens: "24-Nov-2026" at midnight,
    /// "09:30:00" on the zero date (its midnight too), "24-Nov-2026 09:30:00" otherwise.
    [[nodiscard]] std::string text() const;
    [[nodiscard]] std::string isoDate() const;  ///< "2026-11-24"
    [[nodiscard]] std::string isoTime() const;  ///< "09:30:05"
    [[nodiscard]] std::string iso() const;      ///< "2026-11-24 09:30:05"

    constexpr auto operator<=>(const DateTime&) const = default;

private:
    std::int64_t seconds_ = 0;
};

}  // namespace db
