#include "ui/screen.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "db/letters.h"
#include "ui/desktop.h"

namespace ui {

Screen::Screen(Desktop& desktop, std::string name, std::string caption)
    : desktop_(desktop), name_(std::move(name)), caption_(std::move(caption)) {}

Screen::~Screen() = default;

void Screen::setCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    desktop_.captionChanged(*this);
}

Control* Screen::find(std::string_view name) const {
    const auto found = byName_.find(db::lowered(name));
    return found == byName_.end() ? nullptr : found->second;
}

void Screen::clearProblems() {
    for (Control* control : controls_) control->setProblem({});
}

nlohmann::json Screen::state() const {
    nlohmann::json controls = nlohmann::json::object();
    nlohmann::json order = nlohmann::json::array();
    for (const Control* control : controls_) {
        controls[control->name()] = control->state();
        order.push_back(control->name());
    }
    return {{"caption", caption_},
            {"visible", visible_},
            {"modal", modal_},
            {"order", std::move(order)},
            {"controls", std::move(controls)}};
}

void Screen::close() {
    desktop_.close(*this);
}

void Screen::hide() {
    desktop_.hide(*this);
}

void Screen::attach(Control& control) {
    if (!byName_.emplace(db::lowered(control.name()), &control).second)
        throw std::logic_error(control.path() + " exists twice");
    controls_.push_back(&control);
}

void Screen::detach(Control& control) noexcept {
    desktop_.forget(control);
    controls_.erase(std::remove(controls_.begin(), controls_.end(), &control), controls_.end());
    std::erase_if(byName_, [&](const auto& named) { return named.second == &control; });
}

}  // namespace ui
