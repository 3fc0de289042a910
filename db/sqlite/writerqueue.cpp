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
    if (self.turn.wait_for(lock, patience, [&] { return self.called; })) return true;
    std::erase(waiting_, &self);
    return false;
}

void WriterQueue::leave() noexcept {
    const std::lock_guard lock(mutex_);
    if (waiting_.empty()) {
        taken_ = false;
        return;
    }
    auto* next = waiting_.front();
    waiting_.pop_front();
    next->called = true;
    next->turn.notify_one();  // under the lock: the waiter's own variable must not go before it was told
}

}  // namespace db::sqlite
