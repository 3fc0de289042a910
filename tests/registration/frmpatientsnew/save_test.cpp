#include "tests/registration/frmpatientsnew/patientsnew.h"

using namespace db::literals;

namespace test {
namespace {

TEST_F(PatientsNew, ANewPrivatePatientIsStoredWithFeeAndNumbers) {
    type();
    EXPECT_EQ(screen().card.dtExpDate.value(), db::DateTime::of(2027, 11, 24)) << "a year from the registration";
    hospital.forget();
    save();
    EXPECT_EQ(dump("select PNo, OldPNo, Title, psurname, pfirstName, homeAddress, Area, pPhoneNo, DOB, sex, "
                   "Maturity, ref, HMORef, clientCatID, coyType, CoyName, empNo, PolicyType, CardType, "
                   "fileduration, regDate, expirydate, genotype, nextOfKin, NOKPhone, relationToKin, "
                   "AdmissionDaysLimit, Principal, pCatID, username, NewReg, Debt, introducedby from hPatients"_sql),
              "000000001/001|A/12|MRS|O'BRIEN X|ADA|3 Palm St|Ikeja|08031234567|01-May-1990|FEMALE|ADULT|YES|NO|"
              "PRIVATE|PRIVATE|0001|NIL|NIL|SINGLE|ONE YEAR|24-Nov-2026|24-Nov-2027|AS|Tunde|0809|HUSBAND|0|"
              "000000001/001|PRINCIPAL|E001|YES|null|null\n");
    EXPECT_EQ(dump("select dtDate, drgName, Price, SubTotal, Qty, PNo, consultID, billType, conID, Category, "
                   "attendedto, suppres, Capitated, isbilled, CoyName, BillTo, revType from billAccum"_sql),
              "24-Nov-2026|REGISTRATION|5000|5000|1|000000001/001|001000000001|SERVICE|null|REGISTRATION|0|0|NO|0|"
              "0001|PRIVATE|REGISTRATION\n");
    EXPECT_TRUE(ran("select RegAmount from hRetainership where retainID='0001'"));
    EXPECT_EQ(dump("select * from hRecords"_sql), "") << "a nurse takes no attendance here";
    EXPECT_EQ(dump("select userAction, TranCode from hAuditTrail"_sql),
              "Reg Fee for O'BRIEN X ADA|001000000001\nInsert Reg for O'BRIEN X ADA|000000001/001\n");
    EXPECT_EQ(shown({"txtsurNAme", "lblFound"}), "|1 Records Found");
    EXPECT_TRUE(is("cmdAdd", "visible"));
}

TEST_F(PatientsNew, ASchemePatientKeepsNoExpiryAndPaysHisClientsFee) {
    type("Axa Mansard [0007]");
    set("dtExpDate", "2027-01-01");
    set("txtAdmitLimit", "48");
    save();
    EXPECT_EQ(dump("select clientCatID, coyType, CoyName, empNo, PolicyType, expirydate, AdmissionDaysLimit from "
                   "hPatients"_sql),
              "HMO|HMO|0007|E-77|Gold [1]|null|48\n");
    EXPECT_EQ(dump("select Price, BillTo from billAccum"_sql), "750.5|AXM\n");
}

TEST_F(PatientsNew, AnEditWritesItsColumnsAndNoOthers) {
    addPatient("P1");
    edit();
    EXPECT_EQ(screen().caption(), "BELLO MUSA");
    EXPECT_EQ(shown({"cboPat", "cboClient"}) + "|" + session().gClientRetainID, "PRIVATE [0001]|PRIVATE|0001");
    EXPECT_FALSE(is("chkReg", "checked"));
    fill({{"txtsurNAme", "garba"},
          {"cboPat", "Axa Mansard [0007]"},
          {"cboClient", "HMO"},
          {"txtEmp", "9"},
          {"CboRef", "NO"},
          {"cboRefHmo", "YES"},
          {"txtAdmitLimit", "24"}});
    hospital.forget();
    save({"Record Succesfully Edited and Updated"});
    EXPECT_EQ(dump("select psurname, CoyName, clientCatID, HMORef, pCatID, NewReg, username from hPatients"_sql),
              "GARBA|0007|HMO|YES|PRINCIPAL|null|null\n");
    EXPECT_EQ(dump("select userAction, TranCode, Remarks from hAuditTrail"_sql),
              "Edit Reg: GARBA MUSA|P1|Changed Company from 0001:PRIVATE to 0007:Axa Mansard\n");
    EXPECT_TRUE(ran("select * from hpatients where pNO='P1'"));
}

/// A card that is renewed without a visit: its fee waits for the next one, whoever was saved before.
TEST_F(PatientsNew, ARenewalsFeeHangsOnNoOtherPatientsVisit) {
    type();
    save();
    hospital.execute("delete from billAccum"_sql);
    edit();
    session().gRenewPending = true;
    saveEdited();
    EXPECT_EQ(dump("select drgName, Category, Price, consultID, PNo, revType from billAccum"_sql),
              "CARD RENEWAL FEE|CARD_RENEW|2000||000000001/001|REGISTRATION\n");
    EXPECT_FALSE(session().gRenewPending);
}

/// The front desk takes the attendance along with the registration.
TEST_F(PatientsNew, TheFrontDeskTakesTheAttendanceToo) {
    session().gModuleRole = "RECORDS";
    type();
    fill({{"chkReg", true}, {"cboClin", "EYE"}, {"cboPurpose", "(CONSULTATION)"}});
    EXPECT_EQ(session().gConsultAmount, "3000");
    screen().debt.lblDebt.setCaption("1,200.50");
    save();
    EXPECT_EQ(dump("select recDate, PNo, consultID, empID, clinicType, Remarks, htime, HMORef, referal, DocAssigned, "
                   "suppres, attendedto, attendedtoByDoc, attendedToByNurse, BillDate, clientCat, CoyName, Debt, "
                   "LastConsultID from hRecords"_sql),
              "24-Nov-2026|000000001/001|001000000001|E001|EYE|(CONSULTATION)|09:30:00|NO|YES|null|0|0|0|0|24-Nov-2026|"
              "PRIVATE|0001|0|null\n");
    EXPECT_EQ(dump("select drgName, Price, revType, AppVersion from billAccum order by SNO"_sql),
              "ATTENDANCE|0|CONSULTATION|7\nOPENING_BALANCE_DEBT|1200.5|CONSULTATION|7\nREGISTRATION|5000|REGISTRATION|"
              "null\n");
    EXPECT_EQ(dump("select LastPurpose, LastClinicVisited, LastAttndDate, LastConsultID from hPatients"_sql),
              "(CONSULTATION)|EYE|24-Nov-2026|001000000001\n");
    EXPECT_EQ(dump("select consultID, ServicePoint, EntryOrExit from hPatientsTimeline"_sql),
              "001000000001|ATTENDANCE|ENTRY|EXIT\n");
    EXPECT_EQ(hospital.dump("select Catname, Remarks2, Code from MessageOut"_sql, "SmsCenter"),
              "ATTEND|ATTENDANCE|001000000001\n");
}

/// The patient himself is saved by then: a second Save would register him twice.
TEST_F(PatientsNew, AFailedPhotographLeavesNoFormThatCouldBeSavedAgain) {
    const auto savesAllButThePhotograph = [&](const char* failing, const char* says) {
        choosePhotograph();
        hospital.failStatement(failing);
        save({says, "Injected failure"});
        EXPECT_FALSE(is("OKButton", "visible")) << says;
    };
    type();
    savesAllButThePhotograph("update hPatients", "Record Succesfully saved");
    EXPECT_EQ(shown({"txtsurNAme"}), "");
    edit();
    savesAllButThePhotograph("Select patPix from hpatients where pno='000000001/001'",
                             "Record Succesfully Edited and Updated");
    EXPECT_EQ(hospital.value("select count(*) from hPatients"_sql).int32(), 1);
}

TEST_F(PatientsNew, WhatIsLoadedIsSavedAgainAsItWas) {
    hospital.execute("insert into employees (empID, lastname, firstname) values ('N001', 'OKAFOR', 'ADA')"_sql);
    fire("cmdRefresh");
    addPatient("P1");
    for (const auto& [stored, introducer] : {std::pair{"N001", "OKAFOR ADA [N001]"}, std::pair{"GONE", "GONE"}}) {
        hospital.execute("update hPatients set bloodGroup='AB-NEGATIVE', fileduration='ONE YEAR', introducedby='"_sql +
                         std::string(stored) + "'");
        fire("cmdRefresh");
        edit();
        EXPECT_EQ(shown({"cboIntro"}), introducer);
        set("cboIntro", introducer);  // picked once more
        saveEdited();
        EXPECT_EQ(dump("select introducedby, bloodGroup, fileduration, expirydate from hPatients"_sql),
                  stored + std::string("|AB-NEGATIVE|ONE YEAR|24-Dec-2026\n"));
    }
    edit();
    set("cboFile", "TILL END OF YEAR");
    EXPECT_FALSE(screen().card.dtExpDate.value()) << "the date of an existing card is set by hand";
    fire("cmdCancel");
}

TEST_F(PatientsNew, NumbersOfAFailedSaveAreForgotten) {
    addPatient("000000009/001");
    edit();
    fire("cmdPatDep");
    type();
    hospital.failStatement("insert billAccum");
    hospital.forget();
    save({"Injected failure"});
    EXPECT_TRUE(ran("update idgen set id=14 where destNAme='PATIENT2'")) << "the counter goes behind the last number";
    fire("cmdPatDep", {"Select Principal Patient to add Dependants to"});
    hospital.answer("yes");
    hospital.answer("no");
    fire("OKButton", {"Record Succesfully saved"});
    EXPECT_EQ(dump("select PNo, Principal from hPatients where PNo<>'000000009/001'"_sql),
              "000000015/001|000000009/001\n");
}

TEST_F(PatientsNew, AnAppointmentGoesToTheDoctorWithTheShortestQueue) {
    session().gModuleRole = "RECORDS";
    session().gAssignDoctorsToRooms = "YES";
    for (const auto& sql : {
             "insert into employees (empID, lastname, firstname) values ('D1', 'OJO', 'TUNDE'), "
             "('D2', 'AUDU', 'ZAINAB')"_sql,
             "insert into hDoctorClinics (empID, ClinicID) values ('D1', 'EYE'), ('D2', 'EYE')"_sql,
             "insert into hConRoomAssign (schdDate, ConRoomNo, docNo) values ('24-Nov-2026', 'ROOM 1', 'D1'), "
             "('24-Nov-2026', 'ROOM 2', 'D2'), ('23-Nov-2026', 'ROOM 1', 'D1')"_sql,
             "insert into hClinicDays (ClinicID, WeekDayNo) values ('EYE', 3)"_sql,
             "insert into hPatients (PNo, psurname, pfirstName) values ('P9', 'EZE', 'ADA')"_sql,
             "insert into hRecords (PNo, consultID, recDate, clinicType, DocAssigned, PatVal) values ('P9', 'C9', "
             "'24-Nov-2026', 'EYE', 'D1', 1)"_sql,
         })
        hospital.execute(sql);
    fire("cmdRefresh");
    EXPECT_EQ(hospital.value("select count(*) from hConRoomAssign"_sql).int32(), 2) << "yesterday's rooms are gone";
    auto& queues = dynamic_cast<ui::DataGrid&>(*screen().find("grdDoc"));
    ASSERT_EQ(queues.rows().rowCount(), 2U);
    for (int row = 0; row < 2; ++row) {
        set("grdDoc", {{"row", row}});
        const bool waits = queues.text("EmpID") == "D1";
        fire("grdDoc.DblClick",
             {waits ? "This page is not there yet: Doc Wait" : "This Doctor has No Patients on Queue"});
        EXPECT_EQ(session().gWaitEmpID, waits ? "D1" : "");
    }

    type();
    set("chkReg", true);
    set("cboPurpose", "APPOINTMENT", {"Specify Clinic"});
    set("cboClin", "EYE");
    EXPECT_EQ(dynamic_cast<ui::ComboBox&>(*screen().find("cboDoc")).items().size(), 3U);
    EXPECT_EQ(shown({"cboDoc"}), "AUDU ZAINAB @ ROOM 2 [D2]");
    set("cboPurpose", "APPOINTMENT", {"This page is not there yet: Clinic Dates"});
    set("dtNext", "2026-12-02");
    screen().visit.dtRefTime.setValue(db::DateTime::of(1899, 12, 30, 9));
    save();
    EXPECT_EQ(dump("select clinicType, ApptDate, ApptTime, Remarks, PNo, entryDate, entryTime, attendedto, conID "
                   "from happointment"_sql),
              "EYE|02-Dec-2026|09:00:00|EYE Appointment|000000001/001|24-Nov-2026|09:30:00|0|null\n");
    EXPECT_EQ(dump("select DocAssigned, PatVal, LastConsultID from hRecords where PNo <> 'P9'"_sql), "D2|1|null\n");
    EXPECT_EQ(hospital.dump("select Catname, Remarks2, sendDate from MessageOut order by sendDate"_sql, "SmsCenter"),
              "APPT|EYE|24-Nov-2026\nAPPT|EYE|01-Dec-2026\n");
}

}  // namespace
}  // namespace test
