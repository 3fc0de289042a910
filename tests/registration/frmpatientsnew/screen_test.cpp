#include <filesystem>

#include "tests/registration/frmpatientsnew/patientsnew.h"

using namespace db::literals;

namespace test {
namespace {

TEST_F(PatientsNew, ChecksComeInOrderAndThePlaceToMendGetsTheCursor) {
    session().gAdmissionLimitExists = "YES";
    fire("cmdAdd");
    const auto clientCode = [&](const char* code) { return [&, code] { session().gClientRetainID = code; }; };
    stopsInOrder({
        {"Specify if Registration is new OR Existing", "cboNew", "NEW"},
        {"Specify Patient Title/Salutation", "cboTitle", "MR"},
        {" Company Name cannot be empty", "cboPat", "Nobody"},
        {" Select Company Name",
         "cboPat",
         "Axa Mansard [0007]",
         {},
         clientCode("12345678"),
         "Empty Company Code not Allowed"},
        {" Re-Select Company Name",
         "cboPat",
         nullptr,
         {{"cboClient", "HMO"}},
         clientCode("1234567"),
         "Invalid Company Code"},
        {"HMO Enrolle No Needed", "txtEmp", "77"},
        {"Specify Maximum No of hrs to Stay in Admission, if Admitted! (AdmissionLimit) Enter zero if Unlimited",
         "txtAdmitLimit",
         "0",
         {{"cboCard", ""}}},
        {" Card Category cannot be empty", "cboCard", "SINGLE", {{"dtExpDate", nullptr}}, clientCode("0001")},
        {" Please Specify Expiration Date for this Private Patient",
         "dtExpDate",
         "2026-11-24",
         {{"dtRegDate", nullptr}}},
        {" Please Specify Date Patient Registered", "dtRegDate", "2026-11-24"},
        {" Patient Maturity  Cannot be Blank", "cboMat", "ADULT"},
        {"Fee for Service Field  Cannot be Blank", "CboRef", "NO", {{"cboRefHmo", ""}}},
        {"HMO Referal Field  Cannot be Blank", "cboRefHmo", "NO"},
        {"Specify Patient Residential Area", "cboArea", "Ikeja"},
        {" Surname cannot be empty", "txtsurNAme", "x"},
        {" Firstname cannot be empty", "txtfirstNAme", "y", {{"cboClient", ""}}},
        {"Billing Cat (Client Tariff) cannot be empty", "cboClient", "HMO"},
        {"Patient's Phone No Required! 11 Digits Onlt!! GSM Only. eg 08031234567", "txtPhone", "1"},
        {"Next of Kin Required", "txtKin", "k"},
        {"Next of Kin Phone No Required", "txtNOKPhone", "2", {}, clientCode("0007")},
    });
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
        {"txtName.KeyReturn", "llo", "select  * from vwhpatients where fullname like '%llo%'  order by fullname", "1"},
        {"txtName.KeyReturn", "C-P1", "select  * from vwhpatients where oldPno = 'C-P1'  order by fullname", "1"},
        {"txtName.KeyReturn", "123456", "select  * from vwhpatients where oldPno = '123456'  order by fullname", "0"},
        {"txtName.KeyReturn", "0803123", "select  * from vwhpatients where PhoneNo like '%0803123%' order by fullname",
         "0"},
    };
    session().gSearchWaitTime = 1;
    const std::string broken = "Unclosed quotation mark after the character string.";
    for (const auto& row : cases) {
        SCOPED_TRACE(row.statement);
        if (std::string(row.text) == "O'K") expect({broken.c_str()});  // the quick search takes it as typed
        set("txtName", row.text);
        hospital.forget();
        fire(row.button);
        EXPECT_TRUE(ran(row.statement));
        EXPECT_EQ(shown({"lblFound"}), std::string(row.found) + " Records Found");
    }
    set("txtName", "O'K", {broken.c_str()});
    fire("cmdOK", {broken.c_str()});
    set("txtName", "");
    fire("cmdOK", {"To locate a patient, Enter few Letters and click OK Button"});
    fire("cmdCard", {"To locate a patient, Enter Card No and click 'Card No' Button"});
    fire("cmdSys", {"To locate a patient, Enter Patient Tel No and click 'Tel No' Button"});
}

TEST_F(PatientsNew, TypingSearchesAfterTheWait) {
    addPatient("P1");
    session().gSearchWaitTime = 1;
    for (const auto* nothing : {"BE", "BE1", "B0L", "\xE1\xBB\x8C\xE1\xBB\x8C"}) {
        hospital.forget();
        set("txtName", nothing);
        EXPECT_TRUE(hospital.log().empty()) << nothing;
    }
    std::string whileItWaits;
    hospital.loop.post([&] {
        try {
            set("grdData", {{"row", 0}});
        } catch (const ui::Refused& refused) {
            whileItWaits = refused.why;
        }
    });
    set("txtName", "BEL");
    EXPECT_EQ(whileItWaits, "frmPatientsNew.grdData is hidden or disabled") << "the rows of before take no pick";
    set("grdData", {{"row", 0}});
    EXPECT_TRUE(ran("select top 20  * from vwhpatients where fullname like '%BEL%'  order by fullname"));
    EXPECT_EQ(screen().caption(), "Patient Attendance / Registration");
    session().gSearchValue = "0";  // no limit
    set("txtName", "BELL");
    EXPECT_TRUE(ran("select  * from vwhpatients where fullname like '%BELL%'  order by fullname"));
    set("txtName", "");
    EXPECT_EQ(shown({"lblFound"}), "0 Records Found");
    EXPECT_EQ(screen().grdData.row(), -1);
}

TEST_F(PatientsNew, DeletesOnlyForManagementAndOnlyWithoutCare) {
    addPatient("P1");
    fire("cmdDel", {"You dont have Permission to Reverse an Entry"});
    hospital.addUser("nurse", "MANAGEMENT");
    for (const auto& [care, says] : {std::pair("insert into hConsulting (PNo) values ('P1')"_sql,
                                               "Patient Cannot be Deleted!!! Has Consultation Information"),
                                     std::pair("insert into hPreConsult (PNo) values ('P1')"_sql,
                                               "Patient Cannot be Deleted!!! Has Vital Signs Information")}) {
        hospital.execute(care);
        hospital.answer("yes");
        fire("cmdDel", {says});
    }
    for (const auto& care : {"delete from hConsulting"_sql, "delete from hPreConsult"_sql}) hospital.execute(care);
    const auto row = dump("select * from hPatients"_sql);
    hospital.answer("yes");
    fire("cmdDel", {" Record successfully deleted "});
    EXPECT_EQ(dump("select * from hpatientsArchive"_sql), row);
    EXPECT_EQ(dump("select * from hPatients"_sql), "");
    EXPECT_EQ(dump("select userAction, TranCode from hAuditTrail"_sql), "Delete Patient: BELLO MUSA|P1\n");
}

TEST_F(PatientsNew, CardsAgesAndDependants) {
    fire("cmdAdd");
    set("dtRegDate", "2024-02-29");
    for (const auto& [lasts, until] : {std::pair("ONE YEAR", std::optional(db::DateTime::of(2025, 2, 28))),
                                       std::pair("TILL END OF YEAR", std::optional(db::DateTime::of(2026, 12, 31))),
                                       std::pair("WHILE STILL IN SERVICE", std::optional<db::DateTime>())}) {
        set("cboFile", lasts);
        EXPECT_EQ(screen().card.dtExpDate.value(), until) << lasts;
    }
    // As the keys come: the words wait until the cursor has left.
    for (const auto* typed : {"3", "30"}) set("txtAge", typed);
    EXPECT_EQ(shown({"txtAge"}), "30");
    fire("txtAge.LostFocus");
    EXPECT_EQ(screen().person.dtDate.value(), db::DateTime::of(1996, 11, 24));
    EXPECT_EQ(shown({"txtAge"}), "30 yrs, 0 mths and 0 days");
    fire("cmdCancel");

    addPatient("P1");
    edit();
    fire("cmdPatDep");
    EXPECT_EQ(shown({"txtsurNAme", "txtfirstNAme"}), "BELLO|");
    type();
    hospital.forget();
    hospital.answer("yes");
    hospital.answer("yes");  // any other dependant?
    fire("OKButton", {"Record Succesfully saved"});
    EXPECT_EQ(focus(), "frmPatientsNew.cboNew");
    EXPECT_EQ(dump("select Principal, pCatID from hPatients where PNo <> 'P1'"_sql), "P1|DEPENDANT\n");
    EXPECT_TRUE(is("OKButton", "visible")) << "the next one is being added";
    fire("cmdCancel");
    hospital.execute("update hPatients set pCatID='DEPENDANT' where PNo='P1'"_sql);
    hospital.execute("delete from hPatients where PNo<>'P1'"_sql);
    fire("cmdRefresh");
    edit();
    fire("cmdPatDep", {"Select a Principal Patient! Cannot Add Dependants to existing Dependant!!"});
}

TEST_F(PatientsNew, ANamesakeIsShownAndBlocksNothing) {
    addPatient("P1");
    fire("cmdAdd");
    set("txtsurNAme", "bello");
    fire("txtsurNAme.LostFocus", {"One or more Surnames match !!! Please Confirm for Duplicates"});
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
    EXPECT_EQ(shown({"cboClin"}), "");
    session().gLockAttendanceForInPatients = "NO";
    addVisit("P1");
    hospital.expectMessage("Patient Attendance already Taken! Duplicate not allowed!! Proceed to see Nurse/Doctor",
                           "LockMultipleAttendnace");
    set("cboClin", "EYE");
    session().gLockMultipleAttendance = "NO";
    set("dtExpDate", "2026-11-24");
    set("cboClin", "EYE", {"Patient's Card has Expired"});
    EXPECT_TRUE(is("cmdRenew", "enabled"));
    EXPECT_EQ(hospital.value("select expired from hPatients"_sql), db::Value(true));
    set("dtExpDate", "2026-11-25");
    set("cboClin", "EYE");
    EXPECT_EQ(shown({"cboClin"}), "EYE");
    EXPECT_FALSE(is("cmdRenew", "enabled"));
    set("dtExpDate", nullptr);
    set("cboClin", "EYE", {" Please Specify Expiration Date for this Private Patient"});
    session().gAssignDoctorsToRooms = "YES";
    hospital.expectMessage("Please Assign Doctors to Consulting Rooms before Attendance can be Taken", "OK");
    set("cboClin", "EYE", {"This page is not there yet: Sched Doctor"});
}

TEST_F(PatientsNew, PhotographsAreRealJpegsAndGoIntoTheRow) {
    addPatient("P1");
    edit();
    choosePhotograph("GIF89a, whatever its name says", {"The file is not a JPG image"});
    choosePhotograph("\xFF\xD8\xFF" + std::string(5 * 1024 * 1024, 'x') + "\xFF\xD9",
                     {"The photograph is larger than 5 MB"});
    EXPECT_TRUE(screen().photograph.imgPix.image().empty());
    const auto file = choosePhotograph(jpeg(1600, 800) + "<script>");
    EXPECT_EQ(seenIn(screen().photograph.imgPix.image()), "800x400 red blue");
    saveEdited();
    EXPECT_EQ(seenIn(hospital.value("select patPix from hPatients"_sql).bytes()), "800x400 red blue");
    EXPECT_FALSE(std::filesystem::exists(file)) << "the upload goes once it is stored";
    EXPECT_TRUE(screen().photograph.imgPix.image().empty());
    edit();
    EXPECT_EQ(seenIn(screen().photograph.imgPix.image()), "800x400 red blue");
    fire("cmdCancel");
}

/// On a page a name is a token of one of the session's own uploads, and no path of the host.
TEST_F(PatientsNew, WhatIsNoChosenPhotographIsNeitherStoredNorRemoved) {
    const auto file = hospital.program.path() / "face.jpg";
    struct Case {
        const char* what;
        std::function<void()> choose;
        const char* says;
    };
    const Case cases[] = {{"a file that changed since it was shown",
                           [&] {
                               choosePhotograph();
                               hospital.program.write("face.jpg", "no picture any more");
                           },
                           "The file is not a JPG image"},
                          {"a path of the host",
                           [&] {
                               hospital.program.write("face.jpg", jpeg(16, 16));
                               place.desktop.setFileFinder([](const std::string&) { return std::nullopt; });
                               place.desktop.set(name + ".txtPix", file.string(), true);
                           },
                           "The photograph is not there any more: choose it again."}};
    addPatient("P1");
    for (const auto& [what, choose, says] : cases) {
        SCOPED_TRACE(what);
        edit();
        choose();
        saveEdited({"Record Succesfully Edited and Updated", says});
        EXPECT_TRUE(hospital.value("select patPix from hPatients"_sql).isNull());
        EXPECT_TRUE(std::filesystem::exists(file));
    }
}

TEST_F(PatientsNew, TheNextPatientTakesNothingOfTheLast) {
    addPatient("P1", "0007", "HMO");
    addPatient("P2");
    session().gModuleRole = "RECORDS";
    set("grdData", {{"row", 0}});
    fire("grdData.DblClick");
    fill({{"txtPolicy", "Gold [1]"}, {"cboClin", "EYE"}, {"cboPurpose", "(CONSULTATION)"}});
    choosePhotograph();
    session().gRenewPending = true;

    set("grdData", {{"row", 1}});
    fire("grdData.DblClick");
    EXPECT_EQ(shown({"cboClin", "cboPurpose"}) + session().gAttendPurpose, "|");
    EXPECT_EQ(shown({"txtPix"}), "") << "a face that was chosen for somebody else";
    EXPECT_FALSE(session().gRenewPending) << "nor is his renewal charged";
    EXPECT_EQ(screen().client.txtPolicy.items().size(), 2U);
    EXPECT_EQ(shown({"cboClient"}), "PRIVATE");
    session().gRenewPending = true;
    fire("Unload");
    EXPECT_FALSE(session().gRenewPending) << "leaving lets the fee fall";
}

TEST_F(PatientsNew, ALoadThatFailsLeavesAWorkingForm) {
    addPatient("P1");
    hospital.failStatement("select distinct ClientType,retainCode");
    fire("grdData.DblClick", {"Injected failure"});
    type();
    EXPECT_EQ(session().gClientRetainID, "0001");
    save();
    session().gModuleRole = "RECORDS";
    fire("grdData.DblClick");
    hospital.failStatement("select pno from qryhAdmission");
    set("cboClin", "EYE", {"Injected failure"});
    EXPECT_EQ(shown({"cboClin"}), "") << "a lock that cannot be looked at lets nobody through";
    fire("cmdCancel");
}

TEST_F(PatientsNew, NothingThatWasTypedGoesUnasked) {
    addPatient("P1");
    type();
    set("cboPat", "axa");
    EXPECT_EQ(shown({"cboPat"}), "AXA");
    set("cboPat", "Axa Mansard [0007]");
    fire("cmdRefresh");
    EXPECT_EQ(shown({"cboPat", "cboArea"}), "Axa Mansard [0007]|Ikeja");
    set("cboArea", "Lekki");
    const auto areas = entries("cboArea");
    fire("cmdRefresh");
    EXPECT_EQ(shown({"cboArea", "cboCard"}), "Lekki|SINGLE");
    EXPECT_EQ(entries("cboArea"), areas) << "what was typed becomes no entry";
    hospital.answer("no");  // leave the one who is being added?
    fire("grdData.DblClick");
    EXPECT_EQ(shown({"txtsurNAme"}), "O'BRIEN [X]");
    hospital.answer("yes");
    edit();
    EXPECT_EQ(shown({"txtsurNAme"}), "BELLO");
}

}  // namespace
}  // namespace test
