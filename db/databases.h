#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/connection.h"
#include "db/datetime.h"
#include "db/sharedreads.h"

namespace db {

/// The clock that the embedded server reads for getdate(). `stopAt` stops it at a moment, for scripts and tests.
class ServerClock {
public:
    [[nodiscard]] DateTime now() const;
    void stopAt(DateTime moment);

private:
    mutable std::mutex mutex_;
    std::optional<DateTime> stopped_;
};

/// One row of the data-source table: which engine serves a database, and where.
struct Source {
    std::string engine = "sqlite";  ///< the folder of that name below db/
    std::string location;           ///< for sqlite: the file
};

/// Idle lines to one database, for all sessions of the host. Thread-safe.
class EnginePool {
public:
    using Opener = std::function<std::unique_ptr<Engine>()>;

    EnginePool(std::string database, const Source& source, const std::map<std::string, Source>& sisters,
               ServerClock& clock);
    /// With a way of its own to open a line. `single` for a database that lives in its only line: that one is kept, and
    /// asking for it while it is out is Error(busy).
    explicit EnginePool(Opener open, bool single = false);
    EnginePool(const EnginePool&) = delete;
    EnginePool& operator=(const EnginePool&) = delete;
    ~EnginePool();
    /// An idle line that is still alive, or a new one. Throws Error(lostConnection).
    std::unique_ptr<Engine> borrow();
    void giveBack(std::unique_ptr<Engine> engine) noexcept;
    /// Closes a borrowed line that is of no use any more.
    void discard(std::unique_ptr<Engine> engine) noexcept;
    [[nodiscard]] SharedReads& sharedReads() noexcept { return sharedReads_; }

private:
    struct State;
    std::unique_ptr<State> state_;
    SharedReads sharedReads_;
};

/// The data sources of a host: every session's lines come from here. Thread-safe; outlives all sessions.
class DataSources {
public:
    /// `sources` by the name behind "Database=" in a connection string.
    explicit DataSources(std::map<std::string, Source> sources);
    DataSources(const DataSources&) = delete;
    DataSources& operator=(const DataSources&) = delete;
    ~DataSources();

    /// The four databases as SQLite files "Hospital.db", ... in one directory: the default.
    static std::map<std::string, Source> embedded(const std::filesystem::path& directory);
    /// The four names, in the order of creation.
    static const std::vector<std::string>& names();

    [[nodiscard]] const std::map<std::string, Source>& sources() const noexcept { return sources_; }
    [[nodiscard]] ServerClock& clock() noexcept { return clock_; }
    /// Throws Error(lostConnection) for a database that no source serves.
    EnginePool& pool(const std::string& database);
    /// The name of the source that serves a database, whatever letter case it is asked for in. Throws likewise.
    [[nodiscard]] const std::string& served(std::string_view database) const;

private:
    std::map<std::string, Source> sources_;
    ServerClock clock_;
    std::mutex mutex_;
    std::map<std::string, std::unique_ptr<EnginePool>> pools_;
};

/// A session's connections: one a database, handed out whenever a screen "opens" one, so whatever a session opens
/// while it has a transaction joins it.
class Databases {
public:
    explicit Databases(DataSources& sources) : sources_(sources) {}

    /// The connection for a connection string ("Driver={SQL Server};Server=S;Database=Hospital;UID=..;PWD=..").
    /// Throws Error(lostConnection) where the string names no database that is served.
    Connection& open(std::string_view connectionString);
    Connection& named(const std::string& database);

    /// Replaces the recorder that sees every statement of this session first; an empty one records nothing.
    void setRecorder(Recorder recorder) { recorder_ = std::move(recorder); }
    /// Sets what runs around each outermost commit of this session, on any of its databases.
    void setAroundCommit(AroundCommit aroundCommit) { aroundCommit_ = std::move(aroundCommit); }
    /// Gives idle lines back; called when the session waits for its user.
    void idle() noexcept;
    /// Rolls back whatever is open: the session ends, or an operation was left in the middle.
    void rollbackAll() noexcept;
    [[nodiscard]] bool holdsWriteLock() const noexcept;
    [[nodiscard]] bool inTransaction() const noexcept {
        for (const auto& [name, connection] : open_)
            if (connection->inTransaction()) return true;
        return false;
    }
    [[nodiscard]] DataSources& sources() noexcept { return sources_; }

private:
    DataSources& sources_;
    Recorder recorder_;
    AroundCommit aroundCommit_;
    std::map<std::string, std::unique_ptr<Connection>, std::less<>> open_;
};

}  // namespace db
