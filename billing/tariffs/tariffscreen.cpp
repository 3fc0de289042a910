#include "billing/tariffs/tariffscreen.h"

#include <algorithm>
#include <cmath>

#include "billing/amounts.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "core/texts/figtowrd.h"
#include "core/texts/texts.h"
#include "db/letters.h"

namespace billing {

using namespace db::literals;
using ui::Event;

namespace {

constexpr const char* writingRole = "TARIFF";
constexpr const char* allCategories = "(ALL)";
/// Characters of a price: below it every double still has its kobo.
constexpr std::size_t longestPrice = 13;

/// A factor as a percentage without trailing zeros: 0.9 as "90".
std::string percentText(double factor) {
    constexpr double digits = 1e6;  // a factor is a percentage divided by 100, which leaves a trace in its last digits
    return db::numberText(std::round(factor * 100 * digits) / digits);
}

void addClients(ui::ComboBox& list, db::Connection& hospital, const db::Sql& clients) {
    list.clear();
    auto rows = hospital.read(clients);
    list.expect(rows.rowCount());
    for (; !rows.eof(); rows.moveNext())
        list.add(core::entryText(rows["company"].textOr(), rows["coyID"].textOr()), rows["coyID"].textOr());
}

}  // namespace

TariffScreen::TariffScreen(core::Workplace& place, const TariffKind& kind)
    : Form(place, kind.screen, kind.caption), kind_(kind) {
    if (kind.listsByCategory) cboView.emplace(*this, "cboView", ui::ComboBox::Style::listOnly);
    for (ui::Control* control :
         std::initializer_list<ui::Control*>{&cboHMO, &chkShow, &cboDrug, &cboUse, &cboPCent, &chkDel, &chkAdd})
        control->heldBy(Frame2);
    for (ui::Control* control :
         std::initializer_list<ui::Control*>{&txtDrug, &lblCat, &txtPrice, &lblWord, &cboCap, &cboVal})
        control->heldBy(Frame1);
    for (const auto* column : {"SNO", "coyID"}) grdData.hideColumn(column);
    txtPrice.setMaxLength(longestPrice);

    bind(cboHMO, Event::click, &TariffScreen::cboHMO_Click);
    bind(cboDrug, Event::click, &TariffScreen::cboDrug_Click);
    if (cboView) bind(*cboView, Event::click, &TariffScreen::cboView_Click);
    bind(chkShow, Event::click, &TariffScreen::chkShow_Click);
    bind(chkAdd, Event::click, &TariffScreen::chkAdd_Click);
    bind(txtPrice, Event::change, &TariffScreen::txtPrice_Change);
    bind(txtSearch, Event::change, &TariffScreen::txtSearch_Change);
    bind(cmdAdd, Event::click, &TariffScreen::cmdAdd_Click);
    bind(cmdEdit, Event::click, &TariffScreen::cmdEdit_Click);
    bind(grdData, Event::dblClick, &TariffScreen::cmdEdit_Click);
    bind(grdData, Event::cellEdit, &TariffScreen::grdData_CellEdit);
    bind(OKButton, Event::click, &TariffScreen::OKButton_Click);
    bind(cmdCancel, Event::click, [this] {
        reset();
        desktop().focus(cboHMO);
    });
    bind(cmdRefresh, Event::click, &TariffScreen::cmdRefresh_Click);
    bind(CancelButton, Event::click, [this] { close(); });
}

void TariffScreen::load() {
    admit();
    Frame1.setEnabled(false);
    Frame2.setEnabled(true);
    trapped([this] { fillLists(); });
}

void TariffScreen::admit() {
    const bool writes = session().gModuleRole == writingRole;
    cmdAdd.setEnabled(writes);
    OKButton.setEnabled(writes);
    grdData.setEditable(writes ? "Price" : "");
}

void TariffScreen::fillLists() {
    cboPCent.clear();
    cboPCent.add("");
    for (int percent = 10; percent <= 100; percent += 10) cboPCent.add(std::to_string(percent));
    core::fill(cboDrug, {"YES", "NO"});
    core::fill(cboCap, {"YES", "NO"});
    core::fill(cboVal, {"FIXED"});
    cboDrug_Click();
    fillClients();
    fillTemplates();
    if (!cboView) return;
    core::fill(*cboView, {allCategories});
    core::addColumn(*cboView, hospital(), "select distinct catName from HserviceCat"_sql, "catName");
}

void TariffScreen::fillClients() {
    addClients(cboHMO, hospital(),
               chkShow.checked()
                   ? "select company,coyID from vwCoyAndNHIS where coyID not in (Select CoyID from DrugNHISListEntered "
                     "where Type='"_sql +
                         std::string(kind_.type) + "') order by Company"
                   : "select company,coyID from vwCoyAndNHIS order by Company"_sql);
}

void TariffScreen::fillTemplates() {
    addClients(cboUse, hospital(),
               "select coyname as company,coyID from vwDrugNHISListEntered where type='"_sql + std::string(kind_.type) +
                   "'  order by coyname");
}

/// The entry's name may hold brackets of its own.
TariffScreen::Client TariffScreen::picked(const ui::ComboBox& list) {
    const auto key = list.key();
    const auto name = list.text().substr(0, list.text().size() - std::min(list.text().size(), key.size() + 2));
    return {key, core::trimmed(name)};
}

void TariffScreen::cboHMO_Click() {
    leaveItem();
    client_ = picked(cboHMO);
    lblTitle.setCaption(client_.name + " Tariff");
    const auto row =
        hospital().read("select * from vwCoyAndNhis where coyID='"_sql + core::quotesDoubled(client_.key) + "'");
    clientKind_ = row.empty() ? "HMO" : row["Remarks"].textOr("HMO");
    showTemplate();
}

void TariffScreen::forgetClient() {
    leaveItem();
    client_ = {};
    clientKind_.clear();
    for (auto* label : {&lblTitle, &lblTariff, &lblProgress}) label->setCaption({});
    list_.reset();
    grdData.clear();
    txtSearch.clear();
}

void TariffScreen::showTemplate() {
    lblProgress.setCaption({});
    if (cboView) cboView->setIndex(-1);
    if (txtSearch.text().empty())
        show(""_sql + kind_.list + core::quotesDoubled(client_.key) + kind_.order);
    else
        txtSearch.clear();  // which shows it
    showOrigin();
}

void TariffScreen::show(const db::Sql& list) {
    list_ = list;
    core::refreshRows(grdData, hospital().read(list), {"SNO"});
}

void TariffScreen::showOrigin() {
    const auto row =
        hospital().read("select UseName,UseTariff,pcent from vwhRetainershipUseTariff where type='"_sql +
                        std::string(kind_.type) + "' and coyID='" + core::quotesDoubled(client_.key) + "'");
    if (row.empty() || row["UseTariff"].isNull())
        lblTariff.setCaption("NONE");
    else if (row["UseTariff"].text() == client_.key)
        lblTariff.setCaption("OWN TARIFF");
    else
        lblTariff.setCaption(percentText(row["pcent"].numberOr(0)) + "% of " + row["UseName"].textOr());
}

void TariffScreen::cboDrug_Click() {
    for (auto* list : {&cboUse, &cboPCent}) list->setVisible(derived());
}

void TariffScreen::chkShow_Click() {
    forgetClient();
    fillClients();
}

void TariffScreen::chkAdd_Click() {
    leaveItem();
    if (!chkAdd.checked()) return;
    Frame1.setVisible(true);
    Frame1.setEnabled(true);
    txtDrug.setEnabled(true);
    desktop().focus(txtDrug);
}

void TariffScreen::cmdAdd_Click() {
    leaveItem();
    Frame2.setVisible(true);
    Frame2.setEnabled(true);
    Frame1.setVisible(false);
    desktop().focus(client_.key.empty() ? cboHMO : cboDrug);
}

std::string TariffScreen::cell(const char* column) const {
    return grdData.row() >= 0 && grdData.rows().hasField(column) ? grdData.text(column) : std::string();
}

/// The list of all clients shows items that are another's: their price would be passed on in the wrong template.
void TariffScreen::cmdEdit_Click() {
    if (cell("SNO").empty()) return refuse("No Item to Edit. Select a Company Tariff to Display Items to Edit", cboHMO);
    if (cell("CoyID") != client_.key)
        return refuse("This item is of another tariff: select " + cell("Company") + " to edit it", cboHMO);
    chkAdd.setChecked(false);
    item_ = Item{cell("SNO"), cell("Price")};
    Frame1.setVisible(true);
    Frame1.setEnabled(true);
    txtDrug.setEnabled(false);
    txtDrug.setText(cell(kind_.itemColumn));
    const auto price = enteredAmount(item_->oldPrice);
    txtPrice.setText(price && *price == 0 ? std::string() : item_->oldPrice);
    const auto orElse = [](const std::string& text, const char* otherwise) { return text.empty() ? otherwise : text; };
    core::showEntry(cboCap, orElse(cell("Capitated"), "NO"));
    core::showEntry(cboVal, orElse(cell("TariffStatus"), "FIXED"));
    lblCat.setCaption(cell("Category"));
    desktop().focus(txtPrice);
}

/// Neither an item is corrected nor one added.
void TariffScreen::leaveItem() {
    clearProblems();
    item_.reset();
    Frame1.setEnabled(false);
    for (auto* box : {&txtDrug, &txtPrice}) box->clear();
    for (auto* list : {&cboCap, &cboVal}) list->clearText();
    lblCat.setCaption({});
}

void TariffScreen::reset() {
    leaveItem();
    for (auto* list : {&cboDrug, &cboUse, &cboPCent}) list->clearText();
    for (auto* box : {&chkDel, &chkAdd}) box->setChecked(false);
    lblProgress.setCaption({});
    cboDrug_Click();
}

void TariffScreen::cmdRefresh_Click() {
    reset();
    forgetClient();
    chkShow.setChecked(false);
    load();
}

void TariffScreen::txtPrice_Change() {
    core::figToWrd words;
    words.setUseCase(1);
    const auto price = enteredAmount(txtPrice.text());
    lblWord.setCaption(price ? words.Num2String(*price) : std::string());
}

void TariffScreen::txtSearch_Change() {
    const auto wanted = core::quotesDoubled(txtSearch.text());
    if (client_.key.empty()) {
        if (!wanted.empty()) refuse(kind_.searchWithoutClient, cboHMO);
        return;
    }
    const auto list = ""_sql + kind_.list + core::quotesDoubled(client_.key);
    show(wanted.empty() ? list + kind_.order : list + kind_.search + wanted + kind_.searchOrder);
}

void TariffScreen::cboView_Click() {
    if (cboView->index() < 0) return;
    leaveItem();
    if (client_.key.empty()) return refuse("Please specify HMO Company", cboHMO);
    if (cboView->text() == allCategories)
        return show(
            "select SNO,Service,Category,Price,Company,Remarks,CoyID from vwServiceNHIS order by Category,Service"_sql);
    show("select SNO,Service,Category,Price,Company,Remarks,CoyID from vwServiceNHIS where coyID='"_sql +
         core::quotesDoubled(client_.key) + "' and   Category='" + core::quotesDoubled(cboView->text()) +
         "' ORDER BY  service");
}

ui::Control* TariffScreen::controlOf(std::string_view column) {
    const std::initializer_list<std::pair<const char*, ui::Control*>> fields = {
        {"drgName", &txtDrug}, {"Price", &txtPrice}, {"Capitated", &cboCap}, {"tariffStatus", &cboVal}};
    const auto* const found = std::find_if(fields.begin(), fields.end(),
                                           [column](const auto& field) { return db::sameName(field.first, column); });
    return found == fields.end() ? nullptr : found->second;
}

}  // namespace billing
