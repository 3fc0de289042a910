#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace db::dialect {

/// What an expression gives, as far as its text tells.
enum class Type { unknown, null, text, number, date, bytes };

struct Expression {
    std::string sql;  ///< as the engine's writer has spelled it
    Type type = Type::unknown;
    bool column = false;   ///< a bare column: it brings its own collation and affinity
    bool certain = true;   ///< the type is sure and no guess
    bool literal = false;  ///< a text literal, a place or a variable: takes the other side's type in a comparison
};

/// A whole `case`.
struct Case {
    struct Arm {
        Expression when, then;
    };
    std::optional<Expression> subject;  ///< of "case x when 1 ..."; without it each `when` is a condition
    std::vector<Arm> arms;
    std::optional<Expression> otherwise;
};

/// A type name of T-SQL: the family decides how an engine stores it.
struct TypeName {
    enum class Family { text, integer, flag, number, money, decimal, date, time, datetime, bytes };
    Family family = Family::text;
    /// Of a text in characters, -1 without a bound; of an amount of money or a decimal its digits behind the point.
    long length = -1;
    std::string_view smallest = {}, largest = {};  ///< of an integer
};

}  // namespace db::dialect
