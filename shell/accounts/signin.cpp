#include "shell/accounts/signin.h"

#include "core/audit/activities.h"
#include "core/texts/encoding.h"
#include "shell/accounts/username.h"

using namespace db::literals;

namespace shell {
namespace {

/// What the database knows of an account that may sign in.
struct Account {
    std::string name;
    std::string encoded;
};

Account findAccount(db::Connection& hospital, const std::string& user) {
    if (!isUserName(user)) return {};
    const auto rows = hospital.read("SELECT Username, Password FROM vwUsers WHERE Username = '"_sql + user +
                                    "' AND AccountStatus = 'Enabled'");
    if (rows.empty()) return {};
    return {rows["Username"].text(), rows["Password"].textOr()};
}

bool isNurse(db::Connection& hospital, const std::string& user) {
    return !hospital.read("SELECT Username FROM vwUsers WHERE Username = '"_sql + user + "' AND loginrole = 'NURSING'")
                .empty();
}

/// Compares in a time that depends on the typed text alone, which whoever types knows already.
bool sameText(std::string_view typed, std::string_view stored) noexcept {
    const std::string_view against = stored.empty() ? std::string_view("-") : stored;
    volatile unsigned difference = typed.size() == stored.size() ? 0 : 1;
    for (std::size_t i = 0; i < typed.size(); ++i)
        difference = difference | static_cast<unsigned char>(typed[i] ^ against[i % against.size()]);
    return difference == 0;
}

SignInOutcome judge(db::Connection& hospital, const Account& account, std::string_view encoded) {
    const bool same = sameText(encoded, account.encoded);
    if (!same || encoded.empty()) return SignInOutcome::refused;
    return isNurse(hospital, account.name) ? SignInOutcome::ok : SignInOutcome::notNurse;
}

/// The name as the trail can hold it: what was typed may be of any length and hold any bytes.
std::string trailName(std::string_view typed) {
    const std::string_view name = firstCharacters(typed, longestName);
    return printable(name) ? std::string(name) : "(unreadable name)";
}

SignInResult check(db::DataSources& sources, const SignInSettings& settings, const std::string& user,
                   const std::string& password, Trail trail) {
    db::Databases databases(sources);
    auto& hospital = databases.named("Hospital");
    // Characters without an encoded form are dropped, as in every password of the suite.
    const std::string encoded = core::EncodeText(password, settings.encodingTable, [] {});
    const Account account = findAccount(hospital, user);
    const SignInOutcome outcome = judge(hospital, account, encoded);
    if (trail == Trail::always || !account.name.empty())
        core::noteSignIn(hospital, trailName(user), outcome == SignInOutcome::ok, settings.clock());
    return {outcome, outcome == SignInOutcome::refused ? std::string() : account.name, {}};
}

}  // namespace

bool mayStay(db::DataSources& sources, const std::string& user) {
    db::Databases databases(sources);
    auto& hospital = databases.named("Hospital");
    return !findAccount(hospital, user).name.empty() && isNurse(hospital, user);
}

SignInResult signIn(db::DataSources& sources, const SignInSettings& settings, const std::string& user,
                    const std::string& password, Trail trail) noexcept {
    try {
        return check(sources, settings, user, password, trail);
    } catch (const std::exception& error) {
        return {SignInOutcome::unavailable, {}, error.what()};
    }
}

}  // namespace shell
