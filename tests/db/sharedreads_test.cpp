#include "db/sharedreads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

#include "db/recordset.h"
#include "db/rounds.h"

namespace {

using namespace std::chrono_literals;
using Reading = db::RowBuffer::Reading;

/// What a round does here takes as long as the test wants.
class Work {
public:
    void run() {
        ++begun;
        while (held) std::this_thread::sleep_for(1ms);
        if (fails.exchange(false)) throw std::runtime_error("failed");
        ++done;
    }
    void waitUntilBegun(int number) const {
        while (begun < number) std::this_thread::sleep_for(1ms);
    }
    std::atomic<int> begun = 0, done = 0;
    std::atomic<bool> held = false, fails = false;
};

TEST(Rounds, OneDoesItForAllWhoAskedBeforeItBegan) {
    db::Rounds rounds;
    Work work;
    std::atomic<int> failed = 0;
    const auto join = [&] {
        try {
            rounds.join([&] { work.run(); });
        } catch (const std::runtime_error&) {
            ++failed;
        }
    };
    for (const bool fails : {false, true}) {
        work.begun = work.done = failed = 0;
        work.held = true;
        work.fails = fails;
        std::vector<std::jthread> threads;
        threads.emplace_back(join);
        work.waitUntilBegun(1);
        for (int i = 0; i < 5; ++i) threads.emplace_back(join);
        std::this_thread::sleep_for(50ms);
        EXPECT_EQ(work.begun, 1) << "one at a time";
        work.held = false;
        threads.clear();
        EXPECT_EQ(work.begun, 2) << "the first round began too early for the five";
        EXPECT_EQ(failed, fails ? 1 : 0) << "a failure comes to whose round it was, and to nobody else";
    }
}

TEST(Rounds, RestAsLongAsTheyWork) {
    db::Rounds rounds{std::chrono::milliseconds(40)};
    const auto start = db::Rounds::Clock::now();
    for (int i = 0; i < 2; ++i) rounds.join([] { std::this_thread::sleep_for(10ms); });
    EXPECT_GE(db::Rounds::Clock::now() - start, 30ms);
    rounds.join([] { std::this_thread::sleep_for(100ms); });
    const auto end = db::Rounds::Clock::now();
    rounds.join([] {});
    EXPECT_GE(db::Rounds::Clock::now() - end, 39ms) << "and never longer than was set";
}

/// Rows of a number, a text and a hidden key.
db::RowBuffer rowsOf(const std::vector<int>& numbers, int key = 0) {
    db::RowBuffer rows;
    rows.addColumn("Number", Reading::plain);
    rows.addColumn("Text", Reading::plain);
    rows.addHidden("Key", Reading::plain);
    for (const int number : numbers) {
        rows.addInteger(number);
        if (number % 7 == 0)
            rows.addNull();
        else
            rows.addText("row " + std::to_string(number));
        rows.addInteger(key);
    }
    return rows;
}

std::vector<int> numbersUpTo(int last) {
    std::vector<int> numbers;
    for (int number = 1; number <= last; ++number) numbers.push_back(number);
    return numbers;
}

void expectSame(const db::RowBuffer& left, const db::RowBuffer& right) {
    ASSERT_EQ(left.rowCount(), right.rowCount());
    for (std::size_t row = 0; row < left.rowCount(); ++row) {
        EXPECT_EQ(left.hash(row), right.hash(row)) << row;
        for (std::size_t column = 0; column < left.width(); ++column)
            EXPECT_EQ(left.value(row, column), right.value(row, column)) << row << ", " << column;
    }
}

TEST(RowBuffer, ReadsTheSameOverManyPagesAndShared) {
    auto numbers = numbersUpTo(5'000);
    const auto plain = rowsOf(numbers);
    EXPECT_EQ(plain.value(4'999, 1), db::Value("row 5000"));
    EXPECT_EQ(plain.value(1'365, 0), db::Value(1'366)) << "the first row of the second page";
    auto first = rowsOf(numbers);
    EXPECT_EQ(first.shareWith({}), 5'000U);
    expectSame(first, plain);
    numbers.insert(numbers.begin() + 2'000, 70'001);
    numbers.erase(numbers.begin() + 100);
    numbers.insert(numbers.begin(), 70'002);
    auto second = rowsOf(numbers);
    const auto copied = second.shareWith(first);
    expectSame(second, rowsOf(numbers));
    EXPECT_LT(copied, 200U) << "rows around the three changes, of 5,001";
    auto otherKey = rowsOf(numbers, 1);
    EXPECT_EQ(otherKey.shareWith(second), 5'001U) << "what is hidden counts";
    expectSame(otherKey, rowsOf(numbers, 1));
    auto none = rowsOf({});
    EXPECT_EQ(none.shareWith(second), 0U);
    EXPECT_EQ(none.rowCount(), 0U);
}

TEST(SharedReads, GiveEachSessionWhatItWroteAndDropWhatNobodyShows) {
    db::SharedReads reads;
    const db::Sql::Template today{"select today", {}};
    std::atomic<int> stored = 0;
    std::atomic<int> readings = 0;
    std::atomic<int> missing = 0;
    const auto work = [&] {
        for (int save = 0; save < 20; ++save) {
            const int own = ++stored;
            const auto rows = reads.read(today, [&] {
                ++readings;
                return rowsOf(numbersUpTo(stored));
            });
            if (rows->rowCount() < static_cast<std::size_t>(own)) ++missing;
        }
    };
    {
        std::vector<std::jthread> sessions;
        for (int i = 0; i < 8; ++i) sessions.emplace_back(work);
    }
    EXPECT_EQ(missing, 0);
    EXPECT_LE(readings, 160);
    const std::weak_ptr<const db::RowBuffer> shown = reads.read(today, [] { return rowsOf({1}); });
    EXPECT_TRUE(shown.expired());
    EXPECT_THROW(reads.read(today, []() -> db::RowBuffer { throw std::runtime_error("failed"); }), std::runtime_error);
}

}  // namespace
