#pragma once

#include <sqlite3.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include "db/error.h"
#include "db/sqlite/writerqueue.h"

namespace db::sqlite {

struct Closer {
    void operator()(sqlite3* line) const noexcept { sqlite3_close_v2(line); }
};

/// How long a writer waits for others.
inline constexpr std::chrono::milliseconds writerPatience{10'000};

/// The open file of a database: its handle, its place in the queue of writers, and whether it is still there.
class Line {
public:
    /// `file` ":memory:" for a database of this line alone. Throws Error(lostConnection).
    Line(const std::string& database, std::string file);

    [[nodiscard]] sqlite3* handle() const noexcept { return handle_.get(); }
    [[nodiscard]] WriterQueue& writers() const noexcept { return *writers_; }

    /// Throws where a result code is a failure; notes when it means that the file is lost.
    void check(int code, const char* operation);
    /// Runs statements without rows.
    void run(const char* sql, const char* operation);
    /// Returns once what this line has committed is on the disk. Throws Error(other) where the disk failed.
    void sync();
    [[nodiscard]] bool autocommit() const noexcept { return sqlite3_get_autocommit(handle()) != 0; }

    /// False when the file behind the line was removed or replaced. Looks at most every tenth of a second.
    [[nodiscard]] bool present() noexcept;
    /// Throws Error(lostConnection) unless `present`.
    void requirePresent();

private:
    struct Identity {
        unsigned long device = 0, inode = 0;
        bool operator==(const Identity&) const = default;
    };
    [[nodiscard]] Identity identity() const noexcept;
    void open(const std::string& database);
    void syncLog() const;

    std::string file_;
    bool memory_;
    bool lost_ = false;
    std::shared_ptr<WriterQueue> writers_;
    std::unique_ptr<sqlite3, Closer> handle_;
    Identity opened_;
    std::chrono::steady_clock::time_point looked_;
};

}  // namespace db::sqlite
