#include "db/databases.h"

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <thread>

#include "tests/db/fakeengine.h"
#include "tests/support/failure.h"

namespace {

using db::Category;
using db::DataSources;
using test::Failure;
using test::failureOf;

class Databases : public testing::Test {
protected:
    DataSources sources{DataSources::embedded("nowhere")};
    db::Databases databases{sources};
};

TEST_F(Databases, OpenReadsTheDatabaseOfAConnectionString) {
    const struct {
        const char* text;
        const char* database;
    } cases[] = {
        {"Driver={SQL Server};Server=S;Database=Hospital;UID=u;PWD=p", "Hospital"},
        {"Driver={SQL Server};Server=S;Database=SmsCenter", "SmsCenter"},
        {"database = HospitalArchive ;UID=u", "HospitalArchive"},
        {"DATABASE=accounting", "Accounting"},
        {"Server=Database;;=;Database={Hospital}", "Hospital"},
    };
    for (const auto& [text, database] : cases) EXPECT_EQ(databases.open(text).database(), database) << text;
    EXPECT_EQ(&databases.open("Database=Hospital;UID=a"), &databases.open("UID=b;Database=hospital"))
        << "one connection a session and database";
}

TEST_F(Databases, AnUnknownDatabaseIsNamedAndThePasswordIsNot) {
    const std::string payroll = "Cannot open database \"Payroll\": no data source serves it.";
    const std::string nameless = "The connection string names no database.";
    const std::pair<const char*, std::string> cases[] = {
        {"Database=Payroll;UID=u;PWD=secret", payroll},
        {"Server=Payroll;PWD=secret", nameless},
        {"Database=;PWD=secret", nameless},
        {"MyDatabase=Hospital;PWD=secret", nameless},
        {"", nameless},
    };
    for (const auto& [text, description] : cases)
        EXPECT_EQ(failureOf([&] { databases.open(text); }), Failure(Category::lostConnection, description)) << text;
}

TEST(DataSources, AnUnknownEngineIsAnErrorOfTheFirstStatement) {
    DataSources sources({{"Hospital", {"abacus", "x"}}});
    EXPECT_THROW(sources.pool("Hospital").borrow(), db::Error);
}

TEST(ServerClock, RunsUntilItIsStopped) {
    db::ServerClock clock;
    const auto before = db::DateTime::now();
    EXPECT_GE(clock.now(), before);
    clock.stopAt(db::DateTime::of(2026, 11, 24, 9, 30));
    EXPECT_EQ(clock.now().iso(), "2026-11-24 09:30:00");
}

TEST(EnginePool, WaitsForALineThatComesBackBeforeItOpensMoreThanAreWorthHaving) {
    FakeServer server;
    {
        db::EnginePool pool(server.opener());
        std::vector<std::unique_ptr<db::Engine>> lines;
        for (int i = 0; i < 8; ++i) lines.push_back(pool.borrow());
        std::thread next([&] { lines.push_back(pool.borrow()); });
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        pool.giveBack(std::move(lines.front()));
        next.join();
        EXPECT_EQ(server.opened, 8);
        lines.erase(lines.begin());
        lines.push_back(pool.borrow());
        EXPECT_EQ(server.opened, 9) << "all are held for long";
        for (auto& line : lines) pool.giveBack(std::move(line));
        EXPECT_EQ(server.closed, 1);
    }
    EXPECT_EQ(server.closed, 9);
}

TEST(EnginePool, NeverHandsOutADeadLine) {
    FakeServer server;
    db::EnginePool pool(server.opener());
    auto first = pool.borrow();
    pool.giveBack(pool.borrow());
    pool.giveBack(std::move(first));
    server.alive = false;
    const auto line = pool.borrow();
    EXPECT_EQ(server.opened, 3);
    EXPECT_EQ(server.closed, 2);
}

TEST(EnginePool, ADatabaseInMemoryHasOneLine) {
    FakeServer server;
    db::EnginePool pool(server.opener(), true);
    server.failures["open"] = Category::lostConnection;
    EXPECT_THROW(pool.borrow(), db::Error);

    auto line = pool.borrow();
    EXPECT_EQ(failureOf([&] { pool.borrow(); }).first, Category::busy);
    const auto* first = line.get();
    pool.giveBack(std::move(line));
    EXPECT_EQ(pool.borrow().get(), first);
    EXPECT_EQ(server.opened, 1);
}

TEST(EnginePool, ServesThreadsAtOnce) {
    FakeServer server;
    std::mutex opening;
    db::EnginePool pool([&]() -> std::unique_ptr<db::Engine> {
        const std::lock_guard lock(opening);
        return std::make_unique<FakeEngine>(server);
    });
    std::atomic<int> shared = 0;
    const auto work = [&] {
        for (int i = 0; i < 500; ++i) {
            auto line = pool.borrow();
            auto& inUse = dynamic_cast<FakeEngine&>(*line).inUse;
            if (inUse.exchange(true)) ++shared;
            std::this_thread::yield();
            inUse = false;
            pool.giveBack(std::move(line));
        }
    };
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) threads.emplace_back(work);
    }
    EXPECT_EQ(shared, 0);
    EXPECT_LE(server.opened, 4);
}

}  // namespace
