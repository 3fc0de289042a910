#include "core/session/trap.h"

#include <exception>

#include "core/session/workplace.h"

namespace core {

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

void quietly(Workplace& place, const std::function<void()>& work) {
    const bool joined = place.databases.inTransaction();
    try {
        work();
    } catch (const std::exception& error) {
        static_cast<void>(place.desktop.describe(error));
        if (!joined) place.databases.rollbackAll();
    }
}

}  // namespace core
