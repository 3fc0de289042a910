#include "core/session/session.h"
#include "outpatient/screens.h"
#include "tests/contract/plainscreen.h"
#include "tests/inpatient/ward.h"

using namespace db::literals;

namespace test {
namespace {

/// Ada (HMO, an out-patient) and Musa (private, in the wards) have prescriptions of today.
void arrangePrescriptions(TestHospital& hospital) {
    hospital.execute(
        "insert into hRetainership (retainID, retainName, retainCode) values ('0007', 'Axa Mansard', 'AXM')"_sql);
    addConsulted(hospital, {"P1", "Obi", "Ada", "C1", "HMO"});
    addStay(hospital, {"P2", "Bello", "Musa", "C2", "PRIVATE"});
    hospital.execute("update hPatients set ref='YES' where PNo='P1'"_sql);
    hospital.execute("update hConsulting set Remarks='ADMISSION', prescription='CEFTRIAXONE 1G' where ID=2"_sql);
    hospital.execute("update hConsulting set Remarks='(GENERAL)' where ID=1"_sql);
    hospital.execute("delete from drugs"_sql);
    hospital.execute(
        "insert into drugs (drgName, drgCatName, qtyPerUnit, Cost, Remarks) values "
        "('CEFTRIAXONE', 'INJECTIONS', '1G', 1500, 'PRIVATE'), ('DOCTOR''S MIX', 'INJECTIONS', '5ML', 900, 'PRIVATE'), "
        "('WOUND DRESSING', 'DRESSING', '1', 2000, 'PRIVATE'), ('IRON', 'ORAL', '1', 10, 'PRIVATE'), "
        "('PHARM_FEE', 'FEES', '1', 300, 'PRIVATE')"_sql);
    hospital.execute("delete from hServices"_sql);
    hospital.execute("delete from HserviceCat"_sql);
    hospital.execute("insert into HserviceCat (catName) values ('THEATRE')"_sql);
    hospital.execute("insert into hServices (service, Category) values ('SUTURE', 'THEATRE')"_sql);
    hospital.execute("update AppDefaults set idval='0001' where ID='PRIVATE'"_sql);
    hospital.execute(
        "insert into DrugNHIS (drgName, drgCatName, Price, Company, Capitated) values "
        "('CEFTRIAXONE', 'INJECTIONS', 1400.5, '0007', 'YES'), ('IRON', 'ORAL', 0, '0007', 'NO'), "
        "('IRON', 'ORAL', 12, '0001', 'NO')"_sql);
    hospital.execute(
        "insert into hServiceNHIS (drgName, drgCatName, Price, Company, Capitated) values "
        "('WOUND DRESSING', 'DRESSING', 2500, '0007', 'NO')"_sql);
    hospital.execute("insert into stockItemsRetail (itemID, UnitsInStock) values ('CEFTRIAXONE', 7), ('IRON', 0)"_sql);
}
constexpr const char* adaPrescribed = "Obi Ada @24-Nov-2026 (1) [C1]";
constexpr const char* musaPrescribed = "Bello Musa @24-Nov-2026 (2) [C2]";

class Adding : public PlainScreen {
protected:
    Adding() : PlainScreen("frmInjAndDress", &outpatient::provideScreens, &arrangePrescriptions) {}
    void add(const char* category, const char* item, const char* times, const char* usage) {
        fill({{"cboCat", category}, {"cboDrug", item}, {"txtNum", times}, {"txtUsage", usage}});
        fire("cmdAdd");
    }
    std::string charts() {
        return dump(
                   "select conID, consultID, PNo, injdate, injTime, numOfTimes, numtaken, injname, dosage, clientCat, "
                   "drgCatName, attendedto from hInjAndDressing order by ID"_sql) +
               "/" +
               dump(
                   "select conID, consultID, PNo, mdate, mtime, numOfTimes, numtaken, drgName, dosage, clientCat, "
                   "drgCatName, attendedto from hMedChartMonitor order by ID"_sql);
    }
};

TEST_F(Adding, ThePrescriptionsOfTodayOrOfAPeriodOutsideTheWards) {
    EXPECT_EQ(entries("cboVehNo"), std::string(adaPrescribed) + "|" + musaPrescribed + "|");
    set("cboVehNo", musaPrescribed);
    EXPECT_EQ(shown({"lblPatient", "lblNo", "lblCon", "lblClient", "lblCoy", "lblAge", "lblRem"}),
              "Bello Musa|P2|C2|PRIVATE|Axa Mansard|36|ADMISSION");
    EXPECT_NE(shown({"txtDosage"}).find("CEFTRIAXONE 1G"), std::string::npos);
    fire("cmdList");
    EXPECT_EQ(entries("lstWaiting") + shown({"lblPatient"}), std::string(adaPrescribed) + "|");
    set("DTPicker2", "2026-11-23");
    fire("cmdList");
    EXPECT_EQ(entries("lstWaiting"), "");
    set("DTPicker1", nullptr);
    fire("cmdList", {"Please specify Date"});
    fire("cmdStock", {"No Patient is specified"});
    sent();
}

TEST_F(Adding, ALineIsCheckedAndCharted) {
    struct Case {
        const char* says;
        Entries entries;
    };
    for (const auto& [says, what] : std::initializer_list<Case>{
             {"Please specify a Patient Name", {{"cboVehNo", adaPrescribed}}},
             {"Please specify No of Times Item will be taken ", {{"txtNum", "0"}}},
             {"Please specify No of Times Item will be taken ", {{"txtNum", "99999"}}},
             {"Please specify No of Times Item will be taken ", {{"txtNum", "3"}}},
             {"Please specify Category", {{"cboCat", "INJECTIONS"}}},
             {"Please specify Item to chart ", {{"cboDrug", "DOCTOR'S MIX"}, {"txtUsage", "5ML 'STAT'"}}}}) {
        fire("cmdAdd", {says});
        fill(what);
    }
    fire("cmdAdd");
    fill({{"cboCat", "INJECTIONS"}, {"cboDrug", "DOCTOR'S MIX"}});
    fire("cmdAdd", {"Duplicate Drug/Service Entry not allowed"});
    set("chkDress", true);
    EXPECT_EQ(shown({"cboCat"}) + "|" + entries("cboDrug"), "DRESSING|WOUND DRESSING|");
    fill({{"cboDrug", "WOUND DRESSING"}, {"txtNum", "2"}});
    fire("cmdAdd");
    EXPECT_FALSE(is("chkDress", "checked"));
    set("cboCat", "THEATRE");
    EXPECT_EQ(entries("cboDrug"), "SUTURE|");
    for (int write = 1; write <= 2; ++write) {
        hospital.failWrite(write);
        hospital.answer("yes");
        fire("OKButton", {"Injected failure"});
        EXPECT_EQ(charts(), "/");
    }
    hospital.answer("no");
    fire("OKButton");
    EXPECT_EQ(hospital.boxes().back().text + hospital.boxes().back().title, "Are you sure to save?About to save");
    save({"Record Succesfully saved !!! "});
    EXPECT_EQ(charts(),
              "1|C1|P1|24-Nov-2026|09:30:00|3|0|DOCTOR'S MIX|5ML 'STAT'|HMO|INJECTIONS|0\n"
              "1|C1|P1|24-Nov-2026|09:30:00|2|0|WOUND DRESSING||HMO|DRESSING|0\n/");
    EXPECT_EQ(dump("select userAction, TranCode from hAuditTrail order by SNo"_sql),
              "Items Added to Chart by Nurse on duty: DOCTOR'S MIX NumOfTimes: 3 5ML 'STAT'|C1\n"
              "Items Added to Chart by Nurse on duty: WOUND DRESSING NumOfTimes: 2 |C1\n");
    fire("OKButton", {"No Item is Entered!!! "});
    set("cboVehNo", musaPrescribed);
    add("INJECTIONS", "CEFTRIAXONE", "4", "1G");
    set("OrderGrid", {{"row", 0}});
    hospital.answer("yes");
    fire("OrderGrid.DblClick", {"Item Removed"});
    sent();
}

TEST_F(Adding, TheWardsHaveAChartOfTheirOwn) {
    fire("OKButton", {"Please specify patient name"});
    set("cboVehNo", musaPrescribed);
    add("INJECTIONS", "CEFTRIAXONE", "4", "1G");
    set("dtDate", nullptr);
    fire("OKButton", {"Please specify Date"});
    set("dtDate", "2026-11-24");
    save({"Record Succesfully saved !!! "});
    EXPECT_EQ(charts(), "/2|C2|P2|24-Nov-2026|09:30:00|4|0|CEFTRIAXONE|1G|PRIVATE|INJECTIONS|False\n");
    add("INJECTIONS", "CEFTRIAXONE", "4", "1G");
    set("cboVehNo", adaPrescribed);
    EXPECT_EQ(place.desktop.get(name + ".OrderGrid")["rows"].size(), 1U) << "the lines were another patient's";
}

TEST_F(Adding, APrescriptionIsDisposedOfAfterAQuestion) {
    fire("cmdIgnore", {"Select a Patient"});
    set("cboVehNo", adaPrescribed);
    hospital.answer("no");
    fire("cmdIgnore");
    EXPECT_EQ(hospital.boxes().back().text, "Are you sure to DISPOSE of this prescription?");
    hospital.failWrite(1);
    hospital.answer("yes");
    fire("cmdIgnore", {"Injected failure"});
    EXPECT_EQ(dump("select attendedToByPharm from hConsulting order by ID"_sql), "False\nFalse\n");
    EXPECT_EQ(shown({"lblPatient"}), "Obi Ada");
    hospital.answer("yes");
    fire("cmdIgnore");
    EXPECT_EQ(dump("select attendedToByPharm from hConsulting order by ID"_sql), "True\nFalse\n");
    EXPECT_EQ(dump("select userAction, TranCode from hAuditTrail"_sql), "Drug Disposed: Obi Ada|C1\n");
    EXPECT_EQ(entries("lstWaiting"), std::string(musaPrescribed) + "|");
    sent();
}

class Treatment : public PlainScreen {
protected:
    Treatment() : PlainScreen("frmInjectionEntryForAdm", &outpatient::provideScreens, &arrangePrescriptions) {
        hospital.execute("insert into hAdmission (PNo, consultID, isdischarged) values ('P1', 'C1', 0)"_sql);
        place.desktop.fire(name + ".cmdRefresh", false);
        hospital.forget();
    }
    void pick(const char* category, const char* item, Says says = {}) {
        set("cboCat", category);
        set("cboDrug", item, says);
    }
    std::string priced() {
        return shown({"txtPrice", "lblSource", "lblStock", "lblUnit", "lblCat", "txtQty", "txtUsage"});
    }
    std::string written() {
        return dump(
                   "select dtDate, drgName, Category, Price, Qty, SubTotal, usage, PNo, consultID, billType, conID, "
                   "Capitated from billAccum order by SNo"_sql) +
               "/" + dump("select injname, numOfTimes from hInjAndDressing order by ID"_sql) + "/" +
               dump("select drgName, numOfTimes from hMedChartMonitor order by ID"_sql) + "/" +
               dump("select isinj, isDress from hConsulting order by ID"_sql);
    }
};
constexpr const char* noTemplateText =
    "Price Template for this HMO/Company Yet to be Created! Proceed to use Hospital Private tariff";
constexpr const char* noPrice = "No price for this HMO/Company! Proceed to use Hospital Private tariff";
constexpr const char* noItem = "No price for this Item Please confirm";
constexpr const char* noStock = "This Drug is out of Stock !!! Click Stock Entry Button to enter Stock";

TEST_F(Treatment, APickIsPricedByItsKindAndToldOfItsStock) {
    pick("INJECTIONS", "CEFTRIAXONE", {"Client Category field cannot be empty please select Patient"});
    EXPECT_EQ(shown({"cboDrug"}), "");
    set("cboVehNo", adaPrescribed);
    pick("INJECTIONS", "CEFTRIAXONE");
    EXPECT_EQ(priced(), "1,400.50|Own template|7|1G|INJECTIONS|0|");
    pick("DRESSING", "WOUND DRESSING");
    EXPECT_EQ(priced(), "2,500.00|Own template|***|1|DRESSING|1|***");
    pick("ORAL", "IRON", {noPrice, noStock});
    EXPECT_EQ(priced(), "12.00|Private tariff|0|1|ORAL|0|");
    pick("INJECTIONS", "DOCTOR'S MIX", {noTemplateText, noItem, noStock});
    EXPECT_EQ(priced(), "0.00|No tariff|0||INJECTIONS|0|");
    pick("THEATRE", "SUTURE", {noTemplateText, noItem});
    EXPECT_EQ(priced(), "0.00|No tariff|1|***|THEATRE|1|***");
    sent();
}

TEST_F(Treatment, ALineIsChecked) {
    struct Case {
        const char* says;
        Entries entries;
    };
    const auto* const plain = "The price is a plain number, such as 1,234.50";
    fire("cmdAdd", {"Please specify a Patient File No "});
    set("cboVehNo", adaPrescribed);
    for (const auto& [says, what] : std::initializer_list<Case>{
             {"Please specify Quantity prescribed ", {{"txtQty", "0"}}},
             {"Please specify Drug/Service used ", {{"cboCat", "INJECTIONS"}, {"cboDrug", "CEFTRIAXONE"}}},
             {"Please specify Quantity of Drug prescribed", {{"txtQty", "1e9"}}},
             {"Please specify Quantity of Drug prescribed", {{"txtQty", "99999"}}},
             {"Please specify usage of Drug/Service", {{"txtUsage", "1G"}, {"txtPrice", "-5"}}},
             {plain, {{"txtPrice", ""}}},
             {plain, {{"txtPrice", "1,234.50"}}},
             {"This quantity or price is too large", {{"txtQty", "2"}}}}) {
        fire("cmdAdd", {says});
        fill(what);
    }
    fire("cmdAdd");
    EXPECT_EQ(shown({"lblTotal", "cboDrug", "txtPrice"}), "2,469.00||");
    pick("INJECTIONS", "CEFTRIAXONE");
    fire("cmdAdd", {"Duplicate Drug/Service Entry not allowed"});
    set("OrderGrid", {{"row", 0}});
    hospital.answer("yes");
    fire("OrderGrid.DblClick", {"Item Removed"});
    EXPECT_EQ(shown({"lblTotal"}), "0.00");
    fire("OKButton", {"No Item in Grid!!! Please select Item and add to Grid"});
}

TEST_F(Treatment, ASaveBillsChartsAndChargesTheFeeOnce) {
    set("cboVehNo", musaPrescribed);
    pick("INJECTIONS", "DOCTOR'S MIX", {noTemplateText, noItem, noStock});
    fill({{"txtPrice", "900"}, {"txtQty", "3"}, {"txtUsage", "5ML"}});
    fire("cmdAdd");
    pick("ORAL", "IRON", {noPrice, noStock});
    fill({{"txtQty", "2"}, {"txtUsage", "DAILY"}});
    fire("cmdAdd");
    const auto before = written();
    // Two bill lines, three chart rows, the fee, the consultation.
    for (int write = 1; write <= 7; ++write) {
        hospital.failWrite(write);
        hospital.answer("yes");
        fire("OKButton", {"Injected failure"});
        EXPECT_EQ(written(), before) << write;
        EXPECT_EQ(shown({"lblTotal", "lblPatient"}), "2,724.00|Bello Musa");
    }
    EXPECT_FALSE(hospital.failurePending());
    save({"Record Succesfully saved !!! "});
    EXPECT_EQ(written(),
              "24-Nov-2026|DOCTOR'S MIX|INJECTIONS|900|3|2700|5ML|P2|C2|MEDICATION|2|BIL\n"
              "24-Nov-2026|IRON|ORAL|12|2|24|DAILY|P2|C2|MEDICATION|2|BIL\n"
              "24-Nov-2026|DOCTOR_FEE|null|300|1|300|null|P2|C2|" +
                  session().gBillType +
                  "|null|null\n/DOCTOR'S MIX|3\n/DOCTOR'S MIX|3\nIRON|2\n/False|False\nTrue|True\n");
    EXPECT_EQ(entries("lstWaiting"), std::string(adaPrescribed) + "|");
    sent();
}

TEST_F(Treatment, ThePlanDecidesWhatIsCapitatedAndAChargedItemIsNotChargedAgain) {
    struct Case {
        const char* category;
        const char* ref;
        const char* capitated;
    };
    for (const auto& [category, ref, capitated] :
         std::initializer_list<Case>{{"HMO", "YES", "NO"}, {"HMO", "", "YES"}, {"PRIVATE", "YES", "BIL"}}) {
        hospital.execute("delete from billAccum"_sql);
        hospital.execute("update hConsulting set isinj=0, clientCat='"_sql + std::string(category) + "' where ID=1");
        hospital.execute("update hPatients set ref='"_sql + std::string(ref) + "' where PNo='P1'");
        fire("cmdRefresh");
        set("cboVehNo", adaPrescribed);
        pick("INJECTIONS", "CEFTRIAXONE");
        fill({{"txtQty", "2"}, {"txtUsage", "1G"}});
        fire("cmdAdd");
        save({"Record Succesfully saved !!! "});
        EXPECT_EQ(dump("select Capitated from billAccum where drgName='CEFTRIAXONE'"_sql),
                  std::string(capitated) + "\n")
            << category << ref;
    }
    hospital.execute("update hConsulting set isinj=0 where ID=1"_sql);
    fire("cmdRefresh");
    set("cboVehNo", adaPrescribed);
    pick("INJECTIONS", "CEFTRIAXONE");
    fill({{"txtQty", "2"}, {"txtUsage", "1G"}});
    fire("cmdAdd");
    save({"Record Succesfully saved !!! "});
    EXPECT_EQ(dump("select drgName from billAccum order by SNo"_sql), "CEFTRIAXONE\nDOCTOR_FEE\nDOCTOR_FEE\n");
    EXPECT_EQ(hospital.value("select count(*) from hInjAndDressing"_sql), db::Value(4));
}

TEST_F(Treatment, OneIsExcludedFromTheListAfterAQuestion) {
    fire("cmdIgnore", {"Select a Patient"});
    set("cboVehNo", adaPrescribed);
    hospital.answer("no");
    fire("cmdIgnore");
    EXPECT_EQ(hospital.boxes().back().text, "Are you sure to Excluse this Patient from Injection/Dressing List?");
    hospital.answer("yes");
    fire("cmdIgnore");
    EXPECT_EQ(dump("select isinj, isDress, suppres from hConsulting where ID=1"_sql), "True|True|False\n");
    EXPECT_EQ(entries("lstWaiting"), std::string(musaPrescribed) + "|");
}

}  // namespace
}  // namespace test
