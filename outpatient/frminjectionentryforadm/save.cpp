// What is stored of a prescription: bill lines, chart items and the fee.

#include "billing/billlines.h"
#include "core/care/chartitems.h"
#include "core/clock/clock.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "outpatient/frminjectionentryforadm/columns.h"
#include "outpatient/frminjectionentryforadm/frminjectionentryforadm.h"

namespace outpatient {

using namespace db::literals;

void frmInjectionEntryForAdm::OKButton_Click() {
    if (!passes(
            {{conID_.empty(), "Please specify patient name", &cboVehNo},
             {!dtDate.value(), "Please specify Date", &dtDate},
             {OrderGrid.lineCount() == 0, "No Item in Grid!!! Please select Item and add to Grid", &item.cboDrug}}) ||
        !confirmed("Are you sure to save?", "About to save") || !saves(OKButton, [this] { store(); }))
        return;
    message("Record Succesfully saved !!! ");
    showPatients();
    desktop().focus(cboVehNo);
}

void frmInjectionEntryForAdm::store() {
    session().gServerNow = core::GetServerNow(place());
    db::Transaction transaction(hospital());
    // The pharmacy works on these: where one of them cannot be opened, nothing is given out.
    for (const auto& table :
         {"select * from hConsultingDetails where 1=2"_sql, "select * from hConsultingDetailsTemp where 1=2"_sql,
          "select * from stockIssueRetail where 1=2"_sql})
        const db::Recordset opened(hospital(), table);
    for (std::size_t line = 0; line < OrderGrid.lineCount(); ++line) {
        bill(line);
        chart(line);
    }
    if (session().gInjCaller != "CONSULTING")
        billing::addSurchargedFee(place(), {.name = "DOCTOR_FEE",
                                            .pricedAs = "PHARM_FEE",
                                            .clientCat = lblClient.caption(),
                                            .pno = lblNo.caption(),
                                            .consultID = lblCon.caption()});
    takeOffTheList();
    transaction.commit();
}

/// An item that the consultation was charged for already is charged no second time.
void frmInjectionEntryForAdm::bill(std::size_t line) {
    const auto& drug = OrderGrid.text(line, adm::name);
    const auto charged = hospital().read("select * from billAccum where drgname='"_sql + core::quotesDoubled(drug) +
                                         "' and conid=" + conID_);
    if (!charged.empty()) return;
    const auto number = [&](adm::Column column) { return db::Value(OrderGrid.text(line, column)).number(); };
    billing::addBillLine(hospital(),
                         {.date = session().gServerDate,
                          .name = drug,
                          .price = number(adm::price),
                          .quantity = number(adm::units),
                          .subTotal = number(adm::subTotal),
                          .pno = lblNo.caption(),
                          .consultID = lblCon.caption(),
                          .billType = "MEDICATION"},
                         core::joined({{"Category", OrderGrid.text(line, adm::category)},
                                       {"usage", OrderGrid.text(line, adm::usage)},
                                       {"conID", conID_}},
                                      capitation(line)));
}

core::Cells frmInjectionEntryForAdm::capitation(std::size_t line) const {
    const auto mode = billing::billingMode(lblClient.caption(), lblFFS.caption());
    if (mode == "FFS") return {{"Capitated", "NO"}};
    return {{"Capitated", mode == "CAP" ? OrderGrid.text(line, adm::capitated) : mode}};
}

void frmInjectionEntryForAdm::chart(std::size_t line) {
    const auto& category = OrderGrid.text(line, adm::category);
    const core::ChartItem charted{.conID = conID_,
                                  .consultID = lblCon.caption(),
                                  .pno = lblNo.caption(),
                                  .name = OrderGrid.text(line, adm::name),
                                  .category = category,
                                  .times = db::Value(OrderGrid.text(line, adm::units)).int32(),
                                  .dosage = OrderGrid.text(line, adm::usage),
                                  .clientCat = lblClient.caption(),
                                  .date = session().gServerNow.date(),
                                  .time = core::shortTime(session().gServerNow)};
    for (const auto& [wanted, chart] : {std::pair{lblRem.caption() == "ADMISSION", core::Chart::wards},
                                        {isGivenByNurses(category), core::Chart::outPatients}})
        if (wanted) core::addRow(hospital(), core::emptyChart(chart), core::chartCells(chart, charted));
}

void frmInjectionEntryForAdm::takeOffTheList() {
    hospital().execute("update hconsulting set suppres=0,isinj = 1,isDress = 1 where consultID='"_sql +
                       lblCon.caption() + "' and ID =" + conID_);
}

}  // namespace outpatient
