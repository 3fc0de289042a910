#include "outpatient/frmnursedressing/frmnursedressing.h"

#include "billing/billlines.h"
#include "core/rows/cells.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "core/texts/texts.h"

namespace outpatient {

using namespace db::literals;
using ui::Event;

frmNurseDressing::frmNurseDressing(core::Workplace& place)
    : Form(place, "frmNurseDressing", "Dressings"), waiting(place, *this, cboVehNo) {
    bind(cboVehNo, Event::click, &frmNurseDressing::openPatient);
    bind(LstDate, Event::click, &frmNurseDressing::LstDate_Click);
    bind(OKButton, Event::click, &frmNurseDressing::OKButton_Click);
    bind(cmdRefresh, Event::click, &frmNurseDressing::showPatients);
    bind(CancelButton, Event::click, [this] { close(); });
    grdData.hideColumn("SNo");
}

void frmNurseDressing::load() {
    dtDate.setValue(session().gServerDate);
    desktop().focus(cboVehNo);
}

/// Others chart too: the list is read each time the screen comes back, but never from under a patient in work.
void frmNurseDressing::showing() {
    if (consultID_.empty()) trapped([this] { showPatients(); });
}

void frmNurseDressing::showPatients() {
    clearPatient();
    cboVehNo.clear();
    core::addEntries(
        cboVehNo,
        hospital().readShared("select distinct pNO,fullname,consultID from "
                              "qryhConsultingPatientsForInjAdm where drgcatname in "
                              "('DRESSING','DRY STOCK') order by fullname "_sql),
        [](const db::Recordset& row) { return core::entryText(row["fullname"].textOr(), row["consultID"].textOr()); });
    waiting.show();
    desktop().focus(cboVehNo);
}

void frmNurseDressing::openPatient() {
    waiting.follow();
    clearPatient();
    if (cboVehNo.text().empty()) return;
    const auto patient = core::entryOf(cboVehNo.text());
    consultID_ = patient.key;
    lblPatient.setCaption(patient.name);
    lblCon.setCaption(patient.key);
    session().gCurPatientName = patient.name;
    showItems();
    showDone();
}

void frmNurseDressing::clearPatient() {
    consultID_.clear();
    for (auto* label : {&lblPatient, &lblNo, &lblCon, &lblClient, &lblName}) label->setCaption({});
    LstDate.clear();
    grdData.clear();
}

void frmNurseDressing::showItems() {
    LstDate.clear();
    lblName.setCaption({});
    auto items = hospital().read(
        "select pno,injname,clientCat,drgcatname from qryhConsultingPatientsForInjAdm where consultID='"_sql +
        consultID_ + "'");
    if (items.empty()) return;
    lblNo.setCaption(items["pno"].textOr());
    lblClient.setCaption(items["clientCat"].textOr());
    for (; !items.eof(); items.moveNext()) LstDate.add(items["injname"].textOr());
}

void frmNurseDressing::showDone() {
    core::refreshRows(grdData, hospital().read("select * from qryhDressings where consultID ='"_sql + consultID_ + "'"),
                      {"SNo"});
}

void frmNurseDressing::LstDate_Click() {
    if (LstDate.text().empty()) return refuse("please specify Wound Name", LstDate);
    lblName.setCaption(LstDate.text());
}

void frmNurseDressing::OKButton_Click() {
    if (!passes({{consultID_.empty(), "Please select a patient no", &cboVehNo},
                 {lblName.caption().empty(), "Please select Dressing type in the list provided", &LstDate}}) ||
        !saves(OKButton, [this] { record(); }))
        return;
    message("Record Succesfully saved");
    showDone();
    const auto item = lblName.caption();
    if (!confirmed(" Is this the last Dressing for the Patient ?", "Dressing")) return;
    finish(item);
    message("Patient Succesfully Attended to");
    showItems();
    if (LstDate.items().empty()) showPatients();
}

void frmNurseDressing::record() {
    const auto item = lblName.caption();
    db::Transaction transaction(hospital());
    core::addRow(hospital(), "select * from hdressings where 1=2"_sql,
                 {{"drDate", core::valueOf(dtDate)},
                  {"PNo", lblNo.caption()},
                  {"drname", item},
                  {"dressedBy", session().gEmpID},
                  {"consultID", consultID_},
                  {"clientCat", lblClient.caption()}});
    billing::addSurchargedFee(place(), {.name = item,
                                        .pricedAs = item,
                                        .clientCat = lblClient.caption(),
                                        .pno = lblNo.caption(),
                                        .consultID = consultID_});
    transaction.commit();
}

void frmNurseDressing::finish(const std::string& item) {
    db::Transaction transaction(hospital());
    db::Recordset row(hospital(), "select * from hInjAndDressing where consultID ='"_sql + consultID_ +
                                      "' and pno = '" + lblNo.caption() + "' and injname='" +
                                      core::quotesDoubled(item) + "'");
    if (row.empty()) return;  // taken off the chart meanwhile
    row.set("attendedto", 1);
    row.update();
    transaction.commit();
}

}  // namespace outpatient
