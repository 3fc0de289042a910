#include "core/care/staylimit.h"

#include "db/value.h"

namespace core {

bool isManagedCare(std::string_view category) {
    return category == "HMO" || category == "PHIS" || category == "NHIS";
}

std::string limitText(const db::DateTime& limit) {
    return limit.shortDate() + " " + limit.shortTime();
}

db::DateTime limitOf(const std::string& text) {
    return db::Value(text).moment();
}

}  // namespace core
