#pragma once

#include <functional>
#include <string>

namespace web {

/// Somebody's try to sign in.
struct Attempt {
    std::string user;
    std::string password;
    std::string address;  ///< of the workstation
    /// Many tries from there failed: one with a name that does not exist need not go into the trail any more.
    bool guessing = false;
};

struct AuthResult {
    enum class Outcome {
        accepted,
        refused,      ///< unknown user or wrong password: nobody is told which
        notNurse,     ///< the password is right, and the user has no right to this module
        unavailable,  ///< nobody can say at the moment
    };
    Outcome outcome = Outcome::refused;
    std::string user = {};  ///< where the password is right: the name in the spelling of the database
};

/// Checks a password. It may take its time, as the next one may: the host calls both on threads of its own.
using Authenticate = std::function<AuthResult(const Attempt&)>;
/// Whether somebody who has signed in still may be here. A throw is no answer: she stays.
using MayStay = std::function<bool(const std::string& user)>;

}  // namespace web
