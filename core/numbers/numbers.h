#pragma once

#include <string>

#include "core/session/workplace.h"

namespace core {

/// Draws the next number of `destName` ("PATIENT2", "ConsultID2") into `gNextId`; "" when the server gives none, and
/// unchanged after an error, which shows its description.
void GetNextIdNo(Workplace& place, const std::string& destName);

/// Put the number counters behind the highest number in use, with a gap of 5, so that a number handed out meanwhile
/// cannot collide. Throw db::Error.
void ResyncConsultId(Workplace& place);
void ResyncPatientId(Workplace& place);

}  // namespace core
