#include "registration/shared/registrationform/registrationform.h"

#include "core/rows/entries.h"
#include "core/session/mainwindow.h"
#include "core/session/session.h"
#include "core/session/workplace.h"
#include "core/texts/texts.h"
#include "ui/raised.h"

namespace registration {

using core::Keeps;
using ui::Event;

RegistrationForm::RegistrationForm(core::Workplace& place, std::string name, std::string caption, const Ways& ways)
    : RecordForm(place, std::move(name), std::move(caption)),
      finder(place, *this, grdData, ways.numberSearch, ways.search),
      client(place, *this, ui::ComboBox::Style::freeText,
             {session().gClientRetainID, session().gClientName, session().gBillingCat, session().gClientType}),
      visit(place, *this, stage_, *this, ways.visit),
      deleteRefusal_(ways.deleteRefusal),
      title_(this->caption()) {
    alwaysShow({&cmdRefresh});
    keep({{&txtSupp, "pno", "PNo", Keeps::trimmed},
          {&card.txtOLD, "oldPno", "OldPNo", Keeps::trimmed},
          {&person.cboTitle, "title", "Title"},
          {&person.txtsurNAme, "Surname"},
          {&person.txtfirstNAme, "Firstname"},
          {&contacts.txtHomeAddress, "homeAddress", "homeAddress"},
          {&contacts.cboArea, "Area", "Area"},
          {&contacts.txtOfficeAddress, "OfficeAddress", "officeAddress"},
          {&contacts.txtPhone, "PhoneNo", "pPhoneNo", Keeps::trimmed},
          {&contacts.txtEmail, "email", "Email"},
          {&person.txtSex, "Sex", "sex"},
          {&contacts.cboMat, nullptr, "Maturity"},
          {&client.CboRef, nullptr, "ref"},
          {&client.cboRefHmo, nullptr, "HMORef"},
          {&client.txtEmp, "empNo", "empNo", Keeps::trimmed},
          {&client.txtPolicy, nullptr, "PolicyType"},
          {&card.cboCard, "CardType", "CardType"},
          {&card.cboFile, nullptr, "fileduration"},
          {&card.dtRegDate, "regDate", "regDate"},
          {&contacts.cboMStatus, "Marital", "MStatus"},
          {&contacts.txtBG, "bloodGroup", "bloodGroup"},
          {&contacts.txtGeno, "genotype", "genotype"},
          {&contacts.txtOccu, "occupation", "occupation"},
          {&contacts.cboStatus, "religion", "religion"},
          {&contacts.txtKin, "nextOfKin", "nextOfKin"},
          {&contacts.txtNOKPhone, "nokPhone", "NOKPhone", Keeps::trimmed},
          {&contacts.txtKinRel, "relationToKin", "relationToKin"},
          {&contacts.txtKinAddress, "kinAddress", "kinAddress"},
          {&txtAdmitLimit, "AdmissionDaysLimit", "AdmissionDaysLimit"},
          {&person.dtDate, "DOB"},
          {&card.dtExpDate, "ExpiryDate"}},
         Enabled::always);
    core::fill(cboNew, {"", "NEW", "EXISTING"});
    bindEvents();
    grdData.onPage(SSTab1, 0);
    for (int page = 0; const auto& controls : {finder.controls(), contacts.controls(), visit.controls()}) {
        for (auto* control : controls) control->onPage(SSTab1, page);
        ++page;
    }
}

void RegistrationForm::bindEvents() {
    bind(grdData, Event::dblClick, &RegistrationForm::grdData_DblClick);
    bind(client.cboPat, Event::click, &RegistrationForm::pickClient);
    bind(client.cboClient, Event::click, &RegistrationForm::pickCategory);
    bind(chkAll, Event::click, [this] {
        if (chkAll.checked()) client.offerAllCategories();
    });
    bind(card.cboCard, Event::click, &RegistrationForm::pickCard);
    bind(contacts.cboMat, Event::click, &RegistrationForm::pickMaturity);
    bind(visit.cmdAttend, Event::click, [this] { visit.showPast(pno()); });
    bind(card.cmdRenew, Event::click, &RegistrationForm::cmdRenew_Click);
    bind(cmdPlan, Event::click, &RegistrationForm::cmdPlan_Click);
    bind(cmdANC, Event::click, &RegistrationForm::cmdANC_Click);
    bind(cmdComm, Event::click, &RegistrationForm::cmdComm_Click);
}

void RegistrationForm::load() {
    const auto today = place().now().date();
    session().gRenewPending = false;
    visit.fraAttd.setEnabled(false);
    person.dtDate.setValue({});
    card.dtExpDate.setValue(today);
    card.dtRegDate.setValue(today);
    txtSupp.setEnabled(false);
    for (auto* button : {&cmdPatDep, &cmdANC, &card.cmdRenew}) button->setEnabled(false);
    RecordForm::load();
    desktop().focus(restingPlace());
}

void RegistrationForm::unload() {
    session().gRenewPending = false;
    finder.stop();
}

void RegistrationForm::entered(Mode /*mode*/) {
    stage_.adding = adding();
    stage_.editing = editing();
}

void RegistrationForm::fillLists() {
    client.loadClients(true);
    visit.loadLists();
    contacts.loadLists();
}

/// What was picked from the lists, or typed beside them, stands again.
void RegistrationForm::refresh() {
    struct Shown {
        ui::ComboBox* list;
        std::string text;
        bool picked;
    };
    std::vector<Shown> before;
    for (auto* list : {&client.cboPat, &visit.cboPurpose, &contacts.cboArea, &visit.cboClin, &contacts.cboIntro})
        before.push_back({list, list->text(), list->index() >= 0});
    fillLists();
    {
        const ui::Raised loading(stage_.loading);
        for (const auto& shown : before) {
            if (shown.picked)
                core::showEntry(*shown.list, shown.text);
            else
                shown.list->setText(shown.text);
        }
    }
    showList();
}

void RegistrationForm::clear() {
    fields().clear();
    cboNew.clearText();
    person.txtAge.clear();
    card.dtRegDate.setValue(place().now().date());
    txtAdmitLimit.setText("0");
    debt.clear();
    client.forget();
    chkAll.setChecked(false);
    contacts.forgetIntroducer();
    photograph.clear();
    visit.clear();  // a renewal without a visit must not hang on the last patient's
    setCaption(title_);
    currentPNo_.clear();
    patCatLoaded_.clear();
    dependantMode_ = false;
    auto& variables = session();
    variables.gRenewPending = false;
    variables.gPatientHasBalance = false;
    for (auto* button : {&cmdPatDep, &cmdANC, &card.cmdRenew}) button->setEnabled(false);
    if (place().mainWindow != nullptr) place().mainWindow->showDebt("");
}

std::string RegistrationForm::pno() const {
    return core::trimmed(txtSupp.text());
}

}  // namespace registration
