#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "db/error.h"
#include "db/recordset.h"
#include "db/sql.h"

namespace db {

class Engine;
class EnginePool;
struct Column;
struct Object;
struct Table;

/// What a recorder sees of a statement, before it runs. Texts hold the values in full: for tests and `trace`, never for
/// a log.
struct Statement {
    enum class Kind { read, execute, call, insert, update };
    Kind kind;
    std::string text;      ///< the statement; for a call the procedure's name; for a row "insert T" or "update T"
    std::string database;  ///< "Hospital"
    std::vector<std::pair<std::string, Value>> parameters;  ///< of a call, or the columns set of a row
    [[nodiscard]] bool writes() const noexcept { return kind != Kind::read; }
};

/// Sees every statement of a session first; a throw stops it before anything ran, and Error(lostConnection) loses the
/// line as if it had broken there. So one hook serves trace, the statement checks of tests and injected failures.
using Recorder = std::function<void(const Statement&)>;

class Connection;

/// What runs around the commit of an outermost transaction.
struct AroundCommit {
    /// Right before it: what it writes commits too, and a throw rolls both back.
    std::function<void(Connection&)> before;
    std::function<void()> after;  ///< once the commit is through; must not throw
};

/// A session's line to one database. Cheap to have: the engine's line behind it is borrowed from the database's pool
/// at the first statement and goes back when the session is idle (`Databases::idle`).
///
/// Transactions nest by count: only the outermost commit writes, and an inner rollback dooms the outer commit. A line
/// that is lost takes its transaction along: until that has been left, every statement is refused with
/// Error(lostConnection); then the next statement borrows a new line.
class Connection {
public:
    Connection(std::string database, EnginePool& pool, const Recorder& recorder,
               const AroundCommit& aroundCommit = nothing());
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    /// "Hospital", "SmsCenter", ...
    [[nodiscard]] const std::string& database() const noexcept { return database_; }

    /// Runs a statement and gives the number of rows that it touched. Throws Error.
    std::int64_t execute(const Sql& sql);
    /// Adds one row, for loads of many: `columns` and `values` run in parallel. Gives the identity that the row got, 0
    /// without one. Throws Error.
    std::int64_t insertRow(const std::string& table, const std::vector<std::string>& columns,
                           const std::vector<Value>& values);
    /// `Recordset(*this, sql)`, for reads in one expression.
    [[nodiscard]] Recordset read(const Sql& sql) { return {*this, sql}; }
    /// The same for a list that many sessions show at the same time: one reads for all that ask meanwhile, and what
    /// their results have in common is held once. What others wrote in between shows all the more, and the session's
    /// own rows always do. The result cannot be updated.
    [[nodiscard]] Recordset readShared(const Sql& sql);

    /// What the database holds: tables, columns ("hPatients.PNo"), indexes, views, procedures.
    [[nodiscard]] std::vector<Object> objects();

    void beginTrans();
    /// Throws Error(other) without a transaction, and when an inner rollback has doomed it (everything is then rolled
    /// back); Error(lostConnection) when the line was lost meanwhile. After an Error from the engine, or from what
    /// runs before the commit, the transaction is rolled back.
    void commitTrans();
    /// Without a transaction: nothing.
    void rollbackTrans() noexcept;
    [[nodiscard]] bool inTransaction() const noexcept { return depth_ > 0; }
    /// True while other writers wait for this session.
    [[nodiscard]] bool holdsWriteLock() const noexcept;

    /// Gives the engine's line back to the pool unless a transaction is open.
    void idle() noexcept;

private:
    static const AroundCommit& nothing();
    friend class Recordset;
    friend class Command;
    Engine& engine();
    /// Runs `work` on the engine; every use of the engine that can fail goes through here. An Error gets the
    /// operation's name, and a line that is lost is dropped.
    template <typename Work>
    auto withEngine(const char* operation, Work&& work) {
        try {
            return work(engine());
        } catch (const Error& error) {
            failed(operation, error);
        }
    }
    [[noreturn]] void failed(const char* operation, const Error& error);
    void drop() noexcept;
    void runBeforeCommit();
    /// Runs a statement and reads all its rows.
    RowBuffer rows(const Sql& sql);
    void record(Statement::Kind kind, std::string text, std::vector<std::pair<std::string, Value>> parameters = {});
    [[nodiscard]] bool recording() const noexcept { return static_cast<bool>(recorder_); }

    std::string database_;
    EnginePool& pool_;
    const Recorder& recorder_;
    const AroundCommit& aroundCommit_;
    std::unique_ptr<Engine> engine_;
    int depth_ = 0;
    bool doomed_ = false;
    bool lost_ = false;
};

/// Rolls back unless committed. Neither its destructor nor `rollback` throws.
class Transaction {
public:
    explicit Transaction(Connection& connection) : connection_(&connection) { connection.beginTrans(); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction() { rollback(); }

    void commit() { std::exchange(connection_, nullptr)->commitTrans(); }
    void rollback() noexcept {
        if (auto* open = std::exchange(connection_, nullptr)) open->rollbackTrans();
    }

private:
    Connection* connection_;
};

}  // namespace db
