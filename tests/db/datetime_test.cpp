#include "db/datetime.h"

#include <gtest/gtest.h>

#include "db/error.h"

namespace {

using db::DateTime;
using namespace std::string_view_literals;

TEST(DateTime, Parse) {
    const std::pair<std::string_view, const char*> cases[] = {
        {"2026-11-24", "2026-11-24 00:00:00"},
        {"2026-11-24 09:30", "2026-11-24 09:30:00"},
        {"2026-11-24T09:30:05", "2026-11-24 09:30:05"},
        {"2026-11-24 23:59:59.997", "2026-11-24 23:59:59"},
        {"20261124", "2026-11-24 00:00:00"},
        {"20261124 09:30", "2026-11-24 09:30:00"},
        {"24-Nov-2026", "2026-11-24 00:00:00"},
        {" 4-nOV-26 ", "2026-11-04 00:00:00"},
        {"24-November-2026 1:05 pm", "2026-11-24 13:05:00"},
        {"01-Jan-06", "2006-01-01 00:00:00"},
        {"31-Dec-29", "2029-12-31 00:00:00"},
        {"31-Dec-30", "1930-12-31 00:00:00"},
        {"24/11/2026", "2026-11-24 00:00:00"},
        {"05-06-2026", "2026-06-05 00:00:00"},
        {"24 Nov 2026", "2026-11-24 00:00:00"},
        {"Nov 24 2026", "2026-11-24 00:00:00"},
        {"may 5, 2026 09:30:05", "2026-05-05 09:30:05"},
        {"29-Feb-2024", "2024-02-29 00:00:00"},
        {"09:30", "1899-12-30 09:30:00"},
        {"9:30:05", "1899-12-30 09:30:05"},
        {"11:59 PM", "1899-12-30 23:59:00"},
        {"12:00 AM", "1899-12-30 00:00:00"},
        {"12:01pm", "1899-12-30 12:01:00"},
        {"0100-01-01", "0100-01-01 00:00:00"},
        {"9999-12-31 23:59:59", "9999-12-31 23:59:59"},
        {"2026-11-24 ", "2026-11-24 00:00:00"},
    };
    for (const auto& [text, expected] : cases) {
        const auto moment = DateTime::parse(text);
        EXPECT_EQ(moment ? moment->iso() : "none", expected) << text;
    }
    const std::pair<const char*, std::vector<std::string_view>> refused[] = {
        {"no calendar has it", {"29-Feb-2026", "31-Apr-2026", "2026-13-01", "2026-00-10", "11/24/2026", "0099-12-31"}},
        {"no clock has it", {"24:00", "09:60", "13:00 PM", "0:30 AM"}},
        {"too little",
         {"", " ", "24", "24-Nov", "24-Nov-202", "24-No-2026", "2026-11-24T", "09:30:", "09:30:05.", "9:3"}},
        {"too much",
         {"24-Novem-2026", "2026-11-24x", "2026-11-2409:30", "202611241", "24-Nov-2026; drop", "24-Nov-2026\0"sv}},
        {"other signs", {"24-Nov/2026", "24 11 2026", "-1-Nov-2026", "2026-11-24 09:30 XM"}},
    };
    for (const auto& [why, texts] : refused)
        for (const auto& text : texts) EXPECT_FALSE(DateTime::parse(text)) << why << ": " << text;
}

TEST(DateTime, Texts) {
    const auto moment = DateTime::of(2026, 1, 5, 9, 3, 7);
    EXPECT_EQ(moment.text(), "05-Jan-2026 09:03:07");
    EXPECT_EQ(moment.date().text(), "05-Jan-2026");
    EXPECT_EQ(moment.timeOfDay().text(), "09:03:07");
    EXPECT_EQ(DateTime().text(), "00:00:00");
    EXPECT_EQ(moment.shortDate(), "05-Jan-2026");
    EXPECT_EQ(moment.shortTime(), "09:03");
    EXPECT_EQ(moment.iso(), "2026-01-05 09:03:07");
    EXPECT_EQ(DateTime().iso(), "1899-12-30 00:00:00");
}

/// Every text that we write is one that we read.
TEST(DateTime, TextsReadBack) {
    for (const auto seconds :
         std::initializer_list<std::int64_t>{-56'000'000'000, -1, 0, 34'200, 86'400, 4'004'760'605, 250'000'000'001}) {
        const auto moment = DateTime::fromSeconds(seconds);
        for (const auto& text : {moment.iso(), moment.text()}) EXPECT_EQ(DateTime::parse(text), moment) << text;
        EXPECT_EQ(DateTime::parse(moment.shortDate() + " " + moment.isoTime()), moment);
    }
}

TEST(DateTime, BeforeTheZeroDate) {
    const auto evening = DateTime::of(1899, 12, 29, 18);
    EXPECT_LT(evening, DateTime());
    EXPECT_EQ(evening.date().iso(), "1899-12-29 00:00:00");
    EXPECT_EQ(evening.timeOfDay().iso(), "1899-12-30 18:00:00");
    EXPECT_EQ(evening.daysUntil(DateTime()), 1);
}

TEST(DateTime, MonthEnds) {
    const struct {
        const char* from;
        int months;
        const char* expected;
    } cases[] = {
        {"31-Jan-2026", 1, "28-Feb-2026"}, {"31-Jan-2024", 1, "29-Feb-2024"},   {"29-Feb-2024", 12, "28-Feb-2025"},
        {"31-Oct-2026", 1, "30-Nov-2026"}, {"31-Mar-2026", -1, "28-Feb-2026"},  {"15-Jan-2026", -1, "15-Dec-2025"},
        {"30-Nov-2026", 3, "28-Feb-2027"}, {"15-Jan-2026", -13, "15-Dec-2024"}, {"28-Feb-2026", 0, "28-Feb-2026"},
    };
    for (const auto& [from, months, expected] : cases)
        EXPECT_EQ(DateTime::parse(from)->plusMonths(months).text(), expected) << from << " + " << months;
    EXPECT_EQ(DateTime::of(2026, 1, 31, 23, 59).plusMonths(1).iso(), "2026-02-28 23:59:00");
    EXPECT_THROW(static_cast<void>(DateTime::of(9999, 12, 1).plusMonths(1)), db::Error);
}

TEST(DateTime, DaysAndHours) {
    const auto lateEvening = DateTime::of(2026, 11, 24, 23, 59, 59);
    EXPECT_EQ(lateEvening.daysUntil(DateTime::of(2026, 11, 25)), 1);
    EXPECT_EQ(DateTime::of(2026, 11, 25).daysUntil(lateEvening), -1);
    EXPECT_EQ(lateEvening.plusHours(24), lateEvening.plusDays(1));
    EXPECT_EQ(DateTime::of(2024, 2, 28).plusDays(1).text(), "29-Feb-2024");
}

TEST(DateTime, OfRefusesWhatNoCalendarHas) {
    for (const auto& parts : {DateTime::Parts{2026, 2, 29, 0, 0, 0},
                              {99, 1, 1, 0, 0, 0},
                              {10000, 1, 1, 0, 0, 0},
                              {2026, -1, 1, 0, 0, 0},
                              {2026, 257, 1, 0, 0, 0},
                              {2026, 1, 257, 0, 0, 0},
                              {2026, 1, 1, 24, 0, 0},
                              {2026, 1, 1, 0, -1, 0},
                              {2026, 1, 1, 0, 0, 60}})
        EXPECT_THROW(DateTime::of(parts.year, parts.month, parts.day, parts.hour, parts.minute, parts.second),
                     db::Error)
            << parts.year << '-' << parts.month << '-' << parts.day;
}

}  // namespace
