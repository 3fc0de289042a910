#include "web/connections.h"

namespace web {

Connections::Place::Place(Connections& all) : all_(all) {
    const std::lock_guard lock(all_.mutex_);
    ++all_.count_;
}

Connections::Place::~Place() {
    setWaiting(false);
    const std::lock_guard lock(all_.mutex_);
    if (counted_) --all_.count_;
}

void Connections::Place::setWaiting(bool waiting) {
    const std::lock_guard lock(all_.mutex_);
    if (waiting == waiting_) return;
    if (waiting)
        waitingAt_ = all_.waiting_.insert(all_.waiting_.end(), this);
    else
        all_.waiting_.erase(waitingAt_);
    waiting_ = waiting;
}

std::shared_ptr<void> Connections::beginDraining() {
    constexpr long mostDraining = 16;
    return draining_.use_count() <= mostDraining ? draining_ : nullptr;
}

bool Connections::admit() {
    {
        const std::lock_guard lock(mutex_);
        if (count_ < most_) return true;
    }
    Place* oldest = takeOldest();
    if (oldest == nullptr) return false;
    oldest->makeRoom();
    return true;
}

/// The place that goes, counted no more: what waits lives on the network thread, which is this one.
Connections::Place* Connections::takeOldest() {
    const std::lock_guard lock(mutex_);
    if (waiting_.empty()) return nullptr;
    Place* oldest = waiting_.front();
    waiting_.pop_front();
    oldest->waiting_ = false;
    oldest->counted_ = false;
    --count_;
    return oldest;
}

}  // namespace web
