#include "db/sqlite/prepared.h"

#include <cmath>

#include "db/error.h"
#include "db/sqlite/functions.h"
#include "db/sqlite/text.h"

namespace db::sqlite {
namespace {

int bindText(sqlite3_stmt* statement, int place, std::string_view text, sqlite3_destructor_type lifetime) {
    return sqlite3_bind_text64(statement, place, text.data() == nullptr ? "" : text.data(), text.size(), lifetime,
                               SQLITE_UTF8);
}

std::string_view columnText(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

bool isMomentKind(char kind) {
    return kind == 'd' || kind == 't' || kind == 'm';
}

/// What an expression's first text shows: the engine keeps dates as texts and an expression has no declared type.
RowBuffer::Reading shown(std::string_view text) {
    if (isStored(text, 'm')) return RowBuffer::Reading::datetime;
    if (isStored(text, 'd')) return RowBuffer::Reading::date;
    return isStored(text, 't') ? RowBuffer::Reading::time : RowBuffer::Reading::plain;
}

}  // namespace

Prepared* StatementCache::find(std::string_view key) {
    const auto found = byKey_.find(key);
    if (found == byKey_.end()) return nullptr;
    entries_.splice(entries_.begin(), entries_, found->second);
    return &entries_.front().second;
}

Prepared& StatementCache::add(std::string key, Prepared prepared) {
    if (entries_.size() >= capacity) {
        byKey_.erase(entries_.back().first);
        entries_.pop_back();
    }
    entries_.emplace_front(std::move(key), std::move(prepared));
    byKey_[entries_.front().first] = entries_.begin();
    return entries_.front().second;
}

int bind(sqlite3_stmt* statement, int place, const Value& value) {
    struct Binder {
        sqlite3_stmt* statement;
        int place;
        int operator()(Null) const { return sqlite3_bind_null(statement, place); }
        int operator()(std::int64_t number) const { return sqlite3_bind_int64(statement, place, number); }
        int operator()(double number) const { return sqlite3_bind_double(statement, place, number); }
        int operator()(const std::string& text) const { return bindText(statement, place, text, SQLITE_STATIC); }
        int operator()(const DateTime& moment) const {
            const bool time = moment.date() == DateTime() && moment != DateTime();
            const char kind = time ? 't' : moment.timeOfDay() == DateTime() ? 'd' : 'm';
            return bindText(statement, place, storedMoment(moment, kind), SQLITE_TRANSIENT);
        }
        int operator()(bool flag) const { return sqlite3_bind_int(statement, place, flag ? 1 : 0); }
        int operator()(const Bytes& bytes) const {
            return bytes.empty() ? sqlite3_bind_zeroblob(statement, place, 0)
                                 : sqlite3_bind_blob64(statement, place, bytes.data(), bytes.size(), SQLITE_STATIC);
        }
    };
    return std::visit(Binder{statement, place}, value.content());
}

int bindColumn(sqlite3_stmt* statement, int place, const Value& value, char kind) {
    const auto* moment = std::get_if<DateTime>(&value.content());
    const auto* text = std::get_if<std::string>(&value.content());
    if (value.isNull()) return sqlite3_bind_null(statement, place);
    if (isMomentKind(kind) && (moment != nullptr || text != nullptr)) {
        const auto stored = moment != nullptr ? storedMoment(*moment, kind) : storedMoment(*text, kind);
        if (!stored) throw Error(Category::type, dateConversionFailed, "bind a column");
        return bindText(statement, place, *stored, SQLITE_TRANSIENT);
    }
    if (kind == 'f') return sqlite3_bind_int(statement, place, value.flag() ? 1 : 0);
    if (kind == 'i') return sqlite3_bind_int64(statement, place, value.int64());
    if (kind == 'n') return sqlite3_bind_double(statement, place, value.number());
    if (kind == '$') return sqlite3_bind_double(statement, place, std::round(value.number() * 10000) / 10000);
    if (kind == 's' && text == nullptr) return bindText(statement, place, value.text(), SQLITE_TRANSIENT);
    return bind(statement, place, value);
}

char columnKind(std::string_view type) noexcept {
    if (type == "DATE_TEXT") return 'd';
    if (type == "TIME_TEXT") return 't';
    if (type == "DATETIME_TEXT") return 'm';
    if (type == "BIT_INT") return 'f';
    if (type == "INT" || type == "INTEGER") return 'i';
    if (type == "REAL" || type == "DECIMAL_REAL") return 'n';
    if (type == "MONEY_REAL") return '$';
    return type == "TEXT" || type.substr(0, 8) == "VARCHAR(" ? 's' : ' ';
}

RowBuffer::Reading reading(const char* declaredType) noexcept {
    using Reading = RowBuffer::Reading;
    switch (columnKind(declaredType == nullptr ? "" : declaredType)) {
        case 'd':
            return Reading::date;
        case 't':
            return Reading::time;
        case 'm':
            return Reading::datetime;
        case 'f':
            return Reading::flag;
        case '$':
            return Reading::money;
        default:
            return Reading::plain;
    }
}

void describe(Prepared& prepared) {
    auto* statement = prepared.statement.get();
    prepared.header = {};
    prepared.expressions.clear();
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const auto* declared = sqlite3_column_decltype(statement, i);
        if (i < sqlite3_column_count(statement) - prepared.hidden)
            prepared.header.addColumn(sqlite3_column_name(statement, i), reading(declared));
        else
            prepared.header.addHidden(sqlite3_column_name(statement, i), reading(declared));
        prepared.expressions.push_back(declared == nullptr ? 1 : 0);
    }
    prepared.preparations = sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 0);
    prepared.described = true;
}

void addRow(RowBuffer& rows, Prepared& prepared) {
    auto* statement = prepared.statement.get();
    const auto count = static_cast<int>(prepared.expressions.size());
    for (int i = 0; i < count; ++i) switch (sqlite3_column_type(statement, i)) {
            case SQLITE_INTEGER:
                rows.addInteger(sqlite3_column_int64(statement, i));
                break;
            case SQLITE_FLOAT:
                rows.addNumber(sqlite3_column_double(statement, i));
                break;
            case SQLITE_TEXT: {
                const auto text = columnText(statement, i);
                auto& undecided = prepared.expressions[static_cast<std::size_t>(i)];
                if (undecided == 1) {
                    undecided = 2;
                    rows.setReading(static_cast<std::size_t>(i), shown(text));
                }
                rows.addText(text);
                break;
            }
            case SQLITE_BLOB: {
                const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, i));
                rows.addBytes({bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, i))});
                break;
            }
            default:
                rows.addNull();
        }
}

}  // namespace db::sqlite
