#include "billing/frmdrugprice/frmdrugprice.h"

#include <array>

#include "billing/amounts.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/texts/texts.h"
#include "db/letters.h"

namespace billing {

using namespace db::literals;
using ui::Event;

namespace {

/// A tariff group: the list's column with its price, its name in the item's rows, and what is said without a price.
struct Group {
    const char* column;
    const char* remarks;
    const char* without;
};
constexpr std::array<Group, 8> groups = {{{"PRIVATE", "PRIVATE", "Price Field cannot be empty"},
                                          {"NHIS", "NHIS", "NHIS Price Field cannot be empty"},
                                          {"Mthly", "MTHLY", "One Monthly Field cannot be empty"},
                                          {"3Mthly", "3MTHLY", "Three Monthly Field cannot be empty"},
                                          {"6Mthly", "6MTHLY", "Six Monthly Field cannot be empty"},
                                          {"CBN", "CBN", "CBN Field cannot be empty"},
                                          {"NEPA", "NEPA", "NEPA Field cannot be empty"},
                                          {"HMO", "HMO", nullptr}}};

/// The share of the private price that is proposed for NHIS: one part in so many.
constexpr double parts = 10;

}  // namespace

frmDrugPrice::frmDrugPrice(core::Workplace& place) : RecordForm(place, "frmDrugPrice", "Admission Service Price") {
    core::Fields fields = {{&txtDrug, "Drug"}, {&txtCat, "Category"}, {&txtDosage, "qty/Unit"}};
    for (const auto& group : groups) {
        auto& price = txtFlds.emplace_back(*this, "txtFlds(" + std::to_string(txtFlds.size()) + ")");
        fields.add({&price, group.column});
    }
    keep(std::move(fields));
    bind(cboCat, Event::click, [this] {
        txtSearch.clear();
        showList();
    });
    bind(txtSearch, Event::change, &frmDrugPrice::showList);
    bind(txtFlds[0], Event::lostFocus, &frmDrugPrice::proposeNHIS);
    bind(cmdNew, Event::click, [this] { desktop().show("frmStockItems"); });
}

void frmDrugPrice::fillLists() {
    core::fill(cboCat, {""});
    core::addColumn(cboCat, hospital(), "select distinct  Drgcatname from qryhAdmissionService"_sql, "Drgcatname");
}

/// What is typed looks among all items, a category among those of the wards.
db::Sql frmDrugPrice::wanted() const {
    if (!blank(txtSearch))
        return "select * from vwDrugsForGrid where Drug like '"_sql + core::quotesDoubled(txtSearch.text()) +
               "%' order by Drug";
    if (blank(cboCat)) return "select * from vwAdmissionServiceForGrid"_sql;
    return "select * from vwAdmissionServiceForGrid where Category='"_sql + core::quotesDoubled(cboCat.text()) + "'";
}

void frmDrugPrice::showList() {
    core::refreshRows(grdData, hospital().read(wanted()), {"Drug"});
    lblRec.setCaption(std::to_string(grdData.rows().rowCount()) + " Records");
}

void frmDrugPrice::startAdding() {
    desktop().focus(txtDrug);
}

void frmDrugPrice::startEditing() {
    RecordForm::startEditing();
    item_ = grdData.text("Drug");
    desktop().focus(txtFlds[0]);
}

void frmDrugPrice::proposeNHIS() {
    if (const auto price = enteredAmount(txtFlds[0].text())) txtFlds[1].setText(db::numberText(*price / parts));
}

std::vector<core::Check> frmDrugPrice::checks() {
    std::vector<core::Check> list = {{txtDrug.text().empty(), "Drug name Field cannot be empty", &txtDrug}};
    for (std::size_t at = 0; at < groups.size(); ++at)
        if (groups[at].without) list.push_back({txtFlds[at].text().empty(), groups[at].without, &txtFlds[at]});
    list.push_back({txtCat.text().empty(), "Category cannot be empty", &txtCat});
    list.push_back({txtDosage.text().empty(), "Unit Dosage cannot be empty", &txtDosage});
    list.push_back({!isPrice(txtFlds[0].text()), "Price field cannot be negative or contain a Character", &txtFlds[0]});
    list.push_back(
        {!isPrice(txtFlds[1].text()), "NHIS Price field cannot be negative or contain a Character", &txtFlds[1]});
    for (std::size_t at = 2; at < groups.size(); ++at)
        list.push_back({!isPrice(txtFlds[at].text()), "This is no price", &txtFlds[at]});
    return list;
}

/// The item's rows are written anew, one a group. Nothing is written for an item that is not in the list.
std::optional<core::Refusal> frmDrugPrice::write() {
    if (!editing()) return std::nullopt;
    const auto item = core::quotesDoubled(item_);
    hospital().execute("delete from drugs where drgname = '"_sql + item + "'");
    db::Recordset rows(hospital(), "select * from Drugs where drgname ='"_sql + item + "'");
    for (std::size_t at = 0; at < groups.size(); ++at) {
        rows.addNew();
        core::setCells(rows, {{"drgName", txtDrug.text()},
                              {"drgCatName", txtCat.text()},
                              {"qtyPerUnit", txtDosage.text()},
                              {"Cost", enteredAmount(txtFlds[at].text()).value_or(0)},
                              {"NHIScost", 0},
                              {"Remarks", groups[at].remarks}});
        rows.update();
    }
    return std::nullopt;
}

void frmDrugPrice::committed() {
    if (editing()) message("Record Succesfully updated");
    item_ = txtDrug.text();
}

void frmDrugPrice::finished() {
    core::selectRow(grdData, "Drug", item_);
}

std::optional<core::Refusal> frmDrugPrice::erase() {
    return core::Refusal{" Sorry cannot delete record, see the store Officer "};
}

ui::Control* frmDrugPrice::controlOf(std::string_view column) {
    if (db::sameName(column, "drgName")) return &txtDrug;
    if (db::sameName(column, "drgCatName")) return &txtCat;
    return db::sameName(column, "qtyPerUnit") ? &txtDosage : nullptr;
}

}  // namespace billing
