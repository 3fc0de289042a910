// A visit is opened: whose it is, what the doctors did, and what stands on its account.

#include "billing/billlines.h"
#include "billing/frmbillservice/frmbillservice.h"
#include "billing/prices.h"
#include "core/care/staylimit.h"
#include "core/rows/entries.h"
#include "core/session/session.h"
#include "core/texts/texts.h"

using namespace db::literals;

namespace billing {
namespace {

/// Who saw the patient, what was found, and what was ordered, as one consultation has it.
std::string consultationText(const db::Recordset& row) {
    const auto text = [&row](const char* column) { return row[column].textOr(); };
    const auto unlessNull = [&row](const char* before, const char* column, const char* behind) {
        return row[column].isNull() ? std::string() : before + row[column].text() + behind;
    };
    return "Clinic: " + text("Remarks") + "\n" +       //
           "Diagnosis: " + text("diagnosis") + "\n" +  //
           "##### Treatment by Dr. " + text("treatedBy") + " on " + text("CDate") + " " + text("ctime") + " #####\n" +
           unlessNull("", "investigate", "") +                       //
           unlessNull("\n", "preScription", "") +                    //
           unlessNull("\n", "services", "\n") +                      //
           unlessNull("-----BILL ADVICE---", "billRemarks", "\n") +  //
           "\n" + std::string(38, '-') + "\n";
}

std::string treatmentOf(db::Recordset& consultations) {
    std::string text;
    for (; !consultations.eof(); consultations.moveNext()) text += consultationText(consultations);
    return text + "END OF TREATMENT";
}

}  // namespace

void frmBillService::cboVehNo_Click() {
    if (blank(cboVehNo)) return;
    const auto [name, consultID] = core::entryOf(cboVehNo.text());
    // What was put together for one patient is never saved under another.
    if (consultID != lblBill.caption()) leaveVisit();
    showName(name);
    const auto stay = hospital().read(
        "select SNO,wardID,AdmDate,retainID,Age,Company,consultID,clientcat,pno from qryhAdmission where consultID='"_sql +
        consultID + "'");
    showStay(stay);
    if (!stay.empty()) showTreatment(consultID);
    desktop().focus(blank(cboReason) ? static_cast<ui::ComboBox&>(cboReason) : cboCat);
    if (retainID_ == session().gPrivateTariff) message("This is a Private Patient!! Payment Required");
}

/// Nothing of a patient stays in sight. A price that was looked up was that patient's.
void frmBillService::leaveVisit() {
    for (auto* label : {&lblNo, &lblBill, &lblClient, &lblCoy, &lblAge, &lblWard, &lblDate, &lblDays, &lblFFS})
        label->setCaption({});
    if (!lblSource.caption().empty()) lblSource.setCaption("Of the patient before");
    txtPresc.clear();
    OrderGridDrug.clearLines();
    for (auto* total : {&lblGen, &lblBilled, &lblPaid}) total->setCaption("0");
}

void frmBillService::showStay(const db::Recordset& stay) {
    for (const auto& [label, column] :
         std::initializer_list<std::pair<ui::Label*, const char*>>{{&lblClient, "clientcat"},
                                                                   {&lblBill, "consultID"},
                                                                   {&lblNo, "pno"},
                                                                   {&lblCoy, "Company"},
                                                                   {&lblAge, "Age"},
                                                                   {&lblWard, "wardID"},
                                                                   {&lblDate, "AdmDate"}})
        label->setCaption(stay.empty() ? std::string() : stay[column].textOr());
    lblDays.setCaption({});
    if (stay.empty()) return showName({});
    pno_ = lblNo.caption();
    retainID_ = stay["retainID"].textOr();
    const auto admitted = stay["AdmDate"];
    if (!admitted.isNull() && dtDate.value())
        lblDays.setCaption(std::to_string(admitted.moment().daysUntil(*dtDate.value())));
}

void frmBillService::showTreatment(const std::string& consultID) {
    txtPresc.clear();
    for (auto* variable : {&session().gBillingMode, &session().gClientCode}) variable->clear();
    auto consultations = hospital().read(
        "select distinct  retainID,RetainCode,cdate,cTime,ref,BillRemarks,company,prescription,Diagnosis,Investigate,"
        "services,consultID,clientcat,pno,remarks,treatedby,Age from vwhConsultingDetailsForBillingAlt where consultID='"_sql +
        consultID + "' order by cdate desc");
    if (consultations.empty()) {
        // No doctor has seen the patient: how the visit is billed is not known.
        txtPresc.setText("N/A");
        for (auto* label : {&lblClient, &lblNo, &lblAge, &lblCoy, &lblFFS}) label->setCaption({});
    } else {
        openAccount(consultations);
    }
    // Part of every bill's opening; no line here is surcharged.
    static_cast<void>(hospital().read("select  pcent,pvalue from billingprice where clientcatID ='"_sql +
                                      core::quotesDoubled(lblClient.caption()) + "'"));
}

void frmBillService::openAccount(db::Recordset& consultations) {
    retainID_ = consultations["retainID"].textOr();
    pno_ = consultations["PNo"].textOr();
    lblClient.setCaption(consultations["clientCat"].textOr());
    lblBill.setCaption(consultations["consultID"].textOr());
    lblNo.setCaption(pno_);
    const auto ref = consultations["ref"].textOr();
    lblFFS.setCaption(ref.empty() ? "NO" : ref);
    txtPresc.setText(treatmentOf(consultations));
    session().gBillingMode = billingMode(lblClient.caption(), lblFFS.caption());
    const auto client = hospital().read("Select retainCode ,retainName from hretainership where retainID='"_sql +
                                        core::quotesDoubled(retainID_) + "'");
    if (!client.empty()) session().gClientCode = client["retainCode"].textOr();
    normaliseLines();
    showLines();
}

/// What other writers left open in the lines of the visit: only those of a capitated client keep their "YES".
void frmBillService::normaliseLines() {
    const auto run = [this](const db::Sql& update) { hospital().execute(update + lblBill.caption() + "'"); };
    run("update BillAccum set capitated='NO' where capitated='BIL' and consultID = '"_sql);
    run("update BillAccum set CoyName='"_sql + core::quotesDoubled(retainID_) +
        "' where coyName is null and consultID = '");
    run("update BillAccum set BillTo='"_sql + core::quotesDoubled(session().gClientCode) +
        "' where BillTo is null and consultID = '");
    if (!core::isManagedCare(lblClient.caption()) || lblFFS.caption() == "YES")
        run("update BillAccum set capitated='NO' where consultID = '"_sql);
    else
        run("update BillAccum set capitated='NO' where capitated='' and consultID = '"_sql);
}

void frmBillService::showLines() {
    OrderGridDrug.clearLines();
    for (auto* total : {&lblGen, &lblBilled, &lblPaid}) total->setCaption("0");
    auto lines =
        hospital().read("select distinct * from qrybillAccumHome   where consultID='"_sql + lblBill.caption() + "'");
    const auto textOr = [&lines](const char* column, const std::string& otherwise) {
        const auto text = lines[column].textOr();
        return text.empty() ? otherwise : text;
    };
    for (; !lines.eof(); lines.moveNext()) {
        const auto text = [&lines](const char* column) { return lines[column].textOr(); };
        OrderGridDrug.addLine({text("service"), text("Category"), text("UnitPrice"), text("Qty"), text("SubTotal"),
                               text("usage"), text("Capitated"),
                               itemKind(text("billType")) ? text("billType") : "SERVICE", "OLD",
                               textOr("BillTo", session().gClientCode), textOr("CoyName", retainID_)});
    }
    showTotals();
}

void frmBillService::showTotals() {
    const auto account =
        hospital().read("select distinct * from vwbillInfo   where consultID='"_sql + lblBill.caption() + "'");
    if (account.empty()) return;
    for (const auto& [label, column] : std::initializer_list<std::pair<ui::Label*, const char*>>{
             {&lblGen, "amountGen"}, {&lblBilled, "AmountBilled"}, {&lblPaid, "AmountPaid"}})
        label->setCaption(core::moneyText(account[column].numberOr(0)));
}

}  // namespace billing
