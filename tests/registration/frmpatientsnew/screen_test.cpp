#include <filesystem>

#include "core/session/session.h"
#include "tests/registration/frmpatientsnew/patientsnew.h"

using namespace db::literals;

namespace test {
namespace {

TEST_F(PatientsNew, ChecksComeInOrderAndThePlaceToMendGetsTheCursor) {
    struct Case {
        const char* says;
        const char* title;
        const char* field;
        std::function<void()> mend;
    };
    session().gAdmissionLimitExists = "YES";
    const Case cases[] = {
        {"Specify if Registration is new OR Existing", "", "cboNew", [&] { set("cboNew", "NEW"); }},
        {"Specify Patient Title/Salutation", "", "cboTitle", [&] { set("cboTitle", "MR"); }},
        {" Company Name cannot be empty", "", "cboPat", [&] { set("cboPat", "Nobody"); }},
        {" Select Company Name", "Empty Company Code not Allowed", "cboPat",
         [&] {
             set("cboPat", "Axa Mansard [0007]");
             session().gClientRetainID = "12345678";
         }},
        {" Re-Select Company Name", "Invalid Company Code", "cboPat",
         [&] {
             session().gClientRetainID = "1234567";
             set("cboClient", "HMO");
         }},
        {"HMO Enrolle No Needed", "", "txtEmp", [&] { set("txtEmp", "77"); }},
        {"Specify Maximum No of hrs to Stay in Admission, if Admitted! (AdmissionLimit) Enter zero if Unlimited", "",
         "txtAdmitLimit",
         [&] {
             set("txtAdmitLimit", "0");
             set("cboCard", "");
         }},
        {" Card Category cannot be empty", "", "cboCard",
         [&] {
             set("cboCard", "SINGLE");
             session().gClientRetainID = "0001";
             set("dtExpDate", nullptr);
         }},
        {" Please Specify Expiration Date for this Private Patient", "", "dtExpDate",
         [&] {
             set("dtExpDate", "2026-11-24");
             set("dtRegDate", nullptr);
         }},
        {" Please Specify Date Patient Registered", "", "dtRegDate", [&] { set("dtRegDate", "2026-11-24"); }},
        {" Patient Maturity  Cannot be Blank", "", "cboMat", [&] { set("cboMat", "ADULT"); }},
        {"Fee for Service Field  Cannot be Blank", "", "CboRef",
         [&] {
             set("CboRef", "NO");
             set("cboRefHmo", "");
         }},
        {"HMO Referal Field  Cannot be Blank", "", "cboRefHmo", [&] { set("cboRefHmo", "NO"); }},
        {"Specify Patient Residential Area", "", "cboArea", [&] { set("cboArea", "Ikeja"); }},
        {" Surname cannot be empty", "", "txtsurNAme", [&] { set("txtsurNAme", "x"); }},
        {" Firstname cannot be empty", "", "txtfirstNAme",
         [&] {
             set("txtfirstNAme", "y");
             set("cboClient", "");
         }},
        {"Billing Cat (Client Tariff) cannot be empty", "", "cboClient", [&] { set("cboClient", "HMO"); }},
        {"Patient's Phone No Required! 11 Digits Onlt!! GSM Only. eg 08031234567", "", "txtPhone",
         [&] { set("txtPhone", "1"); }},
        {"Next of Kin Required", "", "txtKin", [&] { set("txtKin", "k"); }},
        {"Next of Kin Phone No Required", "", "txtNOKPhone", [&] { set("txtNOKPhone", "2"); }},
    };
    fire("cmdAdd");
    const auto before = rows();
    for (const auto& [says, title, field, mend] : cases) {
        hospital.forget();
        hospital.expectMessage(says, title);
        fire("OKButton");
        EXPECT_EQ(focus(), "frmPatientsNew." + std::string(field)) << says;
        EXPECT_TRUE(screen().OKButton.enabled());
        mend();
    }
    hospital.answer("no");
    fire("OKButton");
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(screen().contacts.txtNOKPhone.text(), "2") << "nothing is lost";
    session().gClientRetainID = "0007";
    save();
    EXPECT_EQ(hospital.value("select count(*) from hPatients"_sql).int32(), 1);
}

TEST_F(PatientsNew, SearchesAsTold) {
    addPatient("P1");
    struct Case {
        const char* button;
        const char* text;
        const char* statement;
        const char* found;
    };
    const Case cases[] = {
        {"cmdOK", "ello", "select  * from vwhpatients where fullname like '%ello%'  order by fullname", "1"},
        {"cmdCard", "C-P1", "select  * from vwhpatients where oldPno = 'C-P1'  order by fullname", "1"},
        {"cmdCard", "O'K", "select  * from vwhpatients where oldPno = 'O''K'  order by fullname", "0"},
        {"cmdSys", "080", "select  * from vwhpatients where PhoneNo like '%080%' order by fullname", "1"},
    };
    session().gSearchWaitTime = 1;
    const std::string broken = "Unclosed quotation mark after the character string.";
    for (const auto& row : cases) {
        if (std::string(row.text) == "O'K") hospital.expectMessage(broken);  // the quick search takes it as typed
        set("txtName", row.text);
        hospital.forget();
        fire(row.button);
        EXPECT_TRUE(ran(row.statement)) << row.statement;
        EXPECT_EQ(screen().finder.lblFound.caption(), std::string(row.found) + " Records Found") << row.statement;
    }
    hospital.expectMessage(broken);
    set("txtName", "O'K");
    hospital.expectMessage(broken);
    fire("cmdOK");
    set("txtName", "");
    hospital.expectMessage("To locate a patient, Enter few Letters and click OK Button");
    fire("cmdOK");
    hospital.expectMessage("To locate a patient, Enter Card No and click 'Card No' Button");
    fire("cmdCard");
    hospital.expectMessage("To locate a patient, Enter Patient Tel No and click 'Tel No' Button");
    fire("cmdSys");
}

TEST_F(PatientsNew, TypingSearchesAfterTheWait) {
    addPatient("P1");
    session().gSearchWaitTime = 1;
    for (const auto* nothing : {"BE", "BE1", "B0L", "\xE1\xBB\x8C\xE1\xBB\x8C"}) {
        hospital.forget();
        set("txtName", nothing);
        EXPECT_TRUE(hospital.log().empty()) << nothing;
    }
    set("txtName", "BEL");
    EXPECT_TRUE(ran("select top 20  * from vwhpatients where fullname like '%BEL%'  order by fullname"));
    EXPECT_EQ(screen().caption(), "Patient Attendance / Registration");
    session().gSearchValue = "0";  // no limit
    set("txtName", "BELL");
    EXPECT_TRUE(ran("select  * from vwhpatients where fullname like '%BELL%'  order by fullname"));
    set("txtName", "");
    EXPECT_EQ(screen().finder.lblFound.caption(), "0 Records Found");
    EXPECT_EQ(screen().grdData.row(), -1);
}

TEST_F(PatientsNew, DeletesOnlyForManagementAndOnlyWithoutCare) {
    addPatient("P1");
    hospital.expectMessage("You dont have Permission to Reverse an Entry");
    fire("cmdDel");
    hospital.addUser("nurse", "MANAGEMENT");
    hospital.answer("no");
    fire("cmdDel");
    hospital.execute("insert into hPreConsult (PNo) values ('P1')"_sql);
    hospital.answer("yes");
    hospital.expectMessage("Patient Cannot be Deleted!!! Has Vital Signs Information");
    fire("cmdDel");
    hospital.execute("delete from hPreConsult"_sql);
    hospital.execute("insert into hConsulting (PNo) values ('P1')"_sql);
    hospital.answer("yes");
    hospital.expectMessage("Patient Cannot be Deleted!!! Has Consultation Information");
    fire("cmdDel");
    hospital.execute("delete from hConsulting"_sql);
    const auto row = hospital.dump("select * from hPatients"_sql);
    for (int n = 1; n <= 2; ++n) {
        hospital.failWrite(n);
        hospital.answer("yes");
        hospital.expectMessage("Injected failure");
        fire("cmdDel");
        EXPECT_EQ(hospital.dump("select * from hPatients"_sql), row) << n;
        EXPECT_EQ(hospital.dump("select * from hpatientsArchive"_sql), "") << n;
    }
    hospital.answer("yes");
    hospital.expectMessage(" Record successfully deleted ");
    fire("cmdDel");
    EXPECT_EQ(hospital.dump("select * from hpatientsArchive"_sql), row);
    EXPECT_EQ(hospital.dump("select * from hPatients"_sql), "");
    EXPECT_EQ(hospital.dump("select userAction, TranCode from hAuditTrail"_sql), "Delete Patient: BELLO MUSA|P1\n");
}

TEST_F(PatientsNew, CardsAgesAndDependants) {
    fire("cmdAdd");
    set("dtRegDate", "2024-02-29");
    set("cboFile", "ONE YEAR");
    EXPECT_EQ(screen().card.dtExpDate.value(), db::DateTime::of(2025, 2, 28));
    set("cboFile", "TILL END OF YEAR");
    EXPECT_EQ(screen().card.dtExpDate.value(), db::DateTime::of(2026, 12, 31));
    set("cboFile", "WHILE STILL IN SERVICE");
    EXPECT_FALSE(screen().card.dtExpDate.value());
    // As the keys come: the words wait until the cursor has left.
    for (const auto* typed : {"3", "30"}) set("txtAge", typed);
    EXPECT_EQ(screen().person.txtAge.text(), "30");
    fire("txtAge.LostFocus");
    EXPECT_EQ(screen().person.dtDate.value(), db::DateTime::of(1996, 11, 24));
    EXPECT_EQ(screen().person.txtAge.text(), "30 yrs, 0 mths and 0 days");
    fire("cmdCancel");

    addPatient("P1");
    hospital.expectMessage("Only FrontDesk Module can take Attendance! Edit Allowed");
    fire("grdData.DblClick");
    fire("cmdPatDep");
    EXPECT_EQ(screen().person.txtsurNAme.text(), "BELLO");
    EXPECT_EQ(screen().person.txtfirstNAme.text(), "");
    type();
    hospital.answer("yes");
    hospital.expectMessage("Record Succesfully saved");
    hospital.answer("yes");  // any other dependant?
    hospital.forget();
    fire("OKButton");
    EXPECT_EQ(focus(), "frmPatientsNew.cboNew");
    EXPECT_EQ(hospital.dump("select Principal, pCatID from hPatients where PNo <> 'P1'"_sql), "P1|DEPENDANT\n");
    EXPECT_TRUE(screen().OKButton.visible()) << "the next one is being added";
    fire("cmdCancel");
    hospital.execute("update hPatients set pCatID='DEPENDANT' where PNo='P1'"_sql);
    hospital.execute("delete from hPatients where PNo<>'P1'"_sql);
    fire("cmdRefresh");
    hospital.expectMessage("Only FrontDesk Module can take Attendance! Edit Allowed");
    fire("grdData.DblClick");
    hospital.expectMessage("Select a Principal Patient! Cannot Add Dependants to existing Dependant!!");
    fire("cmdPatDep");
}

TEST_F(PatientsNew, ANamesakeIsShownAndBlocksNothing) {
    addPatient("P1");
    fire("cmdAdd");
    set("txtsurNAme", "bello");
    hospital.expectMessage("One or more Surnames match !!! Please Confirm for Duplicates");
    fire("txtsurNAme.LostFocus");
    EXPECT_NE(place.desktop.loaded("frmVerify"), nullptr);
    EXPECT_TRUE(
        ran("select distinct psurname as Surname,pfirstname as Firstname,pno as NewFileNo,oldpno as [Old "
            "FileNo],homeAddress from hpatients where psurname = 'BELLO'"));
    set("txtsurNAme", "nobody's");
    fire("txtsurNAme.LostFocus");
}

TEST_F(PatientsNew, LocksRefuseWhenTheClinicIsPicked) {
    session().gModuleRole = "RECORDS";
    addPatient("P1");
    fire("grdData.DblClick");
    hospital.execute("insert into hAdmission (PNo, consultID, wardID) values ('P1', 'C9', 'W')"_sql);
    hospital.expectMessage("This Patient is Still On Admission!! Discharge Patient Before Attendance can be Taken",
                           "LockAttendanceForInPatients");
    set("cboClin", "EYE");
    EXPECT_EQ(screen().visit.cboClin.text(), "");
    session().gLockAttendanceForInPatients = "NO";
    hospital.execute("insert into hRecords (PNo, consultID, recDate) values ('P1', 'C1', '24-Nov-2026')"_sql);
    hospital.expectMessage("Patient Attendance already Taken! Duplicate not allowed!! Proceed to see Nurse/Doctor",
                           "LockMultipleAttendnace");
    set("cboClin", "EYE");
    session().gLockMultipleAttendance = "NO";
    set("dtExpDate", "2026-11-24");
    hospital.expectMessage("Patient's Card has Expired");
    set("cboClin", "EYE");
    EXPECT_TRUE(screen().card.cmdRenew.enabled());
    EXPECT_EQ(hospital.value("select expired from hPatients"_sql), db::Value(true));
    set("dtExpDate", "2026-11-25");
    set("cboClin", "EYE");
    EXPECT_EQ(screen().visit.cboClin.text(), "EYE");
    EXPECT_FALSE(screen().card.cmdRenew.enabled());
    set("dtExpDate", nullptr);
    hospital.expectMessage(" Please Specify Expiration Date for this Private Patient");
    set("cboClin", "EYE");
    session().gAssignDoctorsToRooms = "YES";
    hospital.expectMessage("Please Assign Doctors to Consulting Rooms before Attendance can be Taken", "OK");
    hospital.expectMessage("This page is not there yet: Sched Doctor");
    set("cboClin", "EYE");
}

TEST_F(PatientsNew, PhotographsAreRealJpegsAndGoIntoTheRow) {
    addPatient("P1");
    hospital.expectMessage("Only FrontDesk Module can take Attendance! Edit Allowed");
    fire("grdData.DblClick");
    const auto choose = [&](const std::string& content) {
        hospital.program.write("face.jpg", content);
        hospital.answer({{"file", (hospital.program.path() / "face.jpg").string()}});
        fire("cmdPix");
    };
    hospital.expectMessage("The file is not a JPG image");
    choose("GIF89a, whatever its name says");
    hospital.expectMessage("The photograph is larger than 5 MB");
    choose("\xFF\xD8\xFF" + std::string(5 * 1024 * 1024, 'x') + "\xFF\xD9");
    EXPECT_TRUE(screen().photograph.imgPix.image().empty());
    choose(test::jpeg(1600, 800) + "<script>");
    EXPECT_EQ(test::seenIn(screen().photograph.imgPix.image()), "800x400 red blue");
    set("txtAdmitLimit", "0");
    save("Record Succesfully Edited and Updated");
    EXPECT_EQ(test::seenIn(hospital.value("select patPix from hPatients"_sql).bytes()), "800x400 red blue");
    EXPECT_FALSE(std::filesystem::exists(hospital.program.path() / "face.jpg")) << "the upload goes once it is stored";
    EXPECT_TRUE(screen().photograph.imgPix.image().empty());
    hospital.expectMessage("Only FrontDesk Module can take Attendance! Edit Allowed");
    fire("grdData.DblClick");
    EXPECT_EQ(test::seenIn(screen().photograph.imgPix.image()), "800x400 red blue");
    fire("cmdCancel");
}

TEST_F(PatientsNew, AFileThatChangedSinceItWasShownIsLookedAtAgain) {
    addPatient("P1");
    hospital.expectMessage("Only FrontDesk Module can take Attendance! Edit Allowed");
    fire("grdData.DblClick");
    hospital.program.write("face.jpg", test::jpeg(16, 16));
    hospital.answer({{"file", (hospital.program.path() / "face.jpg").string()}});
    fire("cmdPix");
    hospital.program.write("face.jpg", "no picture any more");
    set("txtAdmitLimit", "0");
    hospital.expectMessage("Record Succesfully Edited and Updated");
    hospital.expectMessage("The file is not a JPG image");
    hospital.answer("yes");
    fire("OKButton");
    EXPECT_TRUE(hospital.value("select patPix from hPatients"_sql).isNull());
    EXPECT_TRUE(std::filesystem::exists(hospital.program.path() / "face.jpg"));
}

/// On a page a name is a token of one of the session's own uploads, and no path of the host.
TEST_F(PatientsNew, ATextThatNamesNoChosenFileReadsAndRemovesNothing) {
    addPatient("P1");
    hospital.program.write("secret.jpg", test::jpeg(16, 16));
    place.desktop.setFileFinder([](const std::string&) { return std::nullopt; });
    hospital.expectMessage("Only FrontDesk Module can take Attendance! Edit Allowed");
    fire("grdData.DblClick");
    place.desktop.set(name + ".txtPix", (hospital.program.path() / "secret.jpg").string(), true);
    set("txtAdmitLimit", "0");
    hospital.expectMessage("Record Succesfully Edited and Updated");
    hospital.expectMessage("The photograph is not there any more: choose it again.");
    hospital.answer("yes");
    fire("OKButton");
    EXPECT_TRUE(hospital.value("select patPix from hPatients"_sql).isNull());
    EXPECT_TRUE(std::filesystem::exists(hospital.program.path() / "secret.jpg"));
}

TEST_F(PatientsNew, TheNextPatientTakesNothingOfTheLast) {
    addPatient("P1", "0007", "HMO");
    addPatient("P2");
    session().gModuleRole = "RECORDS";
    set("grdData", {{"row", 0}});
    fire("grdData.DblClick");
    set("txtPolicy", "Gold [1]");
    set("cboClin", "EYE");
    set("cboPurpose", "(CONSULTATION)");
    hospital.program.write("face.jpg", test::jpeg(16, 16));
    hospital.answer({{"file", (hospital.program.path() / "face.jpg").string()}});
    fire("cmdPix");
    session().gRenewPending = true;

    set("grdData", {{"row", 1}});
    fire("grdData.DblClick");
    EXPECT_EQ(screen().visit.cboClin.text() + screen().visit.cboPurpose.text() + session().gAttendPurpose, "");
    EXPECT_EQ(screen().photograph.txtPix.text(), "") << "a face that was chosen for somebody else";
    EXPECT_FALSE(session().gRenewPending) << "nor is his renewal charged";
    EXPECT_EQ(screen().client.txtPolicy.items().size(), 2U);
    EXPECT_EQ(screen().client.cboClient.text(), "PRIVATE");
    session().gRenewPending = true;
    place.desktop.fire(name + ".Unload", false);
    EXPECT_FALSE(session().gRenewPending) << "leaving lets the fee fall";
}

TEST_F(PatientsNew, ALoadThatFailsLeavesAWorkingForm) {
    addPatient("P1");
    hospital.failStatement("select distinct ClientType,retainCode");
    hospital.expectMessage("Injected failure");
    fire("grdData.DblClick");
    type();
    EXPECT_EQ(session().gClientRetainID, "0001");
    save();
    session().gModuleRole = "RECORDS";
    fire("grdData.DblClick");
    hospital.failStatement("select pno from qryhAdmission");
    hospital.expectMessage("Injected failure");
    set("cboClin", "EYE");
    EXPECT_EQ(screen().visit.cboClin.text(), "") << "a lock that cannot be looked at lets nobody through";
    fire("cmdCancel");
}

TEST_F(PatientsNew, NothingThatWasTypedGoesUnasked) {
    addPatient("P1");
    type();
    set("cboPat", "axa");
    EXPECT_EQ(screen().client.cboPat.text(), "AXA");
    set("cboPat", "Axa Mansard [0007]");
    fire("cmdRefresh");
    EXPECT_EQ(screen().client.cboPat.text() + screen().contacts.cboArea.text(), "Axa Mansard [0007]Ikeja");
    set("cboArea", "Lekki");
    const auto areas = screen().contacts.cboArea.items().size();
    fire("cmdRefresh");
    EXPECT_EQ(screen().contacts.cboArea.text(), "Lekki");
    EXPECT_EQ(screen().contacts.cboArea.items().size(), areas) << "what was typed becomes no entry";
    EXPECT_EQ(screen().card.cboCard.text(), "SINGLE");
    hospital.answer("no");  // leave the one who is being added?
    fire("grdData.DblClick");
    EXPECT_EQ(screen().person.txtsurNAme.text(), "O'BRIEN [X]");
    hospital.answer("yes");
    hospital.expectMessage("Only FrontDesk Module can take Attendance! Edit Allowed");
    fire("grdData.DblClick");
    EXPECT_EQ(screen().person.txtsurNAme.text(), "BELLO");
}

}  // namespace
}  // namespace test
