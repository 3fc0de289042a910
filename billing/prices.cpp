#include "billing/prices.h"

#include <array>

#include "core/session/session.h"
#include "core/texts/texts.h"

namespace billing {

using namespace db::literals;

namespace {

/// What the kinds of items differ in: the statements around an item and a tariff's key, and how a line starts. A drug
/// obliges the nurse to enter quantity and usage; a test or a service is complete at once.
struct Kind {
    const char* name;
    db::Sql tariff;      ///< up to the item
    db::Sql ownKey;      ///< between the item and a client's key
    db::Sql privateKey;  ///< the same ahead of the private tariff's
    db::Sql itemList;    ///< up to the item
    const char* listCategory;
    const char* quantity;
    const char* usage;
};

const Kind& theKind(ItemKind kind) {
    static const std::array<Kind, 3> kinds = {{
        {.name = "DRUG",
         .tariff = "select distinct  * from vwDrugNHIS where Drug ='"_sql,
         .ownKey = "'   and  coyID='"_sql,
         .privateKey = "' and  coyID='"_sql,
         .itemList = "select distinct  * from drugs where drgname ='"_sql,
         .listCategory = "drgCatName",
         .quantity = "0",
         .usage = ""},
        {.name = "LAB",
         .tariff = "select distinct  * from vwLabServiceNHIS where LabItem ='"_sql,
         .ownKey = "'and coyID='"_sql,
         .privateKey = "'   and coyID='"_sql,
         .itemList = "select distinct  * from labservices where drgname ='"_sql,
         .listCategory = "drgCatName",
         .quantity = "1",
         .usage = "***"},
        {.name = "SERVICE",
         .tariff = "select distinct  * from vwServiceNHIS where service ='"_sql,
         .ownKey = "'   and coyID='"_sql,
         .privateKey = "'   and coyID='"_sql,
         .itemList = "select distinct  * from hServices where service ='"_sql,
         .listCategory = "Category",
         .quantity = "1",
         .usage = "***"},
    }};
    return kinds.at(static_cast<std::size_t>(kind));
}

/// A number as a field shows it: Null counts as 0.
std::string counted(const db::Value& value) {
    return value.isNull() ? "0" : value.text();
}

PriceResult fromTemplate(ItemKind kind, const db::Recordset& row, PriceSource source) {
    const bool drug = kind == ItemKind::drug;
    return {.price = row["Price"].numberOr(0),
            .capitated = row["Capitated"].textOr(),
            .category = row["Category"].textOr(),
            .quantity = theKind(kind).quantity,
            .usage = theKind(kind).usage,
            .stock = drug ? counted(row["UnitsInStock"]) : "***",
            .unit = drug ? row["Qty/Unit"].textOr() : "1",
            .source = source,
            .messages = {}};
}

/// An item that no tariff has. What the item list knows of it makes the line complete at once.
PriceResult withoutTariff(core::Workplace& place, ItemKind kind, const std::string& itemName, WithoutTariff without) {
    const bool drug = kind == ItemKind::drug;
    PriceResult result;
    result.quantity = theKind(kind).quantity;
    result.usage = theKind(kind).usage;
    result.stock = drug ? "0" : "1";
    result.unit = drug ? "" : "***";
    result.messages = {"No price for this Item Please confirm"};
    if (without == WithoutTariff::nothing) return result;
    result.quantity = "1";
    result.usage = "***";
    const auto item = place.hospital().read(theKind(kind).itemList + core::quotesDoubled(itemName) + "'");
    if (item.empty()) return result;
    result.capitated = item["Capitated"].textOr();
    result.category = item[theKind(kind).listCategory].textOr();
    return result;
}

db::Recordset templateRow(core::Workplace& place, ItemKind kind, const std::string& itemName, const db::Sql& keyText,
                          const std::string& key) {
    return place.hospital().read(theKind(kind).tariff + core::quotesDoubled(itemName) + keyText +
                                 core::quotesDoubled(key) + "'");
}

PriceSource sourceOf(core::Workplace& place, const std::string& key) {
    return key == place.session.gPrivateTariff ? PriceSource::privateTariff : PriceSource::own;
}

}  // namespace

std::optional<ItemKind> itemKind(std::string_view text) {
    for (const auto kind : {ItemKind::drug, ItemKind::lab, ItemKind::service})
        if (text == theKind(kind).name) return kind;
    return std::nullopt;
}

const char* sourceText(PriceSource source) {
    switch (source) {
        case PriceSource::own:
            return "Own template";
        case PriceSource::privateTariff:
            return "Private tariff";
        case PriceSource::none:
            break;
    }
    return "No tariff";
}

std::string tariffKey(const std::string& clientCat, const std::string& retainID) {
    return clientCat == "NHIS" ? clientCat : retainID;
}

PriceResult ResolveTariffPrice(core::Workplace& place, ItemKind kind, const std::string& itemName,
                               const std::string& clientCat, const std::string& retainID, WithoutTariff without) {
    const auto key = tariffKey(clientCat, retainID);
    const auto row = templateRow(place, kind, itemName, theKind(kind).ownKey, key);
    // A price that is Null is one of 0 that somebody meant.
    if (!row.empty() && (row["Price"].isNull() || row["Price"].number() > 0))
        return fromTemplate(kind, row, sourceOf(place, key));
    auto result = ResolvePrivatePrice(place, kind, itemName, without);
    result.messages.insert(result.messages.begin(),
                           row.empty() ? "Price Template for this HMO/Company Yet to be Created! Proceed to use "
                                         "Hospital Private tariff"
                                       : "No price for this HMO/Company! Proceed to use Hospital Private tariff");
    return result;
}

PriceResult ResolvePrivatePrice(core::Workplace& place, ItemKind kind, const std::string& itemName,
                                WithoutTariff without) {
    const auto row = templateRow(place, kind, itemName, theKind(kind).privateKey, place.session.gPrivateTariff);
    return row.empty() ? withoutTariff(place, kind, itemName, without)
                       : fromTemplate(kind, row, PriceSource::privateTariff);
}

std::optional<PriceResult> ResolveTemplatePrice(core::Workplace& place, ItemKind kind, const std::string& itemName,
                                                const std::string& clientCat, const std::string& retainID) {
    const auto key = tariffKey(clientCat, retainID);
    const auto row = templateRow(place, kind, itemName, theKind(kind).ownKey, key);
    if (row.empty()) return std::nullopt;
    return fromTemplate(kind, row, sourceOf(place, key));
}

double ResolveSurchargedFee(core::Workplace& place, const std::string& feeName, const std::string& clientCat) {
    auto& hospital = place.hospital();
    const auto fee =
        hospital.read("select cost from qryhdrugPrice where drgname='"_sql + core::quotesDoubled(feeName) + "'");
    const auto category = hospital.read("select clientcatID,pcent,pvalue  from billingPrice where clientcatID='"_sql +
                                        core::quotesDoubled(clientCat) + "'");
    const double cost = fee.empty() ? 0 : fee["cost"].numberOr(0);
    const double surcharge = category.empty() ? 0 : category["pvalue"].numberOr(0);
    return cost * surcharge + cost;
}

}  // namespace billing
