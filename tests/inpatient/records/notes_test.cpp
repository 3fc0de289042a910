#include "core/session/session.h"
#include "inpatient/screens.h"
#include "tests/core/atscreen.h"
#include "tests/inpatient/ward.h"

using namespace db::literals;

namespace test {
namespace {

/// Four consultations of Ada's visit, of which one orders nothing; Ngozi is here today and lies in no ward.
void arrangeOrders(TestHospital& hospital) {
    arrangeWards(hospital);
    addConsulted(hospital, {"P3", "Eze", "Ngozi", "C3", "PRIVATE"});
    hospital.execute(
        "insert into hPreConsult (consultID, PNo, preDate, preTime, temp, Pressure) values ('C1', 'P1', '24-Nov-2026', "
        "'08:30', '37', '120/80'), ('C3', 'P3', '24-Nov-2026', '08:20', '36.5', '110/70')"_sql);
    for (const auto* visit : {"C1", "C3"})
        for (const auto* drug : {"PARACETAMOL", "AMOXYCILLIN", "VITAMIN C", "IRON", ""})
            hospital.execute(
                "insert into hConsulting (consultID, PNo, CDate, cTime, treatedBy, preScription, treatPlan) values ('"_sql +
                std::string(visit) + "', '" + std::string(*(visit + 1) == '1' ? "P1" : "P3") +
                "', '23-Nov-2026', '10:05', 'D1', '" + std::string(drug) + "', 'REST')");
}

std::string order(const std::string& kind, const std::string& when, const std::string& text) {
    return "#####" + kind + " at " + when + "#####\r\n" + text + "\r\n";
}

class DocNotes : public AtScreen {
protected:
    DocNotes() : AtScreen("frmDocNotes", &inpatient::provideScreens, &arrangeOrders) {}
};

TEST_F(DocNotes, ANoteIsTheDoctorsAndBeginsWithTheLatestOrders) {
    EXPECT_EQ(entries("cboReason"), " |Ojo Tunde [D1]|") << "only those of one department";
    fire("cmdAdd");
    EXPECT_EQ(entries("cboVehNo"), " |Obi Ada [C1]|Bello Musa [C2]|");
    stopsInOrder({{"Please specify Doctor's Name", "cboReason", "Ojo Tunde [D1]"},
                  {"Please specify Patient's Name", "cboVehNo", adaLies}});
    EXPECT_EQ(shown({"lblTitle", "lblBill", "lblNo", "lblClient"}), "Patient : Obi Ada|C1|P1|HMO");
    const auto prescribed = order("Prescription", "23-Nov-2026 10:05:00", "PARACETAMOL") +
                            order("Prescription", "23-Nov-2026 10:05:00", "AMOXYCILLIN") +
                            order("Prescription", "23-Nov-2026 10:05:00", "VITAMIN C");
    EXPECT_EQ(shown({"txtPresc"}), prescribed);
    EXPECT_EQ(place.desktop.get(name + ".DataGrid1")["rows"].size(), 1U);
    set("txtRem", " SEEN ");
    save();
    EXPECT_EQ(dump("select nDate, nTime, PNo, notes, preScription, consultID, clientCat, empID from "
                   "hInPatientNotesForDoctors"_sql),
              "24-Nov-2026|09:30:00|P1| SEEN |" + prescribed + "|C1|HMO|D1\n");
    EXPECT_EQ(dump("select * from hAuditTrail"_sql), "");
    EXPECT_EQ(hiddenColumns(), "sno notes prescription ");
    // Its list stays, and a row brings its patient, its doctor and its title.
    fire("cmdEdit");
    EXPECT_EQ(shown({"lblTitle", "cboVehNo", "cboReason", "txtRem"}),
              "Patient : Obi Ada|Obi Ada [C1]|Ojo Tunde [D1]| SEEN ");
    EXPECT_FALSE(is("cboVehNo", "enabled"));
    save({"Record Succesfully updated"});
    fire("cmdDel", {" Record cannot be deleted "});
}

class NurseNote : public AtScreen {
protected:
    NurseNote() : AtScreen("frmNurseNote", &inpatient::provideScreens, &arrangeOrders) {}
    /// Opens it as an entry of the menu does.
    void open(const char* scope) {
        session().gNoteScope = scope;
        place.desktop.show(name);
    }
};

TEST_F(NurseNote, TheMenuSaysWhoseNotesAndThePatientsFollow) {
    for (const auto& [scope, patients] :
         {std::pair{"OPD", " |Eze Ngozi  [C3]|"}, {"IPD", " |Bello Musa  [C2]|Obi Ada  [C1]|"}}) {
        open(scope);
        EXPECT_EQ(shown({"cboDept"}), scope);
        fire("cmdAdd");
        EXPECT_EQ(entries("cboVehNo"), patients);
        fire("cmdCancel");
    }
    // What is being entered is not changed by who comes by.
    fire("cmdAdd");
    open("OPD");
    EXPECT_EQ(shown({"cboDept"}), "IPD");
    set("cboDept", "OPD");
    EXPECT_EQ(entries("cboVehNo"), " |Eze Ngozi  [C3]|");
}

TEST_F(NurseNote, AnOutPatientsOrdersAllShowAndAnInPatientsThree) {
    const auto one = [](const char* drug) { return order("Prescription", "10:05 23-Nov-2026 ", drug); };
    const auto three = one("PARACETAMOL") + one("AMOXYCILLIN") + one("VITAMIN C");
    fire("cmdAdd");
    set("cboVehNo", "Obi Ada  [C1]");
    EXPECT_EQ(shown({"lblTitle", "lblClient", "txtPresc"}), "Patient : Obi Ada|HMO|" + three);
    open("OPD");
    fire("cmdCancel");
    open("OPD");
    fire("cmdAdd");
    set("cboVehNo", "Eze Ngozi  [C3]");
    EXPECT_EQ(shown({"lblBill", "lblNo", "txtPresc"}), "C3|P3|" + three + one("IRON"));
    const auto plan = order("Treatment Plan", "10:05 23-Nov-2026 ", "REST");
    EXPECT_EQ(shown({"txtPlan"}), plan + plan + plan + plan);
    set("cboVehNo", " ");
    EXPECT_EQ(shown({"lblTitle", "lblBill", "txtPresc"}), "Patient :||");
}

TEST_F(NurseNote, ANoteKeepsTheOrdersAsTheyStood) {
    fire("cmdAdd");
    stopsInOrder({{"Please specify Patient's Name", "cboVehNo", "Obi Ada  [C1]", {{"dtDate", nullptr}}},
                  {"Please enter report for this patient", "txtRem", "SLEPT WELL"},
                  {"Please specify date", "dtDate", "2026-11-24"}});
    const auto prescribed = shown({"txtPresc"});
    save();
    const auto notes =
        "select nDate, nTime, PNo, notes, preScription, consultID, clientCat, empID from "
        "hInPatientNotesForNurses"_sql;
    EXPECT_EQ(dump(notes), "24-Nov-2026|09:30:00|P1|SLEPT WELL|" + prescribed + "|C1|HMO|E001\n");
    EXPECT_EQ(hiddenColumns(), "LastName FirstName notes sno prescription ");
    hospital.execute("update hInPatientNotesForNurses set preScription='OLDER'"_sql);
    fire("cmdAdd");
    set("cboVehNo", "Obi Ada  [C1]");
    fire("cmdCancel");
    fire("cmdEdit");
    EXPECT_EQ(shown({"lblTitle", "cboVehNo", "txtPresc", "txtRem"}),
              "Patient : Obi Ada|Obi Ada  [C1]|OLDER|SLEPT WELL");
    EXPECT_FALSE(is("cboVehNo", "enabled") || is("cboDept", "enabled"));
    set("txtRem", "SLEPT BADLY");
    save({"Record Succesfully updated"});
    EXPECT_EQ(dump(notes), "24-Nov-2026|09:30:00|P1|SLEPT BADLY|OLDER|C1|HMO|E001\n");
    EXPECT_EQ(dump("select userAction, TranCode, Remarks from hAuditTrail"_sql),
              "Insert Nurse Note: Patient : Obi Ada|C1|By Nurse\nEdit Nurse Note: Patient : Obi Ada|C1|By Nurse\n");
}

}  // namespace
}  // namespace test
