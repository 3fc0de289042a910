#pragma once

#include <string>

#include "core/rows/cells.h"
#include "core/session/workplace.h"

namespace registration {

/// A visit as the desk states it.
struct Visit {
    std::string pno;
    std::string consultID;
    std::string clinic;
    std::string purpose;
    std::string hmoReferal;     ///< "YES" or "NO"
    std::string feeForService;  ///< "YES" or "NO"
    std::string category;       ///< the billing category
    std::string retainID;
};

/// Draws the number of a new visit; "" where none is given, which `noConsultId` tells. Throws db::Error.
std::string drawConsultId(core::Workplace& place);
inline constexpr const char* noConsultId = "Unable to generate No!!! Function getIDNo Failed! ConsultID";

/// The cells of a new visit's row, stamped with `gServerNow`: nobody has seen the patient yet.
core::Cells newVisitCells(const core::Session& session, const Visit& visit);

/// Notes that a visit is a screening, for its purpose. Throws db::Error.
void addScreening(core::Workplace& place, const std::string& consultID, const std::string& purpose);

}  // namespace registration
