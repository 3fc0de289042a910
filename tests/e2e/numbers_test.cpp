// Many sessions drawing numbers at once from one hospital on disk.

#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <thread>

#include "db/command.h"
#include "db/databases.h"
#include "hospital/schema.h"
#include "tests/support/directory.h"

namespace {

TEST(Numbers, ThirtyTwoSessionsNeverDrawTheSame) {
    constexpr int sessions = 32;
    constexpr int draws = 1000;
    const test::TemporaryDirectory data;
    hospital::createDatabases(data.path());
    db::DataSources sources(db::DataSources::embedded(data.path()));

    std::vector<std::vector<std::string>> drawn(sessions);
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (auto& mine : drawn)
        threads.emplace_back([&] {
            db::Databases databases(sources);
            for (int i = 0; i < draws; ++i) {
                try {
                    db::Command command(databases.named("Hospital"), "getIDNo");
                    command.append("DestName", db::Command::Type::varText, 50, "PATIENT2");
                    mine.push_back(command.execute()["getIDNo"].text());
                } catch (const db::Error&) {
                    ++failures;
                }
            }
        });
    for (auto& thread : threads) thread.join();

    std::set<std::string> all;
    for (const auto& mine : drawn) all.insert(mine.begin(), mine.end());
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(all.size(), static_cast<std::size_t>(sessions * draws));
    EXPECT_EQ(*all.begin(), "000000001/001");
    EXPECT_EQ(*all.rbegin(), "000032000/001");
}

}  // namespace
