#include "core/form.h"

#include <algorithm>
#include <exception>

#include "core/utility.h"

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

}  // namespace

bool trapped(Workplace& place, const std::function<void()>& work) {
    const bool joined = place.databases.inTransaction();
    std::string description;
    bool wentThrough = false;
    try {
        work();
        wentThrough = true;
    } catch (const std::exception& error) {
        description = place.desktop.describe(error);
    }
    if (!wentThrough && !joined) place.databases.rollbackAll();
    if (!joined) place.showHeldErrors();
    if (!wentThrough) place.showError(description);
    return wentThrough;
}

bool Form::passes(const std::vector<Check>& checks) const {
    const auto failed = std::find_if(checks.begin(), checks.end(), [](const Check& check) { return check.failed; });
    if (failed == checks.end()) return true;
    message(failed->text, ui::Icon::none, failed->title);
    if (failed->control) desktop().focus(*failed->control);
    return false;
}

bool Form::saves(ui::Button& button, const std::function<void()>& work) const {
    const auto caption = button.caption();
    button.setEnabled(false);
    button.setCaption("Saving ...");
    desktop().showProgress();
    const bool wentThrough = trapped([&] {
        const Saving saving(place_.saving, name());
        work();
    });
    button.setCaption(caption);
    button.setEnabled(true);
    return wentThrough;
}

void Form::audit(const std::string& action, const std::string& code, const std::string& remarks) const {
    AuditTrail(place_, session().gUserName, action, code, remarks, session().gComputerName);
}

}  // namespace core
