#include "registration/frmpatientsnewnur/frmpatientsnewnur.h"

#include "core/clock/clock.h"
#include "core/forms/form.h"
#include "core/patients/patient.h"
#include "core/rows/cells.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "registration/shared/cards.h"
#include "registration/shared/visits.h"

namespace registration {

using namespace db::literals;

frmPatientsNewNur::frmPatientsNewNur(core::Workplace& place)
    : RegistrationForm(place, "frmPatientsNewNur", " Registration",
                       {.numberSearch = SearchKind::sysNo,
                        .consultPrice = ConsultPrice::service,
                        .deleteRefusal = "You dont have Permission to Reverse a Receipt Entry"}) {
    cmdSys.setCaption("System No");
}

std::vector<core::Check> frmPatientsNewNur::checksOfPatient() {
    const bool attends = chkReg.checked();
    return {
        {cboNew.text().empty(), "Specify if Registration is new OR Existing", &cboNew},
        {blank(cboPat), " Company Name cannot be empty", &cboPat},
        {cboCard.text().empty(), " Card Category cannot be empty", &cboCard},
        {!dtRegDate.value(), " Please Specify Date Patient Registered", &dtRegDate},
        {blank(txtsurNAme), " Surname cannot be empty", &txtsurNAme},
        {blank(txtfirstNAme), " Firstname cannot be empty", &txtfirstNAme},
        {cboClient.text().empty(), " Client Tariff cannot be empty", &cboClient},
        {attends && cboClin.text().empty(), "Specify Clinic for Attendance", &cboClin},
        {attends && cboPurpose.text().empty(), "Specify Purpose of Attendance", &cboPurpose},
        {attends && session().gAttendPurpose.empty(), "Specify Purpose of Attendance", &cboPurpose},
    };
}

/// One visit a day, whatever the locks are set to; a patient in a ward may attend.
void frmPatientsNewNur::cboClin_Click() {
    session().gClinicName = cboClin.text();
    if (cboClin.text().empty()) return;
    if (core::HasVisitToday(place(), core::trimmed(txtSupp.text()))) {
        clearClinic();
        return message("Patient Attendance already Taken! Duplicate not allowed!! Proceed to see Nurse/Doctor");
    }
    cardIsGood();
}

/// The client type goes by the category here, and with it what kind of patient he is.
void frmPatientsNewNur::categoryPicked() {
    auto& variables = session();
    const auto category = cboClient.text();
    variables.gPatClassCat = category == "PRIVATE" ? "PRIVATE" : "COMPANY";
    variables.gClientType = category == "HMO" || category == "NHIS" ? category : variables.gPatClassCat;
}

db::Recordset frmPatientsNewNur::search(SearchKind kind, const std::string& text) {
    if (kind == SearchKind::name && limitedSearch()) return firstByName(place(), core::quotesDoubled(text));
    if (kind != SearchKind::sysNo) return searchAtDesk(place(), kind, text);
    txtName.setText(systemNumber(session(), text));
    return searchAtDesk(place(), kind, txtName.text());
}

core::Cells frmPatientsNewNur::kinshipCells() const {
    return {{"Principal", core::trimmed(txtSupp.text())}, {"pCatID", session().gPatClassCat}};
}

void frmPatientsNewNur::writeBehindNewPatient() {
    core::Cells clinic = {{"PNo", core::trimmed(txtSupp.text())},
                          {"regDate", *dtRegDate.value()},
                          {"Clinic", defaultClass_},
                          {"Remarks", defaultClass_},
                          {"Active", 1}};
    if (dtExpDate.value()) clinic.emplace_back("expireDate", *dtExpDate.value());
    core::addRow(hospital(), "select * from hPatientClinics where 1=2"_sql, clinic);
    if (cboNew.text() != "NEW" || !isPrivate()) return;
    addFee("REGISTRATION", registrationAmount(), "REGISTRATION",
           {{"Category", "REGISTRATION"}, {"suppres", 0}, {"Capitated", "NO"}});
    audit("Reg Fee for " + fullName(), consultId_);
}

double frmPatientsNewNur::registrationAmount() {
    if (isGeneralClass(defaultClass_))
        return clientFee("select price from hServiceNHIS where sno="_sql + settingNumber(session().gNhisRegServiceNo),
                         "price");
    return clientFee("select clinicID,ClinicName,Regfee from clinicTypes where clinicID='"_sql + defaultClass_ + "'",
                     "Regfee");
}

void frmPatientsNewNur::TakeAttendance() {
    if (cboPurpose.text() == "APPOINTMENT") writeAppointment();
    const auto pno = core::trimmed(txtSupp.text());
    hospital().execute("update hPatients set LastAttndDate='"_sql + session().gServerNow.date() +
                       "', LastConsultID = '" + consultId_ + "' where pno='" + pno + "'");
    core::addRow(hospital(), "select  * from hRecords where 1=2"_sql, visitCells());
    addFee("ATTENDANCE", purposeAmount(), session().gConsultRevtype, {{"AppVersion", place().settings.version.major}});
    addBalance();
    if (session().gAttendPurpose == "SCREENING") addScreening(place(), consultId_, cboPurpose.text());
    referNewborn();
    session().gPatientBalance = 0;
    core::RefreshDebtInfo(place(), pno);
    audit("Insert Attnd for " + fullName(), consultId_,
          cboClient.text() + "/" + cboClin.text() + "/" + cboPurpose.text() + "/" + session().gClientName);
}

/// What the purpose costs: the one place where a consultation's fee reaches the bill at the desk.
double frmPatientsNewNur::purposeAmount() const {
    const auto& variables = session();
    if (variables.gAttendPurpose == "SCREENING") return db::Value(variables.gScreeningAmount).number();
    const bool consults = variables.gAttendPurpose == "CONSULTATION" || variables.gAttendPurpose == "(CONSULTATION)";
    return consults && !variables.gConsultAmount.empty() ? db::Value(variables.gConsultAmount).number() : 0;
}

/// The line carries the negated balance, and its name goes by the balance's sign: below zero it is called a debt. The
/// suite's bills read it so.
void frmPatientsNewNur::addBalance() {
    const auto balance = session().gPatientBalance;
    if (balance == 0) return;
    addFee(balance >= 0 ? "PREVIOUS CREDIT" : "PREVIOUS DEBT", -balance, session().gConsultRevtype,
           {{"AppVersion", place().settings.version.major}});
    audit("Insert Debt for " + fullName(), consultId_);
}

/// A child born in the house is passed to the ward at once.
void frmPatientsNewNur::referNewborn() {
    const auto& clinic = cboClin.text();
    if (clinic != "IN-PATIENT" && !(cboMat.text() == "NEONATE" && clinic == "(IN-PATIENT)")) return;
    const auto date = session().gServerNow.date();
    const auto time = core::shortTime(session().gServerNow);
    core::addRow(hospital(), "select * from hreferal where 1=2"_sql,
                 {{"consultID", consultId_},
                  {"clientCat", cboClient.text()},
                  {"referto", "(IN-PATIENT)"},
                  {"refDate", date},
                  {"refTime", time},
                  {"refReason", "DELIVERY"},
                  {"PNo", core::trimmed(txtSupp.text())},
                  {"entryDate", date},
                  {"entryTime", time}});
}

void frmPatientsNewNur::cmdPix_Click() {
    if (core::trimmed(txtSupp.text()).empty()) return message("Invalid Sys No!");
    choosePhotograph();
}

/// Dependants have a screen of their own here, which takes what it needs of the principal.
void frmPatientsNewNur::cmdPatDep_Click() {
    if (patCatLoaded_ == "DEPENDANT")
        return message("Select a Principal Patient! Cannot Add Dependants to existing Dependant!!");
    const auto number = core::trimmed(txtSupp.text());
    if (number.empty()) return message("Select Principal/Patient to add Dependants to");
    session().gCurPNo = number;
    session().gCurPatientName = fullName();
    desktop().show("frmPatientsDep");
}

}  // namespace registration
