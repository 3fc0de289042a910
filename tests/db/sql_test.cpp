#include "db/sql.h"

#include <gtest/gtest.h>

#include "db/error.h"

namespace {

using db::operator""_sql;
using db::Sql;
using db::Value;
using namespace std::string_literals;

TEST(Sql, ValuesBecomeParameters) {
    struct Written {
        const char* name;
        Sql statement;
        std::string text;
        std::vector<Value> parameters;
    };
    const std::int64_t five = 5;
    const Written cases[] = {
        {"no value", "select 'it''s', [a'b], \"c\" from T"_sql, "select 'it''s', [a'b], \"c\" from T", {}},
        {"one literal", "where pno='"_sql + "000000123/001"s + "'", "where pno=?1", {"000000123/001"}},
        {"literal text around", "where a like '%"_sql + "x"s + "_''" + "y"s + "%'", "where a like ?1", {"%x_'y%"}},
        {"empty in quotes", "where a='"_sql + ""s + "' and b=''", "where a=?1 and b=''", {""}},
        {"doubled in the value", "where a='"_sql + "O''Brien''"s + "'", "where a=?1", {"O'Brien'"}},
        {"only a doubled quote", "where a='"_sql + "''"s + "'", "where a=?1", {"'"}},
        {"keyword right behind", "where a='"_sql + "x"s + "'and b=1", "where a=?1 and b=1", {"x"}},
        {"digit right behind", "where a='"_sql + "x"s + "'7", "where a=?1 7", {"x"}},
        {"keyword right before", "where a like'"_sql + "x"s + "'", "where a like ?1", {"x"}},
        {"Unicode literal", "where a=N'"_sql + "Ọmọ"s + "' or b=N'c'", "where a=?1 or b=N'c'", {"Ọmọ"}},
        {"a name that ends in N", "where aN'"_sql + "x"s + "'", "where aN ?1", {"x"}},
        {"numbers", "values("_sql + 5 + "," + std::int64_t{-7} + "," + 2.5 + ")", "values(?1,?2,?3)", {5, -7, 2.5}},
        {"typed numbers",
         "values("_sql + "+5"s + "," + " 1e3 "s + "," + ".5"s + ")",
         "values(?1,?2,?3)",
         {5, 1e3, 0.5}},
        {"beyond integers", "id="_sql + "9223372036854775808"s, "id=?1", {9223372036854775808.0}},
        {"minus a negative", "id=7- "_sql + -5, "id=7- ?1", {-5}},
        {"two texts, one number", "id="_sql + "1"s + "5"s, "id=?1", {15}},
        {"keyword behind a number", "id="_sql + 5 + "and a=1", "id=?1 and a=1", {5}},
        {"top", "select top "_sql + 3 + " a from T", "select top ?1 a from T", {3}},
        {"date", "where d='"_sql + db::DateTime::of(2026, 11, 24) + "'", "where d=?1", {"24-Nov-2026"}},
        {"flag in quotes", "where f='"_sql + Value(true) + "'", "where f=?1", {"True"}},
        {"statement in a statement",
         "select * from ("_sql + ("select "_sql + 1) + ") where a=" + 2,
         "select * from (select ?1) where a=?2",
         {1, 2}},
        {"comments", "select 1 -- it's; ?\n, /* a /* 'b */ ; */ 2"_sql, "select 1  \n,   2", {}},
        {"semicolon at the end", "delete T where a="_sql + five + " ; \n", "delete T where a=?1 ", {5}},
        {"a procedure's body",
         "create procedure P as begin select 1; select 2; end"_sql,
         "create procedure P as begin select 1; select 2; end",
         {}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        Sql::Template bound;
        ASSERT_NO_THROW(bound = each.statement.bound());
        EXPECT_EQ(bound.text, each.text);
        EXPECT_EQ(bound.parameters, each.parameters);
    }
}

std::string outcomeOf(const Sql& statement) {
    try {
        return "bound to " + statement.bound().text;
    } catch (const db::Error& error) {
        EXPECT_EQ(error.category(), db::Category::syntax);
        return error.what();
    }
}

/// What somebody might type to get out of a literal, as it stands: refused, or a plain text.
TEST(Sql, HostileTextsInQuotes) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"Unclosed quotation mark after the character string.",
         {"'", "O'Brien", "' or 1=1 --", "' or ''='", "x'; drop table hPatients; --",
          "' union select Password from vwUsers where ''='", "'''", "x''' or 1=1 --", "\\'"}},
        {"A statement cannot hold a NUL character.", {"\0"s, "x\0' or 1=1"s}},
        {"bound to select a from T where b=?1 and c=1",
         {"''", "; drop table hPatients", "-- x", "/* x", "] [ \" ?1 @p", "’ or 1=1", "ʼ; ＇ or 1=1", "\xBF''",
          "x\r\nGO\r\ndrop table T"}},
    };
    for (const auto& [outcome, texts] : cases)
        for (const auto& typed : texts)
            EXPECT_EQ(outcomeOf("select a from T where b='"_sql + typed + "' and c=1"), outcome) << typed;
}

/// The message never repeats a value.
TEST(Sql, BareValuesAreNumbersOrRefused) {
    const std::string typed[] = {"",      " ",         "abc",  "1 or 1=1", "1;drop table T",
                                 "1--",   "-",         "- 5",  "0x1F",     "1e",
                                 "1.2.3", "1,234",     "inf",  "nan",      "'5'",
                                 "5'",    "getdate()", "(5)",  "$5",       "[id]",
                                 "@x",    "1/**/",     "True", "+-5",      "١",
                                 "1\0"s,  "5 6",       "null", "?1",       "5\n;",
                                 "1e999", "union"};
    for (const auto& value : typed) {
        SCOPED_TRACE(value);
        const auto message = outcomeOf("update T set a='"_sql + "Adeyemi"s + "' where id=" + value + " and b=2");
        EXPECT_TRUE(message == "Incorrect syntax near 'id='." || message == "A statement cannot hold a NUL character.")
            << message;
    }
}

TEST(Sql, ValuesHaveNoOtherPlace) {
    const struct {
        const char* name;
        Sql statement;
    } cases[] = {
        {"in a name", "select ["_sql + "a"s + "] from T"},
        {"in an identifier", "select \""_sql + "a"s + "\" from T"},
        {"empty in a name", "select [a"_sql + ""s + "] from T"},
        {"in a line comment", "select 1 -- "_sql + "a"s + "\n"},
        {"in a comment", "select 1 /* "_sql + "a"s + " */"},
        {"empty in a comment's mark", "select 1 /* *"_sql + ""s + "/"},
        {"part of a name", "select a"_sql + 1 + " from T"},
        {"part of a number", "select 1."_sql + 5},
        {"a number's exponent", "select "_sql + 1 + "e5"},
        {"a number's hexadecimal mark", "select "_sql + 0 + "xFF"},
        {"digits behind", "select "_sql + 1 + "5"},
        {"a comment with its neighbour", "select 1-"_sql + -5 + ", 2"},
        {"behind a parameter", "select '"_sql + "a"s + "'" + 5},
        {"behind the end", "delete T;"_sql + " "s},
        {"second statement", "delete T; delete U"_sql},
        {"second statement behind a value", "delete T where a="_sql + 1 + "; delete U"},
        {"a second statement in a procedure's clothes", "create procedure P as select "_sql + 1 + "; delete U"},
        {"a place of its own", "select ?1"_sql},
        {"open quote", "select 'a"_sql},
        {"open quote behind a value", "select 'a"_sql + "b"s},
        {"the literal's quote and the value's", "select 'a'"_sql + "'"s + "'"},
        {"the value's quote and the literal's", "select 'a"_sql + "'"s + "''"},
        {"quotes of two values", "select '"_sql + "'"s + "'"s + "'"},
        {"open name", "select [a"_sql},
        {"open comment", "select 1 /* /* */"_sql},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        EXPECT_THROW(static_cast<void>(each.statement.bound()), db::Error);
    }
}

TEST(Sql, TextHoldsTheValues) {
    auto statement = "select a from T where b='"_sql + "x''y"s + "' and c=" + 2.50;
    statement += statement;
    EXPECT_EQ(statement.text(), "select a from T where b='x''y' and c=2.5select a from T where b='x''y' and c=2.5");
    EXPECT_THROW("select "_sql + Value(), db::Error) << "a null has no text";
}

}  // namespace
