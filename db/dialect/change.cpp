#include "db/dialect/parser.h"

namespace db::dialect {

std::string Parser::insert() {
    accept("into");
    auto text = "insert into " + object();
    const auto target = result_.object;
    if (at("(") && !at("select", 1)) text += " (" + nameList() + ")";
    const auto returned = output("inserted");
    text += returned.here;
    if (accept("default")) {
        expect("values");
        text += " default values";
    } else if (accept("values")) {
        text += " values " + valueRows();
    } else {
        text += " " + query(true);
    }
    result_.object = target;
    return text + returned.behind;
}

std::string Parser::valueRows() {
    std::string text;
    do {
        std::string row;
        for (const auto& value : arguments()) row += (row.empty() ? "" : ", ") + value.sql;
        if (row.empty()) fail();
        text += (text.empty() ? "(" : ", (") + row + ")";
    } while (accept(","));
    return text;
}

std::string Parser::update() {
    auto text = "update " + object();
    const auto target = result_.object;
    text += hints();
    expect("set");
    text += " set " + assignment();
    while (accept(",")) text += ", " + assignment();
    const auto returned = output("inserted");
    text += returned.here;
    text += optionalWhere();
    result_.object = target;
    return text + returned.behind;
}

std::string Parser::assignment() {
    auto target = name();
    while (accept(".")) {
        if (at("write")) return write(writer_.name(target));
        target = name();
    }
    const auto column = writer_.name(target);
    if (at("+") && at("=", 1)) {
        skip(2);
        return column + " = " + writer_.addition({column}, expression());
    }
    expect("=");
    return column + " = " + expression().sql;
}

std::string Parser::write(const std::string& column) {
    expect("write");
    const auto given = arguments();
    if (given.size() != 3) fail();
    return writer_.write(column, given[0], given[1], given[2]);
}

std::string Parser::deletion() {
    accept("from");
    auto text = "delete from " + object();
    const auto target = result_.object;
    text += hints();
    const auto returned = output("deleted");
    text += returned.here;
    text += optionalWhere();
    result_.object = target;
    return text + returned.behind;
}

/// "output inserted.x": its columns are those of the row behind the change, or of the one that goes.
Parser::Output Parser::output(std::string_view row) {
    if (!accept("output")) return {};
    outputRow_ = row;
    const auto items = selectList();
    outputRow_.clear();
    return {writer_.output(items), writer_.returning(items)};
}

}  // namespace db::dialect
