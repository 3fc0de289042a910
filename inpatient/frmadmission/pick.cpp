// What a pick shows of the referral, and what the rules of deposit and stay limit make of it.

#include "core/care/staylimit.h"
#include "core/rows/entries.h"
#include "core/session/session.h"
#include "inpatient/frmadmission/frmadmission.h"

namespace inpatient {

using namespace db::literals;

namespace {

/// As good as no limit.
constexpr int unlimitedHours = 24000;

db::DateTime at(const db::DateTime& day, const db::DateTime& time) {
    return db::DateTime::fromSeconds(day.date().seconds() + time.timeOfDay().seconds());
}

}  // namespace

void frmAdmission::cboVehNo_Click() {
    if (cboVehNo.text().empty()) return;
    const auto consultID = core::entryOf(cboVehNo.text()).key;
    if (adding()) clearPatient();  // a reading that fails leaves nobody, and not the patient picked before
    const auto from = editing() ? "select * from qryhReferalForEdit"_sql : "select * from qryhreferal"_sql;
    const auto referral =
        hospital().read(from + " where referTo in ('IN-PATIENT','(IN-PATIENT)') and consultID ='" + consultID + "'");
    clearPatient();
    if (referral.empty()) return;  // somebody took it back
    consultID_ = consultID;
    showReferral(referral);
    if (!depositPaid()) {
        lblRules.setCaption("No deposit is paid.");
        return message("This Patient Has to pay Deposit before Admission! see the Cashier", ui::Icon::stop);
    }
    if (findLimit()) noticeExpiry();
}

void frmAdmission::showReferral(const db::Recordset& referral) {
    lblBill.setCaption(consultID_);
    lblClient.setCaption(referral["clientCat"].textOr());
    txtREason.setText(referral["refReason"].textOr());
    lblNo.setCaption(referral["PNo"].textOr());
    lblTitle.setCaption(caption() + " : " + referral["psurname"].textOr() + " " + referral["pfirstName"].textOr());
    lblDoc.setCaption(referral["ReferedBy"].textOr());
    doctor_ = referral["treatedBy"].textOr();
    txtDiag.setText(referral["diagnosis"].textOr());
    conID_ = referral["conID"].int32Or(0);
}

/// Any payment of the visit that is a deposit will do, whatever its amount.
bool frmAdmission::depositPaid() {
    if (session().gPrivatePaysDeposit != "YES" || lblClient.caption() != "PRIVATE") return true;
    return !hospital()
                .read("select AmountPaid from Payments where BillNo ='"_sql + lblBill.caption() +
                      "' and PaymentFor like '%DEPOSIT%'")
                .empty();
}

/// False where the patient may not stay, which a box has said.
bool frmAdmission::findLimit() {
    if (session().gAdmissionLimitExists != "YES" || !core::isManagedCare(lblClient.caption())) {
        limitInHours(unlimitedHours);
        return true;
    }
    if (adding()) return limitFromRecord();
    limitOfStay();
    return true;
}

/// The hours that the scheme pays for stand in the patient's record, under a name that says days.
bool frmAdmission::limitFromRecord() {
    const auto record =
        hospital().read("select AdmissionDaysLimit from hPatients where PNo ='"_sql + lblNo.caption() + "'");
    if (record.empty()) return true;
    const auto limit = record["AdmissionDaysLimit"];
    const int hours = limit.isNull() ? 0 : limit.int16();
    if (hours != 0) {
        limitInHours(hours);
        return true;
    }
    showLimit(place().now(), "The patient's record has no stay limit.");
    message("This Patient Cannot be Admitted! Requires Admission Stay Limit. see the FrontDesk Officer",
            ui::Icon::stop);
    return false;
}

void frmAdmission::limitOfStay() {
    const auto stay =
        hospital().read("select ExtendAdmissionLimitTo from hAdmission where ConsultID ='"_sql + consultID_ + "'");
    if (stay.empty()) return;
    const auto limit = stay["ExtendAdmissionLimitTo"];
    showLimit(limit.isNull() ? at(session().gServerDate, session().gServerTime) : limit.moment(),
              limit.isNull() ? "The stay had no limit." : "The limit of this stay.");
}

void frmAdmission::limitInHours(int hours) {
    const auto start = at(core::valueOf(dtDate).moment(), core::valueOf(dtTime).moment());
    showLimit(start.plusHours(hours), hours == unlimitedHours ? "No limit for this patient."
                                                              : std::to_string(hours) + " hours from the admission.");
}

void frmAdmission::showLimit(const db::DateTime& limit, const std::string& rule) {
    dtAdmitLimit.setValue(limit.date());
    dtAdmitLimitTime.setValue(limit.timeOfDay());
    lblLimit.setCaption(core::limitText(limit));
    lblRules.setCaption(rule);
}

/// By the workstation's clock, and as information only.
void frmAdmission::noticeExpiry() {
    if (lblLimit.caption().empty() || place().now() <= core::limitOf(lblLimit.caption())) return;
    lblRules.setCaption("The stay has expired.");
    message(" This Patient's Stay in Admission has Expired! See the FrontDesk Officer", ui::Icon::information,
            "Expired Admission");
}

}  // namespace inpatient
