#pragma once

#include <string>

namespace inpatient {

/// Whose chart is open, for the screens that are opened from it.
struct ChartedPatient {
    std::string consultID;
    std::string name;
};

}  // namespace inpatient
