#pragma once

#include <functional>
#include <map>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "ui/event.h"

namespace ui {

class Screen;
class TabStrip;

/// A request that the page or a script may not make: an unknown name, a hidden control, a content of the wrong form.
/// Nothing ran.
struct Refused {
    std::string why;
};

/// What every control of a screen has. A control registers with its screen under its own name, holds its content, runs
/// the operation bound to an event, and tells the screen when a property changed.
class Control {
public:
    using Handler = std::function<void()>;

    Control(Screen& screen, std::string name);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control();

    [[nodiscard]] const std::string& name() const noexcept { return name_; }
    [[nodiscard]] Screen& screen() const noexcept { return screen_; }
    /// "frmPreConsult.txtTemp"
    [[nodiscard]] std::string path() const;

    [[nodiscard]] bool visible() const noexcept { return visible_; }
    void setVisible(bool visible);
    [[nodiscard]] bool enabled() const noexcept { return enabled_; }
    void setEnabled(bool enabled);
    /// Visible and enabled, as is everything that holds it: what a user can work.
    [[nodiscard]] virtual bool reachable() const noexcept;
    /// Visible, as is everything that holds it: what a user can see, if it turns to its page.
    [[nodiscard]] bool shown() const noexcept;
    /// Why the content was refused, shown beside it; "" where nothing is wrong. It stands until a user changes the
    /// content.
    [[nodiscard]] const std::string& problem() const noexcept { return problem_; }
    void setProblem(std::string problem);

    /// Puts the control into a holder that hides and disables it with itself.
    void heldBy(const Control& holder) noexcept { holder_ = &holder; }
    /// Says on which page of a tab strip the control lies, from 0: moving the focus to it brings that page forward.
    void onPage(TabStrip& tabs, int page) noexcept {
        tabs_ = &tabs;
        page_ = page;
    }
    [[nodiscard]] TabStrip* tabs() const noexcept { return tabs_; }
    [[nodiscard]] int page() const noexcept { return page_; }

    /// Binds the operation of an event, replacing an earlier one.
    void on(Event event, Handler handler);
    [[nodiscard]] bool handles(Event event) const;
    /// Runs the event's operation, if it has one.
    void raise(Event event);
    /// The names of the events that have an operation.
    [[nodiscard]] std::vector<std::string_view> events() const;

    /// The event that firing the control by its name alone means.
    [[nodiscard]] virtual Event defaultEvent() const { return Event::click; }
    /// "textBox", "button", ...
    [[nodiscard]] virtual std::string_view kind() const = 0;
    /// The names of the content's properties, in the order of the wire form.
    [[nodiscard]] virtual std::vector<std::string_view> properties() const = 0;
    /// One property as it goes over the wire.
    [[nodiscard]] virtual nlohmann::json property(std::string_view name) const = 0;
    /// The whole wire form: kind, visible, enabled, events, what is wrong, then the properties.
    [[nodiscard]] nlohmann::json state() const;
    /// What a user's typing or picking does: takes the content and raises the events of it. Throws Refused where the
    /// control takes nothing from a user, or nothing of this form.
    virtual void take(const nlohmann::json& content);
    /// The property that a client shows changed already when it sends a content, or "" where there is none.
    [[nodiscard]] virtual std::string_view takes() const { return {}; }

protected:
    /// Tells the screen that a property changed. The name has to be a literal: it is kept as it is.
    void touch(std::string_view property);
    /// Runs when `enabled` has changed.
    virtual void enabledChanged() {}

private:
    Screen& screen_;
    std::string name_;
    std::map<Event, Handler> handlers_;
    std::string problem_;
    const Control* holder_ = nullptr;
    TabStrip* tabs_ = nullptr;
    int page_ = 0;
    bool visible_ = true;
    bool enabled_ = true;
};

}  // namespace ui
