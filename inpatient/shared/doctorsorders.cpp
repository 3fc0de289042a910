#include "inpatient/shared/doctorsorders.h"

namespace inpatient {

std::string ordersText(db::Recordset& orders, std::string_view kind, const char* column,
                       const std::function<std::string(const db::Recordset&)>& when) {
    std::string text;
    for (orders.moveFirst(); !orders.eof(); orders.moveNext())
        text.append("#####")
            .append(kind)
            .append(" at ")
            .append(when(orders))
            .append("#####\r\n")
            .append(orders[column].textOr())
            .append("\r\n");
    return text;
}

}  // namespace inpatient
