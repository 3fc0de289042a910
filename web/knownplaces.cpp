#include "web/knownplaces.h"

#include <openssl/evp.h>
#include <openssl/hmac.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <fstream>

#include "web/log.h"
#include "web/signindelays.h"
#include "web/token.h"

namespace web {

namespace {

constexpr std::int64_t daysKept = 183;
/// Far more than the workstations of a hospital and their nurses.
constexpr std::size_t mostEntries = 20'000;

std::int64_t today() {
    return std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now()).time_since_epoch().count();
}

}  // namespace

KnownPlaces::KnownPlaces(std::filesystem::path file) : file_(std::move(file)) {
    if (!file_.empty()) load();
    if (key_.empty()) key_ = randomToken();
}

void KnownPlaces::load() {
    std::ifstream stream(file_);
    std::string entry;
    Day day = 0;
    if (!(stream >> key_)) return;
    while (stream >> entry >> day)
        if (today() - day <= daysKept) lastDays_[entry] = day;
}

std::string KnownPlaces::entryOf(const std::string& user, const std::string& address) const {
    const std::string text = SignInDelays::keyOf(user) + '\n' + address;
    std::array<unsigned char, EVP_MAX_MD_SIZE> hash{};
    unsigned size = 0;
    HMAC(EVP_sha256(), key_.data(), static_cast<int>(key_.size()), reinterpret_cast<const unsigned char*>(text.data()),
         text.size(), hash.data(), &size);
    return hexadecimal({hash.data(), size});
}

bool KnownPlaces::knows(const std::string& user, const std::string& address) const {
    return lastDays_.contains(entryOf(user, address));
}

bool KnownPlaces::remember(const std::string& user, const std::string& address) {
    const auto entry = entryOf(user, address);
    const auto found = lastDays_.find(entry);
    const bool first = found == lastDays_.end();
    if (!first && found->second == today()) return false;
    if (first && lastDays_.size() >= mostEntries)
        lastDays_.erase(std::min_element(lastDays_.begin(), lastDays_.end(),
                                         [](const auto& a, const auto& b) { return a.second < b.second; }));
    lastDays_[entry] = today();
    write();
    return first;
}

/// Whole and then in the place of the old one: a kill leaves one of both.
void KnownPlaces::write() const {
    if (file_.empty()) return;
    auto fresh = file_;
    fresh += ".new";
    std::ofstream stream(fresh);
    stream << key_ << '\n';
    for (const auto& [entry, day] : lastDays_) stream << entry << ' ' << day << '\n';
    stream.close();
    std::error_code error;
    std::filesystem::permissions(fresh, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write,
                                 error);
    if (stream) std::filesystem::rename(fresh, file_, error);
    if (!stream || error) log(Level::error, "known-addresses-not-kept");
}

}  // namespace web
