#pragma once

struct sqlite3;

namespace db {
class ServerClock;
}

namespace db::sqlite {

/// Gives a line the collations and functions that the translated statements use; `clock` outlives the line.
/// The functions report their failures in the server's words.
void registerFunctions(sqlite3* line, ServerClock& clock);
/// The part of them that concerns dates.
void registerDateFunctions(sqlite3* line, ServerClock& clock);

inline constexpr const char* dateConversionFailed =
    "Conversion failed when converting date and/or time from character string.";

}  // namespace db::sqlite
