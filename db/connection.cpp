#include "db/connection.h"

#include "db/databases.h"
#include "db/engine.h"
#include "db/error.h"

namespace db {

namespace {

[[noreturn]] void noTransaction() {
    throw Error(Category::other, "No transaction is active.");
}
[[noreturn]] void doomedTransaction() {
    throw Error(Category::other, "The transaction was rolled back by an operation inside it and cannot be committed.");
}
[[noreturn]] void lostTransaction() {
    throw Error(Category::lostConnection, "The connection was lost, and the open transaction with it.");
}

}  // namespace

Connection::Connection(std::string database, EnginePool& pool, const Recorder& recorder,
                       const AroundCommit& aroundCommit)
    : database_(std::move(database)), pool_(pool), recorder_(recorder), aroundCommit_(aroundCommit) {}

const AroundCommit& Connection::nothing() {
    static const AroundCommit nothing;
    return nothing;
}

Connection::~Connection() {
    while (inTransaction()) rollbackTrans();
    idle();
}

Engine& Connection::engine() {
    if (lost_) lostTransaction();
    if (!engine_) engine_ = pool_.borrow();
    return *engine_;
}

void Connection::failed(const char* operation, const Error& error) {
    if (error.category() == Category::lostConnection) drop();
    const auto where = error.operation().empty() ? std::string(operation) + " on " + database_ : error.operation();
    throw Error(error.category(), error.what(), where, error.cause(), error.column());
}

/// A transaction goes with its line. Until it has been left nothing runs: what followed would be written by itself.
void Connection::drop() noexcept {
    if (!engine_) return;
    pool_.discard(std::move(engine_));
    lost_ = inTransaction();
}

void Connection::record(Statement::Kind kind, std::string text, std::vector<std::pair<std::string, Value>> parameters) {
    if (!recorder_) return;
    try {
        recorder_({kind, std::move(text), database_, std::move(parameters)});
    } catch (const Error& error) {
        if (error.category() == Category::lostConnection) drop();
        throw;
    }
}

std::int64_t Connection::execute(const Sql& sql) {
    if (recording()) record(Statement::Kind::execute, sql.text());
    return withEngine("execute", [&](Engine& engine) { return engine.execute(sql.bound()).affected; });
}

std::int64_t Connection::insertRow(const std::string& table, const std::vector<std::string>& columns,
                                   const std::vector<Value>& values) {
    if (recording()) {
        std::vector<std::pair<std::string, Value>> parameters;
        parameters.reserve(columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i) parameters.emplace_back(columns[i], values.at(i));
        record(Statement::Kind::insert, "insert " + table, std::move(parameters));
    }
    return withEngine("insert", [&](Engine& engine) {
        const auto* known = engine.table(table);
        if (known == nullptr) throw Error(Category::syntax, "Invalid object name '" + table + "'.");
        return engine.insertRow(*known, columns, values).identity;
    });
}

RowBuffer Connection::rows(const Sql& sql) {
    if (recording()) record(Statement::Kind::read, sql.text());
    return withEngine("read", [&](Engine& engine) { return engine.read(sql.bound()); });
}

Recordset Connection::readShared(const Sql& sql) {
    if (inTransaction()) return Recordset(rows(sql));
    if (recording()) record(Statement::Kind::read, sql.text());
    const auto statement = sql.bound();
    idle();  // no line is held while another session reads
    return Recordset(pool_.sharedReads().read(
        statement, [&] { return withEngine("read", [&](Engine& engine) { return engine.read(statement); }); }));
}

std::vector<Object> Connection::objects() {
    return withEngine("list the objects", [](Engine& engine) { return engine.objects(); });
}

void Connection::beginTrans() {
    if (lost_) lostTransaction();
    if (depth_ == 0) withEngine("begin", [](Engine& engine) { engine.begin(); });
    ++depth_;
}

void Connection::commitTrans() {
    if (depth_ == 0) noTransaction();
    if (depth_ == 1 && !lost_ && !doomed_) runBeforeCommit();
    if (--depth_ > 0) {
        if (lost_) lostTransaction();
        return;
    }
    const bool lost = std::exchange(lost_, false);
    const bool doomed = std::exchange(doomed_, false);
    if (lost) lostTransaction();
    if (doomed) {
        engine_->rollback();
        doomedTransaction();
    }
    withEngine("commit", [](Engine& engine) {
        try {
            engine.commit();
        } catch (const Error&) {
            engine.rollback();
            throw;
        }
    });
    if (aroundCommit_.after) aroundCommit_.after();
}

void Connection::runBeforeCommit() {
    if (!aroundCommit_.before) return;
    try {
        aroundCommit_.before(*this);
    } catch (...) {
        rollbackTrans();
        throw;
    }
}

void Connection::rollbackTrans() noexcept {
    if (depth_ == 0) return;
    if (--depth_ > 0) {
        doomed_ = true;
        return;
    }
    if (engine_) engine_->rollback();
    doomed_ = lost_ = false;
}

bool Connection::holdsWriteLock() const noexcept {
    return engine_ && engine_->holdsWriteLock();
}

void Connection::idle() noexcept {
    if (engine_ && !inTransaction()) pool_.giveBack(std::move(engine_));
}

}  // namespace db
