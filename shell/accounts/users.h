#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/databases.h"

namespace shell {

/// A user to add, as the little of user administration that the embedded databases need.
struct NewUser {
    std::string name;
    std::string password;            ///< as typed
    std::vector<std::string> roles;  ///< "NURSING", "MANAGEMENT", ...: at least one
    std::string fullName = {};
    /// The number in the staff list. A number that is new there gets its row, in the department of a doctor or a nurse.
    std::string empId = {};
    bool mayHaveShortPassword = false;  ///< fewer than eight characters
};

/// Adds an enabled user with these roles, whole or not at all. Throws std::invalid_argument with one line that says
/// what is wrong with the user, db::Error where the database fails.
void addUser(db::Databases& databases, const NewUser& user, std::string_view encodingTable);
void addUser(db::DataSources& sources, const NewUser& user, std::string_view encodingTable);

}  // namespace shell
