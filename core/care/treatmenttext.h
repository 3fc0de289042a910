#pragma once

#include <string>

#include "db/connection.h"

namespace core {

/// What the doctors found and ordered in one consultation, as a nurse reads it: for each row who and when, then the
/// treatment; the last row stands first. "N/A" where there is none. Throws db::Error.
std::string treatmentText(db::Connection& hospital, const std::string& conID);

}  // namespace core
