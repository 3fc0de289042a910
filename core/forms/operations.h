#pragma once

#include <functional>
#include <string>
#include <utility>

#include "core/forms/refusal.h"
#include "core/session/trap.h"
#include "core/session/workplace.h"
#include "ui/controls.h"

namespace core {

/// What a screen, or a part of one, works with: its session, its operations under the trap, what it says and asks.
class Operations {
public:
    Operations(const Operations&) = delete;
    Operations& operator=(const Operations&) = delete;

protected:
    explicit Operations(Workplace& place) : place_(place) {}
    ~Operations() = default;

    [[nodiscard]] Workplace& place() const noexcept { return place_; }
    [[nodiscard]] Session& session() const noexcept { return place_.session; }
    [[nodiscard]] db::Connection& hospital() const { return place_.hospital(); }

    // -- operations --
    /// Binds an operation to an event of a control. It runs under the trap: an error rolls back what it left open,
    /// shows its description, is a line in the log, and leaves (core::trapped).
    void bind(ui::Control& control, ui::Event event, std::function<void()> operation);
    template <class Owner>
    void bind(ui::Control& control, ui::Event event, void (Owner::*operation)()) {
        bind(control, event, [this, operation] { (static_cast<Owner&>(*this).*operation)(); });
    }
    /// Binds what a timer does by itself: an error is a line in the log and no box (core::quietly).
    void quietly(ui::Timer& timer, std::function<void()> job);
    template <class Owner>
    void quietly(ui::Timer& timer, void (Owner::*job)()) {
        quietly(timer, [this, job] { (static_cast<Owner&>(*this).*job)(); });
    }
    /// Runs a part of an operation under a trap of its own, so that the rest goes on. True when it went through.
    bool trapped(const std::function<void()>& work) { return core::trapped(place_, work); }

    /// Opens a screen and gives what it lets others write into; nothing where it has no such thing.
    template <class Interface>
    [[nodiscard]] Interface* opened(const std::string& screen) {
        place_.desktop.show(screen);
        return dynamic_cast<Interface*>(place_.desktop.loaded(screen));
    }

    // -- what is said --
    void message(const std::string& text, ui::Icon icon = ui::Icon::none, const std::string& title = {}) const {
        place_.desktop.message(text, icon, title);
    }
    void refuse(const Refusal& refusal) const { core::refuse(place_, refusal); }
    void refuse(const std::string& text, ui::Control& control) const { refuse({text, &control}); }
    [[nodiscard]] bool confirmed(const std::string& text, const std::string& title) const {
        return place_.desktop.askYesNo(text, title);
    }
    /// An audit row for the signed-in nurse, from her workstation.
    void audit(const std::string& action, const std::string& code, const std::string& remarks = {});

private:
    Workplace& place_;
};

}  // namespace core
