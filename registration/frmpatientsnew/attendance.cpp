#include "core/patients/patient.h"
#include "core/rows/cells.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "registration/frmpatientsnew/frmpatientsnew.h"

namespace registration {

using namespace db::literals;

/// The locks and the card are looked at when a clinic is picked; each refusal takes the pick back.
void frmPatientsNew::clinicPicked() {
    forgetDoctors();
    session().gClinicName = visit.cboClin.text();
    if (visit.cboClin.text().empty()) return;
    if (session().gAssignDoctorsToRooms == "YES" && !roomsAreAssigned()) return;
    offerDoctors();
    if (locked()) return visit.clearClinic();
    checkCard();
}

void frmPatientsNew::forgetDoctors() {
    cboDoc.clear();
    cboDoc.add("");
    assignedDoctorId_.clear();
    assignedDoctorName_.clear();
}

bool frmPatientsNew::roomsAreAssigned() {
    const auto rooms =
        hospital().read("select DocNo from hConRoomAssign where schdDate='"_sql + session().gServerDate + "'");
    if (!rooms.empty()) return true;
    message("Please Assign Doctors to Consulting Rooms before Attendance can be Taken", ui::Icon::none, "OK");
    visit.clearClinic();
    desktop().show("frmSchedDoctor");
    return false;
}

void frmPatientsNew::offerDoctors() {
    const auto& variables = session();
    const auto doctors =
        variables.gAssignDoctorsToRooms == "YES"
            ? hospital().read(
                  "select distinct EmpID,Doctor,ConRoomNo as RoomNo from vwDocClinicAndPatAssignedAll where IsOff=0 and Date='"_sql +
                  variables.gServerDate + "' and ClinicID='" + variables.gClinicName + "'  order by Doctor")
            : hospital().read(
                  "select distinct EmpID,Doctor,'RM XXX' as RoomNo from qryUserRoleClinic where ClinicID='"_sql +
                  variables.gClinicName + "'  order by Doctor");
    for (std::size_t row = 0; row < doctors.rowCount(); ++row)
        cboDoc.add(core::entryText(doctors.value(row, 1).textOr() + " @ " + doctors.value(row, 2).textOr(),
                                   doctors.value(row, 0).textOr()));
    if (!doctors.empty()) SuggestDoctor();
}

/// The doctor with the shortest queue.
void frmPatientsNew::SuggestDoctor() {
    const auto shortest =
        hospital().read("select  top 1 EmpID,Doctor,RoomNo from vwDocMinNumOfPat where IsOff=0 and Date='"_sql +
                        session().gServerDate + "' and ClinicID='" + session().gClinicName + "'  order by NumOfPat");
    if (shortest.empty()) return;
    if (const int item = core::itemWithKey(cboDoc, shortest["EmpID"].textOr()); item >= 0) cboDoc.setIndex(item);
}

bool frmPatientsNew::locked() {
    if (session().gLockAttendanceForInPatients == "YES" &&
        !hospital().read("select pno from qryhAdmission where pno='"_sql + pno() + "'").empty()) {
        message("This Patient is Still On Admission!! Discharge Patient Before Attendance can be Taken", ui::Icon::none,
                "LockAttendanceForInPatients");
        return true;
    }
    if (session().gLockMultipleAttendance == "YES" && core::HasVisitToday(place(), pno())) {
        message("Patient Attendance already Taken! Duplicate not allowed!! Proceed to see Nurse/Doctor", ui::Icon::none,
                "LockMultipleAttendnace");
        return true;
    }
    return false;
}

void frmPatientsNew::cboDoc_Click() {
    const auto entry = core::entryOf(cboDoc.text());
    assignedDoctorId_ = entry.key;
    assignedDoctorName_ = entry.name;
}

/// An appointment takes its day from the days of its clinic.
void frmPatientsNew::purposePicked() {
    if (!visit.isAppointment()) return;
    const auto days =
        hospital().read("select distinct Clinic  from vwClinicDays where clinic='"_sql + session().gClinicName + "'");
    if (!days.empty()) desktop().show("frmClinicDates");
}

void frmPatientsNew::TakeAttendance() {
    writeAppointment();
    hospital().execute("update hPatients set LastPurpose='"_sql + visit.cboPurpose.text() + "', LastClinicVisited ='" +
                       visit.cboClin.text() + "', LastAttndDate='" + session().gServerNow.date() +
                       "', LastConsultID = '" + visit.number() + "' where pno='" + pno() + "'");
    writeVisit();
    const core::Cells version = {{"AppVersion", place().settings.version.major}};
    addFee("ATTENDANCE", 0, session().gRevtypeConsult, version);
    addBalance();
    session().gPatientBalance = 0;
    core::RefreshDebtInfo(place(), pno());
    core::addRow(hospital(), "select  * from hPatientsTimeline where 1=2"_sql,
                 {{"consultID", visit.number()}, {"ServicePoint", "ATTENDANCE"}, {"EntryOrExit", "ENTRY|EXIT"}});
    audit("Insert Attendance for " + person.fullName(), visit.number(),
          client.cboClient.text() + "/" + visit.cboClin.text() + "/" + visit.cboPurpose.text() + "/" +
              session().gClientName);
}

void frmPatientsNew::writeVisit() {
    const auto last =
        hospital().read("select  top 1 ConsultID,recDate,clinicType,Remarks from hRecords  where pno='"_sql + pno() +
                        "' order by RecID desc");
    auto cells = visit.cells(pno(), client);
    if (!cboDoc.text().empty()) {
        cells.emplace_back("DocAssigned", assignedDoctorId_);
        cells.emplace_back("PatVal", 1);
    }
    if (!last.empty()) {
        cells.emplace_back("LastConsultID", last["ConsultID"]);
        cells.emplace_back("LastAttndDate", last["recDate"]);
        cells.emplace_back("LastClinicVisited", last["clinicType"]);
        cells.emplace_back("LastPurpose", last["Remarks"]);
    }
    core::addRow(hospital(), "select  * from hRecords where 1=2"_sql, cells);
}

/// What a new patient carries over from an older account becomes a line of the first visit.
void frmPatientsNew::addBalance() {
    const auto balance = debt.amount();
    session().gPatientBalance = balance;
    if (editing() || balance == 0) return;
    addFee("OPENING_BALANCE_DEBT", balance, session().gRevtypeConsult,
           {{"AppVersion", place().settings.version.major}});
}

void frmPatientsNew::showList() {
    RegistrationForm::showList();
    showQueues();
}

void frmPatientsNew::refresh() {
    RegistrationForm::refresh();
    forgetPastRooms();
}

void frmPatientsNew::refreshQueues() {
    showQueues();
    forgetPastRooms();
}

void frmPatientsNew::showQueues() {
    core::refreshRows(
        grdDoc,
        hospital().readShared(
            "select distinct [Date],RoomNo,ClinicID,Doctor,NumOfPat,EmpID from vwDocWaitingListGrouped where date='"_sql +
            session().gServerDate + "' order by Doctor"),
        {"EmpID", "ClinicID", "RoomNo"});
}

/// Rooms are assigned for a day.
void frmPatientsNew::forgetPastRooms() {
    hospital().execute("Delete hConRoomAssign where SchdDate < '"_sql + session().gServerDate + "'");
}

void frmPatientsNew::grdDoc_DblClick() {
    if (grdDoc.row() < 0) return;
    auto& variables = session();
    variables.gWaitDate = grdDoc.text("Date");
    variables.gWaitEmpID = grdDoc.text("EmpID");
    variables.gWaitClinicID = grdDoc.text("ClinicID");
    if (grdDoc.text("NumOfPat") != "0") return desktop().show("frmDocWait");
    for (auto* variable : {&variables.gWaitDate, &variables.gWaitEmpID, &variables.gWaitClinicID}) variable->clear();
    message("This Doctor has No Patients on Queue");
}

}  // namespace registration
