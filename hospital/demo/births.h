#pragma once

#include "hospital/demo/stays.h"

namespace hospital::demo {

/// How a delivery went. It follows from the stay alone, so whoever asks hears the same.
struct Birth {
    db::DateTime at;  ///< of the first baby, three to ten hours after admission; later than now for one in labour
    bool caesarean = false;
    bool twins = false;
    bool alive = true;
};
[[nodiscard]] Birth birthOf(const Hospital& hospital, const Stay& stay);

/// How a pregnancy ended that did not end with a birth here. Its Pregnancy::stay is one of these.
enum class Ending { lost = -4, referred = -3, elsewhere = -2 };
[[nodiscard]] inline bool endedOtherwise(const Pregnancy& pregnancy) {
    return pregnancy.stay < -1;
}
/// From the last menstrual period to the day on which such an ending became known.
[[nodiscard]] int daysUntilEnding(const Hospital& hospital, int patient, Ending ending);

}  // namespace hospital::demo
