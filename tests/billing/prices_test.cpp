// What an item and a fee cost, and what is read as an amount.

#include "billing/prices.h"
#include "billing/amounts.h"
#include "core/session/session.h"
#include "tests/contract/corpus.h"
#include "tests/core/stubs.h"

using namespace db::literals;

namespace test {
namespace {

using billing::ItemKind;
using billing::PriceResult;
using billing::WithoutTariff;

class Prices : public testing::Test {
protected:
    Prices() {
        hospital.start();
        hospital.execute(
            "insert into DrugNHIS (drgName, drgCatName, Price, Company, Capitated) values "
            "('PARACETAMOL', 'TABLETS', 50, 'NHIS', 'YES'), ('PARACETAMOL', 'TABLETS', 80.5, '0007', 'NO'), "
            "('PARACETAMOL', 'ANALGESICS', 100, '0001', 'NO'), ('ZERO', 'TABLETS', 0, '0007', 'YES'), "
            "('ZERO', 'SYRUPS', 12.345, '0001', null), ('BELOW', 'TABLETS', -5, '0007', 'YES'), "
            "('NULLED', 'TABLETS', null, '0007', null), ('FREE', null, 0, '0001', 'YES'), "
            "('MUM''S', 'TABLETS', 7, 'O''CO', 'NO')"_sql);
        hospital.execute(
            "insert into LabServiceNHIS (drgName, drgCatName, Price, Company, Capitated) values "
            "('FBC', 'BLOOD', 3000, '0007', 'YES'), ('LFT', 'BLOOD', 0, '0007', 'YES'), "
            "('LFT', 'BLOOD', 4500.75, '0001', 'NO')"_sql);
        hospital.execute(
            "insert into hServiceNHIS (drgName, drgCatName, Price, Company, Capitated) values "
            "('DRESSING', 'WOUND', 1500, '0007', 'YES'), ('SUTURE', 'WOUND', 2500.25, '0001', 'NO')"_sql);
        hospital.execute(
            "insert into drugs (drgName, drgCatName, qtyPerUnit, Cost, Remarks, Capitated) values "
            "('PARACETAMOL', 'TABLETS', '100', 60, 'PRIVATE', 'NO'), ('BELOW', 'OINTMENT', null, 1, 'PRIVATE', 'YES'), "
            "('UNLISTED', 'SYRUPS', '1', 1, 'PRIVATE', null), ('FEE', 'FEES', '1', 33.33, 'PRIVATE', null), "
            "('NO COST', 'FEES', '1', null, 'PRIVATE', null), ('NURSE''S', 'FEES', '1', 10, 'PRIVATE', null)"_sql);
        hospital.execute("insert into labservices (drgname, drgCatName, Capitated) values ('RARE', 'BLOOD', 'NO')"_sql);
        hospital.execute(
            "insert into hServices (service, Category, drgCatName, Capitated) values ('ODD', 'MISC', 'OTHER', 'YES')"_sql);
        hospital.execute("insert into stockItemsRetail (itemID, UnitsInStock) values ('PARACETAMOL', 40)"_sql);
        hospital.execute(
            "insert into billingPrice (clientcatID, pvalue) values ('O''CO', 0.5), ('NO SHARE', null)"_sql);
        hospital.forget();
    }
    /// "price, capitation, category, quantity, usage, stock, unit, source, messages": a capitation of "=" leaves the
    /// field as it is; T, Z and N stand for "no template", "no price in it" and "no price at all".
    static std::string told(const PriceResult& result) {
        std::string all = db::numberText(result.price);
        for (const auto& text : {result.capitated.value_or("="), result.category, result.quantity, result.usage,
                                 result.stock, result.unit, std::string(sourceText(result.source))})
            all += "," + text;
        all += ",";
        for (const auto& message : result.messages)
            all += message ==
                           "Price Template for this HMO/Company Yet to be Created! Proceed to use Hospital Private "
                           "tariff"
                       ? 'T'
                   : message == "No price for this HMO/Company! Proceed to use Hospital Private tariff" ? 'Z'
                   : message == "No price for this Item Please confirm"                                 ? 'N'
                                                                                                        : '?';
        return all;
    }
    Ward hospital;
    core::Workplace& place = hospital.place;
};

TEST_F(Prices, AreFoundInTheTemplateThePrivateTariffOrNowhere) {
    using enum ItemKind;
    constexpr auto injections = WithoutTariff::nothing;
    struct Case {
        ItemKind kind;
        const char* item;
        const char* category;
        const char* client;
        const char* result;
        WithoutTariff without = WithoutTariff::itemList;
    };
    for (const auto& [kind, item, category, client, result, without] : std::initializer_list<Case>{
             // the key
             {drug, "PARACETAMOL", "HMO", "0007", "80.5,NO,TABLETS,0,,40,100,Own template,"},
             {drug, "PARACETAMOL", "NHIS", "0007", "50,YES,TABLETS,0,,40,100,Own template,"},
             {drug, "PARACETAMOL", "NHIS ", "0007", "80.5,NO,TABLETS,0,,40,100,Own template,"},
             {drug, "PARACETAMOL", "nhis", "0099", "100,NO,ANALGESICS,0,,40,100,Private tariff,T"},
             {drug, "PARACETAMOL", "PRIVATE", "0001", "100,NO,ANALGESICS,0,,40,100,Private tariff,"},
             {drug, "MUM'S", "HMO", "O'CO", "7,NO,TABLETS,0,,0,,Own template,"},
             // the template's row: missing, 0, below 0, Null
             {drug, "PARACETAMOL", "HMO", "0099", "100,NO,ANALGESICS,0,,40,100,Private tariff,T"},
             {drug, "ZERO", "HMO", "0007", "12.345,,SYRUPS,0,,0,,Private tariff,Z"},
             {drug, "BELOW", "HMO", "0007", "0,YES,OINTMENT,1,***,0,,No tariff,ZN"},
             {drug, "NULLED", "HMO", "0007", "0,,TABLETS,0,,0,,Own template,"},
             // the private tariff: its 0 is a price; an item that it lacks is told of twice
             {drug, "FREE", "HMO", "0007", "0,YES,,0,,0,,Private tariff,T"},
             {drug, "FREE", "PRIVATE", "0001", "0,YES,,0,,0,,Private tariff,Z"},
             {drug, "UNLISTED", "PRIVATE", "0001", "0,,SYRUPS,1,***,0,,No tariff,TN"},
             {drug, "MUM'S", "HMO", "0007", "0,=,,1,***,0,,No tariff,TN"},
             {lab, "FBC", "HMO", "0007", "3000,YES,BLOOD,1,***,***,1,Own template,"},
             {lab, "LFT", "HMO", "0007", "4500.75,NO,BLOOD,1,***,***,1,Private tariff,Z"},
             {lab, "RARE", "HMO", "0007", "0,NO,BLOOD,1,***,1,***,No tariff,TN"},
             {lab, "GHOST", "HMO", "0007", "0,=,,1,***,1,***,No tariff,TN"},
             {service, "DRESSING", "HMO", "0007", "1500,YES,WOUND,1,***,***,1,Own template,"},
             {service, "SUTURE", "HMO", "0007", "2500.25,NO,WOUND,1,***,***,1,Private tariff,T"},
             {service, "ODD", "HMO", "0007", "0,YES,MISC,1,***,1,***,No tariff,TN"},
             // where the list of all items is not asked
             {drug, "PARACETAMOL", "HMO", "0007", "80.5,NO,TABLETS,0,,40,100,Own template,", injections},
             {drug, "ZERO", "HMO", "0007", "12.345,,SYRUPS,0,,0,,Private tariff,Z", injections},
             {drug, "UNLISTED", "HMO", "0007", "0,=,,0,,0,,No tariff,TN", injections},
             {service, "SUTURE", "HMO", "0007", "2500.25,NO,WOUND,1,***,***,1,Private tariff,T", injections},
             {service, "ODD", "HMO", "0007", "0,=,,1,***,1,***,No tariff,TN", injections}})
        EXPECT_EQ(told(ResolveTariffPrice(place, kind, item, category, client, without)), result)
            << item << " for " << category << " " << client;
}

TEST_F(Prices, AskOneQueryAStageAndWriteNothing) {
    struct Case {
        ItemKind kind;
        std::vector<std::string> statements;
    };
    for (const auto& [kind, statements] : std::initializer_list<Case>{
             {ItemKind::drug,
              {"select distinct  * from vwDrugNHIS where Drug ='A''B'   and  coyID='C''D'",
               "select distinct  * from vwDrugNHIS where Drug ='A''B' and  coyID='0001'",
               "select distinct  * from drugs where drgname ='A''B'"}},
             {ItemKind::lab,
              {"select distinct  * from vwLabServiceNHIS where LabItem ='A''B'and coyID='C''D'",
               "select distinct  * from vwLabServiceNHIS where LabItem ='A''B'   and coyID='0001'",
               "select distinct  * from labservices where drgname ='A''B'"}},
             {ItemKind::service,
              {"select distinct  * from vwServiceNHIS where service ='A''B'   and coyID='C''D'",
               "select distinct  * from vwServiceNHIS where service ='A''B'   and coyID='0001'",
               "select distinct  * from hServices where service ='A''B'"}}}) {
        hospital.forget();
        static_cast<void>(ResolveTariffPrice(place, kind, "A'B", "HMO", "C'D"));
        EXPECT_EQ(hospital.statements(), statements);
        for (const auto& statement : statements) EXPECT_TRUE(isKnown("Hospital", statement)) << statement;
        hospital.forget();
        static_cast<void>(ResolveTariffPrice(place, kind, "A'B", "HMO", "C'D", WithoutTariff::nothing));
        EXPECT_EQ(hospital.statements().size(), 2U);
    }
}

TEST_F(Prices, OfTheTemplateAloneComeWithoutMessagesOrFallBack) {
    EXPECT_EQ(told(ResolveTemplatePrice(place, ItemKind::drug, "BELOW", "HMO", "0007").value()),
              "-5,YES,TABLETS,0,,0,,Own template,");
    EXPECT_FALSE(ResolveTemplatePrice(place, ItemKind::drug, "PARACETAMOL", "HMO", "0099"));
    EXPECT_EQ(told(ResolvePrivatePrice(place, ItemKind::drug, "PARACETAMOL")),
              "100,NO,ANALGESICS,0,,40,100,Private tariff,");
    hospital.failStatement("vwDrugNHIS");
    EXPECT_THROW(static_cast<void>(ResolvePrivatePrice(place, ItemKind::drug, "PARACETAMOL")), db::Error);
}

TEST_F(Prices, OfFeesAreSurchargedByCategoryUnrounded) {
    struct Case {
        const char* fee;
        const char* category;
        double price;
    };
    for (const auto& [fee, category, price] : std::initializer_list<Case>{{"FEE", "HMO", 36.663},
                                                                          {"FEE", "PRIVATE", 33.33},
                                                                          {"FEE", "UNHEARD OF", 33.33},
                                                                          {"FEE", "NO SHARE", 33.33},
                                                                          {"NO COST", "HMO", 0},
                                                                          {"NO FEE", "HMO", 0},
                                                                          {"NURSE'S", "O'CO", 15}})
        EXPECT_DOUBLE_EQ(billing::ResolveSurchargedFee(place, fee, category), price) << fee << " " << category;
    for (const auto& statement : hospital.statements()) EXPECT_TRUE(isKnown("Hospital", statement)) << statement;
}

TEST(Amounts, AreReadAsPlainNumbersOnly) {
    struct Case {
        const char* text;
        double amount;
    };
    for (const auto& [text, amount] : std::initializer_list<Case>{
             {"1,234.50", 1234.5}, {"1,234,567", 1234567}, {" 12 ", 12}, {"0.5", 0.5}, {"0", 0}, {"1234.5", 1234.5}})
        EXPECT_EQ(billing::enteredAmount(text), amount) << text;
    const std::string endless(400, '9');
    for (const auto* text : {"", " ", "x", "-5", "+5", "1e9", "12,50", "1,23", "1,2345", "1.2.3", ".", "1 2", "0x10",
                             "inf", "nan", endless.c_str()})
        EXPECT_FALSE(billing::enteredAmount(text)) << text;
}

}  // namespace
}  // namespace test
