#include "core/forms/operations.h"

#include "core/audit/audit.h"
#include "core/session/session.h"

namespace core {

void Operations::bind(ui::Control& control, ui::Event event, std::function<void()> operation) {
    control.on(event, [this, run = std::move(operation)] { trapped(run); });
}

void Operations::quietly(ui::Timer& timer, std::function<void()> job) {
    timer.on(ui::Event::timer, [this, run = std::move(job)] { core::quietly(place_, run); });
}

void Operations::audit(const std::string& action, const std::string& code, const std::string& remarks) {
    AuditTrail(place_, session().gUserName, action, code, remarks, session().gComputerName);
}

}  // namespace core
