// What a client hears: changes, the focus, sounds, reports, and the whole state for a page that has just come.

#include "ui/controls.h"
#include "ui/desktop.h"
#include "ui/desktop_impl.h"

namespace ui {

namespace {

void note(std::vector<std::string_view>& properties, std::string_view property) {
    for (const std::string_view noted : properties)
        if (noted == property) return;
    properties.push_back(property);
}

nlohmann::json valueOf(const Control& control, std::string_view property) {
    if (property == "visible") return control.visible();
    if (property == "enabled") return control.enabled();
    return control.property(property);
}

}  // namespace

void Desktop::changed(Control& control, std::string_view property) {
    const auto* entry = impl_->entry(control.screen());
    if (!entry || !entry->told) return;
    auto& change = impl_->changes.try_emplace(control.path(), Impl::Change{&control, {}}).first->second;
    note(change.properties, property);
}

void Desktop::changed(Screen& screen, std::string_view property) {
    const auto* entry = impl_->entry(screen);
    if (entry && entry->told)
        note(impl_->changes.try_emplace(screen.name(), Impl::Change{nullptr, {}}).first->second.properties, property);
    if (screen.visible() && isChild(screen)) childrenChanged();
}

void Desktop::forget(Control& control) noexcept {
    std::erase_if(impl_->changes, [&](const auto& change) { return change.second.control == &control; });
    impl_->shown.erase(control.path());
}

void Desktop::flushChanges() {
    nlohmann::json changes = nlohmann::json::object();
    for (const auto& [path, change] : std::exchange(impl_->changes, {})) {
        if (!change.control) {
            if (const Screen* screen = loaded(path)) changes[path]["caption"] = screen->caption();
            continue;
        }
        const auto shown = impl_->shown.find(path);
        for (const std::string_view property : change.properties) {
            nlohmann::json value = valueOf(*change.control, property);
            if (shown != impl_->shown.end() && property == change.control->takes()) {
                if (shown->second == value) continue;
                shown->second = value;
            }
            changes[path][std::string(property)] = std::move(value);
        }
    }
    if (!changes.empty() && sink_) sink_({{"changed", std::move(changes)}});
}

void Desktop::emit(nlohmann::json event) {
    flushChanges();
    if (sink_) sink_(std::move(event));
}

void Desktop::focus(Control& control) {
    if (TabStrip* tabs = control.tabs()) tabs->setPage(control.page());
    if (control.screen().visible()) return emit({{"focus", control.path()}});
    if (auto* entry = impl_->entry(control.screen())) entry->focus = control.path();
}

void Desktop::sound(const std::string& file) {
    emit({{"sound", file}});
}

void Desktop::print(const Screen& screen) {
    emit({{"print", screen.name()}});
}

void Desktop::report(Report report) {
    nlohmann::json event = {{"name", report.name}, {"title", report.title}, {"rows", report.rows.rowCount()}};
    if (reportKeeper_) event["id"] = reportKeeper_(report);
    emit({{"report", std::move(event)}});
}

nlohmann::json Desktop::snapshot() const {
    nlohmann::json screens = nlohmann::json::array();
    for (const auto& entry : impl_->entries) {
        if (!entry.told) continue;
        nlohmann::json state = entry.screen->state();
        state["name"] = entry.screen->name();
        screens.push_back(std::move(state));
    }
    nlohmann::json modals = nlohmann::json::array();
    for (const Modal* modal : impl_->modals) modals.push_back(modal->screen->name());
    const auto nameOf = [](const Screen* screen) { return screen ? nlohmann::json(screen->name()) : nlohmann::json(); };
    return {{"title", programTitle_},     {"main", nameOf(main_)},         {"active", nameOf(activeChild_)},
            {"modal", std::move(modals)}, {"screens", std::move(screens)}, {"waiting", question()}};
}

}  // namespace ui
