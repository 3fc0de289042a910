#pragma once

#include <string>

#include "core/session/workplace.h"

namespace core {

/// Whether the signed-in nurse also has the role "MANAGEMENT". Throws db::Error.
bool isManager(Workplace& place);

}  // namespace core
