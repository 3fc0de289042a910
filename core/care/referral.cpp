#include "core/care/referral.h"

#include "core/clock/clock.h"

namespace core {

Cells referralCells(const Referral& referral) {
    return {{"consultID", referral.consultID},
            {"clientCat", referral.category},
            {"referto", referral.clinic},
            {"refDate", referral.date},
            {"refTime", referral.time},
            {"refReason", referral.reason},
            {"PNo", referral.pno}};
}

Cells appointmentCells(const Appointment& appointment) {
    return {{"consultID", appointment.consultID},
            {"clientCat", appointment.category},
            {"clinicType", appointment.clinic},
            {"ApptDate", appointment.date},
            {"ApptTime", appointment.time},
            {"Remarks", appointment.remarks},
            {"PNo", appointment.pno},
            {"entryDate", appointment.entered.date()},
            {"entryTime", shortTime(appointment.entered)},
            {"attendedto", 0}};
}

}  // namespace core
