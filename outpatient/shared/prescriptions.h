#pragma once

#include <string>

#include "db/recordset.h"
#include "ui/controls.h"

namespace outpatient {

/// Fills a list with prescriptions (`ID`, `cDate`, `pSurname`, `pfirstname`, `consultID`), as "OBI ADA @24-Nov-2026
/// (17) [001]"; the item's key is the `ID`.
void addPrescriptions(ui::ComboBox& list, db::Recordset rows);
/// The patient's name in such an entry.
std::string nameIn(const std::string& entry);

}  // namespace outpatient
