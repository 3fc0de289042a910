#include "db/sqlite/line.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "db/sqlite/errors.h"

namespace db::sqlite {
namespace {

constexpr std::chrono::milliseconds lookInterval{100};

/// One line a session at work: the page cache grows with what it reads and ends at 2 MB. A commit is in the log then
/// and on the disk with `Line::sync`: behind the writer's turn, where many wait for one sync.
constexpr const char* settings =
    "pragma busy_timeout = 10000; pragma journal_mode = WAL; pragma synchronous = NORMAL; pragma foreign_keys = on;"
    "pragma cache_size = -2000; pragma temp_store = memory; select count(*) from sqlite_master;";

}  // namespace

Line::Line(const std::string& database, std::string file)
    : file_(std::move(file)),
      memory_(file_ == ":memory:"),
      writers_(memory_ ? std::make_shared<WriterQueue>() : WriterQueue::of(file_)) {
    open(database);
    opened_ = identity();
    looked_ = std::chrono::steady_clock::now();
}

void Line::open(const std::string& database) {
    const auto failed = [&](const std::string& why, const std::string& cause) {
        return Error(Category::lostConnection, "Cannot open database \"" + database + "\": " + why, "open", cause);
    };
    if (!memory_ && identity() == Identity{}) throw failed("its file is missing.", file_);
    sqlite3* line = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    auto code = sqlite3_open_v2(file_.c_str(), &line, memory_ ? flags | SQLITE_OPEN_CREATE : flags, nullptr);
    handle_.reset(line);
    if (code == SQLITE_OK) {
        sqlite3_db_config(line, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
        sqlite3_db_config(line, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
        code = sqlite3_exec(line, settings, nullptr, nullptr, nullptr);
    }
    if (code == SQLITE_OK) return;
    const bool foreign = (code & 0xFF) == SQLITE_NOTADB || (code & 0xFF) == SQLITE_CORRUPT;
    throw failed(foreign ? "its file is no database." : "its file cannot be read and written.",
                 line == nullptr ? "no memory" : sqlite3_errmsg(line));
}

Line::Identity Line::identity() const noexcept {
    struct stat status {};
    if (memory_ || ::stat(file_.c_str(), &status) != 0) return {};
    return {static_cast<unsigned long>(status.st_dev), static_cast<unsigned long>(status.st_ino)};
}

void Line::check(int code, const char* operation) {
    if (code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE) return;
    lost_ = lost_ || meansLost(code);
    throw failure(handle(), code, operation);
}

void Line::run(const char* sql, const char* operation) {
    check(sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr), operation);
}

void Line::sync() {
    if (!memory_) writers_->syncs().join([this] { syncLog(); });
}

void Line::syncLog() const {
    const auto log = file_ + "-wal";
    const int file = ::open(log.c_str(), O_RDONLY | O_CLOEXEC);
    const bool synced = file >= 0 && ::fdatasync(file) == 0;
    const auto cause = log + ": " + std::strerror(errno);
    if (file >= 0) ::close(file);
    if (!synced) throw Error(Category::other, "disk I/O error", "sync the log", cause);
}

bool Line::present() noexcept {
    const auto now = std::chrono::steady_clock::now();
    if (lost_ || memory_ || now - looked_ < lookInterval) return !lost_;
    looked_ = now;
    lost_ = identity() != opened_;
    return !lost_;
}

void Line::requirePresent() {
    if (!present())
        throw Error(Category::lostConnection, "Communication link failure: the database is not there any more.",
                    "look for the file", file_);
}

}  // namespace db::sqlite
