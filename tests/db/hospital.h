#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "db/databases.h"
#include "db/engine.h"
#include "db/schema.h"

namespace test {

/// The four databases in memory, with their schema and first rows. The server's clock stands at 24-Nov-2026 10:00.
class MemoryDatabases {
public:
    MemoryDatabases() {
        sources.clock().stopAt(db::DateTime::of(2026, 11, 24, 10));
        for (const auto& name : db::DataSources::names()) db::createSchema(databases.named(name));
    }

    db::Connection& hospital() { return databases.named("Hospital"); }
    db::Value value(const db::Sql& sql) {
        const auto rows = hospital().read(sql);
        return rows.empty() ? db::Value() : rows.value(0, 0);
    }
    /// How the engine runs a statement.
    std::vector<std::string> plan(const db::Sql& sql) {
        databases.idle();
        auto& pool = sources.pool("Hospital");
        auto engine = pool.borrow();
        const auto steps = engine->plan(sql.bound());
        pool.giveBack(std::move(engine));
        return steps;
    }

    db::DataSources sources{inMemory()};
    db::Databases databases{sources};

private:
    static std::map<std::string, db::Source> inMemory() {
        std::map<std::string, db::Source> memory;
        for (const auto& name : db::DataSources::names()) memory[name] = {"sqlite", ":memory:"};
        return memory;
    }
};

}  // namespace test
