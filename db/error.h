#pragma once

#include <stdexcept>
#include <string>

namespace db {

/// What kind of trouble a run-time error is, so that callers can decide without reading its text.
enum class Category {
    busy,            ///< another writer held the database for longer than a writer waits
    constraint,      ///< a rule of the schema refused the row
    syntax,          ///< the statement's text, or a value's place in it, is wrong
    type,            ///< a value that cannot be converted, is out of range or is too long
    lostConnection,  ///< the database cannot be reached, or went away
    injected,        ///< a failure that a test asked for
    other,           ///< anything else
};

/// A run-time error. `what()` is the description that a trap shows to the user; it never carries the values of
/// a statement, so it can go into a log as it stands.
class Error : public std::runtime_error {
public:
    Error(Category category, const std::string& description, std::string operation = {}, std::string cause = {},
          std::string column = {})
        : std::runtime_error(description),
          category_(category),
          operation_(std::move(operation)),
          cause_(std::move(cause)),
          column_(std::move(column)) {}

    [[nodiscard]] Category category() const noexcept { return category_; }
    /// What was being done ("execute on Hospital"), for the log.
    [[nodiscard]] const std::string& operation() const noexcept { return operation_; }
    /// The engine's own code or text, for the log.
    [[nodiscard]] const std::string& cause() const noexcept { return cause_; }
    /// The column that a value did not fit, or "".
    [[nodiscard]] const std::string& column() const noexcept { return column_; }

private:
    Category category_;
    std::string operation_;
    std::string cause_;
    std::string column_;
};

}  // namespace db
