#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <unordered_map>

namespace web {

/// From which addresses each user has signed in before, kept in a file for the next run of the host. It names neither:
/// an entry is a keyed hash of both, under a key that the file begins with. What was not used for half a year is
/// forgotten. Works on one thread.
class KnownPlaces {
public:
    /// An empty path keeps nothing behind this run. A file that cannot be read counts as none.
    explicit KnownPlaces(std::filesystem::path file);

    [[nodiscard]] bool knows(const std::string& user, const std::string& address) const;
    /// Notes a sign-in; true where it is the first from there.
    bool remember(const std::string& user, const std::string& address);

private:
    using Day = std::int64_t;  ///< since 1970
    [[nodiscard]] std::string entryOf(const std::string& user, const std::string& address) const;
    void load();
    void write() const;

    std::filesystem::path file_;
    std::string key_;
    std::unordered_map<std::string, Day> lastDays_;  ///< by entry
};

}  // namespace web
