#include "ui/event.h"

#include <array>

#include "db/letters.h"

namespace ui {
namespace {

constexpr std::array<std::string_view, 12> names = {"CellEdit",  "Change",    "Click",     "DblClick",
                                                    "GotFocus",  "ItemCheck", "ItemClick", "KeyReturn",
                                                    "LostFocus", "NodeClick", "RowChange", "Timer"};

}  // namespace

std::string_view nameOf(Event event) noexcept {
    return names.at(static_cast<std::size_t>(event));
}

std::optional<Event> eventNamed(std::string_view name) noexcept {
    for (std::size_t place = 0; place < names.size(); ++place)
        if (db::sameName(names.at(place), name)) return static_cast<Event>(place);
    return std::nullopt;
}

}  // namespace ui
