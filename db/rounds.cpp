#include "db/rounds.h"

#include <algorithm>
#include <thread>

namespace db {

void Rounds::join(const std::function<void()>& work) {
    std::unique_lock lock(mutex_);
    const auto wanted = begun_ + 1;
    ended_.wait(lock, [&] { return gone_ >= wanted || !led_; });
    if (gone_ < wanted) lead(lock, work);
}

void Rounds::lead(std::unique_lock<std::mutex>& lock, const std::function<void()>& work) {
    /// Ends the round, whatever became of it.
    struct Ending {
        Rounds& rounds;
        std::unique_lock<std::mutex>& lock;
        ~Ending() {
            lock.lock();
            rounds.led_ = false;
            rounds.ended_.notify_all();
        }
    };
    led_ = true;
    lock.unlock();
    std::this_thread::sleep_until(restsUntil_);
    const Ending ending{*this, lock};
    lock.lock();
    const auto number = ++begun_;
    lock.unlock();
    const auto start = Clock::now();
    work();
    lock.lock();
    gone_ = number;
    const auto end = Clock::now();
    restsUntil_ = end + std::min(end - start, longestRest_);
    lock.unlock();
}

}  // namespace db
