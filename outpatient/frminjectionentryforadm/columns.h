#pragma once

namespace outpatient::adm {

/// The columns of the lines.
enum Column { name, category, price, units, subTotal, usage, capitated };

/// The most units that a chart's line takes.
inline constexpr double mostUnits = 32767;

}  // namespace outpatient::adm
