#include "core/form.h"

#include <exception>

namespace core {

bool trapped(Workplace& place, const std::function<void()>& work) {
    const bool joined = place.databases.inTransaction();
    std::string description;
    bool wentThrough = false;
    try {
        work();
        wentThrough = true;
    } catch (const std::exception& error) {
        description = error.what();
    }
    if (!wentThrough && !joined) place.databases.rollbackAll();
    if (!joined) place.showHeldErrors();
    if (!wentThrough) place.showError(description);
    return wentThrough;
}

}  // namespace core
