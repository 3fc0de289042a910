#pragma once

#include <string>

#include "core/rows/cells.h"

namespace core {

/// A visit's patient sent on to a clinic, for the wards "(IN-PATIENT)".
struct Referral {
    std::string consultID;
    std::string category;  ///< the client category
    std::string clinic;
    std::string reason;
    std::string pno;
    db::Value date;  ///< when it was made
    db::Value time;
};
/// The cells of its row in `hreferal`.
Cells referralCells(const Referral& referral);

/// An appointment of a visit's patient in a clinic, which nobody has attended to.
struct Appointment {
    std::string consultID;
    std::string category;
    std::string clinic;
    db::Value date;  ///< for when it is
    db::Value time;
    std::string remarks;
    std::string pno;
    db::DateTime entered;  ///< when it was made
};
/// The cells of its row in `hAppointment`.
Cells appointmentCells(const Appointment& appointment);

}  // namespace core
