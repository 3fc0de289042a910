#include "registration/shared/registrationform/visitentry.h"

#include "core/care/referral.h"
#include "core/clock/clock.h"
#include "core/patients/outbox.h"
#include "core/rows/entries.h"
#include "core/session/session.h"
#include "registration/shared/visits.h"

namespace registration {

using namespace db::literals;
using ui::Event;

VisitEntry::VisitEntry(core::Workplace& place, ui::Screen& screen, const Stage& stage, Follower& follower,
                       const Ways& ways)
    : Part(place, screen), stage_(stage), follower_(follower), ways_(ways) {
    for (ui::Control* control : std::initializer_list<ui::Control*>{&cboClin, &cboPurpose, &dtNext, &dtRefTime})
        control->heldBy(fraAttd);
    bind(chkReg, Event::click, [this] { take(); });
    bind(cboClin, Event::click, [this] { pickClinic(); });
    bind(cboPurpose, Event::click, [this] { pickPurpose(); });
    // A purpose that is no entry of the list is routed nowhere.
    bind(cboPurpose, Event::change, [this] { session().gAttendPurpose.clear(); });
}

std::vector<ui::Control*> VisitEntry::controls() {
    return {&chkReg, &fraAttd, &cboClin, &cboPurpose, &dtNext, &dtRefTime, &cmdAttend, &grdAttend};
}

void VisitEntry::loadLists() {
    cboPurpose.clear();
    core::addColumn(cboPurpose, hospital(), "select Distinct Purpose from hClinicPurpose"_sql, "Purpose");
    cboClin.clear();
    cboClin.add("");
    core::addColumn(cboClin, hospital(), "select distinct ClinicName,ClinicID from clinicTypes order by ClinicName"_sql,
                    "ClinicID");
}

bool VisitEntry::allowed() const {
    return !ways_.deskOnly || session().gModuleRole == "RECORDS";
}

void VisitEntry::offer() {
    chkReg.setChecked(allowed());
    fraAttd.setEnabled(chkReg.checked());
}

void VisitEntry::request() {
    chkReg.setChecked(true);
    take();
}

void VisitEntry::take() {
    if (chkReg.checked() && !allowed()) {
        chkReg.setChecked(false);
        return message("Only FrontDesk Module can take Attendance! Edit Allowed");
    }
    fraAttd.setEnabled(chkReg.checked());
}

/// What could not be looked up lets nobody through.
void VisitEntry::pickClinic() {
    if (!stage_.loading && !trapped([this] { follower_.clinicPicked(); })) clearClinic();
}

void VisitEntry::pickPurpose() {
    if (stage_.loading) return;
    routePurpose(place(), cboPurpose.text(), session().gClientRetainID, ways_.consultPrice);
    if (isAppointment() && cboClin.text().empty()) {
        session().gAttendPurpose.clear();
        return refuse("Specify Clinic", cboClin);
    }
    if (!cboPurpose.text().empty()) follower_.purposePicked();
}

void VisitEntry::clearClinic() {
    cboClin.clearText();
    follower_.clinicCleared();
}

void VisitEntry::forgetPicks() {
    clearClinic();
    cboPurpose.clearText();
    session().gAttendPurpose.clear();
}

void VisitEntry::clear() {
    forgetPicks();
    for (auto* date : {&dtNext, &dtRefTime}) date->setValue({});
    chkReg.setChecked(false);
    fraAttd.setEnabled(false);
    grdAttend.clear();
    consultId_.clear();
}

void VisitEntry::showPast(const std::string& pno) {
    if (pno.empty()) return message("No Patient! Please select a Patient");
    grdAttend.bind(
        hospital().read("select distinct recDate as Date,htime as AttendTime,FullName,ClinicType as Clinic,Remarks as "
                        "Purpose,RetainName as Company,ConsultID from vwhRecords where pno='"_sql +
                        pno + "' order by RecDate desc"));
}

bool VisitEntry::drawNumber() {
    consultId_ = drawConsultId(place());
    return !consultId_.empty();
}

core::Cells VisitEntry::cells(const std::string& pno, const ClientPick& client) const {
    return newVisitCells(session(), {.pno = pno,
                                     .consultID = consultId_,
                                     .clinic = cboClin.text(),
                                     .purpose = cboPurpose.text(),
                                     .hmoReferal = client.cboRefHmo.text(),
                                     .feeForService = client.CboRef.text(),
                                     .category = session().gBillingCat,
                                     .retainID = session().gClientRetainID});
}

void VisitEntry::writeAppointment(const std::string& pno) {
    auto& variables = session();
    variables.gApptDate = core::valueOf(dtNext);
    variables.gApptTime = core::valueOf(dtRefTime);
    core::addRow(hospital(), "select  * from happointment where 1=2"_sql,
                 core::appointmentCells({.consultID = consultId_,
                                         .category = variables.gBillingCat,
                                         .clinic = cboClin.text(),
                                         .date = variables.gApptDate,
                                         .time = variables.gApptTime,
                                         .remarks = cboClin.text() + " Appointment",
                                         .pno = pno,
                                         .entered = variables.gServerNow}));
}

void VisitEntry::queueMessage(const std::string& pno, const std::string& phone, const std::string& extra) {
    const auto& variables = session();
    if (!isAppointment())
        return core::QueueMessage(place(), pno, consultId_, "ATTEND", "ATTENDANCE", variables.gServerDate,
                                  variables.gServerTime, phone, extra);
    core::QueueMessage(place(), pno, consultId_, "APPT", cboClin.text(), dtNext.value().value_or(db::DateTime()),
                       dtRefTime.value().value_or(db::DateTime()), phone, extra);
}

}  // namespace registration
