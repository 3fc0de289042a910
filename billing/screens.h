#pragma once

#include "core/session/workplace.h"

namespace billing {

/// Makes the screens of this room known to the session's desktop.
void provideScreens(core::Workplace& place);

}  // namespace billing
