#include "shell/duelists.h"

namespace shell {

using namespace db::literals;

db::Sql expectedDeliveries() {
    return "select * from qryhEDD"_sql;
}

db::Sql babiesToDischarge() {
    return "select * from qryhBabyDischarge"_sql;
}

db::Sql balancesDue() {
    return "select * from qryhBillingBalance"_sql;
}

}  // namespace shell
