#pragma once

#include "core/session/workplace.h"

namespace registration {

/// Where the price of a consultation stands: the desk's own list of services, or the client's row.
enum class ConsultPrice { service, client };

/// Routes the purpose of a visit: `gAttendPurpose`, and the amounts that a screening or a consultation costs the client
/// (`gScreeningAmount`, `gConsultAmount`), 0 where no row names one. An empty purpose changes nothing. Throws
/// db::Error.
void routePurpose(core::Workplace& place, const std::string& purpose, const std::string& retainID, ConsultPrice price);

/// A setting that enters a statement as a number: unset stands as 0.
db::Value settingNumber(const std::string& setting);

}  // namespace registration
