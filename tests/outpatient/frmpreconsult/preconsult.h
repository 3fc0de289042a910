#pragma once

#include <string>

#include "core/session/session.h"
#include "outpatient/frmpreconsult/frmpreconsult.h"
#include "outpatient/screens.h"
#include "tests/core/atscreen.h"

namespace test {

inline constexpr const char* adaWaits = "Obi Ada Mrs @24-Nov-2026 08:15:00 GENERAL [C1]";
inline constexpr const char* musaWaits = "Bello Musa  @24-Nov-2026 08:40:00 EYE [C2]";

/// What is typed for a patient.
inline const Entries typed = {{"txtTemp", "36.8"},
                              {"txtPressure", "120"},
                              {"txtPressure2", "80"},
                              {"txtPause", "72"},
                              {"txtResp", "18"},
                              {"txtHt", "1.68"},
                              {"txtWt", "64.5"},
                              {"txtSPO2", " 98 "},
                              {"txtRBS", " 5.4 "},
                              {"cboPosition", "Sitting"},
                              {"txtAlb", "NIL"},
                              {"txtSugar", "+"},
                              {"txtRem", "not to be stored"}};

inline void addVisit(TestHospital& hospital, const std::string& pno, const std::string& surname,
                     const std::string& firstName, const std::string& title, const std::string& consultID,
                     const std::string& time, const std::string& clinic, int seen) {
    using namespace db::literals;
    hospital.execute("insert into hPatients (PNo, OldPNo, Title, psurname, pfirstName, DOB, sex) values ('"_sql + pno +
                     "', 'CARD-" + pno + "', '" + title + "', '" + surname + "', '" + firstName +
                     "', '01-Jan-1990', 'FEMALE')");
    hospital.execute(
        "insert into hRecords (recDate, PNo, consultID, htime, clinicType, attendedto, Remarks, "
        "clientCat, CoyName) values ('24-Nov-2026', '"_sql +
        pno + "', '" + consultID + "', '30-Dec-1899 " + time + "', '" + clinic + "', " + seen +
        ", 'HEADACHE', 'HMO', '0007')");
}

/// A morning at the station: Ada and Musa wait, Ngozi was seen, two doctors are in.
inline void arrangeStation(TestHospital& hospital) {
    using namespace db::literals;
    hospital.addUser("ojo", "CONSULTING", "Tunde Ojo", "D1");
    hospital.addUser("audu", "CONSULTING", "Zainab Audu", "D2");
    hospital.execute(
        "insert into employees (empID, lastname, firstname) values ('D1', 'Ojo', 'Tunde'), ('D2', 'Audu', "
        "'Zainab'), ('E001', 'Joy', 'Nurse')"_sql);
    hospital.execute("delete from clinicTypes"_sql);
    hospital.execute(
        "insert into clinicTypes (ClinicID, ClinicName) values ('GENERAL', 'General'), ('EYE', 'Eye'), "
        "('O''CLOCK', 'Zero hour'), ('WARD', '(IN-PATIENT)')"_sql);
    hospital.execute(
        "insert into hRetainership (retainID, retainName, retainCode) values ('0007', 'Axa Mansard', 'AXM')"_sql);
    addVisit(hospital, "P1", "Obi", "Ada", "Mrs", "C1", "08:15", "GENERAL", 0);
    addVisit(hospital, "P2", "Bello", "Musa", "", "C2", "08:40", "EYE", 0);
    addVisit(hospital, "P3", "Eze", "Ngozi", "Ms", "C3", "08:05", "GENERAL", 1);
}

/// Types all of a patient who waits.
inline void takeVitals(core::Workplace& place, const char* entry) {
    place.desktop.fire("frmPreConsult.cmdAdd", false);
    enter(place, "frmPreConsult", {{"cboVehNo", entry}});
    enter(place, "frmPreConsult", typed);
    enter(place, "frmPreConsult", {{"CboRef", "Tunde Ojo [D1]"}});
}

/// Corrects the row under the cursor, for a doctor.
inline void correctVitals(core::Workplace& place, const char* doctor) {
    place.desktop.fire("frmPreConsult.grdData.DblClick", false);
    enter(place, "frmPreConsult", {{"CboRef", doctor}});
}

/// A nurse at the station of that morning.
class PreConsult : public AtScreen {
protected:
    PreConsult() : AtScreen("frmPreConsult", &outpatient::provideScreens, &arrangeStation) {}
    outpatient::frmPreConsult& screen() { return as<outpatient::frmPreConsult>(); }
    void take(const char* entry) { takeVitals(place, entry); }
    void saveOne(const char* entry = adaWaits) {
        take(entry);
        save();
        hospital.forget();
    }
    /// The readings, their twins and the attendances.
    std::string rows() {
        using namespace db::literals;
        return dump("select * from hPreConsult"_sql) + dump("select * from hPreConsultChart"_sql) +
               dump("select * from hRecords"_sql);
    }
};

}  // namespace test
