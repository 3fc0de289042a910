#include "inpatient/frmrecover/frmrecover.h"

#include "core/rows/cells.h"
#include "core/rows/entries.h"
#include "core/session/session.h"

namespace inpatient {

using namespace db::literals;
using ui::Event;

frmRecover::frmRecover(core::Workplace& place) : Form(place, "frmRecover", "Patient Info Recall") {
    bind(cmdPat, Event::click, &frmRecover::fillDischarged);
    bind(cmdRecall, Event::click, &frmRecover::cmdRecall_Click);
    bind(CancelButton, Event::click, [this] { close(); });
}

void frmRecover::load() {
    days.start(session().gServerDate);
    desktop().focus(cmdPat);
}

void frmRecover::fillDischarged() {
    cboVehNo.clear();
    cboVehNo.add("");
    core::addEntries(cboVehNo, hospital(),
                     "SELECT distinct consultID,dischDate,remarks,fullname,pNo FROM qryhDischargeForNurse  where "
                     "dischDate between '"_sql +
                         days.first() + "' and '" + days.last() + "' order by fullname asc",
                     [](const db::Recordset& row) {
                         return core::entryText(row["fullName"].textOr() + " @" + row["dischDate"].textOr(),
                                                row["consultID"].textOr());
                     });
    desktop().focus(cboVehNo);
}

void frmRecover::cmdRecall_Click() {
    if (cboVehNo.text().empty()) return refuse("Please specify Patient Name", cboVehNo);
    const auto consultID = core::entryOf(cboVehNo.text()).key;
    if (!confirmed("Are you sure to Recall Patient", "Recall")) return;
    bool recalled = false;
    saves(cmdRecall, [&] { recalled = recall(consultID); });
    if (!recalled) return;
    message("Patient Info Successfully recalled");
    fillDischarged();
}

/// A visit whose stay has gone is looked for among the referrals, with a text that no server takes: its error ends the
/// recall.
void frmRecover::lookForReferral(const std::string& consultID) {
    (void)hospital().read("select * from hreferal where consultID ='"_sql + consultID +
                          "' and referTo in ('IN-PATIENT','(IN-PATIENT)'");
}

/// False where the patient lies in the ward.
bool frmRecover::recall(const std::string& consultID) {
    db::Transaction transaction(hospital());
    auto stay = hospital().read("select * from hAdmission where consultID ='"_sql + consultID + "'");
    if (stay.empty()) lookForReferral(consultID);
    if (stay.empty() || !stay["isdischarged"].flag()) return false;
    core::setCells(stay, {{"isdischarged", 0}});
    stay.update();
    hospital().execute("delete from hDischargeForNurse where consultID = '"_sql + consultID + "'");
    transaction.commit();
    return true;
}

}  // namespace inpatient
