#include "web/config.h"

#include <arpa/inet.h>

#include <map>

#include "web/proxies.h"

namespace web {

namespace {

constexpr int mega = 1024 * 1024;

const char* addressFault(const std::string& text) {
    in6_addr buffer{};
    const bool valid =
        inet_pton(AF_INET, text.c_str(), &buffer) == 1 || inet_pton(AF_INET6, text.c_str(), &buffer) == 1;
    return valid ? nullptr : "must be an IP address";
}

const char* levelFault(const std::string& text) {
    return levelNamed(text) ? nullptr : "must be debug, info, warning, error or off";
}

}  // namespace

std::string ownWebRoot() {
    return VOREL_WEB_ROOT;
}

std::string ownLayoutRoot() {
    return VOREL_LAYOUT_ROOT;
}

std::vector<Setting> settingsOf(Config& config) {
    using Text = Setting::Text;
    using Texts = Setting::Texts;
    using Number = Setting::Number;
    return {
        {"address", Text{&config.address, &addressFault}},
        {"port", Number{&config.port, 0, 65535}},
        {"allow_plain_remote", &config.allowPlainRemote},
        {"origins", Texts{&config.origins}},
        {"proxies", Texts{&config.proxies, &addressFault, &plainAddress}},
        {"tls.certificate", Text{&config.certificate}},
        {"tls.key", Text{&config.key}},
        {"connections.most", Number{&config.mostConnections, 10, 1'000'000}},
        {"session.wait_minutes", Number{&config.sessionWaitMinutes, 1, 24 * 60}},
        {"session.most", Number{&config.mostSessions, 1, 100'000}},
        {"session.of_user", Number{&config.mostSessionsOfUser, 1, 1000}},
        {"session.most_queued", Number{&config.mostQueued, 64 * 1024, 256 * mega}},
        {"session.reports_kept", Number{&config.reportsKept, 1, 1000}},
        {"session.longest_message", Number{&config.longestMessage, 1024, mega}},
        {"session.longest_upload", Number{&config.longestUpload, 1024, 100 * mega}},
        {"sign_in.free_failures", Number{&config.freeFailures, 0, 1000}},
        {"sign_in.free_failures_of_user", Number{&config.freeFailuresOfUser, 0, 100'000}},
        {"sign_in.free_failures_of_address", Number{&config.freeFailuresOfAddress, 0, 100'000}},
        {"sign_in.first_delay_ms", Number{&config.firstDelayMilliseconds, 1, 60'000}},
        {"sign_in.longest_delay_seconds", Number{&config.longestDelaySeconds, 1, 600}},
        {"sign_in.forget_minutes", Number{&config.forgetMinutes, 1, 24 * 60}},
        {"log.level", Text{&config.logLevel, &levelFault}},
        {"web.root", Text{&config.webRoot}},
        {"web.layouts", Text{&config.layoutRoot}},
        {"web.chart", Text{&config.chartRoot}},
    };
}

void requireServable(const Config& config) {
    if (const char* fault = addressFault(config.address)) throw ConfigError("address: " + std::string(fault));
    if (config.certificate.empty() != config.key.empty())
        throw ConfigError("tls: certificate and key belong together, one of them is missing");
    if (!isLoopback(config.address) && !config.tls() && !config.allowPlainRemote) {
        throw ConfigError("address: " + config.address +
                          " is reached from other machines, and without TLS passwords would travel in plain; set "
                          "tls.certificate and tls.key, or allow_plain_remote");
    }
}

bool isLoopback(const std::string& address) {
    in_addr v4{};
    if (inet_pton(AF_INET, address.c_str(), &v4) == 1) return (ntohl(v4.s_addr) >> 24) == 127;
    in6_addr v6{};
    return inet_pton(AF_INET6, address.c_str(), &v6) == 1 && IN6_IS_ADDR_LOOPBACK(&v6);
}

std::optional<Level> levelNamed(const std::string& name) {
    static const std::map<std::string, Level> levels{{"debug", Level::debug},
                                                     {"info", Level::info},
                                                     {"warning", Level::warning},
                                                     {"error", Level::error},
                                                     {"off", Level::off}};
    const auto found = levels.find(name);
    if (found == levels.end()) return std::nullopt;
    return found->second;
}

}  // namespace web
