// The save: a visit with its lines and the patient in step with it, together or not at all.

#include "core/care/staylimit.h"
#include "core/clock/clock.h"
#include "core/numbers/numbers.h"
#include "core/rows/cells.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "db/letters.h"
#include "registration/frmrecords/frmrecords.h"
#include "registration/shared/cards.h"

namespace registration {

using namespace db::literals;

std::vector<core::Check> frmRecords::checks() {
    const auto& category = client.cboClient.text();
    return {
        {pno_.empty(), " please specify Name of Patient", &cboVehNo},
        {category.empty() || category == "SERVICES",
         " Billing Category cannot be empty! Invalid Client Tariff or Billing Category", &client.cboClient},
        {cboType.text().empty(), " please specify clinic for Patient", &cboType},
        {blank(cboPurpose), " please specify Purpose of Visit for Patient", &cboPurpose},
        {session().gAttendPurpose.empty(), "Specify Purpose of Attendance", &cboPurpose},
        {core::isManagedCare(category) && blank(client.txtEmp), "HMO Enrolle No Needed OR enter NIL if No Enrolle Num ",
         &client.txtEmp},
        {blank(client.CboRef), " please specify Whether Patient is FeeForService", &client.CboRef},
        {blank(client.cboRefHmo), " please specify Whether Patient is a Referal", &client.cboRefHmo},
    };
}

std::optional<core::Refusal> frmRecords::write() {
    if (!editing()) return writeNew();
    writeCorrection();
    return std::nullopt;
}

void frmRecords::writeCorrection() {
    const auto now = visit();
    db::Recordset row(hospital(), "select * from hRecords where recID="_sql + recID_);
    core::setCells(row, {{"clientCat", now.category},
                         {"clinicType", now.clinic},
                         {"Remarks", now.purpose},
                         {"HMORef", now.hmoReferal},
                         {"referal", now.feeForService},
                         {"empID", session().gEmpID},
                         {"CoyName", now.retainID},
                         {"attendedtoByDoc", 0}});
    row.update();
    keepPatientInStep();
}

std::optional<core::Refusal> frmRecords::writeNew() {
    if (!drawNumber()) return core::Refusal{noConsultId};
    core::addRow(hospital(), "select  * from hRecords where 1=2"_sql, newVisitCells(session(), visit()));
    if (session().gRenewPending) addRenewalFee();
    keepPatientInStep();
    addAttendanceLine();
    if (session().gAttendPurpose == "SCREENING") addScreening(place(), lblBill.caption(), cboPurpose.text());
    audit("Insert Attnd Fee for " + lblTitle.caption(), lblBill.caption());
    // Lines that were left without a visit join this one.
    hospital().execute("update billaccum set consultID='"_sql + lblBill.caption() + "' where pno = '" + pno_ +
                       "' and consultID = ''");
    return std::nullopt;
}

void frmRecords::committed() {
    const auto now = visit();
    written_ = now.consultID;
    if (editing())
        audit("Edit Attendance for " + lblTitle.caption(), now.consultID,
              now.category + "/" + now.clinic + "/" + now.purpose + "/" + clientName_);
    else
        audit("Insert Attendance for " + lblTitle.caption(), now.consultID);
    message(editing() ? "Record Succesfully Edited and Updated" : "Record Succesfully saved");
    session().gPatientHasBalance = false;
}

void frmRecords::undone() {
    if (!editing()) lblBill.setCaption({});
}

void frmRecords::finished() {
    core::selectRow(grdData, "ConsultID", written_);
}

bool frmRecords::drawNumber() {
    lblBill.setCaption(drawConsultId(place()));
    return !lblBill.caption().empty();
}

billing::ServiceLine frmRecords::billLine(const std::string& name, const std::string& revType) const {
    return {.date = session().gServerNow.date(),
            .name = name,
            .pno = pno_,
            .consultID = lblBill.caption(),
            .conID = billing::classValue(cboType.text()),
            .coyName = retainID_,
            .billTo = client.retainCode(),
            .revType = revType};
}

void frmRecords::addRenewalFee() {
    auto line = billLine("CARD RENEWAL FEE", "REGISTRATION");
    line.amount = cardRenewalFee(hospital(), retainID_);
    billing::addServiceLine(hospital(), line, {{"Category", "REGISTRATION"}, {"suppres", 0}, {"Capitated", "NO"}});
}

/// A line without a price marks the visit; its fees come in at the care screens.
void frmRecords::addAttendanceLine() {
    billing::addServiceLine(hospital(), billLine("ATTENDANCE", "CONSULTATION"));
}

/// The patient's own scheme becomes what was stated at the desk.
void frmRecords::keepPatientInStep() {
    const auto hmoRef = editing() ? "', HmoRef='"_sql : "', HmoRef ='"_sql;
    hospital().execute("Update hpatients set ref='"_sql + client.CboRef.text() + hmoRef + client.cboRefHmo.text() +
                       "', PolicyType='" + client.txtPolicy.text() + "', EmpNo='" +
                       core::quotesDoubled(core::trimmed(client.txtEmp.text())) + "', ClientCatID='" +
                       client.cboClient.text() + "', CoyName='" + retainID_ + "' where pno = '" + pno_ + "'");
}

Visit frmRecords::visit() const {
    return {.pno = pno_,
            .consultID = lblBill.caption(),
            .clinic = cboType.text(),
            .purpose = cboPurpose.text(),
            .hmoReferal = client.cboRefHmo.text(),
            .feeForService = client.CboRef.text(),
            .category = client.cboClient.text(),
            .retainID = retainID_};
}

ui::Control* frmRecords::controlOf(std::string_view column) {
    const std::pair<std::string_view, ui::Control*> fields[] = {{"Remarks", &cboPurpose},
                                                                {"clinicType", &cboType},
                                                                {"PolicyType", &client.txtPolicy},
                                                                {"empNo", &client.txtEmp}};
    for (const auto& [name, field] : fields)
        if (db::sameName(name, column)) return field;
    return nullptr;
}

}  // namespace registration
