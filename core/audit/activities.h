#pragma once

#include <string>

#include "core/session/workplace.h"

namespace core {

/// Adds this run's row to UserActivities and keeps its number in `gActivitySNo`. An error shows its description.
void OpenUserActivity(Workplace& place, bool isLogout, bool autoLogoff, const std::string& remarks);
/// Closes this run's row. `remarks` is accepted and not stored: the row keeps the module's role.
void CloseUserActivity(Workplace& place, bool isLogout, bool autoLogoff, const std::string& remarks);

/// One row of LoginTrail for an attempt to sign in, stamped with the workstation's clock. Throws db::Error.
void WriteLoginTrailSuccess(db::Connection& connection, const std::string& userName, db::DateTime now);
void WriteLoginTrailFailure(db::Connection& connection, const std::string& userName, db::DateTime now);
/// The same for the host's sign-in page, which anybody may try: it reads none of the trail's rows.
void noteSignIn(db::Connection& connection, const std::string& userName, bool accepted, db::DateTime now);

}  // namespace core
