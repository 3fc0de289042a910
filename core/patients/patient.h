#pragma once

#include <string>

#include "core/session/workplace.h"

namespace core {

/// Whether the patient has a visit today; false after an error, which shows its description.
bool HasVisitToday(Workplace& place, const std::string& pno);
/// Opens `frmComments` modally when the patient has an antenatal remark. An error shows its description.
void ShowAncInfo(Workplace& place, const std::string& pno);
/// Brings a private patient's debt or credit to the main window and to the patient's row. Throws db::Error.
void RefreshDebtInfo(Workplace& place, const std::string& pno);

}  // namespace core
