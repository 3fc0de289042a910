#include "tests/e2e/program.h"
#include "tests/support/paths.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

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

Directory::Directory() {
    std::string name = (std::filesystem::temp_directory_path() / "vorel-e2e-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("mkdtemp");
    path_ = name;
}

Directory::~Directory() {
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path_, ignored);
}

void Directory::write(const std::string& name, const std::string& text) const {
    std::ofstream(path_ / name, std::ios::binary) << text;
}

Process::Process(const std::vector<std::string>& arguments) {
    const Pipe in, out;
    pid_ = fork();  // cppcheck-suppress useInitializationList ; the pipes come first
    if (pid_ == 0) become(arguments, in.read, out.write, STDOUT_FILENO);
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

std::string Process::readLine() {
    for (;;) {
        if (const auto end = pending_.find('\n'); end != std::string::npos) {
            std::string line = pending_.substr(0, end);
            pending_.erase(0, end + 1);
            return line;
        }
        char buffer[65536];
        const auto count = read(output_, buffer, sizeof buffer);
        if (count <= 0) return {};
        pending_.append(buffer, static_cast<std::size_t>(count));
    }
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
    const Pipe in, out;
    const pid_t pid = fork();
    if (pid == 0) become(arguments, in.read, out.write, STDERR_FILENO);
    close(in.read);
    close(in.write);
    close(out.write);
    Finished finished{};
    char buffer[4096];
    for (ssize_t count = 0; (count = read(out.read, buffer, sizeof buffer)) > 0;)
        finished.errors.append(buffer, static_cast<std::size_t>(count));
    close(out.read);
    int status = 0;
    waitpid(pid, &status, 0);
    finished.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return finished;
}

namespace {

void mustRun(const std::vector<std::string>& arguments) {
    const auto step = run(arguments);
    if (step.status != 0) throw std::runtime_error(step.errors);
}

class Model {
public:
    explicit Model(Rows rows) {
        const std::string data = directory_.path().string();
        mustRun({"database", "create", "--data", data});
        if (rows == Rows::demonstration) mustRun({"database", "demo", "--data", data});
        mustRun({"user", "add", "nurse", "--data", data, "--password", "secret-words", "--role", "NURSING",
                 "--full-name", "Ada Nurse", "--emp-id", "E1"});
    }
    void copyTo(const std::filesystem::path& data) const {
        for (const auto& file : std::filesystem::directory_iterator(directory_.path()))
            if (file.is_regular_file()) std::filesystem::copy_file(file.path(), data / file.path().filename());
    }

private:
    Directory directory_;
};

}  // namespace

void layOutHospital(const std::filesystem::path& data, Rows rows) {
    if (rows == Rows::demonstration) {
        static const Model demonstration(rows);
        return demonstration.copyTo(data);
    }
    static const Model first(rows);
    first.copyTo(data);
}

Session::Session(const std::vector<std::pair<std::string, std::string>>& files, Rows rows)
    : process_(start(files, rows)) {
    send({{"clock", "2026-11-24 09:30:00"}});
}

Process Session::start(const std::vector<std::pair<std::string, std::string>>& files, Rows rows) {
    layOutHospital(data.path(), rows);
    for (const auto& [name, text] : files) program.write(name, text);
    return Process({"drive", "--data", data.path().string(), "--program-dir", program.path().string()});
}

nlohmann::json Session::send(const nlohmann::json& request) {
    process_.writeLine(request.dump());
    const std::string line = process_.readLine();
    if (line.empty()) throw std::runtime_error("the session is over; it got " + request.dump());
    return nlohmann::json::parse(line);
}

void Session::execute(const std::string& sql, const std::string& database) {
    const auto reply = send({{"execute", sql}, {"on", database}});
    if (!reply.contains("affected")) throw std::runtime_error(reply.dump());
}

nlohmann::json Session::query(const std::string& sql, const std::string& database) {
    const auto reply = send({{"query", sql}, {"on", database}});
    if (!reply.contains("rows")) throw std::runtime_error(reply.dump());
    return reply["rows"];
}

nlohmann::json Session::value(const std::string& sql) {
    const auto rows = query(sql);
    return rows.empty() ? nlohmann::json() : rows.front().items().begin().value();
}

nlohmann::json query(const std::filesystem::path& data, const std::string& sql) {
    Process process({"drive", "--data", data.string()});
    process.writeLine(nlohmann::json{{"query", sql}, {"on", "Hospital"}}.dump());
    const auto reply = nlohmann::json::parse(process.readLine());
    if (!reply.contains("rows")) throw std::runtime_error(reply.dump());
    return reply["rows"];
}

std::vector<std::string> messages(const nlohmann::json& events) {
    std::vector<std::string> texts;
    for (const auto& event : events)
        if (event.contains("message")) texts.push_back(event["message"]["text"]);
    return texts;
}

bool ended(const nlohmann::json& events) {
    for (const auto& event : events)
        if (event.contains("ended")) return true;
    return false;
}

}  // namespace e2e
