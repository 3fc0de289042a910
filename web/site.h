#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <variant>

#include "web/authenticate.h"
#include "web/health.h"
#include "web/http.h"
#include "web/knownplaces.h"
#include "web/sessions.h"
#include "web/signindelays.h"
#include "web/staticfiles.h"

namespace web {

struct Config;

/// What the host answers to each request. It knows no socket: the host calls it on its network thread, tests call it
/// directly.
class Site {
public:
    using Answer = std::function<void(Response)>;
    /// What takes time happens elsewhere, and its end comes back on the network thread.
    struct Later {
        std::function<void(std::chrono::milliseconds, std::function<void()>)> wait;
        std::function<void(const Attempt&, std::function<void(AuthResult)>)> authenticate;
        std::function<void(std::function<void(const Faults&)>)> health;
    };
    /// What a request may bring along.
    struct Body {
        std::size_t longest = 0;         ///< bytes
        std::shared_ptr<void> upload{};  ///< of a session's file: its turn, to be held while the file comes
    };

    Site(const Config& config, Sessions& sessions, Later later, SignInDelays::Now now = &SignInDelays::Clock::now);

    /// Answers now or later, once.
    void handle(const Request& request, const Answer& answer);
    /// Whether the request's body is read at all, and how much of it, by its head alone.
    [[nodiscard]] std::variant<Body, Response> admitBody(const Request& request) const;
    /// Whether the request may open a session's WebSocket: the session, or the refusal.
    [[nodiscard]] std::variant<std::shared_ptr<NurseSession>, Response> admit(const Request& request) const;

private:
    using Handler = void (Site::*)(const Request&, std::string_view rest, const Answer&);
    struct Route;
    [[nodiscard]] std::shared_ptr<NurseSession> sessionOf(const Request& request) const;
    [[nodiscard]] bool sameOrigin(const Request& request) const;
    [[nodiscard]] static std::optional<Response> uploadFault(const std::shared_ptr<NurseSession>& session);
    /// A file of the client by an address that changes with its content.
    [[nodiscard]] std::string clientAddress(const std::string& name);
    [[nodiscard]] std::optional<std::string> clientPage(const std::string& name);
    [[nodiscard]] Response signInPage(int status, const std::string& message, const std::string& user);
    [[nodiscard]] Response cookieRedirect(const Request& request, const std::string& token,
                                          const std::string& to) const;

    void home(const Request& request, std::string_view rest, const Answer& answer);
    void showSignIn(const Request& request, std::string_view rest, const Answer& answer);
    void signIn(const Request& request, std::string_view rest, const Answer& answer);
    void checked(const Request& request, const Attempt& attempt, const AuthResult& result, const Answer& answer);
    void refuseSignIn(const Attempt& attempt, const Answer& answer);
    void openSession(const Request& request, const Attempt& attempt, const std::string& user, const Answer& answer);
    void signOut(const Request& request, std::string_view rest, const Answer& answer);
    void clientFile(const Request& request, std::string_view rest, const Answer& answer);
    void chartFile(const Request& request, std::string_view rest, const Answer& answer);
    void layout(const Request& request, std::string_view rest, const Answer& answer);
    void report(const Request& request, std::string_view rest, const Answer& answer);
    void picture(const Request& request, std::string_view rest, const Answer& answer);
    void programFile(const Request& request, std::string_view rest, const Answer& answer);
    void upload(const Request& request, std::string_view rest, const Answer& answer);
    void health(const Request& request, std::string_view rest, const Answer& answer);

    const Config& config_;
    Sessions& sessions_;
    Later later_;
    SignInDelays delays_;
    KnownPlaces known_;
    StaticFiles files_;
    std::filesystem::path client_;  ///< the files of the page
};

}  // namespace web
