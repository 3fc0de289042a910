#include "db/sqlite/errors.h"

#include <sqlite3.h>

#include <string_view>

#include "db/sqlite/functions.h"

namespace db::sqlite {
namespace {

struct Wording {
    std::string_view prefix;  ///< of the engine's message
    Category category;
    std::string_view before, after;  ///< around what follows the prefix
};

/// The checks of a table are named by their kind and their column.
constexpr Wording checks[] = {
    {"CHECK constraint failed: length ", Category::type, "String or binary data would be truncated, column '", "'."},
    {"CHECK constraint failed: integer ", Category::type,
     "Conversion failed when converting a value to an integer, column '", "'."},
    {"CHECK constraint failed: range ", Category::type, "Arithmetic overflow error for an integer, column '", "'."},
    {"CHECK constraint failed: flag ", Category::type, "Conversion failed when converting a value to a bit, column '",
     "'."},
    {"CHECK constraint failed: number ", Category::type, "Error converting a text to a number, column '", "'."},
    {"CHECK constraint failed: date ", Category::type, dateConversionFailed, ""},
    {"CHECK constraint failed", Category::constraint, "The statement conflicted with a CHECK constraint.", ""},
};

constexpr Wording texts[] = {
    {"no such table: ", Category::syntax, "Invalid object name '", "'."},
    {"no such view: ", Category::syntax, "Invalid object name '", "'."},
    {"no such column: ", Category::syntax, "Invalid column name '", "'."},
    {"ambiguous column name: ", Category::syntax, "Ambiguous column name '", "'."},
    {"cannot modify ", Category::other, "The view is not updatable.", ""},
};

Error worded(const Wording& wording, std::string_view message, const std::string& operation) {
    if (wording.after.empty()) return {wording.category, std::string(wording.before), operation, std::string(message)};
    const std::string name(message.substr(wording.prefix.size()));
    return {wording.category, std::string(wording.before).append(name).append(wording.after), operation,
            std::string(message), wording.category == Category::type ? name : std::string()};
}

template <std::size_t N>
const Wording* find(const Wording (&wordings)[N], std::string_view message) {
    for (const auto& wording : wordings)
        if (message.substr(0, wording.prefix.size()) == wording.prefix) return &wording;
    return nullptr;
}

/// "UNIQUE constraint failed: T.a, T.b": the table's name.
std::string tableOf(std::string_view message) {
    const auto begin = message.find(": ");
    if (begin == std::string_view::npos) return {};
    const auto rest = message.substr(begin + 2);
    return std::string(rest.substr(0, rest.find('.')));
}

Error constraintFailure(int code, std::string_view message, const std::string& operation) {
    const auto made = [&](const std::string& text) {
        return Error(Category::constraint, text, operation, std::string(message));
    };
    switch (code) {
        case SQLITE_CONSTRAINT_NOTNULL:
            return made("Cannot insert the value NULL into column '" +
                        std::string(message.substr(std::min(message.find('.'), message.size() - 1) + 1)) +
                        "', table '" + tableOf(message) + "'; column does not allow nulls.");
        case SQLITE_CONSTRAINT_PRIMARYKEY:
        case SQLITE_CONSTRAINT_ROWID:
            return made("Violation of PRIMARY KEY constraint. Cannot insert duplicate key in object '" +
                        tableOf(message) + "'.");
        case SQLITE_CONSTRAINT_UNIQUE:
            return made("Violation of UNIQUE KEY constraint. Cannot insert duplicate key in object '" +
                        tableOf(message) + "'.");
        case SQLITE_CONSTRAINT_FOREIGNKEY:
            return made("The statement conflicted with a FOREIGN KEY constraint.");
        default:
            break;
    }
    const auto* check = find(checks, message);
    return check != nullptr ? worded(*check, message, operation) : made("The statement conflicted with a constraint.");
}

/// Failures of the statement's text, and those that our own functions report.
Error statementFailure(std::string_view message, const std::string& operation) {
    if (const auto* known = find(texts, message)) return worded(*known, message, operation);
    const bool ofText = message.find("syntax error") != std::string_view::npos ||
                        message.find("no such function") != std::string_view::npos ||
                        message.find("wrong number of arguments") != std::string_view::npos ||
                        message.find("incomplete input") != std::string_view::npos;
    if (ofText) return {Category::syntax, "Incorrect syntax of the statement.", operation, std::string(message)};
    const bool ofValue = message.find("onver") != std::string_view::npos ||
                         message.find("overflow") != std::string_view::npos ||
                         message.find("Invalid length") != std::string_view::npos;
    return {ofValue ? Category::type : Category::other, std::string(message), operation, std::string(message)};
}

}  // namespace

bool meansLost(int code) noexcept {
    switch (code & 0xFF) {
        case SQLITE_IOERR:
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
        case SQLITE_CANTOPEN:
        case SQLITE_PROTOCOL:
            return true;
        default:
            return false;
    }
}

Error failure(sqlite3* line, int code, const std::string& operation) {
    const std::string message = sqlite3_errmsg(line);
    const auto made = [&](Category category, const char* text) { return Error(category, text, operation, message); };
    if (meansLost(code)) {
        const bool file = (code & 0xFF) == SQLITE_NOTADB || (code & 0xFF) == SQLITE_CORRUPT;
        return made(Category::lostConnection, file ? "Communication link failure: the database's file is damaged."
                                                   : "Communication link failure: the database cannot be reached.");
    }
    switch (code & 0xFF) {
        case SQLITE_CONSTRAINT:
            return constraintFailure(code, message, operation);
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return made(Category::busy, "Timeout expired");
        case SQLITE_READONLY:
            return made(Category::other, "Failed to update the database because it is read-only.");
        case SQLITE_FULL:
            return made(Category::other, "Could not write to the database because the disk is full.");
        case SQLITE_MISMATCH:
            return made(Category::type, "Operand type clash: a value does not fit its column or place.");
        case SQLITE_TOOBIG:
            return made(Category::type, "String or binary data would be truncated.");
        default:
            return statementFailure(message, operation);
    }
}

}  // namespace db::sqlite
