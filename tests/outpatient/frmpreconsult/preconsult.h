#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "outpatient/frmpreconsult/frmpreconsult.h"
#include "outpatient/screens.h"
#include "tests/core/stubs.h"

namespace test {

inline constexpr const char* adaWaits = "Obi Ada Mrs @24-Nov-2026 08:15:00 GENERAL [C1]";
inline constexpr const char* musaWaits = "Bello Musa  @24-Nov-2026 08:40:00 EYE [C2]";

/// What is typed for a patient.
inline const std::vector<std::pair<const char*, const char*>> typed = {{"txtTemp", "36.8"},
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
    const auto set = [&place](const char* field, const char* text) {
        place.desktop.set(std::string("frmPreConsult.") + field, text, false);
    };
    place.desktop.fire("frmPreConsult.cmdAdd", false);
    set("cboVehNo", entry);
    for (const auto& [field, text] : typed) set(field, text);
    set("CboRef", "Tunde Ojo [D1]");
}

/// Corrects the row under the cursor, for a doctor.
inline void correctVitals(core::Workplace& place, const char* doctor) {
    place.desktop.fire("frmPreConsult.grdData.DblClick", false);
    place.desktop.set("frmPreConsult.CboRef", doctor, false);
}

/// A nurse at the station of that morning.
class PreConsult : public testing::Test {
protected:
    PreConsult() { open(); }
    void open() {
        hospital.start();
        outpatient::provideScreens(hospital.place);
        arrangeStation(hospital);
        place.desktop.show("frmPreConsult");
        hospital.forget();
    }
    outpatient::frmPreConsult& screen() {
        return dynamic_cast<outpatient::frmPreConsult&>(*place.desktop.loaded("frmPreConsult"));
    }
    core::Session& session() { return place.session; }

    // -- what a nurse does at the page --
    void fire(const std::string& control) { place.desktop.fire("frmPreConsult." + control, false); }
    void set(const std::string& control, const nlohmann::json& content) {
        place.desktop.set("frmPreConsult." + control, content, false);
    }
    void take(const char* entry) { takeVitals(place, entry); }
    void save(const char* says) {
        hospital.answer("yes");
        hospital.expectMessage(says);
        fire("OKButton");
    }
    void saveOne(const char* entry = adaWaits) {
        take(entry);
        save("Record Succesfully saved");
        hospital.forget();
    }
    void correct(const char* doctor) { correctVitals(place, doctor); }

    // -- what came of it --
    std::string focus() { return hospital.focus(); }
    bool ran(const std::string& statement) { return hospital.ran(statement); }
    static std::vector<std::string> texts(const ui::ItemControl& list) {
        std::vector<std::string> found;
        for (const auto& item : list.items()) found.push_back(item.text);
        return found;
    }
    /// All that a save writes.
    std::string rows() {
        using namespace db::literals;
        std::string all;
        for (const auto& table :
             {"select * from hPreConsult"_sql, "select * from hPreConsultChart"_sql, "select * from billAccum"_sql,
              "select * from hRecords"_sql, "select * from hPatientsTimeline"_sql, "select * from hAuditTrail"_sql})
            all += hospital.dump(table) + "-\n";
        return all;
    }
    nlohmann::json shown() { return place.desktop.get("frmPreConsult"); }
    std::string text(const std::string& field) { return shown()["controls"][field]["text"]; }

    Ward hospital;
    core::Workplace& place = hospital.place;
};

}  // namespace test
