// What is written into the templates.

#include "billing/amounts.h"
#include "billing/tariffs/tariffscreen.h"
#include "core/clock/clock.h"
#include "core/rows/cells.h"
#include "core/session/session.h"
#include "core/texts/texts.h"

namespace billing {

using namespace db::literals;

namespace {

/// A price may be raised tenfold in one step; beyond that a percentage is a slip of the finger.
constexpr double highestPercent = 1000;
/// Rows between two words of how far a template is.
constexpr std::size_t rowsAStep = 500;

void requireRow(const db::Recordset& row) {
    if (row.empty())
        throw db::Error(db::Category::other, "This item has left the tariff meanwhile: show the tariff again");
}

}  // namespace

bool TariffScreen::store(const std::function<void()>& writes) {
    const bool stored = saves(OKButton, [&] {
        session().gServerNow = core::GetServerNow(place());
        db::Transaction transaction(hospital());
        writes();
        transaction.commit();
    });
    admit();
    if (!stored) lblProgress.setCaption({});
    return stored;
}

void TariffScreen::OKButton_Click() {
    const auto percent = enteredAmount(cboPCent.text());
    if (!passes({{cboHMO.text().empty(), "Please specify Tariff Template Name", &cboHMO},
                 {derived() && cboUse.text().empty(), "Please specify Tariff to use for this Template", &cboUse},
                 {derived() && blank(cboPCent), "Please specify Percentage to use for this Template", &cboPCent},
                 {derived() && !percent, "Tariff Percentage has to be Numeric", &cboPCent},
                 {derived() && percent > highestPercent, "Tariff Percentage cannot be above 1000", &cboPCent},
                 {client_.key.empty(), "Please SELECT/Re-SELECT Company", &cboHMO},
                 {derived() && source().key.empty(), "Please SELECT/Re-SELECT Company Whose Tariff is Used", &cboUse}}))
        return;
    if (item_) return savePrice();
    saveTemplate();
}

void TariffScreen::saveTemplate() {
    const auto key = core::quotesDoubled(client_.key);
    const bool exists =
        !hospital().read("select * from "_sql + kind_.tableName + " where company='" + key + "'").empty();
    if (exists && !chkDel.checked() && source().key == client_.key) return reprice();
    if (!mayBuild(exists)) return;
    if (!passes({{cboDrug.text().empty(), "Please specify Tariff Status ", &cboDrug},
                 {chkAdd.checked() && blank(txtDrug), "Please specify Item Name", &txtDrug},
                 {chkAdd.checked() && !enteredAmount(txtPrice.text()), "Please specify Price", &txtPrice}}))
        return;
    if (!store([this] { chkAdd.checked() ? addItem() : build(); })) return;
    message("Record Succesfully saved!!! Price values can now be edited");
    if (chkDel.checked())
        audit("Deleted Existing Tariff, " + (kind_.addAudit + cboHMO.text()), client_.key,
              "Tariff Used:" + cboPCent.text() + "% of " + source().name);
    else
        audit(kind_.addAudit + cboHMO.text(), client_.key, "New Tariff Entry");
    reset();
    fillTemplates();
    showTemplate();
}

/// Asks before a template is built. An item is added to one that stands without a question.
bool TariffScreen::mayBuild(bool exists) {
    const auto about = "You are about to make bulk save of " + std::string(kind_.bulkWord) + " items ";
    const auto whose = "for " + client_.name + " Click YES to save items";
    if (!exists) return confirmed(about + whose, "bulk save");
    if (chkDel.checked())
        return confirmed(about + "'Deleting Existing " + kind_.bulkWord + " Tariff' " + whose, "bulk save");
    if (!chkAdd.checked()) refuse("Bulk entry already exists for " + client_.name, cboHMO);
    return chkAdd.checked();
}

/// A source without items builds and registers nothing, although the template before it may have been deleted.
void TariffScreen::build() {
    const auto key = core::quotesDoubled(client_.key);
    const auto kind = core::quotesDoubled(clientKind_);
    const auto sourceKey = core::quotesDoubled(source().key);
    const std::string type = kind_.type;
    if (chkDel.checked()) {
        hospital().execute("delete from DrugNHISListEntered where CoyID='"_sql + key + "' and type ='" + type + "'");
        hospital().execute("delete from "_sql + kind_.tableName + " where Company='" + key + "'");
    }
    const double factor = enteredAmount(cboPCent.text()).value_or(0) / 100;
    auto items =
        hospital().read(derived() ? "select *  from "_sql + kind_.tableName + " where company='" + sourceKey + "'"
                                  : ""_sql + kind_.items);
    if (items.empty()) return;
    copyItems(items, factor);
    const auto registered = "insert into DrugNHISListEntered(CoyID,Type,remarks,useTariff,Pcent) values ('"_sql + key +
                            "','" + type + "','" + kind + "','";
    hospital().execute(derived() ? registered + sourceKey + "'," + factor + ")" : registered + key + "',1)");
}

void TariffScreen::copyItems(db::Recordset& items, double factor) {
    const auto count = std::to_string(items.rowCount());
    for (; !items.eof(); items.moveNext()) {
        hospital().insertRow(
            kind_.table,
            {"drgName", "drgCatName", "pharmCat", "Capitated", "tariffStatus", "Price", "Company", "Remarks",
             "CoyName"},
            {items["drgName"], items["drgCatName"], items["pharmCat"], items["Capitated"],
             derived() ? items["tariffStatus"] : db::Value("FIXED"),
             derived() ? items["Price"].numberOr(0) * factor : 0.0, client_.key, clientKind_, client_.name});
        if ((items.row() + 1) % rowsAStep != 0) continue;
        lblProgress.setCaption("Building: " + std::to_string(items.row() + 1) + " of " + count + " items");
        desktop().showProgress();
    }
}

void TariffScreen::addItem() {
    hospital().insertRow(
        kind_.table,
        {"drgName", "drgCatName", "Price", "Company", "pharmCat", "Remarks", "CoyName", "Capitated", "tariffStatus"},
        {core::trimmed(txtDrug.text()), "XXXX", *enteredAmount(txtPrice.text()), client_.key, "XXXX", clientKind_,
         "XXXX", "NO", "FIXED"});
}

/// Prices are multiplied as they stand: done twice it compounds, and the register keeps its factor.
void TariffScreen::reprice() {
    if (!confirmed("Are you sure to update the Price List for " + client_.name + "?", "save")) return;
    const auto percent = cboPCent.text();
    std::int64_t prices = 0;
    if (!store([&] {
            prices = hospital().execute("update "_sql + kind_.tableName + " set price=price*" +
                                        *enteredAmount(percent) / 100 + "  where company='" +
                                        core::quotesDoubled(client_.key) + "'");
        }))
        return;
    audit(kind_.repriceAudit + percent + "%) for", "XXX", "Tariff Price Update");
    reset();
    showTemplate();
    lblProgress.setCaption(std::to_string(prices) + " prices are now at " + percent + "% of what they were");
}

void TariffScreen::savePrice() {
    const auto price = enteredAmount(txtPrice.text());
    if (!passes({{!price, kind_.priceMissing, &txtPrice},
                 {cboCap.text().empty(), "Please Specify Whether Capitated or Not ", &cboCap}}) ||
        !store([&] {
            db::Recordset row(hospital(), "select * from "_sql + kind_.tableName + " where SNo =" + item_->sno);
            requireRow(row);
            core::setCells(row, {{"tariffStatus", cboVal.text()},
                                 {"Capitated", cboCap.text()},
                                 {"Price", *price},
                                 {"Remarks", clientKind_}});
            row.update();
            passOn(*price);
        }))
        return;
    message("Record Succesfully Edited and Updated");
    audit(kind_.editAudit + txtDrug.text(), "OLD Price: " + item_->oldPrice, "New Price: " + txtPrice.text());
    reset();
    show(*list_);
    desktop().focus(grdData);
}

/// To the templates that follow this one, and to no further. It follows itself at 1.
void TariffScreen::passOn(double price) {
    auto followers =
        hospital().read("select distinct coyID,useTariff,pcent  from DrugNHISListEntered where type='"_sql +
                        std::string(kind_.type) + "' and useTariff='" + core::quotesDoubled(client_.key) + "'");
    for (; !followers.eof(); followers.moveNext()) {
        if (followers["pcent"].isNull()) continue;
        hospital().execute("update "_sql + kind_.tableName + " set price=" + price * followers["pcent"].number() +
                           " where Company ='" + core::quotesDoubled(followers["coyID"].textOr()) + "' and drgName='" +
                           core::quotesDoubled(txtDrug.text()) + "'");
    }
}

/// The templates that follow this one keep their price.
void TariffScreen::grdData_CellEdit() {
    const auto price = enteredAmount(grdData.edited().text);
    if (!price)
        return refuse(core::blank(grdData.edited().text) ? kind_.priceMissing
                                                         : "A price is a number of 0 or more, such as 1,250.50",
                      grdData);
    const auto item = cell(kind_.itemColumn);
    const auto key = cell("CoyID");
    if (!store([&] {
            db::Recordset row(hospital(), "select * from "_sql + kind_.tableName + " where SNo =" + cell("SNO"));
            requireRow(row);
            row.set("Price", *price);
            row.update();
        }))
        return;
    audit("Tariff Price Cell Update to: (" + db::numberText(*price) + ") for " + item, key);
    show(*list_);
    if (grdData.row() + 1 < static_cast<int>(grdData.rowCount())) grdData.setRow(grdData.row() + 1);
}

}  // namespace billing
