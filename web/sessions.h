#pragma once

#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "web/nursesession.h"

namespace web {

/// The sessions of the host by their cookies' tokens. Works on the network thread.
class Sessions {
public:
    Sessions(const Config& config, ui::MakeSeat makeSeat) : config_(config), makeSeat_(std::move(makeSeat)) {}

    struct Opened {
        enum class Result {
            open,
            full,      ///< the host has as many as it may
            userFull,  ///< the user has, and each has its page
        };
        Result result;
        std::string token = {};
    };
    /// Starts a session. Where its user has as many as one may, her oldest one whose page is away ends.
    Opened open(ui::SignedIn who);
    /// The living session of a token, or nothing.
    [[nodiscard]] std::shared_ptr<NurseSession> find(const std::string& token) const;
    /// Ends a session; its token is void at once.
    void close(const std::string& token, const std::string& reason);
    /// Whose sessions live, each once.
    [[nodiscard]] std::set<std::string> users() const;
    void closeOf(const std::string& user, const std::string& reason);
    void closeAll(const std::string& reason);

    /// Ends the sessions that waited too long for a page and forgets those that are over. To be called every second.
    void tend();
    /// Sessions that live or are just ending.
    [[nodiscard]] std::size_t count() const noexcept { return byToken_.size() + ending_.size(); }

private:
    [[nodiscard]] std::vector<std::string> tokensOf(const std::string& user) const;
    bool makeRoomFor(const std::string& user);

    const Config& config_;
    ui::MakeSeat makeSeat_;
    std::unordered_map<std::string, std::shared_ptr<NurseSession>> byToken_;
    std::vector<std::shared_ptr<NurseSession>> ending_;
};

}  // namespace web
