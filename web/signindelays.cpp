#include "web/signindelays.h"

#include <algorithm>
#include <cctype>

#include "web/config.h"

namespace web {

namespace {

/// Names and addresses that somebody made up must not fill the memory.
constexpr std::size_t mostKeys = 10'000;
constexpr std::size_t longestKey = 100;
/// Where a user has signed in before, the nurse herself is the likelier one to mistype: her next attempt waits so long
/// at most, and behind others at her name no longer than anybody.
constexpr auto longestAtKnown = std::chrono::seconds(5);

/// One machine has all addresses of an IPv6 network: its first four groups.
std::string networkOf(const std::string& address) {
    std::size_t end = 0;
    for (int groups = 0; groups < 4 && end != std::string::npos; ++groups) end = address.find(':', end + 1);
    return address.substr(0, end);
}

std::string pairOf(const std::string& user, const std::string& address) {
    return SignInDelays::keyOf(user) + '\n' + networkOf(address);
}

}  // namespace

std::string SignInDelays::keyOf(std::string user) {
    user.resize(std::min(user.size(), longestKey));
    while (!user.empty() && user.back() == ' ') user.pop_back();
    for (char& c : user) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return user;
}

SignInDelays::SignInDelays(const Config& config, Now now)
    : freeOfUser_(config.freeFailures),
      freeOfUserAnywhere_(config.freeFailuresOfUser),
      freeOfAddress_(config.freeFailuresOfAddress),
      first_(std::chrono::milliseconds(config.firstDelayMilliseconds)),
      longest_(std::chrono::seconds(config.longestDelaySeconds)),
      forget_(std::chrono::minutes(config.forgetMinutes)),
      now_(now) {}

SignInDelays::Clock::duration SignInDelays::delayAfter(int failures, int free) const {
    if (failures < free) return {};
    const int doublings = std::min(failures - free, 20);
    return std::min(longest_, first_ * (1 << doublings));
}

/// What delays nobody goes first; a table that is full of what does takes the newcomers as one.
void SignInDelays::makeRoom(Table& table, Clock::time_point now, int free) const {
    std::erase_if(table, [&](const auto& entry) { return now - entry.second.last > forget_; });
    if (table.size() >= mostKeys) std::erase_if(table, [&](const auto& entry) { return entry.second.count <= free; });
}

SignInDelays::Failures& SignInDelays::find(Table& table, const std::string& key, Clock::time_point now,
                                           int free) const {
    if (!table.contains(key) && table.size() >= mostKeys) makeRoom(table, now, free);
    Failures& failures = table.contains(key) || table.size() < mostKeys ? table[key] : table["*"];
    if (now - failures.last > forget_) failures = {};
    return failures;
}

void SignInDelays::count(Failures& failures, Clock::time_point now, int free, Clock::duration most) const {
    ++failures.count;
    failures.last = now;
    failures.next = std::max(now, failures.next) + std::min(most, delayAfter(failures.count, free));
}

std::optional<SignInDelays::Clock::duration> SignInDelays::begin(const std::string& user, const std::string& address,
                                                                 bool known) {
    const auto now = now_();
    Failures& here = find(pairs_, pairOf(user, address), now, freeOfUser_);
    if (known) {
        const auto wait = std::clamp<Clock::duration>(here.next - now, Clock::duration{}, longest_);
        count(here, now, freeOfUser_, longestAtKnown);
        return wait;
    }
    Failures& anywhere = find(users_, keyOf(user), now, freeOfUserAnywhere_);
    const auto start = std::max({now, here.next, anywhere.next});
    if (start - now > longest_) return std::nullopt;
    count(here, now, freeOfUser_, longest_);
    count(anywhere, now, freeOfUserAnywhere_, longest_);
    return start - now;
}

std::optional<SignInDelays::Clock::duration> SignInDelays::failed(const std::string& address) {
    const auto now = now_();
    Failures& failures = find(addresses_, networkOf(address), now, freeOfAddress_);
    const auto wait = std::max(now, failures.next) - now;
    if (wait > longest_) return std::nullopt;
    count(failures, now, freeOfAddress_, longest_);
    return wait;
}

void SignInDelays::succeeded(const std::string& user, const std::string& address) {
    pairs_.erase(pairOf(user, address));
    const auto found = users_.find(keyOf(user));
    if (found == users_.end()) return;
    found->second.count = std::max(0, found->second.count - 1);
    if (found->second.count < freeOfUserAnywhere_) found->second.next = {};
}

bool SignInDelays::guesses(const std::string& address) const {
    const auto found = addresses_.find(networkOf(address));
    return found != addresses_.end() && found->second.count >= freeOfAddress_ && now_() - found->second.last <= forget_;
}

}  // namespace web
