// The guard of statements: whatever bytes stand as values in a statement, it is refused, or its template is the one
// that harmless values give and the values come back as its parameters.

#include <cstdlib>
#include <string>

#include "db/error.h"
#include "db/sql.h"

namespace {

using db::operator""_sql;

void require(bool holds) {
    if (!holds) std::abort();
}

/// Cuts the input at its line ends: a value each.
std::string takeValue(std::string_view& input) {
    const auto value = input.substr(0, input.find('\n'));
    input.remove_prefix(std::min(value.size() + 1, input.size()));
    return std::string(value);
}

std::string doubled(const std::string& text) {
    std::string result;
    for (const char c : text) result.append(c == '\'' ? 2 : 1, c);
    return result;
}

void checkMixed(const std::string& quoted, const std::string& second, const std::string& bare) {
    try {
        const auto bound =
            ("select a from [T] where b=N'x"_sql + quoted + second + "' and c=" + bare + " -- 'd\nor e='f'").bound();
        require(bound.text == "select a from [T] where b=?1 and c=?2  \nor e='f'");
        require(bound.parameters.size() == 2);
        require("x" + quoted + second == "x" + doubled(bound.parameters[0].text().substr(1)));
        require(bound.parameters[1].number() == db::parseNumber(bare));
    } catch (const db::Error& error) {
        require(error.category() == db::Category::syntax);
    }
}

/// A text with its quotes doubled is always a value, unless it holds a NUL.
void checkDoubled(const std::string& typed) {
    const auto statement = "update T set a='"_sql + doubled(typed) + "' where id=" + 1;
    try {
        const auto bound = statement.bound();
        require(bound.text == "update T set a=?1 where id=?2" && bound.parameters[0].text() == typed);
    } catch (const db::Error&) {
        require(typed.find('\0') != typed.npos);
    }
}

/// No value at all has a place in a name or a comment.
void checkRefused(const std::string& typed) {
    for (const auto& statement :
         {"select ["_sql + typed + "]", "select 1 /* "_sql + typed + " */", "select 1 -- "_sql + typed}) {
        try {
            static_cast<void>(statement.bound());
            std::abort();
        } catch (const db::Error&) {
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto quoted = takeValue(input);
    const auto bare = takeValue(input);
    checkMixed(quoted, takeValue(input), bare);
    checkDoubled(quoted);
    checkRefused(quoted);
    return 0;
}
