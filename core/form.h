#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/workplace.h"
#include "db/error.h"
#include "ui/controls.h"
#include "ui/raised.h"
#include "ui/screen.h"

namespace core {

/// Runs `work` under an error trap: a run-time error rolls back what `work` left open, shows its description in a box
/// and leaves. True when `work` went through.
///
/// A shared routine with a trap of its own may run inside a caller's transaction. Its error then leaves the
/// transaction, and the decision about it, to the caller, and the box opens when nobody waits for this session.
bool trapped(Workplace& place, const std::function<void()>& work);

/// What the screens of this system share beyond their controls.
class Form : public ui::Screen {
public:
    Form(Workplace& place, std::string name, std::string caption)
        : Screen(place.desktop, std::move(name), std::move(caption)), place_(place) {}

protected:
    [[nodiscard]] Workplace& place() const noexcept { return place_; }
    [[nodiscard]] Session& session() const noexcept { return place_.session; }
    [[nodiscard]] db::Connection& hospital() const { return place_.hospital(); }

    /// Runs an operation under the screen's error trap: see core::trapped.
    bool trapped(const std::function<void()>& work) const { return core::trapped(place_, work); }
    void message(const std::string& text, ui::Icon icon = ui::Icon::none, const std::string& title = {}) const {
        desktop().message(text, icon, title);
    }
    /// An audit row for the signed-in nurse, from her workstation.
    void audit(const std::string& action, const std::string& code, const std::string& remarks = {}) const;
    /// One check of a save: whether it failed, what is said then, and the control, if any, that then gets the cursor.
    struct Check {
        bool failed;
        std::string text;
        ui::Control* control = nullptr;
        std::string title = {};  ///< of the box; empty for the program's
    };
    /// Walks the checks of a save: the first that failed says so and the rest stays unsaid. True when all hold.
    [[nodiscard]] bool passes(const std::vector<Check>& checks) const;
    /// A check that failed: its message, then the cursor stands in the control, on its page.
    void refuse(const std::string& text, ui::Control& control) const {
        desktop().message(text);
        desktop().focus(control);
    }
    [[nodiscard]] bool confirmed(const std::string& text, const std::string& title) const {
        return desktop().askYesNo(text, title);
    }
    /// Runs a save under the trap. Meanwhile its button says so and takes no further click. False after an error.
    bool saves(ui::Button& button, const std::function<void()>& work) const;
    /// The question that every save asks after its checks.
    [[nodiscard]] bool confirmedSave() const { return confirmed("Are you sure to save", "Check before save"); }

private:
    Workplace& place_;
};

}  // namespace core
