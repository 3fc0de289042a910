#include <sys/resource.h>

#include <csignal>
#include <iostream>

#include "app/commands.h"
#include "app/datadirectory.h"
#include "app/health.h"
#include "app/seat.h"
#include "core/audit/pagesaves.h"
#include "shell/accounts/signin.h"
#include "web/host.h"

namespace app {

namespace {

namespace fs = std::filesystem;

struct ServeOptions {
    std::string data;
    std::string config;
    std::string address;
    int port = -1;
    bool samples = false;
};

Config configOf(const ServeOptions& options) {
    auto config = readConfig(options.config);
    if (!options.address.empty()) config.host.address = options.address;
    if (options.port >= 0) config.host.port = options.port;
    config.host.knownPlaces = fs::path(options.data) / "known-addresses";
    web::requireServable(config.host);
    if (options.samples && !web::isLoopback(config.host.address))
        throw std::runtime_error("--samples is for trying things out on this machine alone");
    return config;
}

/// Every page and every database line takes a file handle: as many as the system gives.
void raiseFileLimit() {
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
    limit.rlim_cur = limit.rlim_max;
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

web::Authenticate authenticateBy(db::DataSources& sources, const Config& config) {
    shell::SignInSettings settings;
    settings.encodingTable = config.session.encodingTable;
    return [&sources, settings](const web::Attempt& attempt) -> web::AuthResult {
        using Outcome = web::AuthResult::Outcome;
        const auto trail = attempt.guessing ? shell::Trail::realNames : shell::Trail::always;
        const auto result = shell::signIn(sources, settings, attempt.user, attempt.password, trail);
        switch (result.outcome) {
            case shell::SignInOutcome::ok:
                return {Outcome::accepted, result.user};
            case shell::SignInOutcome::notNurse:
                return {Outcome::notNurse, result.user};
            case shell::SignInOutcome::unavailable:
                web::log(web::Level::error, "sign-in-unavailable", {{"error", result.text}});
                return {Outcome::unavailable};
            case shell::SignInOutcome::refused:
                break;
        }
        return {Outcome::refused};
    };
}

void forgetOldPageSaves(db::DataSources& sources) {
    db::Databases databases(sources);
    core::forgetOldPageSaves(databases);
}

int serve(const ServeOptions& options) {
    const Config config = configOf(options);
    web::setLogLevel(*web::levelNamed(config.host.logLevel));
    requireDataDirectory(options.data);
    db::DataSources sources(dataSources(options.data, config));
    requireDatabases(sources);
    const fs::path sessions = sessionsDirectory(options.data);
    removeOrphans(sessions);
    raiseFileLimit();
    std::signal(SIGPIPE, SIG_IGN);  // a log that nobody reads any more is no reason to go

    forgetOldPageSaves(sources);

    const web::Services services{authenticateBy(sources, config),
                                 [&](const std::string& user) { return shell::mayStay(sources, user); },
                                 [&] { return faultsOf(sources, options.data); }};
    web::Host host(config.host, services, [&](const ui::SignedIn& who, ui::EventLoop& loop) {
        return std::make_unique<NurseSeat>(sources, config, sessions, who, loop, options.samples);
    });
    host.stopOnSignals();
    std::cout << "Vorel Nursing is at " << host.url() << std::endl;
    host.run();
    return 0;
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the functions own what they hold

}  // namespace

void addServe(CLI::App& program, Run& run) {
    auto* command = program.add_subcommand("serve", "Serve the nurses' pages");
    auto options = std::make_shared<ServeOptions>();
    addDataOption(*command, options->data);
    addConfigOption(*command, options->config);
    command->add_option("--address", options->address, "Address to listen on (127.0.0.1)")->type_name("A");
    command->add_option("--port", options->port, "Port to listen on (8080); 0 takes a free one")
        ->type_name("P")
        ->check(CLI::Range(0, 65535));
    command->add_flag("--samples", options->samples, "Open a page with every kind of control in each session");
    command->callback([options, &run] { run = [options] { return serve(*options); }; });
}

}  // namespace app
