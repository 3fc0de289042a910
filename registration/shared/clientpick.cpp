#include "registration/shared/clientpick.h"

#include "core/rows/entries.h"
#include "core/session/session.h"

namespace registration {

using namespace db::literals;

bool isManagedCare(std::string_view category) {
    return category == "PHIS" || category == "HMO" || category == "NHIS";
}

void ClientPick::loadClients(bool withPrivate) {
    lists_.cboPat.clear();
    if (withPrivate) lists_.cboPat.add("(PRIVATE) [0001]");
    core::addEntries(
        lists_.cboPat, place_.hospital(),
        "select distinct RetainID,ClientName from vwhRetainerShip order by ClientName"_sql,
        [](const db::Recordset& row) { return core::entryText(row["ClientName"].textOr(), row["RetainID"].textOr()); });
}

bool ClientPick::isPrivate() const {
    return picked_.retainID == place_.session.gPrivateTariff;
}

void ClientPick::forget() {
    picked_.retainID.clear();
    retainCode_.clear();
}

bool ClientPick::pickClient() {
    const auto entry = core::entryOf(lists_.cboPat.text());
    if (lists_.cboPat.index() < 0 || entry.key.empty()) return false;
    picked_.retainID = entry.key;
    picked_.name = entry.name;
    offerCategoriesOf(entry.key);
    return true;
}

void ClientPick::offerCategoriesOf(const std::string& retainID) {
    lists_.cboClient.clear();
    lists_.cboClient.add("");
    auto& hospital = place_.hospital();
    const auto client =
        hospital.read("select distinct ClientType,retainCode from hRetainerShip where retainID='"_sql + retainID + "'");
    const auto type = client.empty() ? std::string() : client["ClientType"].textOr();
    retainCode_ = client.empty() ? std::string() : client["retainCode"].textOr();
    core::addColumn(lists_.cboClient, hospital,
                    "select distinct clientCatID  from billingPrice where clientType='"_sql + type + "'",
                    "clientCatID");
    if (lists_.cboClient.items().size() == 1) offerAllCategories();
}

void ClientPick::offerAllCategories() {
    lists_.cboClient.clear();
    lists_.cboClient.add("");
    core::addColumn(lists_.cboClient, place_.hospital(), "select distinct clientCatID  from billingPrice"_sql,
                    "clientCatID");
}

void ClientPick::pickCategory() {
    const auto category = lists_.cboClient.text();
    if (category.empty()) return;
    picked_.category = category;
    const auto types = place_.hospital().read("select distinct clientType  from billingPrice where clientCatID='"_sql +
                                              category + "'");
    picked_.type = types.empty() ? "COMPANY" : types["clientType"].textOr();
    offerPlansOf(category);
}

void ClientPick::offerPlansOf(const std::string& category) {
    if (isManagedCare(category))
        loadPlans();
    else
        offerNoPlans();
}

void ClientPick::loadPlans() {
    const auto plans =
        place_.hospital().read("select distinct PlanName,PlanID,retainID from vwhmoPlan where retainID='"_sql +
                               picked_.retainID + "'  order by PlanName");
    if (plans.empty()) return offerNoPlans();
    lists_.txtPolicy.clear();
    lists_.txtPolicy.add("");
    for (std::size_t row = 0; row < plans.rowCount(); ++row)
        lists_.txtPolicy.add(core::entryText(plans.value(row, 0).textOr(), plans.value(row, 1).textOr()));
}

void ClientPick::offerNoPlans() {
    lists_.txtPolicy.clear();
    lists_.txtPolicy.add("");
    lists_.txtPolicy.add("NIL");
    lists_.txtPolicy.setText("NIL");
}

bool isClient(db::Connection& hospital, const std::string& retainID) {
    return !hospital.read("Select retainCode ,retainName from hretainership where retainID='"_sql + retainID + "'")
                .empty();
}

}  // namespace registration
