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
    if (property == "problem") return control.problem();
    return control.property(property);
}

}  // namespace

void Desktop::changed(const Control& control, std::string_view property) {
    const auto* entry = impl_->entry(control.screen());
    if (entry && entry->told) note(impl_->changes[&control], property);
}

void Desktop::captionChanged(const Screen& screen) {
    const auto* entry = impl_->entry(screen);
    if (entry && entry->told) impl_->renamed.insert(&screen);
    if (screen.visible() && isChild(screen)) childrenChanged();
}

void Desktop::forget(const Control& control) noexcept {
    impl_->changes.erase(&control);
    impl_->shown.erase(&control);
    impl_->toldRows.erase(&control);
}

/// The page has the whole of a screen: from now on it hears of the rows that change.
void Desktop::rowsTold(const Screen& screen) {
    for (const Control* control : screen.controls())
        if (const auto* rows = dynamic_cast<const Rows*>(control))
            impl_->toldRows.insert_or_assign(control, ToldRows(*rows));
}

/// A property as a client hears that it changed; null where it did not.
nlohmann::json Desktop::changeOf(const Control& control, std::string_view property) {
    const auto told = property == "rows" ? impl_->toldRows.find(&control) : impl_->toldRows.end();
    if (told == impl_->toldRows.end()) return valueOf(control, property);
    return told->second.news(dynamic_cast<const Rows&>(control));
}

/// The properties by name, but for what the client shows already.
nlohmann::json Desktop::newsOf(const Control& control, const std::vector<std::string_view>& properties) {
    nlohmann::json news = nlohmann::json::object();
    const auto shown = impl_->shown.find(&control);
    for (const std::string_view property : properties) {
        nlohmann::json value = changeOf(control, property);
        if (shown != impl_->shown.end() && property == control.takes()) {
            if (shown->second == value) continue;
            shown->second = value;
        }
        if (property == "rows" && value.is_null()) continue;
        news[std::string(property)] = std::move(value);
    }
    return news;
}

void Desktop::flushChanges() {
    nlohmann::json changes = nlohmann::json::object();
    for (const Screen* screen : std::exchange(impl_->renamed, {}))
        changes[screen->name()]["caption"] = screen->caption();
    for (const auto& [control, properties] : std::exchange(impl_->changes, {}))
        if (nlohmann::json news = newsOf(*control, properties); !news.empty())
            changes[control->path()] = std::move(news);
    if (!changes.empty() && sink_) sink_({{"changed", std::move(changes)}});
}

void Desktop::showProgress() {
    flushChanges();
    if (onProgress_) onProgress_();
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
    nlohmann::json event = {{"name", report.name}, {"title", report.heading()}, {"rows", report.rows.rowCount()}};
    if (!report.period.empty()) event["period"] = report.period;
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
    return {{"title", programTitle_},
            {"main", nameOf(main_)},
            {"active", nameOf(activeChild_)},
            {"modal", std::move(modals)},
            {"screens", std::move(screens)}};
}

}  // namespace ui
