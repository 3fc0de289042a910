#pragma once

#include <string>
#include <utility>
#include <vector>

#include "db/connection.h"

namespace db {

/// A call of a stored procedure by name, with typed and sized input parameters.
class Command {
public:
    enum class Type { varText, dateTime, integer };

    Command(Connection& connection, std::string procedure)
        : connection_(&connection), procedure_(std::move(procedure)) {}

    /// Adds an input parameter; a leading "@" of the name may stand or not. `size` bounds the characters of a text (the
    /// sizes of the other types are theirs by nature). Throws Error(type) "Application uses a value of the wrong type
    /// for the current operation." for a value that is not of the type or longer than the size.
    Command& append(std::string name, Type type, int size, Value value);
    /// Runs the procedure; the rows of its last statement that has any. Throws Error.
    Recordset execute();

private:
    Connection* connection_;
    std::string procedure_;
    std::vector<std::pair<std::string, Value>> parameters_;
};

}  // namespace db
