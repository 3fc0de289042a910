#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/session/workplace.h"

namespace billing {

/// What is charged for. Each kind has its tariff templates and its list of all items.
enum class ItemKind { drug, lab, service };
/// "DRUG", "LAB" or "SERVICE" as a kind; nothing for another text.
std::optional<ItemKind> itemKind(std::string_view text);

enum class PriceSource {
    own,            ///< the template of the patient's client
    privateTariff,  ///< the hospital's own, `gPrivateTariff`
    none,           ///< no tariff has the item
};
/// "Own template", "Private tariff", "No tariff": what stands beside a price.
const char* sourceText(PriceSource source);

/// What a look-up found, as it fills the fields of an entry screen.
struct PriceResult {
    double price = 0;                      ///< in naira, unrounded
    std::optional<std::string> capitated;  ///< "YES", "NO" or ""; nothing: the field keeps what it shows
    std::string category;
    std::string quantity;  ///< what the field starts with
    std::string usage;
    std::string stock;  ///< units in stock; "***" where none are counted
    std::string unit;   ///< what one unit holds
    PriceSource source = PriceSource::none;
    std::vector<std::string> messages;  ///< to be shown in this order, each in a box, before the fields are filled
};

/// Where the category and the capitation of an item come from that no tariff has.
enum class WithoutTariff {
    itemList,  ///< from the list of all items
    nothing,   ///< they stay empty
};

/// The key of a client's tariff: all patients of the scheme "NHIS" share one, all others have their client's.
std::string tariffKey(const std::string& clientCat, const std::string& retainID);

/// The price of an item for a patient: from the client's template, and from the private tariff where that has no row or
/// no price above 0. Reads, and writes nothing. Throws db::Error.
PriceResult ResolveTariffPrice(core::Workplace& place, ItemKind kind, const std::string& itemName,
                               const std::string& clientCat, const std::string& retainID,
                               WithoutTariff without = WithoutTariff::itemList);
/// The price under the private tariff, 0 where that has no row. Throws db::Error.
PriceResult ResolvePrivatePrice(core::Workplace& place, ItemKind kind, const std::string& itemName,
                                WithoutTariff without = WithoutTariff::itemList);
/// The row of the client's template alone, without messages; nothing where it has none. Throws db::Error.
std::optional<PriceResult> ResolveTemplatePrice(core::Workplace& place, ItemKind kind, const std::string& itemName,
                                                const std::string& clientCat, const std::string& retainID);

/// A named fee in naira: its cost, raised by the share that the client category is surcharged with. Unrounded; a fee
/// that is not known costs 0, a category that is not known is surcharged nothing. Throws db::Error.
double ResolveSurchargedFee(core::Workplace& place, const std::string& feeName, const std::string& clientCat);

}  // namespace billing
