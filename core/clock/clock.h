#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "core/session/workplace.h"

namespace core {

/// The server's date and time; the zero date when the view gives no row. Throws db::Error.
db::DateTime GetServerNow(Workplace& place);
/// A moment's time of day as the "short time" form has it: without seconds, on the zero date.
db::DateTime shortTime(db::DateTime moment);
/// What a list says of itself when a save has read it anew: "Up to date as of 24-Nov-2026 09:35".
std::string upToDateAsOf(const db::DateTime& moment);
/// `gServerDate` and `gServerTime` (to the minute) from `gServerNow`.
void splitServerClock(Session& session);
/// GetServerNow into `gServerNow`, `gServerDate` and `gServerTime`.
void refreshServerClock(Workplace& place);

/// Lets the session go on working for so long, or until one of `handles` is signalled: the result is that handle's
/// index, or 258 at the deadline.
inline constexpr int waitTimedOut = 258;
int WaitWithEvents(Workplace& place, std::chrono::milliseconds wait,
                   const std::vector<std::function<bool()>>& handles = {});

}  // namespace core
