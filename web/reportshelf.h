#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "ui/desktop.h"

namespace web {

/// A report as it was when it was made: texts only, so any thread may read it.
struct KeptReport {
    struct Cell {
        std::string text;
        bool number = false;
    };
    std::uint64_t id = 0;
    std::string name;
    std::string title;
    std::string period;  ///< whom and which days it is about
    std::string hospital;
    std::string made;  ///< date and time
    std::vector<std::string> columns;
    std::vector<std::vector<Cell>> rows;
    std::size_t bytes = 0;  ///< that the rows take
};

/// The last reports of a session, for the pages that show them. Thread-safe.
class ReportShelf {
public:
    explicit ReportShelf(std::size_t most) : most_(most) {}
    /// Keeps a copy under the next number, from 1; the oldest go that are beyond the limit, in
    /// their number or in what all take.
    std::uint64_t keep(const ui::Report& report, const std::string& hospital);
    /// Nothing where the report is unknown or gone.
    [[nodiscard]] std::shared_ptr<const KeptReport> find(std::uint64_t id) const;

private:
    std::size_t most_;
    mutable std::mutex mutex_;
    std::deque<std::shared_ptr<const KeptReport>> reports_;
    std::uint64_t last_ = 0;
    std::size_t bytes_ = 0;
};

/// A page made for printing, with the addresses of its style and its script.
std::string reportPage(const KeptReport& report, const std::string& style, const std::string& script);
/// Comma-separated values as spreadsheets read them; a text that one would take for a formula gets an apostrophe.
std::string reportCsv(const KeptReport& report);

}  // namespace web
