#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include <sys/types.h>

namespace e2e {

/// A directory that goes when the test is over.
class Directory {
public:
    Directory();
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;
    ~Directory();
    [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }
    /// Writes a file of this directory.
    void write(const std::string& name, const std::string& text) const;

private:
    std::filesystem::path path_;
};

struct Finished {
    int status;
    std::string errors;  ///< its error stream
};
/// Runs the built program to its end.
Finished run(const std::vector<std::string>& arguments);

/// What a hospital holds beside its user `nurse`.
enum class Rows { first, demonstration };

/// Copies the databases of a hospital that is made once for the whole run.
void layOutHospital(const std::filesystem::path& data, Rows rows = Rows::first);

/// A child process of the built program with pipes at both ends.
class Process {
public:
    explicit Process(const std::vector<std::string>& arguments);
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    void writeLine(const std::string& line) const;
    /// The next line of its output, or "" at its end.
    std::string readLine();
    void closeInput();
    void kill(int signal) const;
    /// Waits for its end; the exit status, or minus the signal.
    int wait();

private:
    pid_t pid_ = -1;
    int input_ = -1;
    int output_ = -1;
    std::string pending_;
};

/// One driven session on a hospital and a program directory of its own.
class Session {
public:
    /// `files` are the program directory's, by name.
    explicit Session(const std::vector<std::pair<std::string, std::string>>& files = usualFiles(),
                     Rows rows = Rows::first);

    static std::vector<std::pair<std::string, std::string>> usualFiles() {
        return {{"made.sys", "SVR=SERVER\nHNO=001\n"}, {"sysdoc.sys", "nurse\n"}};
    }

    /// Sends a request and gives its reply.
    nlohmann::json send(const nlohmann::json& request);
    /// The same, with the reply's events.
    nlohmann::json events(const nlohmann::json& request) { return send(request)["events"]; }
    void execute(const std::string& sql, const std::string& database = "Hospital");
    /// The rows of a query.
    nlohmann::json query(const std::string& sql, const std::string& database = "Hospital");
    /// One cell.
    nlohmann::json value(const std::string& sql);
    nlohmann::json control(const std::string& path) { return send({{"get", path}})["state"]; }
    nlohmann::json variable(const std::string& name) { return send({{"get", "session"}})["state"][name]; }

    Directory data;
    Directory program;

private:
    Process start(const std::vector<std::pair<std::string, std::string>>& files, Rows rows);
    Process process_;
};

/// Reads from a hospital that no session of this test works any more.
nlohmann::json query(const std::filesystem::path& data, const std::string& sql);

/// The texts of the boxes among events.
std::vector<std::string> messages(const nlohmann::json& events);
/// Whether the events end the session.
bool ended(const nlohmann::json& events);

}  // namespace e2e
