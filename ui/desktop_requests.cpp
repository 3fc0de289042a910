// Work from outside: events, contents, timers and states by their paths.

#include "ui/controls.h"
#include "ui/desktop.h"
#include "ui/desktop_impl.h"

#include "db/letters.h"
namespace ui {

Desktop::Target Desktop::target(std::string_view path) const {
    const std::size_t dot = path.find('.');
    const std::string_view screenName = path.substr(0, dot);
    Screen* screen = loaded(screenName);
    if (!screen) throw Refused{std::string(screenName) + " is not open"};
    if (dot == std::string_view::npos) return {screen, nullptr, {}};
    const std::string_view rest = path.substr(dot + 1);
    const std::size_t second = rest.find('.');
    const std::string_view member = rest.substr(0, second);
    if (Control* control = screen->find(member))
        return {screen, control, second == std::string_view::npos ? "" : std::string(rest.substr(second + 1))};
    if (second == std::string_view::npos && (db::sameName(member, "Unload") || db::sameName(member, "Activate")))
        return {screen, nullptr, db::lowered(member)};
    throw Refused{screen->name() + " has no control " + std::string(member)};
}

void Desktop::checkWorkable(const Target& target) const {
    const Screen& screen = *target.screen;
    if (!screen.visible()) throw Refused{screen.name() + " is hidden"};
    if (!impl_->modals.empty() && impl_->modals.back()->screen != &screen)
        throw Refused{screen.name() + " has to wait for " + impl_->modals.back()->screen->name()};
    if (target.control && !target.control->reachable())
        throw Refused{target.control->path() + " is hidden or disabled"};
}

bool Desktop::fireScreen(const Target& target) {
    if (target.event == "unload")
        unload(target.screen->name());
    else if (target.event == "activate")
        activate(*target.screen);
    else
        return false;
    return true;
}

void Desktop::fire(std::string_view path, bool force) {
    const Operation operation(*this, Operation::After::buries);
    const Target at = target(path);
    if (at.control && !force && dynamic_cast<const Timer*>(at.control))
        throw Refused{at.control->path() + " is a timer: use tick"};
    if (!force) checkWorkable(at);
    if (!at.control) {
        if (!fireScreen(at)) throw Refused{at.screen->name() + " is a screen: name an event of it"};
        return;
    }
    const std::optional<Event> event = at.event.empty() ? at.control->defaultEvent() : eventNamed(at.event);
    if (!event || (!at.control->handles(*event) && *event != at.control->defaultEvent()))
        throw Refused{at.control->path() + " has no event " + at.event};
    at.control->raise(*event);
}

void Desktop::set(std::string_view path, const nlohmann::json& content, bool force) {
    const Operation operation(*this, Operation::After::buries);
    const Target at = target(path);
    if (!at.control || !at.event.empty()) throw Refused{std::string(path) + " is no control"};
    if (!force) checkWorkable(at);
    believe(*at.control, content);
    try {
        at.control->setProblem({});
        at.control->take(content);
    } catch (const Refused&) {
        forget(*at.control);
        throw;
    }
}

/// The client shows what it sent: only a content that ends up different goes back to it.
void Desktop::believe(Control& control, const nlohmann::json& content) {
    const std::string_view property = control.takes();
    if (property.empty()) return;
    const nlohmann::json* shown = &content;
    for (const std::string_view key : {std::string_view("row"), std::string_view("page"), property})
        if (content.is_object() && content.contains(key)) shown = &content[key];
    if (!shown->is_primitive()) return;
    impl_->shown[&control] = *shown;
    changed(control, property);
}

void Desktop::browse(std::string_view path, std::string_view wanted, std::size_t from) {
    const Target at = target(path);
    const auto* list = at.event.empty() ? dynamic_cast<const ItemControl*>(at.control) : nullptr;
    if (!list) throw Refused{std::string(path) + " is no list"};
    if (!at.screen->visible() || !list->shown()) throw Refused{list->path() + " is hidden"};
    emit({{"changed", {{list->path(), {{"window", list->window(wanted, from)}}}}}});
}

void Desktop::tick(std::string_view path) {
    const Operation operation(*this, Operation::After::buries);
    const Target at = target(path);
    auto* timer = at.event.empty() ? dynamic_cast<Timer*>(at.control) : nullptr;
    if (!timer) throw Refused{std::string(path) + " is no timer"};
    timer->tick();
}

nlohmann::json Desktop::get(std::string_view path) const {
    const Target at = target(path);
    if (!at.event.empty()) throw Refused{std::string(path) + " is no screen or control"};
    return at.control ? at.control->state() : at.screen->state();
}

}  // namespace ui
