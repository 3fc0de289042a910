#include "tests/e2e/program.h"

#include <fcntl.h>
#include <sys/wait.h>

#include <boost/process/args.hpp>
#include <boost/process/io.hpp>
#include <csignal>
#include <iterator>
#include <stdexcept>

#include "tests/support/directory.h"
#include "tests/support/paths.h"

namespace e2e {

namespace bp = boost::process;

Process::Process(const std::vector<std::string>& arguments, Reads reads) {
    std::signal(SIGPIPE, SIG_IGN);  // one that was killed reads no more
    for (const int end : {input_.pipe().native_source(), input_.pipe().native_sink(), output_.pipe().native_source(),
                          output_.pipe().native_sink()})
        fcntl(end, F_SETFD, FD_CLOEXEC);  // no other child holds them open
    const auto program = (test::buildDirectory() / "vorel").string();
    if (reads == Reads::errors)
        child_ =
            bp::child(program, bp::args(arguments), bp::std_in<input_, bp::std_out> bp::null, bp::std_err > output_);
    else
        child_ = bp::child(program, bp::args(arguments), bp::std_in<input_, bp::std_out> output_);
}

std::string Process::readLine() {
    std::string line;
    std::getline(output_, line);
    return line;
}

std::string Process::readAll() {
    return std::string(std::istreambuf_iterator<char>(output_), std::istreambuf_iterator<char>());
}

void Process::kill(int signal) const {
    ::kill(child_.id(), signal);
}

int Process::wait() {
    child_.wait();
    const int status = child_.native_exit_code();
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

Finished run(const std::vector<std::string>& arguments) {
    Process process(arguments, Process::Reads::errors);
    process.closeInput();
    const std::string errors = process.readAll();
    return {process.wait(), errors};
}

namespace {

/// The databases that each test gets a copy of.
struct Model {
    test::TemporaryDirectory directory;

    Model() {
        const std::string data = directory.path().string();
        for (const std::vector<std::string>& arguments : std::initializer_list<std::vector<std::string>>{
                 {"database", "create", "--data", data},
                 {"user", "add", "nurse", "--data", data, "--password", "secret-words", "--role", "NURSING",
                  "--full-name", "Ada Nurse", "--emp-id", "E1"}}) {
            const auto step = run(arguments);
            if (step.status != 0) throw std::runtime_error(step.errors);
        }
    }
};

std::vector<std::string> driven(const std::filesystem::path& data, const std::vector<std::string>& options) {
    std::vector<std::string> arguments{"drive", "--data", data.string()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return arguments;
}

}  // namespace

void layOutHospital(const std::filesystem::path& data) {
    static const Model model;
    for (const auto& file : std::filesystem::directory_iterator(model.directory.path()))
        if (file.is_regular_file()) std::filesystem::copy_file(file.path(), data / file.path().filename());
}

Session::Session(const std::filesystem::path& data, const std::vector<std::string>& options)
    : Process(driven(data, options)) {}

nlohmann::json Session::send(const nlohmann::json& request) {
    writeLine(request.dump());
    const std::string line = readLine();
    return line.empty() ? nlohmann::json() : nlohmann::json::parse(line);
}

void Session::execute(const std::string& sql) {
    const auto reply = send({{"execute", sql}, {"on", "Hospital"}});
    if (!reply.contains("affected")) throw std::runtime_error(reply.dump());
}

nlohmann::json Session::query(const std::string& sql) {
    const auto reply = send({{"query", sql}, {"on", "Hospital"}});
    if (!reply.contains("rows")) throw std::runtime_error(reply.dump());
    return reply["rows"];
}

}  // namespace e2e
