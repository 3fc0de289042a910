#include <gtest/gtest.h>

#include "tests/web/site_fixture.h"
#include "web/config.h"

namespace {

using web::Config;

std::optional<std::string> noEnvironment(const std::string&) {
    return std::nullopt;
}

Config read(const std::optional<std::filesystem::path>& file, const web::Environment& environment) {
    Config config;
    web::readSettings(file, environment, web::settingsOf(config));
    return config;
}

/// The error's text, or "" where the configuration is read.
std::string faultOf(const std::string& text, const web::Environment& environment = &noEnvironment) {
    const test::TemporaryDirectory directory;
    const auto file = directory.write("vorel.toml", text);
    try {
        web::requireServable(read(file, environment));
        return {};
    } catch (const web::ConfigError& error) {
        return error.what();
    }
}

TEST(Config, BrokenFilesAreToldByFileLineAndKey) {
    const struct {
        const char* name;
        const char* text;
        const char* told;
    } cases[] = {
        {"no TOML", "port = \n", "vorel.toml:1: "},
        {"unknown key", "port = 1\nprot = 8080\n", "vorel.toml:2: prot: unknown key"},
        {"unknown key in a table", "[tls]\ncertficate = \"x\"\n", "vorel.toml:2: tls.certficate: unknown key"},
        {"text for a number", "port = \"8080\"\n", "vorel.toml:1: port: must be a whole number"},
        {"port too high", "port = 65536\n", "port: must be 0 to 65535"},
        {"number for a text", "address = 5\n", "address: must be a text"},
        {"number for a flag", "allow_plain_remote = 1\n", "allow_plain_remote: must be true or false"},
        {"no address", "\naddress = \"localhost.example\"\n", "vorel.toml:2: address: must be an IP address"},
        {"value for a table", "tls = 5\n", "tls: must be a table"},
        {"log level", "[log]\nlevel = \"loud\"\n", "vorel.toml:2: log.level: must be"},
        {"origins", "origins = [1]\n", "origins: must be a list of texts"},
        {"a proxy's name", "proxies = [\"proxy\"]\n", "vorel.toml:1: proxies: must be an IP address"},
        {"message limit", "[session]\nlongest_message = 9000000\n", "session.longest_message: must be"},
        {"half a certificate", "[tls]\ncertificate = \"a.pem\"\n", "tls: certificate and key belong together"},
        {"plain beyond this machine", "address = \"0.0.0.0\"\n", "without TLS"},
        {"plain beyond this machine, IPv6", "address = \"::\"\n", "without TLS"},
    };
    for (const auto& row : cases) {
        const std::string told = faultOf(row.text);
        EXPECT_NE(told.find(row.told), std::string::npos) << row.name << ": " << told;
        EXPECT_EQ(told.find('\n'), std::string::npos) << row.name;
    }
}

TEST(Config, AddressesThatMayBeServedPlain) {
    for (const char* text : {"address = \"127.0.0.1\"", "address = \"127.9.9.9\"", "address = \"::1\"",
                             "address = \"0.0.0.0\"\nallow_plain_remote = true",
                             "address = \"0.0.0.0\"\n[tls]\ncertificate = \"a\"\nkey = \"b\""})
        EXPECT_EQ(faultOf(text), "") << text;
}

TEST(Config, EnvironmentWinsOverTheFile) {
    const test::TemporaryDirectory directory;
    const auto file = directory.write(
        "vorel.toml", "port = 1\naddress = \"127.0.0.2\"\nproxies = [\"::ffff:10.0.0.1\"]\n[log]\nlevel = \"error\"\n");
    const std::map<std::string, std::string> variables{
        {"VOREL_PORT", "2"}, {"VOREL_ALLOW_PLAIN_REMOTE", "true"}, {"VOREL_TLS_KEY", "k"}};
    const auto environment = [&](const std::string& name) -> std::optional<std::string> {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    };
    const Config config = read(file, environment);
    EXPECT_EQ(config.port, 2);
    EXPECT_EQ(config.address, "127.0.0.2");
    EXPECT_TRUE(config.allowPlainRemote);
    EXPECT_EQ(config.key, "k");
    EXPECT_EQ(config.logLevel, "error");
    EXPECT_EQ(config.proxies, std::vector<std::string>{"10.0.0.1"});

    const auto broken = [](const std::string& name) -> std::optional<std::string> {
        if (name != "VOREL_PORT") return std::nullopt;
        return "80x";
    };
    EXPECT_THROW((void)read(std::nullopt, broken), web::ConfigError);
}

}  // namespace
