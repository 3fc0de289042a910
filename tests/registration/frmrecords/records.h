#pragma once

#include <string>

#include "registration/frmrecords/frmrecords.h"
#include "tests/registration/shared/registration.h"

namespace test {

inline constexpr const char* musa = "000000001/001";

/// Musa, a private patient whose card is good, and the HMO's Ada.
inline void arrangeAttendance(TestHospital& hospital) {
    using namespace db::literals;
    hospital.execute(
        "insert into hPatients (PNo, OldPNo, psurname, pfirstName, CoyName, clientCatID, occupation, PolicyType, "
        "ref, HMORef, expirydate, empNo) values "
        "('000000001/001', 'C-1', 'BELLO', 'MUSA', '0001', 'PRIVATE', 'TAILOR', null, 'YES', null, '25-Nov-2026', "
        "null), "
        "('000000002/001', 'C-2', 'OBI', 'ADA', '0007', 'HMO', null, 'Gold [1]', null, 'YES', '20-Nov-2026', "
        "'E-77')"_sql);
}

/// An attendance as far as the save.
inline void takeAttendance(core::Workplace& place, const std::string& number = "1",
                           const std::string& purpose = "(CONSULTATION)") {
    const std::string screen = "frmRecords";
    place.desktop.fire(screen + ".cmdAdd", false);
    enter(place, screen, {{"txtName", number}});
    place.desktop.fire(screen + ".cmdSys", false);
    enter(place, screen,
          {{"cboType", "EYE"}, {"cboPurpose", purpose}, {"CboRef", "NO"}, {"cboRefHmo", "NO"}, {"txtEmp", "NIL"}});
}

/// A clerk at the attendance desk.
class Records : public Registration {
protected:
    Records() : Registration("frmRecords") {
        arrangeAttendance(hospital);
        fire("cmdRefresh");
        hospital.forget();
    }
    registration::frmRecords& screen() { return as<registration::frmRecords>(); }
    /// Finds a patient by a number, which picks him.
    void find(const std::string& number, Says says = {}) {
        set("txtName", number);
        fire("cmdSys", says);
    }
    void take(const std::string& number = "1", const std::string& purpose = "(CONSULTATION)") {
        takeAttendance(place, number, purpose);
    }
    void saveOne(const std::string& number = "1", const std::string& purpose = "(CONSULTATION)") {
        take(number, purpose);
        save();
        hospital.forget();
    }
    /// Who is picked.
    std::string patient() { return shown({"lblTitle", "lblNo", "lblOld", "lblOccup", "lblPolicy", "lblExpire"}); }
};

}  // namespace test
