#include "core/clock/clock.h"
#include "core/patients/patient.h"
#include "core/rows/entries.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "db/letters.h"
#include "registration/shared/patientsview.h"
#include "registration/shared/registrationform/registrationform.h"
#include "ui/raised.h"

namespace registration {

using namespace db::literals;

void RegistrationForm::findPatient(SearchKind kind) {
    if (blank(txtName)) return refuse(searchPrompt(kind), txtName);
    showSearch(kind);
}

void RegistrationForm::showSearch(SearchKind kind) {
    const auto text = core::trimmed(txtName.text());
    if (text.empty()) return;
    showFound(grdData, lblFound, search(kind, text), {"Surname", "expired", "coyname"});
}

bool RegistrationForm::limitedSearch() const {
    return quickSearch_ && settingNumber(session().gSearchValue) != db::Value(0);
}

/// Searches while the nurse types. Digits of a number fire no search by name, and each keystroke starts the wait anew.
void RegistrationForm::txtName_Change() {
    const int turn = ++searchTurn_;
    const auto& text = txtName.text();
    if (text.empty()) {
        grdData.clear();
        return lblFound.setCaption("0 Records Found");
    }
    if (db::characterCount(text) < 3 || text.find_first_of("10") != std::string::npos) return;
    const std::chrono::milliseconds wait(session().gSearchWaitTime);
    core::WaitWithEvents(place(), wait, {[&] { return turn != searchTurn_; }});
    if (turn != searchTurn_) return;
    setCaption("Retrieving data...Please wait");
    desktop().showProgress();
    trapped([this] {
        const ui::Raised quick(quickSearch_);
        showSearch(SearchKind::name);
    });
    setCaption(title_);
}

void RegistrationForm::ShowTodaysRegistrations() {
    const auto today = session().gServerDate.date();
    showFound(grdData, lblFound,
              hospital().read("select  * from vwhpatients where RegDate='"_sql + today + "' order by fullname"),
              {"expired", "coyname"});
}

void RegistrationForm::grdData_DblClick() {
    if (grdData.row() < 0) return;
    const bool typed = adding() && !core::blank(fullName());
    if (typed && !confirmed("Leave the patient who is being added?", title_)) return;
    correct();
    if (!editing()) return;
    cmdPatDep.setEnabled(true);
    core::ShowAncInfo(place(), currentPNo_);
    core::RefreshDebtInfo(place(), currentPNo_);
}

void RegistrationForm::LoadPatientFromGrid() {
    // The fee of a renewal is that patient's alone.
    if (currentPNo_ != grdData.text("pno")) session().gRenewPending = false;
    fillFromGrid();
    if (mayTakeAttendance() && !cboMat.text().empty()) cboMat_Click();
    cmdANC.setEnabled(session().gModuleRole == "NURSING" && grdData.text("Sex") == "FEMALE");
    photograph_.load(currentPNo_);
}

/// No pick fills in its defaults meanwhile, so that the patient can be saved at once.
void RegistrationForm::fillFromGrid() {
    const ui::Raised loading(rowLoading_);
    const auto& grid = grdData;
    const auto text = [&](const char* column) { return grid.text(column); };
    currentPNo_ = text("pno");
    setCaption(text("FullName"));
    fields().fill(grid);
    if (!text("fileDuration").empty()) core::showEntry(cboFile, text("fileDuration"));
    if (!text("Maturity").empty()) core::showEntry(cboMat, text("Maturity"));
    core::showEntry(CboRef, text("ref").empty() ? "NO" : text("ref"));
    core::showEntry(cboRefHmo, text("HmoRef").empty() ? "NO" : text("HmoRef"));
    core::showEntry(cboNew, text("newReg") == "YES" ? "NEW" : "EXISTING");
    dtDate_Change();
    patCatLoaded_ = text("patcat");
    showIntroducer(text("introducedBy"));
    showClientOfRow();
    forgetVisit();
}

void RegistrationForm::showClientOfRow() {
    const auto id = grdData.text("coyname");
    const auto name = grdData.text("Client");
    auto& variables = session();
    variables.gClientRetainID = id;
    variables.gClientName = name;
    variables.gBillingCat = grdData.text("BillingCat");
    variables.gClientType = grdData.text("coyType");
    old_ = {id, name};
    core::showEntry(cboPat, name.empty() ? std::string() : core::entryText(name, id));
    client_.offerCategoriesOf(id);
    core::showEntry(cboClient, variables.gBillingCat);
    client_.offerPlansOf(variables.gBillingCat);
    core::showEntry(txtPolicy, grdData.text("policyType"));
}

/// A staff member who has left stands with the number alone.
void RegistrationForm::showIntroducer(const std::string& empId) {
    const int item = core::itemWithKey(cboIntro, empId);
    core::showEntry(cboIntro, item < 0 ? empId : cboIntro.items()[static_cast<std::size_t>(item)].text);
    introducedById_ = empId;
}

/// The clinic and the purpose that were picked for somebody else would pass this patient's locks and card by.
void RegistrationForm::forgetVisit() {
    clearClinic();
    cboPurpose.clearText();
    session().gAttendPurpose.clear();
}

/// Warns of a namesake and blocks nothing.
void RegistrationForm::txtsurNAme_LostFocus() {
    const auto surname = core::trimmed(txtsurNAme.text());
    if (surname.empty()) return;
    auto same = hospital().read(
        "select distinct psurname as Surname,pfirstname as Firstname,pno as NewFileNo,oldpno as [Old FileNo],homeAddress from hpatients where psurname = '"_sql +
        core::quotesDoubled(surname) + "'");
    if (same.empty()) return;
    message("One or more Surnames match !!! Please Confirm for Duplicates");
    if (auto* verify = opened<PatientsView>("frmVerify")) verify->show(std::move(same));
}

void RegistrationForm::cmdAttend_Click() {
    const auto pno = core::trimmed(txtSupp.text());
    if (pno.empty()) return message("No Patient! Please select a Patient");
    grdAttend.bind(
        hospital().read("select distinct recDate as Date,htime as AttendTime,FullName,ClinicType as Clinic,Remarks as "
                        "Purpose,RetainName as Company,ConsultID from vwhRecords where pno='"_sql +
                        pno + "' order by RecDate desc"));
}

}  // namespace registration
