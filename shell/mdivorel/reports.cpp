#include "core/session/session.h"
#include "shell/duelists.h"
#include "shell/mdivorel/mdivorel.h"

using namespace db::literals;

namespace shell {

void MdiVorel::showList(const db::Sql& query, const std::string& whenEmpty, const std::string& report,
                        const std::string& title) {
    auto rows = hospital().read(query);
    if (rows.empty()) return message(whenEmpty);
    desktop().report({report, title, std::move(rows)});
}

void MdiVorel::mnuPCOA_Click() {
    showList("select * from qryhAdmission order by fullname"_sql, "No Patient on Admission", "rptPatientAdmission");
}

void MdiVorel::mnuVit_Click() {
    showList("select * from qryhvitalsigns where predate = '"_sql + session().gServerDate + "'",
             "No Patient at Nursing Station", "rptVitalSigns", "Vital Signs for Today");
}

void MdiVorel::mnuRptSI_Click() {
    showList("select * from qryhNewBabies where bdate = '"_sql + session().gServerDate + "'",
             "No new Babies delivered Today", "rptNoOfBabies", "New Babaies delivered Today");
}

void MdiVorel::mnuRptSB_Click() {
    showList("select * from qryhAdmissionForToday where admdate = '"_sql + session().gServerDate + "'",
             "No Patient Admission to clinic For Today", "rptPatientAdmission", "Admission for Today");
}

void MdiVorel::mnuDischT_Click() {
    showList("select * from qryhDischargedX where dischdate = '"_sql + session().gServerDate + "'",
             "No Patient discharged from clinic Today", "rptPatientDischarge", "Patients Discharged Today");
}

void MdiVorel::verifyDue(const db::Sql& query, const std::string& line, bool& due) {
    trapped([&] {
        if (hospital().read(query).empty()) return;
        dueText_ += line + "\r\n";
        due = true;
    });
}

void MdiVorel::VerifyDueBalance() {
    verifyDue(balancesDue(), "--Some Patients Balance are due for payment--", balanceDue_);
}

void MdiVorel::VerifyDueDischDate() {
    verifyDue(babiesToDischarge(), "--Some new born babies are due for Discharge--", dischargeDue_);
}

void MdiVorel::VerifyDueDelivery() {
    verifyDue(expectedDeliveries(), "--Some Expectant mothers' EDD are due--", deliveryDue_);
}

}  // namespace shell
