#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "web/log.h"
#include "web/settings.h"

namespace web {

/// Where the page's files lie that came with the program.
std::string ownWebRoot();
/// Where the layouts of this program's screens lie.
std::string ownLayoutRoot();

/// What an operator can set of the host itself. docs/vorel.toml explains every key.
struct Config {
    std::string address = "127.0.0.1";
    int port = 8080;  ///< 0 takes any free one
    bool allowPlainRemote = false;
    std::string certificate;  ///< PEM files; both or none
    std::string key;
    std::vector<std::string> origins;  ///< origins allowed beside the host's own ("https://nursing.example.org")
    std::vector<std::string> proxies;  ///< addresses of proxies that speak TLS with the pages and are believed
    int mostConnections = 2000;        ///< at once

    int sessionWaitMinutes = 10;  ///< how long a session whose page is gone waits for it
    int mostSessions = 1000;
    int mostSessionsOfUser = 5;
    int mostQueued = 4 * 1024 * 1024;     ///< bytes of a page's messages that wait in its session
    int reportsKept = 20;                 ///< of each session
    int longestMessage = 1024 * 1024;     ///< bytes of one WebSocket message
    int longestUpload = 5 * 1024 * 1024;  ///< bytes of one uploaded file

    int freeFailures = 3;         ///< failed sign-ins of a user from an address before the first delay
    int freeFailuresOfUser = 50;  ///< from anywhere
    int freeFailuresOfAddress = 20;
    int firstDelayMilliseconds = 1000;  ///< doubled by each further failure
    int longestDelaySeconds = 30;
    int forgetMinutes = 15;  ///< without a failure

    std::string logLevel = "info";

    std::string webRoot = ownWebRoot();        ///< holds client/, as the build bundles it, and program/
    std::string layoutRoot = ownLayoutRoot();  ///< holds the screens' layouts, NAME.json
    std::string chartRoot = "/usr/share/javascript/chart.js";

    /// Where users have signed in before is kept here; no key: whoever starts the host sets it. Empty keeps it nowhere.
    std::filesystem::path knownPlaces;

    [[nodiscard]] bool tls() const noexcept { return !certificate.empty(); }
};

/// The host's own settings, into the configuration.
std::vector<Setting> settingsOf(Config& config);

/// Throws ConfigError for a configuration that must not be served: without TLS beyond this machine unless allowed, an
/// address that is none, half a certificate.
void requireServable(const Config& config);

/// Whether an address is this machine's own.
bool isLoopback(const std::string& address);

/// The level of a configured name, or nothing.
std::optional<Level> levelNamed(const std::string& name);

}  // namespace web
