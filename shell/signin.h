#pragma once

#include <functional>
#include <string>

#include "core/workplace.h"
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
    std::string user;  ///< for ok: the name as the database spells it
    std::string text;  ///< for unavailable: the error's description
};

/// Checks a user's password against its stored form and leaves a row in the login trail, as the suite's own sign-in
/// does. The comparison takes as long for an unknown user as for a known one. Throws nothing.
SignInResult signIn(db::DataSources& sources, const SignInSettings& settings, const std::string& user,
                    const std::string& password) noexcept;

}  // namespace shell
