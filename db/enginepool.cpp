#include <chrono>
#include <condition_variable>
#include <functional>
#include <utility>

#include "db/databases.h"
#include "db/engine.h"
#include "db/error.h"
#include "db/sqlite/engine.h"

namespace db {

namespace {

/// Lines that are worth having: a session beyond them waits for one that comes back, since opening another and
/// preparing its statements takes longer, and would take that time from those who work. Lines beyond them are closed
/// when they come back.
constexpr std::size_t enoughLines = 8;
/// A session may hold its line for long, in a transaction that waits for other writers.
constexpr std::chrono::milliseconds longestWait(1000);

std::unique_ptr<Engine> openEngine(const std::string& database, const Source& source,
                                   const std::map<std::string, Source>& sisters, ServerClock& clock) {
    if (source.engine == "sqlite") return openSqlite(database, source, sisters, clock);
    throw Error(Category::lostConnection, "No engine \"" + source.engine + "\" for database \"" + database + "\".");
}

}  // namespace

struct EnginePool::State {
    Opener open;
    bool single;
    std::mutex mutex;
    std::condition_variable returned;
    std::vector<std::unique_ptr<Engine>> idle;
    std::size_t out = 0;  ///< lines that sessions hold

    /// The line counts as out from then on, also where there is none and the caller has to open it.
    std::unique_ptr<Engine> takeIdle() {
        std::unique_lock lock(mutex);
        if (single && out > 0) throw Error(Category::busy, "The database in memory is in use by another connection.");
        returned.wait_for(lock, longestWait, [this] { return !idle.empty() || out < enoughLines; });
        ++out;
        if (idle.empty()) return nullptr;
        auto engine = std::move(idle.back());
        idle.pop_back();
        return engine;
    }
    std::unique_ptr<Engine> openNew() {
        try {
            return open();
        } catch (...) {
            takeBack(nullptr);
            throw;
        }
    }
    /// One line less is out; it is kept for the next session where it is given and wanted.
    void takeBack(std::unique_ptr<Engine> engine) noexcept {
        {
            const std::lock_guard lock(mutex);
            --out;
            if (engine && idle.size() < enoughLines) idle.push_back(std::move(engine));
        }
        returned.notify_one();
    }
};

EnginePool::EnginePool(Opener open, bool single) : state_(std::make_unique<State>()) {
    state_->open = std::move(open);
    state_->single = single;
    state_->idle.reserve(enoughLines);
}

EnginePool::EnginePool(std::string database, const Source& source, const std::map<std::string, Source>& sisters,
                       ServerClock& clock)
    : EnginePool([database = std::move(database), source, &sisters,
                  &clock] { return openEngine(database, source, sisters, clock); },
                 source.location == ":memory:") {}

EnginePool::~EnginePool() = default;

std::unique_ptr<Engine> EnginePool::borrow() {
    while (auto engine = state_->takeIdle()) {
        if (engine->alive()) return engine;
        discard(std::move(engine));
    }
    return state_->openNew();
}

void EnginePool::giveBack(std::unique_ptr<Engine> engine) noexcept {
    state_->takeBack(std::move(engine));
}

void EnginePool::discard(std::unique_ptr<Engine> engine) noexcept {
    engine.reset();
    state_->takeBack(nullptr);
}

}  // namespace db
