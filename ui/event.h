#pragma once

#include <optional>
#include <string_view>

namespace ui {

/// What a control can tell its screen. On the wire an event has its name: "DblClick".
enum class Event {
    cellEdit,   ///< a cell of a grid was written in place
    change,     ///< a text or a date became another
    click,      ///< a button was pressed, an entry picked, a tick set
    dblClick,   ///< a row or an entry was opened
    gotFocus,   ///< the cursor came
    itemCheck,  ///< the tick of one of several entries changed
    itemClick,  ///< one of several entries was picked
    keyReturn,  ///< Enter was pressed in a text box
    lostFocus,  ///< the cursor left
    nodeClick,  ///< a node of a tree was picked
    rowChange,  ///< another row of a grid is the current one
    timer,      ///< a timer's time has come
};

[[nodiscard]] std::string_view nameOf(Event event) noexcept;
/// The event of this name in any letter case, or nothing.
[[nodiscard]] std::optional<Event> eventNamed(std::string_view name) noexcept;

}  // namespace ui
