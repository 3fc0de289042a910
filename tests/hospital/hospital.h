#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "db/command.h"
#include "db/databases.h"
#include "db/engine.h"
#include "db/error.h"
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

/// The next number of a series, as screens draw it; "" for a series that nobody keeps.
inline std::string nextNumber(db::Connection& connection, const char* series) {
    db::Command command(connection, "getIDNo");
    command.append("DestName", db::Command::Type::varText, 50, series);
    const auto rows = command.execute();
    return rows.empty() ? "" : rows["getIDNo"].text();
}

/// A recorder that fails the `failing`th write of those that `writes` counts.
inline db::Recorder failingWrite(const int& failing, int& writes) {
    return [&](const db::Statement& statement) {
        if (statement.writes() && ++writes == failing) throw db::Error(db::Category::injected, "Injected failure");
    };
}

/// Databases as one session has them open.
struct OpenDatabases {
    explicit OpenDatabases(std::map<std::string, db::Source> table) : sources(std::move(table)) {}
    explicit OpenDatabases(const std::filesystem::path& directory)
        : OpenDatabases(db::DataSources::embedded(directory)) {}
    db::Connection& hospital() { return databases.named("Hospital"); }
    std::size_t count(const db::Sql& sql) { return hospital().read(sql).rowCount(); }

    db::DataSources sources;
    db::Databases databases{sources};
};

/// The four databases in memory, with their schema and first rows. The server's clock stands at 24-Nov-2026 10:00.
struct MemoryDatabases : OpenDatabases {
    MemoryDatabases() : OpenDatabases(inMemory()) {
        sources.clock().stopAt(db::DateTime::of(2026, 11, 24, 10));
        for (const auto& name : db::DataSources::names()) hospital::createSchema(databases.named(name));
    }
    static std::map<std::string, db::Source> inMemory() {
        std::map<std::string, db::Source> memory;
        for (const auto& name : db::DataSources::names()) memory[name] = {"sqlite", ":memory:"};
        return memory;
    }
};

/// The demonstration hospital of 24-Nov-2026, 11:00, in files: one view reads two databases.
struct DemonstrationFiles : TemporaryDirectory, OpenDatabases {
    explicit DemonstrationFiles(int patients = 60, std::uint64_t seed = 1) : OpenDatabases(path()) {
        hospital::createDatabases(path());
        sources.clock().stopAt(today.plusHours(11));
        hospital::createDemonstration(databases, {today, patients, seed});
    }
    const db::DateTime today = db::DateTime::of(2026, 11, 24);
};

}  // namespace test
