#include "billing/billlines.h"

#include "billing/prices.h"
#include "core/session/session.h"

using namespace db::literals;

namespace billing {

void addBillLine(db::Connection& connection, const BillLine& line, const core::Cells& further) {
    db::Recordset lines(connection, "select *  from billAccum where 1=2"_sql);
    addBillLine(lines, line, further);
}

void addBillLine(db::Recordset& lines, const BillLine& line, const core::Cells& further) {
    lines.addNew();
    core::setCells(lines, core::joined({{"dtDate", line.date},
                                        {"drgName", line.name},
                                        {"Price", line.price},
                                        {"Qty", line.quantity},
                                        {"SubTotal", line.subTotal},
                                        {"PNo", line.pno},
                                        {"consultID", line.consultID},
                                        {"billType", line.billType}},
                                       further));
    lines.update();
}

void addServiceLine(db::Connection& connection, const ServiceLine& line, const core::Cells& further) {
    addBillLine(connection,
                {.date = line.date,
                 .name = line.name,
                 .price = line.amount,
                 .subTotal = line.amount,
                 .pno = line.pno,
                 .consultID = line.consultID,
                 .billType = "SERVICE"},
                core::joined({{"conID", line.conID},
                              {"attendedto", 0},
                              {"isbilled", 0},
                              {"CoyName", line.coyName},
                              {"BillTo", line.billTo},
                              {"revType", line.revType}},
                             further));
}

void addSurchargedFee(core::Workplace& place, const SurchargedFee& fee) {
    const double price = ResolveSurchargedFee(place, fee.pricedAs, fee.clientCat);
    addBillLine(place.hospital(), {.date = place.session.gServerDate,
                                   .name = fee.name,
                                   .price = price,
                                   .subTotal = price,
                                   .pno = fee.pno,
                                   .consultID = fee.consultID,
                                   .billType = place.session.gBillType});
}

db::Value classValue(const std::string& patientClass) {
    const auto number = db::parseInteger(patientClass);
    return number ? db::Value(*number) : db::Value();
}

std::string billingMode(const std::string& clientCat, const std::string& ffs) {
    if (clientCat != "HMO" && clientCat != "NHIS") return "BIL";
    return ffs == "YES" ? "FFS" : "CAP";
}

}  // namespace billing
