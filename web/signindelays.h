#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <unordered_map>

namespace web {

struct Config;

/// Slows the guessing of passwords: after some failures of a user, or from an address, each further attempt waits
/// longer. An attempt counts as failed until it succeeded, so a burst at once gains nothing.
/// Works on one thread.
class SignInDelays {
public:
    using Clock = std::chrono::steady_clock;
    using Now = Clock::time_point (*)();

    explicit SignInDelays(const Config& config, Now now = &Clock::now);

    /// Counts an attempt and says how long it has to wait; nothing where it would be longer than anybody waits, and
    /// the attempt is then refused and not counted.
    std::optional<Clock::duration> begin(const std::string& user, const std::string& address);
    /// The attempt was no failure: the user starts anew, and the address loses one failure.
    void succeeded(const std::string& user, const std::string& address);

private:
    struct Failures {
        int count = 0;
        Clock::time_point next;  ///< when the next attempt may run
        Clock::time_point last;
    };
    using Table = std::unordered_map<std::string, Failures>;
    [[nodiscard]] Clock::duration delayAfter(int failures, int free) const;
    void forgetOld(Table& table, Clock::time_point now) const;
    Failures* find(Table& table, const std::string& key, Clock::time_point now) const;

    int freeOfUser_, freeOfAddress_;
    Clock::duration first_, longest_, forget_;
    Now now_;
    Table users_, addresses_;
};

}  // namespace web
