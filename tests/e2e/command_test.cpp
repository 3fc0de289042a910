// The command line: what is refused, with one clear line and a non-zero exit.

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>

#include "db/databases.h"
#include "db/recordset.h"
#include "tests/e2e/program.h"

namespace {

using db::operator""_sql;

using e2e::Directory;
using e2e::run;

void expectOneLine(const e2e::Finished& finished, const std::string& about) {
    EXPECT_NE(finished.status, 0);
    EXPECT_GE(finished.status, 0) << "it died by a signal";
    EXPECT_EQ(std::count(finished.errors.begin(), finished.errors.end(), '\n'), 1) << finished.errors;
    EXPECT_NE(finished.errors.find(about), std::string::npos) << finished.errors;
}

TEST(Command, DataDirectoriesThatCannotServe) {
    const Directory none;
    const std::string missing = (none.path() / "missing").string();
    expectOneLine(run({"serve", "--data", missing, "--port", "0"}), missing);
    expectOneLine(run({"drive", "--data", missing}), missing);
    expectOneLine(run({"database", "check", "--data", missing}), missing);

    const Directory broken;
    e2e::layOutHospital(broken.path());
    broken.write("Hospital.db", "this is no database, and it is long enough to be looked at as one");
    expectOneLine(run({"serve", "--data", broken.path().string(), "--port", "0"}), "Hospital");
    expectOneLine(run({"database", "demo", "--data", broken.path().string()}), "Hospital");
}

/// A new hospital, shown, checked, aged by hand and brought forward.
TEST(Command, DatabasesFromCreateToBringForward) {
    const Directory data;
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

TEST(Command, ADataDirectoryThatNobodyCanWrite) {
    expectOneLine(run({"database", "create", "--data", "/proc"}), "/proc");
}

TEST(Command, APortInUse) {
    const Directory data;
    e2e::layOutHospital(data.path());
    const int taken = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ASSERT_EQ(bind(taken, reinterpret_cast<sockaddr*>(&address), size), 0);
    ASSERT_EQ(listen(taken, 1), 0);
    getsockname(taken, reinterpret_cast<sockaddr*>(&address), &size);
    const std::string port = std::to_string(ntohs(address.sin_port));
    expectOneLine(run({"serve", "--data", data.path().string(), "--port", port}), port);
    close(taken);
}

TEST(Command, BrokenConfigurations) {
    const Directory data;
    e2e::layOutHospital(data.path());
    const struct {
        const char* text;
        const char* about;
    } cases[] = {
        {"port = \n", "vorel.toml"},
        {"port = \"many\"\n", "port"},
        {"prot = 8080\n", "prot"},
        {"address = \"0.0.0.0\"\n", "TLS"},
        {"encoding_table = \"abc\"\n", "encoding_table"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.text);
        data.write("vorel.toml", row.text);
        expectOneLine(run({"serve", "--data", data.path().string(), "--config", (data.path() / "vorel.toml").string(),
                           "--port", "0"}),
                      row.about);
    }
    expectOneLine(run({"serve", "--data", data.path().string(), "--config", "/nowhere/vorel.toml"}),
                  "/nowhere/vorel.toml");
}

TEST(Command, UsersThatCannotBeAdded) {
    const Directory data;
    e2e::layOutHospital(data.path());
    const std::string directory = data.path().string();
    expectOneLine(run({"user", "add", "nurse", "--data", directory, "--password", "long-enough", "--role", "NURSING"}),
                  "nurse");
    expectOneLine(run({"user", "add", "ada", "--data", directory, "--password", "long-enough", "--role", "SORCERY"}),
                  "SORCERY");
    expectOneLine(run({"user", "add", "ada", "--data", directory, "--password", "a b", "--role", "NURSING"}),
                  "password");
    EXPECT_EQ(run({"database", "check", "--data", directory}).status, 0);
}

}  // namespace
