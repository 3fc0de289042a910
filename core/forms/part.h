#pragma once

#include <functional>
#include <string>
#include <utility>

#include "core/forms/refusal.h"
#include "core/session/trap.h"
#include "core/session/workplace.h"
#include "ui/controls.h"
#include "ui/screen.h"

namespace core {

/// A part of a screen, which owns its controls and what they do. It knows nothing of the screen but what it is given.
class Part {
public:
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

protected:
    Part(Workplace& place, ui::Screen& screen) : place_(place), screen_(screen) {}
    ~Part() = default;

    [[nodiscard]] Workplace& place() const noexcept { return place_; }
    [[nodiscard]] ui::Screen& screen() const noexcept { return screen_; }
    [[nodiscard]] Session& session() const noexcept { return place_.session; }
    [[nodiscard]] db::Connection& hospital() const { return place_.hospital(); }

    /// Binds an operation to an event of a control; it runs under the trap.
    void bind(ui::Control& control, ui::Event event, std::function<void()> operation) {
        control.on(event, [this, run = std::move(operation)] { trapped(place_, run); });
    }
    void message(const std::string& text) const { place_.desktop.message(text); }
    void refuse(const std::string& text, ui::Control& control) const { core::refuse(place_, {text, &control}); }

private:
    Workplace& place_;
    ui::Screen& screen_;
};

}  // namespace core
