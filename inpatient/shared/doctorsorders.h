#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "db/recordset.h"

namespace inpatient {

/// The orders of a visit one under the other, each below a head that says what it is and when it was made:
/// "#####Prescription at 24-Nov-2026 09:30#####". `kind` and `when` make the head, `column` holds the order.
std::string ordersText(db::Recordset& orders, std::string_view kind, const char* column,
                       const std::function<std::string(const db::Recordset&)>& when);

}  // namespace inpatient
