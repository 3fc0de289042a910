#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ui {

/// The words for a column of a list or a report, in any letter case of the column's name: "OldPNo" is "Card No".
/// Nothing for a column that nobody has put into words yet.
[[nodiscard]] std::optional<std::string> knownCaption(std::string_view column);

/// `knownCaption`, or else the name itself taken apart: "RoomState" reads "Room State".
[[nodiscard]] std::string columnCaption(std::string_view column);

/// The words for a screen or a report of which only the name is known: "frmSchedDoctor" reads "Sched Doctor".
[[nodiscard]] std::string wordsOfName(std::string_view name);

}  // namespace ui
