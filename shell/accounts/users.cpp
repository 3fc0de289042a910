#include "shell/accounts/users.h"

#include <map>
#include <stdexcept>

#include "core/texts/encoding.h"
#include "shell/accounts/username.h"

using namespace db::literals;

namespace shell {
namespace {

/// Characters that the tables hold.
constexpr std::size_t longestPassword = 100;
/// OWASP ASVS 5.0, 6.2.1.
constexpr std::size_t shortestPassword = 8;
constexpr std::size_t longestEmpId = 20;

void require(bool holds, const std::string& otherwise) {
    if (!holds) throw std::invalid_argument(otherwise);
}

void requireShort(const std::string& what, std::string_view text, std::size_t longest) {
    require(characterCount(text) <= longest, what + " is longer than " + std::to_string(longest) + " characters.");
    require(printable(text), what + " holds a control character, or bytes that are no text.");
    require(text.empty() || (text.front() != ' ' && text.back() != ' '), what + " begins or ends with a blank.");
}

void checkTexts(const NewUser& user) {
    require(!user.name.empty(), "The user name is empty.");
    requireShort("The user name", user.name, longestName);
    require(!hasQuote(user.name), "The user name holds a quote.");
    requireShort("The full name", user.fullName, longestName);
    requireShort("The staff number", user.empId, longestEmpId);
    require(!hasQuote(user.empId), "The staff number holds a quote.");
}

std::string encodedPassword(const NewUser& user, std::string_view encodingTable) {
    const std::string& password = user.password;
    require(!password.empty(), "The password is empty.");
    require(user.mayHaveShortPassword || password.size() >= shortestPassword,
            "The password has fewer than " + std::to_string(shortestPassword) +
                " characters: choose a longer one, or allow it with --allow-short-password.");
    require(password.size() <= longestPassword,
            "The password is longer than " + std::to_string(longestPassword) + " characters.");
    bool invalid = false;
    std::string encoded = core::EncodeText(password, encodingTable, [&] { invalid = true; });
    require(!invalid,
            "The password holds a character that the suite cannot store: use letters, digits and signs of "
            "plain ASCII, without blanks.");
    return encoded;
}

/// Roles by their names as the hospital writes them, with their numbers.
using Roles = std::map<std::string, std::int32_t>;

Roles rolesNamed(db::Connection& hospital, const std::vector<std::string>& roles) {
    require(!roles.empty(), "The user has no role.");
    Roles known;
    for (const auto& role : roles) {
        require(printable(role) && !hasQuote(role), "There is no such role.");
        auto found = hospital.read("select RoleID, LoginRole from Roles where LoginRole='"_sql + role + "'");
        require(!found.empty(), "There is no role \"" + role + "\".");
        known[found["LoginRole"].text()] = found["RoleID"].int32();
    }
    return known;
}

void refuseExisting(db::Connection& hospital, const std::string& name) {
    const bool exists =
        !hospital.read("select Username from Users where Username='"_sql + name + "'").empty() ||
        !hospital.read("select Username from ApplicationUsers where Username='"_sql + name + "'").empty();
    require(!exists, "There is a user \"" + name + "\" already.");
}

db::Value orNull(const std::string& text) {
    return text.empty() ? db::Value() : db::Value(text);
}

void writeUser(db::Connection& hospital, const NewUser& user, const std::string& encoded) {
    auto row = hospital.read("select * from Users where 1=2"_sql);
    row.addNew();
    row.set("Username", user.name);
    row.set("Password", encoded);
    row.set("EmpID", orNull(user.empId));
    row.set("Fullname", orNull(user.fullName));
    row.update();
}

/// The account carries the status alone: its own password column would hold the password in plain.
void writeAccount(db::Connection& hospital, const std::string& name) {
    auto row = hospital.read("select * from ApplicationUsers where 1=2"_sql);
    row.addNew();
    row.set("Username", name);
    row.set("AccountStatus", "Enabled");
    row.update();
}

void writeRole(db::Connection& hospital, const std::string& name, std::int32_t roleId) {
    auto row = hospital.read("select * from UserRoles where 1=2"_sql);
    row.addNew();
    row.set("Username", name);
    row.set("RoleID", roleId);
    row.update();
}

/// Where the lists of doctors and of nurses look for a member of staff. Who has both roles is a doctor that works this
/// module too.
db::Value departmentOf(const Roles& roles) {
    if (roles.contains("CONSULTING")) return "MED";
    if (roles.contains("NURSING")) return "NURSING";
    return {};
}

/// The last word of a full name is the family's.
void writeEmployee(db::Connection& hospital, const NewUser& user, const Roles& roles) {
    if (user.empId.empty()) return;
    if (!hospital.read("select empID from employees where empID='"_sql + user.empId + "'").empty()) return;
    const auto blank = user.fullName.rfind(' ');
    const bool oneWord = blank == std::string::npos;
    auto row = hospital.read("select * from employees where 1=2"_sql);
    row.addNew();
    row.set("empID", user.empId);
    row.set("lastname", orNull(oneWord ? user.fullName : user.fullName.substr(blank + 1)));
    row.set("firstname", orNull(oneWord ? std::string() : user.fullName.substr(0, blank)));
    row.set("deptID", departmentOf(roles));
    row.update();
}

}  // namespace

void addUser(db::Databases& databases, const NewUser& user, std::string_view encodingTable) {
    checkTexts(user);
    const std::string encoded = encodedPassword(user, encodingTable);
    auto& hospital = databases.named("Hospital");
    db::Transaction transaction(hospital);
    const auto roles = rolesNamed(hospital, user.roles);
    refuseExisting(hospital, user.name);
    writeEmployee(hospital, user, roles);
    writeUser(hospital, user, encoded);
    writeAccount(hospital, user.name);
    for (const auto& [role, roleId] : roles) writeRole(hospital, user.name, roleId);
    transaction.commit();
}

void addUser(db::DataSources& sources, const NewUser& user, std::string_view encodingTable) {
    db::Databases databases(sources);
    addUser(databases, user, encodingTable);
}

}  // namespace shell
