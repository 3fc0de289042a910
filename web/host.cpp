#include "web/host.h"

#include <thread>

#include "web/httpconnection.h"
#include "web/log.h"
#include "web/network.h"
#include "web/sessions.h"
#include "web/site.h"

namespace web {

namespace {

constexpr auto tendEvery = std::chrono::seconds(1);
constexpr auto longestGoodbye = std::chrono::seconds(5);

net::ssl::context makeTls(const Config& config) {
    net::ssl::context tls(net::ssl::context::tls_server);
    tls.set_options(net::ssl::context::default_workarounds | net::ssl::context::no_tlsv1 |
                    net::ssl::context::no_tlsv1_1);
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
    Impl(Config given, Authenticate check, ui::MakeSeat makeSeat)
        : config(std::move(given)),
          authenticate(std::move(check)),
          sessions(config, std::move(makeSeat)),
          site(config, sessions, {waits(), authenticates()}),
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
            net::post(checkers, [this, attempt, then = std::move(then)] {
                AuthResult result{AuthResult::Outcome::unavailable};
                try {
                    result = authenticate(attempt);
                } catch (const std::exception&) {
                    log(Level::error, "sign-in-failed", {{"address", attempt.address}});
                }
                net::post(network, [then, result] { then(result); });
            });
        };
    }

    void accept() {
        acceptor.async_accept([this](error_code error, tcp::socket socket) {
            if (error == net::error::operation_aborted || stopping) return;
            if (error) return acceptAgain(error);
            serveConnection(std::move(socket), tls ? &*tls : nullptr, config, site);
            accept();
        });
    }

    /// Out of file handles, for one: some will be free again.
    void acceptAgain(error_code error) {
        log(Level::error, "accept-failed", {{"error", error.message()}});
        retry.expires_after(std::chrono::milliseconds(200));
        retry.async_wait([this](error_code) {
            if (!stopping) accept();
        });
    }

    void tend() {
        tending.expires_after(tendEvery);
        tending.async_wait([this](error_code error) {
            if (error || stopping) return;
            sessions.tend();
            tend();
        });
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
    Authenticate authenticate;
    net::io_context network{1};
    Sessions sessions;
    Site site;
    std::optional<net::ssl::context> tls;
    tcp::acceptor acceptor;
    net::steady_timer tending{network};
    net::steady_timer retry{network};
    net::signal_set signals{network};
    net::thread_pool checkers{2};
    bool stopping = false;
};

Host::Host(Config config, Authenticate authenticate, ui::MakeSeat makeSeat) {
    requireServable(config);
    impl_ = std::make_unique<Impl>(std::move(config), std::move(authenticate), std::move(makeSeat));
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
    impl_->tend();
    log(Level::info, "listening", {{"url", url()}});
    impl_->network.run();
    impl_->checkers.join();
    impl_->awaitSessions();
    log(Level::info, "stopped");
}

void Host::stop() {
    net::post(impl_->network, [this] { impl_->stop(); });
}

}  // namespace web
