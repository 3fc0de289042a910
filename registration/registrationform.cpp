#include "registration/registrationform.h"

#include "core/utility.h"

namespace registration {

using namespace db::literals;

namespace {

void fill(ui::ComboBox& list, std::initializer_list<const char*> texts) {
    list.clear();
    for (const auto* text : texts) list.add(text);
}

}  // namespace

RegistrationForm::RegistrationForm(core::Workplace& place, std::string name, std::string caption)
    : Form(place, std::move(name), std::move(caption)),
      photograph_(place, txtPix, imgPix),
      client_(place, {cboPat, cboClient, txtPolicy, txtEmp},
              {session().gClientRetainID, session().gClientName, session().gBillingCat, session().gClientType}) {
    title_ = this->caption();
    bindEvents();
    placeOnPages();
}

void RegistrationForm::bindEvents() {
    const auto bind = [this](ui::Control& control, ui::Event event, void (RegistrationForm::*operation)()) {
        control.on(event, [this, operation] { trapped([this, operation] { (this->*operation)(); }); });
    };
    bind(cboPat, ui::Event::click, &RegistrationForm::cboPat_Click);
    bind(cboClient, ui::Event::click, &RegistrationForm::cboClient_Click);
    bind(cboCard, ui::Event::click, &RegistrationForm::cboCard_Click);
    bind(cboFile, ui::Event::click, &RegistrationForm::cboFile_Click);
    bind(cboMat, ui::Event::click, &RegistrationForm::cboMat_Click);
    bind(cboIntro, ui::Event::click, &RegistrationForm::cboIntro_Click);
    bind(cboPurpose, ui::Event::click, &RegistrationForm::routeThePurpose);
    bind(chkReg, ui::Event::click, &RegistrationForm::chkReg_Click);
    bind(dtDate, ui::Event::change, &RegistrationForm::dtDate_Change);
    bind(txtAge, ui::Event::change, &RegistrationForm::txtAge_Change);
    bind(txtAge, ui::Event::lostFocus, &RegistrationForm::txtAge_LostFocus);
    bind(lblDebt, ui::Event::dblClick, &RegistrationForm::lblDebt_DblClick);
    bind(txtName, ui::Event::change, &RegistrationForm::txtName_Change);
    bind(grdData, ui::Event::dblClick, &RegistrationForm::grdData_DblClick);
    bind(txtsurNAme, ui::Event::lostFocus, &RegistrationForm::txtsurNAme_LostFocus);
    cboClin.on(ui::Event::click, [this] {
        // What could not be looked up lets nobody through.
        if (!rowLoading_ && !trapped([this] { cboClin_Click(); })) clearClinic();
    });
    // A purpose that is no entry of the list is routed nowhere.
    cboPurpose.on(ui::Event::change, [this] { session().gAttendPurpose.clear(); });
    chkAll.on(ui::Event::click, [this] {
        trapped([this] {
            if (chkAll.checked()) client_.offerAllCategories();
        });
    });
}

void RegistrationForm::placeOnPages() {
    for (ui::Control* control :
         std::initializer_list<ui::Control*>{&txtName, &cmdOK, &cmdCard, &cmdSys, &lblFound, &grdData})
        control->onPage(SSTab1, 0);
    for (ui::Control* control : std::initializer_list<ui::Control*>{
             &txtPhone, &cboMat, &txtHomeAddress, &txtOfficeAddress, &txtEmail, &cboMStatus, &txtBG, &txtGeno, &txtOccu,
             &cboStatus, &cboIntro, &txtKin, &txtNOKPhone, &txtKinRel, &txtKinAddress})
        control->onPage(SSTab1, 1);
    for (ui::Control* control : std::initializer_list<ui::Control*>{&chkReg, &fraAttd, &cboClin, &cboPurpose, &dtNext,
                                                                    &dtRefTime, &cmdAttend, &grdAttend})
        control->onPage(SSTab1, 2);
    for (ui::Control* control : std::initializer_list<ui::Control*>{&cboClin, &cboPurpose, &dtNext, &dtRefTime})
        control->heldBy(fraAttd);
}

void RegistrationForm::load() {
    const auto today = place().now().date();
    session().gRenewPending = false;
    fraAttd.setEnabled(false);
    dtDate.setValue({});
    dtExpDate.setValue(today);
    dtRegDate.setValue(today);
    txtSupp.setEnabled(false);
    txtPix.setVisible(false);
    for (auto* button : {&cmdPatDep, &cmdANC, &cmdRenew}) button->setEnabled(false);
    showBrowsing(true);
    fillFixedLists();
    trapped([this] {
        LoadLookups();
        ShowTodaysRegistrations();
        showQueues();
    });
    desktop().focus(txtName);
}

void RegistrationForm::unload() {
    editMode_ = false;
    session().gRenewPending = false;
    ++searchTurn_;
}

void RegistrationForm::fillFixedLists() {
    fill(cboTitle, {"", "MR", "MRS", "MISS", "MASTER", "DR", "PROF", "ALHAJI", "ALHAJA", "PASTOR", "CHIEF"});
    fill(txtKinRel, {"", "FATHER", "MOTHER", "UNCLE", "AUNT", "BROTHER", "SISTER", "COUSIN", "NIECE", "WIFE", "HUSBAND",
                     "SON", "DAUGHTER", "OTHERS"});
    fill(txtBG, {"", "O-NEGATIVE", "O-POSITIVE", "A-NEGATIVE", "A-POSITIVE", "B-NEGATIVE", "B-POSITIVE", "AB-NEGATIVE",
                 "AB-POSITIVE"});
    fill(txtGeno, {"", "AA", "AS", "SS", "AC"});
    fill(cboStatus, {"", "CHRISTIANITY", "ISLAM", "OTHERS"});
    fill(cboFile, {"", "WHILE STILL IN SERVICE", "ONE YEAR", "TILL END OF YEAR"});
    fill(cboCard, {"", "SINGLE", "FAMILY"});
    fill(cboMStatus, {"", "SINGLE", "MARRIED"});
    fill(CboRef, {"", "YES", "NO"});
    fill(cboRefHmo, {"", "YES", "NO"});
    fill(cboNew, {"", "NEW", "EXISTING"});
    fill(txtSex, {"", "MALE", "FEMALE"});
    fill(cboMat, {"ADULT", "ADOLESCENT", "CHILD", "NEONATE"});
}

void RegistrationForm::LoadLookups() {
    client_.loadClients(true);
    cboPurpose.clear();
    core::addColumn(cboPurpose, hospital(), "select Distinct Purpose from hClinicPurpose"_sql, "Purpose");
    cboArea.clear();
    core::addColumn(cboArea, hospital(), "select distinct AreaName from hPatientArea order by AreaName"_sql,
                    "AreaName");
    cboClin.clear();
    cboClin.add("");
    core::addColumn(cboClin, hospital(), "select distinct ClinicName,ClinicID from clinicTypes order by ClinicName"_sql,
                    "ClinicID");
    cboIntro.clear();
    cboIntro.add("");
    core::addEntries(
        cboIntro, hospital(), "select distinct empID,lastname,firstname from employees order by lastname,firstname"_sql,
        [](const db::Recordset& row) {
            return core::entryText(row["lastname"].textOr() + " " + row["firstname"].textOr(), row["empID"].textOr());
        });
}

/// What was picked from the lists, or typed beside them, stands again.
void RegistrationForm::reloadLookups() {
    struct Shown {
        ui::ComboBox* list;
        std::string text;
        bool picked;
    };
    std::vector<Shown> before;
    for (auto* list : {&cboPat, &cboPurpose, &cboArea, &cboClin, &cboIntro})
        before.push_back({list, list->text(), list->index() >= 0});
    LoadLookups();
    const ui::Raised loading(rowLoading_);
    for (const auto& shown : before) {
        if (shown.picked)
            core::showEntry(*shown.list, shown.text);
        else
            shown.list->setText(shown.text);
    }
}

void RegistrationForm::clearFields() {
    const ui::Raised loading(rowLoading_);
    for (auto* box : {&txtsurNAme, &txtfirstNAme, &txtAge, &txtSupp, &txtOLD, &txtEmp, &txtPhone, &txtHomeAddress,
                      &txtOfficeAddress, &txtEmail, &txtOccu, &txtKin, &txtNOKPhone, &txtKinAddress})
        box->clear();
    for (auto* list :
         {&cboNew, &cboTitle, &txtSex, &cboPat, &cboClient, &txtPolicy, &cboCard, &cboFile, &CboRef, &cboRefHmo,
          &cboArea, &cboMat, &cboMStatus, &txtBG, &txtGeno, &cboStatus, &cboIntro, &txtKinRel, &cboPurpose})
        list->clearText();
    clearClinic();
    for (auto* date : {&dtDate, &dtNext, &dtRefTime, &dtExpDate}) date->setValue({});
}

void RegistrationForm::ClearPatientForm() {
    clearFields();
    dtRegDate.setValue(place().now().date());
    txtAdmitLimit.setText("0");
    chkReg.setChecked(false);
    fraAttd.setEnabled(false);
    lblDebt.setCaption("0");
    photograph_.clear();
    grdAttend.clear();
    setCaption(title_);
    currentPNo_.clear();
    consultId_.clear();  // a renewal without a visit must not hang on the last patient's
    introducedById_.clear();
    patCatLoaded_.clear();
    auto& variables = session();
    client_.forget();
    chkAll.setChecked(false);
    variables.gAttendPurpose.clear();
    variables.gPatientBalance = 0;
    variables.gRenewPending = false;
    variables.gPatientHasBalance = false;
    dependantMode_ = false;
    for (auto* button : {&cmdPatDep, &cmdANC, &cmdRenew}) button->setEnabled(false);
    if (place().mainWindow != nullptr) place().mainWindow->showDebt("");
}

void RegistrationForm::showBrowsing(bool browsing) {
    for (auto* button : {&cmdAdd, &cmdEdit, &cmdDel}) button->setVisible(browsing);
    for (auto* button : {&OKButton, &cmdCancel}) button->setVisible(!browsing);
    OKButton.setEnabled(!browsing);
}

std::string RegistrationForm::fullName() const {
    return storedName(txtsurNAme.text()) + " " + storedName(txtfirstNAme.text());
}

std::string RegistrationForm::storedName(const std::string& typed) {
    auto name = core::trimmed(typed);
    std::erase_if(name, [](char letter) { return letter == '[' || letter == ']'; });
    return name;
}

std::string RegistrationForm::dated(const ui::DatePicker& date) {
    return date.value() ? date.value()->shortDate() : std::string();
}

}  // namespace registration
