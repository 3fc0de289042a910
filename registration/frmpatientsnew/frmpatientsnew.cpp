#include "registration/frmpatientsnew/frmpatientsnew.h"

#include <algorithm>

#include "core/forms/form.h"
#include "core/rows/cells.h"
#include "core/session/session.h"
#include "core/session/workplace.h"
#include "core/texts/texts.h"

namespace registration {

using namespace db::literals;

frmPatientsNew::frmPatientsNew(core::Workplace& place)
    : RegistrationForm(place, "frmPatientsNew", "Patient Attendance / Registration",
                       {.numberSearch = SearchKind::phoneNo,
                        .consultPrice = ConsultPrice::client,
                        .deleteRefusal = "You dont have Permission to Reverse an Entry"}) {
    cboDoc.onPage(SSTab1, 2);
    grdDoc.onPage(SSTab1, 2);
    cboDoc.heldBy(fraAttd);
    grdDoc.hideColumn("EmpID");
    bind(cboDoc, ui::Event::click, &frmPatientsNew::cboDoc_Click);
    bind(grdDoc, ui::Event::dblClick, &frmPatientsNew::grdDoc_DblClick);
    quietly(Timer1, &frmPatientsNew::refreshQueues);
}

std::vector<core::Check> frmPatientsNew::checksOfPatient() {
    const auto& client = session().gClientRetainID;
    const bool managed = isManagedCare(cboClient.text());
    const bool attends = chkReg.checked();
    std::vector<core::Check> checks = {
        {cboNew.text().empty(), "Specify if Registration is new OR Existing", &cboNew},
        {cboTitle.text().empty(), "Specify Patient Title/Salutation", &cboTitle},
        {blank(cboPat), " Company Name cannot be empty", &cboPat},
        {client.empty(), " Select Company Name", &cboPat, "Empty Company Code not Allowed"},
        {core::trimmed(client).size() > 7, " Re-Select Company Name", &cboPat, "Invalid Company Code"},
        {managed && blank(txtEmp), "HMO Enrolle No Needed", &txtEmp},
        {managed && session().gAdmissionLimitExists == "YES" && txtAdmitLimit.text().empty(),
         "Specify Maximum No of hrs to Stay in Admission, if Admitted! (AdmissionLimit) Enter zero if Unlimited",
         &txtAdmitLimit},
    };
    // At its place among the checks: a patient outside the schemes needs no limit.
    const bool held = std::none_of(checks.begin(), checks.end(), [](const core::Check& check) { return check.failed; });
    if (held && !managed && txtAdmitLimit.text().empty()) txtAdmitLimit.setText("0");
    const std::vector<core::Check> further = {
        {cboCard.text().empty(), " Card Category cannot be empty", &cboCard},
        {!dtExpDate.value() && isPrivate(), " Please Specify Expiration Date for this Private Patient", &dtExpDate},
        {!dtRegDate.value(), " Please Specify Date Patient Registered", &dtRegDate},
        {editing() && blank(txtSupp), " Patient Card No cannot be empty", &txtName},
        {blank(cboMat), " Patient Maturity  Cannot be Blank", &cboMat},
        {!editing() && cboNew.text().empty(), " Specify Registration type 'NEW/OLD'", &cboNew},
        {CboRef.text().empty(), "Fee for Service Field  Cannot be Blank", &CboRef},
        {blank(cboRefHmo), "HMO Referal Field  Cannot be Blank", &cboRefHmo},
        {blank(cboArea), "Specify Patient Residential Area", &cboArea},
        {blank(txtsurNAme), " Surname cannot be empty", &txtsurNAme},
        {blank(txtfirstNAme), " Firstname cannot be empty", &txtfirstNAme},
        {cboPat.text().empty(), " Company Name cannot be empty", &cboPat},
        {cboClient.text().empty(), "Billing Cat (Client Tariff) cannot be empty", &cboClient},
        {attends && cboClin.text().empty(), "Specify Clinic for Attendance", &cboClin},
        {attends && cboPurpose.text().empty(), "Specify Purpose of Attendance", &cboPurpose},
        {attends && session().gAttendPurpose.empty(), "Specify Purpose of Attendance", &cboPurpose},
        {blank(txtPhone), "Patient's Phone No Required! 11 Digits Onlt!! GSM Only. eg 08031234567", &txtPhone},
        {blank(txtKin), "Next of Kin Required", &txtKin},
        {blank(txtNOKPhone), "Next of Kin Phone No Required", &txtNOKPhone},
    };
    checks.insert(checks.end(), further.begin(), further.end());
    return checks;
}

/// The name and the telephone are searched for as typed; only the card's number has its quotes doubled.
db::Recordset frmPatientsNew::search(SearchKind kind, const std::string& text) {
    if (kind == SearchKind::phoneNo)
        return hospital().read("select  * from vwhpatients where PhoneNo like '%"_sql + text + "%' order by fullname");
    if (kind == SearchKind::cardNo)
        return hospital().read("select  * from vwhpatients where oldPno = '"_sql + core::quotesDoubled(text) +
                               "'  order by fullname");
    if (limitedSearch()) return firstByName(place(), text);
    return hospital().read("select  * from vwhpatients where fullname like '%"_sql + text + "%'  order by fullname");
}

core::Cells frmPatientsNew::kinshipCells() const {
    if (dependantMode_) return {{"Principal", principalPNo_}, {"pCatID", "DEPENDANT"}};
    return {{"Principal", core::trimmed(txtSupp.text())}, {"pCatID", "PRINCIPAL"}};
}

void frmPatientsNew::writeBehindNewPatient() {
    if (cboNew.text() != "NEW") return;
    const auto amount = clientFee(
        "select RegAmount from hRetainership where retainID='"_sql + session().gClientRetainID + "'", "RegAmount");
    addFee("REGISTRATION", amount, "REGISTRATION", {{"Category", "REGISTRATION"}, {"suppres", 0}, {"Capitated", "NO"}});
    audit("Reg Fee for " + fullName(), consultId_);
}

void frmPatientsNew::cmdPix_Click() {
    if (txtSupp.text().empty()) txtSupp.setText("0000");
    choosePhotograph();
}

/// Begins a dependant of the loaded principal: surname, address, client and card stay as the principal's.
void frmPatientsNew::cmdPatDep_Click() {
    if (patCatLoaded_ == "DEPENDANT") {
        message("Select a Principal Patient! Cannot Add Dependants to existing Dependant!!");
        SSTab1.setPage(0);
        return clear();
    }
    if (currentPNo_.empty() && txtSupp.text().empty()) return message("Select Principal Patient to add Dependants to");
    principalPNo_ = currentPNo_.empty() ? core::trimmed(txtSupp.text()) : currentPNo_;
    for (auto* box : {&txtfirstNAme, &txtAge, &txtPhone, &txtEmail, &txtOccu, &txtOfficeAddress}) box->clear();
    dtDate.setValue({});
    clearPhotograph();
    for (auto* list : {&txtSex, &cboMat, &txtKinRel, &cboTitle, &cboNew}) list->clearText();
    cmdAdd_Click();
    dependantMode_ = true;
}

void frmPatientsNew::finished() {
    if (!dependantMode_) return clear();
    // A further dependant is one of the same principal.
    if (confirmed("Any other Dependant?", "Addtional Dependant")) return anotherDependant();
    clear();
}

void frmPatientsNew::anotherDependant() {
    currentPNo_ = principalPNo_;
    patCatLoaded_ = "PRINCIPAL";
    cmdPatDep_Click();
}

}  // namespace registration
