#include "registration/frmpatientsnew/frmpatientsnew.h"

#include <algorithm>

#include "core/care/staylimit.h"
#include "core/forms/form.h"
#include "core/rows/cells.h"
#include "core/session/session.h"
#include "core/session/workplace.h"
#include "core/texts/texts.h"
#include "registration/shared/cards.h"

namespace registration {

using namespace db::literals;

namespace {

/// The name and the telephone are searched for as typed; only the card's number has its quotes doubled.
db::Recordset search(core::Workplace& place, SearchKind kind, const std::string& text, bool limited) {
    auto& hospital = place.hospital();
    if (kind == SearchKind::phoneNo)
        return hospital.read("select  * from vwhpatients where PhoneNo like '%"_sql + text + "%' order by fullname");
    if (kind == SearchKind::cardNo)
        return hospital.read("select  * from vwhpatients where oldPno = '"_sql + core::quotesDoubled(text) +
                             "'  order by fullname");
    if (limited) return firstByName(place, text);
    return hospital.read("select  * from vwhpatients where fullname like '%"_sql + text + "%'  order by fullname");
}

}  // namespace

frmPatientsNew::frmPatientsNew(core::Workplace& place)
    : RegistrationForm(place, "frmPatientsNew", "Patient Attendance / Registration",
                       {.numberSearch = SearchKind::phoneNo,
                        .search = &search,
                        .visit = {.deskOnly = true, .consultPrice = ConsultPrice::client},
                        .deleteRefusal = "You dont have Permission to Reverse an Entry"}) {
    cboDoc.onPage(SSTab1, 2);
    grdDoc.onPage(SSTab1, 2);
    cboDoc.heldBy(visit.fraAttd);
    grdDoc.hideColumn("EmpID");
    bind(cboDoc, ui::Event::click, &frmPatientsNew::cboDoc_Click);
    bind(grdDoc, ui::Event::dblClick, &frmPatientsNew::grdDoc_DblClick);
    bind(photograph.cmdPix, ui::Event::click, &frmPatientsNew::cmdPix_Click);
    bind(cmdPatDep, ui::Event::click, &frmPatientsNew::cmdPatDep_Click);
    quietly(Timer1, &frmPatientsNew::refreshQueues);
}

std::vector<core::Check> frmPatientsNew::checksOfPatient() {
    const auto& retainID = session().gClientRetainID;
    const bool managed = core::isManagedCare(client.cboClient.text());
    const bool attends = visit.taken();
    std::vector<core::Check> checks = {
        {cboNew.text().empty(), "Specify if Registration is new OR Existing", &cboNew},
        {person.cboTitle.text().empty(), "Specify Patient Title/Salutation", &person.cboTitle},
        {blank(client.cboPat), " Company Name cannot be empty", &client.cboPat},
        {retainID.empty(), " Select Company Name", &client.cboPat, "Empty Company Code not Allowed"},
        {core::trimmed(retainID).size() > 7, " Re-Select Company Name", &client.cboPat, "Invalid Company Code"},
        {managed && blank(client.txtEmp), "HMO Enrolle No Needed", &client.txtEmp},
        {managed && session().gAdmissionLimitExists == "YES" && txtAdmitLimit.text().empty(),
         "Specify Maximum No of hrs to Stay in Admission, if Admitted! (AdmissionLimit) Enter zero if Unlimited",
         &txtAdmitLimit},
    };
    // At its place among the checks: a patient outside the schemes needs no limit.
    const bool held = std::none_of(checks.begin(), checks.end(), [](const core::Check& check) { return check.failed; });
    if (held && !managed && txtAdmitLimit.text().empty()) txtAdmitLimit.setText("0");
    const std::vector<core::Check> further = {
        {card.cboCard.text().empty(), " Card Category cannot be empty", &card.cboCard},
        {!card.dtExpDate.value() && client.isPrivate(), " Please Specify Expiration Date for this Private Patient",
         &card.dtExpDate},
        {!card.dtRegDate.value(), " Please Specify Date Patient Registered", &card.dtRegDate},
        {editing() && blank(txtSupp), " Patient Card No cannot be empty", &finder.txtName},
        {blank(contacts.cboMat), " Patient Maturity  Cannot be Blank", &contacts.cboMat},
        {!editing() && cboNew.text().empty(), " Specify Registration type 'NEW/OLD'", &cboNew},
        {client.CboRef.text().empty(), "Fee for Service Field  Cannot be Blank", &client.CboRef},
        {blank(client.cboRefHmo), "HMO Referal Field  Cannot be Blank", &client.cboRefHmo},
        {blank(contacts.cboArea), "Specify Patient Residential Area", &contacts.cboArea},
        {blank(person.txtsurNAme), " Surname cannot be empty", &person.txtsurNAme},
        {blank(person.txtfirstNAme), " Firstname cannot be empty", &person.txtfirstNAme},
        {client.cboPat.text().empty(), " Company Name cannot be empty", &client.cboPat},
        {client.cboClient.text().empty(), "Billing Cat (Client Tariff) cannot be empty", &client.cboClient},
        {attends && visit.cboClin.text().empty(), "Specify Clinic for Attendance", &visit.cboClin},
        {attends && visit.cboPurpose.text().empty(), "Specify Purpose of Attendance", &visit.cboPurpose},
        {attends && session().gAttendPurpose.empty(), "Specify Purpose of Attendance", &visit.cboPurpose},
        {blank(contacts.txtPhone), "Patient's Phone No Required! 11 Digits Onlt!! GSM Only. eg 08031234567",
         &contacts.txtPhone},
        {blank(contacts.txtKin), "Next of Kin Required", &contacts.txtKin},
        {blank(contacts.txtNOKPhone), "Next of Kin Phone No Required", &contacts.txtNOKPhone},
    };
    checks.insert(checks.end(), further.begin(), further.end());
    return checks;
}

core::Cells frmPatientsNew::kinshipCells() const {
    if (dependantMode_) return {{"Principal", principalPNo_}, {"pCatID", "DEPENDANT"}};
    return {{"Principal", pno()}, {"pCatID", "PRINCIPAL"}};
}

void frmPatientsNew::writeBehindNewPatient() {
    if (cboNew.text() != "NEW") return;
    const auto amount = statedFee(
        hospital(), "select RegAmount from hRetainership where retainID='"_sql + session().gClientRetainID + "'",
        "RegAmount");
    addRegistrationFee(amount);
}

void frmPatientsNew::cmdPix_Click() {
    if (txtSupp.text().empty()) txtSupp.setText("0000");
    photograph.choose();
}

/// Begins a dependant of the loaded principal: surname, address, client and card stay as the principal's.
void frmPatientsNew::cmdPatDep_Click() {
    if (patCatLoaded_ == "DEPENDANT") {
        message("Select a Principal Patient! Cannot Add Dependants to existing Dependant!!");
        SSTab1.setPage(0);
        return clear();
    }
    if (currentPNo_.empty() && txtSupp.text().empty()) return message("Select Principal Patient to add Dependants to");
    principalPNo_ = currentPNo_.empty() ? pno() : currentPNo_;
    for (auto* box : {&person.txtfirstNAme, &person.txtAge, &contacts.txtPhone, &contacts.txtEmail, &contacts.txtOccu,
                      &contacts.txtOfficeAddress})
        box->clear();
    person.dtDate.setValue({});
    photograph.clear();
    for (auto* list : {&person.txtSex, &contacts.cboMat, &contacts.txtKinRel, &person.cboTitle, &cboNew})
        list->clearText();
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
