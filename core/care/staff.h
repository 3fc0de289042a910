#pragma once

#include <string>

#include "core/session/workplace.h"
#include "ui/controls.h"

namespace core {

enum class StaffOrder {
    asStored,  ///< as the server gives them
    byName,    ///< by name; where that finds nobody, as the server gives them
};

/// Offers an empty entry and the enabled users of a role, "NURSING" or "CONSULTING", as "NAME [empID]". Throws
/// db::Error.
void fillStaff(ui::ComboBox& list, db::Connection& hospital, const std::string& role,
               StaffOrder order = StaffOrder::asStored);

/// Offers an entry of a single blank and the employees whom a statement finds (`empID`, `lastname`, `firstname`), as
/// "NAME [empID]". Throws db::Error.
void fillEmployees(ui::ComboBox& list, db::Connection& hospital, const db::Sql& found);

/// A list of nurses. The one who is picked is on duty: `gEmpID` is hers for the rest of the session. An entry without
/// a key changes nothing.
class NurseOnDuty : public ui::ComboBox {
public:
    NurseOnDuty(ui::Screen& screen, std::string name, Workplace& place);
    /// Offers the nurses of this module's role. Throws db::Error.
    void fill();

private:
    Workplace& place_;
};

}  // namespace core
