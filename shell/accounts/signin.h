#pragma once

#include <functional>
#include <string>

#include "core/session/workplace.h"
#include "db/databases.h"

namespace shell {

/// What signing in needs of the host's settings.
struct SignInSettings {
    std::string encodingTable = std::string(core::Settings::builtInEncodingTable());
    /// The workstation's clock, which stamps the login trail.
    std::function<db::DateTime()> clock = &db::DateTime::now;
};

enum class SignInOutcome {
    ok,
    refused,      ///< no such user, a disabled account, or another password: on purpose not told apart
    notNurse,     ///< the password is the user's, and the user has no role in this module
    unavailable,  ///< the database cannot answer
};

struct SignInResult {
    SignInOutcome outcome;
    std::string user;  ///< where the password is right: the name as the database spells it
    std::string text;  ///< for unavailable: the error's description
};

/// Whose tries go into the login trail.
enum class Trail {
    always,
    realNames,  ///< where somebody makes up names by the hundred, they need not fill it
};

/// Checks a user's password against its stored form and leaves a row in the login trail, as the suite's own sign-in
/// does. The comparison takes as long for an unknown user as for a known one. Throws nothing.
SignInResult signIn(db::DataSources& sources, const SignInSettings& settings, const std::string& user,
                    const std::string& password, Trail trail = Trail::always) noexcept;

/// Whether a user who has signed in still may be here: the account is enabled and has the right. Throws db::Error.
bool mayStay(db::DataSources& sources, const std::string& user);

}  // namespace shell
