#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "db/value.h"

namespace db {

/// A text that stands in the program's source. It converts from a string literal at compile time only, so nothing
/// that was typed or read can ever become one.
class Literal {
public:
    template <std::size_t N>
    consteval Literal(const char (&text)[N]) : text_(text, N - 1) {}  // NOLINT(*-explicit-*): that is its use
    [[nodiscard]] constexpr std::string_view text() const noexcept { return text_; }

private:
    std::string_view text_;
};

/// What may be added to a statement at run time. A `const char*` is none of them: it would hide whether the text was
/// written by us or typed by somebody.
template <typename T>
concept StatementValue = std::same_as<T, std::string> || std::same_as<T, std::string_view> || std::same_as<T, int> ||
    std::same_as<T, std::int64_t> || std::same_as<T, double> || std::same_as<T, DateTime> || std::same_as<T, Value>;

/// A statement in T-SQL that knows its literals from its values:
///
///     "select pno from qryhVisitsForToday where pno='"_sql + pno + "'"
///
/// Text of the program and values are told apart by where they come from, and `bound()` turns every value into a
/// bound parameter. So the text reads as it always did, and no typed text can become SQL.
class Sql {
public:
    Sql& operator+=(Literal literal) {
        append(literal.text(), false);
        return *this;
    }
    Sql& operator+=(const Sql& other);
    template <StatementValue T>
    Sql& operator+=(const T& value) {
        if constexpr (std::same_as<T, std::string> || std::same_as<T, std::string_view>)
            append(value, true);
        else
            append(Value(value).text(), true);
        return *this;
    }

    friend Sql operator+(Sql left, Literal right) { return std::move(left += right); }
    friend Sql operator+(Sql left, const Sql& right) { return std::move(left += right); }
    template <StatementValue T>
    friend Sql operator+(Sql left, const T& right) {
        return std::move(left += right);
    }

    /// The full text with the values in it: for `trace`, for tests, and for a log of statement shapes never.
    [[nodiscard]] const std::string& text() const noexcept { return text_; }

    struct Template {
        std::string text;               ///< the statement with a numbered place ("?1", "?2", ...) for each parameter
        std::vector<Value> parameters;  ///< in the order of their numbers
        bool operator==(const Template&) const = default;
    };
    /// The statement with bound parameters: a quoted literal that holds a value becomes one parameter, a value outside
    /// quotes has to be a number and becomes one too.
    /// Throws Error(syntax) where the server would find the text broken: a value with a lone quote, a value outside
    /// quotes that is no number (an empty one too), a value inside a name or a comment, a NUL character, an open quote
    /// or comment, a second statement.
    [[nodiscard]] Template bound() const;

    /// Where a value stands in `text()`.
    struct Span {
        std::size_t begin, end;
    };

private:
    Sql() = default;
    friend Sql literals_sql(const char* text, std::size_t size);
    friend Sql trusted(std::string text);
    void append(std::string_view text, bool value);

    std::string text_;
    std::vector<Span> values_;  ///< in order
};

/// Behind `"..."_sql`; not for calling.
Sql literals_sql(const char* text, std::size_t size);

/// A whole statement that an operator wrote: for her scripts' own reading and preparing of rows, never for anything
/// that a user typed or a row holds.
Sql trusted(std::string text);

inline namespace literals {
/// `"select ..."_sql` starts a statement.
inline Sql operator""_sql(const char* text, std::size_t size) {
    return literals_sql(text, size);
}
}  // namespace literals

}  // namespace db
