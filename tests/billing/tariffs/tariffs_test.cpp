#include "tests/billing/tariffs/tariffs.h"

using namespace db::literals;

namespace test {
namespace {

constexpr TariffCase drugs{"frmDrugPriceHMO", "DRUG", "DrugNHIS", "Drug", "Drug", "Please Specify Drug Price "};
constexpr TariffCase tests{"frmLabPriceHMO", "LAB", "LabServiceNHIS", "LabItem", "LAB", "Please LAB Price "};
constexpr TariffCase services{"frmServPriceHMO", "SERVICE", "hServiceNHIS",
                              "Service",         "SERVICE", "Please SERVICE Price "};

constexpr const char* privateList = "IRON|0\nST. JOHN'S WORT|1000\nZINC|null\n";
constexpr const char* privatePrices = "ST. JOHN'S WORT|1000\nIRON|0\nZINC|null\n";

/// What all three do.
class Tariff : public AtTariff, public testing::WithParamInterface<TariffCase> {
protected:
    Tariff() : AtTariff(GetParam()) {}
    std::string items() { return list({tariff.column, "Price"}, "grdData"); }
    std::string question(const char* middle = "") {
        return "You are about to make bulk save of " + std::string(tariff.word) + " items " + middle +
               "for O'BRIEN & SONS Click YES to save items";
    }
    [[nodiscard]] std::string deleting() const {
        return "'Deleting Existing " + std::string(tariff.word) + " Tariff' ";
    }
};
INSTANTIATE_TEST_SUITE_P(Kinds, Tariff, testing::Values(drugs, tests, services),
                         [](const auto& kind) { return std::string(kind.param.type); });

TEST_P(Tariff, AClientsTemplateShowsAndSaysWhereItsPricesComeFrom) {
    EXPECT_EQ(entries("cboHMO"),
              "(PRIVATE) [0001]|GREEN [LAGOS] HMO [0002]|NHIS [NHIS]|NOBODY []|O'BRIEN & SONS [O'B]|");
    EXPECT_EQ(entries("cboUse"), "(PRIVATE) [0001]|GREEN [LAGOS] HMO [0002]|");
    EXPECT_EQ(entries("cboPCent"), "|10|20|30|40|50|60|70|80|90|100|");
    choose(private_);
    EXPECT_EQ(items(), privateList);
    EXPECT_EQ(shown({"lblTitle", "lblTariff"}), "(PRIVATE) Tariff|OWN TARIFF");
    EXPECT_EQ(hiddenColumns(), "SNO coyID ");
    choose(green);
    EXPECT_EQ(shown({"lblTitle", "lblTariff"}), "GREEN [LAGOS] HMO Tariff|90% of (PRIVATE)");
    choose(obrien);
    EXPECT_EQ(items() + shown({"lblTariff"}), "NONE");
    hospital.execute("update DrugNHISListEntered set useTariff=null, Pcent=0.07 where CoyID='0001'"_sql);
    hospital.execute("update DrugNHISListEntered set Pcent=0.07 where CoyID='0002'"_sql);
    choose(private_);
    EXPECT_EQ(shown({"lblTariff"}), "NONE");
    choose(green);
    EXPECT_EQ(shown({"lblTariff"}), "7% of (PRIVATE)");
    set("chkShow", true);
    EXPECT_EQ(entries("cboHMO"), "NHIS [NHIS]|NOBODY []|O'BRIEN & SONS [O'B]|");
    EXPECT_EQ(items() + shown({"lblTitle", "lblTariff"}), "|");
    fire("cmdRefresh");
    EXPECT_FALSE(is("chkShow", "checked"));
    EXPECT_EQ(shown({"cboHMO"}) + items(), "");
    fire("cmdDel");
    sent();
}

TEST_P(Tariff, ItemsAreFoundWhileTheirNameIsTyped) {
    const bool service = std::string(tariff.type) == "SERVICE";
    set("txtSearch", "I",
        {service ? "Please specify Tariff Company before Search" : "Specify Company Tariff before Search"});
    choose(private_);
    EXPECT_EQ(shown({"txtSearch"}), "") << "the template shows whole";
    for (const auto& [typed, found] :
         {std::pair{"st. john's", "ST. JOHN'S WORT|1000\n"}, {"'", ""}, {"", privateList}}) {
        set("txtSearch", typed);
        EXPECT_EQ(items(), found) << typed;
    }
    sent();
}

TEST_P(Tariff, OnlyTheTariffRoleWrites) {
    session().gModuleRole = "NURSING";
    open();
    EXPECT_FALSE(is("cmdAdd", "enabled") || is("OKButton", "enabled") || is("Frame1", "enabled"));
    EXPECT_TRUE(is("Frame2", "enabled"));
    choose(private_);
    EXPECT_EQ(items(), privateList);
    EXPECT_THROW(write(0, "5"), ui::Refused);
    EXPECT_THROW(fire("OKButton"), ui::Refused);
    hospital.forget();
    place.desktop.set(name + ".cboDrug", "YES", false);
    hospital.expectMessage("Bulk entry already exists for (PRIVATE)");
    place.desktop.fire(name + ".OKButton", true);
    EXPECT_FALSE(is("OKButton", "enabled"));
    session().gModuleRole = "TARIFF";
    fire("cmdRefresh");
    EXPECT_TRUE(is("cmdAdd", "enabled") && is("OKButton", "enabled"));
}

TEST_P(Tariff, ASaveIsCheckedInOrder) {
    stopsInOrder({{"Please specify Tariff Template Name", "cboHMO", "NOBODY []", {{"cboDrug", "NO"}}},
                  {"Please specify Tariff to use for this Template", "cboUse", private_},
                  {"Please specify Percentage to use for this Template", "cboPCent", "many"},
                  {"Tariff Percentage has to be Numeric", "cboPCent", "1e3"},
                  {"Tariff Percentage has to be Numeric", "cboPCent", "-5"},
                  {"Tariff Percentage has to be Numeric", "cboPCent", "1000.5"},
                  {"Tariff Percentage cannot be above 1000", "cboPCent", "90"},
                  {"Please SELECT/Re-SELECT Company", "cboHMO"}});
    choose(obrien);
    hospital.execute(
        "insert into DrugNHISListEntered (CoyID, Type) values ('', 'DRUG'), ('', 'LAB'), ('', 'SERVICE')"_sql);
    fire("cmdRefresh");
    choose(obrien);
    deriveFrom("NOBODY []", "50");
    fire("OKButton", {"Please SELECT/Re-SELECT Company Whose Tariff is Used"});
    set("cboDrug", "YES");
    EXPECT_FALSE(is("cboUse", "visible") || is("cboPCent", "visible"));
    hospital.answer("no");
    fire("OKButton");
    EXPECT_EQ(hospital.boxes().back().text + hospital.boxes().back().title, question() + "bulk save");
    // The status is asked for behind the question.
    fire("cmdCancel");
    confirmSave({"Please specify Tariff Status "});
    fill({{"cboDrug", "YES"}, {"chkAdd", true}});
    confirmSave({"Please specify Item Name"});
    set("txtDrug", " KAOLIN ");
    confirmSave({"Please specify Price"});
    set("txtPrice", ".");
    confirmSave({"Please specify Price"});
    EXPECT_EQ(prices("O''B") + audits(), "");
}

TEST_P(Tariff, ATemplateOfItsOwnStartsAtNothing) {
    choose(obrien);
    set("cboDrug", "YES");
    confirmSave();
    EXPECT_EQ(whole("O''B"),
              "IRON|TABLETS|0|DRUG|COMPANY|O'BRIEN & SONS|YES|FIXED\nST. JOHN'S WORT|TABLETS|0|DRUG|COMPANY|O'BRIEN & "
              "SONS|NO|FIXED\nZINC|SYRUP|0|DRUG|COMPANY|O'BRIEN & SONS|NO|FIXED\n");
    EXPECT_EQ(registered(), "0001|HMO|0001|1\n0002|HMO|0001|0.9\nO'B|COMPANY|O'B|1\n");
    EXPECT_EQ(audits().substr(audits().find("for: ")), "for: O'BRIEN & SONS [O'B]|O'B|New Tariff Entry\n");
    EXPECT_EQ(shown({"lblTariff", "cboDrug"}), "OWN TARIFF|");
    EXPECT_EQ(items(), "IRON|0\nST. JOHN'S WORT|0\nZINC|0\n");
    EXPECT_NE(entries("cboUse").find("O'B]"), std::string::npos) << "others can be built from it";
    set("cboDrug", "YES");
    fire("OKButton", {"Bulk entry already exists for O'BRIEN & SONS"});
    sent();
}

TEST_P(Tariff, ATemplateIsBuiltFromAnotherAtAPercentage) {
    choose(obrien);
    deriveFrom(private_, "12.5");
    confirmSave();
    EXPECT_EQ(whole("O''B"),
              "IRON|TABLETS|0|DRUG|COMPANY|O'BRIEN & SONS|YES|null\nST. JOHN'S WORT|TABLETS|125|DRUG|COMPANY|O'BRIEN & "
              "SONS|NO|FIXED\nZINC|SYRUP|0|DRUG|COMPANY|O'BRIEN & SONS|null|FIXED\n");
    EXPECT_EQ(registered(), "0001|HMO|0001|1\n0002|HMO|0001|0.9\nO'B|COMPANY|0001|0.125\n");
    EXPECT_EQ(shown({"lblTariff"}), "12.5% of (PRIVATE)");
    // Built anew, over itself: the old one goes.
    fill({{"chkDel", true}});
    deriveFrom(green, "100");
    confirmSave();
    EXPECT_EQ(hospital.boxes()[hospital.boxes().size() - 2].text, question(deleting().c_str()));
    EXPECT_EQ(prices("O''B"), "ST. JOHN'S WORT|900\nZINC|45\n");
    EXPECT_EQ(registered(), "0001|HMO|0001|1\n0002|HMO|0001|0.9\nO'B|COMPANY|0002|1\n");
    EXPECT_NE(audits().find("Deleted Existing Tariff, Add "), std::string::npos);
    EXPECT_NE(audits().find("|O'B|Tariff Used:100% of GREEN [LAGOS] HMO\n"), std::string::npos);
    // A registered client whose rows have gone can be built anew.
    hospital.execute("delete from "_sql + db::trusted(tariff.table) + " where Company='O''B'");
    set("cboDrug", "YES");
    confirmSave();
    EXPECT_EQ(registered(), "0001|HMO|0001|1\n0002|HMO|0001|0.9\nO'B|COMPANY|0002|1\nO'B|COMPANY|O'B|1\n");
    sent();
}

TEST_P(Tariff, ASourceThatWasEmptiedBuildsNothingAndReportsSuccess) {
    choose(obrien);
    deriveFrom(green, "50");
    const auto before = registered();
    hospital.execute("delete from "_sql + db::trusted(tariff.table) + " where Company='0002'");
    confirmSave();
    EXPECT_EQ(prices("O''B"), "");
    EXPECT_EQ(registered(), before);
    // A source whose template is deleted leaves those that follow it, and their rows in the register.
    choose(private_);
    fill({{"chkDel", true}});
    deriveFrom(green, "50");
    confirmSave();
    EXPECT_EQ(prices("0001"), "");
    EXPECT_EQ(registered(), "0002|HMO|0001|0.9\n");
}

TEST_P(Tariff, RepricingCompounds) {
    choose(private_);
    const auto before = registered();
    for (const auto* after : {"1100", "1210"}) {
        deriveFrom(private_, "110");
        hospital.answer("yes");
        fire("OKButton");
        EXPECT_EQ(hospital.boxes().back().text + hospital.boxes().back().title,
                  "Are you sure to update the Price List for (PRIVATE)?save");
        const auto price = hospital.value("select round(Price, 6) as p from "_sql + db::trusted(tariff.table) +
                                          " where Company='0001' and Price > 0");
        EXPECT_EQ(price.text(), after);
        EXPECT_EQ(shown({"lblProgress"}), "3 prices are now at 110% of what they were");
    }
    EXPECT_EQ(prices("0002"), "ST. JOHN'S WORT|900\nZINC|45\n");
    EXPECT_EQ(registered(), before);
    EXPECT_NE(audits().find("(110%) for|XXX|Tariff Price Update\n"), std::string::npos);
    deriveFrom(private_, "110");
    hospital.answer("no");
    fire("OKButton");
    sent();
}

TEST_P(Tariff, OneItemIsAddedToATemplateThatStands) {
    choose(green);
    fill({{"cboDrug", "YES"},
          {"chkAdd", true},
          {"txtDrug", " MOTHER'S \"MIX\" "},
          {"txtPrice", "1234.50"},
          {"cboCap", "YES"}});
    EXPECT_EQ(shown({"lblWord"}), "ONE THOUSAND, TWO HUNDRED AND THIRTY FOUR NARIA AND FIFTY  KOBO ONLY");
    fire("OKButton", {saved});
    EXPECT_NE(whole("0002").find("MOTHER'S \"MIX\"|XXXX|1234.5|XXXX|HMO|XXXX|NO|FIXED\n"), std::string::npos);
    EXPECT_FALSE(is("Frame1", "enabled") || is("chkAdd", "checked"));
    sent();
}

TEST_P(Tariff, AnEditIsPassedOnOneLevelDeep) {
    fire("cmdEdit", {"No Item to Edit. Select a Company Tariff to Display Items to Edit"});
    hospital.execute("insert into DrugNHISListEntered (CoyID, Type, useTariff, Pcent) values ('O''B', '"_sql +
                     std::string(tariff.type) + "', '0002', 0.5), ('NHIS', '" + std::string(tariff.type) +
                     "', '0001', null)");
    hospital.execute("insert into "_sql + db::trusted(tariff.table) +
                     " (drgName, Price, Company) values ('ST. JOHN''S WORT', 450, 'O''B'), ('ST. JOHN''S WORT', 450, "
                     "'NHIS')");
    choose(private_);
    set("grdData", {{"row", 0}});
    fire("grdData.DblClick");
    EXPECT_EQ(shown({"txtDrug", "txtPrice", "cboCap", "cboVal", "lblCat", "lblWord"}), "IRON||YES|FIXED|TABLETS|");
    EXPECT_FALSE(is("txtDrug", "enabled"));
    fire("OKButton", {tariff.priceMissing});
    set("grdData", {{"row", 1}});
    fire("cmdEdit");
    EXPECT_EQ(shown({"txtDrug", "txtPrice", "cboCap"}), "ST. JOHN'S WORT|1000|NO");
    fill({{"txtPrice", "1,234.50"}, {"cboCap", "YES"}});
    EXPECT_EQ(shown({"txtPrice"}), "1234.50");
    fire("OKButton", {edited});
    EXPECT_EQ(prices("0001"), "ST. JOHN'S WORT|1234.5\nIRON|0\nZINC|null\n") << "its own row is rewritten at 1";
    EXPECT_EQ(prices("0002"), "ST. JOHN'S WORT|1111.05\nZINC|45\n");
    EXPECT_EQ(prices("O''B") + prices("NHIS"), "ST. JOHN'S WORT|450\nST. JOHN'S WORT|450\n");
    EXPECT_NE(whole("0001").find("1234.5|DRUG|PRIVATE|(PRIVATE)|YES|FIXED"), std::string::npos);
    EXPECT_NE(audits().find("Price: ST. JOHN'S WORT|OLD Price: 1000|New Price: 1234.50\n"), std::string::npos);
    EXPECT_EQ(items(), "IRON|0\nST. JOHN'S WORT|1234.5\nZINC|null\n");
    // An item that a follower lacks is not made there.
    set("grdData", {{"row", 0}});
    fire("cmdEdit");
    set("txtPrice", "70");
    fire("OKButton", {edited});
    EXPECT_EQ(prices("0002"), "ST. JOHN'S WORT|1111.05\nZINC|45\n");
    // Another client chosen meanwhile ends the correction.
    fire("cmdEdit");
    choose(green);
    EXPECT_EQ(shown({"txtDrug", "txtPrice"}), "|");
    sent();
}

TEST_P(Tariff, APriceIsWrittenInItsCell) {
    choose(private_);
    write(0, "1,250.50");
    EXPECT_EQ(items(), "IRON|1250.5\nST. JOHN'S WORT|1000\nZINC|null\n");
    EXPECT_EQ(row("grdData"), 1) << "the next row";
    EXPECT_EQ(audits(), "Tariff Price Cell Update to: (1250.5) for IRON|0001|\n");
    EXPECT_EQ(prices("0002"), "ST. JOHN'S WORT|900\nZINC|45\n") << "who follows keeps the price";
    write(2, "0");
    EXPECT_EQ(row("grdData"), 2);
    const auto before = everything();
    for (const auto* wrong : {"-5", "1e9", "nan", "1,23", "12.5.3", "'; drop table drugs --", "."})
        write(1, wrong, {"A price is a number of 0 or more, such as 1,250.50"});
    write(1, "  ", {tariff.priceMissing});
    for (const auto& wrong : {nlohmann::json{{"row", 9}, {"column", "Price"}, {"text", "1"}},
                              {{"row", 0}, {"column", "SNO"}, {"text", "1"}},
                              {{"row", 0}, {"column", tariff.column}, {"text", "X"}},
                              {{"row", 0}, {"column", "Price"}, {"text", std::string(1 << 20, '9')}}})
        EXPECT_THROW(set("grdData", wrong), ui::Refused);
    hospital.execute("delete from "_sql + db::trusted(tariff.table) + " where drgName='ZINC' and Company='0002'");
    choose(green);
    hospital.execute("delete from "_sql + db::trusted(tariff.table) + " where Company='0002'");
    write(0, "5", {"This item has left the tariff meanwhile: show the tariff again"});
    EXPECT_EQ(audits(), before.substr(before.size() - audits().size()));
    sent();
}

TEST_P(Tariff, AWriteThatFailsLeavesEverythingAsItWas) {
    hospital.execute("insert into "_sql + db::trusted(tariff.table) +
                     " (drgName, Price, Company) values ('OLD', 5, 'O''B')");
    hospital.execute("insert into DrugNHISListEntered (CoyID, Type, useTariff, Pcent) values ('O''B', '"_sql +
                     std::string(tariff.type) + "', '0001', 0.5)");
    struct Case {
        const char* what;
        int writes;  ///< up to the commit
        std::function<void()> prepare;
        bool asks;
        const char* says;
    };
    const auto built = [this] {
        choose(obrien);
        fill({{"chkDel", true}});
        deriveFrom(private_, "50");
    };
    const auto edits = [this] {
        choose(private_);
        set("grdData", {{"row", 1}});
        fire("cmdEdit");
        set("txtPrice", "77");
    };
    const auto added = [this] {
        choose(green);
        fill({{"cboDrug", "YES"}, {"chkAdd", true}, {"txtDrug", "KAOLIN"}, {"txtPrice", "5"}});
    };
    const auto repriced = [this] {
        choose(private_);
        deriveFrom(private_, "110");
    };
    for (const auto& [what, writes, prepare, asks, says] : {Case{"build", 6, built, true, saved},
                                                            {"edit", 4, edits, false, edited},
                                                            {"add", 1, added, false, saved},
                                                            {"reprice", 1, repriced, true, nullptr}}) {
        const auto before = everything();
        for (int failing = 1; failing <= writes; ++failing) {
            prepare();
            hospital.failWrite(failing);
            if (asks) hospital.answer("yes");
            fire("OKButton", {"Injected failure"});
            EXPECT_EQ(everything(), before) << what << " " << hospital.failed();
            EXPECT_TRUE(is("OKButton", "enabled"));
        }
        if (asks) hospital.answer("yes");
        if (says) hospital.expectMessage(says);
        fire("OKButton");  // what was filled in still stands
        EXPECT_NE(everything(), before) << what;
    }
    choose(private_);
    const auto before = everything();
    hospital.failWrite(1);
    write(1, "88", {"Injected failure"});
    EXPECT_EQ(everything(), before);
}

// -- what the services have besides --

class ServiceTariff : public AtTariff {
protected:
    ServiceTariff() : AtTariff(services) {}
};

TEST_F(ServiceTariff, ACategoryOrAllClientsShow) {
    EXPECT_EQ(entries("cboView"), "(ALL)|SYRUP|TABLETS|");
    set("cboView", "SYRUP", {"Please specify HMO Company"});
    choose(private_);
    set("cboView", "TABLETS");
    EXPECT_EQ(list({"Service", "Price"}, "grdData"), "IRON|0\nST. JOHN'S WORT|1000\n");
    fire("cmdEdit");
    EXPECT_EQ(shown({"cboCap", "cboVal"}), "NO|FIXED") << "the list has neither";
    set("cboView", "(ALL)");
    EXPECT_EQ(list({"Service", "CoyID"}, "grdData"),
              "ZINC|0001\nZINC|0002\nIRON|0001\nST. JOHN'S WORT|0001\nST. JOHN'S WORT|0002\n");
    set("grdData", {{"row", 1}});
    fire("cmdEdit", {"This item is of another tariff: select GREEN [LAGOS] HMO to edit it"});
    write(1, "50");
    EXPECT_EQ(prices("0002"), "ST. JOHN'S WORT|900\nZINC|50\n");
    choose(green);
    EXPECT_EQ(shown({"cboView"}), "");
    sent();
}

}  // namespace
}  // namespace test
