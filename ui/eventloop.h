#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace ui {

class Timer;

/// Unwinds a session's thread: the session is over. It is no std::exception, so that no trap of a screen catches it.
struct SessionEnded {
    std::string reason;  ///< shown on the page that is closed; may be empty
};

/// A session's one loop. Requests, answers and timers are queued to it and run one at a time on the session's thread,
/// so nothing that a screen touches needs a lock. A box or a modal screen runs the loop again, nested, until it is
/// answered.
class EventLoop {
public:
    using Task = std::function<void()>;
    using Clock = std::chrono::steady_clock;

    EventLoop() = default;
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    /// Queues a task. The only member for other threads.
    void post(Task task);

    /// Runs tasks and timers until SessionEnded is thrown through it.
    void run();
    /// Runs tasks and timers, nested, until `done` holds. What makes it hold has to happen on this thread: another one
    /// posts a task for it.
    void runUntil(const std::function<bool()>& done);
    /// The same until `done` holds or the time has passed; true if `done` held.
    bool runFor(std::chrono::milliseconds time, const std::function<bool()>& done);

    /// Called each time nothing is queued and the loop is about to wait without a deadline: the moment at which
    /// replies go out and database lines go back. It may post tasks. A wait with a deadline calls it only where timers
    /// run: a page hears what happened so far, and a script's next line stays unread.
    void setBeforeWait(Task beforeWait) { beforeWait_ = std::move(beforeWait); }
    /// Timers tick by themselves only when this is on (the host); off, somebody ticks them by hand.
    void setTimersRun(bool run) { timersRun_ = run; }

    void timerStarted(Timer& timer);
    void timerStopped(Timer& timer) noexcept;

private:
    struct Due {
        Clock::time_point at;
        Timer* timer;
    };
    using Deadline = std::optional<Clock::time_point>;
    /// Ticks one timer, or runs one task, or waits until there is something to run.
    void step(const std::function<bool()>& done, Deadline deadline);
    bool tickDue();
    bool runTask();
    void wait(Deadline deadline);
    [[nodiscard]] Deadline nextDue() const;

    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<Task> tasks_;
    std::vector<Due> due_;
    Task beforeWait_;
    bool timersRun_ = false;
};

}  // namespace ui
