#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "web/log.h"

namespace web {

/// A configuration that cannot be used: one line that names the file, the line in it and the key.
struct ConfigError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Which engine serves a database, and where.
struct DataSource {
    std::string engine = "sqlite";
    std::string location;  ///< for sqlite: the file; empty for the one in the data directory
};

/// All that an operator can set. docs/vorel.toml explains every key.
struct Config {
    std::string address = "127.0.0.1";
    int port = 8080;  ///< 0 takes any free one
    bool allowPlainRemote = false;
    std::string certificate;  ///< PEM files; both or none
    std::string key;
    std::vector<std::string> origins;  ///< origins allowed beside the host's own ("https://nursing.example.org")
    std::vector<std::string> proxies;  ///< addresses of proxies that speak TLS with the pages and are believed
    int mostConnections = 2000;        ///< at once

    std::string hospitalNumber = "001";
    std::string serverName = "SERVER";
    bool deskInMenu = false;       ///< the nurses' menu has the attendance and their registration too
    std::string autoCardNo;        ///< "YES" makes card numbers from system numbers
    std::string nhisServiceNo;     ///< row of the service price list that a consultation at the desk costs
    std::string nhisRegServiceNo;  ///< the same for a registration
    std::string encodingTable;     ///< 94 characters for the codes 33 to 126; empty for the built-in one

    int sessionWaitMinutes = 10;  ///< how long a session whose page is gone waits for it
    int mostSessions = 1000;
    int mostSessionsOfUser = 5;
    int idleMinutes = 0;                  ///< a nurse who does nothing for so long is signed out; 0 never
    int mostHours = 0;                    ///< a session lasts no longer; 0 for any time
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

    std::map<std::string, DataSource> sources;  ///< by database name
    std::string logLevel = "info";

    std::string webRoot;  ///< holds client/ and layouts/
    std::string bootstrapRoot = "/usr/share/javascript/bootstrap5";
    std::string chartRoot = "/usr/share/javascript/chart.js";

    /// Where users have signed in before is kept here; no key: whoever starts the host sets it. Empty keeps it nowhere.
    std::filesystem::path knownPlaces;

    [[nodiscard]] bool tls() const noexcept { return !certificate.empty(); }
};

/// Reads an environment variable; nothing where it is not set.
using Environment = std::function<std::optional<std::string>(const std::string& name)>;
/// The environment of this process.
Environment processEnvironment();

/// The defaults, then the file's keys, then the environment: VOREL_ and the key in upper case with "_" for the dot
/// ("VOREL_PORT", "VOREL_TLS_CERTIFICATE"). Throws ConfigError; a key that nobody knows is an error too.
Config readConfig(const std::optional<std::filesystem::path>& file, const Environment& environment);

/// Throws ConfigError for a configuration that must not be served: without TLS beyond this machine unless allowed, an
/// address that is none, half a certificate.
void requireServable(const Config& config);

/// Whether an address is this machine's own.
bool isLoopback(const std::string& address);

/// The level of a configured name, or nothing.
std::optional<Level> levelNamed(const std::string& name);

}  // namespace web
