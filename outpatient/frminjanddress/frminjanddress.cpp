#include "outpatient/frminjanddress/frminjanddress.h"

#include "core/care/chartitems.h"
#include "core/care/treatmenttext.h"
#include "core/clock/clock.h"
#include "core/rows/cells.h"
#include "core/rows/entries.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "outpatient/shared/openitems.h"
#include "outpatient/shared/prescriptions.h"

namespace outpatient {

using namespace db::literals;
using ui::Event;

namespace {

enum Column { drug, category, times, usage };

/// The most doses that a chart's line takes.
constexpr std::int64_t mostTimes = 32767;

bool isCount(const std::string& text) {
    const auto count = db::parseInteger(text);
    return count && *count > 0 && *count <= mostTimes;
}

}  // namespace

frmInjAndDress::frmInjAndDress(core::Workplace& place)
    : Form(place, "frmInjAndDress", "Add Injections & Dressing for Charting"),
      waiting(place, *this, cboVehNo),
      item(place, *this) {
    bind(cmdList, Event::click, &frmInjAndDress::showPeriod);
    bind(cboVehNo, Event::click, &frmInjAndDress::openPatient);
    bind(chkDress, Event::click, [this] {
        if (chkDress.checked())
            item.pickDressings();
        else
            item.clear();
    });
    bind(cmdAdd, Event::click, &frmInjAndDress::cmdAdd_Click);
    bind(OrderGrid, Event::dblClick, [this] { OrderGrid.takeBack(); });
    bind(OKButton, Event::click, &frmInjAndDress::OKButton_Click);
    bind(cmdIgnore, Event::click, &frmInjAndDress::cmdIgnore_Click);
    bind(cmdStock, Event::click, &frmInjAndDress::openHistory);
    bind(cmdCost, Event::click, &frmInjAndDress::openHistory);
    bind(CancelButton, Event::click, [this] { close(); });
    txtDosage.setEnabled(false);
}

void frmInjAndDress::load() {
    period.start(session().gServerDate);
    dtDate.setValue(session().gServerDate);
    trapped([this] {
        item.fill();
        showToday();
    });
    desktop().focus(cboVehNo);
}

void frmInjAndDress::showPatients(const db::Sql& prescriptions) {
    clearPatient();
    addPrescriptions(cboVehNo, hospital().readShared(prescriptions));
    waiting.show();
}

void frmInjAndDress::showToday() {
    showPatients(
        "SELECT distinct ID,cDate,pSurname,pfirstname,consultID FROM qryhConsultingPatListForDisp WHERE  cdate ='"_sql +
        session().gServerDate + "' order by id ");
}

void frmInjAndDress::showPeriod() {
    if (!passes({{!period.DTPicker1.value(), "Please specify Date", &period.DTPicker1},
                 {!period.DTPicker2.value(), "Please specify Date", &period.DTPicker2}}))
        return;
    showPatients(
        "SELECT distinct ID,cDate,pSurname,pfirstname,consultID FROM qryhConsultingPatListForDisp WHERE "
        "remarks<>'ADMISSION' and cdate between '"_sql +
        period.first() + "' and '" + period.last() + "' order by pSurname,pfirstname ");
}

void frmInjAndDress::openPatient() {
    waiting.follow();
    const auto conID = cboVehNo.key();
    clearPatient();
    if (conID.empty()) return;
    const auto row = hospital().read(
        "select distinct Cdate, coyName,ID,ref,company,prescription,consultID,clientcat,pno,remarks,treatedby,Age from "
        "qryhConsultingPatListForDisp where consultID='"_sql +
        core::entryOf(cboVehNo.text()).key + "' and ID =" + conID);
    if (row.empty()) return message("This prescription was disposed of meanwhile");
    conID_ = conID;
    lblPatient.setCaption(nameIn(cboVehNo.text()));
    session().gCurPatientName = lblPatient.caption();
    for (const auto& [label, column] : {std::pair{&lblNo, "pno"},
                                        {&lblCon, "consultID"},
                                        {&lblClient, "clientcat"},
                                        {&lblCoy, "company"},
                                        {&lblAge, "Age"},
                                        {&lblRem, "remarks"}})
        label->setCaption(row[column].textOr());
    txtDosage.setText(core::treatmentText(hospital(), conID_));
}

/// The lines go with the patient for whom they were put together.
void frmInjAndDress::clearPatient() {
    conID_.clear();
    for (auto* label : {&lblPatient, &lblNo, &lblCon, &lblClient, &lblCoy, &lblAge, &lblRem}) label->setCaption({});
    txtDosage.clear();
    OrderGrid.clearLines();
    clearLine();
}

void frmInjAndDress::clearLine() {
    item.clear();
    chkDress.setChecked(false);
    txtNum.clear();
    txtUsage.clear();
}

void frmInjAndDress::cmdAdd_Click() {
    if (!passes({{OrderGrid.has(drug, item.cboDrug.text()), "Duplicate Drug/Service Entry not allowed", &item.cboDrug},
                 {conID_.empty(), "Please specify a Patient Name", &cboVehNo},
                 {!isCount(txtNum.text()), "Please specify No of Times Item will be taken ", &txtNum},
                 {blank(item.cboCat), "Please specify Category", &item.cboCat},
                 {blank(item.cboDrug), "Please specify Item to chart ", &item.cboDrug}}))
        return;
    OrderGrid.addLine({item.cboDrug.text(), item.cboCat.text(), txtNum.text(), txtUsage.text()});
    clearLine();
    desktop().focus(item.cboCat);
}

void frmInjAndDress::OKButton_Click() {
    if (!passes({{conID_.empty(), "Please specify patient name", &cboVehNo},
                 {!dtDate.value(), "Please specify Date", &dtDate},
                 {OrderGrid.lineCount() == 0, "No Item is Entered!!! ", &item.cboCat}}) ||
        !confirmed("Are you sure to save?", "About to save") || !saves(OKButton, [this] { chart(); }))
        return;
    message("Record Succesfully saved !!! ");
    for (std::size_t line = 0; line < OrderGrid.lineCount(); ++line)
        audit("Items Added to Chart by Nurse on duty: " + OrderGrid.text(line, drug) +
                  " NumOfTimes: " + OrderGrid.text(line, times) + " " + OrderGrid.text(line, usage),
              lblCon.caption());
    OrderGrid.clearLines();
    clearLine();
    if (auto* chart = dynamic_cast<OpenItems*>(desktop().loaded("frmNurseInjection"))) chart->refreshPatients();
    desktop().focus(cboVehNo);
}

void frmInjAndDress::chart() {
    session().gServerNow = core::GetServerNow(place());
    const auto chart = lblRem.caption() == "ADMISSION" ? core::Chart::wards : core::Chart::outPatients;
    db::Transaction transaction(hospital());
    for (std::size_t line = 0; line < OrderGrid.lineCount(); ++line)
        core::addRow(hospital(), core::emptyChart(chart),
                     core::chartCells(chart, {.conID = conID_,
                                              .consultID = lblCon.caption(),
                                              .pno = lblNo.caption(),
                                              .name = OrderGrid.text(line, drug),
                                              .category = OrderGrid.text(line, category),
                                              .times = OrderGrid.text(line, times),
                                              .dosage = OrderGrid.text(line, usage),
                                              .clientCat = lblClient.caption(),
                                              .date = session().gServerNow.date(),
                                              .time = core::shortTime(session().gServerNow)}));
    transaction.commit();
}

void frmInjAndDress::cmdIgnore_Click() {
    if (conID_.empty()) return refuse("Select a Patient", cboVehNo);
    if (!confirmed("Are you sure to DISPOSE of this prescription?", "About to Dispose")) return;
    const auto patient = lblPatient.caption();
    const auto consultID = lblCon.caption();
    if (!saves(cmdIgnore, [&] {
            hospital().execute("update hconsulting set attendedToByPharm = 1 where consultID='"_sql + consultID + "'");
        }))
        return;
    audit("Drug Disposed: " + patient, consultID);
    showToday();
}

void frmInjAndDress::openHistory() {
    if (conID_.empty()) return refuse("No Patient is specified", cboVehNo);
    session().gCurConsultPNo = lblNo.caption();
    session().gCurConsultName = lblPatient.caption();
    desktop().show("frmConsultInfo");
}

}  // namespace outpatient
