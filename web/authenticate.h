#pragma once

#include <functional>
#include <string>

namespace web {

/// Somebody's try to sign in.
struct Attempt {
    std::string user;
    std::string password;
    std::string address;  ///< of the workstation
};

struct AuthResult {
    enum class Outcome {
        accepted,
        refused,      ///< unknown user or wrong password: nobody is told which
        notNurse,     ///< the password is right, and the user has no right to this module
        unavailable,  ///< nobody can say at the moment
    };
    Outcome outcome = Outcome::refused;
    std::string user = {};  ///< the accepted name in the spelling of the database
};

/// Checks a password. It may take its time: the host calls it on threads of its own.
using Authenticate = std::function<AuthResult(const Attempt&)>;

}  // namespace web
