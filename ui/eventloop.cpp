#include "ui/eventloop.h"

#include <algorithm>

#include "ui/controls.h"

namespace ui {

void EventLoop::post(Task task) {
    {
        const std::lock_guard lock(mutex_);
        tasks_.push_back(std::move(task));
    }
    wake_.notify_one();
}

void EventLoop::run() {
    runUntil([] { return false; });
}

void EventLoop::runUntil(const std::function<bool()>& done) {
    while (!done()) step(done, std::nullopt);
}

bool EventLoop::runFor(std::chrono::milliseconds time, const std::function<bool()>& done) {
    const auto deadline = Clock::now() + time;
    while (!done()) {
        if (Clock::now() >= deadline) return false;
        step(done, deadline);
    }
    return true;
}

void EventLoop::step(const std::function<bool()>& done, Deadline deadline) {
    // A timer and a task in turns, so that neither starves the other.
    const bool ticked = tickDue();
    if (ticked && done()) return;
    if (runTask() || ticked) return;
    if (beforeWait_ && (!deadline || timersRun_)) {
        beforeWait_();
        if (done()) return;
    }
    wait(deadline);
}

bool EventLoop::tickDue() {
    if (!timersRun_ || due_.empty()) return false;
    const auto now = Clock::now();
    const auto first = std::min_element(due_.begin(), due_.end(), [](auto& a, auto& b) { return a.at < b.at; });
    if (first->at > now) return false;
    // Ticks that a long job made late fall away.
    first->at = std::max(first->at, now - first->timer->interval()) + first->timer->interval();
    first->timer->tick();  // may stop timers and destroy this one
    return true;
}

bool EventLoop::runTask() {
    Task task;
    {
        const std::lock_guard lock(mutex_);
        if (tasks_.empty()) return false;
        task = std::move(tasks_.front());
        tasks_.pop_front();
    }
    task();
    return true;
}

EventLoop::Deadline EventLoop::nextDue() const {
    Deadline next;
    for (const Due& due : due_)
        if (timersRun_ && (!next || due.at < *next)) next = due.at;
    return next;
}

void EventLoop::wait(Deadline deadline) {
    const Deadline due = nextDue();
    if (due && (!deadline || *due < *deadline)) deadline = due;
    std::unique_lock lock(mutex_);
    const auto queued = [this] { return !tasks_.empty(); };
    if (deadline)
        wake_.wait_until(lock, *deadline, queued);
    else
        wake_.wait(lock, queued);
}

void EventLoop::timerStarted(Timer& timer) {
    if (timer.interval() > std::chrono::milliseconds::zero()) due_.push_back({Clock::now() + timer.interval(), &timer});
}

void EventLoop::timerStopped(Timer& timer) noexcept {
    std::erase_if(due_, [&](const Due& due) { return due.timer == &timer; });
}

}  // namespace ui
