#include "ui/control.h"

#include <nlohmann/json.hpp>

#include "ui/controls.h"
#include "ui/desktop_impl.h"
#include "ui/screen.h"

namespace ui {

Control::Control(Screen& screen, std::string name) : screen_(screen), name_(std::move(name)) {
    screen_.attach(*this);
}

Control::~Control() {
    screen_.detach(*this);
}

std::string Control::path() const {
    return screen_.name() + "." + name_;
}

void Control::setVisible(bool visible) {
    if (std::exchange(visible_, visible) != visible) touch("visible");
}

void Control::setEnabled(bool enabled) {
    if (std::exchange(enabled_, enabled) == enabled) return;
    touch("enabled");
    enabledChanged();
}

void Control::setProblem(std::string problem) {
    if (problem == problem_) return;
    problem_ = std::move(problem);
    touch("problem");
}

bool Control::reachable() const noexcept {
    if (!visible_ || !enabled_) return false;
    if (holder_ && !holder_->reachable()) return false;
    return !tabs_ || tabs_->reachable();
}

bool Control::shown() const noexcept {
    return visible_ && (!holder_ || holder_->shown()) && (!tabs_ || tabs_->shown());
}

void Control::on(Event event, Handler handler) {
    handlers_.insert_or_assign(event, std::move(handler));
}

bool Control::handles(Event event) const {
    const auto found = handlers_.find(event);
    return found != handlers_.end() && found->second;
}

void Control::raise(Event event) {
    if (!handles(event)) return;
    const Handler running = handlers_.at(event);  // the operation may bind another one
    const Desktop::Operation operation(screen_.desktop());
    running();
}

std::vector<std::string_view> Control::events() const {
    std::vector<std::string_view> names;
    for (const auto& [event, handler] : handlers_)
        if (handler) names.push_back(nameOf(event));
    return names;
}

nlohmann::json Control::state() const {
    nlohmann::json state = {{"kind", kind()}, {"visible", visible_}, {"enabled", enabled_}, {"events", events()}};
    if (!problem_.empty()) state["problem"] = problem_;
    if (holder_) state["holder"] = holder_->name();
    if (tabs_) state["tab"] = {tabs_->name(), page_};
    for (const std::string_view name : properties()) state[std::string(name)] = property(name);
    return state;
}

void Control::take(const nlohmann::json& /*content*/) {
    throw Refused{path() + " takes nothing from a user"};
}

void Control::touch(std::string_view property) {
    screen_.desktop().changed(*this, property);
}

}  // namespace ui
