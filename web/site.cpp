#include "web/site.h"

#include <algorithm>
#include <charconv>
#include <nlohmann/json.hpp>

#include "web/config.h"
#include "web/log.h"
#include "web/staticfiles.h"
#include "web/token.h"

namespace web {

namespace {

constexpr std::size_t longestForm = 4096;
constexpr const char* clientPath = "/static/client/";

/// Over TLS a cookie that no other host and no plain page can set.
const char* cookieName(const Request& request) {
    return request.secure ? "__Host-vorel_session" : "vorel_session";
}

/// A name as it may stand in a log: whoever types a password there by mistake should not find all of it.
std::string loggedName(const std::string& user) {
    constexpr std::size_t longest = 50;
    return user.substr(0, longest);
}

void replaceAll(std::string& text, std::string_view what, const std::string& with) {
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
}

/// The number that the text is, or 0, which nothing is kept under.
std::uint64_t numberIn(std::string_view text) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size() ? number : 0;
}

std::string textOf(const db::Bytes& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
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
    : config_(config),
      sessions_(sessions),
      later_(std::move(later)),
      delays_(config, now),
      known_(config.knownPlaces),
      client_(std::filesystem::path(config.webRoot) / "client") {}

void Site::handle(const Request& request, const Answer& answer) {
    static constexpr Route routes[] = {
        {"GET", "/", &Site::home},
        {"GET", "/sign-in", &Site::showSignIn},
        {"POST", "/sign-in", &Site::signIn},
        {"POST", "/sign-out", &Site::signOut},
        {"GET", clientPath, &Site::clientFile},
        {"GET", "/static/chart/", &Site::chartFile},
        {"GET", "/layouts/", &Site::layout},
        {"GET", "/reports/", &Site::report},
        {"GET", "/pictures/", &Site::picture},
        {"GET", "/program/", &Site::programFile},
        {"POST", "/upload", &Site::upload},
        {"GET", "/health", &Site::health},
    };
    const Answer logged = [answer, method = request.method, path = request.path.substr(0, 100),
                           address = request.address](Response response) {
        if (response.status == 401 || response.status == 403 || response.status == 429)
            logOften(Level::warning, "request-refused",
                     {{"status", std::to_string(response.status)},
                      {"method", method},
                      {"path", path},
                      {"address", address}});
        answer(std::move(response));
    };
    const std::string_view method = request.method == "HEAD" ? "GET" : std::string_view(request.method);
    bool known = false;
    for (const Route& route : routes) {
        if (!route.fits(request.path)) continue;
        known = true;
        if (route.method != method) continue;
        if (method == "POST" && !sameOrigin(request)) return logged(plainText(403, "Not from a page of this host\n"));
        const auto rest = std::string_view(request.path).substr(std::min(route.path.size(), request.path.size()));
        return (this->*route.handler)(request, rest, logged);
    }
    logged(known ? plainText(405, "Method not allowed\n") : plainText(404, "Not found\n"));
}

/// A file is read for a session only, and one at a time.
std::variant<Site::Body, Response> Site::admitBody(const Request& request) const {
    if (request.method != "POST") return Body{};
    if (request.path != "/upload") return Body{longestForm};
    if (!sameOrigin(request)) return plainText(403, "Not from a page of this host\n");
    const auto session = sessionOf(request);
    if (auto fault = uploadFault(session)) return std::move(*fault);
    auto turn = session->beginUpload();
    if (!turn) return json(429, R"({"error":"Another file is under way: send this one again"})");
    return Body{static_cast<std::size_t>(config_.longestUpload), std::move(turn)};
}

/// A page sends a file when its session has asked for one, and at no other time.
std::optional<Response> Site::uploadFault(const std::shared_ptr<NurseSession>& session) {
    if (!session) return json(401, R"({"error":"Not signed in"})");
    if (!session->asksForFile()) return json(409, R"({"error":"No file is asked for any more"})");
    return std::nullopt;
}

/// Browsers always say where the page of a WebSocket comes from.
std::variant<std::shared_ptr<NurseSession>, Response> Site::admit(const Request& request) const {
    if (request.header("origin").empty() || !sameOrigin(request))
        return plainText(403, "Not from a page of this host\n");
    if (auto session = sessionOf(request)) return session;
    return plainText(401, "Not signed in\n");
}

std::shared_ptr<NurseSession> Site::sessionOf(const Request& request) const {
    return sessions_.find(request.cookie(cookieName(request)));
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

std::string Site::clientAddress(const std::string& name) {
    return clientPath + name + files_.version(client_, name);
}

/// A page as it lies there, with the addresses of what it names: "{{app.js}}".
std::optional<std::string> Site::clientPage(const std::string& name) {
    auto html = readFile(client_ / name);
    if (!html) return std::nullopt;
    for (const char* file : {"icon.svg", "app.css", "app.js", "signin.css", "signin.js"})
        replaceAll(*html, "{{" + std::string(file) + "}}", clientAddress(file));
    return html;
}

/// Never compressed: it holds what was typed.
Response Site::signInPage(int status, const std::string& message, const std::string& user) {
    auto html = clientPage("signin.html");
    if (!html) return plainText(500, "The sign-in page is missing\n");
    replaceAll(*html, "{{host}}", runToken());
    replaceAll(*html, "{{message}}", htmlEscaped(message));
    replaceAll(*html, "{{user}}", htmlEscaped(user));
    return page(status, std::move(*html));
}

/// Sets the session's cookie, or drops it where the token is empty.
Response Site::cookieRedirect(const Request& request, const std::string& token, const std::string& to) const {
    std::string cookie = std::string(cookieName(request)) + "=" + token + "; Path=/; HttpOnly; SameSite=Strict";
    if (request.secure) cookie += "; Secure";
    if (token.empty()) cookie += "; Max-Age=0";
    Response response = redirect(to);
    response.headers.emplace_back("Set-Cookie", std::move(cookie));
    return response;
}

void Site::home(const Request& request, std::string_view, const Answer& answer) {
    if (!sessionOf(request)) return answer(redirect("/sign-in"));
    auto html = clientPage("index.html");
    answer(html ? page(200, std::move(*html)) : plainText(500, "The page is missing\n"));
}

void Site::showSignIn(const Request& request, std::string_view, const Answer& answer) {
    answer(sessionOf(request) ? redirect("/") : signInPage(200, {}, {}));
}

void Site::signIn(const Request& request, std::string_view, const Answer& answer) {
    Attempt attempt{trimmed(formField(request.body, "user")), formField(request.body, "password"), request.address};
    if (attempt.user.empty() || attempt.password.empty())
        return answer(signInPage(401, "Enter your user name and your password.", attempt.user));
    const auto delay = delays_.begin(attempt.user, attempt.address, known_.knows(attempt.user, attempt.address));
    if (!delay) {
        logOften(Level::warning, "sign-in-slowed", {{"user", loggedName(attempt.user)}, {"address", attempt.address}});
        return answer(signInPage(429, "Too many attempts. Wait a little and try again.", attempt.user));
    }
    attempt.guessing = delays_.guesses(attempt.address);
    later_.wait(std::chrono::ceil<std::chrono::milliseconds>(*delay), [this, request, attempt, answer] {
        later_.authenticate(attempt, [this, request, attempt, answer](const AuthResult& result) {
            checked(request, attempt, result, answer);
        });
    });
}

void Site::checked(const Request& request, const Attempt& attempt, const AuthResult& result, const Answer& answer) {
    using Outcome = AuthResult::Outcome;
    if (result.outcome == Outcome::refused) return refuseSignIn(attempt, answer);
    delays_.succeeded(attempt.user, attempt.address);
    if (result.outcome == Outcome::unavailable) {
        log(Level::error, "sign-in-unavailable", {{"address", attempt.address}});
        return answer(signInPage(503, "Signing in is not possible at the moment. Try again later.", attempt.user));
    }
    if (result.outcome == Outcome::notNurse) {
        log(Level::warning, "sign-in-without-right", {{"user", result.user}, {"address", attempt.address}});
        return answer(signInPage(403, "This account has no right to use the nursing module.", attempt.user));
    }
    if (known_.remember(result.user, attempt.address))
        log(Level::info, "sign-in-from-new-address", {{"user", result.user}, {"address", attempt.address}});
    openSession(request, attempt, result.user, answer);
}

/// Whoever guesses from an address waits longer and longer for a no, and nobody beside him waits for a yes.
void Site::refuseSignIn(const Attempt& attempt, const Answer& answer) {
    logOften(Level::warning, "sign-in-refused", {{"user", loggedName(attempt.user)}, {"address", attempt.address}});
    const auto delay = delays_.failed(attempt.address);
    if (!delay) return answer(signInPage(429, "Too many attempts. Wait a little and try again.", attempt.user));
    later_.wait(std::chrono::ceil<std::chrono::milliseconds>(*delay), [this, attempt, answer] {
        answer(signInPage(401, "The user name or the password is not right.", attempt.user));
    });
}

void Site::openSession(const Request& request, const Attempt& attempt, const std::string& user, const Answer& answer) {
    using Result = Sessions::Opened::Result;
    sessions_.close(request.cookie(cookieName(request)), "Signed in anew.");
    if (formField(request.body, "others") == "end") sessions_.closeOf(user, "You ended this session at another place.");
    const auto opened = sessions_.open({user, attempt.address});
    if (opened.result == Result::open) return answer(cookieRedirect(request, opened.token, "/"));
    log(Level::warning, "sign-in-full", {{"user", user}, {"address", attempt.address}});
    if (opened.result == Result::userFull)
        return answer(signInPage(409,
                                 "You are signed in at as many places as one may be. Sign off at one of them, or sign "
                                 "in again with \"End my other sessions\" ticked.",
                                 attempt.user));
    answer(signInPage(503, "Too many people are signed in at the moment. Try again later.", attempt.user));
}

void Site::signOut(const Request& request, std::string_view, const Answer& answer) {
    sessions_.close(request.cookie(cookieName(request)), "Signed out.");
    answer(cookieRedirect(request, {}, "/sign-in"));
}

void Site::clientFile(const Request& request, std::string_view rest, const Answer& answer) {
    answer(files_.serve(client_, rest, request));
}

void Site::chartFile(const Request& request, std::string_view rest, const Answer& answer) {
    answer(files_.serve(config_.chartRoot, rest, request, "max-age=86400"));
}

void Site::layout(const Request& request, std::string_view rest, const Answer& answer) {
    if (!rest.ends_with(".json")) return answer(plainText(404, "Not found\n"));
    answer(files_.serve(config_.layoutRoot, rest, request));
}

void Site::report(const Request& request, std::string_view rest, const Answer& answer) {
    const auto session = sessionOf(request);
    if (!session) return answer(redirect("/sign-in"));
    const bool csv = rest.ends_with(".csv");
    if (csv) rest.remove_suffix(4);
    const auto kept = session->reports().find(numberIn(rest));
    if (!kept) return answer(plainText(404, "This report is no longer kept. Open it again from the menu.\n"));
    if (!csv) return answer(page(200, reportPage(*kept, clientAddress("report.css"), clientAddress("report.js"))));
    Response response{
        200, {{"Content-Type", "text/csv; charset=utf-8"}, {"Cache-Control", "no-store"}}, reportCsv(*kept)};
    const std::string name =
        isPlainPath(kept->name) && kept->name.find('/') == std::string::npos ? kept->name : "report";
    response.headers.emplace_back("Content-Disposition", "attachment; filename=\"" + name + ".csv\"");
    answer(std::move(response));
}

/// A patient's photograph, for the session whose screen shows it and as long as it does.
void Site::picture(const Request& request, std::string_view rest, const Answer& answer) {
    const auto session = sessionOf(request);
    if (!session) return answer(plainText(401, "Not signed in\n"));
    const auto jpeg = session->pictures().find(numberIn(rest));
    if (!jpeg) return answer(plainText(404, "This picture is not shown any more\n"));
    answer({200, {{"Content-Type", "image/jpeg"}, {"Cache-Control", "no-store"}}, textOf(*jpeg)});
}

/// Of the program directory only the sounds are for the page.
void Site::programFile(const Request& request, std::string_view rest, const Answer& answer) {
    const auto session = sessionOf(request);
    if (!session) return answer(plainText(401, "Not signed in\n"));
    if (!rest.ends_with(".wav") || rest.find('/') != std::string_view::npos)
        return answer(plainText(404, "Not found\n"));
    answer(files_.serve(session->programDirectory(), rest, request, "private, no-cache"));
}

void Site::upload(const Request& request, std::string_view, const Answer& answer) {
    const auto session = sessionOf(request);
    if (auto fault = uploadFault(session)) return answer(std::move(*fault));
    const std::string token = session->keepUpload(formField(request.query, "name"), request.body);
    if (token.empty()) return answer(json(500, R"({"error":"The file could not be kept"})"));
    answer(json(200, R"({"file":")" + token + "\"}"));
}

void Site::health(const Request&, std::string_view, const Answer& answer) {
    later_.health([answer](const Faults& faults) {
        if (faults.empty()) return answer(json(200, R"({"status":"ok"})"));
        answer(json(503, nlohmann::json{{"status", "failing"}, {"failing", faults}}.dump()));
    });
}

}  // namespace web
