#pragma once

#include <memory>
#include <stdexcept>

#include "ui/seat.h"
#include "web/authenticate.h"
#include "web/config.h"
#include "web/health.h"

namespace web {

/// The host cannot serve: one line that says why.
struct HostError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What the host asks of the hospital's databases.
struct Services {
    Authenticate authenticate;
    MayStay mayStay;
    CheckHealth checkHealth;
};

/// Serves the sign-in page and the nurses' sessions at one address.
class Host {
public:
    /// Listens. Throws ConfigError for a configuration that must not be served, HostError where the address is taken
    /// or a certificate cannot be used.
    Host(Config config, Services services, ui::MakeSeat makeSeat);
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    ~Host();

    /// The port that it listens on.
    [[nodiscard]] int port() const;
    /// "http://127.0.0.1:8080/"
    [[nodiscard]] std::string url() const;
    /// Makes SIGINT and SIGTERM stop the host.
    void stopOnSignals();
    /// Serves until it is stopped; every session has then ended.
    void run();
    /// Ends `run`: pages are told, sessions end without the leave procedure. May be called on any thread.
    void stop();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace web
