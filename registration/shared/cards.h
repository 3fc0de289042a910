#pragma once

#include <optional>
#include <string>

#include "core/session/workplace.h"
#include "ui/controls.h"

namespace registration {

/// Whether a private patient's card has run out. A card that ends today counts as expired.
bool cardExpired(const core::Session& session, const std::optional<db::DateTime>& expiry);

/// Tells that the card has expired, marks the patient and offers the renewal. Throws db::Error.
void refuseExpiredCard(core::Workplace& place, const std::string& pno, ui::Button& cmdRenew);

/// Whether a patient's class is the general one, whose fees go by the card.
bool isGeneralClass(const std::string& patientClass);

/// The fee that the first row states in a column, rounded to 2 places; 0 for none. Throws db::Error, as the next.
double statedFee(db::Connection& hospital, const db::Sql& sql, std::string_view column);

/// What a client pays for the renewal of a card.
double cardRenewalFee(db::Connection& hospital, const std::string& retainID);

}  // namespace registration
