#pragma once

#include <string>

#include "billing/screens.h"
#include "tests/contract/corpus.h"
#include "tests/contract/plainscreen.h"
#include "tests/inpatient/ward.h"

namespace test {

/// Ada (HMO, capitated), Musa (private) and Ngozi (NHIS, whom no doctor has seen yet) lie in the wards. Ada's account
/// has two lines, a bill and a payment. Paracetamol has a price for Ada's client and a private one, an X-ray only a
/// private one; nobody's tariff has gauze.
inline void arrangeBills(TestHospital& hospital) {
    using namespace db::literals;
    arrangeWards(hospital);
    addStay(hospital, {"P3", "Eze", "Ngozi", "C3", "NHIS"});
    hospital.execute("delete from hConsulting where consultID='C3'"_sql);
    hospital.execute("update hPatients set CoyName='0001' where PNo='P2'"_sql);
    hospital.execute(
        "update hConsulting set Remarks='(GENERAL)', preScription='PARACETAMOL 2 TABS', investigate='MP', "
        "services=null, "
        "BillRemarks='NO CHARGE FOR BED' where consultID='C1'"_sql);
    hospital.execute(
        "insert into billAccum (dtDate, PNo, consultID, drgName, Category, Price, Qty, SubTotal, usage, billType, "
        "BillTo, "
        "CoyName, Capitated) values "
        "('20-Nov-2026', 'P1', 'C1', 'CANNULA', 'DRY STOCK', 500.5, 2, 1001, 'AS NEEDED', 'MEDICATION', null, null, "
        "'BIL'), "
        "('21-Nov-2026', 'P1', 'C1', 'FBC', 'BLOOD', 3000, 1, 3000, '***', 'LAB', 'AXM', '0007', 'YES')"_sql);
    hospital.execute("insert into BillingDetails (billNo, drgName, Amount) values ('C1', 'CANNULA', 1001)"_sql);
    hospital.execute("insert into Payments (BillNo, PNo, AmountPaid) values ('C1', 'P1', 250.5)"_sql);
    hospital.execute(
        "insert into DrugNHIS (drgName, drgCatName, Price, Company, Capitated) values ('PARACETAMOL', 'TABLETS', "
        "80.555, "
        "'0007', 'YES'), ('PARACETAMOL', 'TABLETS', 1234.5, '0001', 'NO')"_sql);
    hospital.execute(
        "insert into hServiceNHIS (drgName, drgCatName, Price, Company, Capitated) values ('X-RAY', 'PICTURES', 7500, "
        "'0001', 'NO')"_sql);
    hospital.execute(
        "insert into drugs (drgName, drgCatName, Cost, Remarks, Capitated) values ('PARACETAMOL', 'TABLETS', 1, "
        "'PRIVATE', "
        "'NO'), ('NURSE''S GAUZE', 'DRY STOCK', 1, 'PRIVATE', null)"_sql);
    hospital.execute("insert into labservices (drgname, drgCatName) values ('FBC', 'BLOOD')"_sql);
    hospital.execute("insert into hServices (service, Category) values ('X-RAY', 'PICTURES')"_sql);
}
inline constexpr const char* ngoziLies = "Eze Ngozi [C3]";
inline constexpr const char* privateNotice = "This is a Private Patient!! Payment Required";

/// A line as it is typed; for an item of no list.
struct TypedLine {
    std::string item;
    std::string price;
    std::string units = "1";
    std::string capitated = "NO";
    std::string kind = "SERVICE";
    std::string usage = "***";
};
inline void type(core::Workplace& place, const TypedLine& line) {
    enter(place, "frmBillService",
          {{"cboCat", line.kind},
           {"cboDrug", line.item},
           {"txtPrice", line.price},
           {"txtQty", line.units},
           {"cboCap", line.capitated},
           {"txtUsage", line.usage}});
}

class Bill : public PlainScreen {
protected:
    Bill() : PlainScreen("frmBillService", &billing::provideScreens, &arrangeBills) {}

    /// Generates a bill: the nurse and the patient are picked.
    void bill(const char* patient, Says says = {}) {
        fire("cmdBill");
        fill({{"cboReason", "Nurse Joy [E001]"}});
        set("cboVehNo", patient, says);
    }
    void add(const TypedLine& line, Says says = {}) {
        type(place, line);
        fire("cmdAdd", says);
    }
    void takeOut(int row, Says says = {"Item Removed"}) {
        set("OrderGridDrug", {{"row", row}});
        hospital.answer("yes");
        fire("OrderGridDrug.DblClick", says);
    }
    void saved(Says says = {"Record Succesfully saved"}) {
        hospital.answer("yes");
        fire("OKButton", says);
    }
    /// The grid's lines, "item|category|...|client" each.
    std::string lines() {
        std::string all;
        const auto rows = place.desktop.get(name + ".OrderGridDrug")["rows"];
        for (std::size_t row = 0; row + 1 < rows.size(); ++row)
            for (std::size_t column = 0; column < rows[row].size(); ++column)
                all += rows[row][column].get<std::string>() + (column + 1 == rows[row].size() ? "\n" : "|");
        return all;
    }
    /// What was added to the accounts behind the lines that stood there.
    std::string stored() {
        using namespace db::literals;
        return dump(
            "select dtDate, PNo, consultID, drgName, Category, Price, Qty, SubTotal, usage, billType, BillTo, CoyName, "
            "conID, Capitated, attendedto, suppres, isbilled, revType from billAccum where SNO > 2 order by SNO"_sql);
    }
    std::string audits() {
        using namespace db::literals;
        return dump("select userAction, TranCode, Remarks from hAuditTrail"_sql);
    }
};

}  // namespace test
