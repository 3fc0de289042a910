#include "db/dialect_parser.h"
#include "db/error.h"

namespace db::dialect {

std::string Parser::insert() {
    accept("into");
    auto text = "insert into " + object();
    const auto target = result_.object;
    if (at("(") && !at("select", 1)) text += " (" + nameList() + ")";
    const auto returning = output("inserted");
    if (accept("default")) {
        expect("values");
        text += " default values";
    } else if (accept("values")) {
        text += " values ";
        do {
            std::string row;
            for (const auto& value : arguments()) row += (row.empty() ? "" : ", ") + value.sql;
            if (row.empty()) fail();
            text += "(" + row + ")" + (at(",") ? ", " : "");
        } while (accept(","));
    } else {
        text += " " + query(true);
    }
    result_.object = target;
    return text + returning;
}

std::string Parser::update() {
    auto text = "update " + object() + " set ";
    const auto target = result_.object;
    hints();
    expect("set");
    text += assignment();
    while (accept(",")) text += ", " + assignment();
    const auto returning = output("inserted");
    text += optionalWhere() + returning;
    result_.object = target;
    return text;
}

std::string Parser::assignment() {
    auto target = name();
    while (accept(".")) {
        if (at("write")) return write(quoted(target));
        target = name();
    }
    const auto column = quoted(target);
    if (at("+") && at("=", 1)) {
        position_ += 2;
        return column + " = tsql_add(" + column + ", " + expression().sql + ")";
    }
    expect("=");
    return column + " = " + expression().sql;
}

/// "Details .write(text, offset, length)": replaces a part of a long text; a null length reaches to its end, a null
/// offset appends.
std::string Parser::write(const std::string& column) {
    expect("write");
    const auto given = arguments();
    if (given.size() != 3) fail();
    const auto old = "ifnull(" + column + ", '')";
    if (given[1].type == Type::null) return column + " = " + old + " || " + given[0].sql;
    auto text = column + " = substr(" + old + ", 1, " + given[1].sql + ") || " + given[0].sql;
    if (given[2].type != Type::null) text += " || substr(" + old + ", " + given[1].sql + " + " + given[2].sql + " + 1)";
    return text;
}

std::string Parser::deletion() {
    accept("from");
    auto text = "delete from " + object();
    const auto target = result_.object;
    hints();
    const auto returning = output("deleted");
    text += optionalWhere() + returning;
    result_.object = target;
    return text;
}

/// "output inserted.x" as a returning clause, or "".
std::string Parser::output(std::string_view row) {
    if (!accept("output")) return {};
    outputRow_ = row;
    std::string text = " returning ";
    text += selectItem();
    while (accept(",")) text += ", " + selectItem();
    outputRow_.clear();
    return text;
}

}  // namespace db::dialect
