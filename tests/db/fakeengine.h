#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "db/connection.h"
#include "db/databases.h"
#include "db/engine.h"
#include "db/error.h"

/// A database server that a test holds in its hand: it tells what reached it and fails when told to.
struct FakeServer {
    std::vector<std::string> log;                  ///< "begin", "execute TEXT", "insert T a=1", ...
    std::map<std::string, db::Category> failures;  ///< by the first word of a log line; each fails once
    db::RowBuffer rows;
    std::optional<db::Table> table;
    db::Outcome outcome{1, 0};
    int opened = 0;
    int closed = 0;
    bool alive = true;

    void reached(const std::string& line) {
        log.push_back(line);
        const auto failure = failures.extract(line.substr(0, line.find(' ')));
        if (!failure.empty()) throw db::Error(failure.mapped(), "failed: " + failure.key());
    }
    [[nodiscard]] std::vector<std::string> takeLog() { return std::exchange(log, {}); }
    db::EnginePool::Opener opener();
};

class FakeEngine : public db::Engine {
public:
    using Names = std::vector<std::string>;
    using Values = std::vector<db::Value>;
    using Arguments = std::vector<std::pair<std::string, db::Value>>;

    explicit FakeEngine(FakeServer& server) : server_(server) { ++server_.opened; }
    ~FakeEngine() override { ++server_.closed; }

    db::RowBuffer read(const db::Sql::Template& statement) override {
        server_.reached("read " + statement.text);
        return server_.rows;
    }
    db::Outcome execute(const db::Sql::Template& statement) override {
        server_.reached("execute " + statement.text);
        return server_.outcome;
    }
    db::RowBuffer call(std::string_view procedure, const Arguments& arguments) override {
        std::string line = "call " + std::string(procedure);
        for (const auto& [name, value] : arguments) line += " " + name + "=" + value.textOr("null");
        server_.reached(line);
        return server_.rows;
    }
    const db::Table* table(std::string_view) override { return server_.table ? &*server_.table : nullptr; }
    db::Outcome insertRow(const db::Table& table, const Names& columns, const Values& values) override {
        server_.reached("insert " + table.name + cells(columns, values));
        return server_.outcome;
    }
    db::Outcome updateRow(const db::Table& table, const Names& columns, const Values& values, const Names& keys,
                          const Values& keyValues) override {
        server_.reached("update " + table.name + cells(columns, values) + " where" + cells(keys, keyValues));
        return server_.outcome;
    }
    void begin() override { server_.reached("begin"); }
    void commit() override { server_.reached("commit"); }
    void rollback() noexcept override { server_.log.emplace_back("rollback"); }
    [[nodiscard]] bool holdsWriteLock() const noexcept override { return false; }
    [[nodiscard]] bool alive() noexcept override { return server_.alive; }
    std::vector<db::Object> objects() override { return {}; }
    std::vector<std::string> integrity() override { return {}; }
    std::vector<std::string> plan(const db::Sql::Template&) override { return {}; }

    std::atomic<bool> inUse = false;  ///< for tests of threads that borrow lines

private:
    static std::string cells(const Names& names, const Values& values) {
        std::string text;
        for (std::size_t i = 0; i < names.size(); ++i) text += " " + names[i] + "=" + values[i].textOr("null");
        return text;
    }

    FakeServer& server_;
};

inline db::EnginePool::Opener FakeServer::opener() {
    return [this]() -> std::unique_ptr<db::Engine> {
        reached("open");
        return std::make_unique<FakeEngine>(*this);
    };
}

/// A session's connection to such a server.
class OnFakeServer : public testing::Test {
protected:
    using Log = std::vector<std::string>;
    /// From now on `seen` holds what the recorder sees: "Hospital execute: delete T".
    void record() {
        recorder = [this](const db::Statement& statement) {
            static constexpr const char* kinds[] = {" read: ", " execute: ", " call: ", " insert: ", " update: "};
            const auto* kind = kinds[static_cast<std::size_t>(statement.kind)];
            seen.push_back(statement.database + kind + statement.text);
            for (const auto& [name, value] : statement.parameters)
                seen.back() += " " + name + "=" + value.textOr("null");
        };
    }
    /// From now on the recorder stops each statement.
    void stopStatements() {
        recorder = [](const db::Statement&) { throw db::Error(db::Category::injected, "Injected failure"); };
    }

    FakeServer server;
    db::EnginePool pool{server.opener()};
    db::Recorder recorder;
    db::Connection connection{"Hospital", pool, recorder};
    Log seen;
};
