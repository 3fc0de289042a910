#include "db/sqlite/writerqueue.h"

#include <algorithm>
#include <map>

namespace db::sqlite {

std::shared_ptr<WriterQueue> WriterQueue::of(const std::filesystem::path& file) {
    static std::mutex mutex;
    static std::map<std::filesystem::path, std::weak_ptr<WriterQueue>> queues;
    const auto canonical = std::filesystem::weakly_canonical(file);
    const std::lock_guard lock(mutex);
    std::erase_if(queues, [](const auto& entry) { return entry.second.expired(); });
    auto queue = queues[canonical].lock();
    if (!queue) queues[canonical] = queue = std::make_shared<WriterQueue>();
    return queue;
}

bool WriterQueue::enter(std::chrono::milliseconds patience) {
    std::unique_lock lock(mutex_);
    if (!taken_) return taken_ = true;
    Waiter self;
    waiting_.push_back(&self);
    const bool came = self.turn.wait_for(lock, patience, [&] { return self.called || !taken_; });
    if (!self.called) std::erase(waiting_, &self);
    if (came) taken_ = true;
    return came;
}

void WriterQueue::leave() noexcept {
    constexpr std::chrono::milliseconds passedOver(30);
    const std::lock_guard lock(mutex_);
    taken_ = false;
    if (waiting_.empty()) return;
    auto* next = waiting_.front();
    if (std::chrono::steady_clock::now() - next->since > passedOver) {
        waiting_.pop_front();
        next->called = taken_ = true;
    }
    next->turn.notify_one();  // under the lock: the waiter's own variable must not go before it was told
}

}  // namespace db::sqlite
