#pragma once

#include <functional>

#include "core/session/workplace.h"

namespace core {

/// Reads every default of the hospital in its fixed order. `afterLockOldVersion` runs when that key has been read.
/// A missing fatal key shows its message and ends the session. Throws db::Error.
void readDefaults(Workplace& place, const std::function<void()>& afterLockOldVersion);

}  // namespace core
