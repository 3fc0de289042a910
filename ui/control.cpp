#include "ui/control.h"

#include <nlohmann/json.hpp>

#include "ui/controls.h"
#include "ui/desktop_impl.h"
#include "ui/names.h"
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

bool Control::reachable() const noexcept {
    if (!visible_ || !enabled_) return false;
    if (holder_ && !holder_->reachable()) return false;
    return !tabs_ || tabs_->reachable();
}

void Control::on(std::string_view event, Handler handler) {
    handlers_.insert_or_assign(std::string(event), std::move(handler));
}

const Control::Handler* Control::handler(std::string_view event) const {
    for (const auto& [name, handler] : handlers_)
        if (handler && sameName(name, event)) return &handler;
    return nullptr;
}

bool Control::handles(std::string_view event) const {
    return handler(event) != nullptr;
}

void Control::raise(std::string_view event) {
    const Handler* bound = handler(event);
    if (!bound) return;
    const Handler running = *bound;  // the operation may bind another one
    const Desktop::Operation operation(screen_.desktop());
    running();
}

std::vector<std::string> Control::events() const {
    std::vector<std::string> names;
    for (const auto& [name, handler] : handlers_)
        if (handler) names.push_back(name);
    return names;
}

nlohmann::json Control::state() const {
    nlohmann::json state = {{"kind", kind()}, {"visible", visible_}, {"enabled", enabled_}, {"events", events()}};
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
