#include "billing/screens.h"
#include "tests/contract/plainscreen.h"

using namespace db::literals;

namespace test {
namespace {

/// A dressing with three of its prices, a service of the wards, and a drug of the pharmacy.
void arrangeItems(TestHospital& hospital) {
    hospital.execute("delete from drugs"_sql);
    hospital.execute(
        "insert into drugs (drgName, drgCatName, pharmCat, qtyPerUnit, Cost, NHIScost, Remarks, Capitated) values "
        "('BURN''S DRESSING', 'DRESSING', 'WOUND', '1', 7500, 10, 'PRIVATE', 'NO'), "
        "('BURN''S DRESSING', 'DRESSING', 'WOUND', '1', 750.25, 10, 'NHIS', 'NO'), "
        "('BURN''S DRESSING', 'DRESSING', 'WOUND', '1', 9000, 10, 'HMO', 'NO'), "
        "('OXYGEN', 'ADMISSION SERVICES', 'WARD', '1 HOUR', 1500, 0, 'PRIVATE', 'NO'), "
        "('PARACETAMOL', 'TABLETS', 'ANALGESIC', '1', 20, 0, 'PRIVATE', 'YES')"_sql);
}

class DrugPrice : public PlainScreen {
protected:
    DrugPrice() : PlainScreen("frmDrugPrice", &billing::provideScreens, &arrangeItems) {}
    std::string items() { return list({"Drug"}, "grdData"); }
    static std::string price(int group) { return "txtFlds(" + std::to_string(group) + ")"; }
    std::string prices() {
        std::string all;
        for (int group = 0; group < 8; ++group) all += shown({price(group).c_str()}) + "|";
        return all;
    }
    /// The dressing under correction, with all that it lacks.
    void correct() {
        fire("grdData.DblClick");
        for (const int group : {2, 3, 4, 5, 6}) set(price(group), "100");
    }
    std::string rows() { return dump("select * from drugs order by ID"_sql); }
};

TEST_F(DrugPrice, TheListIsTheWardsNarrowedByCategoryOrAllBySearch) {
    EXPECT_EQ(items() + shown({"lblRec"}), "BURN'S DRESSING\nOXYGEN\n2 Records");
    EXPECT_EQ(entries("cboCat"), "|DRESSING|ADMISSION SERVICES|");
    set("cboCat", "DRESSING");
    EXPECT_EQ(items() + shown({"lblRec"}), "BURN'S DRESSING\n1 Records");
    set("txtSearch", "para");
    EXPECT_EQ(items(), "PARACETAMOL\n");
    set("txtSearch", "burn's");
    EXPECT_EQ(items(), "BURN'S DRESSING\n");
    set("txtSearch", "x' or 'a'='a");
    EXPECT_EQ(items() + shown({"lblRec"}), "0 Records");
    set("txtSearch", "");
    EXPECT_EQ(items(), "BURN'S DRESSING\n");
    sent();
    fire("cmdNew");
    EXPECT_NE(place.desktop.loaded("frmStockItems"), nullptr);
}

TEST_F(DrugPrice, ASaveGoesThroughItsChecks) {
    fire("cmdAdd");
    stopsInOrder({{"Drug name Field cannot be empty", "txtDrug", "SUCTIONING"},
                  {"Price Field cannot be empty", "txtFlds(0)", "-1"},
                  {"NHIS Price Field cannot be empty", "txtFlds(1)", "-1"},
                  {"One Monthly Field cannot be empty", "txtFlds(2)", "1"},
                  {"Three Monthly Field cannot be empty", "txtFlds(3)", "1"},
                  {"Six Monthly Field cannot be empty", "txtFlds(4)", "1"},
                  {"CBN Field cannot be empty", "txtFlds(5)", "1"},
                  {"NEPA Field cannot be empty", "txtFlds(6)", "1"},
                  {"Category cannot be empty", "txtCat", "ADMISSION SERVICES"},
                  {"Unit Dosage cannot be empty", "txtDosage", "1"},
                  {"Price field cannot be negative or contain a Character", "txtFlds(0)", "5"},
                  {"NHIS Price field cannot be negative or contain a Character", "txtFlds(1)", "0"}});
    const auto before = rows();
    save({});  // an item that was not picked from the list is not written
    EXPECT_EQ(rows(), before);
}

TEST_F(DrugPrice, ACorrectionWritesTheEightGroupsAnew) {
    fire("grdData.DblClick");
    EXPECT_EQ(shown({"txtDrug", "txtCat", "txtDosage"}) + "|" + prices(),
              "BURN'S DRESSING|DRESSING|1|7500|750.25||||||9000|");
    for (const int group : {2, 3, 4, 5, 6}) set(price(group), "100");
    set(price(0), "1,234.50");
    fire("txtFlds(0).LostFocus");
    EXPECT_EQ(shown({"txtFlds(1)"}), "123.45");
    set(price(1), "0");
    set(price(4), "1000");
    set(price(7), " ");
    set("txtDosage", "1 SET");
    save({"Record Succesfully updated"});
    EXPECT_TRUE(ran("delete from drugs where drgname = 'BURN''S DRESSING'"));
    EXPECT_EQ(dump("select drgCatName, qtyPerUnit, Cost, NHIScost, Remarks, pharmCat, Capitated from drugs where "
                   "drgName = 'BURN''S DRESSING' order by ID"_sql),
              "DRESSING|1 SET|1234.5|0|PRIVATE|null|null\nDRESSING|1 SET|0|0|NHIS|null|null\n"
              "DRESSING|1 SET|100|0|MTHLY|null|null\nDRESSING|1 SET|100|0|3MTHLY|null|null\n"
              "DRESSING|1 SET|1000|0|6MTHLY|null|null\nDRESSING|1 SET|100|0|CBN|null|null\n"
              "DRESSING|1 SET|100|0|NEPA|null|null\nDRESSING|1 SET|0|0|HMO|null|null\n");
    EXPECT_EQ(dump("select count(*) from drugs"_sql), "10\n");
}

TEST_F(DrugPrice, WhatIsNoPriceOrFailsLeavesTheOldRows) {
    const auto before = rows();
    correct();
    set(price(0), "-7");
    const auto* const first = "Price field cannot be negative or contain a Character";
    stopsInOrder({{first, "txtFlds(0)", "12,3", {{"txtFlds(0)", "abc"}}},
                  {first, "txtFlds(0)", "1e9"},
                  {first, "txtFlds(0)", "7500", {{"txtFlds(3)", "-5"}, {"txtFlds(7)", "1000000000000"}}},
                  {"This is no price", "txtFlds(3)", "100"},
                  {"This is no price", "txtFlds(7)", "9000"}});
    EXPECT_EQ(rows(), before);
    hospital.setTakesMessages(true);
    for (int write = 1; write <= 9; ++write) {  // the delete and eight rows
        hospital.failWrite(write);
        save({});
        EXPECT_EQ(rows(), before) << write;
        EXPECT_TRUE(is("OKButton", "visible"));
    }
    hospital.setTakesMessages(false);
    save({"Record Succesfully updated"});
    EXPECT_NE(rows(), before);
}

TEST_F(DrugPrice, DeleteOnlyAnswers) {
    hospital.answer("yes");
    fire("cmdDel", {" Sorry cannot delete record, see the store Officer "});
    EXPECT_TRUE(hospital.boxes().front().text == "Are you sure to Delete Record");
    EXPECT_EQ(items(), "BURN'S DRESSING\nOXYGEN\n");
}

class StockItems : public PlainScreen {
protected:
    StockItems() : PlainScreen("frmStockItems", &billing::provideScreens, &arrangeItems) {}
};

TEST_F(StockItems, AreAddedCorrectedAndDeletedByName) {
    EXPECT_EQ(list({"Service"}, "grdData"), "BURN'S DRESSING\nOXYGEN\n");
    fire("cmdAdd");
    EXPECT_EQ(entries("cboCat").substr(0, 2), " |");
    stopsInOrder({{"Please specify Service name", "txtName", "SUCTION'S"},
                  {"Please specify Category name", "cboCat", " "},
                  {"Please specify Category name", "cboCat", "ADMISSION SERVICES"}});
    fill({{"txtQty", "1 SITTING"}, {"txtPrice", "1,500"}, {"txtPrice2", "-5"}});
    stopsInOrder({{"This is no price", "txtPrice2", "150.5"}});
    save();
    EXPECT_EQ(dump("select drgCatName, qtyPerUnit, Cost, NHIScost, Remarks from drugs where drgName='SUCTION''S'"_sql),
              "ADMISSION SERVICES|1 SITTING|1500|150.5|PRIVATE\n");
    set("txtSearch", "burn's");
    fire("grdData.DblClick");
    EXPECT_EQ(shown({"txtName", "cboCat", "txtQty", "txtPrice", "txtPrice2"}), "BURN'S DRESSING|DRESSING|1|7500|10");
    set("txtPrice", "8000");
    save({"Record Succesfully updated"});
    EXPECT_EQ(dump("select Cost, Remarks from drugs where drgName='BURN''S DRESSING' order by ID"_sql),
              "8000|PRIVATE\n750.25|NHIS\n9000|HMO\n")
        << "the first row alone";
    hospital.answer("yes");
    fire("cmdDel", {"Record successfully Deleted"});
    EXPECT_EQ(dump("select drgName from drugs order by ID"_sql), "OXYGEN\nPARACETAMOL\nSUCTION'S\n");
    sent();
    fire("cmdPrice");
    EXPECT_NE(place.desktop.loaded("frmDrugPrice"), nullptr);
}

}  // namespace
}  // namespace test
