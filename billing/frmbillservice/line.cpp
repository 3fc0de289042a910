// A line: chosen, priced, put into the grid, taken out of it again.

#include "billing/amounts.h"
#include "billing/frmbillservice/frmbillservice.h"
#include "billing/prices.h"
#include "core/rows/entries.h"
#include "core/session/session.h"
#include "core/texts/texts.h"

using namespace db::literals;

namespace billing {
namespace {

/// The items of each kind, in the column `service`.
db::Sql itemsOf(ItemKind kind) {
    switch (kind) {
        case ItemKind::drug:
            return "select distinct drug as service from vwdrugsForGrid"_sql;
        case ItemKind::lab:
            return "select distinct labItem as service  from vwLabItemsForGrid"_sql;
        case ItemKind::service:
            break;
    }
    return "select distinct service from qryhServices"_sql;
}

}  // namespace

void frmBillService::cboCat_Click() {
    cboDrug.clear();
    const auto kind = itemKind(cboCat.text());
    if (!kind) return;
    core::addEntries(cboDrug, hospital().readShared(itemsOf(*kind)),
                     [](const db::Recordset& row) { return row["service"].textOr(); });
}

void frmBillService::cboDrug_Click() {
    const auto kind = itemKind(cboCat.text());
    lblSource.setCaption({});
    if (!kind || cboDrug.index() < 0) return;
    if (blank(lblClient)) {
        cboDrug.clearText();
        return refuse("Client Category field cannot be empty please select Patient", cboVehNo);
    }
    const auto found = ResolveTariffPrice(place(), *kind, cboDrug.text(), lblClient.caption(), retainID_);
    for (const auto& text : found.messages) message(text);
    txtPrice.setText(core::moneyText(found.price));
    if (found.capitated) core::showEntry(cboCap, *found.capitated);
    lblCat.setCaption(found.category);
    txtQty.setText(found.quantity);
    txtUsage.setText(found.usage);
    lblSource.setCaption(sourceText(found.source));
    if (*kind == ItemKind::drug) desktop().focus(txtQty);
}

bool frmBillService::noPatient() const {
    return blank(cboVehNo) || blank(lblBill);
}

void frmBillService::cmdAdd_Click() {
    for (std::size_t line = 0; line < OrderGridDrug.lineCount(); ++line)
        if (OrderGridDrug.text(line, item) == cboDrug.text()) message("Duplicate Entry Detected please Confirm");
    const bool drug = cboCat.text() == "DRUG";
    const auto priceTyped = enteredAmount(txtPrice.text());
    const auto unitsTyped = enteredAmount(txtQty.text());
    const auto none = [](const ui::TextBox& box, const std::optional<double>& amount) {
        return blank(box) || amount == 0.0;
    };
    if (passes({{noPatient(), "Select a Patient for this Billing Analysis", &cboVehNo},
                {blank(cboReason), "Select Name of Nurse that Billed", &cboReason},
                {blank(cboDrug), "Please specify a Drug/Service No ", &cboDrug},
                {cboCap.text().empty(), "Please specify a Whether Capitated or Not", &cboCap},
                {none(txtPrice, priceTyped), "Cannot add this line without a price to Grid !!!  "},
                {drug && none(txtQty, unitsTyped), "Please specify Quantity of Drug prescribed", &txtQty},
                {drug && txtUsage.text().empty(), "Please specify usage of Drug/Service", &txtUsage},
                {!priceTyped, "The price is a plain number above 0, such as 1,234.50", &txtPrice},
                {!unitsTyped, "The quantity is a plain number, such as 3 or 0.5", &txtQty},
                {priceTyped && unitsTyped && *priceTyped * *unitsTyped >= amountLimit,
                 "This quantity or price is too large", &txtQty}}))
        addLine();
}

/// What is stored later are the texts as they are shown here, read back.
void frmBillService::addLine() {
    const auto plain = [](const ui::TextBox& box) { return db::numberText(enteredAmount(box.text()).value()); };
    const double sub = core::roundedToCents(*enteredAmount(txtPrice.text()) * *enteredAmount(txtQty.text()));
    txtSub.setText(core::moneyText(sub));
    OrderGridDrug.addLine({cboDrug.text(), lblCat.caption(), plain(txtPrice), plain(txtQty), plain(txtSub),
                           txtUsage.text(), cboCap.text(), cboCat.text(), "NEW", session().gClientCode, retainID_});
    runningTotal_ = core::roundedToCents(runningTotal_ + sub);
    lblTotal.setCaption(core::moneyText(runningTotal_));
    clearLine();
    desktop().focus(cboDrug);
}

void frmBillService::clearLine() {
    for (auto* list : {&cboCap, &cboDrug}) list->clearText();
    txtUsage.clear();
    for (auto* amount : {&txtQty, &txtSub, &txtPrice}) amount->setText("0");
    lblCat.setCaption("0");
    lblSource.setCaption({});
}

/// The first line takes the whole tally with it, whatever lines remain.
void frmBillService::OrderGridDrug_DblClick() {
    const auto picked = OrderGridDrug.picked();
    if (!picked) return;
    if (OrderGridDrug.text(*picked, status) == "OLD")
        return message("This row cannot be Deleted! Already in the Database");
    OrderGridDrug.takeBack([this](std::size_t line, const core::EntryGrid::Line& cells) {
        const double sub = db::Value(cells[subTotal]).number();
        runningTotal_ = line == 0 ? 0 : core::roundedToCents(runningTotal_ - sub);
        lblTotal.setCaption(db::numberText(runningTotal_));
    });
}

}  // namespace billing
