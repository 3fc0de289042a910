#pragma once

#include <string>

#include "db/sql.h"

namespace shell {

/// The lists of those who wait for the nurses. The main window watches them by the server's date alone; the prompt
/// shows the admissions of the workstation's.

/// Patients of a day whose vital signs are still to be taken.
[[nodiscard]] db::Sql patientsWaiting(const db::DateTime& date);
/// Patients who were referred for admission on a day.
[[nodiscard]] db::Sql admissionsWaiting(const db::DateTime& date);
/// What other departments told this one on a day, the newest first.
[[nodiscard]] db::Sql notificationsWaiting(const std::string& department, const db::DateTime& date);

/// The open stays of scheme patients that have run out: behind the columns of qryhAdmission that are wanted. The
/// server's clock decides, and a stay without a limit has run out.
db::Sql fromExpiredStays();

}  // namespace shell
