#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <filesystem>
#include <memory>
#include <mutex>

namespace db::sqlite {

/// Whose turn it is to write to one database file, among all lines of this process: first come, first served, so that
/// no writer starves while others take the lock again and again.
class WriterQueue {
public:
    /// The queue of a file; all who ask for the same file get the same one.
    static std::shared_ptr<WriterQueue> of(const std::filesystem::path& file);

    /// Waits for the turn; false when it did not come in time.
    [[nodiscard]] bool enter(std::chrono::milliseconds patience);
    /// Gives the turn to who has waited longest.
    void leave() noexcept;

private:
    struct Waiter {
        std::condition_variable turn;
        bool called = false;
    };
    std::mutex mutex_;
    bool taken_ = false;
    std::deque<Waiter*> waiting_;
};

}  // namespace db::sqlite
