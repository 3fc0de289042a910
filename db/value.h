#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "db/datetime.h"

namespace db {

struct Null {
    constexpr auto operator<=>(const Null&) const = default;
};
using Bytes = std::vector<std::byte>;

/// One cell of a row, or one argument of a statement. A null stays a null until somebody says what it counts as
/// (`textOr`, `integerOr`, ...); the plain conversions refuse it with Error(type) "Invalid use of Null", and refuse
/// a content without such a reading with Error(type) "Type mismatch" or "Overflow".
class Value {
public:
    Value() = default;
    Value(Null) {}
    Value(bool flag) : content_(flag) {}
    Value(int number) : content_(std::int64_t{number}) {}
    Value(std::int64_t number) : content_(number) {}
    Value(double number) : content_(number) {}
    Value(std::string text) : content_(std::move(text)) {}
    Value(std::string_view text) : content_(std::string(text)) {}
    Value(const char* text) : content_(std::string(text)) {}
    Value(DateTime moment) : content_(moment) {}
    Value(Bytes bytes) : content_(std::move(bytes)) {}

    using Content = std::variant<Null, std::int64_t, double, std::string, DateTime, bool, Bytes>;
    [[nodiscard]] const Content& content() const noexcept { return content_; }

    [[nodiscard]] bool isNull() const noexcept { return std::holds_alternative<Null>(content_); }
    /// Null, or a text of no characters.
    [[nodiscard]] bool isNullOrEmpty() const noexcept;

    /// The text as it would stand behind "+" in a statement: numbers in their shortest form, moments as
    /// DateTime::text(), flags as "True" and "False". Bytes have none.
    [[nodiscard]] std::string text() const;
    [[nodiscard]] std::string textOr(std::string_view whenNull = {}) const&;
    [[nodiscard]] std::string textOr(std::string_view whenNull = {}) &&;
    /// Fractions are rounded half to even, texts are read as numbers first (thousands separators allowed). A flag
    /// counts as 1 or 0, a moment as the days since the zero date.
    [[nodiscard]] std::int16_t int16() const;
    [[nodiscard]] std::int32_t int32() const;
    [[nodiscard]] std::int64_t int64() const;
    [[nodiscard]] std::int32_t int32Or(std::int32_t whenNull) const { return isNull() ? whenNull : int32(); }
    [[nodiscard]] double number() const;
    [[nodiscard]] double numberOr(double whenNull) const { return isNull() ? whenNull : number(); }
    /// Numbers: true unless 0. Texts: "YES", "TRUE" and numbers but 0 are true, "NO", "FALSE" and "0" false, in any
    /// letter case.
    [[nodiscard]] bool flag() const;
    /// Texts as DateTime::parse reads them; numbers are days since the zero date.
    [[nodiscard]] DateTime moment() const;
    [[nodiscard]] const Bytes& bytes() const;

    bool operator==(const Value&) const = default;

private:
    Content content_;
};

/// The number that stands at the start of `text`, whatever follows it; 0 where none stands there.
/// Blanks inside the number are skipped.
double leadingNumber(std::string_view text) noexcept;

/// The whole of `text` as a number in plain notation ("12", "-3.5", "1e3", blanks around allowed), or nothing.
std::optional<double> parseNumber(std::string_view text) noexcept;

/// The whole of `text` as an integer ("-12", blanks around allowed), or nothing.
std::optional<std::int64_t> parseInteger(std::string_view text) noexcept;

/// "1,234,567.50" as "1234567.50", where every separator stands before three digits; nothing otherwise.
std::optional<std::string> withoutThousandsSeparators(std::string_view text);

/// A number in the shortest form that reads back as the same double; no exponent below 1e15.
std::string numberText(double number);

}  // namespace db
