#include <algorithm>
#include <charconv>

#include "db/dialect/parser.h"
#include "db/error.h"

namespace db::dialect {
namespace {

using Family = TypeName::Family;

struct NamedType {
    std::string_view name;
    TypeName type;
};

constexpr NamedType types[] = {
    {"varchar", {Family::text, 0}},
    {"nvarchar", {Family::text, 0}},
    {"char", {Family::text, 0}},
    {"nchar", {Family::text, 0}},
    {"text", {Family::text, -1}},
    {"ntext", {Family::text, -1}},
    {"tinyint", {Family::integer, -1, "0", "255"}},
    {"smallint", {Family::integer, -1, "-32768", "32767"}},
    {"int", {Family::integer, -1, "-2147483648", "2147483647"}},
    {"integer", {Family::integer, -1, "-2147483648", "2147483647"}},
    {"bigint", {Family::integer, -1, "-9223372036854775808", "9223372036854775807"}},
    {"bit", {Family::flag}},
    {"float", {Family::number}},
    {"real", {Family::number}},
    {"money", {Family::money, 4}},
    {"smallmoney", {Family::money, 4}},
    {"decimal", {Family::decimal, 0}},
    {"numeric", {Family::decimal, 0}},
    {"date", {Family::date}},
    {"time", {Family::time}},
    {"datetime", {Family::datetime}},
    {"datetime2", {Family::datetime}},
    {"smalldatetime", {Family::datetime}},
    {"binary", {Family::bytes}},
    {"varbinary", {Family::bytes}},
    {"image", {Family::bytes}},
};

Type typeOf(Family family) {
    switch (family) {
        case Family::text:
            return Type::text;
        case Family::integer:
        case Family::flag:
        case Family::number:
        case Family::money:
        case Family::decimal:
            return Type::number;
        case Family::date:
        case Family::time:
        case Family::datetime:
            return Type::date;
        case Family::bytes:
            return Type::bytes;
    }
    return Type::unknown;
}

}  // namespace

/// A text's length is 0 where none is given: what that means, the place of the name tells.
TypeName Parser::typeName() {
    const auto word = name();
    const auto* found =
        std::find_if(std::begin(types), std::end(types), [&](const auto& type) { return sameName(type.name, word); });
    if (found == std::end(types)) throw Error(Category::syntax, "Cannot find data type " + word + ".");
    auto type = found->type;
    if (accept("(")) typeLength(type);
    return type;
}

/// "(50)", "(max)" or "(18, 2)", behind the bracket.
void Parser::typeLength(TypeName& type) {
    if (accept("max")) {
        type.length = -1;
    } else {
        auto digits = take().text;
        if (accept(",")) digits = take().text;
        long length = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), length);
        if (error != std::errc() || end != digits.data() + digits.size()) fail();
        if (type.family == Family::text || type.family == Family::decimal) type.length = length;
    }
    expect(")");
}

Expression Parser::castOf() {
    expect("(");
    const auto value = expression();
    expect("as");
    const auto type = typeName();
    expect(")");
    return converted(type, value, {});
}

Expression Parser::convertOf() {
    expect("(");
    const auto type = typeName();
    expect(",");
    const auto value = expression();
    const auto style = accept(",") ? expression().sql : std::string();
    expect(")");
    return converted(type, value, style);
}

Expression Parser::converted(TypeName type, const Expression& value, std::string_view style) const {
    if (type.family == Family::text && type.length == 0) type.length = 30;
    return {writer_.conversion(type, value, style), typeOf(type.family)};
}

}  // namespace db::dialect
