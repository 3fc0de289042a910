#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/forms/refusal.h"
#include "core/session/trap.h"
#include "core/session/workplace.h"
#include "db/error.h"
#include "ui/controls.h"
#include "ui/screen.h"

namespace core {

/// One check of a save: a refusal, and whether it applies.
struct Check {
    bool failed;
    std::string text;
    ui::Control* control = nullptr;
    std::string title = {};
    ui::Icon icon = ui::Icon::none;
};

/// What the screens of this system share beyond their controls.
class Form : public ui::Screen {
public:
    Form(Workplace& place, std::string name, std::string caption)
        : Screen(place.desktop, std::move(name), std::move(caption)), place_(place) {}

    /// The entry that names the patient whom a comment from the main window would be about, "" while none is picked;
    /// nothing on a screen where comments do not apply.
    [[nodiscard]] virtual std::optional<std::string> patientEntry() const { return std::nullopt; }

protected:
    [[nodiscard]] Workplace& place() const noexcept { return place_; }
    [[nodiscard]] Session& session() const noexcept { return place_.session; }
    [[nodiscard]] db::Connection& hospital() const { return place_.hospital(); }

    // -- operations --
    /// Binds an operation to an event of a control. It runs under the trap: an error rolls back what it left open,
    /// shows its description, is a line in the log, and leaves (core::trapped).
    void bind(ui::Control& control, ui::Event event, std::function<void()> operation);
    template <class Screen>
    void bind(ui::Control& control, ui::Event event, void (Screen::*operation)()) {
        bind(control, event, [this, operation] { (static_cast<Screen&>(*this).*operation)(); });
    }
    /// Binds what a timer does by itself: an error is a line in the log and no box (core::quietly).
    void quietly(ui::Timer& timer, std::function<void()> job);
    template <class Screen>
    void quietly(ui::Timer& timer, void (Screen::*job)()) {
        quietly(timer, [this, job] { (static_cast<Screen&>(*this).*job)(); });
    }
    /// Runs a part of an operation under a trap of its own, so that the rest goes on. True when it went through.
    bool trapped(const std::function<void()>& work) { return core::trapped(place_, work); }

    /// Opens a screen and gives what it lets others write into; nothing where it has no such thing.
    template <class Interface>
    [[nodiscard]] Interface* opened(const std::string& screen) {
        desktop().show(screen);
        return dynamic_cast<Interface*>(desktop().loaded(screen));
    }

    // -- what is said --
    void message(const std::string& text, ui::Icon icon = ui::Icon::none, const std::string& title = {}) {
        desktop().message(text, icon, title);
    }
    void refuse(const Refusal& refusal) { core::refuse(place_, refusal); }
    void refuse(const std::string& text, ui::Control& control) { refuse({text, &control}); }
    [[nodiscard]] bool confirmed(const std::string& text, const std::string& title) {
        return desktop().askYesNo(text, title);
    }
    /// An audit row for the signed-in nurse, from her workstation.
    void audit(const std::string& action, const std::string& code, const std::string& remarks = {});

    // -- saving --
    /// Whether a field holds nothing but blanks.
    [[nodiscard]] static bool blank(const ui::TextBox& box);
    [[nodiscard]] static bool blank(const ui::ComboBox& list);
    [[nodiscard]] static bool blank(const ui::Label& label);
    /// Walks the checks of a save: the first that failed says so and the rest stays unsaid. True when all hold.
    [[nodiscard]] bool passes(const std::vector<Check>& checks);
    /// The question that every save asks after its checks.
    [[nodiscard]] bool confirmedSave() { return confirmed("Are you sure to save", "Check before save"); }
    /// Runs a save under the trap. Meanwhile its button says so and takes no further click. False after an error;
    /// where a value did not fit its column, the cursor then stands in the field that `controlOf` names.
    bool saves(ui::Button& button, const std::function<void()>& work);
    /// The field that a column of this screen's tables is kept from, or nothing.
    [[nodiscard]] virtual ui::Control* controlOf(std::string_view /*column*/) { return nullptr; }

private:
    Workplace& place_;
};

}  // namespace core
