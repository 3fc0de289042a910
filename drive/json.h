#pragma once

#include <nlohmann/json.hpp>

#include "core/session/session.h"
#include "db/connection.h"

namespace drive {

/// A value as replies carry it: null, number, text, true or false; dates and times as ISO text, bytes as hexadecimal
/// digits.
nlohmann::json jsonOf(const db::Value& value);
/// All rows as objects by column name.
nlohmann::json jsonOf(const db::Recordset& rows);
/// The session variables by name.
nlohmann::json jsonOf(const core::Session& session);
/// The `sql` event of a statement.
nlohmann::json jsonOf(const db::Statement& statement);

}  // namespace drive
