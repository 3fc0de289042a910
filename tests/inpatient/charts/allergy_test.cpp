#include "core/session/session.h"
#include "inpatient/screens.h"
#include "tests/core/atscreen.h"
#include "tests/inpatient/ward.h"

using namespace db::literals;

namespace test {
namespace {

class Allergy : public AtScreen {
protected:
    Allergy() : AtScreen("frmAllergy", &inpatient::provideScreens, &arrangeWards) {}
    void tick(int sign) { set("LstDate", {{"row", sign}, {"checked", true}}); }
    void fillAda() {
        fire("cmdAdd");
        fill({{"cboVehNo", adaLies},
              {"cboCat", "Nurse Joy [E001]"},
              {"cboDoc", "Zainab Audu [D2]"},
              {"dtTime", "08:10:00"},
              {"dtDoc", "08:25:00"},
              {"txtNote", " ADRENALINE GIVEN "},
              {"cboEvent", "BLOOD ADMINISTERED"}});
        tick(1);
        tick(8);
    }
};

TEST_F(Allergy, EachFieldIsAskedForInItsTurn) {
    hospital.workstationClock = db::DateTime::of(2026, 11, 25, 8, 0);
    EXPECT_EQ(entries("cboEvent"), "|IMMUNIZATION|MEDICATION ADMINISTERED|BLOOD ADMINISTERED|");
    EXPECT_EQ(entries("cboDoc"), "|Tunde Ojo [D1]|Zainab Audu [D2]|");
    fire("cmdAdd");
    stopsInOrder({{"Please specify Patient Name", "cboVehNo", adaLies},
                  {"Please specify Name of Nurse", "cboCat", "Nurse Joy [E001]"},
                  {"Please specify Time of Reaction", "dtTime", "08:10:00"},
                  {"Please specify Doctor's Time of Attendance", "dtDoc", "08:25:00"},
                  {"Please Tick Signs and Symptoms", "LstDate", {}, {}, [this] { tick(0); }},
                  {"Please specify Note of immediate response to care", "txtNote", "REST"},
                  {"Please specify Event which preceded reaction", "cboEvent", "BEE STING"}});
    EXPECT_EQ(shown({"lblTitle", "lblBill", "lblNo", "lblClient", "lblWard", "lblDays", "lblDate", "lblCoy"}),
              "Obi Ada\r\nAllergic Reaction/Anaphylaxis Record|C1|P1|HMO|FEMALE 1|4|36 / 01-Jan-1990|Axa Mansard");
    save();
    EXPECT_EQ(dump("select Event, Doctor from hNurseAllergy"_sql), "BEE STING|\n") << "the doctor may be missing";
}

TEST_F(Allergy, TheSignsTickedAreStoredAndTheNurseInAttendanceIsSignedIn) {
    hospital.addUser("eze", "NURSING", "Ngozi Eze", "E002");
    fire("cmdRefresh");
    fillAda();
    set("cboCat", "Ngozi Eze [E002]");
    EXPECT_EQ(session().gEmpID, "E002");
    fill({{"txtOther", " rash "}, {"txtRem", " calm "}});
    save();
    EXPECT_EQ(
        dump("select consultID, PNo, ADate, Event, tReaction, tDoc, Symptoms, others, Comments, Note, Nurse, Doctor "
             "from hNurseAllergy"_sql),
        "C1|P1|24-Nov-2026|BLOOD ADMINISTERED|08:10:00|08:25:00|CHOKING SENSATION\r\nITCHING|rash|calm|ADRENALINE "
        "GIVEN|E002|D2\n");
    EXPECT_EQ(dump("select userAction, TranCode, Remarks from hAuditTrail"_sql),
              "Insert Pat Allergy: Obi Ada\r\nAllergic Reaction/Anaphylaxis Record|C1|CHOKING SENSATION\r\nITCHING\n");
    // The rows stay when the form is empty, so that one can be corrected.
    EXPECT_EQ(shown({"lblBill", "cboVehNo", "cboCat"}), "||");
    EXPECT_EQ(hiddenColumns(), "SNo NurseID DocID ");
    session().gEmpID = "E001";
    fire("cmdEdit");
    EXPECT_EQ(session().gEmpID, "E001") << "loading a row signs nobody in";
    EXPECT_EQ(shown({"lblBill", "cboVehNo", "cboDoc", "cboCat", "txtSymptoms"}),
              "C1|Obi Ada [C1]|Audu Zainab [D2]||CHOKING SENSATION\r\nITCHING");
    EXPECT_TRUE(is("txtSymptoms", "visible") && !is("LstDate", "visible"));
    set("txtSymptoms", " \r\n");
    stopsInOrder({{"Please specify Name of Nurse", "cboCat", "Nurse Joy [E001]"},
                  {"Please Tick Signs and Symptoms", "txtSymptoms", "ITCHING\r\n"}});
    save({"Record Succesfully updated"});
    EXPECT_EQ(dump("select consultID, Symptoms, Nurse, Doctor from hNurseAllergy"_sql), "C1|ITCHING|E001|D2\n");
    fire("cmdAdd");
    EXPECT_EQ(place.desktop.get(name + ".LstDate")["checked"].size(), 0U);
}

TEST_F(Allergy, TheHospitalsOwnListOfSignsStandsAlone) {
    EXPECT_EQ(place.desktop.get(name + ".LstDate")["items"].size(), 13U);
    hospital.execute("insert into hNurseAllergyList (Allergy) values ('HIVES')"_sql);
    fire("cmdRefresh");
    EXPECT_EQ(entries("LstDate"), "HIVES|");
}

TEST_F(Allergy, DeleteTakesTheNursesDischargeOfTheVisitAndLeavesTheReaction) {
    hospital.execute("insert into hdischargeForNurse (consultID, PNo) values ('C1', 'P1'), ('C2', 'P2')"_sql);
    fillAda();
    save();
    hospital.answer("yes");
    fire("cmdDel", {" Record successfully deleted "});
    EXPECT_TRUE(ran("delete from hdischargeForNurse where consultID = 'C1'"));
    EXPECT_EQ(dump("select consultID from hdischargeForNurse"_sql), "C2\n");
    EXPECT_EQ(dump("select consultID from hNurseAllergy"_sql), "C1\n");
    // One who has left is nobody here.
    hospital.execute("update hAdmission set isdischarged=1"_sql);
    fire("cmdAdd");
    hospital.execute("update hAdmission set isdischarged=0"_sql);
    fire("cmdCancel");
    fire("cmdAdd");
    hospital.execute("update hAdmission set isdischarged=1"_sql);
    set("cboVehNo", musaLies);
    EXPECT_EQ(shown({"lblTitle", "lblNo", "lblDays"}), "Patient Discharge||");
    stopsInOrder({{"Please specify Patient Name", "cboVehNo", {}}});
}

}  // namespace
}  // namespace test
