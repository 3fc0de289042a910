#include "outpatient/frmpreconsult/frmpreconsult.h"

#include "core/clock/clock.h"
#include "core/rows/entries.h"
#include "core/session/session.h"

using namespace db::literals;
using ui::Event;

namespace outpatient {
namespace {

constexpr const char* title = "Vital Signs";

}  // namespace

frmPreConsult::frmPreConsult(core::Workplace& place) : RecordForm(place, "frmPreConsult", title) {
    auto fields = readings.fields();
    fields.add({&txtRem, "details"});
    fields.add({&txtSugar, "UrineSug", "urineSug"});
    fields.add({&txtAlb, "UrineAlb", "urineAlb"});
    keep(std::move(fields));
    enableWhileEntering({&readings.txtPressure, &readings.txtPressure2, &cboVehNo, &CboRef, &cboType});
    bind(cmdPresc, Event::click, [this] { desktop().showModal("frmPatList"); });
    bind(cmdANC, Event::click, &frmPreConsult::cmdANC_Click);
    bind(chkAll, Event::click, &frmPreConsult::chkAll_Click);
    bind(cboVehNo, Event::click, &frmPreConsult::cboVehNo_Click);
    bind(dtDate, Event::change, &frmPreConsult::refreshQueue);
    bind(grdDoc, Event::dblClick, &frmPreConsult::grdDoc_DblClick);
    quietly(Timer1, &frmPreConsult::refreshQueue);
    for (const char* column : {"ID", "pno"}) grdData.hideColumn(column);
}

// A fresh list would take the patient under correction away.
void frmPreConsult::entered(Mode /*mode*/) {
    chkAll.setEnabled(!editing());
}

void frmPreConsult::clear() {
    RecordForm::clear();
    for (auto* pressure : {&readings.txtPressure, &readings.txtPressure2}) pressure->clear();
    for (auto* list : {&CboRef, &cboType}) list->clearText();
    cboVehNo.clear();
    chkAll.setChecked(false);
    clearPatient();
    showToday();
}

void frmPreConsult::clearPatient() {
    for (auto* text : {&consultID_, &retainID_, &retainCode_}) text->clear();
    for (auto* label : {&lblNo, &lblCardNo, &lblBill, &lblCat, &lblAge, &lblSex, &lblRem}) label->setCaption({});
    Label5.setCaption(title);
    last.clear();
}

void frmPreConsult::startAdding() {
    core::refreshServerClock(place());
    dtDate.setValue(session().gServerDate);
    desktop().focus(cboVehNo);
    fillWaiting();
}

void frmPreConsult::chkAll_Click() {
    if (chkAll.checked()) fillWaiting();
}

void frmPreConsult::cboVehNo_Click() {
    if (cboVehNo.index() >= 0 && cboVehNo.text() != " ") showPatient(cboVehNo.text());
}

/// Shows whose attendance an entry of the list is. The empty entry shows nobody's.
void frmPreConsult::showPatient(const std::string& entry) {
    clearPatient();
    if (entry.empty()) return;
    const std::string consultID = core::entryOf(entry).key;
    const auto found = hospital().read(
        "select Age,OldPNo,Sex,clientcat,consultID,pno,clinicType,remarks,RetainCode,retainID from "
        "qryhPatListForNurse where consultID='"_sql +
        consultID + "'");
    consultID_ = session().gCommentConsultID = consultID;
    session().gCurPatientName = entry.substr(0, entry.find('['));
    Label5.setCaption(session().gCurPatientName);
    if (found.empty()) return cboType.clearText();
    lblBill.setCaption(consultID_);
    lblCat.setCaption(found["clientcat"].textOr());
    lblNo.setCaption(found["pno"].textOr());
    lblRem.setCaption(found["remarks"].textOr());
    lblAge.setCaption(found["Age"].textOr());
    lblSex.setCaption(found["Sex"].textOr());
    lblCardNo.setCaption(found["OldPNo"].textOr());
    last.show(place(), lblNo.caption());
    retainCode_ = found["RetainCode"].textOr();
    retainID_ = found["retainID"].textOr();
    cboType.setText(found["clinicType"].textOr());
}

void frmPreConsult::startEditing() {
    recordID_ = grdData.text("ID");
    cboVehNo.clear();
    cboVehNo.add(core::entryText(grdData.text("fullname"), grdData.text("consultID")));
    cboVehNo.setIndex(0);
    lblNo.setCaption(grdData.text("pNo"));
    core::showDate(dtDate, grdData.rows()["date"]);
    RecordForm::startEditing();
    readings.showPressure(grdData);
    Label5.setCaption(grdData.text("fullname"));
    desktop().focus(readings.txtTemp);
}

std::optional<core::Refusal> frmPreConsult::erase() {
    hospital().execute("delete from hpreconsult where id ="_sql + grdData.text("id"));
    return std::nullopt;
}

/// Takes the patients whom a nurse or a doctor has seen today off the nurse's list, should the mark have been lost.
void frmPreConsult::refresh() {
    const auto today = session().gServerDate;
    hospital().execute(
        "Update hrecords set  attendedto=1,attendedtoByNurse=1 where consultID in (select consultID from "
        "hPreConsult where predate ='"_sql +
        today + "')");
    hospital().execute(
        "Update hrecords set  attendedto=1,attendedtoByNurse=1 where consultID in (select consultID from "
        "hConsulting where CDate ='"_sql +
        today + "')");
    showList();
    refreshQueue();
}

void frmPreConsult::cmdANC_Click() {
    session().gCurPNo = lblNo.caption();
    session().gCurPatientName = Label5.caption();
    if (session().gCurPNo.empty()) return message("Patient System No Required! Please select a Patient");
    desktop().show("frmAnteNatalReg");
}

void frmPreConsult::grdDoc_DblClick() {
    if (grdDoc.row() < 0) return;
    session().gWaitDate = grdDoc.text("Date");
    session().gWaitDocName = grdDoc.text("DocName");
}

}  // namespace outpatient
