#include "registration/frmpatientsnewnur/frmpatientsnewnur.h"

#include "core/care/referral.h"
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

namespace {

db::Recordset searchAsNurse(core::Workplace& place, SearchKind kind, const std::string& text, bool limited) {
    if (limited) return firstByName(place, core::quotesDoubled(text));
    return searchAtDesk(place, kind, text);
}

}  // namespace

frmPatientsNewNur::frmPatientsNewNur(core::Workplace& place)
    : RegistrationForm(place, "frmPatientsNewNur", " Registration",
                       {.numberSearch = SearchKind::sysNo,
                        .search = &searchAsNurse,
                        .visit = {.deskOnly = false, .consultPrice = ConsultPrice::service},
                        .deleteRefusal = "You dont have Permission to Reverse a Receipt Entry"}) {
    bind(photograph.cmdPix, ui::Event::click, &frmPatientsNewNur::cmdPix_Click);
    bind(cmdPatDep, ui::Event::click, &frmPatientsNewNur::cmdPatDep_Click);
}

std::vector<core::Check> frmPatientsNewNur::checksOfPatient() {
    const bool attends = visit.taken();
    return {
        {cboNew.text().empty(), "Specify if Registration is new OR Existing", &cboNew},
        {blank(client.cboPat), " Company Name cannot be empty", &client.cboPat},
        {card.cboCard.text().empty(), " Card Category cannot be empty", &card.cboCard},
        {!card.dtRegDate.value(), " Please Specify Date Patient Registered", &card.dtRegDate},
        {blank(person.txtsurNAme), " Surname cannot be empty", &person.txtsurNAme},
        {blank(person.txtfirstNAme), " Firstname cannot be empty", &person.txtfirstNAme},
        {client.cboClient.text().empty(), " Client Tariff cannot be empty", &client.cboClient},
        {attends && visit.cboClin.text().empty(), "Specify Clinic for Attendance", &visit.cboClin},
        {attends && visit.cboPurpose.text().empty(), "Specify Purpose of Attendance", &visit.cboPurpose},
        {attends && session().gAttendPurpose.empty(), "Specify Purpose of Attendance", &visit.cboPurpose},
    };
}

/// One visit a day, whatever the locks are set to; a patient in a ward may attend.
void frmPatientsNewNur::clinicPicked() {
    session().gClinicName = visit.cboClin.text();
    if (visit.cboClin.text().empty()) return;
    if (core::HasVisitToday(place(), pno())) {
        visit.clearClinic();
        return message("Patient Attendance already Taken! Duplicate not allowed!! Proceed to see Nurse/Doctor");
    }
    checkCard();
}

/// The client type goes by the category here, and with it what kind of patient he is.
void frmPatientsNewNur::categoryPicked() {
    auto& variables = session();
    const auto category = client.cboClient.text();
    variables.gPatClassCat = category == "PRIVATE" ? "PRIVATE" : "COMPANY";
    variables.gClientType = category == "HMO" || category == "NHIS" ? category : variables.gPatClassCat;
}

core::Cells frmPatientsNewNur::kinshipCells() const {
    return {{"Principal", pno()}, {"pCatID", session().gPatClassCat}};
}

void frmPatientsNewNur::writeBehindNewPatient() {
    core::Cells clinic = {{"PNo", pno()},
                          {"regDate", *card.dtRegDate.value()},
                          {"Clinic", registrationClass},
                          {"Remarks", registrationClass},
                          {"Active", 1}};
    if (card.dtExpDate.value()) clinic.emplace_back("expireDate", *card.dtExpDate.value());
    core::addRow(hospital(), "select * from hPatientClinics where 1=2"_sql, clinic);
    if (cboNew.text() != "NEW" || !client.isPrivate()) return;
    addRegistrationFee(registrationAmount());
}

double frmPatientsNewNur::registrationAmount() {
    const std::string patientClass = registrationClass;
    if (isGeneralClass(patientClass))
        return statedFee(hospital(),
                         "select price from hServiceNHIS where sno="_sql + settingNumber(session().gNhisRegServiceNo),
                         "price");
    return statedFee(hospital(),
                     "select clinicID,ClinicName,Regfee from clinicTypes where clinicID='"_sql + patientClass + "'",
                     "Regfee");
}

void frmPatientsNewNur::TakeAttendance() {
    writeAppointment();
    hospital().execute("update hPatients set LastAttndDate='"_sql + session().gServerNow.date() +
                       "', LastConsultID = '" + visit.number() + "' where pno='" + pno() + "'");
    core::addRow(hospital(), "select  * from hRecords where 1=2"_sql, visit.cells(pno(), client));
    addFee("ATTENDANCE", purposeAmount(), session().gConsultRevtype, {{"AppVersion", place().settings.version.major}});
    addBalance();
    if (session().gAttendPurpose == "SCREENING") addScreening(place(), visit.number(), visit.cboPurpose.text());
    referNewborn();
    session().gPatientBalance = 0;
    core::RefreshDebtInfo(place(), pno());
    audit("Insert Attnd for " + person.fullName(), visit.number(),
          client.cboClient.text() + "/" + visit.cboClin.text() + "/" + visit.cboPurpose.text() + "/" +
              session().gClientName);
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
    audit("Insert Debt for " + person.fullName(), visit.number());
}

/// A child born in the house is passed to the ward at once.
void frmPatientsNewNur::referNewborn() {
    const auto& clinic = visit.cboClin.text();
    if (clinic != "IN-PATIENT" && !(contacts.cboMat.text() == "NEONATE" && clinic == "(IN-PATIENT)")) return;
    const auto date = session().gServerNow.date();
    const auto time = core::shortTime(session().gServerNow);
    core::addRow(hospital(), "select * from hreferal where 1=2"_sql,
                 core::joined(core::referralCells({.consultID = visit.number(),
                                                   .category = client.cboClient.text(),
                                                   .clinic = "(IN-PATIENT)",
                                                   .reason = "DELIVERY",
                                                   .pno = pno(),
                                                   .date = date,
                                                   .time = time}),
                              {{"entryDate", date}, {"entryTime", time}}));
}

void frmPatientsNewNur::cmdPix_Click() {
    if (pno().empty()) return message("Invalid Sys No!");
    photograph.choose();
}

/// Dependants have a screen of their own here, which takes what it needs of the principal.
void frmPatientsNewNur::cmdPatDep_Click() {
    if (patCatLoaded_ == "DEPENDANT")
        return message("Select a Principal Patient! Cannot Add Dependants to existing Dependant!!");
    const auto number = pno();
    if (number.empty()) return message("Select Principal/Patient to add Dependants to");
    session().gCurPNo = number;
    session().gCurPatientName = person.fullName();
    desktop().show("frmPatientsDep");
}

}  // namespace registration
