#pragma once

#include <boost/process/child.hpp>
#include <boost/process/pipe.hpp>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace e2e {

/// A child process of the built program with pipes at both ends. It is killed with the object.
class Process {
public:
    enum class Reads { output, errors };  ///< which of its streams is read here
    explicit Process(const std::vector<std::string>& arguments, Reads reads = Reads::output);

    void writeLine(const std::string& line) { input_ << line << std::endl; }
    /// The next line of its output, or "" at its end.
    std::string readLine();
    /// All that is still to come.
    std::string readAll();
    void closeInput() { input_.close(); }
    void kill(int signal) const;
    /// Waits for its end; the exit status, or minus the signal.
    int wait();

private:
    boost::process::opstream input_;
    boost::process::ipstream output_;
    boost::process::child child_;
};

struct Finished {
    int status;
    std::string errors;  ///< its error stream
};
/// Runs the built program to its end.
Finished run(const std::vector<std::string>& arguments);

/// Copies the databases of a hospital with the user `nurse`, which is made once for the whole run.
void layOutHospital(const std::filesystem::path& data);

/// A session that is driven by a script, line by line.
class Session : public Process {
public:
    explicit Session(const std::filesystem::path& data, const std::vector<std::string>& options = {});

    /// Sends a request and gives its reply; null where the program has gone.
    nlohmann::json send(const nlohmann::json& request);
    void execute(const std::string& sql);
    /// The rows of a query.
    nlohmann::json query(const std::string& sql);
    nlohmann::json control(const std::string& path) { return send({{"get", path}})["state"]; }
    nlohmann::json variable(const std::string& name) { return send({{"get", "session"}})["state"][name]; }
};

}  // namespace e2e
