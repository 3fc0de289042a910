#include "web/signindelays.h"

#include <algorithm>
#include <cctype>

#include "web/config.h"

namespace web {

namespace {

/// Names that somebody made up must not fill the memory: beyond this many, only the address counts.
constexpr std::size_t mostKeys = 10'000;

/// The name as the database compares it: without regard to case and to blanks behind it.
std::string keyOf(std::string user) {
    while (!user.empty() && user.back() == ' ') user.pop_back();
    for (char& c : user) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return user;
}

}  // namespace

SignInDelays::SignInDelays(const Config& config, Now now)
    : freeOfUser_(config.freeFailures),
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

void SignInDelays::forgetOld(Table& table, Clock::time_point now) const {
    std::erase_if(table, [&](const auto& entry) { return now - entry.second.last > forget_; });
}

SignInDelays::Failures* SignInDelays::find(Table& table, const std::string& key, Clock::time_point now) const {
    if (const auto found = table.find(key); found != table.end()) {
        if (now - found->second.last > forget_) found->second = {};
        return &found->second;
    }
    if (table.size() >= mostKeys) forgetOld(table, now);
    if (table.size() >= mostKeys) return nullptr;
    return &table[key];
}

std::optional<SignInDelays::Clock::duration> SignInDelays::begin(const std::string& user, const std::string& address) {
    const auto now = now_();
    Failures* const ofUser = find(users_, keyOf(user), now);
    Failures* const ofAddress = find(addresses_, address, now);
    auto start = now;
    if (ofUser != nullptr) start = std::max(start, ofUser->next);
    if (ofAddress != nullptr) start = std::max(start, ofAddress->next);
    if (start - now > longest_) return std::nullopt;
    const auto count = [&](Failures* failures, int free) {
        if (failures == nullptr) return;
        ++failures->count;
        failures->last = now;
        failures->next = std::max(now, failures->next) + delayAfter(failures->count, free);
    };
    count(ofUser, freeOfUser_);
    count(ofAddress, freeOfAddress_);
    return start - now;
}

void SignInDelays::succeeded(const std::string& user, const std::string& address) {
    users_.erase(keyOf(user));
    const auto found = addresses_.find(address);
    if (found == addresses_.end()) return;
    found->second.count = std::max(0, found->second.count - 1);
    if (found->second.count < freeOfAddress_) found->second.next = {};
}

}  // namespace web
