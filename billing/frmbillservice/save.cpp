// The save: the new lines join the visit's account, together or not at all.

#include "billing/billlines.h"
#include "billing/frmbillservice/frmbillservice.h"
#include "core/session/session.h"
#include "core/texts/texts.h"

using namespace db::literals;

namespace billing {

void frmBillService::OKButton_Click() {
    if (!passes({{noPatient(), "Select a Patient for this Billing Analysis", &cboVehNo},
                 {blank(cboReason), "Select Name of Nurse that Billed", &cboReason},
                 {!dtDate.value(), "Please specify Date", &dtDate}}) ||
        !confirmed("Are you sure to save?", "About to save"))
        return;
    if (!saves(OKButton, [this] { store(); })) return;
    if (OrderGridDrug.lineCount() > 0) message("Record Succesfully saved");
    clear();
    showBilling(false);
}

void frmBillService::store() {
    db::Transaction transaction(hospital());
    db::Recordset lines(hospital(), "select * from billAccum where 1=2"_sql);
    for (std::size_t line = 0; line < OrderGridDrug.lineCount(); ++line) {
        const auto text = [this, line](Column column) { return OrderGridDrug.text(line, column); };
        if (text(status) != "NEW") continue;
        addBillLine(lines,
                    {.date = core::valueOf(dtDate),
                     .name = text(item),
                     .price = number(line, price),
                     .quantity = number(line, units),
                     .subTotal = number(line, subTotal),
                     .pno = pno_,
                     .consultID = lblBill.caption(),
                     .billType = text(entryType)},
                    core::joined({{"Category", text(category)},
                                  {"usage", text(usage)},
                                  {"BillTo", text(billTo)},
                                  {"CoyName", text(coyName)},
                                  {"conID", db::Null{}}},
                                 capitation()));
        audit("Bill Item Generated for: " + name_, lblBill.caption(),
              text(item) + ":" + core::moneyText(number(line, subTotal)));
    }
    transaction.commit();
}

/// A capitated patient's lines all have the capitation of the one that was added last. Unset while it is not known how
/// the visit is billed.
core::Cells frmBillService::capitation() const {
    const auto& mode = session().gBillingMode;
    if (mode.empty()) return {};
    return {{"Capitated", mode == "CAP" ? OrderGridDrug.text(OrderGridDrug.lineCount() - 1, capitated) : "NO"}};
}

double frmBillService::number(std::size_t line, Column column) const {
    return db::Value(OrderGridDrug.text(line, column)).number();
}

}  // namespace billing
