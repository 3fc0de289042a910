#pragma once

#include <string>

#include "inpatient/screens.h"
#include "tests/core/atscreen.h"
#include "tests/inpatient/ward.h"

namespace test {

inline constexpr const char* wardsClinic = "In-patient :DAILY: [(IN-PATIENT)]";
inline constexpr const char* nneWaits = "Eze Nne Axa Mansard @24-Nov-2026 [C3]";
inline constexpr const char* sadeWaits = "Ojo Sade Axa Mansard @23-Nov-2026 [C4]";

/// Nne (NHIS) was consulted and goes to the wards.
inline void arrangeReferrals(TestHospital& hospital) {
    using namespace db::literals;
    arrangeWards(hospital);
    hospital.execute("delete from clinicTypes"_sql);
    hospital.execute(
        "insert into clinicTypes (ClinicID, ClinicName, ClinicDays) values ('(IN-PATIENT)', 'In-patient', 'DAILY'), "
        "('EYE', 'Eye', 'MON')"_sql);
    hospital.execute("delete from hWards"_sql);
    hospital.execute(
        "insert into hWards (wardID, WardName) values ('FEMALE 1', 'Female'), ('ICU', 'Intensive'), ('MALE 2', 'Male')"_sql);
    addConsulted(hospital, {"P3", "Eze", "Nne", "C3", "NHIS"});
}

/// Types all of a referral of Nne.
inline void refer(core::Workplace& place) {
    place.desktop.fire("frmReferalEdit.cmdAdd", false);
    enter(place, "frmReferalEdit",
          {{"cboVehNo", "Eze Nne @24-Nov-2026 (3) [C3]"},
           {"dtNext", "2026-11-25"},
           {"dtTime", "11:00:00"},
           {"txtREason", "SEVERE MALARIA"}});
}

inline void addReferral(TestHospital& hospital, const std::string& consultID, const std::string& pno,
                        const std::string& category, const std::string& day, const std::string& clinic) {
    using namespace db::literals;
    hospital.execute(
        "insert into hreferal (consultID, clientCat, referto, refReason, PNo, refDate, refTime, conID) values ('"_sql +
        consultID + "', '" + category + "', '" + clinic + "', 'SEVERE MALARIA', '" + pno + "', '" + day +
        "', '09:00', 3)");
}

/// Nne (NHIS, three days) and Sade (private) were referred to the wards, Sade the day before.
inline void arrangeReferred(TestHospital& hospital) {
    using namespace db::literals;
    arrangeReferrals(hospital);
    addConsulted(hospital, {"P4", "Ojo", "Sade", "C4", "PRIVATE"});
    addReferral(hospital, "C3", "P3", "NHIS", "24-Nov-2026", "(IN-PATIENT)");
    addReferral(hospital, "C4", "P4", "PRIVATE", "23-Nov-2026", "IN-PATIENT");
    hospital.execute("update hPatients set AdmissionDaysLimit=72 where PNo='P3'"_sql);
}

/// Picks who waits, and a ward.
inline void admit(core::Workplace& place, const char* entry) {
    place.desktop.fire("frmAdmission.cmdAdd", false);
    enter(place, "frmAdmission", {{"cboVehNo", entry}, {"cboWard", "FEMALE 1"}, {"txtRem", " walks "}});
}

}  // namespace test
