#include "outpatient/frmnurseinjection/frmnurseinjection.h"

#include "billing/billlines.h"
#include "core/care/treatmenttext.h"
#include "core/rows/cells.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "db/letters.h"
#include "ui/raised.h"

namespace outpatient {

using namespace db::literals;
using ui::Event;

namespace {

constexpr int boxes = 24;

}  // namespace

frmNurseInjection::frmNurseInjection(core::Workplace& place)
    : Form(place, "frmNurseInjection", "OPD Medication Monitor"),
      waiting(place, *this, cboVehNo),
      doses(*this, "chk", boxes, [this] { counted(); }) {
    bind(cboVehNo, Event::click, &frmNurseInjection::openPatient);
    bind(LstDate, Event::click, &frmNurseInjection::LstDate_Click);
    bind(OKButton, Event::click, &frmNurseInjection::OKButton_Click);
    bind(cmdAdd, Event::click, &frmNurseInjection::listPatients);
    bind(cmdUpd, Event::click, &frmNurseInjection::cmdUpd_Click);
    bind(cmdPresc, Event::click, &frmNurseInjection::cmdPresc_Click);
    bind(cmdPat, Event::click, [this] { desktop().show("frmInjAndDress"); });
    bind(CancelButton, Event::click, [this] { close(); });
    txtDosage.setEnabled(false);
    grdData.hideColumn("SNo");
    clearPatient();
}

void frmNurseInjection::load() {
    dtDate.setValue(session().gServerDate);
    dtTime.setValue(session().gServerTime);
    desktop().focus(cboVehNo);
}

/// Others chart too: the list is read each time the screen comes back, but never from under a patient in work.
void frmNurseInjection::showing() {
    if (conID_.empty()) trapped([this] { refreshPatients(); });
}

/// The patient in work stays, with the doses ticked.
void frmNurseInjection::refreshPatients() {
    const ui::Raised refilling(refilling_);
    cboVehNo.clear();
    core::addEntries(cboVehNo,
                     hospital().readShared("SELECT distinct conID,injdate,pSurname,pfirstname,pNo FROM "
                                           "qryhConsultingPatientsForInjection   order by psurname"_sql),
                     [](const db::Recordset& row) {
                         const auto text = [&](const char* column) { return row[column].textOr(); };
                         return core::entryText(text("psurname") + " " + text("pfirstName") + " @" + text("injdate"),
                                                text("conID"));
                     });
    const int kept = conID_.empty() ? -1 : core::itemWithKey(cboVehNo, conID_);
    if (kept >= 0) cboVehNo.setIndex(kept);
    waiting.show();
    if (kept < 0) clearPatient();
}

void frmNurseInjection::listPatients() {
    clearPatient();
    refreshPatients();
    desktop().focus(cboVehNo);
}

void frmNurseInjection::openPatient() {
    if (refilling_) return;
    waiting.follow();
    clearPatient();
    const auto entry = cboVehNo.text();
    if (entry.empty()) return;
    conID_ = core::entryOf(entry).key;
    lblPatient.setCaption(entry.substr(0, entry.find(" @")));
    session().gCurPatientName = lblPatient.caption();
    txtDosage.setText(core::treatmentText(hospital(), conID_));
    showItems();
    showGiven();
}

void frmNurseInjection::clearPatient() {
    clearItem();
    conID_.clear();
    for (auto* label : {&lblPatient, &lblNo, &lblCon, &lblClient, &lblCoy}) label->setCaption({});
    LstDate.clear();
    txtDosage.clear();
    grdData.clear();
}

void frmNurseInjection::showItems() {
    LstDate.clear();
    auto items = hospital().read("select * from qryhConsultingPatientsForInjection where conID='"_sql + conID_ + "'");
    if (items.empty()) return;
    lblCon.setCaption(items["consultID"].textOr());
    lblClient.setCaption(items["clientCat"].textOr());
    lblNo.setCaption(items["PNo"].textOr());
    lblCoy.setCaption(items["Company"].textOr());
    for (; !items.eof(); items.moveNext()) LstDate.add(items["injname"].textOr(), items["ID"].text());
}

void frmNurseInjection::showGiven() {
    core::refreshRows(
        grdData,
        hospital().read("select distinct  * from qryhInjections where consultID ='"_sql + lblCon.caption() + "'"),
        {"SNo"});
}

void frmNurseInjection::LstDate_Click() {
    if (LstDate.text().empty()) return refuse("empty Item Name not allowed", LstDate);
    openItem();
}

void frmNurseInjection::openItem() {
    clearItem();
    const auto item = hospital().read(
        "select injname,numOfTimes,numTaken,dosage from qryhConsultingPatientsForInjection where injname='"_sql +
        core::quotesDoubled(LstDate.text()) + "' and pno='" + lblNo.caption() + " ' and consultID='" +
        lblCon.caption() + "'");
    if (item.empty()) {
        showItems();
        return message("This item has left the chart meanwhile: it was given in full");
    }
    lblName.setCaption(item["injname"].textOr());
    lblUsage.setCaption(item["dosage"].textOr());
    txtNum.setText(item["numOfTimes"].textOr());
    lblTaken.setCaption(item["numTaken"].textOr());
    doses.layOut(item["numOfTimes"].int32Or(0), item["numTaken"].int32Or(0));
}

void frmNurseInjection::clearItem() {
    for (auto* label : {&lblName, &lblUsage, &lblTaken}) label->setCaption({});
    lblCNum.setCaption("0");
    txtNum.clear();
    doses.clear();
}

void frmNurseInjection::counted() {
    lblTaken.setCaption(std::to_string(doses.taken()));
    lblCNum.setCaption(std::to_string(doses.ticked()));
}

void frmNurseInjection::OKButton_Click() {
    if (!passes({{conID_.empty(), "Please select a patient no", &cboVehNo},
                 {lblName.caption().empty(), "Please select an Injection in the list provided", &LstDate},
                 {db::leadingNumber(lblTaken.caption()) == 0, "Please tick to indicate that Medication has been given",
                  &LstDate},
                 {!dtDate.value(), "Please specify Date", &dtDate},
                 {!dtTime.value(), "Please specify Time", &dtTime}}))
        return;
    bool givenInFull = false;
    if (!saves(OKButton, [&] { givenInFull = chart(); })) return;
    message("Record Succesfully saved");
    audit("Insert OPD MED MONITOR: " + lblCon.caption(), lblCon.caption(), "By Nurse");
    showGiven();
    if (!givenInFull) return openItem();
    clearItem();
    showItems();
    if (LstDate.items().empty()) listPatients();
}

/// The figure on the screen stands, whatever another nurse has charted meanwhile; both doses are kept.
bool frmNurseInjection::chart() {
    const auto item = lblName.caption();
    const bool givenInFull = lblTaken.caption() == txtNum.text();
    db::Transaction transaction(hospital());
    db::Recordset row(hospital(), "select * from hInjAndDressing where consultID ='"_sql + lblCon.caption() +
                                      "' and pno = '" + lblNo.caption() + "' and injname='" +
                                      core::quotesDoubled(item) + "'");
    if (!row.empty()) {
        core::setCells(row, {{"numtaken", db::Value(lblTaken.caption()).int32()}, {"injTime", core::valueOf(dtTime)}});
        if (givenInFull) row.set("attendedto", 1);
        row.update();
    }
    core::addRow(hospital(), "select * from hinjections where 1=2"_sql,
                 {{"dtDate", core::valueOf(dtDate)},
                  {"PNo", lblNo.caption()},
                  {"injname", item},
                  {"injBy", session().gEmpID},
                  {"injTime", core::valueOf(dtTime)},
                  {"consultID", lblCon.caption()}});
    if (session().gInjCaller != "CONSULTING")
        billing::addSurchargedFee(place(), {.name = "INJECTION_FEE",
                                            .pricedAs = "INJECTION_FEE",
                                            .clientCat = lblClient.caption(),
                                            .pno = lblNo.caption(),
                                            .consultID = lblCon.caption()});
    transaction.commit();
    return givenInFull;
}

void frmNurseInjection::cmdUpd_Click() {
    const auto total = core::trimmed(txtNum.text());
    if (!passes({{LstDate.index() < 0, "empty Item Name not allowed", &LstDate},
                 {!db::parseNumber(total), "Please specify Numeric figure", &txtNum}}))
        return;
    if (!saves(cmdUpd, [&] {
            db::Transaction transaction(hospital());
            db::Recordset row(hospital(), "select numOfTimes from hInjAndDressing  where  ID="_sql + LstDate.key());
            row.set("numOfTimes", db::Value(total).int32());
            row.update();
            transaction.commit();
        }))
        return;
    message("Update Successful");
    openItem();
}

void frmNurseInjection::cmdPresc_Click() {
    if (conID_.empty()) return refuse("Please select Patient's Name", cboVehNo);
    txtDosage.setText(core::treatmentText(hospital(), conID_));
}

ui::Control* frmNurseInjection::controlOf(std::string_view column) {
    return db::sameName(column, "numOfTimes") ? &txtNum : nullptr;
}

}  // namespace outpatient
