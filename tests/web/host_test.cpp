// A running host on a port of its own, and clients that behave well and badly.

#include <gtest/gtest.h>
#include <openssl/pem.h>
#include <sys/resource.h>

#include <atomic>

#include "tests/web/deflate.h"
#include "tests/web/rawclient.h"
#include "tests/web/site_fixture.h"
#include "web/host.h"

namespace {

using nlohmann::json;
using webtest::RawClient;

web::AuthResult check(const web::Attempt& attempt) {
    if (attempt.password == "throw") throw std::runtime_error("no database");
    if (attempt.password != "secret") return {};
    return {web::AuthResult::Outcome::accepted, attempt.user};
}

web::Services services() {
    return {&check, [](const std::string&) { return true; }, [] { return web::Faults{}; }};
}

web::Config testConfig(int connections = 1000) {
    web::setLogLevel(web::Level::off);
    web::Config config;
    config.port = 0;
    config.longestUpload = 5000;
    config.mostConnections = connections;
    config.mostSessionsOfUser = 100;
    return config;
}

class HostTest : public testing::Test {
protected:
    explicit HostTest(int connections = 1000) : host(testConfig(connections), services(), &webtest::makeTestSeat) {}
    web::Host host;
    std::thread thread{[this] { host.run(); }};

    ~HostTest() override {
        host.stop();
        thread.join();
    }

    std::string signIn() {
        RawClient client(host.port());
        const std::string answer = client.ask(post("/sign-in"), "user=nurse&password=secret");
        const auto at = answer.find("vorel_session=");
        return at == std::string::npos ? std::string() : answer.substr(at, answer.find(';', at) - at);
    }
    static std::string post(const std::string& path, const std::string& more = {}) {
        return "POST " + path + " HTTP/1.1\r\nHost: vorel\r\nOrigin: http://vorel\r\n" + more;
    }
    /// A client with the session's WebSocket and its greeting read.
    std::unique_ptr<RawClient> open(const std::string& cookie) {
        auto client = std::make_unique<RawClient>(host.port());
        EXPECT_NE(client->upgrade(cookie, "http://vorel").find("101 "), std::string::npos);
        greeting = json::parse(client->readFrame());
        return client;
    }
    static json send(RawClient& client, const std::string& content, unsigned char kind = RawClient::text) {
        client.sendFrame(kind, content);
        return json::parse(client.readFrame(), nullptr, false);
    }

    json greeting;
};

TEST_F(HostTest, ANurseSignsInAndWorks) {
    const std::string cookie = signIn();
    ASSERT_NE(cookie, "");
    const auto client = open(cookie);
    EXPECT_EQ(greeting["snapshot"]["active"], "frmTest");
    EXPECT_EQ(greeting["received"], 0);
    const auto reply = send(*client, R"({"fire":"frmTest.cmdAsk"})");
    EXPECT_EQ(reply["reply"], 1);
    EXPECT_EQ(reply["waiting"]["text"], "Sure?");
    EXPECT_TRUE(send(*client, R"({"answer":"yes"})")["waiting"].is_null());
    const auto end = send(*client, R"({"fire":"frmTest.cmdExit"})");
    EXPECT_EQ(end["events"].back()["ended"], "Good bye");
    EXPECT_EQ(client->readFrame(), "");
    EXPECT_EQ(client->closeCode, 1000);
    EXPECT_NE(RawClient(host.port()).upgrade(cookie, "http://vorel").find("401 "), std::string::npos);
}

TEST_F(HostTest, TheWebSocketIsForTheSignedInFromItsOwnPages) {
    const std::string cookie = signIn();
    EXPECT_NE(RawClient(host.port()).upgrade(cookie, "http://evil").find("403 "), std::string::npos);
    EXPECT_NE(RawClient(host.port()).upgrade("vorel_session=0", "http://vorel").find("401 "), std::string::npos);
    EXPECT_NE(RawClient(host.port()).ask("GET /session HTTP/1.1\r\nHost: vorel\r\n").find("404 "), std::string::npos);
}

TEST_F(HostTest, BadFramesAreAnsweredAndTheSessionGoesOn) {
    const auto client = open(signIn());
    const struct {
        const char* name;
        unsigned char kind;
        std::string content;
    } cases[] = {{"no JSON", RawClient::text, "{"},
                 {"no UTF-8", RawClient::binary, "{\"get\":\"\xff\xfe\"}"},
                 {"10 MB", RawClient::text, std::string(10 << 20, 'x')},
                 {"just too long", RawClient::text, std::string((1 << 20) + 1, ' ')},
                 {"unknown control", RawClient::text, R"({"fire":"frmTest.nothing"})"}};
    int number = 0;
    for (const auto& row : cases) {
        const auto reply = send(*client, row.content, row.kind);
        ASSERT_FALSE(reply.is_discarded()) << row.name;
        EXPECT_EQ(reply["reply"], ++number) << row.name;
        EXPECT_TRUE(reply["events"].back().contains("error")) << row.name;
    }
    EXPECT_EQ(send(*client, R"({"get":"frmTest.txtName"})")["state"]["text"], "");
}

/// A page whose browser compresses.
class CompressingPage {
public:
    CompressingPage(int port, const std::string& cookie, const std::string& parameters = "; client_max_window_bits")
        : client_(port) {
        answer = client_.upgrade(cookie, "http://vorel",
                                 "Sec-WebSocket-Extensions: permessage-deflate" + parameters + "\r\n");
    }
    /// The next line; discarded where the connection ends.
    json read() {
        std::string content;
        sent = 0;
        wasCompressed = false;
        do {
            const std::string frame = client_.readFrame();
            if (frame.empty()) return json(json::value_t::discarded);
            wasCompressed |= (client_.frameHead & RawClient::compressed) != 0;
            sent += frame.size();
            content += frame;
        } while ((client_.frameHead & RawClient::last) == 0);
        return json::parse(wasCompressed ? inflate_(content + std::string("\0\0\xff\xff", 4)) : content);
    }
    json send(const std::string& text) { return sendBytes(webtest::deflated(text)); }
    json sendBytes(const std::string& bytes) {
        client_.sendFrame(RawClient::text | RawClient::compressed, bytes);
        return read();
    }

    std::string answer;          ///< to the handshake
    std::size_t sent = 0;        ///< bytes of the last line as it came
    bool wasCompressed = false;  ///< the last line

private:
    RawClient client_;
    webtest::Inflater inflate_{webtest::Inflater::raw};
};

TEST_F(HostTest, LongLinesAreCompressedForAPageThatOffersIt) {
    CompressingPage page(host.port(), signIn());
    EXPECT_NE(page.answer.find("server_max_window_bits=12; client_max_window_bits=10\r\n"), std::string::npos)
        << page.answer;
    const json first = page.read();
    EXPECT_EQ(first["snapshot"]["active"], "frmTest");
    EXPECT_TRUE(page.wasCompressed);
    EXPECT_LT(page.sent, first.dump().size() / 2);
    const std::string name(100'000, 'n');
    EXPECT_EQ(page.send(json{{"set", "frmTest.txtName"}, {"to", name}}.dump())["reply"], 1);
    EXPECT_FALSE(page.wasCompressed) << "shorter than a packet";
    EXPECT_EQ(page.send(R"({"get":"frmTest.txtName"})")["state"]["text"], name);
    EXPECT_LT(page.sent, 2000U);
    CompressingPage other(host.port(), signIn(), "");
    EXPECT_NE(other.answer.find("permessage-deflate"), std::string::npos) << "a browser that cannot be told its window";
    EXPECT_EQ(other.read()["received"], 0);
    EXPECT_EQ(RawClient(host.port()).upgrade(signIn(), "http://vorel").find("permessage-deflate"), std::string::npos);
}

TEST_F(HostTest, AFewBytesThatStandForManyCostTheirConnectionAndNoMemory) {
    const std::string cookie = signIn();
    const auto mostMemory = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss;  // KiB
    };
    const std::string tooLong = webtest::deflated(std::string(1 << 20, ' '), 10);
    const std::string endless = webtest::deflated(std::string(1 << 20, ' '), 200);
    const auto before = mostMemory();
    {
        CompressingPage page(host.port(), cookie);
        page.read();
        const auto reply = page.sendBytes(tooLong);
        EXPECT_EQ(reply["reply"], 1);
        EXPECT_TRUE(reply["events"].back().contains("error")) << "too long, and answered as any other";
        EXPECT_EQ(page.send(R"({"set":"frmTest.txtName","to":"Ada"})")["reply"], 2);
        EXPECT_TRUE(page.sendBytes(endless).is_discarded());
    }
    {
        CompressingPage page(host.port(), cookie);
        EXPECT_EQ(page.read()["received"], 2);
        EXPECT_TRUE(page.sendBytes("\xff\xff\xff no deflate").is_discarded());
    }
    EXPECT_LT(mostMemory() - before, 64 * 1024);
    open(cookie);
    EXPECT_EQ(greeting["snapshot"]["screens"][0]["controls"]["txtName"]["text"], "Ada");
}

TEST_F(HostTest, ATextFrameThatIsNoTextCostsTheConnectionAndNotTheSession) {
    const std::string cookie = signIn();
    {
        const auto client = open(cookie);
        send(*client, R"({"set":"frmTest.txtName","to":"Ada"})");
        client->sendFrame(RawClient::text, "\xff");
        EXPECT_EQ(client->readFrame(), "");
        EXPECT_EQ(client->closeCode, 1007);
    }
    const auto again = open(cookie);
    EXPECT_EQ(greeting["received"], 1);
    EXPECT_EQ(send(*again, R"({"get":"frmTest.txtName"})")["state"]["text"], "Ada");
}

TEST_F(HostTest, APageThatDoesNotReadIsLetGoAndTheSessionStays) {
    const std::string cookie = signIn();
    const auto client = open(cookie);
    const std::string longName(100'000, 'n');
    client->sendFrame(RawClient::text, json{{"set", "frmTest.txtName"}, {"to", longName}}.dump());
    // More than the queue and the system's buffers hold; the connection breaks while the answers pile up.
    const std::string get = R"({"get":"frmTest.txtName"})";
    for (int i = 0; i < 400; ++i) client->sendFrame(RawClient::text, get);
    EXPECT_TRUE(webtest::eventually([&] { return !client->sendFrame(RawClient::pong, {}); }));
    const auto again = open(cookie);
    EXPECT_GT(greeting["received"], 1);
    EXPECT_EQ(greeting["snapshot"]["screens"][0]["controls"]["txtName"]["text"], longName);
}

TEST_F(HostTest, RequestsThatAreTooLargeOrBrokenAreRefused) {
    const std::string session = signIn();
    const auto page = open(session);
    send(*page, R"({"fire":"frmTest.cmdFile"})");  // files are for a session that asks for one
    const std::string cookie = "Cookie: " + session + "\r\n";
    const auto status = [&](const std::string& head, const std::string& body = {}) {
        return RawClient(host.port()).ask(head, body).substr(9, 3);
    };
    EXPECT_EQ(status(post("/upload?name=a.jpg", cookie), std::string(5000, 'x')), "200");
    EXPECT_EQ(status(post("/upload?name=a.jpg", cookie), std::string(5001, 'x')), "413");
    EXPECT_EQ(status(post("/sign-in"), "user=" + std::string(5000, 'x')), "413");
    EXPECT_EQ(status(post("/sign-in", "Transfer-Encoding: chunked\r\n") + "\r\n2000\r\n" + std::string(0x2000, 'x')),
              "413");
    EXPECT_EQ(status(post("/upload?name=a.jpg"), std::string(5000, 'x')), "401");
    EXPECT_EQ(status("GET /" + std::string(20'000, 'x') + " HTTP/1.1\r\nHost: vorel\r\n"), "400");
    EXPECT_EQ(status("nonsense\r\n"), "400");
    EXPECT_EQ(status(post("/sign-in"), "user=nurse&password=throw"), "503");
    EXPECT_EQ(status("GET /health HTTP/1.1\r\nHost: vorel\r\n"), "200");
    EXPECT_EQ(status("GET /static/client/../config.h HTTP/1.1\r\nHost: vorel\r\n"), "404");
    EXPECT_EQ(status("DELETE / HTTP/1.1\r\nHost: vorel\r\n"), "405");
}

TEST_F(HostTest, AMessageThatTwoReadersCouldReadDifferentlyIsRefused) {
    const std::string smuggled = "0\r\n\r\nGET /health HTTP/1.1\r\nHost: vorel\r\n\r\n";
    const std::string head = "POST /sign-in HTTP/1.1\r\nOrigin: http://vorel\r\n";
    const struct {
        const char* headers;
        const char* status;
    } cases[] = {
        {"Host: vorel\r\nTransfer-Encoding: gzip\r\n", "501"},
        {"Host: vorel\r\nTransfer-Encoding: chunked, identity\r\n", "501"},
        {"Host: vorel\r\nTransfer-Encoding: gzip, chunked\r\n", "501"},
        {"Host: vorel\r\nTransfer-Encoding: chunked\r\nTransfer-Encoding: chunked\r\n", "400"},
        {"Host: vorel\r\nTE: gzip\r\n", "501"},
        {"Host: vorel\r\nTransfer-Encoding: chunked\r\nContent-Length: 5\r\n", "400"},
        {"Host: vorel\r\nContent-Length: 5\r\nContent-Length: 6\r\n", "400"},
        {"Host: vorel\r\nHost: vorel\r\nContent-Length: 0\r\n", "400"},
        {"Host:\r\nContent-Length: 0\r\n", "400"},
        {"Content-Length: 0\r\n", "400"},
        {"Host: vorel\r\nContent-Length: 5\r\nExpect: a-miracle\r\n", "417"},
    };
    for (const auto& row : cases) {
        RawClient client(host.port());
        client.write(head + row.headers + "\r\n" + smuggled);
        const std::string all = client.readAll();
        EXPECT_EQ(all.substr(9, 3), row.status) << row.headers;
        EXPECT_EQ(all.find("HTTP/1.1", 1), std::string::npos)
            << "one answer, and the connection closed: " << row.headers;
    }
}

TEST_F(HostTest, ChunkedBodiesCountEachByteOfTheirFraming) {
    const std::string head = post("/sign-in", "Transfer-Encoding: chunked\r\n") + "\r\n";
    const std::string form = "user=nurse&password=secret";
    RawClient whole(host.port());
    EXPECT_EQ(whole.ask(head + "1a;note=\"fine\"\r\n" + form + "\r\n0\r\nTrailer: fine\r\n").substr(9, 3), "303");
    const std::string long64K(65536, 'x');
    const auto times = [](int count, const std::string& text) {
        std::string all;
        for (int i = 0; i < count; ++i) all += text;
        return all;
    };
    const std::pair<const char*, std::string> endless[] = {
        {"extension", "1;" + long64K},
        {"trailer", "0\r\nX: " + long64K},
        {"trailers", "0\r\n" + times(5000, "X: 123456\r\n")},
        {"extensions", times(20, "1;" + std::string(1000, 'x') + "\r\nu\r\n")},
        {"size", "FFFFFFFFFFFFFFFF\r\n" + long64K},
        {"size without an end", long64K},
    };
    for (const auto& [name, body] : endless) {
        RawClient client(host.port());
        client.write(head + body);
        const std::string status = client.readAll().substr(0, 12);
        EXPECT_TRUE(status == "HTTP/1.1 413" || status == "HTTP/1.1 400") << name << ": " << status;
    }
}

TEST_F(HostTest, WhoWaitsForPermissionToSendGetsIt) {
    RawClient client(host.port());
    const std::string form = "user=nurse&password=secret";
    client.write(post("/sign-in", "Expect: 100-continue\r\nContent-Length: 26\r\n") + "\r\n");
    EXPECT_EQ(client.readUntil("\r\n\r\n"), "HTTP/1.1 100 Continue\r\n\r\n");
    client.write(form);
    EXPECT_EQ(client.readUntil("\r\n").substr(9, 3), "303");
    RawClient stranger(host.port());
    stranger.write(post("/upload", "Expect: 100-continue\r\nContent-Length: 5000\r\n") + "\r\n");
    EXPECT_EQ(stranger.readUntil("\r\n").substr(9, 3), "401") << "before the body";
}

/// A host that takes ten connections.
class SmallHostTest : public HostTest {
protected:
    SmallHostTest() : HostTest(10) {}
};

TEST_F(SmallHostTest, WhoSaysNothingMakesRoomForWhoDoes) {
    const std::string cookie = signIn();
    const auto page = open(cookie);
    std::vector<std::unique_ptr<RawClient>> silent;
    for (int i = 0; i < 25; ++i) {
        silent.push_back(std::make_unique<RawClient>(host.port()));
        silent.back()->write("GET / HTTP/1.1\r\nHo");
    }
    EXPECT_NE(signIn(), "");
    EXPECT_EQ(send(*page, R"({"get":"frmTest.txtName"})")["reply"], 1) << "a page stays";
    EXPECT_EQ(silent.front()->readAll(), "") << "the one that had waited longest";
    EXPECT_EQ(silent.back()->ask("st: vorel\r\n").substr(9, 3), "303");
}

TEST_F(HostTest, ASlowedSignInKeepsNobodyElseWaiting) {
    for (int i = 0; i < 3; ++i)
        EXPECT_NE(RawClient(host.port()).ask(post("/sign-in"), "user=guessed&password=x").find("401 "),
                  std::string::npos);
    std::string slowed;
    std::atomic<bool> answered = false;
    std::thread guesser([&] {
        slowed = RawClient(host.port()).ask(post("/sign-in"), "user=guessed&password=x");
        answered = true;
    });
    EXPECT_NE(signIn(), "");
    EXPECT_FALSE(answered);
    guesser.join();
    EXPECT_NE(slowed.find("401 "), std::string::npos);
}

TEST_F(HostTest, StoppingWaitsForNoSlowedSignIn) {
    std::vector<std::unique_ptr<RawClient>> slowed;
    const std::string form = "user=guessed&password=x";
    for (int i = 0; i < 7; ++i) {
        slowed.push_back(std::make_unique<RawClient>(host.port()));
        slowed.back()->write(post("/sign-in", "Content-Length: " + std::to_string(form.size()) + "\r\n\r\n") + form);
    }
    EXPECT_NE(signIn(), "");
    host.stop();
}

/// Writes a key and a certificate of its own to the directory.
void makeCertificate(const test::TemporaryDirectory& directory) {
    const std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> key(EVP_EC_gen("P-256"), &EVP_PKEY_free);
    const std::unique_ptr<X509, decltype(&X509_free)> certificate(X509_new(), &X509_free);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -3600);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), 3600);
    X509_set_pubkey(certificate.get(), key.get());
    X509_sign(certificate.get(), key.get(), EVP_sha256());
    const auto file = [&](const char* name) {
        return std::unique_ptr<BIO, decltype(&BIO_free_all)>(BIO_new_file((directory.path() / name).c_str(), "w"),
                                                             &BIO_free_all);
    };
    PEM_write_bio_PrivateKey(file("key.pem").get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr);
    PEM_write_bio_X509(file("cert.pem").get(), certificate.get());
}

TEST(Host, OverTlsItServesThePageAndChoosesTheCipher) {
    const test::TemporaryDirectory directory;
    makeCertificate(directory);
    auto config = testConfig();
    config.certificate = (directory.path() / "cert.pem").string();
    config.key = (directory.path() / "key.pem").string();
    web::Host host(config, services(), &webtest::makeTestSeat);
    std::thread thread([&] { host.run(); });
    const auto client = [&] {
        auto raw = std::make_unique<RawClient>(host.port());
        EXPECT_EQ(raw->startTls("ECDHE-ECDSA-CHACHA20-POLY1305:ECDHE-ECDSA-AES256-GCM-SHA384"),
                  "ECDHE-ECDSA-AES256-GCM-SHA384");
        return raw;
    };
    EXPECT_EQ(RawClient(host.port()).startTls("ECDHE-ECDSA-AES256-SHA"), "") << "no authenticated encryption";
    const std::string answer = client()->ask("POST /sign-in HTTP/1.1\r\nHost: vorel\r\nOrigin: https://vorel\r\n",
                                             "user=nurse&password=secret");
    const auto at = answer.find("__Host-vorel_session=");
    EXPECT_NE(at, std::string::npos) << answer;
    const auto page = client();
    EXPECT_NE(page->upgrade(answer.substr(at, answer.find(';', at) - at), "https://vorel").find("101 "),
              std::string::npos);
    EXPECT_EQ(json::parse(page->readFrame())["received"], 0);
    const std::string longName(200'000, 'n');
    page->sendFrame(RawClient::text, json{{"set", "frmTest.txtName"}, {"to", longName}}.dump());
    page->readFrame();
    page->sendFrame(RawClient::text, R"({"get":"frmTest.txtName"})");
    EXPECT_EQ(json::parse(page->readFrame())["state"]["text"], longName);
    host.stop();
    EXPECT_TRUE(json::parse(page->readFrame())["events"].back().contains("ended"));
    EXPECT_EQ(page->readFrame(), "");
    EXPECT_EQ(page->closeCode, 1000);
    thread.join();
}

TEST(Host, CannotServe) {
    const web::Host first(testConfig(), services(), &webtest::makeTestSeat);
    auto taken = testConfig();
    taken.port = first.port();
    try {
        const web::Host second(taken, services(), &webtest::makeTestSeat);
        ADD_FAILURE() << "two hosts at one port";
    } catch (const web::HostError& error) {
        EXPECT_EQ(error.what(), "127.0.0.1 port " + std::to_string(taken.port) + " is in use by another program");
    }
    auto open = testConfig();
    open.address = "0.0.0.0";
    EXPECT_THROW(web::Host(open, services(), &webtest::makeTestSeat), web::ConfigError);
    auto broken = testConfig();
    broken.certificate = broken.key = (test::sourceDirectory() / "README.md").string();
    EXPECT_THROW(web::Host(broken, services(), &webtest::makeTestSeat), web::HostError);
}

}  // namespace
