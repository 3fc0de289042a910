#include "db/dialect_parser.h"
#include "db/error.h"

namespace db::dialect {
namespace {

using Family = TypeName::Family;

/// The declared type: SQLite takes the affinity from its letters, the engine takes from it how the column reads.
std::string declared(const TypeName& type) {
    switch (type.family) {
        case Family::text:
            return type.length < 0 ? "TEXT collate VTEXT"
                                   : "VARCHAR(" + std::to_string(type.length) + ") collate VTEXT";
        case Family::integer:
            return "INT";
        case Family::flag:
            return "BIT_INT";
        case Family::number:
            return "REAL";
        case Family::money:
            return "MONEY_REAL";
        case Family::decimal:
            return "DECIMAL_REAL";
        case Family::date:
            return "DATE_TEXT collate VDATE";
        case Family::time:
            return "TIME_TEXT collate VDATE";
        case Family::datetime:
            return "DATETIME_TEXT collate VDATE";
        case Family::bytes:
            return "BLOB";
    }
    return {};
}

/// What the column's content has to be; the constraint's name tells the engine which error to report.
std::string check(const std::string& name, const std::string& column, const TypeName& type) {
    const auto named = [&](const char* kind, const std::string& rule) {
        return " constraint " + quoted(std::string(kind) + " " + name) + " check (" + rule + ")";
    };
    switch (type.family) {
        case Family::text:
            return type.length < 0 ? "" : named("length", "length(" + column + ") <= " + std::to_string(type.length));
        case Family::integer:
            return named("integer", column + " is null or typeof(" + column + ") = 'integer'") +
                   named("range",
                         column + " between " + std::string(type.smallest) + " and " + std::string(type.largest));
        case Family::flag:
            return named("flag", column + " in (0, 1)");
        case Family::number:
        case Family::money:
        case Family::decimal:
            return named("number", "typeof(" + column + ") in ('real', 'integer', 'null')");
        case Family::date:
        case Family::time:
        case Family::datetime:
            return named("date", column + " is null or tsql_isdate(" + column + ")");
        case Family::bytes:
            return {};
    }
    return {};
}

char momentKind(Family family) {
    return family == Family::date ? 'd' : family == Family::time ? 't' : 'm';
}

}  // namespace

/// The parts of a `create table` as they are found.
struct Parser::TableText {
    std::string name;
    std::vector<std::string> parts;  ///< column definitions and constraints
    std::string identity;            ///< the identity column's name, quoted
    std::string key;                 ///< the primary key's columns, quoted
    long seed = 1;
    std::string kinds, dates;  ///< of the date columns: their kinds, and ", new.x" for each
    std::string columns;       ///< the columns that are kept in a stored form, quoted
    std::string stored;        ///< assignments that bring them into it
    std::string unstored;      ///< or-ed conditions under which they are not in it
};

std::string Parser::create() {
    if (accept("table")) return createTable();
    if (accept("view")) return createView();
    if (accept("fulltext")) return createTextIndex();
    const bool unique = accept("unique");
    if (!accept("clustered")) accept("nonclustered");
    expect("index");
    return createIndex(unique);
}

std::string Parser::createView() {
    auto text = "create view " + object();
    if (accept("(")) {
        --position_;
        text += " (" + nameList() + ")";
    }
    expect("as");
    definesView_ = true;
    text += " as " + query(true);
    result_.object.clear();
    return text;
}

std::string Parser::createIndex(bool unique) {
    auto text = std::string(unique ? "create unique index " : "create index ") + quoted(name());
    expect("on");
    text += " on " + object();
    text += " (" + nameList() + ")";
    if (accept("include")) nameList();
    return text + optionalWhere();
}

/// The engine makes its own of it: there is no text to run.
std::string Parser::createTextIndex() {
    expect("index");
    expect("on");
    object();
    auto& index = result_.textIndex;
    index.view = result_.object;
    expect("(");
    index.column = name();
    expect(")");
    expect("key");
    expect("index");
    index.key = name();
    return {};
}

/// Names in brackets, each with its direction.
std::string Parser::nameList() {
    std::string text;
    expect("(");
    do {
        text += (text.empty() ? "" : ", ") + quoted(name());
        if (at("asc") || at("desc")) text += " " + take().text;
    } while (accept(","));
    expect(")");
    return text;
}

std::string Parser::createTable() {
    TableText table;
    const auto created = object();
    table.name = result_.object;
    expect("(");
    do {
        if (at("constraint") || at("primary") || at("unique") || at("foreign") || at("check"))
            tableConstraint(table);
        else
            columnDefinition(table);
    } while (accept(","));
    expect(")");
    if (!table.key.empty() && table.key != table.identity)
        table.parts.push_back((table.identity.empty() ? "primary key (" : "unique (") + table.key + ")");
    auto text = "create table " + created + " (";
    for (const auto& part : table.parts) {
        if (&part != &table.parts.front()) text += ", ";
        text += part;
    }
    text += ")";
    if (table.seed != 1)
        text += ";\ninsert into sqlite_sequence (name, seq) values (" + textLiteral(table.name) + ", " +
                std::to_string(table.seed - 1) + ")";
    return text + storing(created, table.name, table);
}

/// The triggers that bring a table's dates and amounts into their stored form; `label` sets their names apart.
std::string Parser::storing(const std::string& tableName, const std::string& label, const TableText& table) {
    if (table.columns.empty()) return {};
    const auto when = " on " + tableName + " when " + table.unstored + " begin update " + tableName + " set " +
                      table.stored + " where rowid = new.rowid; end";
    return ";\ncreate trigger " + quoted(label + " stored on insert") + " after insert" + when + ";\ncreate trigger " +
           quoted(label + " stored on update") + " after update of " + table.columns + when;
}

/// `alter table T add a int null, b date null`, and `alter table T alter column a varchar(50) null`: the changes of a
/// table that the schema's own steps need.
std::string Parser::alter() {
    expect("table");
    const auto altered = object();
    TableText table;
    table.name = result_.object;
    if (accept("alter")) return alteredColumn(table);
    expect("add");
    const auto label = table.name + "." + peek().text;
    do {
        columnDefinition(table);
    } while (accept(","));
    if (!table.identity.empty() || !table.key.empty()) fail();
    std::string text;
    for (const auto& part : table.parts)
        text += (text.empty() ? "" : ";\n") + ("alter table " + altered) + " add column " + part;
    return text + storing(altered, label, table);
}

/// The new definition of a text's column. Texts are stored alike whatever their length; other types are not.
std::string Parser::alteredColumn(TableText& table) {
    expect("column");
    result_.column = peek().text;
    columnDefinition(table);
    const auto& definition = table.parts.front();
    const bool isText = definition.find(" collate VTEXT") != std::string::npos;
    if (!isText) throw Error(Category::syntax, "Only the length of a text's column can be altered.");
    return definition;
}

/// `drop table T`, `drop view V`, `drop index I on T`, `drop fulltext index on V`.
std::string Parser::drop() {
    if (accept("fulltext")) {
        expect("index");
        expect("on");
        object();
        return {};
    }
    if (accept("index")) {
        auto text = "drop index " + quoted(name());
        expect("on");
        object();
        return text;
    }
    const std::string kind = at("view") ? "view" : "table";
    expect(kind);
    return "drop " + kind + " " + object();
}

void Parser::columnDefinition(TableText& table) {
    const auto plain = name();
    const auto column = quoted(plain);
    if (accept("as")) {  // computed from the row's other columns
        table.parts.push_back(column + " generated always as (" + unary().sql + ")");
        return;
    }
    auto type = typeName();
    if (type.family == Family::text && type.length == 0) type.length = 1;
    const auto index = table.parts.size();
    table.parts.emplace_back();
    bool isIdentity = false;
    bool notNull = false;
    columnRules(table, column, isIdentity, notNull);
    auto rules = std::move(table.parts[index]);
    if (isIdentity) {
        table.parts[index] = column + " INTEGER primary key autoincrement";
        return;
    }
    table.parts[index] =
        column + " " + declared(type) + (notNull ? " not null" : "") + rules + check(plain, column, type);
    const auto add = [&](const std::string& condition, const std::string& value) {
        table.columns += (table.columns.empty() ? "" : ", ") + column;
        table.stored += (table.stored.empty() ? "" : ", ") + column + " = " + value;
        table.unstored += (table.unstored.empty() ? "" : " or ") + condition;
    };
    const auto fresh = "new." + column;
    if (type.family == Family::date || type.family == Family::time || type.family == Family::datetime) {
        const auto arguments = "(" + fresh + ", '" + momentKind(type.family) + "')";
        add("not tsql_isstored" + arguments, "tsql_moment" + arguments);
    } else if (type.family == Family::money || type.family == Family::decimal) {
        const auto rounded = "round(" + fresh + ", " + std::to_string(type.length) + ")";
        add(fresh + " <> " + rounded, rounded);
    }
}

void Parser::columnRules(TableText& table, const std::string& column, bool& isIdentity, bool& notNull) {
    const auto index = table.parts.size() - 1;
    const auto add = [&](const std::string& rule) { table.parts[index] += rule; };
    for (;;) {
        if (accept("constraint") || accept("collate")) {
            name();  // the engine reports by the column, and has one collation for texts
        } else if (accept("identity")) {
            isIdentity = true;
            table.identity = column;
            identity(table);
        } else if (accept("not")) {
            expect("null");
            notNull = true;
        } else if (accept("null")) {
            continue;
        } else if (accept("default")) {
            add(" default (" + unary().sql + ")");
        } else if (accept("primary")) {
            expect("key");
            if (!accept("clustered")) accept("nonclustered");
            notNull = true;
            table.key = column;
        } else if (accept("unique")) {
            add(" unique");
        } else if (at("references")) {
            add(references());
        } else if (accept("check")) {
            add(" check " + primary().sql);
        } else {
            return;
        }
    }
}

void Parser::identity(TableText& table) {
    if (!accept("(")) return;
    const auto seed = take();
    if (seed.kind != Token::Kind::number || seed.text.size() > 9 ||
        seed.text.find_first_not_of("0123456789") != std::string::npos)
        fail();
    table.seed = std::stol(seed.text);
    expect(",");
    if (take().text != "1") throw Error(Category::syntax, "An identity counts by ones.");
    expect(")");
}

void Parser::tableConstraint(TableText& table) {
    if (accept("constraint")) name();
    if (accept("primary")) {
        expect("key");
        if (!accept("clustered")) accept("nonclustered");
        table.key = nameList();
    } else if (accept("unique")) {
        if (!accept("clustered")) accept("nonclustered");
        table.parts.push_back("unique (" + nameList() + ")");
    } else if (accept("foreign")) {
        expect("key");
        auto text = "foreign key (" + nameList() + ")";
        table.parts.push_back(text + references());
    } else {
        expect("check");
        table.parts.push_back("check " + primary().sql);
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
