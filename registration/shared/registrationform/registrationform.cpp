#include "registration/shared/registrationform/registrationform.h"

#include "core/rows/entries.h"
#include "core/session/mainwindow.h"
#include "core/session/session.h"
#include "core/session/workplace.h"
#include "core/texts/texts.h"
#include "ui/raised.h"

namespace registration {

using namespace db::literals;
using core::Keeps;
using ui::Event;

RegistrationForm::RegistrationForm(core::Workplace& place, std::string name, std::string caption, const Ways& ways)
    : RecordForm(place, std::move(name), std::move(caption)),
      ways_(ways),
      photograph_(place, txtPix, imgPix),
      client_(place, {cboPat, cboClient, txtPolicy, txtEmp},
              {session().gClientRetainID, session().gClientName, session().gBillingCat, session().gClientType}) {
    title_ = this->caption();
    alwaysShow({&cmdRefresh});
    keep({{&txtSupp, "pno", "PNo", Keeps::trimmed},
          {&txtOLD, "oldPno", "OldPNo", Keeps::trimmed},
          {&cboTitle, "title", "Title"},
          {&txtsurNAme, "Surname"},
          {&txtfirstNAme, "Firstname"},
          {&txtHomeAddress, "homeAddress", "homeAddress"},
          {&cboArea, "Area", "Area"},
          {&txtOfficeAddress, "OfficeAddress", "officeAddress"},
          {&txtPhone, "PhoneNo", "pPhoneNo", Keeps::trimmed},
          {&txtEmail, "email", "Email"},
          {&txtSex, "Sex", "sex"},
          {&cboMat, nullptr, "Maturity"},
          {&CboRef, nullptr, "ref"},
          {&cboRefHmo, nullptr, "HMORef"},
          {&txtEmp, "empNo", "empNo", Keeps::trimmed},
          {&txtPolicy, nullptr, "PolicyType"},
          {&cboCard, "CardType", "CardType"},
          {&cboFile, nullptr, "fileduration"},
          {&dtRegDate, "regDate", "regDate"},
          {&cboMStatus, "Marital", "MStatus"},
          {&txtBG, "bloodGroup", "bloodGroup"},
          {&txtGeno, "genotype", "genotype"},
          {&txtOccu, "occupation", "occupation"},
          {&cboStatus, "religion", "religion"},
          {&txtKin, "nextOfKin", "nextOfKin"},
          {&txtNOKPhone, "nokPhone", "NOKPhone", Keeps::trimmed},
          {&txtKinRel, "relationToKin", "relationToKin"},
          {&txtKinAddress, "kinAddress", "kinAddress"},
          {&txtAdmitLimit, "AdmissionDaysLimit", "AdmissionDaysLimit"},
          {&dtDate, "DOB"},
          {&dtExpDate, "ExpiryDate"}},
         Enabled::always);
    bindEvents();
    placeOnPages();
}

void RegistrationForm::bindEvents() {
    bind(grdData, Event::dblClick, &RegistrationForm::grdData_DblClick);
    bind(txtName, Event::change, &RegistrationForm::txtName_Change);
    bind(cmdOK, Event::click, [this] { findPatient(SearchKind::name); });
    bind(cmdCard, Event::click, [this] { findPatient(SearchKind::cardNo); });
    bind(cmdSys, Event::click, [this] { findPatient(ways_.numberSearch); });
    bind(txtsurNAme, Event::lostFocus, &RegistrationForm::txtsurNAme_LostFocus);
    bind(dtDate, Event::change, &RegistrationForm::dtDate_Change);
    bind(txtAge, Event::change, &RegistrationForm::txtAge_Change);
    bind(txtAge, Event::lostFocus, &RegistrationForm::txtAge_LostFocus);
    bind(cboPat, Event::click, &RegistrationForm::cboPat_Click);
    bind(cboClient, Event::click, &RegistrationForm::cboClient_Click);
    bind(chkAll, Event::click, &RegistrationForm::chkAll_Click);
    bind(cboCard, Event::click, &RegistrationForm::cboCard_Click);
    bind(cboFile, Event::click, &RegistrationForm::cboFile_Click);
    bind(cboMat, Event::click, &RegistrationForm::cboMat_Click);
    bind(cboIntro, Event::click, &RegistrationForm::cboIntro_Click);
    bind(lblDebt, Event::dblClick, &RegistrationForm::lblDebt_DblClick);
    bind(chkReg, Event::click, &RegistrationForm::chkReg_Click);
    bind(cboClin, Event::click, &RegistrationForm::pickClinic);
    bind(cboPurpose, Event::click, &RegistrationForm::routeThePurpose);
    // A purpose that is no entry of the list is routed nowhere.
    bind(cboPurpose, Event::change, [this] { session().gAttendPurpose.clear(); });
    bind(cmdAttend, Event::click, &RegistrationForm::cmdAttend_Click);
    bind(cmdPix, Event::click, &RegistrationForm::cmdPix_Click);
    bind(cmdRenew, Event::click, &RegistrationForm::cmdRenew_Click);
    bind(cmdPatDep, Event::click, &RegistrationForm::cmdPatDep_Click);
    bind(cmdPlan, Event::click, &RegistrationForm::cmdPlan_Click);
    bind(cmdANC, Event::click, &RegistrationForm::cmdANC_Click);
    bind(cmdComm, Event::click, &RegistrationForm::cmdComm_Click);
}

/// What could not be looked up lets nobody through.
void RegistrationForm::pickClinic() {
    if (!rowLoading_ && !trapped([this] { cboClin_Click(); })) clearClinic();
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
    RecordForm::load();
    desktop().focus(restingPlace());
}

void RegistrationForm::unload() {
    session().gRenewPending = false;
    ++searchTurn_;
}

void RegistrationForm::fillLists() {
    fillFixedLists();
    LoadLookups();
}

void RegistrationForm::showList() {
    ShowTodaysRegistrations();
    refreshQueues();
}

void RegistrationForm::refresh() {
    reloadLookups();
    showList();
}

void RegistrationForm::fillFixedLists() {
    core::fill(cboTitle, {"", "MR", "MRS", "MISS", "MASTER", "DR", "PROF", "ALHAJI", "ALHAJA", "PASTOR", "CHIEF"});
    core::fill(txtKinRel, {"", "FATHER", "MOTHER", "UNCLE", "AUNT", "BROTHER", "SISTER", "COUSIN", "NIECE", "WIFE",
                           "HUSBAND", "SON", "DAUGHTER", "OTHERS"});
    core::fill(txtBG, {"", "O-NEGATIVE", "O-POSITIVE", "A-NEGATIVE", "A-POSITIVE", "B-NEGATIVE", "B-POSITIVE",
                       "AB-NEGATIVE", "AB-POSITIVE"});
    core::fill(txtGeno, {"", "AA", "AS", "SS", "AC"});
    core::fill(cboStatus, {"", "CHRISTIANITY", "ISLAM", "OTHERS"});
    core::fill(cboFile, {"", "WHILE STILL IN SERVICE", "ONE YEAR", "TILL END OF YEAR"});
    core::fill(cboCard, {"", "SINGLE", "FAMILY"});
    core::fill(cboMStatus, {"", "SINGLE", "MARRIED"});
    core::fill(CboRef, {"", "YES", "NO"});
    core::fill(cboRefHmo, {"", "YES", "NO"});
    core::fill(cboNew, {"", "NEW", "EXISTING"});
    core::fill(txtSex, {"", "MALE", "FEMALE"});
    core::fill(cboMat, {"ADULT", "ADOLESCENT", "CHILD", "NEONATE"});
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

void RegistrationForm::clear() {
    {
        const ui::Raised loading(rowLoading_);
        fields().clear();
        for (auto* list : {&cboNew, &cboPat, &cboClient, &cboIntro, &cboPurpose}) list->clearText();
        for (auto* date : {&dtNext, &dtRefTime}) date->setValue({});
        txtAge.clear();
        clearClinic();
    }
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

std::string RegistrationForm::fullName() const {
    return storedName(txtsurNAme.text()) + " " + storedName(txtfirstNAme.text());
}

std::string RegistrationForm::storedName(const std::string& typed) {
    auto name = core::trimmed(typed);
    std::erase_if(name, [](char letter) { return letter == '[' || letter == ']'; });
    return name;
}

}  // namespace registration
