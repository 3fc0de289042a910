#include "inpatient/frmadmission/frmadmission.h"

#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"

namespace inpatient {

using namespace db::literals;
using ui::Event;

frmAdmission::frmAdmission(core::Workplace& place) : RecordForm(place, "frmAdmission", "Patient Admission") {
    keep({{&dtDate, "AdmDate", "admdate"},
          {&dtTime, "Time", "aTime"},
          {&cboWard, "Ward", "wardID"},
          {&txtREason, "Reason", "Reason", core::Keeps::trimmed},
          {&txtRem, "Remarks"},
          {&txtDiag, "Diagnosis", "diagnosis"},
          {&lblNo, "PatNo"},
          {&lblClient, "clientCat"},
          {&lblBill, "consultID"},
          {&lblTitle, "Fullname"}});
    for (auto* limit : {&dtAdmitLimit, &dtAdmitLimitTime}) limit->setEnabled(false);
    bind(cmdList, Event::click, &frmAdmission::fillReferrals);
    bind(cboVehNo, Event::click, &frmAdmission::cboVehNo_Click);
    grdData.hideColumn("SNO");
}

void frmAdmission::fillLists() {
    days.start(session().gServerDate);
    for (auto* day : {&dtDate, &dtAdmitLimit}) day->setValue(session().gServerDate);
    for (auto* time : {&dtTime, &dtAdmitLimitTime}) time->setValue(session().gServerTime);
    cboWard.clear();
    cboWard.add("");
    core::addColumn(cboWard, hospital(), "select distinct WardID,WardName from hWards order by WardName "_sql,
                    "WardID");
}

void frmAdmission::showList() {
    core::refreshRows(
        grdData,
        hospital().readShared(
            "select distinct SNO, AdmDate, aTime as Time, Fullname, WardID as Ward, "
            "clientCat,Company,DoctorName as AdmitedBy,Diagnosis, Reason, Remarks, pNo as PatNo, "
            "consultID, Age, Sex,PolicyType as HmoPlan from qryhAdmission order by admDate desc,atime desc"_sql),
        {"SNO"});
    grdData.setCaption("Patients in the wards: " + std::to_string(grdData.rows().rowCount()));
}

// A stay remains its patient's.
void frmAdmission::entered(Mode /*mode*/) {
    cboVehNo.setEnabled(adding());
    cmdList.setEnabled(adding());
}

void frmAdmission::clear() {
    RecordForm::clear();
    cboVehNo.clear();
    clearPatient();
    lblLimit.setCaption({});
    dtDate.setValue(session().gServerDate);
    dtTime.setValue(session().gServerTime);
}

void frmAdmission::clearPatient() {
    for (auto* label : {&lblBill, &lblClient, &lblNo, &lblDoc, &lblRules}) label->setCaption({});
    txtREason.clear();
    txtDiag.clear();
    doctor_.clear();
    if (!editing()) consultID_.clear();
    lblTitle.setCaption(caption());
}

void frmAdmission::startAdding() {
    lblLimit.setCaption({});
    fillReferrals();
    desktop().focus(cboVehNo);
}

/// Those who were referred to the wards in the days that are asked for. A visit that was ever admitted does not come
/// back.
void frmAdmission::fillReferrals() {
    const auto wanted =
        "select distinct pNO,pSurname,pFirstname,Company,refDate,consultID from qryhreferal where referTo in "
        "('IN-PATIENT','(IN-PATIENT)') and refdate between '"_sql +
        days.first() + "' AND '" + days.last() +
        "' and consultID not in (select ConsultID from hAdmission) order by psurname";
    cboVehNo.clear();
    cboVehNo.add("");
    core::addEntries(cboVehNo, hospital(), wanted, [](const db::Recordset& row) {
        const auto text = [&](const char* column) { return row[column].textOr(); };
        return core::entryText(
            text("pSurname") + " " + text("pFirstname") + " " + text("Company") + " @" + text("refDate"),
            text("consultID"));
    });
}

/// The pick runs last: what the referral says stands in place of what the row said.
void frmAdmission::startEditing() {
    RecordForm::startEditing();
    consultID_ = grdData.text("consultID");
    cboVehNo.clear();
    cboVehNo.add(core::entryText(grdData.text("Fullname") + " " + grdData.text("Company"), consultID_));
    desktop().focus(cboWard);
    cboVehNo.setIndex(0);
}

std::optional<core::Refusal> frmAdmission::mayErase() {
    return core::Refusal{"Invalid Action!!! Delete not Allowed"};
}

}  // namespace inpatient
