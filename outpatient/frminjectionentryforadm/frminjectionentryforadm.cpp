#include "outpatient/frminjectionentryforadm/frminjectionentryforadm.h"

#include "billing/amounts.h"
#include "billing/billlines.h"
#include "core/care/staff.h"
#include "core/care/treatmenttext.h"
#include "core/rows/entries.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "outpatient/frminjectionentryforadm/columns.h"
#include "outpatient/shared/prescriptions.h"

namespace outpatient {

using namespace db::literals;
using ui::Event;

frmInjectionEntryForAdm::frmInjectionEntryForAdm(core::Workplace& place)
    : Form(place, "frmInjectionEntryForAdm", "Admission Treatment"),
      waiting(place, *this, cboVehNo),
      item(place, *this) {
    bind(cboVehNo, Event::click, &frmInjectionEntryForAdm::openPatient);
    bind(item.cboDrug, Event::click, &frmInjectionEntryForAdm::cboDrug_Click);
    bind(cmdAdd, Event::click, &frmInjectionEntryForAdm::cmdAdd_Click);
    bind(OrderGrid, Event::dblClick, [this] {
        OrderGrid.takeBack();
        showTotal();
    });
    bind(OKButton, Event::click, &frmInjectionEntryForAdm::OKButton_Click);
    bind(cmdIgnore, Event::click, &frmInjectionEntryForAdm::cmdIgnore_Click);
    bind(cmdRefresh, Event::click, &frmInjectionEntryForAdm::showPatients);
    bind(CancelButton, Event::click, [this] { close(); });
    txtDosage.setEnabled(false);
}

void frmInjectionEntryForAdm::load() {
    dtDate.setValue(session().gServerDate);
    trapped([this] {
        item.fill();
        core::fillEmployees(cboReason, hospital(),
                            "select empID,lastname,firstname from qryemployees where deptID in ( 'NUR','NURSING')"_sql);
        showPatients();
    });
    desktop().focus(cboVehNo);
}

void frmInjectionEntryForAdm::showPatients() {
    clearPatient();
    addPrescriptions(cboVehNo,
                     hospital().readShared("SELECT distinct ID,cDate,pSurname,pfirstname,consultID FROM "
                                           "vwConDetailsForInjAndDressingForAdm where isinj=0 order by psurname"_sql));
    waiting.show();
}

void frmInjectionEntryForAdm::openPatient() {
    waiting.follow();
    const auto conID = cboVehNo.key();
    clearPatient();
    if (conID.empty()) return;
    const auto row = hospital().read(
        "select distinct  ID,ref,retainID,company,prescription,consultID,clientcat,pno,remarks,treatedby,Age from "
        "vwConDetailsForInjAndDressingForAdm where consultID='"_sql +
        core::entryOf(cboVehNo.text()).key + "' and ID =" + conID);
    if (row.empty()) return message("This patient has left the wards meanwhile");
    conID_ = conID;
    showPatient(row);
}

void frmInjectionEntryForAdm::showPatient(const db::Recordset& row) {
    lblPatient.setCaption(nameIn(cboVehNo.text()));
    session().gCurPatientName = lblPatient.caption();
    for (const auto& [label, column] : {std::pair{&lblNo, "pno"},
                                        {&lblCon, "consultID"},
                                        {&lblClient, "clientcat"},
                                        {&lblCoy, "company"},
                                        {&lblAge, "Age"},
                                        {&lblRem, "remarks"},
                                        {&lblFFS, "ref"}})
        label->setCaption(row[column].textOr());
    if (blank(lblFFS)) lblFFS.setCaption("NO");
    retainID_ = row["retainID"].textOr();
    txtDosage.setText(core::treatmentText(hospital(), conID_));
}

/// The lines go with the patient for whom they were priced.
void frmInjectionEntryForAdm::clearPatient() {
    conID_.clear();
    retainID_.clear();
    for (auto* label : {&lblPatient, &lblNo, &lblCon, &lblClient, &lblCoy, &lblAge, &lblRem, &lblFFS})
        label->setCaption({});
    txtDosage.clear();
    OrderGrid.clearLines();
    showTotal();
    item.clear();
    clearLine();
}

void frmInjectionEntryForAdm::cboDrug_Click() {
    if (item.cboDrug.index() < 0) return;
    if (blank(lblClient)) {
        item.cboDrug.clearText();
        return refuse("Client Category field cannot be empty please select Patient", cboVehNo);
    }
    const auto found = billing::ResolveTariffPrice(place(), item.kind(), item.cboDrug.text(), lblClient.caption(),
                                                   retainID_, billing::WithoutTariff::nothing);
    for (const auto& text : found.messages) message(text);
    txtPrice.setText(core::moneyText(found.price));
    lblSource.setCaption(billing::sourceText(found.source));
    lblStock.setCaption(found.stock);
    lblUnit.setCaption(found.unit);
    lblCat.setCaption(found.category.empty() ? item.cboCat.text() : found.category);
    txtQty.setText(found.quantity);
    txtUsage.setText(found.usage);
    capitated_ = found.capitated.value_or("");
    if (item.kind() == billing::ItemKind::drug) checkStock();
    desktop().focus(txtQty);
}

/// Says that nothing is left, and refuses nothing.
void frmInjectionEntryForAdm::checkStock() {
    const auto stock = hospital().read("select itemID, UnitsInStock from stockItemsRetail where itemID='"_sql +
                                       core::quotesDoubled(item.cboDrug.text()) + "'");
    if (stock.empty() || stock["UnitsInStock"].int32Or(0) <= 0)
        message("This Drug is out of Stock !!! Click Stock Entry Button to enter Stock");
}

void frmInjectionEntryForAdm::clearLine() {
    item.cboDrug.clearText();
    for (auto* label : {&lblCat, &lblSource, &lblStock, &lblUnit}) label->setCaption({});
    for (auto* field : {&txtPrice, &txtQty, &txtUsage}) field->clear();
    capitated_.clear();
}

void frmInjectionEntryForAdm::cmdAdd_Click() {
    const auto price = billing::enteredAmount(txtPrice.text());
    const auto units = billing::enteredAmount(txtQty.text());
    if (!passes(
            {{OrderGrid.has(adm::name, item.cboDrug.text()), "Duplicate Drug/Service Entry not allowed", &item.cboDrug},
             {conID_.empty(), "Please specify a Patient File No ", &cboVehNo},
             {blank(txtQty), "Please specify Quantity prescribed ", &txtQty},
             {blank(item.cboDrug), "Please specify Drug/Service used ", &item.cboDrug},
             {!units || *units == 0, "Please specify Quantity of Drug prescribed", &txtQty},
             {blank(txtUsage), "Please specify usage of Drug/Service", &txtUsage},
             {!price, "The price is a plain number, such as 1,234.50", &txtPrice},
             {price && units && (*units > adm::mostUnits || *price * *units >= billing::amountLimit),
              "This quantity or price is too large", &txtQty}}))
        return;
    OrderGrid.addLine({item.cboDrug.text(), lblCat.caption(), db::numberText(*price), db::numberText(*units),
                       db::numberText(*price * *units), txtUsage.text(), capitated_});
    showTotal();
    clearLine();
    desktop().focus(item.cboDrug);
}

void frmInjectionEntryForAdm::showTotal() {
    lblTotal.setCaption(core::moneyText(OrderGrid.sum(adm::subTotal)));
}

void frmInjectionEntryForAdm::cmdIgnore_Click() {
    if (conID_.empty()) return refuse("Select a Patient", cboVehNo);
    if (!confirmed("Are you sure to Excluse this Patient from Injection/Dressing List?", "About to Dispose") ||
        !saves(cmdIgnore, [this] { takeOffTheList(); }))
        return;
    showPatients();
}

}  // namespace outpatient
