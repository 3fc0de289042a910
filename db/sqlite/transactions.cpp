#include "db/error.h"
#include "db/sqlite/sqliteengine.h"

namespace db::sqlite {

void SqliteEngine::begin() {
    requireUsable();
    if (state_ != State::none) throw Error(Category::other, "A transaction is open already.", "begin");
    state_ = State::intended;
}

/// The first write of a transaction: waits for the other writers of this process, then for those of others.
void SqliteEngine::startWriting() {
    if (!line_.writers().enter(writerPatience))
        throw Error(Category::busy, "Timeout expired", "wait for the other writers");
    state_ = State::writing;
    try {
        line_.run("begin immediate", "begin");
    } catch (...) {
        leaveQueue();
        state_ = State::intended;
        throw;
    }
}

void SqliteEngine::commit() {
    if (state_ == State::broken) {
        state_ = State::none;
        throw Error(Category::other, "The transaction was rolled back by an earlier failure.", "commit");
    }
    if (state_ == State::writing) {
        try {
            line_.run("commit", "commit");
        } catch (...) {
            SqliteEngine::rollback();
            throw;
        }
        leaveQueue();
        state_ = State::none;
        line_.sync();
    }
    state_ = State::none;
}

void SqliteEngine::rollback() noexcept {
    if (state_ == State::writing) {
        if (!line_.autocommit()) sqlite3_exec(line_.handle(), "rollback", nullptr, nullptr, nullptr);
        viewsOpen_ = false;
        leaveQueue();
    }
    state_ = State::none;
}

void SqliteEngine::leaveQueue() noexcept {
    line_.writers().leave();
}

/// Before each statement. Inside a transaction the file stays as it was opened.
void SqliteEngine::requireUsable() {
    if (state_ == State::broken)
        throw Error(Category::other, "The transaction was rolled back by an earlier failure.", "use the line");
    if (state_ != State::writing) line_.requirePresent();
}

/// Several writes that happen together or not at all, inside a transaction too.
void SqliteEngine::whole(const std::function<void()>& work) {
    const bool alone = state_ == State::none;
    if (alone) begin();
    if (state_ == State::intended) startWriting();
    try {
        line_.run("savepoint whole", "savepoint");
        work();
        line_.run("release whole", "release");
        if (alone) commit();
    } catch (...) {
        if (alone)
            SqliteEngine::rollback();
        else if (state_ == State::writing && !line_.autocommit())
            sqlite3_exec(line_.handle(), "rollback to whole; release whole", nullptr, nullptr, nullptr);
        throw;
    }
}

}  // namespace db::sqlite
