#include "db/value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "db/error.h"
#include "db/rowbuffer.h"

namespace {

using db::DateTime;
using db::Value;

/// What a conversion gives, or the description of its error.
template <typename Conversion>
std::string outcome(const Value& value, Conversion conversion) {
    try {
        return Value((value.*conversion)()).text();
    } catch (const db::Error& error) {
        EXPECT_EQ(error.category(), db::Category::type);
        return error.what();
    }
}

TEST(Value, Conversions) {
    const std::string null = "Invalid use of Null", type = "Type mismatch", overflow = "Overflow";
    const auto noon = DateTime::of(1899, 12, 31, 12);
    const db::Bytes bytes(3);
    const struct {
        const char* name;
        Value value;
        std::string text, int32, number, flag, moment;
    } cases[] = {
        {"null", {}, null, null, null, null, null},
        {"bytes", bytes, type, type, type, type, type},
        {"integer", 2, "2", "2", "2", "True", "01-Jan-1900"},
        {"zero", 0, "0", "0", "0", "False", "00:00:00"},
        {"fraction", 0.25, "0.25", "0", "0.25", "True", "06:00:00"},
        {"true", true, "True", "1", "1", "True", "31-Dec-1899"},
        {"false", false, "False", "0", "0", "False", "00:00:00"},
        {"moment", noon, "31-Dec-1899 12:00:00", "2", "1.5", "True", "31-Dec-1899 12:00:00"},
        {"number text", " 12.50 ", " 12.50 ", "12", "12.5", "True", type},
        {"thousands", "1,234.50", "1,234.50", "1234", "1234.5", "True", type},
        {"many thousands", "-1,234,567", "-1,234,567", "-1234567", "-1234567", "True", type},
        {"a decimal comma", "1,5", "1,5", type, type, type, type},
        {"a stray comma", "1,234,5", "1,234,5", type, type, type, type},
        {"zero text", "0", "0", "0", "0", "False", type},
        {"minus one text", "-1", "-1", "-1", "-1", "True", type},
        {"yes", "yes", "yes", type, type, "True", type},
        {"no", "No", "No", type, type, "False", type},
        {"true text", "TRUE", "TRUE", type, type, "True", type},
        {"date text", "24-Nov-2026", "24-Nov-2026", type, type, type, "24-Nov-2026"},
        {"empty", "", "", type, type, type, type},
        {"words", "abc", "abc", type, type, type, type},
        {"large", 3e9, "3000000000", overflow, "3000000000", "True", overflow},
        {"large text", "3000000000", "3000000000", overflow, "3000000000", "True", type},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(outcome(each.value, &Value::text), each.text);
        EXPECT_EQ(outcome(each.value, &Value::int32), each.int32);
        EXPECT_EQ(outcome(each.value, &Value::number), each.number);
        EXPECT_EQ(outcome(each.value, &Value::flag), each.flag);
        EXPECT_EQ(outcome(each.value, &Value::moment), each.moment);
    }
}

TEST(Value, HalvesRoundToEvenAndRangesHold) {
    const std::pair<const char*, std::vector<Value>> cases[] = {
        {"0", {0.5, -0.5}},   {"2", {1.5, 2.5, "2.5"}},
        {"-2", {-1.5}},       {"32767", {32767, 32767.4}},
        {"-32768", {-32768}}, {"Overflow", {32767.5, 32768, "-32769", std::nan(""), HUGE_VAL, "1e30"}},
    };
    for (const auto& [expected, values] : cases)
        for (const auto& value : values) EXPECT_EQ(outcome(value, &Value::int16), expected) << value.text();
    const auto largest = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(Value(std::to_string(largest)).int64(), largest) << "no detour over a double";
    EXPECT_THROW(static_cast<void>(Value(0x1p63).int64()), db::Error);
}

TEST(Value, NullsCountAsWhatTheCallerSays) {
    EXPECT_EQ(Value().textOr("x"), "x");
    EXPECT_EQ(Value().int32Or(7), 7);
    EXPECT_EQ(Value().numberOr(0.5), 0.5);
    EXPECT_THROW(static_cast<void>(Value("x").int32Or(7)), db::Error);
    EXPECT_TRUE(Value("").isNullOrEmpty());
    EXPECT_FALSE(Value("").isNull());
    EXPECT_FALSE(Value(0).isNullOrEmpty());
}

TEST(Value, NumberTexts) {
    const struct {
        double number;
        const char* text;
    } cases[] = {{0.1, "0.1"},
                 {-0.0, "0"},
                 {1e14, "100000000000000"},
                 {999999999999999, "999999999999999"},
                 {1e15, "1e+15"},
                 {0.0004, "0.0004"},
                 {1e-7, "0.0000001"},
                 {1234.5, "1234.5"},
                 {1.0 / 3, "0.3333333333333333"},
                 {-2.5e20, "-2.5e+20"}};
    for (const auto& [number, text] : cases) EXPECT_EQ(db::numberText(number), text);
    for (const double hard : {5e-324, 1.7976931348623157e308, 0.1 + 0.2, 123456789012345.67})
        EXPECT_EQ(db::parseNumber(db::numberText(hard)), hard);
}

TEST(Value, LeadingNumbers) {
    const struct {
        const char* text;
        double number;
    } cases[] = {{"12 kg", 12},   {" 1 2 3", 123}, {"-3.5e1x", -35}, {"1.2.3", 1.2}, {"5e", 5},
                 {"abc", 0},      {"", 0},         {"-", 0},         {".5", 0.5},    {"1,234", 1},
                 {"120/80", 120}, {"+7", 7},       {"--5", 0},       {"inf", 0},     {"1e-999", 0}};
    for (const auto& [text, number] : cases) EXPECT_EQ(db::leadingNumber(text), number) << text;
    EXPECT_TRUE(std::isfinite(db::leadingNumber("1e999")));
    EXPECT_TRUE(std::isfinite(db::leadingNumber(std::string(100'000, '9'))));
}

TEST(RowBuffer, CellsReadAsTheirColumnSays) {
    db::RowBuffer rows;
    rows.addColumn("Plain", db::RowBuffer::Reading::plain);
    rows.addColumn("Day", db::RowBuffer::Reading::date);
    rows.addColumn("Flag", db::RowBuffer::Reading::flag);
    rows.addColumn("Amount", db::RowBuffer::Reading::money);
    rows.addColumn("Picture", db::RowBuffer::Reading::plain);
    rows.addText("2026-11-24");
    rows.addText("2026-11-24");
    rows.addInteger(-1);
    rows.addNumber(0.1 + 0.2);
    rows.addBytes(std::string_view("\0a", 2));
    for (int i = 0; i < 4; ++i) rows.addNull();
    rows.addText("");
    rows.addText("x");
    rows.addText("no day");
    rows.addInteger(0);
    rows.addInteger(5);
    rows.addBytes({});

    ASSERT_EQ(rows.rowCount(), 3U);
    EXPECT_EQ(rows.value(0, rows.column("PLAIN")), Value("2026-11-24"));
    EXPECT_EQ(rows.value(0, rows.column("day")), Value(DateTime::of(2026, 11, 24)));
    EXPECT_EQ(rows.value(0, 2), Value(true));
    EXPECT_EQ(rows.value(0, 3), Value(0.3)) << "four decimals, no more";
    EXPECT_EQ(rows.value(0, 4).bytes(), (db::Bytes{std::byte{0}, std::byte{'a'}}));
    EXPECT_TRUE(rows.value(1, 1).isNull());
    EXPECT_EQ(rows.value(1, 4), Value(""));
    EXPECT_EQ(rows.value(2, 1), Value("no day")) << "whoever needs a date of it gets the type error";
    EXPECT_EQ(rows.value(2, 2), Value(false));
    EXPECT_EQ(rows.value(2, 3), Value(5.0));
    EXPECT_EQ(rows.column("none"), rows.columnCount());
    EXPECT_EQ(rows.column(""), rows.columnCount());
}

}  // namespace
