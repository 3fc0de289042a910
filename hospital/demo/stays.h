#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "hospital/demo/common.h"

/// What the parts about in-patients share: the stays, their charts, and the births.
namespace hospital::demo {

constexpr std::string_view inPatientClinic = "(IN-PATIENT)";
constexpr std::string_view antenatalClinic = "ANTENATAL";

/// Visit::stay of a patient whom a doctor has referred to the wards and whom nobody has admitted yet.
constexpr int waitsForAdmission = -2;

/// A time of day on a date.
[[nodiscard]] inline db::DateTime atHour(const db::DateTime& day, std::int64_t hour, std::int64_t minute = 0) {
    return minutesAfter(day, hour * 60 + minute);
}

/// The categories whose patients may stay for a number of days only.
[[nodiscard]] inline bool isScheme(const Client& client) {
    return client.category == "HMO" || client.category == "NHIS" || client.category == "PHIS";
}

/// The ward with this id; a throw names what the wards lack.
[[nodiscard]] const std::string& wardCalled(const Hospital& hospital, std::string_view id);

/// What a patient was admitted for.
[[nodiscard]] std::string_view diagnosisOf(const Hospital& hospital, const Visit& visit);

/// The names of the staff by their empIDs.
[[nodiscard]] std::unordered_map<std::string, std::string> staffNames(Hospital& hospital);

/// A generator for one stay and one subject, whatever was drawn before.
[[nodiscard]] Random chanceFor(const Hospital& hospital, const Stay& stay, std::uint64_t subject);

/// The doctor's discharge of a stay. Not for one that nobody has discharged.
[[nodiscard]] db::DateTime doctorsDischarge(const Hospital& hospital, const Stay& stay);

}  // namespace hospital::demo
