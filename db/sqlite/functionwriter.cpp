#include <algorithm>

#include "db/sqlite/writer.h"

namespace db::sqlite {
namespace {

using dialect::Expression;
using Family = dialect::TypeName::Family;

std::string joined(const std::vector<Expression>& list) {
    std::string text;
    for (const auto& expression : list) text += (text.empty() ? "" : ", ") + expression.sql;
    return text;
}

/// T-SQL's functions that have another name here.
struct Renamed {
    std::string_view name, here;
};

constexpr Renamed renamed[] = {
    {"isnull", "ifnull"},        {"sysdatetime", "getdate"},      {"scope_identity", "last_insert_rowid"},
    {"ceiling", "ceil"},         {"substring", "tsql_substring"}, {"left", "tsql_left"},
    {"right", "tsql_right"},     {"upper", "tsql_upper"},         {"lower", "tsql_lower"},
    {"replace", "tsql_replace"}, {"replicate", "tsql_replicate"}, {"str", "tsql_str"},
    {"len", "tsql_len"},         {"charindex", "tsql_charindex"}, {"round", "tsql_round"},
    {"year", "tsql_year"},       {"month", "tsql_month"},         {"day", "tsql_day"},
    {"isdate", "tsql_isdate"},   {"isnumeric", "tsql_isnumeric"},
};

}  // namespace

std::string SqliteWriter::call(std::string_view function, const std::vector<Expression>& arguments) const {
    const auto* found =
        std::find_if(std::begin(renamed), std::end(renamed), [&](const auto& entry) { return entry.name == function; });
    return std::string(found == std::end(renamed) ? function : found->here) + "(" + joined(arguments) + ")";
}

std::string SqliteWriter::dateCall(std::string_view function, std::string_view part,
                                   const std::vector<Expression>& arguments) const {
    return "tsql_" + std::string(function) + "('" + std::string(part) + "'" + (arguments.empty() ? "" : ", ") +
           joined(arguments) + ")";
}

std::string SqliteWriter::conversion(const dialect::TypeName& type, const Expression& value,
                                     std::string_view style) const {
    const auto call = [&](const char* function, const std::string& rest) {
        return std::string(function) + "(" + value.sql + rest + ")";
    };
    const auto length = ", " + std::to_string(type.length);
    switch (type.family) {
        case Family::text:
            return call("tsql_text", length + ", " + std::string(style.empty() ? "-1" : style));
        case Family::integer:
            return call("tsql_integer", ", " + std::string(type.smallest) + ", " + std::string(type.largest));
        case Family::flag:
            return call("tsql_flag", "");
        case Family::number:
        case Family::money:
        case Family::decimal:
            return call("tsql_number", length);
        case Family::date:
            return call("tsql_moment", ", 'd'");
        case Family::time:
            return call("tsql_moment", ", 't'");
        case Family::datetime:
            return call("tsql_moment", ", 'm'");
        case Family::bytes:
            return call("cast", " as blob");
    }
    return {};
}

}  // namespace db::sqlite
