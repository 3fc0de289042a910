#include "billing/frmbillservice/frmbillservice.h"

#include "core/rows/entries.h"

using namespace db::literals;
using ui::Event;

namespace billing {
namespace {

constexpr const char* billTitle = "Admission Billing (Services)";
constexpr std::size_t longestUsage = 200;  // as its column

}  // namespace

frmBillService::frmBillService(core::Workplace& place)
    : Form(place, "frmBillService", billTitle), cboReason(*this, "cboReason", place) {
    bind(cmdBill, Event::click, &frmBillService::cmdBill_Click);
    bind(cboVehNo, Event::click, &frmBillService::cboVehNo_Click);
    bind(cboCat, Event::click, &frmBillService::cboCat_Click);
    bind(cboDrug, Event::click, &frmBillService::cboDrug_Click);
    bind(cboDrug, Event::change, [this] { lblSource.setCaption({}); });
    bind(txtPrice, Event::change, [this] { lblSource.setCaption("Typed"); });
    bind(cmdAdd, Event::click, &frmBillService::cmdAdd_Click);
    for (auto* last : {&txtPrice, &txtQty, &txtUsage}) bind(*last, Event::keyReturn, &frmBillService::cmdAdd_Click);
    bind(OrderGridDrug, Event::dblClick, &frmBillService::OrderGridDrug_DblClick);
    bind(OKButton, Event::click, &frmBillService::OKButton_Click);
    bind(cmdCancel, Event::click, &frmBillService::cmdCancel_Click);
    bind(cmdRefresh, Event::click, &frmBillService::cmdRefresh_Click);
    bind(cmdStock, Event::click, [this] { desktop().show("frmDrugPrice"); });
    bind(CancelButton, Event::click, [this] { close(); });
    lblTitle.setCaption(billTitle);
    txtUsage.setMaxLength(longestUsage);
    txtUsage.setText("DAILY");
    for (auto* amount : {&txtPrice, &txtQty, &txtSub}) amount->setText("0");
    lblSource.setCaption({});
    for (auto* text : {&txtSub, &txtPresc}) text->setEnabled(false);
    // Whom a line is billed to is the client in sight; what it is, its category says.
    for (const char* column : {"EntryType", "BillTo", "CoyName"}) OrderGridDrug.hideColumn(column);
}

void frmBillService::load() {
    dtDate.setValue(place().now().date());
    core::fill(cboCap, {"YES", "NO"});
    core::fill(cboCat, {"", "DRUG", "LAB", "SERVICE"});
    enableInputs(false);
    showBilling(false);
    trapped([this] { cboReason.fill(); });
}

void frmBillService::enableInputs(bool enabled) {
    for (ui::Control* input : std::initializer_list<ui::Control*>{&cboVehNo, &cboReason, &dtDate, &cboCat, &cboDrug,
                                                                  &txtPrice, &txtQty, &txtUsage, &cboCap, &cmdAdd})
        input->setEnabled(enabled);
}

void frmBillService::showBilling(bool billing) {
    cmdBill.setVisible(!billing);
    for (auto* command : {&OKButton, &cmdCancel, &cmdRefresh}) command->setVisible(billing);
    if (billing)
        desktop().focus(cboVehNo);
    else
        desktop().focus(cmdBill);
}

void frmBillService::cmdBill_Click() {
    cboVehNo.clear();
    cboVehNo.add("");
    core::addEntries(
        cboVehNo, hospital().readShared("SELECT SNO,fullname,pNo,consultID FROM qryhAdmission order by fullname"_sql),
        [](const db::Recordset& row) { return core::entryText(row["fullname"].textOr(), row["consultID"].textOr()); });
    enableInputs(true);
    showBilling(true);
}

void frmBillService::cmdCancel_Click() {
    showBilling(false);
    clear();
}

void frmBillService::cmdRefresh_Click() {
    load();
    clear();
}

/// The tally behind lblTotal goes on with the next patient.
void frmBillService::clear() {
    for (auto* list : {&cboCap, &cboDrug}) list->clearText();
    cboVehNo.clear();
    lblCat.setCaption({});
    lblSource.setCaption({});
    lblTotal.setCaption("0");
    txtSub.setText("0");
    leaveVisit();
    showName({});
}

void frmBillService::showName(const std::string& name) {
    name_ = name;
    setCaption(name.empty() ? billTitle : name);
    lblTitle.setCaption(caption());
}

ui::Control* frmBillService::controlOf(std::string_view /*column*/) {
    return &OrderGridDrug;
}

}  // namespace billing
