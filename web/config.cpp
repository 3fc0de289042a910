#include "web/config.h"

#include <arpa/inet.h>

#include <toml++/toml.h>
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <variant>

#include "web/proxies.h"

namespace web {

namespace {

/// `fault` gives what is wrong with a text, or nothing.
struct Text {
    std::string* value;
    const char* (*fault)(const std::string&) = [](const std::string&) -> const char* { return nullptr; };
};
struct Number {
    int* value;
    int least, most;
};
using Slot = std::variant<Text, bool*, Number>;

struct Key {
    std::string_view name;  ///< dotted
    Slot (*slot)(Config&);
};

constexpr int mega = 1024 * 1024;

const char* addressFault(const std::string& text) {
    in6_addr buffer{};
    const bool valid =
        inet_pton(AF_INET, text.c_str(), &buffer) == 1 || inet_pton(AF_INET6, text.c_str(), &buffer) == 1;
    return valid ? nullptr : "must be an IP address";
}

const char* tableFault(const std::string& text) {
    return text.empty() || text.size() == 94 ? nullptr : "must have 94 characters";
}

const char* levelFault(const std::string& text) {
    return levelNamed(text) ? nullptr : "must be debug, info, warning, error or off";
}

const char* yesFault(const std::string& text) {
    return text.empty() || text == "YES" || text == "NO" ? nullptr : "must be YES or NO";
}

const char* rowFault(const std::string& text) {
    return text.find_first_not_of("0123456789") == std::string::npos && text.size() < 10
               ? nullptr
               : "must be the SNo of a row of hServiceNHIS";
}

const Key keys[] = {
    {"address",
     [](Config& c) -> Slot {
         return Text{&c.address, &addressFault};
     }},
    {"port",
     [](Config& c) -> Slot {
         return Number{&c.port, 0, 65535};
     }},
    {"allow_plain_remote", [](Config& c) -> Slot { return &c.allowPlainRemote; }},
    {"tls.certificate", [](Config& c) -> Slot { return Text{&c.certificate}; }},
    {"tls.key", [](Config& c) -> Slot { return Text{&c.key}; }},
    {"hospital.number", [](Config& c) -> Slot { return Text{&c.hospitalNumber}; }},
    {"hospital.server", [](Config& c) -> Slot { return Text{&c.serverName}; }},
    {"registration.desk_in_menu", [](Config& c) -> Slot { return &c.deskInMenu; }},
    {"registration.auto_card_no",
     [](Config& c) -> Slot {
         return Text{&c.autoCardNo, &yesFault};
     }},
    {"registration.consultation_service",
     [](Config& c) -> Slot {
         return Text{&c.nhisServiceNo, &rowFault};
     }},
    {"registration.registration_service",
     [](Config& c) -> Slot {
         return Text{&c.nhisRegServiceNo, &rowFault};
     }},
    {"encoding_table",
     [](Config& c) -> Slot {
         return Text{&c.encodingTable, &tableFault};
     }},
    {"connections.most",
     [](Config& c) -> Slot {
         return Number{&c.mostConnections, 10, 1'000'000};
     }},
    {"session.wait_minutes",
     [](Config& c) -> Slot {
         return Number{&c.sessionWaitMinutes, 1, 24 * 60};
     }},
    {"session.most",
     [](Config& c) -> Slot {
         return Number{&c.mostSessions, 1, 100'000};
     }},
    {"session.of_user",
     [](Config& c) -> Slot {
         return Number{&c.mostSessionsOfUser, 1, 1000};
     }},
    {"session.idle_minutes",
     [](Config& c) -> Slot {
         return Number{&c.idleMinutes, 0, 24 * 60};
     }},
    {"session.most_hours",
     [](Config& c) -> Slot {
         return Number{&c.mostHours, 0, 24 * 365};
     }},
    {"session.most_queued",
     [](Config& c) -> Slot {
         return Number{&c.mostQueued, 64 * 1024, 256 * mega};
     }},
    {"session.reports_kept",
     [](Config& c) -> Slot {
         return Number{&c.reportsKept, 1, 1000};
     }},
    {"session.longest_message",
     [](Config& c) -> Slot {
         return Number{&c.longestMessage, 1024, mega};
     }},
    {"session.longest_upload",
     [](Config& c) -> Slot {
         return Number{&c.longestUpload, 1024, 100 * mega};
     }},
    {"sign_in.free_failures",
     [](Config& c) -> Slot {
         return Number{&c.freeFailures, 0, 1000};
     }},
    {"sign_in.free_failures_of_user",
     [](Config& c) -> Slot {
         return Number{&c.freeFailuresOfUser, 0, 100'000};
     }},
    {"sign_in.free_failures_of_address",
     [](Config& c) -> Slot {
         return Number{&c.freeFailuresOfAddress, 0, 100'000};
     }},
    {"sign_in.first_delay_ms",
     [](Config& c) -> Slot {
         return Number{&c.firstDelayMilliseconds, 1, 60'000};
     }},
    {"sign_in.longest_delay_seconds",
     [](Config& c) -> Slot {
         return Number{&c.longestDelaySeconds, 1, 600};
     }},
    {"sign_in.forget_minutes",
     [](Config& c) -> Slot {
         return Number{&c.forgetMinutes, 1, 24 * 60};
     }},
    {"log.level",
     [](Config& c) -> Slot {
         return Text{&c.logLevel, &levelFault};
     }},
    {"web.root", [](Config& c) -> Slot { return Text{&c.webRoot}; }},
    {"web.bootstrap", [](Config& c) -> Slot { return Text{&c.bootstrapRoot}; }},
    {"web.chart", [](Config& c) -> Slot { return Text{&c.chartRoot}; }},
};

const Key* findKey(std::string_view name) {
    const auto* const found =
        std::find_if(std::begin(keys), std::end(keys), [&](const Key& k) { return k.name == name; });
    return found == std::end(keys) ? nullptr : found;
}

void put(const Text& text, const std::string& value, const std::string& where) {
    if (const char* fault = text.fault(value)) throw ConfigError(where + ": " + fault);
    *text.value = value;
}

void put(const Number& number, std::int64_t value, const std::string& where) {
    if (value < number.least || value > number.most) {
        throw ConfigError(where + ": must be " + std::to_string(number.least) + " to " + std::to_string(number.most));
    }
    *number.value = static_cast<int>(value);
}

void putText(const Slot& slot, const std::string& text, const std::string& where) {
    if (const auto* field = std::get_if<Text>(&slot)) {
        put(*field, text, where);
    } else if (auto* const* flag = std::get_if<bool*>(&slot)) {
        if (text != "true" && text != "false") throw ConfigError(where + ": must be true or false");
        **flag = text == "true";
    } else {
        std::int64_t number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc{} || end != text.data() + text.size())
            throw ConfigError(where + ": must be a whole number");
        put(std::get<Number>(slot), number, where);
    }
}

void putNode(const Slot& slot, const toml::node& node, const std::string& where) {
    if (const auto* field = std::get_if<Text>(&slot)) {
        if (!node.is_string()) throw ConfigError(where + ": must be a text in quotes");
        put(*field, node.as_string()->get(), where);
    } else if (auto* const* flag = std::get_if<bool*>(&slot)) {
        if (!node.is_boolean()) throw ConfigError(where + ": must be true or false");
        **flag = node.as_boolean()->get();
    } else {
        if (!node.is_integer()) throw ConfigError(where + ": must be a whole number");
        put(std::get<Number>(slot), node.as_integer()->get(), where);
    }
}

/// Reads a file's tables into a Config.
class Reader {
public:
    Reader(Config& config, std::string file) : config_(config), file_(std::move(file)) {}

    void readTable(const toml::table& table, const std::string& prefix) {
        for (const auto& [key, node] : table) readNode(prefix + std::string(key.str()), node);
    }

private:
    [[nodiscard]] std::string where(const toml::node& node, const std::string& name) const {
        return file_ + ":" + std::to_string(node.source().begin.line) + ": " + name;
    }

    void readNode(const std::string& name, const toml::node& node) {
        if (name == "origins") return readTexts(config_.origins, name, node);
        if (name == "proxies") return readProxies(node);
        if (name == "sources") return readSources(node);
        if (const auto* key = findKey(name)) return putNode(key->slot(config_), node, where(node, name));
        const bool holder =
            std::any_of(std::begin(keys), std::end(keys), [&](const Key& k) { return k.name.starts_with(name + "."); });
        if (!holder) throw ConfigError(where(node, name) + ": unknown key");
        if (!node.is_table()) throw ConfigError(where(node, name) + ": must be a table");
        readTable(*node.as_table(), name + ".");
    }

    void readTexts(std::vector<std::string>& texts, const std::string& name, const toml::node& node) {
        const auto* list = node.as_array();
        if (list == nullptr || !(list->empty() || list->is_homogeneous<std::string>()))
            throw ConfigError(where(node, name) + ": must be a list of texts");
        for (const auto& text : *list) texts.push_back(text.as_string()->get());
    }

    void readProxies(const toml::node& node) {
        readTexts(config_.proxies, "proxies", node);
        for (auto& proxy : config_.proxies) {
            if (const char* fault = addressFault(proxy)) throw ConfigError(where(node, "proxies") + ": " + fault);
            proxy = plainAddress(proxy);
        }
    }

    void readSources(const toml::node& node) {
        if (!node.is_table()) throw ConfigError(where(node, "sources") + ": must be a table");
        for (const auto& [database, source] : *node.as_table()) {
            const std::string name = "sources." + std::string(database.str());
            if (!source.is_table()) throw ConfigError(where(source, name) + ": must be a table");
            auto& entry = config_.sources[std::string(database.str())];
            for (const auto& [key, value] : *source.as_table()) readSource(entry, name, std::string(key.str()), value);
        }
    }

    void readSource(DataSource& source, const std::string& name, const std::string& key, const toml::node& value) {
        const std::string place = where(value, name + "." + key);
        if (key != "engine" && key != "location") throw ConfigError(place + ": unknown key");
        putNode(Text{key == "engine" ? &source.engine : &source.location}, value, place);
    }

    Config& config_;
    std::string file_;
};

void readFile(Config& config, const std::filesystem::path& file) try {
    if (!std::filesystem::is_regular_file(file)) throw ConfigError(file.string() + ": no such file");
    Reader(config, file.string()).readTable(toml::parse_file(file.string()), {});
} catch (const toml::parse_error& error) {
    throw ConfigError(file.string() + ":" + std::to_string(error.source().begin.line) + ": " +
                      std::string(error.description()));
}

std::string variableOf(std::string_view key) {
    std::string name = "VOREL_";
    for (const char c : key) name += c == '.' ? '_' : static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return name;
}

}  // namespace

Environment processEnvironment() {
    return [](const std::string& name) -> std::optional<std::string> {
        // Read before any thread of the host starts.
        const char* value = std::getenv(name.c_str());  // NOLINT(concurrency-mt-unsafe)
        if (value == nullptr) return std::nullopt;
        return value;
    };
}

Config readConfig(const std::optional<std::filesystem::path>& file, const Environment& environment) {
    Config config;
    config.webRoot = VOREL_WEB_ROOT;
    if (file) readFile(config, *file);
    for (const auto& key : keys) {
        const std::string variable = variableOf(key.name);
        if (const auto text = environment(variable)) putText(key.slot(config), *text, variable);
    }
    return config;
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
