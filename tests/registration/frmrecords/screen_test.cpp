#include "tests/registration/frmrecords/records.h"

using namespace db::literals;

namespace test {
namespace {

TEST_F(Records, OpensOnTheDaysAttendances) {
    session().gRenewPending = true;
    place.desktop.unload(name);
    EXPECT_FALSE(session().gRenewPending) << "leaving lets the flag fall";
    session().gRenewPending = true;
    hospital.workstationClock = db::DateTime::of(2026, 11, 25);
    place.desktop.show(name);
    EXPECT_FALSE(session().gRenewPending);
    EXPECT_EQ(screen().caption(), "ATTENDANCE FOR TODAY :");
    EXPECT_EQ(shown({"grdData"}), "ATTENDANCE FOR TODAY: 0");
    EXPECT_EQ(screen().dtDate.value(), db::DateTime::of(2026, 11, 24)) << "the server's day";
    EXPECT_EQ(entries("CboRef") + entries("cboRefHmo"), "|YES|NO||YES|NO|");
    EXPECT_EQ(entries("cboPat"), "Axa Mansard [0007]|PRIVATE [0001]|");
    EXPECT_EQ(entries("cboType").find("IN-PATIENT"), std::string::npos);
    EXPECT_NE(entries("cboPurpose").find("DIALYSIS|"), std::string::npos);
    EXPECT_TRUE(is("cmdAdd", "visible") && !is("OKButton", "visible") && !is("cmdRenew", "enabled"));
}

TEST_F(Records, ASearchFillsTheListAndTheGridAndANumberPicks) {
    struct Case {
        const char* button;
        const char* typed;
        const char* where;
        const char* hits;
        const char* picked;
    };
    const Case cases[] = {
        {"cmdOK", " a ", "fullname like '%a%'", "BELLO MUSA [000000001/001]|OBI ADA [000000002/001]|", ""},
        {"cmdOK", "obi", "fullname like '%obi%'", "OBI ADA [000000002/001]|", ""},
        {"cmdOK", "o'b", "fullname like '%o''b%'", "", ""},
        {"cmdCard", "C-2", "oldPno = 'C-2'", "OBI ADA [000000002/001]|", "000000002/001"},
        {"cmdCard", "C'2", "oldPno = 'C''2'", "", ""},
        {"cmdSys", "1", "Pno = '000000001/001'", "BELLO MUSA [000000001/001]|", musa},
        {"cmdSys", "000000002/001", "Pno = '000000002/001'", "OBI ADA [000000002/001]|", "000000002/001"},
        {"cmdSys", "2/001", "Pno = '2/001'", "", ""},
    };
    for (const auto& [button, typed, where, hits, picked] : cases) {
        SCOPED_TRACE(where);
        hospital.forget();
        set("txtName", typed);
        fire(button);
        EXPECT_TRUE(ran("select  * from vwhpatients where " + std::string(where) + " order by fullname"));
        EXPECT_EQ(entries("cboVehNo"), hits);
        const auto count = screen().cboVehNo.items().size();
        EXPECT_EQ(shown({"lblFound", "lblNo"}), std::to_string(count) + " Records Found|" + picked);
        EXPECT_EQ(screen().grdData.rows().rowCount(), count);
    }
    EXPECT_EQ(shown({"txtName"}), "2/001");
    set("txtName", "123");
    fire("txtName.KeyReturn");
    EXPECT_EQ(shown({"txtName"}), "000000123/001");
    set("txtName", "bello");
    fire("txtName.KeyReturn");
    EXPECT_EQ(shown({"lblFound"}), "1 Records Found");

    const std::pair<const char*, const char*> prompts[] = {
        {"cmdOK", "To locate a patient, Enter few Letters and click OK Button"},
        {"cmdCard", "To locate a patient, Enter Card No and click 'Card No' Button"},
        {"cmdSys", "To locate a patient, Enter Patient Sys No and click 'System No' Button"}};
    set("txtName", " ");
    for (const auto& [button, prompt] : prompts) {
        hospital.forget();
        fire(button, {prompt});
        EXPECT_EQ(focus(), "frmRecords.txtName") << button;
        EXPECT_TRUE(hospital.log().empty()) << button;
    }
}

TEST_F(Records, EachListHidesItsOwnColumns) {
    saveOne();
    const std::string today = "recID Surname empID attendedTo ";
    EXPECT_EQ(hiddenColumns(), today);
    set("txtName", "a");
    fire("cmdOK");
    EXPECT_EQ(hiddenColumns(), "FullName coyname expired ");
    fire("cmdAdd");
    EXPECT_EQ(hiddenColumns(), today);
    EXPECT_EQ(shown({"grdData", "lblFound"}), "ATTENDANCE FOR TODAY: 1|");
}

TEST_F(Records, ADoubleClickAfterASearchTakesThePatient) {
    fire("grdData.DblClick", {"Please select a record from the list"});
    set("txtName", "a");
    fire("cmdOK");
    // What is found can be neither deleted nor corrected as an attendance.
    fire("cmdDel", {"Please select a record from the list"});
    session().gPatientBalance = 12;
    set("grdData", {{"row", 1}});
    fire("grdData.DblClick");
    EXPECT_EQ(shown({"cboVehNo"}), "OBI ADA [000000002/001]");
    EXPECT_EQ(patient(), "OBI ADA|000000002/001|C-2||Gold [1]|20-Nov-2026");
    EXPECT_TRUE(is("OKButton", "visible") && is("cmdCancel", "visible") && !is("cmdAdd", "visible"));
    EXPECT_EQ(session().gPatientBalance, 0);
    EXPECT_EQ(shown({"grdData"}), "ATTENDANCE FOR TODAY: 0") << "the grid shows the day again";
    EXPECT_EQ(focus(), "frmRecords.cboType");
}

TEST_F(Records, APickShowsThePatientAndHisScheme) {
    session().gApptDate = "tomorrow";
    find("1");
    EXPECT_TRUE(session().gApptDate.isNull());
    EXPECT_EQ(patient(), "BELLO MUSA|000000001/001|C-1|TAILOR||25-Nov-2026");
    EXPECT_EQ(shown({"cboPat", "cboClient", "CboRef", "cboRefHmo"}), "PRIVATE [0001]|PRIVATE|YES|NO");
    // A nurse who adds after the pick keeps it.
    fire("cmdAdd");
    EXPECT_EQ(shown({"lblNo"}), musa);
    find("2");
    EXPECT_EQ(shown({"cboClient", "CboRef", "cboRefHmo"}), "HMO|NO|YES");
    EXPECT_EQ(shown({"txtPolicy", "txtEmp"}), "Gold [1]|") << "the number is asked for";
    hospital.execute("delete from hPatients where PNo='000000002/001'"_sql);
    set("cboVehNo", "OBI ADA [000000002/001]");
    EXPECT_EQ(patient(), "|||||");
    EXPECT_EQ(shown({"CboRef", "cboRefHmo", "cboClient"}), "||");
    fire("OKButton", {" please specify Name of Patient"});
    find("99");
    EXPECT_EQ(patient(), "|||||");
}

TEST_F(Records, AnIncompleteRegistrationTakesNoAttendance) {
    constexpr const char* noBillTo = "BillTo Value Cannot be Empty!!! Check your Client Information";
    constexpr const char* incomplete = "Registration Incomplete! Company Name Required!! Go to Registration Page";
    hospital.execute("update hPatients set CoyName='9999' where PNo='000000001/001'"_sql);
    fire("cmdAdd");
    find("1", {noBillTo});
    EXPECT_EQ(shown({"lblNo"}), musa);
    hospital.execute("update hPatients set CoyName='' where PNo='000000001/001'"_sql);
    find("1", {noBillTo, incomplete});
    EXPECT_EQ(patient() + shown({"cboVehNo", "txtName"}), "||||||");
    fire("grdData.DblClick", {noBillTo, incomplete});
    EXPECT_EQ(patient() + shown({"cboVehNo", "txtName"}), "||||||");
    // An error in the middle of a pick leaves nobody picked.
    hospital.failStatement("Select patPix");
    find("2", {"Injected failure"});
    EXPECT_EQ(patient() + shown({"cboVehNo"}), "|||||");
}

TEST_F(Records, ACardIsLookedAtWithThePatientAndWithTheClinic) {
    constexpr const char* expired = "Patient's Card has Expired";
    constexpr const char* noDate = " Please Specify Expiration Date for this Private Patient (GO TO REGISTRATION PAGE)";
    struct Case {
        const char* name;
        const char* client;
        db::Value expiry;
        const char* atPick;
        const char* atClinic;
    };
    const Case cases[] = {{"good till tomorrow", "0001", "25-Nov-2026", nullptr, nullptr},
                          {"ends today", "0001", "24-Nov-2026", expired, expired},
                          {"ended", "0001", "23-Nov-2025", expired, expired},
                          {"without a date", "0001", {}, nullptr, noDate},
                          {"of a company", "0007", "23-Nov-2025", nullptr, nullptr},
                          {"of a company, without a date", "0007", {}, nullptr, nullptr}};
    const auto marked = [&] {
        return hospital.value("select expired from hPatients where PNo='"_sql + std::string(musa) + "'").flag();
    };
    for (const auto& [card, client, expiry, atPick, atClinic] : cases) {
        SCOPED_TRACE(card);
        hospital.execute("update hPatients set expired=0, expirydate=null, CoyName='"_sql + std::string(client) +
                         "' where PNo='" + std::string(musa) + "'");
        if (!expiry.isNull())
            hospital.execute("update hPatients set expirydate='"_sql + expiry + "' where PNo='" + std::string(musa) +
                             "'");
        fire("cmdAdd");
        set("cboType", "EYE");  // before the patient: it stays with a card that is good
        if (atPick) expect({atPick});
        find("1");
        EXPECT_EQ(shown({"cboType"}), atClinic ? "" : "EYE");
        EXPECT_EQ(is("cmdRenew", "enabled"), atPick != nullptr);
        EXPECT_EQ(marked(), atPick != nullptr);
        hospital.execute("update hPatients set expired=0"_sql);
        if (atClinic) expect({atClinic});
        hospital.forget();
        set("cboType", "EYE");
        EXPECT_EQ(shown({"cboType"}), atClinic ? "" : "EYE");
        EXPECT_EQ(marked(), atPick != nullptr);
        EXPECT_EQ(ran("update  hpatients set expired =1 where pno='000000001/001'"), atPick != nullptr);
        fire("cmdCancel");
    }
}

TEST_F(Records, AClientPickOffersHisCategoriesAndPlans) {
    fire("cmdAdd");
    find("1");
    set("txtEmp", "77");
    hospital.forget();
    set("cboPat", "Axa Mansard [0007]");
    EXPECT_EQ(entries("cboClient") + entries("txtPolicy"), "|HMO||Gold [1]|");
    EXPECT_EQ(shown({"cboClient", "txtEmp", "CboRef", "cboRefHmo"}), "||YES|NO");
    EXPECT_EQ(patient(), "BELLO MUSA|000000001/001|C-1|TAILOR||25-Nov-2026");
    for (const char* statement : {"select distinct ClientType,retainCode from hRetainerShip where retainID='0007'",
                                  "select distinct clientCatID  from billingPrice where clientType='HMO'",
                                  "select distinct PlanName,PlanID,retainID from vwhmoPlan where retainID='0007'  "
                                  "order by PlanName"})
        EXPECT_TRUE(ran(statement)) << statement;
    EXPECT_EQ(session().gClientRetainID + session().gBillingCat + session().gClientName, "")
        << "this screen's client is no other's";
}

TEST_F(Records, APurposeIsRouted) {
    hospital.execute("insert into hScreeningAmount (coycode, Amount) values ('0001', 4500)"_sql);
    hospital.execute("insert into hServiceNHIS (drgName, Price) values ('CONSULTATION', 2500)"_sql);
    struct Case {
        const char* purpose;
        const char* routed;
        const char* screening;
        const char* consultation;
    };
    const Case cases[] = {{"SCREENING", "SCREENING", "4500", ""},
                          {"EXEC-SCREENING", "SCREENING", "4500", ""},
                          {"PRE-EMPLOYMENT", "SCREENING", "4500", ""},
                          {"(CONSULTATION)", "(CONSULTATION)", "0", "2500"},
                          {"DIALYSIS", "DIALYSIS", "0", ""}};
    session().gNhisServiceNo = "1";
    find("1");
    for (const auto& [purpose, routed, screening, consultation] : cases) {
        set("cboPurpose", purpose);
        EXPECT_EQ(session().gAttendPurpose, routed) << purpose;
        EXPECT_EQ(session().gScreeningAmount, screening) << purpose;
        EXPECT_EQ(session().gConsultAmount, consultation) << purpose;
    }
    EXPECT_TRUE(ran("select Price as Amount   from hserviceNHIS where SNo=1"));
    set("cboPurpose", "APPOINTMENT", {"Specify Clinic"});
    set("cboType", "EYE");
    set("cboPurpose", "APPOINTMENT");
    EXPECT_EQ(session().gAttendPurpose, "APPOINTMENT");
    set("cboPurpose", "something else");
    EXPECT_EQ(session().gAttendPurpose, "") << "what is no entry is routed nowhere";
}

TEST_F(Records, ARenewalKnowsWhoseItIs) {
    hospital.execute("update hPatients set expirydate='24-Nov-2026' where PNo='000000001/001'"_sql);
    find("1", {"Patient's Card has Expired"});
    fire("cmdRenew", {"This page is not there yet: Renew"});
    EXPECT_EQ(session().gCurPNo + session().gCurPatientName + session().gRenewCaller,
              std::string(musa) + "BELLO MUSARECORDS");
    session().gRenewPending = true;
    find("1", {"Patient's Card has Expired"});
    EXPECT_TRUE(session().gRenewPending);
    find("2");
    EXPECT_FALSE(session().gRenewPending) << "another patient does not pay for it";
}

TEST_F(Records, TheQueueIsThatOfTheChosenDay) {
    hospital.execute("insert into employees (empID, lastname, firstname) values ('D1', 'Ojo', 'Tunde')"_sql);
    hospital.execute(
        "insert into hRecords (recDate, PNo, consultID, DocAssigned, PatVal) values ('24-Nov-2026', 'P', 'C', 'D1', 1)"_sql);
    place.desktop.tick("frmRecords.Timer1");
    EXPECT_EQ(screen().grdDoc.text("DocName"), "Ojo Tunde");
    set("dtDate", nullptr);
    EXPECT_TRUE(screen().grdDoc.rows().empty());
}

}  // namespace
}  // namespace test
