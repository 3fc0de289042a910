#include "billing/amounts.h"

#include <string>

#include "core/texts/texts.h"
#include "db/value.h"

namespace billing {

std::optional<double> enteredAmount(std::string_view text) {
    const auto entered = core::trimmed(text);
    if (entered.find_first_not_of("0123456789.,") != std::string::npos) return std::nullopt;
    return db::parseNumber(db::withoutThousandsSeparators(entered).value_or(entered));
}

bool isPrice(std::string_view text) {
    return core::blank(text) || enteredAmount(text).value_or(amountLimit) < amountLimit;
}

}  // namespace billing
