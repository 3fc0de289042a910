#include "tests/e2e/program.h"

#include <fcntl.h>
#include <sys/wait.h>

#include <csignal>
#include <stdexcept>

#include "tests/support/directory.h"
#include "tests/support/paths.h"

namespace e2e {

namespace {

std::vector<char*> argumentsOf(std::vector<std::string>& words) {
    std::vector<char*> pointers;
    for (auto& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// The child's side of a fork: `output` takes the place of one of its streams.
[[noreturn]] void become(const std::vector<std::string>& arguments, int input, int output, int stream) {
    dup2(input, STDIN_FILENO);
    dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
    dup2(output, stream);
    for (int descriptor = 3; descriptor < 256; ++descriptor) close(descriptor);
    const auto program = (test::buildDirectory() / "vorel").string();
    std::vector<std::string> words{program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    execv(program.c_str(), argumentsOf(words).data());
    _exit(127);
}

struct Pipe {
    Pipe() {
        int ends[2];
        if (pipe(ends) != 0) throw std::runtime_error("pipe");
        read = ends[0];
        write = ends[1];
    }
    int read = -1, write = -1;
};

}  // namespace

Process::Process(const std::vector<std::string>& arguments, int stream) {
    const Pipe in, out;
    pid_ = fork();  // cppcheck-suppress useInitializationList ; the pipes come first
    if (pid_ == 0) become(arguments, in.read, out.write, stream);
    std::signal(SIGPIPE, SIG_IGN);  // one that was killed reads no more
    close(in.read);
    close(out.write);
    input_ = in.write;
    output_ = out.read;
}

Process::~Process() {
    closeInput();
    if (pid_ > 0) {
        ::kill(pid_, SIGKILL);
        wait();
    }
    close(output_);
}

void Process::writeLine(const std::string& line) const {
    const std::string text = line + "\n";
    std::size_t sent = 0;
    while (sent < text.size()) {
        const auto count = write(input_, text.data() + sent, text.size() - sent);
        if (count <= 0) return;
        sent += static_cast<std::size_t>(count);
    }
}

bool Process::readMore() {
    char buffer[65536];
    const auto count = read(output_, buffer, sizeof buffer);
    if (count > 0) pending_.append(buffer, static_cast<std::size_t>(count));
    return count > 0;
}

std::string Process::readLine() {
    while (pending_.find('\n') == std::string::npos)
        if (!readMore()) return {};
    const auto end = pending_.find('\n');
    const std::string line = pending_.substr(0, end);
    pending_.erase(0, end + 1);
    return line;
}

std::string Process::readAll() {
    while (readMore()) continue;
    return std::exchange(pending_, {});
}

void Process::closeInput() {
    if (input_ >= 0) close(input_);
    input_ = -1;
}

void Process::kill(int signal) const {
    ::kill(pid_, signal);
}

int Process::wait() {
    int status = 0;
    waitpid(pid_, &status, 0);
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

Finished run(const std::vector<std::string>& arguments) {
    Process process(arguments, STDERR_FILENO);
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
