#include "web/host.h"

#include <thread>
#include <typeinfo>

#include "web/connections.h"
#include "web/httpconnection.h"
#include "web/log.h"
#include "web/network.h"
#include "web/sessions.h"
#include "web/site.h"

namespace web {

namespace {

constexpr auto tendEvery = std::chrono::seconds(1);
constexpr auto reviewEvery = std::chrono::minutes(1);
constexpr auto healthKept = std::chrono::seconds(5);
constexpr auto longestGoodbye = std::chrono::seconds(5);

net::ssl::context makeTls(const Config& config) {
    net::ssl::context tls(net::ssl::context::tls_server);
    // Forward secrecy and authenticated encryption only, as TLS 1.3 has them anyway.
    SSL_CTX_set_min_proto_version(tls.native_handle(), TLS1_2_VERSION);
    SSL_CTX_set_cipher_list(tls.native_handle(), "ECDHE+AESGCM:ECDHE+CHACHA20");
    SSL_CTX_set_options(tls.native_handle(),
                        SSL_OP_NO_RENEGOTIATION | SSL_OP_NO_COMPRESSION | SSL_OP_CIPHER_SERVER_PREFERENCE);
    error_code error;
    tls.use_certificate_chain_file(config.certificate, error);
    if (error) throw HostError("tls.certificate: " + config.certificate + " cannot be used: " + error.message());
    tls.use_private_key_file(config.key, net::ssl::context::pem, error);
    if (error) throw HostError("tls.key: " + config.key + " cannot be used: " + error.message());
    return tls;
}

tcp::acceptor listenAt(net::io_context& network, const Config& config) {
    const tcp::endpoint endpoint(net::ip::make_address(config.address), static_cast<unsigned short>(config.port));
    const std::string where = config.address + " port " + std::to_string(config.port);
    tcp::acceptor acceptor(network);
    error_code error;
    acceptor.open(endpoint.protocol(), error);
    if (!error) acceptor.set_option(net::socket_base::reuse_address(true), error);
    if (!error) acceptor.bind(endpoint, error);
    if (!error) acceptor.listen(net::socket_base::max_listen_connections, error);
    if (error == net::error::address_in_use) throw HostError(where + " is in use by another program");
    if (error) throw HostError(where + " cannot be listened on: " + error.message());
    return acceptor;
}

}  // namespace

/// Everything of the network runs on the one thread that calls `run`; passwords are checked on two others.
struct Host::Impl {
    Impl(Config given, Services asked, ui::MakeSeat makeSeat)
        : config(std::move(given)),
          services(std::move(asked)),
          connections(static_cast<std::size_t>(config.mostConnections)),
          sessions(config, std::move(makeSeat)),
          site(config, sessions, {waits(), authenticates(), tellsHealth()}),
          acceptor(listenAt(network, config)) {
        if (config.tls()) tls.emplace(makeTls(config));
    }

    std::function<void(std::chrono::milliseconds, std::function<void()>)> waits() {
        return [this](std::chrono::milliseconds time, std::function<void()> then) {
            auto timer = std::make_shared<net::steady_timer>(network, time);
            timer->async_wait([timer, then = std::move(then)](error_code) { then(); });
        };
    }

    std::function<void(const Attempt&, std::function<void(AuthResult)>)> authenticates() {
        return [this](const Attempt& attempt, std::function<void(AuthResult)> then) {
            // The way back is handed on and not kept: a connection ends on the network's thread.
            net::post(checkers, [this, attempt, then = std::move(then)]() mutable {
                AuthResult result{AuthResult::Outcome::unavailable};
                try {
                    result = services.authenticate(attempt);
                } catch (const std::exception& error) {
                    log(Level::error, "sign-in-failed", {{"address", attempt.address}, {"type", typeid(error).name()}});
                }
                net::post(network, [then = std::move(then), result] { then(result); });
            });
        };
    }

    /// Looks at most every few seconds, however often somebody asks: whoever asks meanwhile hears the same.
    std::function<void(std::function<void(const Faults&)>)> tellsHealth() {
        return [this](std::function<void(const Faults&)> then) {
            if (std::chrono::steady_clock::now() < healthHolds) return then(faults);
            asking.push_back(std::move(then));
            if (asking.size() > 1) return;
            net::post(checkers, [this] {
                Faults found{"host"};
                try {
                    found = services.checkHealth();
                } catch (const std::exception&) {
                    log(Level::error, "health-unknown");
                }
                net::post(network, [this, found] { tellHealth(found); });
            });
        };
    }

    void tellHealth(const Faults& found) {
        faults = found;
        healthHolds = std::chrono::steady_clock::now() + healthKept;
        for (const auto& fault : faults) log(Level::error, "health-failing", {{"what", fault}});
        for (const auto& then : std::exchange(asking, {})) then(faults);
    }

    void accept() {
        acceptor.async_accept([this](error_code error, tcp::socket socket) {
            accepting = false;
            if (error == net::error::operation_aborted || stopping) return;
            // Out of file handles, for one: some will be free again when the sessions are tended.
            if (error) return log(Level::error, "accept-failed", {{"error", error.message()}});
            accept();
            serveConnection(std::move(socket), tls ? &*tls : nullptr, config, site, connections);
        });
        accepting = true;
    }

    void tend() {
        tending.expires_after(tendEvery);
        tending.async_wait([this](error_code error) {
            if (error || stopping) return;
            tend();
            if (!accepting) accept();
            sessions.tend();
            reviewUsers();
        });
    }

    /// An account that was disabled, or lost its right, ends its sessions within a minute.
    void reviewUsers() {
        const auto now = std::chrono::steady_clock::now();
        if (now < nextReview) return;
        nextReview = now + reviewEvery;
        for (const auto& user : sessions.users())
            net::post(checkers, [this, user] {
                try {
                    if (services.mayStay(user)) return;
                    net::post(network,
                              [this, user] { sessions.closeOf(user, "Your account was changed. Sign in again."); });
                } catch (const std::exception&) {
                    log(Level::warning, "user-not-reviewed", {{"user", user}});
                }
            });
    }

    /// Runs until the host stops. What throws, most of all for want of memory, takes its own connection along and
    /// nothing else.
    void serve() {
        for (;;) {
            try {
                if (!stopping) tend();
                network.run();
                return;
            } catch (const std::exception& error) {
                log(Level::error, "connection-failed", {{"type", typeid(error).name()}});
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            }
        }
    }

    void stop() {
        if (std::exchange(stopping, true)) return;
        log(Level::info, "stopping", {{"sessions", std::to_string(sessions.count())}});
        acceptor.close();
        sessions.closeAll("The host is being stopped. Sign in again in a while.");
        sayGoodbye(std::chrono::steady_clock::now() + longestGoodbye);
    }

    /// Gives the sessions time to end and the pages to hear of it.
    void sayGoodbye(std::chrono::steady_clock::time_point deadline) {
        sessions.tend();
        const bool done = sessions.count() == 0 || std::chrono::steady_clock::now() > deadline;
        tending.expires_after(std::chrono::milliseconds(done ? 200 : 20));
        tending.async_wait([this, done, deadline](error_code) {
            if (done)
                network.stop();
            else
                sayGoodbye(deadline);
        });
    }

    /// A statement that still runs is waited for: no session outlives the host.
    void awaitSessions() {
        sessions.closeAll({});
        while (sessions.count() > 0) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            sessions.tend();
        }
    }

    Config config;
    Services services;
    Connections connections;  // before the network, whose last handlers still have their places
    net::io_context network{1};
    Sessions sessions;
    Site site;
    std::optional<net::ssl::context> tls;
    tcp::acceptor acceptor;
    net::steady_timer tending{network};
    net::signal_set signals{network};
    net::thread_pool checkers{2};
    Faults faults;
    std::chrono::steady_clock::time_point healthHolds;
    std::chrono::steady_clock::time_point nextReview = std::chrono::steady_clock::now() + reviewEvery;
    std::vector<std::function<void(const Faults&)>> asking;
    bool accepting = false;
    bool stopping = false;
};

Host::Host(Config config, Services services, ui::MakeSeat makeSeat) {
    requireServable(config);
    impl_ = std::make_unique<Impl>(std::move(config), std::move(services), std::move(makeSeat));
}

Host::~Host() = default;

int Host::port() const {
    return impl_->acceptor.local_endpoint().port();
}

std::string Host::url() const {
    const auto& address = impl_->config.address;
    const std::string name = address.find(':') == std::string::npos ? address : "[" + address + "]";
    return (impl_->config.tls() ? "https://" : "http://") + name + ":" + std::to_string(port()) + "/";
}

void Host::stopOnSignals() {
    impl_->signals.add(SIGINT);
    impl_->signals.add(SIGTERM);
    impl_->signals.async_wait([this](error_code error, int) {
        if (!error) impl_->stop();
    });
}

void Host::run() {
    impl_->accept();
    log(Level::info, "listening", {{"url", url()}});
    impl_->serve();
    impl_->checkers.join();
    impl_->awaitSessions();
    log(Level::info, "stopped");
}

void Host::stop() {
    net::post(impl_->network, [this] { impl_->stop(); });
}

}  // namespace web
