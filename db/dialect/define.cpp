#include "db/dialect/parser.h"
#include "db/error.h"

namespace db::dialect {

std::string Parser::create() {
    if (accept("table")) return createTable();
    if (accept("view")) return createView();
    const bool unique = accept("unique");
    clustered();
    expect("index");
    return createIndex(unique);
}

std::string Parser::createView() {
    auto text = "create view " + object();
    if (at("(")) text += " (" + nameList() + ")";
    expect("as");
    definesView_ = true;
    text += " as " + query(true);
    result_.object.clear();
    return text;
}

std::string Parser::createIndex(bool unique) {
    IndexDefinition index;
    index.unique = unique;
    index.name = name();
    expect("on");
    index.table = object();
    index.columns = keyColumns();
    if (accept("include")) index.included = names();
    index.where = optionalWhere();
    return writer_.createIndex(index);
}

/// `alter table T add a int null, b date null`, and `alter table T alter column a varchar(50) null`: the changes of a
/// table that the schema's own steps need.
std::string Parser::alter() {
    expect("table");
    TableDefinition table;
    table.object = object();
    table.name = result_.object;
    if (accept("alter")) return alterColumn(table);
    expect("add");
    do columnDefinition(table);
    while (accept(","));
    for (const auto& column : table.columns)
        if (column.identity) fail();
    if (!table.key.empty()) fail();
    return writer_.addColumns(table);
}

/// Texts are stored alike whatever their length; other types are not.
std::string Parser::alterColumn(TableDefinition& table) {
    expect("column");
    columnDefinition(table);
    const auto& column = table.columns.front();
    if (column.type.family != TypeName::Family::text || column.identity || column.computed)
        throw Error(Category::syntax, "Only the length of a text's column can be altered.");
    result_.column = column.name;
    return writer_.alterColumn(table);
}

/// `drop table T`, `drop view V`, `drop index I on T`.
std::string Parser::drop() {
    if (accept("index")) {
        const auto index = name();
        expect("on");
        return writer_.dropIndex(index, object());
    }
    const std::string kind = at("view") ? "view" : "table";
    expect(kind);
    return "drop " + kind + " " + object();
}

/// An engine keeps its rows in an order of its own.
void Parser::clustered() {
    if (!accept("clustered")) accept("nonclustered");
}

/// Names in brackets.
std::vector<std::string> Parser::names() {
    std::vector<std::string> result;
    expect("(");
    do result.push_back(name());
    while (accept(","));
    expect(")");
    return result;
}

std::string Parser::nameList() {
    std::string text;
    for (const auto& name : names()) text += (text.empty() ? "" : ", ") + writer_.name(name);
    return text;
}

/// Names in brackets, each with its direction.
std::vector<KeyColumn> Parser::keyColumns() {
    std::vector<KeyColumn> result;
    expect("(");
    do {
        auto column = name();
        result.push_back({std::move(column), direction()});
    } while (accept(","));
    expect(")");
    return result;
}

std::string Parser::direction() {
    return at("asc") || at("desc") ? take().text : std::string();
}

}  // namespace db::dialect
