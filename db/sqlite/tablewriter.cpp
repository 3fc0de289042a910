#include "db/sqlite/writer.h"

namespace db::sqlite {
namespace {

using dialect::TableColumn;
using dialect::TableDefinition;
using dialect::TypeName;
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
std::string check(const std::string& name, const TypeName& type) {
    const auto column = quotedName(name);
    const auto named = [&](const char* kind, const std::string& rule) {
        return " constraint " + quotedName(std::string(kind) + " " + name) + " check (" + rule + ")";
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

std::string definition(const TableColumn& column) {
    const auto name = quotedName(column.name);
    if (column.computed) return name + " generated always as (" + column.computed->sql + ")";
    if (column.identity) return name + " INTEGER primary key autoincrement";
    return name + " " + declared(column.type) + (column.notNull ? " not null" : "") + column.rules +
           check(column.name, column.type);
}

/// The columns that a table keeps in a stored form.
struct StoredColumns {
    std::string names;
    std::string assignments;  ///< that bring them into it
    std::string conditions;   ///< or-ed, under which they are not in it

    void add(const std::string& name, const std::string& condition, const std::string& value) {
        const bool first = names.empty();
        names += (first ? "" : ", ") + name;
        assignments += (first ? "" : ", ") + name + " = " + value;
        conditions += (first ? "" : " or ") + condition;
    }
    void addMoment(const std::string& name, char kind) {
        const auto arguments = "(new." + name + ", '" + kind + "')";
        add(name, "not tsql_isstored" + arguments, "tsql_moment" + arguments);
    }
    void addRounded(const std::string& name, long digits) {
        const auto rounded = "round(new." + name + ", " + std::to_string(digits) + ")";
        add(name, "new." + name + " <> " + rounded, rounded);
    }
    void add(const TableColumn& column) {
        if (column.computed || column.identity) return;
        const auto name = quotedName(column.name);
        switch (column.type.family) {
            case Family::date:
                return addMoment(name, 'd');
            case Family::time:
                return addMoment(name, 't');
            case Family::datetime:
                return addMoment(name, 'm');
            case Family::money:
            case Family::decimal:
                return addRounded(name, column.type.length);
            default:
                return;
        }
    }
};

/// The triggers that bring a table's dates and amounts into their stored form; `label` sets their names apart.
std::string storing(const TableDefinition& table, const std::string& label) {
    StoredColumns stored;
    for (const auto& column : table.columns) stored.add(column);
    if (stored.names.empty()) return {};
    const auto when = " on " + table.object + " when " + stored.conditions + " begin update " + table.object + " set " +
                      stored.assignments + " where rowid = new.rowid; end";
    return ";\ncreate trigger " + quotedName(label + " stored on insert") + " after insert" + when +
           ";\ncreate trigger " + quotedName(label + " stored on update") + " after update of " + stored.names + when;
}

/// An identity is the primary key here, whatever the table's own is: that one is unique then.
std::string keyOf(const TableDefinition& table, const TableColumn* identity) {
    if (table.key.empty()) return {};
    if (identity == nullptr) return ", primary key (" + table.key + ")";
    return table.key == quotedName(identity->name) ? "" : ", unique (" + table.key + ")";
}

}  // namespace

std::string SqliteWriter::createTable(const TableDefinition& table) const {
    std::string parts;
    const TableColumn* identity = nullptr;
    for (const auto& column : table.columns) {
        parts += (parts.empty() ? "" : ", ") + definition(column);
        if (column.identity) identity = &column;
    }
    for (const auto& constraint : table.constraints) parts += (parts.empty() ? "" : ", ") + constraint;
    auto text = "create table " + table.object + " (" + parts + keyOf(table, identity) + ")";
    if (identity != nullptr && identity->identity != 1)
        text += ";\ninsert into sqlite_sequence (name, seq) values (" + textLiteral(table.name) + ", " +
                std::to_string(*identity->identity - 1) + ")";
    return text + storing(table, table.name);
}

std::string SqliteWriter::addColumns(const TableDefinition& table) const {
    std::string text;
    for (const auto& column : table.columns)
        text += (text.empty() ? "" : ";\n") + ("alter table " + table.object) + " add column " + definition(column);
    return text + storing(table, table.name + "." + table.columns.front().name);
}

std::string SqliteWriter::alterColumn(const TableDefinition& table) const {
    return definition(table.columns.front());
}

std::string SqliteWriter::keyColumns(const std::vector<dialect::KeyColumn>& columns) const {
    std::string text;
    for (const auto& [name, direction] : columns)
        text += (text.empty() ? "" : ", ") + quotedName(name) + (direction.empty() ? "" : " ") + direction;
    return text;
}

std::string SqliteWriter::createIndex(const dialect::IndexDefinition& index) const {
    return std::string(index.unique ? "create unique index " : "create index ") + quotedName(index.name) + " on " +
           index.table + " (" + keyColumns(index.columns) + ")" + index.where;
}

std::string SqliteWriter::dropIndex(std::string_view name, const std::string&) const {
    return "drop index " + quotedName(name);
}

}  // namespace db::sqlite
