#pragma once

#include <functional>
#include <iosfwd>
#include <nlohmann/json_fwd.hpp>

#include "core/session/loadsession.h"
#include "core/session/workplace.h"
#include "ui/conversation.h"

namespace drive {

/// One session worked by a script: a JSON request a line comes in, a JSON reply a line goes out. Beside what pages may
/// ask it serves `start`, `show`, `tick`, `clock`, `query`, `execute`, `trace` and `fail`, and the session variables.
/// Boxes with OK only answer themselves, and timers tick when the script says so.
class Driver {
public:
    /// `start` begins the session (core::LoadSession).
    Driver(core::Workplace& place, std::function<void(core::Workplace&)> start, std::istream& requests,
           std::ostream& replies);
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;
    ~Driver();

    /// Serves the script to its end, or to the end of the session; what stays open is rolled back. The program's exit
    /// code.
    int run();

private:
    using Json = nlohmann::json;
    void addSessionRequests();
    void addDatabaseRequests();
    void start(const Json& request);
    void show(const Json& request);
    void get(const Json& request, Json& reply);
    void stopClock(const Json& request);
    void failLater(const Json& request);
    void readNext();
    void record(const db::Statement& statement);
    /// Runs a statement of the script's own, which the recorder does not see.
    void apart(const Json& request, const char* key, const std::function<void(db::Connection&, const db::Sql&)>& work);

    core::Workplace& place_;
    std::function<void(core::Workplace&)> start_;
    std::istream& requests_;
    std::ostream& replies_;
    ui::Conversation conversation_;
    bool started_ = false;
    bool scriptOver_ = false;
    bool apart_ = false;
    bool traces_ = false;
    std::int64_t writesUntilFailure_ = 0;  ///< 0 for none
};

}  // namespace drive
