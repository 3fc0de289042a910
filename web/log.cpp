#include "web/log.h"

#include <unistd.h>

#include <array>
#include <atomic>
#include <ctime>
#include <map>
#include <mutex>
#include <utility>

namespace web {

namespace {

std::atomic<Level> lowest{Level::info};

std::string_view nameOf(Level level) {
    static constexpr std::array<std::string_view, 4> names{"debug", "info", "warning", "error"};
    return names.at(static_cast<std::size_t>(level));
}

bool plain(char c) {
    return c > ' ' && c != '"' && c != '\\' && c != '=' && c != '\x7f';
}

/// Bare where nothing can be mistaken, else in quotes with control characters taken out: a line stays one line.
void appendValue(std::string& line, std::string_view value) {
    bool bare = !value.empty();
    for (const char c : value) bare = bare && plain(c);
    if (bare) {
        line += value;
        return;
    }
    line += '"';
    for (const char c : value) {
        if (c == '"' || c == '\\') line += '\\';
        line += static_cast<unsigned char>(c) < ' ' || c == '\x7f' ? '?' : c;
    }
    line += '"';
}

/// How often an event was written in the current second.
struct Budget {
    std::time_t second = 0;
    unsigned written = 0;
    std::uint64_t unlogged = 0;  ///< since its last line

    bool allows(std::time_t now) {
        constexpr unsigned mostInASecond = 20;
        if (std::exchange(second, now) != now) written = 0;
        if (written++ < mostInASecond) return true;
        ++unlogged;
        return false;
    }
};

std::string timeStamp() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    gmtime_r(&now, &parts);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

}  // namespace

void setLogLevel(Level level) noexcept {
    lowest = level;
}

void log(Level level, std::string_view event, std::initializer_list<LogField> fields) noexcept {
    log(level, event, std::span(fields.begin(), fields.size()));
}

void log(Level level, std::string_view event, std::span<const LogField> fields) noexcept try {
    if (level < lowest.load() || level == Level::off) return;
    std::string line = timeStamp();
    line += " level=";
    line += nameOf(level);
    line += " event=";
    line += event;
    for (const auto& [name, value] : fields) {
        line += ' ';
        line += name;
        line += '=';
        appendValue(line, value);
    }
    line += '\n';
    // One write a line, so that the threads' lines do not mix; where the log cannot be written there is nobody to tell.
    if (::write(STDERR_FILENO, line.data(), line.size()) < 0) return;
} catch (const std::exception&) {
    return;
}

void logOften(Level level, std::string_view event, std::vector<LogField> fields) noexcept try {
    if (level < lowest.load()) return;
    static std::mutex mutex;
    static std::map<std::string_view, Budget> budgets;  ///< by event
    {
        const std::lock_guard lock(mutex);
        Budget& budget = budgets[event];
        if (!budget.allows(std::time(nullptr))) return;
        if (budget.unlogged > 0) fields.emplace_back("unlogged", std::to_string(std::exchange(budget.unlogged, 0)));
    }
    log(level, event, fields);
} catch (const std::exception&) {
    return;
}

}  // namespace web
