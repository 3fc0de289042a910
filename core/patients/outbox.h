#pragma once

#include <string>

#include "core/session/workplace.h"

namespace core {

/// Composes a text message and leaves it for the hospital's gateway in `MessageOut`. `category` is "APPT", "ATTEND" or
/// "CLIENT"; `phone` serves where the patient's template names no recipient. An appointment more than a day ahead gets
/// a second message for the evening before. An error shows its description and the message is lost: the caller's work
/// stands.
void QueueMessage(Workplace& place, const std::string& pno, const std::string& code, const std::string& category,
                  const std::string& clinic, db::DateTime apptDate, db::DateTime apptTime, const std::string& phone,
                  const std::string& extra);

}  // namespace core
