#include "inpatient/shared/lastvitals.h"

namespace inpatient {

using namespace db::literals;

void LastVitals::show(db::Connection& hospital, const std::string& consultID) {
    clear();
    DataGrid1.bind(
        hospital.read("select distinct top 4 temp,pressure,predate,pretime,consultid from qryhPreConsult where "
                      "consultID='"_sql +
                      consultID + "'"));
    DataGrid1.hideColumn("consultid");
}

}  // namespace inpatient
