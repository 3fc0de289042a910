// What is written of a visit, and what takes it away again.

#include "billing/billlines.h"
#include "core/care/referral.h"
#include "core/clock/clock.h"
#include "core/patients/outbox.h"
#include "core/rows/cells.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "outpatient/frmimmune/frmimmune.h"

namespace outpatient {

using namespace db::literals;

std::vector<core::Check> frmImmune::checks() {
    return {
        {OrderGrid.lineCount() == 0, "No Item in the Grid! Please Select Item and Add to Grid", &cboDrug},
        {blank(cboVehNo), "Please select a valid Patient Name", &cboVehNo},
        {blank(cboAge), " please specify Age of Child", &cboAge},
        {blank(lblBill), "ConsultID Required for this Patient", &cboVehNo},
        {chkRef.checked() && blank(txtImm), " please specify Next Appointment Vaccine", &txtImm},
        {blank(lblNo), "Pat No Required for this Patient", &cboVehNo},
    };
}

/// The visit stands once it is committed: a next appointment that fails says why and leaves the entry for another save.
void frmImmune::OKButton_Click() {
    if (!passes(checks())) return;
    bool stands = false;
    saves(OKButton, [&] {
        session().gServerNow = core::GetServerNow(place());
        write();
        stands = true;
        message("Record Succesfully saved");
        audit("Insert Immunization for: " + lblPatient.caption(), lblBill.caption(), session().gUserFullName);
    });
    if (!stands) return;
    const bool done = !chkRef.checked() || trapped([this] { writeAppointment(); });
    if (done) {
        clear();
        fillWaiting();
    }
    showRows();
    if (done) desktop().focus(waiting.cmdNext);
}

void frmImmune::write() {
    const auto& key = lblBill.caption();
    db::Transaction transaction(hospital());
    deleteVisit(key);
    writeLines();
    core::addRow(hospital(), "select  * from hPatientsTimeline where 1=2"_sql,
                 {{"consultID", key}, {"ServicePoint", clinic}, {"EntryOrExit", "ENTRY|EXIT"}});
    core::addRow(hospital(), "select * from hImmunization where 1=2"_sql,
                 {{"ImDate", core::valueOf(dtDate)},
                  {"PNo", lblNo.caption()},
                  {"empID", session().gEmpID},
                  {"Remarks", txtRem.text()},
                  {"imTime", core::shortTime(session().gServerNow)},
                  {"AgeValue", cboAge.text()},
                  {"IMMUNIZATION", itemNames()},
                  {"consultID", key},
                  {"clientCat", lblClient.caption()},
                  {"NextApptDate", core::valueOf(dtNext)},
                  {"NextApptTime", core::valueOf(dtRefTime)},
                  {"ImmType", txtImm.text()}});
    hospital().execute("Update hRecords set AttendedToByImmume=1 where consultID = '"_sql + key + "'");
    transaction.commit();
}

void frmImmune::writeLines() {
    for (std::size_t line = 0; line < OrderGrid.lineCount(); ++line) {
        const auto number = [&](Column column) { return db::Value(OrderGrid.text(line, column)).number(); };
        billing::addBillLine(hospital(),
                             {.date = session().gServerNow.date(),
                              .name = OrderGrid.text(line, item),
                              .price = number(price),
                              .quantity = number(units),
                              .subTotal = number(subTotal),
                              .pno = lblNo.caption(),
                              .consultID = lblBill.caption(),
                              .billType = "SERVICE"},
                             {{"Category", OrderGrid.text(line, category)},
                              {"conID", 0},
                              {"BillTo", company_},
                              {"CoyName", company_},
                              {"revType", clinic},
                              {"Capitated", "NO"},
                              {"attendedto", 0},
                              {"isbilled", 0},
                              {"RevClinic", clinic},
                              {"AppVersion", place().settings.version.major}});
    }
}

std::string frmImmune::itemNames() const {
    std::string names;
    for (std::size_t line = 0; line < OrderGrid.lineCount(); ++line)
        names += (line == 0 ? "" : ",") + OrderGrid.text(line, item);
    return names;
}

void frmImmune::writeAppointment() {
    const auto& now = session().gServerNow;
    const core::Referral referral{.consultID = lblBill.caption(),
                                  .category = lblClient.caption(),
                                  .clinic = clinic,
                                  .reason = txtImm.text(),
                                  .pno = lblNo.caption(),
                                  .date = now.date(),
                                  .time = core::shortTime(now)};
    const core::Appointment appointment{.consultID = referral.consultID,
                                        .category = referral.category,
                                        .clinic = clinic,
                                        .date = core::valueOf(dtNext),
                                        .time = core::valueOf(dtRefTime),
                                        .remarks = txtImm.text(),
                                        .pno = referral.pno,
                                        .entered = now};
    core::addRow(hospital(), "select * from hreferal where 1=2"_sql,
                 core::joined(core::referralCells(referral),
                              {{"ApptDate", appointment.date}, {"ApptTime", appointment.time}, {"conID", 0}}));
    audit("Insert Referal for: " + lblPatient.caption(), referral.consultID, session().gUserFullName);
    core::addRow(hospital(), "select * from happointment where 1=2"_sql,
                 core::joined(core::appointmentCells(appointment), {{"conID", 0}}));
    audit("Insert Appt for: " + lblPatient.caption(), referral.consultID, clinic);
    if (!dtNext.value()) return;
    core::QueueMessage(place(), referral.pno, referral.consultID, "APPT", clinic, *dtNext.value(),
                       dtRefTime.value().value_or(db::DateTime()), phone_, {});
}

void frmImmune::cmdDel_Click() {
    if (grdData.row() < 0) return refuse("Please select a record from the list", grdData);
    const auto consultID = grdData.text("ConsultID");
    // Without a visit's number the deletes would find what no visit has.
    if (core::blank(consultID)) return refuse("ConsultID Required for this Patient", grdData);
    if (!confirmed("Are you sure to Delete Record", "Delete")) return;
    db::Transaction transaction(hospital());
    deleteVisit(consultID);
    transaction.commit();
    message(" Record successfully deleted ");
    showRows();
}

/// All that was saved of a visit, for its caller's transaction.
void frmImmune::deleteVisit(const std::string& consultID) {
    hospital().execute("delete from billaccum  where revType = 'IMMUNIZATION' and consultID = '"_sql + consultID + "'");
    hospital().execute("delete from BillingDetails where revType = 'IMMUNIZATION' and billNo = '"_sql + consultID +
                       "'");
    hospital().execute("delete from hImmunization  where consultID = '"_sql + consultID + "'");
    hospital().execute("delete from hAppointment  where ClinicType = 'IMMUNIZATION' and consultID = '"_sql + consultID +
                       "'");
    hospital().execute("delete from hReferal  where referTo = 'IMMUNIZATION' and consultID = '"_sql + consultID + "'");
}

}  // namespace outpatient
