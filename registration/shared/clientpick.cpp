#include "registration/shared/clientpick.h"

#include "core/care/staylimit.h"
#include "core/rows/entries.h"
#include "core/session/session.h"

namespace registration {

using namespace db::literals;

ClientPick::ClientPick(core::Workplace& place, ui::Screen& screen, ui::ComboBox::Style clients, const Picked& picked)
    : Part(place, screen), cboPat(screen, "cboPat", clients, ui::upperCase), picked_(picked) {
    for (auto* list : {&CboRef, &cboRefHmo}) core::fill(*list, {"", "YES", "NO"});
}

void ClientPick::loadClients(bool withPrivate) {
    cboPat.clear();
    if (withPrivate) cboPat.add("(PRIVATE) [0001]");
    core::addEntries(
        cboPat, hospital(), "select distinct RetainID,ClientName from vwhRetainerShip order by ClientName"_sql,
        [](const db::Recordset& row) { return core::entryText(row["ClientName"].textOr(), row["RetainID"].textOr()); });
}

bool ClientPick::isPrivate() const {
    return picked_.retainID == session().gPrivateTariff;
}

void ClientPick::forget() {
    for (auto* list : {&cboPat, &cboClient}) list->clearText();
    picked_.retainID.clear();
    retainCode_.clear();
}

bool ClientPick::pickClient() {
    const auto entry = core::entryOf(cboPat.text());
    if (cboPat.index() < 0 || entry.key.empty()) return false;
    picked_.retainID = entry.key;
    picked_.name = entry.name;
    offerCategoriesOf(entry.key);
    return true;
}

void ClientPick::show(const Client& stored, const std::string& plan) {
    shown_ = stored;
    picked_.retainID = stored.retainID;
    picked_.name = stored.name;
    picked_.category = stored.category;
    picked_.type = stored.type;
    core::showEntry(cboPat, stored.name.empty() ? std::string() : core::entryText(stored.name, stored.retainID));
    offerCategoriesOf(stored.retainID);
    core::showEntry(cboClient, stored.category);
    offerPlansOf(stored.category);
    core::showEntry(txtPolicy, plan);
}

std::string ClientPick::change() const {
    if (picked_.retainID == shown_.retainID) return {};
    return "Changed Company from " + shown_.retainID + ":" + shown_.name + " to " + picked_.retainID + ":" +
           picked_.name;
}

void ClientPick::offerCategoriesOf(const std::string& retainID) {
    cboClient.clear();
    cboClient.add("");
    const auto client = hospital().read(
        "select distinct ClientType,retainCode from hRetainerShip where retainID='"_sql + retainID + "'");
    const auto type = client.empty() ? std::string() : client["ClientType"].textOr();
    retainCode_ = client.empty() ? std::string() : client["retainCode"].textOr();
    core::addColumn(cboClient, hospital(),
                    "select distinct clientCatID  from billingPrice where clientType='"_sql + type + "'",
                    "clientCatID");
    if (cboClient.items().size() == 1) offerAllCategories();
}

void ClientPick::offerAllCategories() {
    cboClient.clear();
    cboClient.add("");
    core::addColumn(cboClient, hospital(), "select distinct clientCatID  from billingPrice"_sql, "clientCatID");
}

void ClientPick::pickCategory() {
    const auto category = cboClient.text();
    if (category.empty()) return;
    picked_.category = category;
    const auto types =
        hospital().read("select distinct clientType  from billingPrice where clientCatID='"_sql + category + "'");
    picked_.type = types.empty() ? "COMPANY" : types["clientType"].textOr();
    offerPlansOf(category);
}

void ClientPick::offerPlansOf(const std::string& category) {
    if (core::isManagedCare(category))
        loadPlans();
    else
        offerNoPlans();
}

void ClientPick::loadPlans() {
    const auto plans = hospital().read("select distinct PlanName,PlanID,retainID from vwhmoPlan where retainID='"_sql +
                                       picked_.retainID + "'  order by PlanName");
    if (plans.empty()) return offerNoPlans();
    txtPolicy.clear();
    txtPolicy.add("");
    for (std::size_t row = 0; row < plans.rowCount(); ++row)
        txtPolicy.add(core::entryText(plans.value(row, 0).textOr(), plans.value(row, 1).textOr()));
}

void ClientPick::offerNoPlans() {
    txtPolicy.clear();
    txtPolicy.add("");
    txtPolicy.add("NIL");
    txtPolicy.setText("NIL");
}

bool isClient(db::Connection& hospital, const std::string& retainID) {
    return !hospital.read("Select retainCode ,retainName from hretainership where retainID='"_sql + retainID + "'")
                .empty();
}

}  // namespace registration
