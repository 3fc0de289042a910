#include <functional>
#include <utility>

#include "db/databases.h"
#include "db/engine.h"
#include "db/error.h"
#include "db/sqlite/engine.h"

namespace db {

namespace {

/// Lines kept open for the next session; the rest is closed when it comes back.
constexpr std::size_t idleLimit = 8;

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
    std::vector<std::unique_ptr<Engine>> idle;
    bool singleOut = false;

    std::unique_ptr<Engine> takeIdle() {
        const std::lock_guard lock(mutex);
        if (single && std::exchange(singleOut, true))
            throw Error(Category::busy, "The database in memory is in use by another connection.");
        if (idle.empty()) return nullptr;
        auto engine = std::move(idle.back());
        idle.pop_back();
        return engine;
    }
    std::unique_ptr<Engine> openNew() {
        try {
            return open();
        } catch (...) {
            singleReturned();
            throw;
        }
    }
    void singleReturned() noexcept {
        const std::lock_guard lock(mutex);
        singleOut = false;
    }
};

EnginePool::EnginePool(Opener open, bool single) : state_(std::make_unique<State>()) {
    state_->open = std::move(open);
    state_->single = single;
    state_->idle.reserve(idleLimit);
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
    const std::lock_guard lock(state_->mutex);
    state_->singleOut = false;
    if (engine && state_->idle.size() < idleLimit) state_->idle.push_back(std::move(engine));
}

void EnginePool::discard(std::unique_ptr<Engine> engine) noexcept {
    engine.reset();
    state_->singleReturned();
}

}  // namespace db
