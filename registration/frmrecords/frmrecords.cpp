#include "registration/frmrecords/frmrecords.h"

#include "core/patients/doctorsqueue.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "core/session/workplace.h"
#include "core/texts/texts.h"

namespace registration {

using namespace db::literals;
using ui::Event;

namespace {

/// A part of a visit's bill that was split off, by the form of its number. "OFL" numbers are as long and are whole.
bool isSplitBill(const std::string& consultID) {
    return consultID.size() == 13 && consultID.substr(3, 3) != "OFL";
}

}  // namespace

frmRecords::frmRecords(core::Workplace& place)
    : RecordForm(place, "frmRecords", "ATTENDANCE FOR TODAY :"),
      client(place, *this, ui::ComboBox::Style::listOnly, {retainID_, clientName_, category_, clientType_}) {
    bind(cboVehNo, Event::click, &frmRecords::cboVehNo_Click);
    bind(client.cboPat, Event::click, &frmRecords::cboPat_Click);
    bind(cboType, Event::click, &frmRecords::cboType_Click);
    bind(cboPurpose, Event::click, &frmRecords::cboPurpose_Click);
    // A purpose that is no entry of the list is routed nowhere.
    bind(cboPurpose, Event::change, [this] { session().gAttendPurpose.clear(); });
    bind(cmdEdit, Event::click, &frmRecords::openRow);
    bind(grdData, Event::dblClick, &frmRecords::openRow);
    bind(cmdRenew, Event::click, &frmRecords::cmdRenew_Click);
    bind(dtDate, Event::change, &frmRecords::refreshQueue);
    quietly(Timer1, &frmRecords::refreshQueue);
    cmdRenew.setEnabled(false);
}

void frmRecords::load() {
    session().gRenewPending = false;
    dtDate.setValue(session().gServerDate);
    RecordForm::load();
    desktop().focus(restingPlace());
}

void frmRecords::unload() {
    session().gRenewPending = false;
}

void frmRecords::fillLists() {
    cboPurpose.clear();
    core::addColumn(cboPurpose, hospital(), "select Distinct Purpose from hClinicPurpose"_sql, "Purpose");
    cboType.clear();
    core::addColumn(cboType, hospital(),
                    "select distinct ClinicName,ClinicID from clinicTypes where ClinicName not in "
                    "('(IN-PATIENT)','IN-PATIENT')  order by clinicName "_sql,
                    "ClinicID");
    client.loadClients(false);
}

void frmRecords::showList() {
    pickFromSearch_ = false;
    finder.lblFound.setCaption({});
    core::refreshRows(
        grdData,
        hospital().readShared(
            "select distinct  Fullname, RecDate as Date, [Time],CoyName as Client, ClientCat as BillingCat, "
            "ClinicType, recID, Surname, pNO as PatNo, empID, Remarks,attendedTo,ConsultID, Referal as "
            "FeeForService,HMORef as Referal,RetainID,PolicyType,EmpNo as EnrolleNo from "
            "qryhVisitsForToday ORDER BY recID desc"_sql),
        {"recID"});
    grdData.hideOnly({"recID", "attendedTo", "Surname", "empID"});
    grdData.setCaption("ATTENDANCE FOR TODAY: " + std::to_string(grdData.rows().rowCount()));
}

void frmRecords::refreshQueue() {
    core::refreshDoctorsQueue(place(), grdDoc, dtDate);
}

// A visit stays its patient's: while it is corrected, nobody else is found.
void frmRecords::entered(Mode /*mode*/) {
    finder.setEnabled(!editing());
    cboVehNo.setEnabled(!editing());
}

void frmRecords::clear() {
    clearPatient();
    finder.txtName.clear();
    cboVehNo.clear();
    cboType.clearText();
    cboPurpose.clearText();
    lblBill.setCaption({});
    finder.lblFound.setCaption({});
    recID_.clear();
    renewedPNo_.clear();
    session().gAttendPurpose.clear();
    session().gPatientBalance = 0;
    session().gRenewPending = false;
    dtDate.setValue(session().gServerDate);
}

void frmRecords::clearPatient() {
    pno_.clear();
    retainID_.clear();
    clientName_.clear();
    for (auto* label : {&lblTitle, &lblNo, &lblOld, &lblOccup, &lblPolicy, &lblExpire}) label->setCaption({});
    for (auto* list : {&client.cboPat, &client.CboRef, &client.cboRefHmo}) list->clearText();
    for (auto* list : {&client.cboClient, &client.txtPolicy}) list->clear();
    client.txtEmp.clear();
    imgPix.setImage({});
    cmdRenew.setEnabled(false);
}

/// A patient who was picked before stays: only the balance starts anew.
void frmRecords::startAdding() {
    session().gPatientBalance = 0;
    showList();
    desktop().focus(pno_.empty() ? static_cast<ui::Control&>(finder.txtName) : cboType);
}

void frmRecords::refresh() {
    load();
    clear();
    refreshQueue();
}

void frmRecords::cmdRenew_Click() {
    renewedPNo_ = pno_;
    session().gCurPatientName = lblTitle.caption();
    session().gCurPNo = pno_;
    session().gRenewCaller = "RECORDS";
    desktop().show("frmRenew");
}

std::optional<core::Refusal> frmRecords::mayEdit() {
    if (const auto refusal = withoutRow()) return refusal;
    if (!pickFromSearch_ && isSplitBill(grdData.text("ConsultID")))
        return core::Refusal{"This ConsultID Cannot be edited! Split Bill", nullptr, "Split Bill Not Editable"};
    if (editing()) return core::Refusal{"Already in Edit Mode Click 'Cancel Button' to cancel the currrent Editing"};
    return std::nullopt;
}

/// Edit and a double click: on a patient found they take his attendance.
void frmRecords::openRow() {
    if (pickFromSearch_ && grdData.row() >= 0) return takeFound();
    cmdEdit_Click();
}

std::optional<core::Refusal> frmRecords::mayErase() {
    if (!pickFromSearch_) return std::nullopt;
    return core::Refusal{"Please select a record from the list"};
}

std::optional<core::Refusal> frmRecords::erase() {
    hospital().execute("delete from hrecords where recID = '"_sql + grdData.text("recID") + "'");
    return std::nullopt;
}

void frmRecords::erased() {
    audit("Delete Patient: " + grdData.text("Fullname"), grdData.text("ConsultID"));
    RecordForm::erased();
}

}  // namespace registration
