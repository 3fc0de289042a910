#include "outpatient/frmpreconsult.h"

#include "core/utility.h"

using namespace db::literals;

namespace outpatient {
namespace {

constexpr const char* title = "Vital Signs";
constexpr const char* noRow = "Please select a record from the list";

}  // namespace

frmPreConsult::frmPreConsult(core::Workplace& place) : Form(place, "frmPreConsult", title) {
    chkAll.on(ui::Event::click, [this] { chkAll_Click(); });
    cboVehNo.on(ui::Event::click, [this] { cboVehNo_Click(); });
    dtDate.on(ui::Event::change, [this] { trapped([this] { refreshQueue(); }); });
    grdData.on(ui::Event::dblClick, [this] { cmdEdit_Click(); });
    grdDoc.on(ui::Event::dblClick, [this] { grdDoc_DblClick(); });
    for (const char* column : {"ID", "pno"}) grdData.hideColumn(column);
    enter(Mode::browsing);
}

void frmPreConsult::load() {
    showToday();
    trapped([&] {
        fillPositions();
        fillDoctors();
        fillClinics();
        refreshGrid();
    });
}

void frmPreConsult::enter(Mode mode) {
    mode_ = mode;
    const bool browsing = mode == Mode::browsing;
    for (ui::Button* command : {&cmdAdd, &cmdEdit, &cmdDel, &cmdRefresh}) command->setVisible(browsing);
    for (ui::Button* command : {&OKButton, &cmdCancel}) command->setVisible(!browsing);
    for (ui::TextBox* text : texts_) text->setEnabled(!browsing);
    for (ui::ComboBox* list : {&cboVehNo, &cboPosition, &CboRef, &cboType}) list->setEnabled(!browsing);
    // A fresh list would take the patient under correction away.
    chkAll.setEnabled(mode != Mode::editing);
}

void frmPreConsult::browse() {
    enter(Mode::browsing);
    clearFields();
    desktop().focus(cmdAdd);
}

void frmPreConsult::clearFields() {
    for (ui::TextBox* text : texts_) text->clear();
    for (ui::ComboBox* list : {&cboPosition, &CboRef, &cboType}) list->clearText();
    cboVehNo.clear();
    chkAll.setChecked(false);
    clearPatient();
    recordID_.clear();
    showToday();
}

void frmPreConsult::clearPatient() {
    consultID_.clear();
    retainID_.clear();
    retainCode_.clear();
    for (ui::Label* label : {&lblNo, &lblCardNo, &lblBill, &lblCat, &lblAge, &lblSex, &lblRem}) label->setCaption({});
    Label5.setCaption(title);
}

void frmPreConsult::cmdAdd_Click() {
    trapped([&] {
        core::refreshServerClock(place());
        dtDate.setValue(session().gServerDate);
        enter(Mode::adding);
        desktop().focus(cboVehNo);
        fillWaiting();
    });
}

void frmPreConsult::chkAll_Click() {
    if (chkAll.checked()) trapped([&] { fillWaiting(); });
}

void frmPreConsult::cboVehNo_Click() {
    if (cboVehNo.index() < 0 || cboVehNo.text() == " ") return;
    trapped([&] { showPatient(cboVehNo.text()); });
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
    retainCode_ = found["RetainCode"].textOr();
    retainID_ = found["retainID"].textOr();
    cboType.setText(found["clinicType"].textOr());
}

void frmPreConsult::cmdEdit_Click() {
    if (mode_ != Mode::browsing) return message("Save or cancel the current entry first");
    if (grdData.row() < 0) return message(noRow);
    trapped([&] {
        loadReadings();
        enter(Mode::editing);
        desktop().focus(txtTemp);
    });
}

void frmPreConsult::loadReadings() {
    recordID_ = grdData.text("ID");
    cboVehNo.clear();
    cboVehNo.add(core::entryText(grdData.text("fullname"), grdData.text("consultID")));
    cboVehNo.setIndex(0);
    lblNo.setCaption(grdData.text("pNo"));
    const auto date = grdData.rows()["date"];
    dtDate.setValue(date.isNull() ? std::nullopt : std::optional(date.moment()));
    struct Column {
        const char* name;
        ui::TextBox& field;
    };
    for (const auto& [name, field] : std::initializer_list<Column>{{"temp", txtTemp},
                                                                   {"details", txtRem},
                                                                   {"pulse", txtPause},
                                                                   {"Weight", txtWt},
                                                                   {"Height", txtHt},
                                                                   {"respRatio", txtResp},
                                                                   {"UrineSug", txtSugar},
                                                                   {"UrineAlb", txtAlb},
                                                                   {"SPO2", txtSPO2},
                                                                   {"RBS", txtRBS}})
        field.setText(grdData.text(name));
    cboPosition.setText(grdData.text("Positioning"));
    const std::string pressure = grdData.text("pressure");
    const auto slash = pressure.find('/');
    txtPressure.setText(pressure.substr(0, slash));
    txtPressure2.setText(slash == std::string::npos ? std::string() : pressure.substr(slash + 1));
    Label5.setCaption(grdData.text("fullname"));
}

void frmPreConsult::cmdDel_Click() {
    if (grdData.row() < 0) return message(noRow);
    if (!confirmed("Are you sure to Delete Record", "Delete")) return;
    trapped([&] {
        hospital().execute("delete from hpreconsult where id ="_sql + grdData.text("id"));
        message(" Record successfully deleted ");
        refreshGrid();
    });
}

/// Takes the patients whom a nurse or a doctor has seen today off the nurse's list, should the mark have been lost.
void frmPreConsult::cmdRefresh_Click() {
    trapped([&] {
        const auto today = session().gServerDate;
        hospital().execute(
            "Update hrecords set  attendedto=1,attendedtoByNurse=1 where consultID in (select consultID from "
            "hPreConsult where predate ='"_sql +
            today + "')");
        hospital().execute(
            "Update hrecords set  attendedto=1,attendedtoByNurse=1 where consultID in (select consultID from "
            "hConsulting where CDate ='"_sql +
            today + "')");
        refreshGrid();
        refreshQueue();
    });
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
