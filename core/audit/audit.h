#pragma once

#include <string>

#include "core/session/workplace.h"

namespace core {

/// Writes an audit row through the server's procedure, stamped with `gServerNow` as last read. An error shows its
/// description, so a failed audit never stops the work.
void AuditTrail(Workplace& place, const std::string& userName, const std::string& userAction,
                const std::string& tranCode, const std::string& remarks, const std::string& src);

}  // namespace core
