#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>

namespace db {

/// Work that many threads ask for at once and that one of them does for all: each gets a round that began after it
/// asked, so a round knows all that any of them had done before. Thread-safe.
class Rounds {
public:
    using Clock = std::chrono::steady_clock;

    /// Between two rounds lies as long as the first one took, but no more than `longestRest`: work that keeps a core
    /// busy then leaves half of it to others, however many ask.
    explicit Rounds(Clock::duration longestRest = Clock::duration::zero()) : longestRest_(longestRest) {}

    /// Returns once a round that began after this call has gone through: a run of `work` on this thread or on another.
    /// What `work` throws comes to the thread that ran it alone; those that waited for it try themselves.
    void join(const std::function<void()>& work);

private:
    void lead(std::unique_lock<std::mutex>& lock, const std::function<void()>& work);

    const Clock::duration longestRest_;
    std::mutex mutex_;
    std::condition_variable ended_;
    bool led_ = false;         ///< a thread runs a round or rests before it
    std::uint64_t begun_ = 0;  ///< the number of the round that began last
    std::uint64_t gone_ = 0;   ///< of the last one that went through
    Clock::time_point restsUntil_;
};

}  // namespace db
