#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace web {

enum class Level { debug, info, warning, error, off };

/// Lines below this level are dropped; `info` at first.
void setLogLevel(Level level) noexcept;

using LogField = std::pair<std::string_view, std::string>;

/// Writes one line to standard error: "2026-11-24T21:44:16Z level=info event=sign-in user=nurse address=127.0.0.1".
/// Thread-safe. Fields never hold a patient's data, a statement's values, or what a nurse typed into a screen.
void log(Level level, std::string_view event, std::span<const LogField> fields) noexcept;
void log(Level level, std::string_view event, std::initializer_list<LogField> fields = {}) noexcept;

/// The same for what anybody on the network may cause as often as he likes: of each such event at most twenty lines a
/// second are written, so that nobody fills the disk, and none hides another. The event's next line then tells how many
/// were not: "unlogged=480". Events are names of the program's own, which stand for good.
void logOften(Level level, std::string_view event, std::vector<LogField> fields = {}) noexcept;

}  // namespace web
