#include "hospital/demo/calendar.h"

#include <algorithm>

namespace hospital::demo {

Calendar::Calendar(const Hospital& hospital) {
    for (const auto& visit : hospital.visits) take(visit.patient, visit.at, visit.at);
    const auto tomorrow = hospital.today.plusDays(1);
    for (const auto& stay : hospital.stays) take(stay.patient, stay.from, stay.until.value_or(tomorrow));
}

bool Calendar::isFree(int patient, const db::DateTime& from, const db::DateTime& until) const {
    const auto found = spans_.find(patient);
    if (found == spans_.end()) return true;
    return std::none_of(found->second.begin(), found->second.end(),
                        [&](const Span& span) { return span.from <= until && from <= span.until; });
}

void Calendar::take(int patient, const db::DateTime& from, const db::DateTime& until) {
    spans_[patient].push_back({from, until});
}

}  // namespace hospital::demo
