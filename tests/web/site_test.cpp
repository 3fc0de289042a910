// What the host answers, without a socket.

#include <gtest/gtest.h>

#include <numeric>
#include <set>

#include "tests/web/deflate.h"
#include "tests/web/site_fixture.h"
#include "web/proxies.h"
#include "web/site.h"
#include "web/staticfiles.h"

namespace {

using web::AuthResult;
using web::Request;
using web::Response;
using webtest::eventually;
using namespace std::chrono_literals;

web::SignInDelays::Clock::time_point now;

class SiteTest : public testing::Test {
protected:
    const std::string script = std::string(5000, 'x') + "\n";
    test::TemporaryDirectory root;
    web::Config config;
    std::vector<std::chrono::milliseconds> waits;
    web::Faults faults;
    std::optional<web::Sessions> sessions;
    std::optional<web::Site> site;

    void SetUp() override {
        web::setLogLevel(web::Level::off);
        root.write("client/index.html", "<p>home</p><script src=\"{{app.js}}\">");
        root.write("client/app.js", script);
        root.write("client/signin.html", "<p>{{message}}</p><input value=\"{{user}}\">");
        root.write("client/css/app.css", "p{}");
        root.write("layouts/frmTest.json", "{}");
        root.write("secret.txt", "secret");
        config.webRoot = root.path().string();
        config.layoutRoot = (root.path() / "layouts").string();
        config.origins = {"https://proxy.example"};
        sessions.emplace(config, &webtest::makeTestSeat);
        site.emplace(config, *sessions,
                     web::Site::Later{[this](std::chrono::milliseconds time, const std::function<void()>& then) {
                                          waits.push_back(time);
                                          then();
                                      },
                                      [](const web::Attempt& attempt, const auto& then) { then(check(attempt)); },
                                      [this](const auto& then) { then(faults); }},
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
    /// A request whose body follows; its page is of no origin that it tells.
    static Request post(const std::string& path, const std::string& cookie = {}) {
        Request request;
        request.method = "POST";
        request.path = path;
        request.headers["cookie"] = cookie;
        return request;
    }
    static Request signingIn(const std::string& user, const std::string& password) {
        Request request = post("/sign-in");
        request.body = "user=" + user + "&password=" + password;
        return request;
    }
    Response signIn(const std::string& user, const std::string& password, const std::string& address = "10.0.0.1") {
        Request request = signingIn(user, password);
        request.address = address;
        return ask(request);
    }
    std::string signedIn() { return cookieOf(signIn("nurse", "secret")); }

    /// Opens the page of a cookie's session, which makes these requests.
    void work(const std::string& cookie, std::initializer_list<const char*> requests) {
        const auto session = sessions->find(cookie.substr(cookie.find('=') + 1));
        const auto page = std::make_shared<webtest::TestPage>();
        session->attach(page);
        page->next();
        for (const char* request : requests) {
            EXPECT_TRUE(session->receive(*page, request));
            page->next();
        }
    }

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
    EXPECT_TRUE(get("/", cookie).body.starts_with("<p>home</p>"));
    EXPECT_TRUE(get("/", "other=1; " + cookie + "; more=2").body.starts_with("<p>home</p>"));
    EXPECT_EQ(headerOf(get("/sign-in", cookie), "Location"), "/");
    for (const char* path : {"/program/ring1.wav", "/pictures/1", "/reports/1", "/reports/1.csv"}) {
        EXPECT_NE(get(path).status, 200) << path;
        EXPECT_NE(get(path, "vorel_session=").status, 200) << path;
        EXPECT_NE(get(path, cookie + "0").status, 200) << path;
    }
    EXPECT_EQ(headerOf(ask(post("/sign-out", cookie)), "Location"), "/sign-in");
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

    Request secure = signingIn("nurse", "secret");
    secure.secure = true;
    const Response overTls = ask(secure);
    EXPECT_NE(headerOf(overTls, "Set-Cookie").find("; Secure"), std::string::npos);
    EXPECT_TRUE(headerOf(overTls, "Set-Cookie").starts_with("__Host-vorel_session="));
    Request home;
    home.secure = true;
    home.path = "/";
    home.headers["cookie"] = "vorel_session=" + cookieOf(overTls).substr(cookieOf(overTls).find('=') + 1);
    EXPECT_EQ(ask(home).status, 303) << "a cookie that a plain page could have set";
    home.headers["cookie"] = cookieOf(overTls);
    EXPECT_EQ(ask(home).status, 200);

    for (const bool tls : {false, true}) {
        Response answer;
        web::addSecurityHeaders(answer, tls);
        const std::string policy = headerOf(answer, "Content-Security-Policy");
        EXPECT_NE(policy.find("default-src 'self'"), std::string::npos);
        EXPECT_EQ(policy.find("unsafe"), std::string::npos);
        EXPECT_EQ(headerOf(answer, "X-Content-Type-Options"), "nosniff");
        EXPECT_EQ(headerOf(answer, "Strict-Transport-Security").empty(), !tls);
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
    work(cookie, {R"({"fire":"frmTest.cmdFile"})"});
    const struct {
        const char* header;
        const char* value;
        bool admitted;
    } cases[] = {{"origin", "http://vorel:8080", true},   {"origin", "https://proxy.example", true},
                 {"origin", "https://vorel:8080", false}, {"origin", "http://vorel:8081", false},
                 {"origin", "http://vorel.evil", false},  {"origin", "null", false},
                 {"sec-fetch-site", "cross-site", false}, {"sec-fetch-site", "same-site", false},
                 {"sec-fetch-site", "same-origin", true}, {"x-nothing", "", true}};
    // A browser always says where the page of a WebSocket comes from.
    for (const auto& row : cases) {
        Request request;
        request.headers = {{"host", "vorel:8080"}, {"cookie", cookie}, {row.header, row.value}};
        request.path = "/session";
        const auto admitted = site->admit(request);
        const bool says = row.header == std::string("origin");
        EXPECT_EQ(std::holds_alternative<std::shared_ptr<web::NurseSession>>(admitted), says && row.admitted)
            << row.value;
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
    root.write("client/css/app.css", "q{}");
    EXPECT_EQ(ask(request).body, "q{}");
    std::filesystem::remove(root.path() / "client/css/app.css");
    EXPECT_EQ(ask(request).status, 404);
}

TEST_F(SiteTest, WhatAPageNamesIsKeptForEverUnderAnAddressThatGoesWithTheContent) {
    const std::string cookie = signedIn();
    const auto named = [&] {
        const std::string html = get("/", cookie).body;
        const auto at = html.find("/static/client/app.js?v=");
        return html.substr(at, html.find('"', at) - at);
    };
    const auto caching = [&](const std::string& address) {
        Request request;
        request.path = address.substr(0, address.find('?'));
        request.query = address.substr(address.find('?') + 1);
        const Response answer = ask(request);
        EXPECT_EQ(answer.status, 200) << address;
        return headerOf(answer, "Cache-Control");
    };
    EXPECT_EQ(headerOf(get("/", cookie), "Cache-Control"), "no-store");
    const std::string first = named();
    EXPECT_EQ(caching(first), "public, max-age=31536000, immutable");
    root.write("client/app.js", "another");
    EXPECT_NE(named(), first);
    EXPECT_EQ(caching(named()), "public, max-age=31536000, immutable");
    for (const std::string& address : {first, std::string("/static/client/app.js?v="), named() + "&v="})
        EXPECT_EQ(caching(address), "no-cache") << address;
}

TEST_F(SiteTest, AFileIsCompressedAsTheBrowserTakesIt) {
    const struct {
        const char* accepts;
        const char* coding;
    } cases[] = {{"", ""},
                 {"gzip, deflate, br", "br"},
                 {"gzip", "gzip"},
                 {"GZip; Q=0.5", "gzip"},
                 {"br;q=0, gzip;q=1.0", "gzip"},
                 {"br; q=0.000,gzip ;q=0", ""},
                 {"*", "br"},
                 {"br;q=0, *", "gzip"},
                 {"*;q=0", ""},
                 {"gzip;q=0.001, *;q=0", "gzip"},
                 {"identity, deflate, x-gzip, zstd, b", ""},
                 {",,;q=0;,=,gzip;;x=y;", "gzip"}};
    std::map<std::string, std::string> tags;
    for (const auto& row : cases) {
        Request request;
        request.path = "/static/client/app.js";
        request.headers["accept-encoding"] = row.accepts;
        const Response answer = ask(request);
        EXPECT_EQ(headerOf(answer, "Content-Encoding"), row.coding) << row.accepts;
        EXPECT_EQ(headerOf(answer, "Vary"), "Accept-Encoding");
        EXPECT_EQ(answer.body.size() < 200, row.coding != std::string()) << row.accepts;
        if (row.coding == std::string("gzip")) {
            EXPECT_EQ(webtest::Inflater(webtest::Inflater::gzip)(answer.body), script);
        }
        request.headers["if-none-match"] = tags[row.coding] = headerOf(answer, "ETag");
        EXPECT_EQ(ask(request).status, 304) << row.accepts;
    }
    EXPECT_EQ(std::set({tags[""], tags["gzip"], tags["br"]}).size(), 3) << "each coding is another entity";
}

TEST_F(SiteTest, WhatHoldsASecretOrWasTypedIsNotCompressed) {
    const std::string cookie = signedIn();
    work(cookie, {R"({"fire":"frmTest.cmdReport"})"});
    for (const char* path : {"/", "/sign-in", "/reports/1", "/reports/1.csv", "/program/ring1.wav"}) {
        Request request;
        request.path = path;
        request.headers = {{"accept-encoding", "gzip, br"}};
        if (path != std::string("/sign-in")) request.headers["cookie"] = cookie;
        EXPECT_EQ(ask(request).status, 200) << path;
        EXPECT_EQ(headerOf(ask(request), "Content-Encoding"), "") << path;
    }
}

TEST_F(SiteTest, CopiesOfFilesAreBounded) {
    web::StaticFiles files(2 * script.size());
    Request request;
    request.headers["accept-encoding"] = "gzip";
    const Response answer = files.serve(root.path(), "client/app.js", request);
    EXPECT_EQ(answer.body, script);
    EXPECT_EQ(headerOf(answer, "Content-Encoding"), "");
}

TEST_F(SiteTest, ReportsArePagesAndFiles) {
    const std::string cookie = signedIn();
    work(cookie, {R"({"fire":"frmTest.cmdReport"})"});
    const std::string html = get("/reports/1", cookie).body;
    EXPECT_NE(html.find("<h1>A &lt;test&gt;</h1>"), std::string::npos);
    EXPECT_NE(html.find("General &amp; Co"), std::string::npos);
    EXPECT_NE(html.find("There is nothing to show."), std::string::npos);
    EXPECT_NE(headerOf(get("/reports/1.csv", cookie), "Content-Disposition").find("rptTest.csv"), std::string::npos);
    EXPECT_NE(get("/reports/1", signedIn()).status, 200) << "another session's report";
}

TEST_F(SiteTest, APictureIsForTheSessionThatShowsIt) {
    const std::string cookie = signedIn();
    work(cookie, {R"({"set":"frmTest.txtName","to":"3"})", R"({"fire":"frmTest.cmdPhoto"})"});
    const Response picture = get("/pictures/1", cookie);
    EXPECT_EQ(picture.body, "jjj");
    EXPECT_EQ(headerOf(picture, "Content-Type"), "image/jpeg");
    EXPECT_EQ(headerOf(picture, "Cache-Control"), "no-store");
    EXPECT_EQ(get("/pictures/1").status, 401);
    EXPECT_EQ(get("/pictures/1", signedIn()).status, 404) << "another session's";
    for (const char* path : {"/pictures/2", "/pictures/", "/pictures/0", "/pictures/1x", "/pictures/-1"})
        EXPECT_EQ(get(path, cookie).status, 404) << path;
    work(cookie, {R"({"set":"frmTest.txtName","to":"0"})", R"({"fire":"frmTest.cmdPhoto"})"});
    EXPECT_EQ(get("/pictures/1", cookie).status, 404) << "it shows no more";
}

/// One attempt after the other, each with the answer's status and how long it was held up.
class SlowedTest : public SiteTest {
protected:
    void SetUp() override {
        config.freeFailures = 2;
        config.freeFailuresOfUser = 6;
        config.freeFailuresOfAddress = 5;
        config.longestDelaySeconds = 3;
        config.mostSessionsOfUser = 100;
        config.knownPlaces = root.path() / "known";
        SiteTest::SetUp();
        now += 24h;
    }
    struct Tried {
        int status;
        std::chrono::milliseconds waited;
        bool operator==(const Tried&) const = default;
    };
    Tried tries(const std::string& user, const std::string& password, const std::string& address) {
        waits.clear();
        const int status = signIn(user, password, address).status;
        return {status, std::accumulate(waits.begin(), waits.end(), 0ms)};
    }
};

TEST_F(SlowedTest, FailuresOfAUserFromAnAddressSlowHerThereAndNowhereElse) {
    EXPECT_EQ(tries("nurse", "x", "a"), (Tried{401, 0ms}));
    EXPECT_EQ(tries("NURSE ", "x", "a"), (Tried{401, 0ms}));
    EXPECT_EQ(tries("nurse", "x", "a"), (Tried{401, 1000ms}));
    EXPECT_EQ(tries("nurse", "secret", "a"), (Tried{303, 3000ms})) << "1 s for the third, and 2 s more";
    EXPECT_EQ(tries("nurse", "x", "a"), (Tried{401, 0ms})) << "a success starts anew";
    for (int i = 0; i < 4; ++i) tries("other", "x", "b");
    EXPECT_EQ(tries("other", "x", "b").status, 429) << "longer than anybody waits: refused at once";
    EXPECT_EQ(tries("other", "secret", "c"), (Tried{303, 0ms})) << "elsewhere she is not locked out";
    now += 16min;
    EXPECT_EQ(tries("other", "x", "b"), (Tried{401, 0ms})) << "forgotten";
}

TEST_F(SlowedTest, MadeUpNamesSlowTheirAnswersAndNotTheNurseBesideThem) {
    for (int i = 0; i < 30; ++i) tries("made-up-" + std::to_string(i), "x", "a");
    EXPECT_EQ(tries("made-up-30", "x", "a").status, 429);
    EXPECT_EQ(tries("nurse", "secret", "a"), (Tried{303, 0ms}));
    EXPECT_EQ(tries("made-up-31", "x", "b"), (Tried{401, 0ms}));
}

TEST_F(SlowedTest, AGuessedNameIsSlowedEverywhereButWhereSheSignedInBefore) {
    EXPECT_EQ(tries("nurse", "secret", "ward"), (Tried{303, 0ms}));
    for (int i = 0; i < 12; ++i) tries("nurse", "x", "address-" + std::to_string(i));
    EXPECT_EQ(tries("nurse", "secret", "elsewhere").status, 429);
    EXPECT_EQ(tries("nurse", "secret", "ward"), (Tried{303, 0ms}));
    for (int i = 0; i < 50; ++i) tries("nurse", "x", "ward");
    EXPECT_EQ(tries("nurse", "secret", "ward"), (Tried{303, 3000ms})) << "slowed, and never refused";
    // The next run of the host knows it too, and the file names nobody.
    for (int i = 0; i < 12; ++i) tries("nurse", "x", "address-" + std::to_string(i));
    EXPECT_TRUE(web::KnownPlaces(config.knownPlaces).knows("NURSE", "ward"));
    EXPECT_FALSE(web::KnownPlaces(config.knownPlaces).knows("nurse", "elsewhere"));
    const auto kept = web::readFile(config.knownPlaces).value_or("nurse");
    EXPECT_EQ(kept.find("nurse"), std::string::npos);
    EXPECT_EQ(kept.find("ward"), std::string::npos);
}

TEST(SignInDelays, NamesWithoutEndFillNoMemoryAndFreeNobody) {
    web::Config config;
    config.freeFailures = 2;
    config.longestDelaySeconds = 3;
    web::SignInDelays delays(config, [] { return now; });
    for (int i = 0; i < 5; ++i) (void)delays.begin("nurse", "a", false);
    for (int i = 0; i < 25'000; ++i) (void)delays.begin("n" + std::to_string(i), "b", false);
    EXPECT_FALSE(delays.begin("nurse", "a", false));
}

TEST_F(SiteTest, AUserAtHerLimitMayEndHerOtherSessions) {
    config.mostSessionsOfUser = 1;
    const std::string first = signedIn();
    work(first, {});
    const Response full = signIn("nurse", "secret");
    EXPECT_EQ(full.status, 409);
    EXPECT_NE(full.body.find("End my other sessions"), std::string::npos);
    EXPECT_EQ(signIn("nurse", "wrong&others=end").status, 401);
    EXPECT_EQ(get("/", first).status, 200);
    EXPECT_EQ(signIn("nurse", "secret&others=end").status, 303);
    EXPECT_EQ(get("/", first).status, 303);
}

TEST_F(SiteTest, ABodyIsReadForWhoMaySendIt) {
    const auto admits = [&](const std::string& path, const std::string& cookie, const std::string& origin) {
        Request request = post(path, cookie);
        request.headers.insert({{"host", "vorel:8080"}, {"origin", origin}});
        return site->admitBody(request);
    };
    const auto statusOf = [](const auto& admitted) { return std::get<Response>(admitted).status; };
    const std::string cookie = signedIn();
    EXPECT_EQ(statusOf(admits("/upload", "", "http://vorel:8080")), 401);
    EXPECT_EQ(statusOf(admits("/upload", cookie, "http://evil")), 403);
    EXPECT_EQ(statusOf(admits("/upload", cookie, "http://vorel:8080")), 409) << "nobody asked for a file";
    work(cookie, {R"({"fire":"frmTest.cmdFile"})"});
    {
        const auto file = admits("/upload", cookie, "http://vorel:8080");
        EXPECT_EQ(std::get<web::Site::Body>(file).longest, 5U * 1024 * 1024);
        EXPECT_EQ(statusOf(admits("/upload", cookie, "http://vorel:8080")), 429) << "one at a time";
    }
    EXPECT_TRUE(std::holds_alternative<web::Site::Body>(admits("/upload", cookie, "http://vorel:8080")));
    EXPECT_EQ(std::get<web::Site::Body>(admits("/sign-in", "", "http://evil")).longest, 4096U);
}

TEST_F(SiteTest, HealthTellsTheTruth) {
    EXPECT_EQ(get("/health").status, 200);
    faults = {"disk", "Hospital"};
    EXPECT_EQ(get("/health").status, 503);
    EXPECT_EQ(get("/health").body, R"({"failing":["disk","Hospital"],"status":"failing"})");
}

TEST(Proxies, OnlyANamedOneSaysWhoTheWorkstationIs) {
    const struct {
        const char* peer;
        const char* forwarded;
        const char* address;
        bool secure;
    } cases[] = {
        {"10.0.0.9", "1.2.3.4", "10.0.0.9", false},
        {"10.0.0.1", "1.2.3.4", "1.2.3.4", true},
        {"10.0.0.1", "6.6.6.6, 1.2.3.4", "1.2.3.4", true},
        {"10.0.0.1", "1.2.3.4, 10.0.0.2", "1.2.3.4", true},
        {"10.0.0.1", "1.2.3.4,  ::ffff:10.0.0.2 ", "1.2.3.4", true},
        {"10.0.0.1", "10.0.0.2", "10.0.0.2", true},
        {"10.0.0.1", "1.2.3.4, nonsense", "10.0.0.1", true},
        {"10.0.0.1", "", "10.0.0.1", true},
        {"10.0.0.1", "2001:DB8:0::1", "2001:db8::1", true},
    };
    for (const auto& row : cases) {
        Request request;
        request.address = row.peer;
        request.headers["x-forwarded-for"] = row.forwarded;
        web::seeThroughProxies(request, {"10.0.0.1", "10.0.0.2"});
        EXPECT_EQ(request.address, row.address) << row.forwarded;
        EXPECT_EQ(request.secure, row.secure) << row.forwarded;
    }
}

}  // namespace
