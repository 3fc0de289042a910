#include "core/care/staylimit.h"

#include "db/value.h"

namespace core {

using namespace db::literals;

bool isManagedCare(std::string_view category) {
    return category == "HMO" || category == "PHIS" || category == "NHIS";
}

db::Sql fromExpiredStays() {
    return " from qryhAdmission  where ClientCat in ('PHIS','NHIS','HMO') and  getDate()>= "
           "IsNull(ExtendAdmissionLimitTo,getDate())"_sql;
}

std::string limitText(const db::DateTime& limit) {
    return limit.shortDate() + " " + limit.shortTime();
}

db::DateTime limitOf(const std::string& text) {
    return db::Value(text).moment();
}

}  // namespace core
