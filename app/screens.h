#pragma once

#include "core/session/workplace.h"

namespace app {

/// Makes the screens of all rooms known to the session's desktop.
void provideScreens(core::Workplace& place);

}  // namespace app
