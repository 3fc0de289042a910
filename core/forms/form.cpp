#include "core/forms/form.h"

#include <algorithm>

#include "core/session/session.h"
#include "core/texts/texts.h"

namespace core {

namespace {

/// Says for as long as it stands whose save runs.
class Saving {
public:
    Saving(std::string& holder, const std::string& screen) : holder_(holder) { holder_ = screen; }
    Saving(const Saving&) = delete;
    Saving& operator=(const Saving&) = delete;
    ~Saving() { holder_.clear(); }

private:
    std::string& holder_;
};

/// The button of the save that runs says so and takes no further click.
class Busy {
public:
    explicit Busy(ui::Button& button) : button_(button), caption_(button.caption()) {
        button_.setEnabled(false);
        button_.setCaption("Saving ...");
        button_.screen().desktop().showProgress();
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
    ~Busy() {
        button_.setCaption(caption_);
        button_.setEnabled(true);
    }

private:
    ui::Button& button_;
    std::string caption_;
};

}  // namespace

bool Form::blank(const ui::TextBox& box) {
    return core::blank(box.text());
}

bool Form::blank(const ui::ComboBox& list) {
    return core::blank(list.text());
}

bool Form::blank(const ui::Label& label) {
    return core::blank(label.caption());
}

bool Form::passes(const std::vector<Check>& checks) {
    clearProblems();
    const auto failed = std::find_if(checks.begin(), checks.end(), [](const Check& check) { return check.failed; });
    if (failed == checks.end()) return true;
    refuse({failed->text, failed->control, failed->title, failed->icon});
    return false;
}

bool Form::saves(ui::Button& button, const std::function<void()>& work) {
    const Busy busy(button);
    std::string column;
    const bool wentThrough = trapped([&] {
        const Saving saving(place().saving, name());
        try {
            work();
        } catch (const db::Error& error) {
            column = error.column();
            throw;
        }
    });
    if (auto* control = column.empty() ? nullptr : controlOf(column)) desktop().focus(*control);
    return wentThrough;
}

}  // namespace core
