#include "tests/registration/frmrecords/records.h"

using namespace db::literals;

namespace test {
namespace {

TEST_F(Records, ChecksComeInOrderAndThePlaceToMendGetsTheCursor) {
    hospital.execute("update hPatients set clientCatID='SERVICES', ref='', HMORef='' where PNo='000000002/001'"_sql);
    constexpr const char* noCategory = " Billing Category cannot be empty! Invalid Client Tariff or Billing Category";
    fire("cmdAdd");
    stopsInOrder({
        {" please specify Name of Patient", "cboVehNo", nullptr, {}, [&] { find("2"); }},
        {noCategory, "cboClient", ""},
        {noCategory, "cboClient", "HMO"},
        {" please specify clinic for Patient", "cboType", "EYE"},
        {" please specify Purpose of Visit for Patient", "cboPurpose", "  "},
        {" please specify Purpose of Visit for Patient", "cboPurpose", "A CHAT"},
        {"Specify Purpose of Attendance", "cboPurpose", "DIALYSIS"},
        {"HMO Enrolle No Needed OR enter NIL if No Enrolle Num ", "txtEmp", " "},
        {"HMO Enrolle No Needed OR enter NIL if No Enrolle Num ", "txtEmp", "NIL"},
        {" please specify Whether Patient is FeeForService", "CboRef", "YES"},
        {" please specify Whether Patient is a Referal", "cboRefHmo", "NO"},
    });
    save();
    // A category that is no scheme needs no number.
    take();
    set("txtEmp", "");
    save();
    EXPECT_EQ(hospital.value("select count(*) from hRecords"_sql), db::Value(2));
}

TEST_F(Records, ASaveWritesTheVisitItsLineAndThePatientsScheme) {
    hospital.execute(
        "insert into billAccum (PNo, consultID, drgName) values ('000000001/001', '', 'LEFT OVER'), "
        "('000000001/001', 'OLD', 'BILLED'), ('000000002/001', '', 'OF ADA')"_sql);
    take();
    fill({{"cboPat", "Axa Mansard [0007]"},
          {"cboClient", "HMO"},
          {"txtPolicy", "Gold [1]"},
          {"txtEmp", " O'N-1 "},
          {"CboRef", "YES"}});
    session().gPatientBalance = 1500.5;
    hospital.sources.clock().stopAt(db::DateTime::of(2026, 11, 25, 0, 1, 59));
    hospital.forget();
    save();
    EXPECT_EQ(dump("select recID, recDate, PNo, consultID, empID, clinicType, Remarks, htime, HMORef, referal, "
                   "DocAssigned, PatVal, suppres, attendedto, attendedtoByDoc, attendedToByNurse, BillDate, "
                   "clientCat, CoyName, Debt, LastConsultID from hRecords"_sql),
              "1|25-Nov-2026|000000001/001|001000000001|E001|EYE|(CONSULTATION)|00:01:00|NO|YES|null|null|0|0|0|0|"
              "25-Nov-2026|HMO|0007|1500.5|null\n");
    EXPECT_EQ(dump("select dtDate, drgName, Category, Price, Qty, SubTotal, PNo, consultID, billType, conID, "
                   "CoyName, BillTo, attendedto, suppres, isbilled, revType, Capitated, AppVersion from billAccum "
                   "where drgName='ATTENDANCE'"_sql),
              "25-Nov-2026|ATTENDANCE|null|0|1|0|000000001/001|001000000001|SERVICE|null|0007|AXM|0|0|0|CONSULTATION|"
              "null|null\n");
    EXPECT_EQ(dump("select drgName, consultID from billAccum order by SNO"_sql),
              "LEFT OVER|001000000001\nBILLED|OLD\nOF ADA|\nATTENDANCE|001000000001\n");
    EXPECT_TRUE(
        ran("Update hpatients set ref='YES', HmoRef ='NO', PolicyType='Gold [1]', EmpNo='O''N-1', ClientCatID='HMO', "
            "CoyName='0007' where pno = '000000001/001'"));
    EXPECT_EQ(dump("select * from hhScreeningAttnd"_sql), "");
    EXPECT_EQ(dump("select userName, userAction, ActionDate, TranCode, Remarks, Src from hAuditTrail"_sql),
              "nurse|Insert Attnd Fee for BELLO MUSA|25-Nov-2026|001000000001||WARD-3: from NURSING\n"
              "nurse|Insert Attendance for BELLO MUSA|25-Nov-2026|001000000001||WARD-3: from NURSING\n");
}

TEST_F(Records, AfterASaveTheScreenWaitsForTheNextPatient) {
    saveOne();
    session().gPatientHasBalance = true;
    saveOne();
    EXPECT_FALSE(session().gPatientHasBalance);
    EXPECT_EQ(session().gAttendPurpose, "");
    EXPECT_EQ(patient(), "|||||");
    EXPECT_EQ(shown({"cboVehNo", "cboType", "cboPurpose", "CboRef", "cboClient", "txtEmp", "lblBill", "txtName"}),
              "|||||||");
    // The same patient twice a day: two rows, two numbers, the newer first and under the cursor.
    EXPECT_EQ(dump("select PNo, consultID from hRecords"_sql),
              "000000001/001|001000000001\n000000001/001|001000000002\n");
    EXPECT_EQ(shown({"grdData"}), "ATTENDANCE FOR TODAY: 2");
    EXPECT_EQ(std::to_string(screen().grdData.row()) + screen().grdData.text("ConsultID"), "0001000000002");
}

TEST_F(Records, NeitherAdmissionNorLocksNorDebtStopAVisit) {
    session().gLockMultipleAttendance = session().gLockAttendanceForInPatients = session().gLockDebt = "YES";
    hospital.execute(
        "insert into hAdmission (PNo, consultID, AdmDate) values ('000000001/001', 'A1', '24-Nov-2026')"_sql);
    saveOne();
    take();
    session().gPatientBalance = 90000;
    save();
    EXPECT_EQ(hospital.value("select count(*) from hRecords"_sql), db::Value(2));
}

TEST_F(Records, AScreeningIsNotedWithItsPurpose) {
    saveOne("1", "PRE-EMPLOYMENT");
    EXPECT_EQ(dump("select recDate, consultID, Remarks from hhScreeningAttnd"_sql),
              "24-Nov-2026|001000000001|PRE-EMPLOYMENT\n");
    EXPECT_EQ(hospital.value("select Remarks from hRecords"_sql), db::Value("PRE-EMPLOYMENT"));
}

TEST_F(Records, ARenewedCardIsChargedWithTheNextVisitAndOnlyThen) {
    hospital.execute("insert into clinicTypes (ClinicID, ClinicName) values ('12', '12')"_sql);
    fire("cmdRefresh");
    for (const auto& [price, charged] :
         {std::pair(db::Value("1250.555"), std::string("1250.56")), std::pair(db::Value(), std::string("0"))}) {
        hospital.execute("delete from billAccum"_sql);
        hospital.execute("update hRetainership set CardRenewAmount=null where retainID='0001'"_sql);
        if (!price.isNull())
            hospital.execute("update hRetainership set CardRenewAmount='"_sql + price + "' where retainID='0001'");
        take();
        set("cboType", "12");
        session().gRenewPending = true;
        save();
        EXPECT_EQ(dump("select dtDate, Category, Price, Qty, SubTotal, PNo, billType, conID, CoyName, attendedto, "
                       "suppres, isbilled, Capitated, revType from billAccum where drgName='CARD RENEWAL FEE'"_sql),
                  "24-Nov-2026|REGISTRATION|" + charged + "|1|" + charged +
                      "|000000001/001|SERVICE|12|0001|0|0|0|NO|REGISTRATION\n");
        EXPECT_EQ(hospital.value("select conID from billAccum where drgName='ATTENDANCE'"_sql), db::Value(12));
        EXPECT_FALSE(session().gRenewPending);
    }
    hospital.execute("delete from billAccum"_sql);
    take();
    session().gRenewPending = true;
    fire("cmdCancel");
    EXPECT_FALSE(session().gRenewPending);
    saveOne();
    EXPECT_EQ(dump("select drgName from billAccum"_sql), "ATTENDANCE\n");
}

TEST_F(Records, ACorrectionRewritesTheVisitUnderTheCursorAlone) {
    saveOne("2");
    saveOne("2", "DIALYSIS");
    hospital.execute(
        "update hRecords set attendedto=1, attendedtoByDoc=1, attendedToByNurse=1, empID='E9', Debt=7"_sql);
    hospital.execute(
        "update hPatients set ref='YES', CoyName='0001', clientCatID='PRIVATE', PolicyType='Old', "
        "empNo='E''7' where PNo='000000002/001'"_sql);
    hospital.sources.clock().stopAt(db::DateTime::of(2026, 11, 24, 11, 0));
    fire("cmdRefresh");
    set("grdData", {{"row", 1}});
    hospital.forget();
    fire("grdData.DblClick", {"Patient's Card has Expired"});
    // All that a pick does, and then the visit as it was taken.
    EXPECT_TRUE(ran("Select patPix from hpatients where pno='000000002/001'"));
    EXPECT_EQ(patient(), "OBI ADA|000000002/001|C-2||Old|20-Nov-2026");
    EXPECT_EQ(shown({"txtName", "cboVehNo", "lblBill", "cboType", "cboPurpose"}),
              "000000002/001|OBI ADA [000000002/001]|001000000001|EYE|(CONSULTATION)");
    EXPECT_EQ(shown({"cboPat", "cboClient", "txtPolicy", "txtEmp", "CboRef", "cboRefHmo"}),
              "Axa Mansard [0007]|HMO|Old|E'7|NO|NO");
    EXPECT_EQ(session().gAttendPurpose, "(CONSULTATION)");
    EXPECT_EQ(screen().dtDate.value(), db::DateTime::of(2026, 11, 24));
    EXPECT_EQ(shown({"grdData"}), "ATTENDANCE FOR TODAY: 2") << "a search while editing leaves the grid";
    EXPECT_FALSE(is("cboVehNo", "enabled") || is("cmdSys", "enabled")) << "the visit stays hers";

    fire("grdData.DblClick", {"Already in Edit Mode Click 'Cancel Button' to cancel the currrent Editing"});
    fill({{"cboPurpose", "DIALYSIS"}, {"cboType", "DIALYSIS"}, {"cboRefHmo", "YES"}});
    const auto second = dump("select * from hRecords where recID=2"_sql);
    hospital.forget();
    save({"Record Succesfully Edited and Updated"});
    EXPECT_EQ(
        dump("select recDate, PNo, consultID, empID, clinicType, Remarks, htime, HMORef, referal, attendedto, "
             "attendedtoByDoc, attendedToByNurse, BillDate, clientCat, CoyName, Debt from hRecords where recID=1"_sql),
        "24-Nov-2026|000000002/001|001000000001|E001|DIALYSIS|DIALYSIS|09:30:00|YES|NO|1|0|1|24-Nov-2026|HMO|0007|7\n");
    EXPECT_EQ(dump("select * from hRecords where recID=2"_sql), second);
    EXPECT_TRUE(
        ran("Update hpatients set ref='NO', HmoRef='YES', PolicyType='Old', EmpNo='E''7', ClientCatID='HMO', "
            "CoyName='0007' where pno = '000000002/001'"));
    EXPECT_EQ(dump("select top 1 userAction, TranCode, Remarks from hAuditTrail order by SNo desc"_sql),
              "Edit Attendance for OBI ADA|001000000001|HMO/DIALYSIS/DIALYSIS/Axa Mansard\n");
    EXPECT_EQ(hospital.value("select count(*) from billAccum"_sql), db::Value(2)) << "a correction charges nothing";
    EXPECT_EQ(screen().grdData.row(), 1) << "the cursor stays on the corrected row";
    EXPECT_TRUE(is("cmdAdd", "visible") && is("cboVehNo", "enabled"));
}

TEST_F(Records, ASplitBillIsNotEditable) {
    struct Case {
        const char* consultID;
        bool editable;
    };
    const Case cases[] = {{"001000000001A", false},
                          {"001OFL0000001", true},
                          {"OFL0000000001", false},
                          {"001000000001", true},
                          {"001000000001AB", true}};
    saveOne();
    for (const auto& [consultID, editable] : cases) {
        hospital.execute("update hRecords set consultID='"_sql + std::string(consultID) + "'");
        fire("cmdRefresh");
        if (!editable) hospital.expectMessage("This ConsultID Cannot be edited! Split Bill", "Split Bill Not Editable");
        fire("cmdEdit");
        EXPECT_EQ(is("OKButton", "visible"), editable) << consultID;
        if (editable) fire("cmdCancel");
    }
}

TEST_F(Records, APatientWithANumberOfAnotherFormCanBeCorrectedToo) {
    hospital.execute(
        "insert into hPatients (PNo, psurname, pfirstName, CoyName, clientCatID) values ('OLD7', 'EZE', "
        "'NGOZI', '0007', 'HMO')"_sql);
    hospital.execute(
        "insert into hRecords (recDate, PNo, consultID, CoyName, clientCat) values ('24-Nov-2026', 'OLD7', "
        "'C7', '0007', 'HMO')"_sql);
    fire("cmdRefresh");
    fire("cmdEdit");
    EXPECT_EQ(shown({"lblNo", "cboVehNo"}), "OLD7|EZE NGOZI [OLD7]");
    fire("cmdCancel");
    // One whose registration is incomplete by now leaves the edit.
    hospital.execute("update hPatients set CoyName='' where PNo='OLD7'"_sql);
    fire("cmdEdit", {"BillTo Value Cannot be Empty!!! Check your Client Information",
                     "Registration Incomplete! Company Name Required!! Go to Registration Page"});
    EXPECT_TRUE(is("cmdAdd", "visible") && is("txtName", "enabled"));
}

TEST_F(Records, ADeletedVisitLeavesItsBill) {
    saveOne();
    saveOne("2");
    hospital.answer("yes");
    fire("cmdDel", {" Record successfully deleted "});
    EXPECT_EQ(dump("select recID from hRecords"_sql), "1\n");
    EXPECT_EQ(hospital.value("select count(*) from billAccum"_sql), db::Value(2));
    EXPECT_EQ(dump("select top 1 userAction, TranCode from hAuditTrail order by SNo desc"_sql),
              "Delete Patient: OBI ADA|001000000002\n");
    EXPECT_EQ(shown({"grdData"}), "ATTENDANCE FOR TODAY: 1");
}

}  // namespace
}  // namespace test
