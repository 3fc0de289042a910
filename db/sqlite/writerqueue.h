#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <filesystem>
#include <memory>
#include <mutex>

#include "db/rounds.h"

namespace db::sqlite {

/// Whose turn it is to write to one database file, among all lines of this process. Who comes while nobody writes takes
/// the turn, also ahead of those who wait and have not woken yet: the file would lie idle for as long as a busy machine
/// takes to wake them. The others are served as they came, and none is passed over for more than a moment.
class WriterQueue {
public:
    /// The queue of a file; all who ask for the same file get the same one.
    static std::shared_ptr<WriterQueue> of(const std::filesystem::path& file);

    /// Waits for the turn; false when it did not come in time.
    [[nodiscard]] bool enter(std::chrono::milliseconds patience);
    void leave() noexcept;
    /// The syncs of what was written to the disk: a round serves all who have left the queue before it.
    [[nodiscard]] Rounds& syncs() noexcept { return syncs_; }

private:
    struct Waiter {
        std::condition_variable turn;
        std::chrono::steady_clock::time_point since = std::chrono::steady_clock::now();
        bool called = false;  ///< has the turn and is out of the queue
    };
    Rounds syncs_;
    std::mutex mutex_;
    bool taken_ = false;
    std::deque<Waiter*> waiting_;
};

}  // namespace db::sqlite
