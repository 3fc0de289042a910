#include "web/site.h"

#include <algorithm>
#include <charconv>
#include <nlohmann/json.hpp>

#include "web/config.h"
#include "web/log.h"
#include "web/staticfiles.h"

namespace web {

namespace {

constexpr const char* cookieName = "vorel_session";
constexpr std::size_t longestForm = 4096;

constexpr const char* securityHeaders[][2] = {
    {"Content-Security-Policy",
     "default-src 'self'; img-src 'self' data:; object-src 'none'; base-uri 'none'; form-action 'self'; "
     "frame-ancestors 'none'"},
    {"X-Content-Type-Options", "nosniff"},
    {"X-Frame-Options", "DENY"},
    // Not "no-referrer": browsers would then send forms with the origin "null".
    {"Referrer-Policy", "same-origin"},
    {"Cross-Origin-Opener-Policy", "same-origin"},
    {"Cross-Origin-Resource-Policy", "same-origin"},
};

void replaceAll(std::string& text, std::string_view what, const std::string& with) {
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
}

std::string trimmed(std::string text) {
    while (!text.empty() && text.back() == ' ') text.pop_back();
    while (!text.empty() && text.front() == ' ') text.erase(0, 1);
    return text;
}

}  // namespace

struct Site::Route {
    std::string_view method;
    std::string_view path;  ///< ending in "/": everything below it
    Handler handler;

    [[nodiscard]] bool fits(std::string_view requested) const {
        return path.size() > 1 && path.back() == '/' ? requested.starts_with(path) : requested == path;
    }
};

Site::Site(const Config& config, Sessions& sessions, Later later, SignInDelays::Now now)
    : config_(config), sessions_(sessions), later_(std::move(later)), delays_(config, now) {}

void Site::handle(const Request& request, const Answer& answer) {
    static constexpr Route routes[] = {
        {"GET", "/", &Site::home},
        {"GET", "/sign-in", &Site::showSignIn},
        {"POST", "/sign-in", &Site::signIn},
        {"POST", "/sign-out", &Site::signOut},
        {"GET", "/static/client/", &Site::clientFile},
        {"GET", "/static/bootstrap/", &Site::bootstrapFile},
        {"GET", "/static/chart/", &Site::chartFile},
        {"GET", "/layouts/", &Site::layout},
        {"GET", "/reports/", &Site::report},
        {"GET", "/program/", &Site::programFile},
        {"POST", "/upload", &Site::upload},
        {"GET", "/health", &Site::health},
    };
    const Answer secured = [answer](Response response) {
        for (const auto& [name, value] : securityHeaders) response.headers.emplace_back(name, value);
        answer(std::move(response));
    };
    const std::string_view method = request.method == "HEAD" ? "GET" : std::string_view(request.method);
    bool known = false;
    for (const Route& route : routes) {
        if (!route.fits(request.path)) continue;
        known = true;
        if (route.method != method) continue;
        if (method == "POST" && !sameOrigin(request)) return secured(plainText(403, "Not from a page of this host\n"));
        const auto rest = std::string_view(request.path).substr(std::min(route.path.size(), request.path.size()));
        return (this->*route.handler)(request, rest, secured);
    }
    secured(known ? plainText(405, "Method not allowed\n") : plainText(404, "Not found\n"));
}

std::size_t Site::longestBody(const Request& request) const {
    if (request.method != "POST") return 0;
    return request.path == "/upload" ? static_cast<std::size_t>(config_.longestUpload) : longestForm;
}

std::variant<std::shared_ptr<NurseSession>, Response> Site::admit(const Request& request) const {
    if (!sameOrigin(request)) return plainText(403, "Not from a page of this host\n");
    if (auto session = sessionOf(request)) return session;
    return plainText(401, "Not signed in\n");
}

std::shared_ptr<NurseSession> Site::sessionOf(const Request& request) const {
    return sessions_.find(request.cookie(cookieName));
}

/// Browsers say where a request comes from; a program that says nothing carries no nurse's cookie by accident.
bool Site::sameOrigin(const Request& request) const {
    const auto origin = request.header("origin");
    if (origin.empty()) {
        const auto site = request.header("sec-fetch-site");
        return site.empty() || site == "same-origin" || site == "none";
    }
    const std::string own = (request.secure ? "https://" : "http://") + std::string(request.header("host"));
    return origin == own || std::find(config_.origins.begin(), config_.origins.end(), origin) != config_.origins.end();
}

Response Site::signInPage(int status, const std::string& message, const std::string& user) const {
    auto html = readFile(std::filesystem::path(config_.webRoot) / "client" / "signin.html");
    if (!html) return plainText(500, "The sign-in page is missing\n");
    replaceAll(*html, "{{message}}", htmlEscaped(message));
    replaceAll(*html, "{{user}}", htmlEscaped(user));
    return page(status, std::move(*html));
}

/// Sets the session's cookie, or drops it where the token is empty.
Response Site::cookieRedirect(const Request& request, const std::string& token, const std::string& to) const {
    std::string cookie = std::string(cookieName) + "=" + token + "; Path=/; HttpOnly; SameSite=Strict";
    if (request.secure) cookie += "; Secure";
    if (token.empty()) cookie += "; Max-Age=0";
    Response response = redirect(to);
    response.headers.emplace_back("Set-Cookie", std::move(cookie));
    return response;
}

void Site::home(const Request& request, std::string_view, const Answer& answer) {
    if (!sessionOf(request)) return answer(redirect("/sign-in"));
    Response response = serveFile(std::filesystem::path(config_.webRoot) / "client", "index.html", request, "no-store");
    answer(std::move(response));
}

void Site::showSignIn(const Request& request, std::string_view, const Answer& answer) {
    answer(sessionOf(request) ? redirect("/") : signInPage(200, {}, {}));
}

void Site::signIn(const Request& request, std::string_view, const Answer& answer) {
    const Attempt attempt{trimmed(formField(request.body, "user")), formField(request.body, "password"),
                          request.address};
    if (attempt.user.empty() || attempt.password.empty())
        return answer(signInPage(401, "Enter your user name and your password.", attempt.user));
    const auto delay = delays_.begin(attempt.user, attempt.address);
    if (!delay) {
        log(Level::warning, "sign-in-slowed", {{"address", attempt.address}});
        return answer(signInPage(429, "Too many attempts. Wait a little and try again.", attempt.user));
    }
    later_.wait(std::chrono::ceil<std::chrono::milliseconds>(*delay), [this, request, attempt, answer] {
        later_.authenticate(attempt, [this, request, attempt, answer](const AuthResult& result) {
            signedIn(request, attempt, result, answer);
        });
    });
}

void Site::signedIn(const Request& request, const Attempt& attempt, const AuthResult& result, const Answer& answer) {
    using Outcome = AuthResult::Outcome;
    if (result.outcome == Outcome::refused) {
        log(Level::warning, "sign-in-refused", {{"address", attempt.address}});
        return answer(signInPage(401, "The user name or the password is not right.", attempt.user));
    }
    delays_.succeeded(attempt.user, attempt.address);
    if (result.outcome == Outcome::unavailable)
        return answer(signInPage(503, "Signing in is not possible at the moment. Try again later.", attempt.user));
    if (result.outcome == Outcome::notNurse)
        return answer(signInPage(403, "This account has no right to use the nursing module.", attempt.user));
    const std::string token = sessions_.open({result.user, attempt.address});
    if (token.empty())
        return answer(signInPage(503, "Too many people are signed in at the moment. Try again later.", attempt.user));
    sessions_.close(request.cookie(cookieName), "Signed in anew.");
    answer(cookieRedirect(request, token, "/"));
}

void Site::signOut(const Request& request, std::string_view, const Answer& answer) {
    sessions_.close(request.cookie(cookieName), "Signed out.");
    answer(cookieRedirect(request, {}, "/sign-in"));
}

void Site::clientFile(const Request& request, std::string_view rest, const Answer& answer) {
    answer(serveFile(std::filesystem::path(config_.webRoot) / "client", rest, request));
}

void Site::bootstrapFile(const Request& request, std::string_view rest, const Answer& answer) {
    answer(serveFile(config_.bootstrapRoot, rest, request, "max-age=86400"));
}

void Site::chartFile(const Request& request, std::string_view rest, const Answer& answer) {
    answer(serveFile(config_.chartRoot, rest, request, "max-age=86400"));
}

void Site::layout(const Request& request, std::string_view rest, const Answer& answer) {
    if (!rest.ends_with(".json")) return answer(plainText(404, "Not found\n"));
    answer(serveFile(std::filesystem::path(config_.webRoot) / "layouts", rest, request));
}

void Site::report(const Request& request, std::string_view rest, const Answer& answer) {
    const auto session = sessionOf(request);
    if (!session) return answer(redirect("/sign-in"));
    const bool csv = rest.ends_with(".csv");
    if (csv) rest.remove_suffix(4);
    std::uint64_t id = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), id);
    const bool number = error == std::errc{} && end == rest.data() + rest.size();
    const auto kept = number ? session->reports().find(id) : nullptr;
    if (!kept) return answer(plainText(404, "This report is no longer kept. Open it again from the menu.\n"));
    if (!csv) return answer(page(200, reportPage(*kept)));
    Response response{
        200, {{"Content-Type", "text/csv; charset=utf-8"}, {"Cache-Control", "no-store"}}, reportCsv(*kept)};
    const std::string name =
        isPlainPath(kept->name) && kept->name.find('/') == std::string::npos ? kept->name : "report";
    response.headers.emplace_back("Content-Disposition", "attachment; filename=\"" + name + ".csv\"");
    answer(std::move(response));
}

/// Of the program directory only the sounds are for the page.
void Site::programFile(const Request& request, std::string_view rest, const Answer& answer) {
    const auto session = sessionOf(request);
    if (!session) return answer(plainText(401, "Not signed in\n"));
    if (!rest.ends_with(".wav") || rest.find('/') != std::string_view::npos)
        return answer(plainText(404, "Not found\n"));
    answer(serveFile(session->programDirectory(), rest, request, "private, no-cache"));
}

void Site::upload(const Request& request, std::string_view, const Answer& answer) {
    const auto session = sessionOf(request);
    if (!session) return answer(json(401, R"({"error":"Not signed in"})"));
    if (session->programDirectory().empty())
        return answer(json(503, R"({"error":"The session is still starting: send the file again"})"));
    const std::string token = session->keepUpload(formField(request.query, "name"), request.body);
    if (token.empty()) return answer(json(500, R"({"error":"The file could not be kept"})"));
    answer(json(200, R"({"file":")" + token + "\"}"));
}

void Site::health(const Request&, std::string_view, const Answer& answer) {
    answer(json(200, R"({"status":"ok"})"));
}

}  // namespace web
