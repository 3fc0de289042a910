#include "web/sessions.h"

#include <system_error>

#include "web/config.h"
#include "web/log.h"
#include "web/token.h"

namespace web {

std::string Sessions::open(ui::SignedIn who) {
    tend();
    if (count() >= static_cast<std::size_t>(config_.mostSessions)) return {};
    log(Level::info, "session-started", {{"user", who.user}, {"address", who.workstation}});
    std::string token = randomToken();
    try {
        byToken_.emplace(token, std::make_shared<NurseSession>(config_, makeSeat_, std::move(who)));
    } catch (const std::system_error&) {  // no more threads
        log(Level::error, "no-thread", {{"sessions", std::to_string(count())}});
        return {};
    }
    return token;
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
