#include <algorithm>

#include "db/dialect/parser.h"
#include "db/error.h"

namespace db::dialect {

std::string Parser::createTable() {
    TableDefinition table;
    table.object = object();
    table.name = result_.object;
    expect("(");
    do {
        if (at("constraint") || at("primary") || at("unique") || at("foreign") || at("check"))
            tableConstraint(table);
        else
            columnDefinition(table);
    } while (accept(","));
    expect(")");
    return writer_.createTable(table);
}

void Parser::columnDefinition(TableDefinition& table) {
    TableColumn column;
    column.name = name();
    if (accept("as")) {
        column.computed = unary();
    } else {
        column.type = typeName();
        if (column.type.family == TypeName::Family::text && column.type.length == 0) column.type.length = 1;
        while (columnRule(table, column)) {
        }
    }
    table.columns.push_back(std::move(column));
}

/// False where no rule follows.
bool Parser::columnRule(TableDefinition& table, TableColumn& column) {
    if (accept("constraint") || accept("collate")) {
        name();  // errors are reported by the column, and all texts have one collation
    } else if (accept("identity")) {
        column.identity = identity();
    } else if (accept("not")) {
        expect("null");
        column.notNull = true;
    } else if (accept("default")) {
        column.rules += " default (" + unary().sql + ")";
    } else if (accept("primary")) {
        expect("key");
        clustered();
        column.notNull = true;
        table.key = writer_.keyColumns({{column.name, {}}});
    } else if (accept("unique")) {
        column.rules += " unique";
    } else if (at("references")) {
        column.rules += references();
    } else if (accept("check")) {
        column.rules += " check " + primary().sql;
    } else {
        return accept("null");
    }
    return true;
}

/// The first number of "identity (1, 1)".
long Parser::identity() {
    if (!accept("(")) return 1;
    const auto seed = take();
    if (seed.kind != Token::Kind::number || seed.text.size() > 9 ||
        !std::all_of(seed.text.begin(), seed.text.end(), isDigit))
        fail();
    expect(",");
    if (take().text != "1") throw Error(Category::syntax, "An identity counts by ones.");
    expect(")");
    return std::stol(seed.text);
}

void Parser::tableConstraint(TableDefinition& table) {
    if (accept("constraint")) name();
    if (accept("primary")) {
        expect("key");
        clustered();
        table.key = writer_.keyColumns(keyColumns());
    } else if (accept("unique")) {
        clustered();
        table.constraints.push_back("unique (" + writer_.keyColumns(keyColumns()) + ")");
    } else if (accept("foreign")) {
        expect("key");
        auto text = "foreign key (" + nameList() + ")";
        table.constraints.push_back(text + references());
    } else {
        expect("check");
        table.constraints.push_back("check " + primary().sql);
    }
}

std::string Parser::references() {
    expect("references");
    auto text = " references " + object();
    if (at("(")) text += " (" + nameList() + ")";
    while (accept("on")) {
        const auto event = take().text;
        const auto action = take().text;
        if (!sameName(event, "delete") && !sameName(event, "update")) fail();
        if (!sameName(action, "cascade")) fail();
        text += " on " + event + " cascade";
    }
    return text;
}

}  // namespace db::dialect
