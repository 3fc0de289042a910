#pragma once

#include "billing/screens.h"
#include "core/session/session.h"
#include "tests/contract/plainscreen.h"

namespace test {

/// One of the screens of the templates, and what it works on.
struct TariffCase {
    const char* screen;
    const char* type;
    const char* table;
    const char* column;  ///< of an item
    const char* word;    ///< in the questions
    const char* priceMissing;
};

/// The clients O'BRIEN & SONS ("O'B") and GREEN HMO ("0002") beside the private one; each kind has three items. Those
/// of the private template cost 1000, nothing and an unknown sum; GREEN HMO follows it at 0.9, with two of the items.
inline void arrangeTariffs(TestHospital& hospital) {
    using namespace db::literals;
    hospital.execute("delete from hRetainership"_sql);
    hospital.execute(
        "insert into hRetainership (retainID, retainName, ClientType, clientcatID) values ('0001', '(PRIVATE)', "
        "'PRIVATE', 'PRIVATE'), ('0002', 'GREEN [LAGOS] HMO', 'HMO', 'HMO'), ('O''B', 'O''BRIEN & SONS', 'COMPANY', "
        "'COMPANY'), ('', 'NOBODY', 'HMO', 'HMO')"_sql);
    hospital.execute(
        "insert into DrugMaster (drgName, drgCatName, pharmCat, Capitated) values ('ST. JOHN''S WORT', 'TABLETS', "
        "'DRUG', 'NO'), ('IRON', 'TABLETS', 'DRUG', 'YES'), ('ZINC', 'SYRUP', 'DRUG', 'NO')"_sql);
    hospital.execute(
        "insert into labservices (drgname, drgCatName, pharmCat, Capitated) select drgName, drgCatName, pharmCat, "
        "Capitated from DrugMaster"_sql);
    hospital.execute(
        "insert into hServices (service, Category, drgName, drgCatName, pharmCat, Capitated) select drgName, "
        "drgCatName, "
        "drgName, drgCatName, pharmCat, Capitated from DrugMaster"_sql);
    hospital.execute("insert into HserviceCat (catName) values ('SYRUP'), ('TABLETS')"_sql);
    for (const auto& insert :
         {"insert into DrugNHIS"_sql, "insert into LabServiceNHIS"_sql, "insert into hServiceNHIS"_sql})
        hospital.execute(
            insert +
            " (drgName, drgCatName, Price, Company, pharmCat, Remarks, CoyName, Capitated, tariffStatus) values "
            "('ST. JOHN''S WORT', 'TABLETS', 1000, '0001', 'DRUG', 'PRIVATE', '(PRIVATE)', 'NO', 'FIXED'), "
            "('IRON', 'TABLETS', 0, '0001', 'DRUG', 'PRIVATE', '(PRIVATE)', 'YES', null), "
            "('ZINC', 'SYRUP', null, '0001', 'DRUG', 'PRIVATE', '(PRIVATE)', null, 'FIXED'), "
            "('ST. JOHN''S WORT', 'TABLETS', 900, '0002', 'DRUG', 'HMO', 'GREEN [LAGOS] HMO', 'NO', 'FIXED'), "
            "('ZINC', 'SYRUP', 45, '0002', 'DRUG', 'HMO', 'GREEN [LAGOS] HMO', 'NO', 'FIXED')");
    hospital.execute(
        "insert into DrugNHISListEntered (CoyID, Type, remarks, useTariff, Pcent) select k.CoyID, t.Type, 'HMO', "
        "'0001', "
        "k.Pcent from (select '0001' as CoyID, 1.0 as Pcent union all select '0002', 0.9) k cross join (select 'DRUG' "
        "as "
        "Type union all select 'LAB' union all select 'SERVICE') t"_sql);
}

/// A tariff officer at one of them.
class AtTariff : public PlainScreen {
protected:
    explicit AtTariff(const TariffCase& which)
        : PlainScreen(which.screen, &billing::provideScreens, &arrangeTariffs), tariff(which) {
        session().gModuleRole = "TARIFF";
        open();
        hospital.forget();
    }

    static constexpr const char* private_ = "(PRIVATE) [0001]";
    static constexpr const char* green = "GREEN [LAGOS] HMO [0002]";
    static constexpr const char* obrien = "O'BRIEN & SONS [O'B]";

    void choose(const char* client) { set("cboHMO", client); }
    /// Asks for a template at a percentage of another.
    void deriveFrom(const char* source, const char* percent) {
        fill({{"cboDrug", "NO"}, {"cboUse", source}, {"cboPCent", percent}});
    }
    void confirmSave(Says says = {saved}) {
        hospital.answer("yes");
        fire("OKButton", says);
    }
    void write(int row, const nlohmann::json& text, Says says = {}) {
        set("grdData", {{"row", row}, {"column", "Price"}, {"text", text}}, says);
    }
    /// A template with all that it keeps.
    std::string whole(const std::string& key) {
        using namespace db::literals;
        return dump("select drgName, drgCatName, Price, pharmCat, Remarks, CoyName, Capitated, tariffStatus from "_sql +
                    db::trusted(tariff.table) + " where Company='" + key + "' order by drgName");
    }
    std::string prices(const std::string& key) {
        using namespace db::literals;
        return dump("select drgName, Price from "_sql + db::trusted(tariff.table) + " where Company='" + key +
                    "' order by SNo");
    }
    std::string registered() {
        using namespace db::literals;
        return dump("select CoyID, remarks, useTariff, Pcent from DrugNHISListEntered where Type='"_sql +
                    std::string(tariff.type) + "' order by CoyID, useTariff");
    }
    std::string audits() {
        using namespace db::literals;
        return dump("select userAction, TranCode, Remarks from hAuditTrail"_sql);
    }
    std::string everything() { return prices("0001") + prices("0002") + whole("O''B") + registered() + audits(); }

    static constexpr const char* saved = "Record Succesfully saved!!! Price values can now be edited";
    static constexpr const char* edited = "Record Succesfully Edited and Updated";
    const TariffCase tariff;
};

}  // namespace test
