#include "outpatient/frmimmune/frmimmune.h"

#include "billing/amounts.h"
#include "billing/prices.h"
#include "core/rows/entries.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "db/letters.h"

namespace outpatient {

using namespace db::literals;
using ui::Event;

namespace {

constexpr int vitalCount = 8;

}  // namespace

frmImmune::frmImmune(core::Workplace& place) : Form(place, "frmImmune", "Immunization") {
    for (int vital = 0; vital < vitalCount; ++vital)
        txtVital.emplace_back(*this, "txtVital(" + std::to_string(vital) + ")").setEnabled(false);
    bind(cboVehNo, Event::click, &frmImmune::cboVehNo_Click);
    bind(chkAll, Event::click, &frmImmune::fillWaiting);
    bind(cboDrug, Event::click, &frmImmune::cboDrug_Click);
    bind(cmdAddToGrid, Event::click, &frmImmune::cmdAddToGrid_Click);
    bind(txtPrice, Event::change, [this] { lblSource.setCaption("Typed"); });
    for (auto* last : {&txtPrice, &txtQty}) bind(*last, Event::keyReturn, &frmImmune::cmdAddToGrid_Click);
    bind(OrderGrid, Event::dblClick, &frmImmune::takeLineBack);
    bind(chkRef, Event::click, [this] { fraAppt.setEnabled(chkRef.checked()); });
    bind(cmdDate, Event::click, &frmImmune::cmdDate_Click);
    bind(txtSearch, Event::change, &frmImmune::search);
    bind(grdData, Event::dblClick, &frmImmune::grdData_DblClick);
    bind(cmdDel, Event::click, &frmImmune::cmdDel_Click);
    bind(cmdPrint, Event::click, &frmImmune::cmdPrint_Click);
    bind(OKButton, Event::click, &frmImmune::OKButton_Click);
    bind(cmdCancel, Event::click, [this] {
        clear();
        fillWaiting();
        showRows();
    });
    bind(CancelButton, Event::click, [this] { close(); });
    for (ui::Control* control : std::initializer_list<ui::Control*>{&dtNext, &dtRefTime, &cmdDate, &txtImm})
        control->heldBy(fraAppt);
    for (const char* column : {"ID", "EmpID"}) grdData.hideColumn(column);
}

void frmImmune::load() {
    clear();
    trapped([this] {
        cboDrug.add("");
        core::addEntries(cboDrug,
                         hospital().readShared("select distinct drgName from DrugMaster where DrgCatNAme in "
                                               "('VACCINES','VACCINE''INJECTIONS','DROP','ORAL')"_sql),
                         [](const db::Recordset& row) { return row["drgName"].textOr(); });
    });
    trapped([this] { fillWaiting(); });
    trapped([this] { showRows(); });
    desktop().focus(cboVehNo);
}

/// The day's visits: those that still wait for their immunization, or all of the house.
void frmImmune::fillWaiting() {
    const auto columns = "SELECT distinct recdate,hTime,pSurname,pfirstname,pno,consultID,ClinicType FROM "_sql;
    const auto& today = session().gServerDate;
    cboVehNo.clear();
    core::addEntries(
        cboVehNo,
        hospital().readShared(chkAll.checked()
                                  ? columns + "qryhPatListForNurse WHERE recdate='" + today +
                                        "' order by pSurname,pfirstname"
                                  : columns + "qryhPatListForImmune WHERE AttendedToByImmume = 0 AND  recdate='" +
                                        today + "' order by consultID"),
        [](const db::Recordset& row) {
            const auto text = [&](const char* column) { return row[column].textOr(); };
            return core::entryText(text("psurname") + " " + text("pfirstName") + " " + text("recDate") + " @" +
                                       text("htime") + " " + text("clinicType"),
                                   text("consultID"));
        });
    waiting.show();
}

void frmImmune::clear() {
    cboVehNo.clearText();
    waiting.follow();
    clearPatient();
    clearVisit();
}

/// What belongs to one child alone goes when another is opened.
void frmImmune::clearVisit() {
    consultID_.clear();
    clearLine();
    OrderGrid.clearLines();
    showTotal();
    cboAge.clear();
    for (auto* text : {&txtRem, &txtImm}) text->clear();
    chkRef.setChecked(false);
    fraAppt.setEnabled(false);
    dtDate.setValue(session().gServerDate);
    dtNext.setValue({});
    dtRefTime.setValue(session().gServerTime);
    clearProblems();
}

void frmImmune::cboDrug_Click() {
    if (blank(cboDrug)) return refuse("Please specify Item", cboDrug);
    const auto found =
        billing::ResolveTemplatePrice(place(), billing::ItemKind::drug, cboDrug.text(), lblClient.caption(), company_)
            .value_or(billing::PriceResult());
    txtPrice.setText(core::moneyText(found.price));
    lblSource.setCaption(billing::sourceText(found.source));
    txtQty.setText("1");
    itemCategory_ = found.category;
    desktop().focus(txtQty);
}

void frmImmune::cmdAddToGrid_Click() {
    const auto priced = billing::enteredAmount(txtPrice.text());
    const auto counted = billing::enteredAmount(txtQty.text());
    if (!passes({{OrderGrid.has(item, cboDrug.text()), "Duplicate Item/Service Entry not allowed", &cboDrug},
                 {blank(cboVehNo), "Please specify a Patient Name ", &cboVehNo},
                 {blank(cboDrug), "Please specify Item ", &cboDrug},
                 {!priced, "The price is a plain number, such as 1,234.50", &txtPrice},
                 {!counted || *counted == 0, "The number of units is a plain number above 0, such as 1", &txtQty},
                 {priced && counted && *priced * *counted >= billing::amountLimit,
                  "This quantity or price is too large", &txtQty}}))
        return;
    OrderGrid.addLine({cboDrug.text(), itemCategory_, db::numberText(*priced), db::numberText(*counted),
                       db::numberText(core::roundedToCents(*priced * *counted)), "NO"});
    clearLine();
    showTotal();
    desktop().focus(cboDrug);
}

/// A line that was taken out stands in its fields, to be entered anew.
void frmImmune::takeLineBack() {
    const auto line = OrderGrid.takeBack();
    if (!line) return;
    showTotal();
    core::showEntry(cboDrug, (*line)[item]);
    itemCategory_ = (*line)[category];
    txtPrice.setText((*line)[price]);
    txtQty.setText((*line)[units]);
    lblSource.setCaption({});
}

void frmImmune::clearLine() {
    cboDrug.clearText();
    for (auto* text : {&txtPrice, &txtQty}) text->clear();
    lblSource.setCaption({});
    itemCategory_.clear();
}

void frmImmune::showTotal() {
    lblTotal.setCaption(core::moneyText(OrderGrid.sum(subTotal)));
}

/// The day comes back into `dtNext` and `dtRefTime`.
void frmImmune::cmdDate_Click() {
    session().gClinicName = clinic;
    session().gDatesCaller = name();
    const auto days = hospital().read("select distinct Clinic  from vwClinicDays where clinic='IMMUNIZATION'"_sql);
    if (!days.empty()) desktop().show("frmClinicDates");
}

void frmImmune::cmdPrint_Click() {
    if (grdData.row() < 0) return refuse("Please select a Patient from the Grid", grdData);
    const auto pno = grdData.text("PNo");
    if (hospital().read("select pno from hpatients where pno = '"_sql + pno + "'").empty())
        return refuse("Please select a valid Patient from the Grid", grdData);
    auto history = hospital().read("SELECT * from vwhImmunization where pno ='"_sql + pno + "'");
    if (history.empty()) return message("No Report for the Specfied Date");
    desktop().report({.name = "rptImmunization",
                      .title = "Immunization Report",
                      .rows = std::move(history),
                      .period = "Immunization History for " + grdData.text("Fullname")});
}

ui::Control* frmImmune::controlOf(std::string_view column) {
    struct Kept {
        const char* column;
        ui::Control* control;
    };
    // The column of that name that has a limit is the appointment's.
    for (const auto& [kept, control] : {Kept{"AgeValue", &cboAge}, Kept{"ImmType", &txtImm}, Kept{"Remarks", &txtImm},
                                        Kept{"drgName", &cboDrug}, Kept{"ImDate", &dtDate}})
        if (db::sameName(kept, column)) return control;
    return nullptr;
}

}  // namespace outpatient
