#include "billing/frmstockitems/frmstockitems.h"

#include "billing/amounts.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/texts/texts.h"

namespace billing {

using namespace db::literals;
using ui::Event;

namespace {

/// An empty price is Null.
db::Value priceIn(const ui::TextBox& field) {
    const auto price = enteredAmount(field.text());
    return price ? db::Value(*price) : db::Value();
}

}  // namespace

frmStockItems::frmStockItems(core::Workplace& place) : RecordForm(place, "frmStockItems", "Service Items") {
    keep({{&txtName, "Service", "drgName"},
          {&cboCat, "Category", "drgCatName"},
          {&txtQty, "Qty/Unit", "qtyPerUnit"},
          {&txtPrice, nullptr, "Cost"},
          {&txtPrice2, nullptr, "NHIScost"}});
    bind(txtSearch, Event::change, &frmStockItems::showList);
    bind(cmdPrice, Event::click, [this] { desktop().show("frmDrugPrice"); });
}

void frmStockItems::fillLists() {
    core::fill(cboCat, {" "});
    core::addColumn(cboCat, hospital(), "select drgCatname from drugcategories where deptbillcenter= 'ADMISSION'"_sql,
                    "drgCatname");
}

void frmStockItems::showList() {
    auto items =
        "select distinct  drgName as Service, drgCatName as Category, qtyPerUnit as [Qty/Unit]  from "
        "qryhAdmissionService"_sql;
    if (!blank(txtSearch))
        items += " where drgName like '"_sql + core::quotesDoubled(txtSearch.text()) + "%' order by drgName";
    core::refreshRows(grdData, hospital().read(items), {"Service", "Category", "Qty/Unit"});
}

void frmStockItems::startAdding() {
    desktop().focus(txtName);
}

db::Sql frmStockItems::rowsOfItem() const {
    return "select * from drugs where drgname='"_sql + core::quotesDoubled(item_) + "'";
}

void frmStockItems::startEditing() {
    RecordForm::startEditing();
    item_ = grdData.text("Service");
    const auto row = hospital().read(rowsOfItem());
    if (!row.empty()) {
        txtPrice.setText(row["Cost"].textOr());
        txtPrice2.setText(row["NHIScost"].textOr());
    }
    desktop().focus(txtName);
}

std::vector<core::Check> frmStockItems::checks() {
    return {{txtName.text().empty(), "Please specify Service name", &txtName},
            {blank(cboCat), "Please specify Category name", &cboCat},
            {!isPrice(txtPrice.text()), "This is no price", &txtPrice},
            {!isPrice(txtPrice2.text()), "This is no price", &txtPrice2}};
}

std::optional<core::Refusal> frmStockItems::write() {
    db::Recordset row(hospital(), editing() ? rowsOfItem() : "select * from Drugs where 1=2"_sql);
    if (adding()) row.addNew();
    core::setCells(row, {{"drgName", txtName.text()},
                         {"drgCatName", cboCat.text()},
                         {"qtyPerUnit", txtQty.text()},
                         {"Cost", priceIn(txtPrice)},
                         {"NHIScost", priceIn(txtPrice2)},
                         {"Remarks", "PRIVATE"}});
    row.update();
    return std::nullopt;
}

void frmStockItems::committed() {
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
    item_ = txtName.text();
}

void frmStockItems::finished() {
    core::selectRow(grdData, "Service", item_);
}

std::optional<core::Refusal> frmStockItems::erase() {
    hospital().execute("Delete  from Drugs where drgname = '"_sql + core::quotesDoubled(grdData.text("Service")) + "'");
    return std::nullopt;
}

void frmStockItems::erased() {
    message("Record successfully Deleted");
    showList();
}

}  // namespace billing
