#pragma once

#include "tests/registration/shared/registration.h"

namespace test {

class PatientsNew : public Registration {
protected:
    PatientsNew() : Registration("frmPatientsNew") {}
    /// Opens the patient in the grid's row. Only the front desk takes attendances; all others are told so.
    void edit() { fire("grdData.DblClick", {"Only FrontDesk Module can take Attendance! Edit Allowed"}); }
    /// Saves what was opened; the limit is what the desk has to add to an old row.
    void saveEdited(Says says = {"Record Succesfully Edited and Updated"}) {
        set("txtAdmitLimit", "0");
        save(says);
    }
};

}  // namespace test
