// A visit is opened, and lines are priced, added and taken back.

#include "core/session/session.h"
#include "tests/billing/frmbillservice/bill.h"

using namespace db::literals;

namespace test {
namespace {

TEST_F(Bill, ABillIsGeneratedBeforeAnythingIsEntered) {
    EXPECT_EQ(entries("cboReason") + entries("cboCat") + entries("cboCap") + entries("cboVehNo"),
              "|Nurse Joy [E001]||DRUG|LAB|SERVICE|YES|NO|");
    EXPECT_EQ(shown({"txtUsage", "txtPrice", "lblTotal"}), "DAILY|0|0");
    EXPECT_EQ(place.desktop.get(name + ".dtDate")["date"], "2026-11-24");
    EXPECT_EQ(hiddenColumns("OrderGridDrug"), "EntryType BillTo CoyName ");
    const auto state = [this] {
        std::string all;
        for (const auto* command : {"cmdBill", "OKButton", "cmdCancel", "cmdRefresh"})
            all += is(command, "visible") ? "v" : "-";
        for (const auto* input : {"cboVehNo", "cboReason", "dtDate", "cboCat", "cboDrug", "txtPrice", "txtQty",
                                  "txtUsage", "cboCap", "cmdAdd"})
            all += is(input, "enabled") ? "e" : "-";
        return all;
    };
    EXPECT_EQ(state(), "v-------------");
    session().gEmpID = "E009";
    fire("cmdBill");
    EXPECT_EQ(state(), "-vvveeeeeeeeee");
    EXPECT_EQ(focus(), "frmBillService.cboVehNo");
    EXPECT_EQ(entries("cboVehNo"), "|Bello Musa [C2]|Eze Ngozi [C3]|Obi Ada [C1]|");
    set("cboReason", "");
    EXPECT_EQ(session().gEmpID, "E009");
    set("cboReason", "Nurse Joy [E001]");
    EXPECT_EQ(session().gEmpID, "E001");
    fire("cmdCancel");
    EXPECT_EQ(state(), "v---eeeeeeeeee");
    fire("cmdBill");
    fire("cmdRefresh");
    EXPECT_EQ(state(), "v-------------");
    sent();
    fire("cmdStock");
    EXPECT_NE(place.desktop.loaded("frmDrugPrice"), nullptr);
    fire("CancelButton");
    EXPECT_FALSE(isOpen());
}

TEST_F(Bill, AVisitBringsThePatientTheTreatmentAndTheAccount) {
    fire("cmdBill");
    hospital.forget();
    set("cboVehNo", adaLies);
    EXPECT_EQ(place.desktop.get(name)["caption"], "Obi Ada");
    EXPECT_EQ(shown({"lblTitle", "lblNo", "lblBill", "lblClient", "lblCoy", "lblAge", "lblWard", "lblDate", "lblDays",
                     "lblFFS"}),
              "Obi Ada|P1|C1|HMO|Axa Mansard|36|FEMALE 1|20-Nov-2026|4|NO");
    EXPECT_EQ(shown({"txtPresc"}),
              "Clinic: (GENERAL)\nDiagnosis: MALARIA\n##### Treatment by Dr. Ojo Tunde on 24-Nov-2026 08:40:00 #####\n"
              "MP\nPARACETAMOL 2 TABS-----BILL ADVICE---NO CHARGE FOR BED\n"
              "\n--------------------------------------\nEND OF TREATMENT");
    EXPECT_EQ(lines(),
              "CANNULA|DRY STOCK|500.5|2|1001|AS NEEDED|NO|SERVICE|OLD|AXM|0007\n"
              "FBC|BLOOD|3000|1|3000|***|YES|LAB|OLD|AXM|0007\n");
    EXPECT_EQ(shown({"lblGen", "lblBilled", "lblPaid", "lblTotal"}), "4,001.00|1,001.00|250.50|0");
    EXPECT_EQ(session().gBillingMode + session().gClientCode, "CAPAXM");
    EXPECT_EQ(sent(),
              (std::vector<std::string>{
                  "select SNO,wardID,AdmDate,retainID,Age,Company,consultID,clientcat,pno from qryhAdmission where "
                  "consultID='C1'",
                  "select distinct  "
                  "retainID,RetainCode,cdate,cTime,ref,BillRemarks,company,prescription,Diagnosis,Investigate,"
                  "services,consultID,clientcat,pno,remarks,treatedby,Age from vwhConsultingDetailsForBillingAlt where "
                  "consultID='C1' order by cdate desc",
                  "Select retainCode ,retainName from hretainership where retainID='0007'",
                  "update BillAccum set capitated='NO' where capitated='BIL' and consultID = 'C1'",
                  "update BillAccum set CoyName='0007' where coyName is null and consultID = 'C1'",
                  "update BillAccum set BillTo='AXM' where BillTo is null and consultID = 'C1'",
                  "update BillAccum set capitated='NO' where capitated='' and consultID = 'C1'",
                  "select distinct * from qrybillAccumHome   where consultID='C1'",
                  "select distinct * from vwbillInfo   where consultID='C1'",
                  "select  pcent,pvalue from billingprice where clientcatID ='HMO'"}));
    hospital.execute(
        "insert into hConsulting (consultID, PNo, CDate, cTime, treatedBy, clientCat, services) values ('C1', 'P1', "
        "'25-Nov-2026', '10:00', 'D2', 'HMO', 'X-RAY')"_sql);
    hospital.execute("update hPatients set ref='YES' where PNo='P1'"_sql);
    set("cboVehNo", adaLies);
    EXPECT_EQ(shown({"txtPresc"}).substr(0, 143),
              "Clinic: \nDiagnosis: \n##### Treatment by Dr. Audu Zainab on 25-Nov-2026 10:00:00 #####\n\nX-RAY\n\n"
              "--------------------------------------\nClinic: (G")
        << "the latest first";
    EXPECT_EQ(session().gBillingMode + shown({"lblFFS"}), "FFSYES");
    set("cboVehNo", "");
    EXPECT_EQ(shown({"lblBill"}), "C1") << "nobody picked changes nothing";
}

TEST_F(Bill, OpeningAVisitPutsTheCapitationOfItsLinesRight) {
    struct Case {
        const char* category;
        const char* ffs;
        const char* left;  ///< of lines that held "BIL", "YES", "NO", "" and Null
        const char* mode;
    };
    for (const auto& [category, ffs, left, mode] :
         std::initializer_list<Case>{{"HMO", "NO", "NO\nYES\nNO\nNO\nnull\n", "CAP"},
                                     {"NHIS", "", "NO\nYES\nNO\nNO\nnull\n", "CAP"},
                                     {"PHIS", "NO", "NO\nYES\nNO\nNO\nnull\n", "BIL"},
                                     {"HMO", "YES", "NO\nNO\nNO\nNO\nNO\n", "FFS"},
                                     {"PRIVATE", "NO", "NO\nNO\nNO\nNO\nNO\n", "BIL"},
                                     {"hmo", "NO", "NO\nNO\nNO\nNO\nNO\n", "BIL"}}) {
        hospital.execute("delete from billAccum"_sql);
        hospital.execute(
            "insert into billAccum (consultID, Capitated, BillTo) values ('C1', 'BIL', 'KEPT'), ('C1', 'YES', null), "
            "('C1', 'NO', null), ('C1', '', null), ('C1', null, null), ('C2', 'BIL', null)"_sql);
        hospital.execute("update hConsulting set clientCat='"_sql + std::string(category) + "' where consultID='C1'");
        hospital.execute("update hPatients set ref='"_sql + std::string(ffs) + "' where PNo='P1'");
        bill(adaLies);
        EXPECT_EQ(dump("select Capitated from billAccum where consultID='C1' order by SNO"_sql), left)
            << category << ffs;
        EXPECT_EQ(session().gBillingMode, mode) << category << ffs;
        EXPECT_EQ(dump("select distinct BillTo, CoyName from billAccum where consultID='C1' order by BillTo"_sql),
                  "AXM|0007\nKEPT|0007\n");
        EXPECT_EQ(dump("select Capitated, BillTo from billAccum where consultID='C2'"_sql), "BIL|null\n");
        fire("cmdCancel");
    }
}

TEST_F(Bill, AVisitThatNoDoctorHasSeenHasNoAccountHere) {
    bill(adaLies);
    add({"BANDAGE", "100"});
    set("cboVehNo", ngoziLies);
    EXPECT_EQ(shown({"lblTitle", "lblBill", "txtPresc", "lblClient", "lblNo", "lblAge", "lblCoy", "lblFFS", "lblWard"}),
              "Eze Ngozi|C3|N/A||||||FEMALE 1");
    EXPECT_EQ(lines(), "") << "Ada's new line is never saved under Ngozi";
    EXPECT_EQ(session().gBillingMode + shown({"lblGen", "lblPaid"}), "0|0");
    set("cboCat", "DRUG");
    set("cboDrug", "PARACETAMOL", {"Client Category field cannot be empty please select Patient"});
    EXPECT_EQ(shown({"cboDrug"}), "");
    add({"BANDAGE", "100"});
    set("cboVehNo", ngoziLies);
    EXPECT_NE(lines(), "") << "the same visit again";
    saved();
    EXPECT_EQ(stored(), "24-Nov-2026|P3|C3|BANDAGE|0|100|1|100|***|SERVICE||0007|null|null|0|0|0|TREATMENT\n");
    sent();
}

TEST_F(Bill, WhoHasLeftTheWardsMeanwhileHasNoHeader) {
    bill(musaLies, {privateNotice});
    hospital.execute("update hAdmission set isdischarged=1 where consultID='C1'"_sql);
    // The notice goes by the client that was read last.
    set("cboVehNo", adaLies, {privateNotice});
    EXPECT_EQ(shown({"lblTitle", "lblBill", "lblClient", "lblCoy", "lblAge", "lblWard", "lblDays", "lblDate"}),
              "Admission Billing (Services)|||||||");
    EXPECT_EQ(place.desktop.get(name)["caption"], "Admission Billing (Services)");
    add({"BANDAGE", "100"}, {"Select a Patient for this Billing Analysis"});
    fire("OKButton", {"Select a Patient for this Billing Analysis"});
    set("cboVehNo", musaLies, {privateNotice});
    hospital.failStatement("qryhAdmission");
    set("cboVehNo", ngoziLies, {"Injected failure"});
    EXPECT_EQ(shown({"lblBill", "lblClient"}) + lines(), "|") << "nothing of Musa is left";
}

// -- the line in preparation --

TEST_F(Bill, APickIsPricedAndSaysFromWhere) {
    bill(adaLies);
    const auto picked = [this] { return shown({"txtPrice", "cboCap", "lblCat", "txtQty", "txtUsage", "lblSource"}); };
    set("cboCat", "DRUG");
    EXPECT_EQ(entries("cboDrug"), "INJECTION_FEE|NURSE'S GAUZE|PARACETAMOL|PHARM_FEE|");
    set("cboDrug", "PARACETAMOL");
    EXPECT_EQ(picked(), "80.56|YES|TABLETS|0||Own template");
    EXPECT_EQ(focus(), "frmBillService.txtQty");
    set("txtPrice", "81");
    EXPECT_EQ(shown({"lblSource"}), "Typed");
    const auto* const noTemplate =
        "Price Template for this HMO/Company Yet to be Created! Proceed to use Hospital Private tariff";
    const auto* const noPrice = "No price for this Item Please confirm";
    set("cboDrug", "NURSE'S GAUZE", {noTemplate, noPrice});
    EXPECT_EQ(picked(), "0.00||DRY STOCK|1|***|No tariff");
    fire("cmdAdd", {"Please specify a Whether Capitated or Not"});
    set("cboCap", "NO");
    fire("cmdAdd", {"Cannot add this line without a price to Grid !!!  "});
    set("cboDrug", "INJECTION");
    EXPECT_EQ(shown({"lblSource"}), "") << "another item than the one that was priced";
    set("cboCat", "SERVICE");
    EXPECT_EQ(shown({"cboDrug"}) + entries("cboDrug"), "X-RAY|");
    set("cboDrug", "X-RAY", {noTemplate});
    EXPECT_EQ(picked(), "7,500.00|NO|PICTURES|1|***|Private tariff");
    set("cboVehNo", musaLies, {privateNotice});
    EXPECT_EQ(shown({"txtPrice", "lblSource"}), "7,500.00|Of the patient before");
    set("cboCat", "LAB");
    set("cboCap", "YES");
    hospital.execute("delete from labservices"_sql);
    set("cboDrug", "FBC", {noTemplate, noPrice});
    EXPECT_EQ(shown({"cboCap", "lblCat"}), "YES|") << "of an item that nothing is known of the capitation stays";
    set("cboCat", "DRUG");
    hospital.failStatement("vwDrugNHIS");
    const auto before = picked();
    set("cboDrug", "PARACETAMOL", {"Injected failure"});
    EXPECT_EQ(picked(), before.substr(0, before.rfind('|')) + "|");
    set("cboCat", "");
    EXPECT_EQ(entries("cboDrug"), "");
    sent();
}

TEST_F(Bill, ALineIsCheckedInOrder) {
    fire("cmdBill");
    set("cboCat", "DRUG");
    set("txtUsage", "");
    for (const auto& stop : std::initializer_list<Stop>{
             {"Select a Patient for this Billing Analysis", "cboVehNo", adaLies},
             {"Select Name of Nurse that Billed", "cboReason", "Nurse Joy [E001]"},
             {"Please specify a Drug/Service No ", "cboDrug", " "},
             {"Please specify a Drug/Service No ", "cboDrug", "GAUZE"},
             {"Please specify a Whether Capitated or Not", "cboCap", "YES"},
             {"Cannot add this line without a price to Grid !!!  ", "", {}, {{"txtPrice", ""}}},
             {"Cannot add this line without a price to Grid !!!  ", "", {}, {{"txtPrice", "x"}}},
             {"Please specify Quantity of Drug prescribed", "txtQty", ""},
             {"Please specify Quantity of Drug prescribed", "txtQty", "y"},
             {"Please specify usage of Drug/Service", "txtUsage", "DAILY"},
             {"The price is a plain number above 0, such as 1,234.50", "txtPrice", "1,234.50"},
             {"The quantity is a plain number, such as 3 or 0.5", "txtQty", "2"}}) {
        hospital.forget();
        fire("cmdAdd", {stop.says});
        EXPECT_EQ(focus(), *stop.field ? name + "." + stop.field : "") << stop.says;
        EXPECT_EQ(lines().find("GAUZE"), std::string::npos);
        if (!stop.mends.is_null()) set(stop.field, stop.mends);
        fill(stop.further);
    }
    fire("txtQty.KeyReturn");
    EXPECT_NE(lines().find("GAUZE||1234.5|2|2469|DAILY|YES|DRUG|NEW|AXM|0007\n"), std::string::npos) << lines();
    EXPECT_EQ(shown({"cboCap", "cboDrug", "txtUsage", "txtQty", "txtSub", "txtPrice", "lblCat", "lblTotal"}),
              "|||0|0|0|0|2,469.00");
    EXPECT_EQ(focus(), "frmBillService.cboDrug");
}

TEST_F(Bill, AmountsThatAreNoneAreRefusedAndStay) {
    struct Case {
        const char* price;
        const char* units;
        const char* says;
    };
    const auto* const price = "The price is a plain number above 0, such as 1,234.50";
    const auto* const units = "The quantity is a plain number, such as 3 or 0.5";
    bill(musaLies, {privateNotice});
    for (const auto& [typedPrice, typedUnits, says] :
         std::initializer_list<Case>{{"-5", "1", price},
                                     {"1e9", "1", price},
                                     {"12,50", "1", price},
                                     {"0.00", "1", "Cannot add this line without a price to Grid !!!  "},
                                     {"5", "-1", units},
                                     {"5", "1e400", units},
                                     {"5", "", units},
                                     {"5", "200000000000", "This quantity or price is too large"},
                                     {"999999999999", "99", "This quantity or price is too large"}}) {
        add({"BANDAGE", typedPrice, typedUnits}, {says});
        EXPECT_EQ(shown({"cboDrug", "txtPrice", "txtQty"}), std::string("BANDAGE|") + typedPrice + "|" + typedUnits);
    }
    EXPECT_EQ(lines() + shown({"lblTotal"}), "0");
    // A quantity of 0 is one of a service, and of a test.
    add({"BANDAGE", "1,000", "0"});
    add({"HB", "12.345", "3", "NO", "LAB"});
    EXPECT_EQ(lines(),
              "BANDAGE||1000|0|0|***|NO|SERVICE|NEW|PRIVATE|0001\n"
              "HB|0|12.345|3|37.04|***|NO|LAB|NEW|PRIVATE|0001\n");
}

TEST_F(Bill, TheSubTotalIsOfTheLineThatIsAddedAndTheTallySurvives) {
    bill(musaLies, {privateNotice});
    type(place, {"BANDAGE", "100", "3"});
    EXPECT_EQ(shown({"txtSub"}), "0") << "nobody computes it before";
    fire("cmdAdd");
    // A line that is there already is warned of once a match, and added.
    const auto* const duplicate = "Duplicate Entry Detected please Confirm";
    add({"BANDAGE", "0.1"}, {duplicate});
    add({"BANDAGE", "0.2"}, {duplicate, duplicate});
    EXPECT_EQ(shown({"lblTotal"}), "300.30");
    takeOut(1);
    EXPECT_EQ(shown({"lblTotal"}), "300.2") << "a plain number";
    fire("cmdCancel");
    EXPECT_EQ(shown({"lblTotal"}) + lines(), "0");
    bill(adaLies);
    add({"GAUZE", "1000"});
    EXPECT_EQ(shown({"lblTotal"}), "1,300.20") << "what the nurse added for Musa is in it";
    fire("cmdRefresh");
    bill(adaLies);
    add({"GAUZE", "1"});
    EXPECT_EQ(shown({"lblTotal"}), "1,301.20");
    open();
    bill(adaLies);
    add({"GAUZE", "1"});
    EXPECT_EQ(shown({"lblTotal"}), "1.00");
}

TEST_F(Bill, LinesAreTakenBackButNotSavedOnes) {
    bill(adaLies);
    add({"GAUZE", "100"});
    add({"BANDAGE", "20"});
    set("OrderGridDrug", {{"row", 0}});
    fire("OrderGridDrug.DblClick", {"This row cannot be Deleted! Already in the Database"});
    set("OrderGridDrug", {{"row", 2}});
    hospital.answer("no");
    fire("OrderGridDrug.DblClick");
    EXPECT_EQ(hospital.boxes().back().text + hospital.boxes().back().title,
              "Are you sure to Delete?Check before Delete");
    const auto all = lines();
    set("OrderGridDrug", {{"row", 4}});
    fire("OrderGridDrug.DblClick");  // the empty line
    EXPECT_EQ(lines(), all);
    takeOut(2);
    EXPECT_EQ(shown({"lblTotal"}), "20");
    fire("cmdCancel");
    // The first line takes the tally with it, whatever remains.
    bill(musaLies, {privateNotice});
    for (const auto* item : {"A", "B", "C"}) add({item, "10"});
    takeOut(0);
    EXPECT_EQ(shown({"lblTotal"}), "0");
    EXPECT_EQ(lines(), "B|0|10|1|10|***|NO|SERVICE|NEW|PRIVATE|0001\nC|0|10|1|10|***|NO|SERVICE|NEW|PRIVATE|0001\n");
    add({"D", "5"});
    EXPECT_EQ(shown({"lblTotal"}), "5.00");
}

}  // namespace
}  // namespace test
