#include "db/sqlite/sqliteengine.h"

#include <algorithm>

#include "db/error.h"
#include "db/letters.h"
#include "db/sqlite/engine.h"
#include "db/sqlite/errors.h"
#include "db/sqlite/functions.h"
#include "db/sqlite/writer.h"

namespace db::sqlite {

/// The right to write for one statement: inside a transaction it stays until that one ends.
class SqliteEngine::WriteTurn {
public:
    WriteTurn(SqliteEngine& engine, bool writes) : engine_(engine), alone_(writes && engine.state_ == State::none) {
        if (alone_ && !engine.line_.writers().enter(writerPatience))
            throw Error(Category::busy, "Timeout expired", "wait for the other writers");
        if (writes && engine.state_ == State::intended) engine.startWriting();
    }
    WriteTurn(const WriteTurn&) = delete;
    WriteTurn& operator=(const WriteTurn&) = delete;
    ~WriteTurn() {
        if (alone_) engine_.line_.writers().leave();
    }

private:
    SqliteEngine& engine_;
    bool alone_;
};

SqliteEngine::SqliteEngine(std::string database, const Source& source, const std::map<std::string, Source>& sisters,
                           ServerClock& clock)
    : database_(std::move(database)), sisters_(sisters), line_(database_, source.location) {
    registerFunctions(line_.handle(), clock);
}

SqliteEngine::~SqliteEngine() {
    SqliteEngine::rollback();
}

RowBuffer SqliteEngine::read(const Sql::Template& statement) {
    requireUsable();
    auto& ready = prepared(statement);
    const Use use(ready.statement.get());
    bindAll(ready.statement.get(), statement.parameters);
    RowBuffer rows;
    step(ready, &rows);
    return rows;
}

Outcome SqliteEngine::execute(const Sql::Template& statement) {
    requireUsable();
    if (const auto definition = dialect::definition(statement.text); !definition.verb.empty())
        return define(definition, statement.text), Outcome{};
    auto& ready = prepared(statement.text);
    const Use use(ready.statement.get());
    bindAll(ready.statement.get(), statement.parameters);
    step(ready, nullptr);
    return outcome(ready);
}

Prepared& SqliteEngine::prepared(const std::string& statement) {
    if (auto* known = statements_.find(statement)) return *known;
    auto translated = translate(statement, database_);
    for (const auto& database : translated.databases) attach(database);
    if (translated.text.starts_with("select")) translated.text = overKeptRows(std::move(translated.text));
    auto fresh = prepareWithViews(translated.text);
    fresh.object = translated.object;
    if (translated.listEnd > 0) addKey(fresh, translated);
    addIndexed(fresh, translated);
    fresh.countsRows = translated.text.starts_with("insert") && hasIdentity(fresh.object);
    return statements_.add(statement, std::move(fresh));
}

Prepared SqliteEngine::prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    const auto code = sqlite3_prepare_v3(line_.handle(), sql.c_str(), static_cast<int>(sql.size()),
                                         SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    Prepared fresh;
    fresh.statement.reset(statement);
    line_.check(code, "prepare");
    fresh.writes = sqlite3_stmt_readonly(statement) == 0;
    return fresh;
}

/// A query over columns of one table that leaves its key out gets the key as hidden columns: a result set can then
/// update the row it stands on.
void SqliteEngine::addKey(Prepared& fresh, const dialect::Translated& translated) {
    if (updatedTable(fresh).empty()) return;
    auto* statement = fresh.statement.get();
    const auto selected = [&](const Column& column) {
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            if (sameName(sqlite3_column_name(statement, i), column.name)) return true;
        return false;
    };
    std::string keys;
    int count = 0;
    for (const auto& column : tableInfo(fresh.object)->table.columns) {
        if (!column.key || selected(column)) continue;
        keys += ", " + quotedName(column.name);
        ++count;
    }
    if (count == 0) return;
    auto text = translated.text;
    auto withKey = prepare(text.insert(translated.listEnd, keys));
    withKey.object = fresh.object;
    withKey.hidden = count;
    fresh = std::move(withKey);
}

/// Views over other databases live on a line and not in a file: they come into being at the first statement that misses
/// one.
Prepared SqliteEngine::prepareWithViews(const std::string& sql) {
    try {
        return prepare(sql);
    } catch (const Error& error) {
        if (error.category() != Category::syntax || !openViews()) throw;
    }
    return prepare(sql);
}

void SqliteEngine::bindAll(sqlite3_stmt* statement, const std::vector<Value>& parameters) {
    if (sqlite3_bind_parameter_count(statement) != static_cast<int>(parameters.size()))
        throw Error(Category::syntax, "The statement has another number of places than of values.", "bind");
    for (std::size_t i = 0; i < parameters.size(); ++i)
        line_.check(bind(statement, static_cast<int>(i) + 1, parameters[i]), "bind");
}

/// Runs a bound statement to its end; its rows go into `rows` where somebody wants them.
void SqliteEngine::step(Prepared& ready, RowBuffer* rows) {
    {
        const WriteTurn turn(*this, ready.writes);
        stepInTurn(ready, rows);
    }
    if (ready.writes && state_ == State::none) line_.sync();
}

void SqliteEngine::stepInTurn(Prepared& ready, RowBuffer* rows) {
    auto* statement = ready.statement.get();
    auto code = sqlite3_step(statement);
    if (rows != nullptr) {
        if (!ready.described || ready.preparations != sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 0)) {
            describe(ready);
            ready.header.table = updatedTable(ready);
        }
        *rows = ready.header;
        rows->reserve(ready.expected);
        std::replace(ready.expressions.begin(), ready.expressions.end(), char{2}, char{1});
    }
    for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
        if (rows == nullptr) continue;
        addRow(*rows, ready);
        if (rows->isTooLarge())
            throw Error(Category::other, "The result is too large. Please narrow what is asked for.", "read");
    }
    if (rows != nullptr) {
        ready.expected = rows->size();
        rows->fit();
    }
    if (code == SQLITE_DONE) return;
    // Some failures take the whole transaction with them.
    if (state_ == State::writing && line_.autocommit()) {
        leaveQueue();
        state_ = State::broken;
    }
    line_.check(code, ready.writes ? "write" : "read");
}

/// The table that an update of the rows goes to: the one that was named, when all columns are its own.
std::string SqliteEngine::updatedTable(const Prepared& ready) {
    if (ready.object.empty()) return {};
    const auto* info = tableInfo(ready.object);
    if (info == nullptr) return {};
    auto* statement = ready.statement.get();
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const auto* from = sqlite3_column_table_name(statement, i);
        if (from == nullptr || !sameName(from, info->table.name)) return {};
    }
    return info->table.name;
}

bool SqliteEngine::hasIdentity(std::string_view table) {
    const auto* info = tableInfo(table);
    return info != nullptr && std::any_of(info->table.columns.begin(), info->table.columns.end(),
                                          [](const Column& column) { return column.identity; });
}

Outcome SqliteEngine::outcome(const Prepared& ready) {
    Outcome result;
    if (!ready.writes) return result;
    result.affected = sqlite3_changes64(line_.handle());
    if (ready.countsRows && result.affected > 0) result.identity = sqlite3_last_insert_rowid(line_.handle());
    return result;
}

/// Other databases open under their names at the first statement that reads from them.
void SqliteEngine::attach(const std::string& database) {
    const auto sister = std::find_if(sisters_.begin(), sisters_.end(),
                                     [&](const auto& entry) { return sameName(entry.first, database); });
    if (sister == sisters_.end() || sister->second.engine != "sqlite" ||
        !std::filesystem::exists(sister->second.location))
        throw Error(Category::lostConnection, "Could not locate the database \"" + database + "\".", "attach");
    if (attached_.contains(sister->first)) return;
    auto statement = prepare("attach database ?1 as ?2");
    const std::vector<Value> places{sister->second.location, sister->first};
    bindAll(statement.statement.get(), places);
    const auto code = sqlite3_step(statement.statement.get());
    line_.check(code, "attach");
    attached_.insert(sister->first);
}

std::vector<std::string> SqliteEngine::texts(const std::string& sql, int column) {
    const auto ready = prepare(sql);
    std::vector<std::string> result;
    int code = SQLITE_OK;
    while ((code = sqlite3_step(ready.statement.get())) == SQLITE_ROW)
        result.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(ready.statement.get(), column)));
    line_.check(code, "read");
    return result;
}

std::vector<std::string> SqliteEngine::integrity() {
    requireUsable();
    auto lines = texts("pragma integrity_check");
    std::erase(lines, "ok");
    return lines;
}

std::vector<std::string> SqliteEngine::plan(const Sql::Template& statement) {
    requireUsable();
    return texts("explain query plan " + std::string(sqlite3_sql(prepared(statement).statement.get())), 3);
}

}  // namespace db::sqlite

namespace db {

std::unique_ptr<Engine> openSqlite(const std::string& database, const Source& source,
                                   const std::map<std::string, Source>& sisters, ServerClock& clock) {
    return std::make_unique<sqlite::SqliteEngine>(database, source, sisters, clock);
}

void createSqliteFile(const std::filesystem::path& file) {
    const auto failed = [](const char* why) { return Error(Category::other, why, "create a database file"); };
    if (std::filesystem::exists(file)) throw failed("The database file exists already.");
    sqlite3* opened = nullptr;
    const auto code = sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    const std::unique_ptr<sqlite3, sqlite::Closer> line(opened);
    if (code != SQLITE_OK || sqlite3_exec(opened, "pragma journal_mode = WAL", nullptr, nullptr, nullptr) != SQLITE_OK)
        throw failed("The database file cannot be made.");
}

}  // namespace db
