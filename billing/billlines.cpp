#include "billing/billlines.h"

using namespace db::literals;

namespace billing {

void addServiceLine(db::Connection& connection, const ServiceLine& line, const core::Cells& further) {
    core::Cells cells = {{"dtDate", line.date},
                         {"drgName", line.name},
                         {"Price", line.amount},
                         {"SubTotal", line.amount},
                         {"Qty", 1},
                         {"PNo", line.pno},
                         {"consultID", line.consultID},
                         {"billType", "SERVICE"},
                         {"conID", line.conID},
                         {"attendedto", 0},
                         {"isbilled", 0},
                         {"CoyName", line.coyName},
                         {"BillTo", line.billTo},
                         {"revType", line.revType}};
    cells.insert(cells.end(), further.begin(), further.end());
    core::addRow(connection, "select *  from billAccum where 1=2"_sql, cells);
}

db::Value classValue(const std::string& patientClass) {
    const auto number = db::parseInteger(patientClass);
    return number ? db::Value(*number) : db::Value();
}

}  // namespace billing
