// What the host answers, without a socket.

#include <gtest/gtest.h>

#include "tests/web/site_fixture.h"
#include "web/site.h"

namespace {

using web::AuthResult;
using web::Request;
using web::Response;
using webtest::eventually;
using namespace std::chrono_literals;

web::SignInDelays::Clock::time_point now;

class SiteTest : public testing::Test {
protected:
    webtest::Directory root;
    web::Config config;
    std::vector<std::chrono::milliseconds> waits;
    std::optional<web::Sessions> sessions;
    std::optional<web::Site> site;

    void SetUp() override {
        web::setLogLevel(web::Level::off);
        root.write("client/index.html", "<p>home</p>");
        root.write("client/signin.html", "<p>{{message}}</p><input value=\"{{user}}\">");
        root.write("client/css/app.css", "p{}");
        root.write("layouts/frmTest.json", "{}");
        root.write("secret.txt", "secret");
        config.webRoot = root.path().string();
        config.origins = {"https://proxy.example"};
        sessions.emplace(config, &webtest::makeTestSeat);
        site.emplace(config, *sessions,
                     web::Site::Later{[this](std::chrono::milliseconds time, const std::function<void()>& then) {
                                          waits.push_back(time);
                                          then();
                                      },
                                      [](const web::Attempt& attempt, const auto& then) { then(check(attempt)); }},
                     [] { return now; });
    }
    void TearDown() override {
        sessions->closeAll({});
        EXPECT_TRUE(eventually([&] {
            sessions->tend();
            return sessions->count() == 0;
        }));
    }

    static AuthResult check(const web::Attempt& attempt) {
        using Outcome = AuthResult::Outcome;
        if (attempt.password != "secret") return {Outcome::refused};
        if (attempt.user == "clerk") return {Outcome::notNurse};
        if (attempt.user == "down") return {Outcome::unavailable};
        return {Outcome::accepted, "Nurse"};
    }

    Response ask(Request request) {
        request.headers.emplace("host", "vorel:8080");
        Response answer;
        answer.status = 0;
        site->handle(request, [&](Response response) { answer = std::move(response); });
        return answer;
    }
    Response get(const std::string& path, const std::string& cookie = {}) {
        Request request;
        request.path = path;
        if (!cookie.empty()) request.headers["cookie"] = cookie;
        return ask(request);
    }
    Response signIn(const std::string& user, const std::string& password, const std::string& address = "10.0.0.1") {
        Request request;
        request.method = "POST";
        request.path = "/sign-in";
        request.body = "user=" + user + "&password=" + password;
        request.address = address;
        return ask(request);
    }
    std::string signedIn() { return cookieOf(signIn("nurse", "secret")); }

    static std::string headerOf(const Response& response, const std::string& name) {
        for (const auto& [key, value] : response.headers)
            if (key == name) return value;
        return {};
    }
    /// "vorel_session=TOKEN"
    static std::string cookieOf(const Response& response) {
        const std::string cookie = headerOf(response, "Set-Cookie");
        return cookie.substr(0, cookie.find(';'));
    }
};

TEST_F(SiteTest, OnlyTheSignedInReachTheirSession) {
    EXPECT_EQ(headerOf(get("/"), "Location"), "/sign-in");
    EXPECT_EQ(get("/sign-in").body, "<p></p><input value=\"\">");
    const std::string cookie = signedIn();
    EXPECT_EQ(get("/", cookie).body, "<p>home</p>");
    EXPECT_EQ(get("/", "other=1; " + cookie + "; more=2").body, "<p>home</p>");
    EXPECT_EQ(headerOf(get("/sign-in", cookie), "Location"), "/");
    for (const char* path : {"/program/ring1.wav", "/reports/1", "/reports/1.csv"}) {
        EXPECT_NE(get(path).status, 200) << path;
        EXPECT_NE(get(path, "vorel_session=").status, 200) << path;
        EXPECT_NE(get(path, cookie + "0").status, 200) << path;
    }
    Request out;
    out.method = "POST";
    out.path = "/sign-out";
    out.headers["cookie"] = cookie;
    EXPECT_EQ(headerOf(ask(out), "Location"), "/sign-in");
    EXPECT_EQ(headerOf(get("/", cookie), "Location"), "/sign-in");
}

TEST_F(SiteTest, CookiesAndHeadersAreStrict) {
    const Response response = signIn("nurse", "secret");
    EXPECT_EQ(response.status, 303);
    const std::string cookie = headerOf(response, "Set-Cookie");
    for (const char* part : {"HttpOnly", "SameSite=Strict", "Path=/"})
        EXPECT_NE(cookie.find(part), std::string::npos) << part;
    EXPECT_EQ(cookie.find("Secure"), std::string::npos);
    EXPECT_EQ(cookieOf(response).size(), std::string("vorel_session=").size() + 64);
    EXPECT_NE(cookieOf(response), signedIn());

    Request secure;
    secure.method = "POST";
    secure.path = "/sign-in";
    secure.body = "user=nurse&password=secret";
    secure.secure = true;
    EXPECT_NE(headerOf(ask(secure), "Set-Cookie").find("; Secure"), std::string::npos);

    for (const char* path : {"/", "/sign-in", "/health", "/static/client/css/app.css", "/nothing"}) {
        const Response answer = get(path);
        const std::string policy = headerOf(answer, "Content-Security-Policy");
        EXPECT_NE(policy.find("default-src 'self'"), std::string::npos) << path;
        EXPECT_EQ(policy.find("unsafe"), std::string::npos) << path;
        EXPECT_EQ(headerOf(answer, "X-Content-Type-Options"), "nosniff") << path;
    }
}

TEST_F(SiteTest, WrongUserAndWrongPasswordAreToldInTheSameWords) {
    const Response unknown = signIn("stranger", "x");
    const Response wrong = signIn("nurse", "x");
    EXPECT_EQ(unknown.status, 401);
    EXPECT_EQ(wrong.status, 401);
    const auto upTo = [](const Response& response) { return response.body.substr(0, response.body.find("<input")); };
    EXPECT_EQ(upTo(unknown), upTo(wrong));
    EXPECT_EQ(signIn("clerk", "secret").status, 403);
    EXPECT_EQ(signIn("down", "secret").status, 503);
    EXPECT_EQ(signIn("", "").status, 401);
    const std::string hostile = signIn("%22%3E%3Cscript%3E{{user}}", "x").body;
    EXPECT_EQ(hostile.find("<script"), std::string::npos);
    EXPECT_NE(hostile.find("&quot;&gt;&lt;script&gt;"), std::string::npos);
}

TEST_F(SiteTest, ForeignPagesAreRefused) {
    const std::string cookie = signedIn();
    const auto session = sessions->find(cookie.substr(cookie.find('=') + 1));
    ASSERT_TRUE(eventually([&] { return !session->programDirectory().empty(); }));
    const struct {
        const char* header;
        const char* value;
        bool admitted;
    } cases[] = {{"origin", "http://vorel:8080", true},   {"origin", "https://proxy.example", true},
                 {"origin", "https://vorel:8080", false}, {"origin", "http://vorel:8081", false},
                 {"origin", "http://vorel.evil", false},  {"origin", "null", false},
                 {"sec-fetch-site", "cross-site", false}, {"sec-fetch-site", "same-site", false},
                 {"sec-fetch-site", "same-origin", true}, {"x-nothing", "", true}};
    for (const auto& row : cases) {
        Request request;
        request.headers = {{"host", "vorel:8080"}, {"cookie", cookie}, {row.header, row.value}};
        request.path = "/session";
        const auto admitted = site->admit(request);
        EXPECT_EQ(std::holds_alternative<std::shared_ptr<web::NurseSession>>(admitted), row.admitted) << row.value;
        request.method = "POST";
        request.path = "/upload";
        EXPECT_EQ(ask(request).status, row.admitted ? 200 : 403) << row.value;
    }
    Request stranger;
    stranger.headers = {{"host", "vorel:8080"}, {"origin", "http://vorel:8080"}};
    EXPECT_EQ(std::get<Response>(site->admit(stranger)).status, 401);
}

TEST_F(SiteTest, NoPathLeadsOutOfTheDirectories) {
    EXPECT_EQ(get("/static/client/css/app.css").body, "p{}");
    EXPECT_EQ(get("/layouts/frmTest.json").body, "{}");
    const std::string cookie = signedIn();
    EXPECT_TRUE(eventually([&] { return get("/program/ring1.wav", cookie).body == "RIFF"; }));
    for (const char* path : {"/static/client/../secret.txt",
                             "/static/client/..%2fsecret.txt",
                             "/static/client/%2e%2e/secret.txt",
                             "/static/client//etc/passwd",
                             "/static/client/css/../../secret.txt",
                             "/static/client/css",
                             "/static/client/",
                             "/static/client/css/app.css/",
                             "/static/client/.hidden",
                             "/layouts/../secret.txt",
                             "/layouts/frmTest",
                             "/program/sysdoc.sys",
                             "/program/../x.wav",
                             "/program/uploads/x.wav",
                             "/static/client/css\\app.css",
                             "//",
                             "/.",
                             "/reports/1",
                             "/reports/x",
                             "/reports/99999999999999999999"})
        EXPECT_EQ(get(path, cookie).status, 404) << path;
    EXPECT_EQ(get("/upload", cookie).status, 405);
}

TEST_F(SiteTest, FilesAreSentAgainOnlyWhenTheyChanged) {
    Request request;
    request.path = "/static/client/css/app.css";
    request.headers["if-none-match"] = headerOf(ask(request), "ETag");
    EXPECT_EQ(ask(request).status, 304);
    root.write("client/css/app.css", "p{color:red}");
    EXPECT_EQ(ask(request).status, 200);
}

TEST_F(SiteTest, ReportsArePagesAndFiles) {
    const std::string cookie = signedIn();
    const auto session = sessions->find(cookie.substr(cookie.find('=') + 1));
    const auto page = std::make_shared<webtest::TestPage>();
    session->attach(page);
    page->next();
    ASSERT_TRUE(session->receive(*page, R"({"fire":"frmTest.cmdReport"})"));
    page->next();
    const std::string html = get("/reports/1", cookie).body;
    EXPECT_NE(html.find("<h1>A &lt;test&gt;</h1>"), std::string::npos);
    EXPECT_NE(html.find("General &amp; Co"), std::string::npos);
    EXPECT_NE(html.find("There is nothing to show."), std::string::npos);
    EXPECT_NE(headerOf(get("/reports/1.csv", cookie), "Content-Disposition").find("rptTest.csv"), std::string::npos);
    EXPECT_NE(get("/reports/1", signedIn()).status, 200) << "another session's report";
}

TEST_F(SiteTest, FailuresSlowTheUserAndTheAddressAndNobodyElse) {
    config.freeFailures = 2;
    config.firstDelayMilliseconds = 1000;
    config.longestDelaySeconds = 3;
    TearDown();
    SetUp();
    const auto waitOf = [&](const std::string& user, const std::string& password, const std::string& address) {
        signIn(user, password, address);
        return waits.back();
    };
    EXPECT_EQ(waitOf("nurse", "x", "a"), 0ms);
    EXPECT_EQ(waitOf("NURSE", "x", "b"), 0ms);
    EXPECT_EQ(waitOf("nurse", "x", "c"), 1000ms) << "counted by user, whatever the letter case and the address";
    EXPECT_EQ(waitOf("other", "x", "c"), 0ms);
    EXPECT_EQ(waitOf("nurse", "x", "d"), 3000ms) << "1 s for the third, and 2 s more";
    const auto served = waits.size();
    EXPECT_EQ(signIn("nurse", "secret", "d").status, 429);
    EXPECT_EQ(waits.size(), served) << "refused at once";
    now += 6s;
    EXPECT_EQ(waitOf("nurse", "secret", "d"), 0ms);
    EXPECT_EQ(waitOf("nurse", "x", "d"), 0ms) << "a success starts anew";
    waitOf("nurse", "x", "d");
    now += 16min;
    EXPECT_EQ(waitOf("nurse", "x", "d"), 0ms) << "forgotten";

    now += 16min;
    for (int i = 0; i < 20; ++i) waitOf("user" + std::to_string(i), "x", "guesser");
    EXPECT_EQ(waitOf("user20", "x", "guesser"), 1000ms) << "counted by address";
    EXPECT_EQ(waitOf("user21", "x", "elsewhere"), 0ms);
}

}  // namespace
