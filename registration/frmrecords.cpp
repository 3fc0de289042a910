#include "registration/frmrecords.h"

#include "core/doctorsqueue.h"
#include "core/grids.h"
#include "core/utility.h"

namespace registration {

using namespace db::literals;

namespace {

constexpr const char* noRow = "Please select a record from the list";

/// A part of a visit's bill that was split off, by the form of its number. "OFL" numbers are as long and are whole.
bool isSplitBill(const std::string& consultID) {
    return consultID.size() == 13 && consultID.substr(3, 3) != "OFL";
}

void fillYesNo(ui::ComboBox& list) {
    list.clear();
    for (const char* answer : {"", "YES", "NO"}) list.add(answer);
}

}  // namespace

frmRecords::frmRecords(core::Workplace& place)
    : Form(place, "frmRecords", "ATTENDANCE FOR TODAY :"),
      client_(place, {cboPat, cboClient, txtPolicy, txtEmp}, {retainID_, clientName_, category_, clientType_}) {
    bindEvents();
    cmdRenew.setEnabled(false);
    enter(Mode::browsing);
}

void frmRecords::bindEvents() {
    const auto bind = [this](ui::Control& control, ui::Event event, void (frmRecords::*operation)()) {
        control.on(event, [this, operation] { trapped([this, operation] { (this->*operation)(); }); });
    };
    bind(cboPat, ui::Event::click, &frmRecords::cboPat_Click);
    bind(cboType, ui::Event::click, &frmRecords::cboType_Click);
    bind(cboPurpose, ui::Event::click, &frmRecords::cboPurpose_Click);
    bind(dtDate, ui::Event::change, &frmRecords::refreshQueue);
    // A purpose that is no entry of the list is routed nowhere.
    cboPurpose.on(ui::Event::change, [this] { session().gAttendPurpose.clear(); });
    cboVehNo.on(ui::Event::click, [this] { cboVehNo_Click(); });
    grdData.on(ui::Event::dblClick, [this] { cmdEdit_Click(); });
    txtName.on(ui::Event::keyReturn, [this] {
        const auto text = core::trimmed(txtName.text());
        const bool number = !text.empty() && text.find_first_not_of("0123456789/") == std::string::npos;
        find(number ? SearchKind::sysNo : SearchKind::name);
    });
}

void frmRecords::load() {
    session().gRenewPending = false;
    dtDate.setValue(session().gServerDate);
    trapped([this] {
        fillLists();
        showToday();
    });
    desktop().focus(txtName);
}

void frmRecords::unload() {
    session().gRenewPending = false;
}

void frmRecords::fillLists() {
    fillYesNo(CboRef);
    fillYesNo(cboRefHmo);
    cboPurpose.clear();
    core::addColumn(cboPurpose, hospital(), "select Distinct Purpose from hClinicPurpose"_sql, "Purpose");
    cboType.clear();
    core::addColumn(cboType, hospital(),
                    "select distinct ClinicName,ClinicID from clinicTypes where ClinicName not in "
                    "('(IN-PATIENT)','IN-PATIENT')  order by clinicName "_sql,
                    "ClinicID");
    client_.loadClients(false);
}

void frmRecords::showToday() {
    pickFromSearch_ = false;
    lblFound.setCaption({});
    core::refreshRows(
        grdData,
        hospital().read(
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

/// Silent: a box every half minute would keep the nurse from her work; the next tick tries again.
void frmRecords::Timer1_Timer() {
    try {
        refreshQueue();
    } catch (const db::Error&) {
        return;
    }
}

void frmRecords::enter(Mode mode) {
    mode_ = mode;
    const bool browsing = mode == Mode::browsing;
    for (auto* command : {&cmdAdd, &cmdEdit, &cmdDel, &cmdRefresh}) command->setVisible(browsing);
    for (auto* command : {&OKButton, &cmdCancel}) command->setVisible(!browsing);
    // A visit stays its patient's: while it is corrected, nobody else is found.
    for (ui::Control* control : std::initializer_list<ui::Control*>{&txtName, &cmdOK, &cmdCard, &cmdSys, &cboVehNo})
        control->setEnabled(mode != Mode::editing);
}

void frmRecords::browse() {
    enter(Mode::browsing);
    clearForm();
}

void frmRecords::clearForm() {
    clearPatient();
    txtName.clear();
    cboVehNo.clear();
    cboType.clearText();
    cboPurpose.clearText();
    lblBill.setCaption({});
    lblFound.setCaption({});
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
    for (auto* list : {&cboPat, &CboRef, &cboRefHmo}) list->clearText();
    for (auto* list : {&cboClient, &txtPolicy}) list->clear();
    txtEmp.clear();
    imgPix.setImage({});
    cmdRenew.setEnabled(false);
}

/// A patient who was picked before stays: only the balance starts anew.
void frmRecords::cmdAdd_Click() {
    session().gPatientBalance = 0;
    enter(Mode::adding);
    trapped([this] { showToday(); });
    desktop().focus(pno_.empty() ? static_cast<ui::Control&>(txtName) : cboType);
}

void frmRecords::cmdCancel_Click() {
    browse();
    trapped([this] { showToday(); });
    desktop().focus(txtName);
}

void frmRecords::cmdRefresh_Click() {
    load();
    clearForm();
    trapped([this] { refreshQueue(); });
}

void frmRecords::cmdRenew_Click() {
    renewedPNo_ = pno_;
    session().gCurPatientName = lblTitle.caption();
    session().gCurPNo = pno_;
    session().gRenewCaller = "RECORDS";
    desktop().show("frmRenew");
}

void frmRecords::cmdEdit_Click() {
    if (grdData.row() < 0) return message(noRow);
    trapped([this] {
        if (!pickFromSearch_ && isSplitBill(grdData.text("ConsultID")))
            return message("This ConsultID Cannot be edited! Split Bill", ui::Icon::none, "Split Bill Not Editable");
        if (mode_ == Mode::editing)
            return message("Already in Edit Mode Click 'Cancel Button' to cancel the currrent Editing");
        if (pickFromSearch_) return takeFound();
        correctVisit();
    });
}

void frmRecords::cmdDel_Click() {
    if (grdData.row() < 0 || pickFromSearch_) return message(noRow);
    if (!confirmed("Are you sure to Delete Record", "Delete")) return;
    trapped([this] {
        hospital().execute("delete from hrecords where recID = '"_sql + grdData.text("recID") + "'");
        audit("Delete Patient: " + grdData.text("Fullname"), grdData.text("ConsultID"));
        message(" Record successfully deleted ");
        showToday();
    });
}

}  // namespace registration
