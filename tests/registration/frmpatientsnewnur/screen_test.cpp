#include <filesystem>

#include "tests/registration/frmpatientsnewnur/patientsnewnur.h"

using namespace db::literals;

namespace test {
namespace {

constexpr const char* attended =
    "Patient Attendance already Taken! Duplicate not allowed!! Proceed to see Nurse/Doctor";

class PatientsNewNur : public Registration {
protected:
    PatientsNewNur() : Registration("frmPatientsNewNur") { priceServices(hospital); }
    void book(const std::string& client, const char* clinic, const char* purpose) {
        bookPatient(place, client, clinic, purpose);
    }
    std::string lines() {
        return dump("select drgName, Price, SubTotal, revType, CoyName from billAccum order by SNO"_sql);
    }
};

TEST_F(PatientsNewNur, AsksForLessAndInThisOrder) {
    fire("cmdAdd");
    stopsInOrder({
        {"Specify if Registration is new OR Existing", "cboNew", "NEW"},
        {" Company Name cannot be empty", "cboPat", "Axa Mansard [0007]", {{"cboCard", ""}}},
        {" Card Category cannot be empty", "cboCard", "SINGLE", {{"dtRegDate", nullptr}}},
        {" Please Specify Date Patient Registered", "dtRegDate", "2026-11-24"},
        {" Surname cannot be empty", "txtsurNAme", "x"},
        {" Firstname cannot be empty", "txtfirstNAme", "y"},
        {" Client Tariff cannot be empty", "cboClient", "HMO"},
        {"Specify Clinic for Attendance", "cboClin", "EYE"},
        {"Specify Purpose of Attendance", "cboPurpose", "SCREENING", {}, [&] { session().gAttendPurpose.clear(); }},
        {"Specify Purpose of Attendance", "cboPurpose", "SCREENING"},
    });
    save();
}

TEST_F(PatientsNewNur, ThePurposesFeeReachesTheBill) {
    book(privateClient, "EYE", "(CONSULTATION)");
    save();
    EXPECT_EQ(lines(), "ATTENDANCE|900|900|CONSULTATION|0001\nREGISTRATION|1500.25|1500.25|REGISTRATION|0001\n");
    EXPECT_EQ(dump("select pCatID, coyType, Principal, LastPurpose, LastConsultID from hPatients"_sql),
              "PRIVATE|PRIVATE|000000001/001|null|001000000001\n");
    EXPECT_EQ(dump("select PNo, regDate, Clinic, Remarks, expireDate, Active from hPatientClinics"_sql),
              "000000001/001|24-Nov-2026|(GENERAL)|(GENERAL)|24-Nov-2027|1\n");
    EXPECT_EQ(dump("select clinicType, Remarks, DocAssigned, PatVal from hRecords"_sql),
              "EYE|(CONSULTATION)|null|null\n");
    EXPECT_EQ(dump("select * from hPatientsTimeline"_sql), "");
}

TEST_F(PatientsNewNur, AClientsScreeningIsFreeOfTheRegistrationFee) {
    hospital.execute("insert into hScreeningAmount (coycode, Amount) values ('0007', 4000)"_sql);
    book("Axa Mansard [0007]", "EYE", "PRE-EMPLOYMENT");
    save();
    EXPECT_EQ(lines(), "ATTENDANCE|4000|4000|CONSULTATION|0007\n");
    EXPECT_EQ(dump("select consultID, Remarks from hhScreeningAttnd"_sql), "001000000001|PRE-EMPLOYMENT\n");
    EXPECT_EQ(dump("select pCatID, coyType from hPatients"_sql), "COMPANY|HMO\n");
    EXPECT_EQ(dump("select expireDate from hPatientClinics"_sql), "null\n");
}

TEST_F(PatientsNewNur, ANewbornGoesToTheWardAndBalancesHaveTheirNames) {
    for (const auto& [balance, line] : std::vector<std::pair<double, std::string>>{
             {-250.5, "PREVIOUS DEBT|250.5|250.5"}, {300, "PREVIOUS CREDIT|-300|-300"}}) {
        book(privateClient, "(IN-PATIENT)", "APPOINTMENT");
        set("dtNext", "2026-12-01");
        session().gPatientBalance = balance;
        save();
        EXPECT_NE(lines().find(line), std::string::npos) << lines();
        fire("cmdRefresh");
    }
    EXPECT_EQ(dump("select top 1 consultID, clientCat, referto, refDate, refTime, refReason, PNo, entryDate, "
                   "entryTime, attendedto from hreferal"_sql),
              "001000000001|PRIVATE|(IN-PATIENT)|24-Nov-2026|09:30:00|DELIVERY|000000001/001|24-Nov-2026|09:30:00|0\n");
    EXPECT_EQ(dump("select top 1 clinicType, ApptDate, ApptTime, Remarks, attendedto from happointment"_sql),
              "(IN-PATIENT)|01-Dec-2026|null|(IN-PATIENT) Appointment|0\n");
}

TEST_F(PatientsNewNur, OneVisitADayWhateverTheLocks) {
    addPatient("P1");
    session().gLockMultipleAttendance = "NO";
    fire("grdData.DblClick");
    hospital.execute("insert into hAdmission (PNo, consultID, wardID) values ('P1', 'C9', 'W')"_sql);
    set("cboClin", "EYE");
    EXPECT_EQ(shown({"cboClin"}), "EYE") << "a patient in a ward may attend";
    addVisit("P1");
    set("cboClin", "EYE", {attended});
    EXPECT_EQ(shown({"cboClin"}), "");
}

TEST_F(PatientsNewNur, APhotographNeedsAPatientWithANumber) {
    fire("cmdPix", {"Invalid Sys No!"});
    addPatient("P1");
    fire("grdData.DblClick");
    const auto file = choosePhotograph(jpeg(48, 32));
    EXPECT_EQ(seenIn(screen().photograph.imgPix.image()), "48x32 red blue");
    set("chkReg", false);
    save({"Record Succesfully Edited and Updated"});
    EXPECT_EQ(seenIn(hospital.value("select patPix from hPatients"_sql).bytes()), "48x32 red blue");
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(PatientsNewNur, AClinicPickedForSomebodyElseIsNoWayRoundTheVisitOfToday) {
    addPatient("P1");
    addVisit("P1");
    book("Axa Mansard [0007]", "EYE", "(CONSULTATION)");
    hospital.answer("yes");  // leaves the one who is being added
    fire("grdData.DblClick");
    fire("OKButton", {"Specify Clinic for Attendance"});
    hospital.execute("update hPatients set Maturity='NEONATE'"_sql);
    fire("cmdCancel");
    fire("cmdRefresh");
    fire("grdData.DblClick", {attended});
    EXPECT_EQ(shown({"cboClin"}), "");
}

TEST_F(PatientsNewNur, TheBillGoesToTheClientOfThisPatient) {
    addPatient("P1");
    fire("grdData.DblClick");
    fire("cmdCancel");
    fire("cmdAdd");
    fill({{"cboNew", "EXISTING"},
          {"cboPat", "NOBODY"},
          {"cboCard", "SINGLE"},
          {"txtsurNAme", "OBI"},
          {"txtfirstNAme", "ADA"},
          {"chkAll", true},
          {"cboClient", "HMO"}});
    set("cboPurpose", "APPOINTMENT", {"Specify Clinic"});
    EXPECT_EQ(session().gAttendPurpose, "") << "the routing ends";
    set("cboClin", "EYE");
    set("cboPurpose", "(CONSULTATION)");
    save();
    EXPECT_EQ(dump("select CoyName, BillTo from billAccum"_sql), "|\n");
}

TEST_F(PatientsNewNur, DiffersInItsWords) {
    addPatient("000000123/001");
    set("txtName", "123");
    hospital.forget();
    EXPECT_EQ(shown({"cmdSys"}), "System No");
    fire("cmdSys");
    EXPECT_TRUE(ran("select  * from vwhpatients where Pno = '000000123/001' order by fullname"));
    EXPECT_EQ(shown({"txtName", "lblFound"}), "000000123/001|1 Records Found");
    set("txtName", "");
    fire("cmdSys", {"To locate a patient, Enter Patient Sys No and click 'System No' Button"});
    fire("cmdDel", {"You dont have Permission to Reverse a Receipt Entry"});
}

}  // namespace
}  // namespace test
