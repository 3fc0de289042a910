#pragma once

#include <string>

#include "db/error.h"

struct sqlite3;

namespace db::sqlite {

/// The engine's last failure on a line as an Error in the server's words, without any value of the statement.
/// `code` is the engine's extended result code; `operation` is for the log.
Error failure(sqlite3* line, int code, const std::string& operation);

/// Whether a result code says that the file behind the line cannot be used any more.
bool meansLost(int code) noexcept;

}  // namespace db::sqlite
