#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/controls.h"

namespace core {

/// A grid of the lines that a user puts together before a save: filled lines, and one empty line at the end.
class EntryGrid : public ui::FlexGrid {
public:
    using Line = std::vector<std::string>;

    /// `header` names the columns, with "|" between them.
    EntryGrid(ui::Screen& screen, std::string name, std::string_view header);

    [[nodiscard]] std::size_t lineCount() const noexcept { return rowCount() - 1; }
    /// Cells of a filled line. Throws db::Error(other) for a line or column that is not there.
    [[nodiscard]] const std::string& text(std::size_t line, std::size_t column) const { return cell(line, column); }
    /// Whether a filled line has this text in a column: the check for duplicates.
    [[nodiscard]] bool has(std::size_t column, std::string_view text) const;
    /// The sum of a column's numbers, with or without thousands separators; what is no number counts as 0.
    [[nodiscard]] double sum(std::size_t column) const;
    /// Puts a line in front of the empty one.
    void addLine(Line cells);
    /// The picked line; nothing where no filled one is picked.
    [[nodiscard]] std::optional<std::size_t> picked() const noexcept;
    /// What a screen does once a line is away, before the user is told: `line` is where it stood.
    using Taken = std::function<void(std::size_t line, const Line& cells)>;
    /// Asks, takes the picked line away and says so. Gives its cells, so that they can be entered anew; nothing where
    /// no filled line is picked or the user thinks better of it.
    std::optional<Line> takeBack(const Taken& taken = {});
    /// Leaves the empty line alone.
    void clearLines();
};

}  // namespace core
