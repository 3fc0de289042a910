// Who comes, and to which clinic: the search, and what each pick brings to the screen.

#include "core/rows/entries.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "registration/frmrecords/frmrecords.h"
#include "registration/shared/cards.h"
#include "registration/shared/photograph.h"
#include "registration/shared/purposes.h"
#include "ui/raised.h"

namespace registration {

using namespace db::literals;

void frmRecords::find(SearchKind kind) {
    search(kind);
    if (!pno_.empty()) return desktop().focus(browsing() ? static_cast<ui::Control&>(cmdAdd) : cboType);
    desktop().focus(grdData.row() < 0 ? static_cast<ui::Control&>(finder.txtName) : grdData);
}

/// Offers the patients found; the one whom a number finds is picked at once.
void frmRecords::search(SearchKind kind) {
    auto found = searchAtDesk(place(), kind, finder.wanted(kind));
    cboVehNo.clear();
    for (; !found.eof(); found.moveNext())
        cboVehNo.add(core::entryText(found["FullName"].textOr(), found["pno"].textOr()));
    if (!editing()) {
        clearPatient();
        pickFromSearch_ = true;
        showFound(grdData, finder.lblFound, std::move(found), {"expired", "coyname", "fullname"});
        grdData.setCaption(finder.lblFound.caption());
    }
    if (kind != SearchKind::name && cboVehNo.items().size() == 1) cboVehNo.setIndex(0);
}

void frmRecords::cboVehNo_Click() {
    if (cboVehNo.index() < 0) return;
    const auto entry = core::entryOf(cboVehNo.text());
    if (trapped([&] { pickPatient(entry); })) return;
    cboVehNo.clearText();
    clearPatient();
}

void frmRecords::pickPatient(const core::Entry& entry) {
    session().gApptDate = {};
    // The fee of a renewal is that patient's alone.
    if (!renewedPNo_.empty() && renewedPNo_ != entry.key) session().gRenewPending = false;
    clearPatient();
    const auto patient = hospital().read(
        "select CoyName,billingCat,Client,occupation,pno,oldpNo,policytype,ref,HMORef,expirydate from vwhpatients "
        "where pNo='"_sql +
        entry.key + "'");
    if (patient.empty()) return;
    showPatient(patient);
    const auto retainID = patient["CoyName"].textOr();
    if (!isClient(hospital(), retainID)) message("BillTo Value Cannot be Empty!!! Check your Client Information");
    lblTitle.setCaption(entry.name);
    if (retainID.empty()) {
        message("Registration Incomplete! Company Name Required!! Go to Registration Page");
        return clear();
    }
    pno_ = entry.key;
    takeClient(retainID, patient["Client"].textOr(), patient["billingCat"].textOr());
    if (!lblPolicy.caption().empty()) core::showEntry(client.txtPolicy, lblPolicy.caption());
    showPhotograph(place(), imgPix, pno_);
    checkCard();
}

void frmRecords::showPatient(const db::Recordset& patient) {
    lblNo.setCaption(patient["pno"].textOr());
    lblOld.setCaption(patient["oldpNo"].textOr());
    lblOccup.setCaption(patient["occupation"].textOr());
    lblPolicy.setCaption(patient["policytype"].textOr());
    lblExpire.setCaption(patient["expirydate"].textOr());
    core::showEntry(client.CboRef, patient["ref"].textOr("NO"));
    core::showEntry(client.cboRefHmo, patient["HMORef"].textOr("NO"));
}

void frmRecords::takeClient(const std::string& retainID, const std::string& name, const std::string& category) {
    retainID_ = retainID;
    clientName_ = name;
    showQuietly(client.cboPat, core::entryText(name, retainID));
    client.offerCategoriesOf(retainID);
    client.loadPlans();
    core::showEntry(client.cboClient, category);
}

/// A private patient whose card has run out, or has no date, is in no clinic: one that was chosen before him goes.
void frmRecords::checkCard() {
    if (!client.isPrivate()) return;
    const bool expired = cardHasExpired();
    if (expired || lblExpire.caption().empty()) cboType.clearText();
    if (expired) refuseExpiredCard(place(), pno_, cmdRenew);
}

bool frmRecords::cardHasExpired() const {
    return cardExpired(session(), db::DateTime::parse(lblExpire.caption()));
}

void frmRecords::cboPat_Click() {
    if (filling_ || !client.pickClient()) return;
    client.loadPlans();
    client.txtEmp.clear();
}

void frmRecords::cboType_Click() {
    if (filling_ || cboType.index() < 0 || !client.isPrivate()) return;
    if (lblExpire.caption().empty()) {
        cboType.clearText();
        return refuse(" Please Specify Expiration Date for this Private Patient (GO TO REGISTRATION PAGE)", cboType);
    }
    if (!cardHasExpired()) return;
    cboType.clearText();
    refuseExpiredCard(place(), pno_, cmdRenew);
}

void frmRecords::cboPurpose_Click() {
    routePurpose(place(), cboPurpose.text(), retainID_, ConsultPrice::service);
    if (cboPurpose.text() != "APPOINTMENT" || !cboType.text().empty()) return;
    session().gAttendPurpose.clear();
    refuse("Specify Clinic", cboType);
}

/// A double click on a patient found takes his attendance.
void frmRecords::takeFound() {
    core::showEntry(cboVehNo, core::entryText(grdData.text("fullname"), grdData.text("pno")));
    if (!pno_.empty()) cmdAdd_Click();
}

/// Finds the visit's patient again, then shows the visit as it was taken: he may have come with another client since.
void frmRecords::startEditing() {
    clear();
    recID_ = grdData.text("recID");
    finder.txtName.setText(grdData.text("PatNo"));
    search(SearchKind::sysNo);
    if (cboVehNo.items().empty())  // a number of another form
        core::showEntry(cboVehNo, core::entryText(grdData.text("Fullname"), grdData.text("PatNo")));
    if (pno_.empty()) return browse();
    showVisit();
    desktop().focus(cboType);
}

void frmRecords::showVisit() {
    const auto& row = grdData;
    lblBill.setCaption(row.text("ConsultID"));
    if (!row.text("RetainID").empty()) takeClient(row.text("RetainID"), row.text("Client"), row.text("BillingCat"));
    core::showEntry(client.txtPolicy, row.text("PolicyType"));
    client.txtEmp.setText(row.text("EnrolleNo"));
    core::showEntry(client.CboRef, row.text("FeeForService"));
    core::showEntry(client.cboRefHmo, row.text("Referal"));
    core::showDate(dtDate, row.rows()["Date"]);
    showQuietly(cboType, row.text("ClinicType"));
    core::showEntry(cboPurpose, row.text("Remarks"));
}

void frmRecords::showQuietly(ui::ComboBox& list, const std::string& text) {
    const ui::Raised filling(filling_);
    core::showEntry(list, text);
}

}  // namespace registration
