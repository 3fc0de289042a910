// The command line: what is refused, with one clear line and a non-zero exit.

#include <gtest/gtest.h>

#include <algorithm>

#include "db/databases.h"
#include "tests/e2e/program.h"
#include "tests/support/directory.h"

namespace {

using db::operator""_sql;

using e2e::run;
using test::TemporaryDirectory;

void expectOneLine(const e2e::Finished& finished, const std::string& about) {
    EXPECT_NE(finished.status, 0);
    EXPECT_GE(finished.status, 0) << "it died by a signal";
    EXPECT_EQ(std::count(finished.errors.begin(), finished.errors.end(), '\n'), 1) << finished.errors;
    EXPECT_NE(finished.errors.find(about), std::string::npos) << finished.errors;
}

TEST(Command, DataDirectoriesThatCannotServe) {
    const TemporaryDirectory none;
    const std::string missing = (none.path() / "missing").string();
    expectOneLine(run({"serve", "--data", missing, "--port", "0"}), missing);
    expectOneLine(run({"drive", "--data", missing}), missing);
    expectOneLine(run({"database", "check", "--data", missing}), missing);
    expectOneLine(run({"database", "create", "--data", "/proc"}), "/proc");

    const TemporaryDirectory broken;
    e2e::layOutHospital(broken.path());
    broken.write("Hospital.db", "this is no database, and it is long enough to be looked at as one");
    expectOneLine(run({"serve", "--data", broken.path().string(), "--port", "0"}), "Hospital");
    expectOneLine(run({"database", "demo", "--data", broken.path().string()}), "Hospital");
}

/// A new hospital, shown, checked, aged by hand and brought forward.
TEST(Command, DatabasesFromCreateToBringForward) {
    const TemporaryDirectory data;
    const std::string directory = data.path().string();
    const auto database = [&](std::vector<std::string> words) {
        words.insert(words.begin(), "database");
        words.insert(words.begin() + 2, {"--data", directory});
        return run(words);
    };
    EXPECT_EQ(database({"create"}).status, 0);
    EXPECT_EQ(database({"check"}).status, 0);
    expectOneLine(database({"demo", "--patients", "59"}), "60");
    EXPECT_EQ(database({"demo", "--patients", "60", "--seed", "7"}).status, 0);
    EXPECT_EQ(database({"check"}).status, 0);
    expectOneLine(database({"demo"}), "holds rows");
    {
        db::DataSources sources(db::DataSources::embedded(data.path()));
        db::Databases databases(sources);
        databases.named("Hospital").execute("update SchemaVersion set version = 1"_sql);
    }
    expectOneLine(run({"serve", "--data", directory, "--port", "0"}), "version 1");
    expectOneLine(run({"user", "add", "ada", "--data", directory, "--password", "long-enough", "--role", "NURSING"}),
                  "version 1");
    EXPECT_NE(database({"check"}).status, 0);
}

TEST(Command, ConfigurationsThatCannotServe) {
    const TemporaryDirectory data;
    e2e::layOutHospital(data.path());
    const auto serveWith = [&](const std::string& config) {
        return run({"serve", "--data", data.path().string(), "--config", config, "--port", "0"});
    };
    const auto noCertificate = data.write("key.pem", "no key").string();
    const std::pair<std::string, const char*> cases[] = {
        {"port = \n", "vorel.toml"},
        {"address = \"0.0.0.0\"\n", "TLS"},
        {"encoding_table = \"abc\"\n", "encoding_table"},
        {"[tls]\ncertificate = \"" + noCertificate + "\"\nkey = \"" + noCertificate + "\"\n", "tls.certificate"},
    };
    for (const auto& [text, about] : cases) {
        SCOPED_TRACE(text);
        expectOneLine(serveWith(data.write("vorel.toml", text).string()), about);
    }
    expectOneLine(serveWith("/nowhere/vorel.toml"), "/nowhere/vorel.toml");
}

TEST(Command, UsersThatCannotBeAdded) {
    const TemporaryDirectory data;
    e2e::layOutHospital(data.path());
    const auto add = [&](const char* user, const char* password, const char* role) {
        return run({"user", "add", user, "--data", data.path().string(), "--password", password, "--role", role});
    };
    expectOneLine(add("nurse", "long-enough", "NURSING"), "nurse");
    expectOneLine(add("ada", "long-enough", "SORCERY"), "SORCERY");
    expectOneLine(add("ada", "a b", "NURSING"), "password");
    EXPECT_EQ(run({"database", "check", "--data", data.path().string()}).status, 0);
}

}  // namespace
