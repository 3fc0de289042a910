#include "web/sessions.h"

#include <algorithm>
#include <system_error>

#include "web/config.h"
#include "web/log.h"
#include "web/token.h"

namespace web {

Sessions::Opened Sessions::open(ui::SignedIn who) {
    using enum Opened::Result;
    tend();
    if (!makeRoomFor(who.user)) return {userFull};
    if (count() >= static_cast<std::size_t>(config_.mostSessions)) return {full};
    std::string token = randomToken();
    try {
        const auto session = std::make_shared<NurseSession>(config_, makeSeat_, std::move(who));
        byToken_.emplace(token, session);
        session->log(Level::info, "session-started");
    } catch (const std::system_error&) {  // no more threads
        log(Level::error, "no-thread", {{"sessions", std::to_string(count())}});
        return {full};
    }
    return {open, token};
}

/// The tokens of a user's sessions, the oldest first.
std::vector<std::string> Sessions::tokensOf(const std::string& user) const {
    std::vector<std::string> tokens;
    for (const auto& [token, session] : byToken_)
        if (session->who().user == user) tokens.push_back(token);
    std::sort(tokens.begin(), tokens.end(),
              [&](const auto& a, const auto& b) { return byToken_.at(a)->started() < byToken_.at(b)->started(); });
    return tokens;
}

bool Sessions::makeRoomFor(const std::string& user) {
    const auto tokens = tokensOf(user);
    if (tokens.size() < static_cast<std::size_t>(config_.mostSessionsOfUser)) return true;
    const auto away = std::find_if(tokens.begin(), tokens.end(), [&](const auto& token) {
        return byToken_.at(token)->abandoned() > NurseSession::Clock::duration::zero();
    });
    if (away == tokens.end()) return false;
    close(*away, "The session ended because you signed in at another place.");
    return true;
}

std::shared_ptr<NurseSession> Sessions::find(const std::string& token) const {
    const auto found = byToken_.find(token);
    if (found == byToken_.end() || found->second->ended()) return nullptr;
    return found->second;
}

void Sessions::close(const std::string& token, const std::string& reason) {
    const auto found = byToken_.find(token);
    if (found == byToken_.end()) return;
    found->second->end(reason);
    ending_.push_back(std::move(found->second));
    byToken_.erase(found);
}

std::set<std::string> Sessions::users() const {
    std::set<std::string> users;
    for (const auto& [token, session] : byToken_) users.insert(session->who().user);
    return users;
}

void Sessions::closeOf(const std::string& user, const std::string& reason) {
    for (const auto& token : tokensOf(user)) close(token, reason);
}

void Sessions::closeAll(const std::string& reason) {
    while (!byToken_.empty()) close(std::string(byToken_.begin()->first), reason);
}

void Sessions::tend() {
    const auto wait = std::chrono::minutes(config_.sessionWaitMinutes);
    std::vector<std::string> abandoned;
    for (const auto& [token, session] : byToken_) {
        if (session->ended() || session->abandoned() > wait) abandoned.push_back(token);
    }
    for (const auto& token : abandoned) close(token, "The session ended because its page was gone for too long.");
    std::erase_if(ending_, [](const auto& session) { return session->over(); });
}

}  // namespace web
