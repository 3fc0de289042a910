#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "db/databases.h"
#include "db/engine.h"
#include "hospital/schema.h"
#include "tests/db/line.h"

namespace test {

/// How the engine runs a statement.
inline std::vector<std::string> planOf(db::Databases& databases, const std::string& database, const db::Sql& sql) {
    databases.idle();
    auto& pool = databases.sources().pool(database);
    auto engine = pool.borrow();
    const auto steps = engine->plan(sql.bound());
    pool.giveBack(std::move(engine));
    return steps;
}

/// The four databases in memory, with their schema and first rows. The server's clock stands at 24-Nov-2026 10:00.
class MemoryDatabases {
public:
    MemoryDatabases() {
        sources.clock().stopAt(db::DateTime::of(2026, 11, 24, 10));
        for (const auto& name : db::DataSources::names()) hospital::createSchema(databases.named(name));
    }

    db::Connection& hospital() { return databases.named("Hospital"); }
    db::Value value(const db::Sql& sql) {
        const auto rows = hospital().read(sql);
        return rows.empty() ? db::Value() : rows.value(0, 0);
    }
    std::vector<std::string> plan(const db::Sql& sql) { return planOf(databases, "Hospital", sql); }

    db::DataSources sources{inMemory()};
    db::Databases databases{sources};

private:
    static std::map<std::string, db::Source> inMemory() {
        std::map<std::string, db::Source> memory;
        for (const auto& name : db::DataSources::names()) memory[name] = {"sqlite", ":memory:"};
        return memory;
    }
};

/// The demonstration hospital of 24-Nov-2026, 11:00, in files: one view reads two databases.
class DemonstrationFiles {
public:
    explicit DemonstrationFiles(int patients = 60, std::uint64_t seed = 1) {
        hospital::createDatabases(folder.path);
        sources.clock().stopAt(today.plusHours(11));
        hospital::createDemonstration(databases, {today, patients, seed});
    }
    db::Connection& hospital() { return databases.named("Hospital"); }
    std::size_t count(const db::Sql& sql) { return hospital().read(sql).rowCount(); }

    const db::DateTime today = db::DateTime::of(2026, 11, 24);
    Folder folder;
    db::DataSources sources{db::DataSources::embedded(folder.path)};
    db::Databases databases{sources};
};

}  // namespace test
