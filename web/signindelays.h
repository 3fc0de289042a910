#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <unordered_map>

namespace web {

struct Config;

/// Slows the guessing of passwords. What fails slows its own kind only: after some failures of a user from an address,
/// that user's further attempts from that address wait longer and longer; after many of a user from anywhere, her
/// attempts from where she never signed in do; and after many from an address, whoever fails there waits for his
/// answer. A right password from where the user has signed in before may wait and is never refused.
/// An attempt counts as failed until it succeeded, so a burst at once gains nothing. Works on one thread.
class SignInDelays {
public:
    using Clock = std::chrono::steady_clock;
    using Now = Clock::time_point (*)();

    explicit SignInDelays(const Config& config, Now now = &Clock::now);

    /// Counts an attempt and says how long it has to wait before its password is looked at; nothing where it would be
    /// longer than anybody waits, and the attempt is then refused and not counted. `known`: the user has signed in from
    /// this address before.
    std::optional<Clock::duration> begin(const std::string& user, const std::string& address, bool known);
    /// The attempt failed: how long its answer waits; nothing where it would be too long, and the answer says so at
    /// once.
    std::optional<Clock::duration> failed(const std::string& address);
    /// The attempt was no failure: the user starts anew from this address.
    void succeeded(const std::string& user, const std::string& address);
    /// Whether so many attempts from this address failed that it slows them.
    [[nodiscard]] bool guesses(const std::string& address) const;

    /// The name as the database compares it: without regard to case and to blanks behind it.
    static std::string keyOf(std::string user);

private:
    struct Failures {
        int count = 0;
        Clock::time_point next;  ///< when the next attempt may run
        Clock::time_point last;
    };
    using Table = std::unordered_map<std::string, Failures>;
    [[nodiscard]] Clock::duration delayAfter(int failures, int free) const;
    Failures& find(Table& table, const std::string& key, Clock::time_point now, int free) const;
    void makeRoom(Table& table, Clock::time_point now, int free) const;
    void count(Failures& failures, Clock::time_point now, int free, Clock::duration most) const;

    int freeOfUser_, freeOfUserAnywhere_, freeOfAddress_;
    Clock::duration first_, longest_, forget_;
    Now now_;
    Table pairs_, users_, addresses_;
};

}  // namespace web
