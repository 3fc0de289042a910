#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/forms/operations.h"
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
class Form : public ui::Screen, public Operations {
public:
    Form(Workplace& place, std::string name, std::string caption)
        : Screen(place.desktop, std::move(name), std::move(caption)), Operations(place) {}

    /// The entry that names the patient whom a comment from the main window would be about, "" while none is picked;
    /// nothing on a screen where comments do not apply.
    [[nodiscard]] virtual std::optional<std::string> patientEntry() const { return std::nullopt; }

protected:
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
};

}  // namespace core
