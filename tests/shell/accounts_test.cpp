#include <stdexcept>

#include "core/session/workplace.h"
#include "core/texts/encoding.h"
#include "db/error.h"
#include "shell/accounts/signin.h"
#include "shell/accounts/users.h"
#include "tests/support/hospital.h"

using namespace db::literals;

namespace test {
namespace {

using Outcome = shell::SignInOutcome;

class AccountsTest : public ::testing::Test {
protected:
    /// The tests' passwords are short ones, as the suite's own may be.
    void addUser(shell::NewUser user) {
        user.mayHaveShortPassword = true;
        shell::addUser(place.databases, user, place.settings.encodingTable);
    }
    shell::SignInResult signIn(const std::string& user, const std::string& password) {
        place.databases.idle();
        shell::SignInSettings settings;
        settings.encodingTable = place.settings.encodingTable;
        settings.clock = place.settings.clock;
        return shell::signIn(hospital.sources, settings, user, password);
    }
    /// Everything that adding a user could write.
    std::string accounts() {
        return hospital.dump("select * from Users order by Username"_sql) + "--\n" +
               hospital.dump("select * from ApplicationUsers order by Username"_sql) + "--\n" +
               hospital.dump("select * from UserRoles order by Username, RoleID"_sql) + "--\n" +
               hospital.dump("select * from employees order by empID"_sql);
    }

    TestHospital hospital;
    core::Workplace& place = hospital.place;
};

TEST_F(AccountsTest, SigningIn) {
    addUser({"Grace", "Ward-3!", {"NURSING", "MANAGEMENT"}, "Grace Eze", "E007"});
    addUser({"doctor", "Steth0", {"CONSULTING"}});
    addUser({"gone", "Ward-3!", {"NURSING"}});
    hospital.execute("update ApplicationUsers set AccountStatus='Disabled' where Username='gone'"_sql);
    addUser({"blank", "Ward-3!", {"NURSING"}});
    hospital.execute("update Users set Password=null where Username='blank'"_sql);
    struct Case {
        const char* name;
        std::string user, password;
        Outcome outcome;
        std::string trail = {};  ///< where it is not the name as typed
    };
    const std::string tooLong(60, 'x');
    const Case cases[] = {
        {"a nurse", "Grace", "Ward-3!", Outcome::ok},
        {"other letters", "GRACE", "Ward-3!", Outcome::ok},
        {"trailing blanks", "Grace  ", "Ward-3!", Outcome::ok},
        {"a blank in the password does not count", "Grace", " Ward -3! ", Outcome::ok},
        {"another password", "Grace", "Ward-4!", Outcome::refused},
        {"a part of the password", "Grace", "Ward-3", Outcome::refused},
        {"the password twice", "Grace", "Ward-3!Ward-3!", Outcome::refused},
        {"the stored form", "Grace", core::EncodeText("Ward-3!", place.settings.encodingTable, [] {}),
         Outcome::refused},
        {"no password", "Grace", "", Outcome::refused},
        {"a password of blanks", "Grace", "   ", Outcome::refused},
        {"no stored password", "blank", "", Outcome::refused},
        {"no stored password, another typed", "blank", "-", Outcome::refused},
        {"nobody", "nobody", "Ward-3!", Outcome::refused},
        {"a disabled account", "gone", "Ward-3!", Outcome::refused},
        {"no account row", "nurse", "", Outcome::refused},
        {"no nurse", "doctor", "Steth0", Outcome::notNurse},
        {"no nurse, another password", "doctor", "Steth1", Outcome::refused},
        {"no name", "", "Ward-3!", Outcome::refused},
        {"a quote", "Grace' or '1'='1", "Ward-3!", Outcome::refused},
        {"a doubled quote", "Grace'' or ''1''=''1", "Ward-3!", Outcome::refused},
        {"a statement", "x'; delete from Users; --", "Ward-3!", Outcome::refused},
        {"a quote of another script", "Grace\u02bc--", "Ward-3!", Outcome::refused},
        {"a comment", "Grace--", "Ward-3!", Outcome::refused},
        {"a wildcard", "Gr%", "Ward-3!", Outcome::refused},
        {"a NUL", std::string("Grace\0x", 7), "Ward-3!", Outcome::refused, "(unreadable name)"},
        {"no UTF-8", "Grace\xff", "Ward-3!", Outcome::refused, "(unreadable name)"},
        {"too long", tooLong, "Ward-3!", Outcome::refused, tooLong.substr(0, 50)},
    };
    const auto before = accounts();
    for (const auto& each : cases) {
        hospital.execute("delete from LoginTrail"_sql);
        const auto result = signIn(each.user, each.password);
        const bool ok = each.outcome == Outcome::ok;
        EXPECT_EQ(result.outcome, each.outcome) << each.name << ": " << result.text;
        EXPECT_EQ(result.user, ok ? "Grace" : each.outcome == Outcome::notNurse ? "doctor" : "") << each.name;
        EXPECT_EQ(hospital.dump("select userName, outcome, loginDate, loginTime from LoginTrail"_sql),
                  (each.trail.empty() ? each.user : each.trail) + (ok ? "|Successful" : "|Failed") +
                      " Logon|24-11-2026|09:31:00\n")
            << each.name;
    }
    EXPECT_EQ(accounts(), before);
}

TEST_F(AccountsTest, MadeUpNamesByTheHundredLeaveNoTrailAndRealOnesDo) {
    addUser({"Grace", "Ward-3!", {"NURSING"}});
    place.databases.idle();
    const auto tries = [&](const std::string& user) {
        return shell::signIn(hospital.sources, {}, user, "wrong", shell::Trail::realNames).outcome;
    };
    EXPECT_EQ(tries("nobody"), Outcome::refused);
    EXPECT_EQ(tries("grace"), Outcome::refused);
    EXPECT_EQ(hospital.dump("select userName, outcome from LoginTrail"_sql), "grace|Failed Logon\n");
}

TEST_F(AccountsTest, AUserMayStayWhileTheAccountIsEnabledAndHasTheRight) {
    addUser({"Grace", "Ward-3!", {"NURSING"}});
    const auto stays = [&] {
        place.databases.idle();
        return shell::mayStay(hospital.sources, "Grace");
    };
    EXPECT_TRUE(stays());
    hospital.execute("update ApplicationUsers set AccountStatus='Disabled' where Username='Grace'"_sql);
    EXPECT_FALSE(stays());
    hospital.execute("update ApplicationUsers set AccountStatus='Enabled' where Username='Grace'"_sql);
    hospital.execute("delete from UserRoles where Username='Grace'"_sql);
    EXPECT_FALSE(stays());
}

TEST_F(AccountsTest, SigningInWithoutADatabaseSaysWhy) {
    db::DataSources nowhere({{"Hospital", {"sqlite", (hospital.program.path() / "none" / "Hospital.db").string()}}});
    const auto result = shell::signIn(nowhere, {}, "Grace", "Ward-3!");
    EXPECT_EQ(result.outcome, Outcome::unavailable);
    EXPECT_FALSE(result.text.empty());
    EXPECT_EQ(result.text.find("Ward-3!"), std::string::npos);
}

TEST_F(AccountsTest, AddingAUserWritesItWhole) {
    addUser({"Grace", "Ward-3!", {"NURSING", "management", "NURSING"}, "Grace Ada Eze", "E007"});
    EXPECT_EQ(
        hospital.dump("select EmpID, Fullname, username, loginrole, AccountStatus from vwUsers where username='Grace' "
                      "order by loginrole"_sql),
        "E007|Grace Ada Eze|Grace|MANAGEMENT|Enabled\nE007|Grace Ada Eze|Grace|NURSING|Enabled\n");
    EXPECT_EQ(hospital.value("select Password from Users where Username='Grace'"_sql).text(),
              core::EncodeText("Ward-3!", place.settings.encodingTable, [] {}));
    EXPECT_TRUE(hospital.value("select Password from ApplicationUsers where Username='Grace'"_sql).isNull());
    EXPECT_EQ(hospital.dump("select lastname, firstname, deptID from employees where empID='E007'"_sql),
              "Eze|Grace Ada|NURSING\n");

    addUser({"Grace2", "x", {"CONSULTING"}, "Grace O'Neil", "E007"});
    EXPECT_EQ(hospital.value("select count(*) from employees where empID='E007'"_sql), db::Value(1));
    EXPECT_EQ(hospital.value("select Fullname from Users where Username='Grace2'"_sql).text(), "Grace O'Neil");
}

TEST_F(AccountsTest, NewStaffJoinTheDepartmentOfTheirRole) {
    const std::pair<std::vector<std::string>, db::Value> cases[] = {{{"NURSING", "MANAGEMENT"}, "NURSING"},
                                                                    {{"nursing"}, "NURSING"},
                                                                    {{"consulting"}, "MED"},
                                                                    {{"NURSING", "CONSULTING"}, "MED"},
                                                                    {{"MANAGEMENT"}, {}}};
    for (int number = 1; const auto& [roles, department] : cases) {
        const auto id = "E" + std::to_string(number++);
        addUser({id, "Ward-3!", roles, "Ada Obi", id});
        EXPECT_EQ(hospital.value("select deptID from employees where empID='"_sql + id + "'"), department) << id;
    }
}

TEST_F(AccountsTest, AUserThatCannotBeIsRefusedInOneLine) {
    addUser({"Grace", "Ward-3!", {"NURSING"}});
    const std::string longText(51, 'x');
    const char* const noText = "The user name holds a control character, or bytes that are no text.";
    const char* const cannotStore =
        "The password holds a character that the suite cannot store: use letters, digits and signs of plain ASCII, "
        "without blanks.";
    const std::pair<shell::NewUser, const char*> cases[] = {
        {{"", "pw", {"NURSING"}}, "The user name is empty."},
        {{longText, "pw", {"NURSING"}}, "The user name is longer than 50 characters."},
        {{"ada'", "pw", {"NURSING"}}, "The user name holds a quote."},
        {{"ada\u2019", "pw", {"NURSING"}}, "The user name holds a quote."},
        {{"x'; delete from Users; --", "pw", {"NURSING"}}, "The user name holds a quote."},
        {{"ada\n", "pw", {"NURSING"}}, noText},
        {{std::string("a\0b", 3), "pw", {"NURSING"}}, noText},
        {{"ada\xc3", "pw", {"NURSING"}}, noText},
        {{" ada", "pw", {"NURSING"}}, "The user name begins or ends with a blank."},
        {{"GRACE", "pw", {"NURSING"}}, "There is a user \"GRACE\" already."},
        {{"ada", "", {"NURSING"}}, "The password is empty."},
        {{"ada", std::string(101, 'x'), {"NURSING"}}, "The password is longer than 100 characters."},
        {{"ada", "two words", {"NURSING"}}, cannotStore},
        {{"ada", "p\u00e4ss", {"NURSING"}}, cannotStore},
        {{"ada", "pw", {}}, "The user has no role."},
        {{"ada", "pw", {"NURSING", "SURGERY"}}, "There is no role \"SURGERY\"."},
        {{"ada", "pw", {"' or 1=1 --"}}, "There is no such role."},
        {{"ada", "pw", {"NURSING"}, longText}, "The full name is longer than 50 characters."},
        {{"ada", "pw", {"NURSING"}, "Ada", "E'1"}, "The staff number holds a quote."},
        {{"ada", "pw", {"NURSING"}, "Ada", std::string(21, '1')}, "The staff number is longer than 20 characters."},
    };
    const auto before = accounts();
    for (const auto& [user, why] : cases) {
        try {
            addUser(user);
            ADD_FAILURE() << "Nobody refused: " << why;
        } catch (const std::invalid_argument& error) {
            EXPECT_STREQ(error.what(), why);
        }
        EXPECT_EQ(accounts(), before) << why;
    }
}

TEST_F(AccountsTest, AShortPasswordHasToBeAllowed) {
    shell::NewUser user{"ada", "7-signs", {"NURSING"}};
    EXPECT_THROW(shell::addUser(place.databases, user, place.settings.encodingTable), std::invalid_argument);
    user.password = "8--signs";
    shell::addUser(place.databases, user, place.settings.encodingTable);
    EXPECT_EQ(signIn("ada", "8--signs").outcome, Outcome::ok);
}

TEST_F(AccountsTest, AFailingWriteLeavesNothingOfAUser) {
    const auto before = accounts();
    const shell::NewUser user{"Grace", "Ward-3!", {"NURSING", "MANAGEMENT"}, "Grace Eze", "E007"};
    constexpr int writes = 5;
    for (int write = 1; write <= writes; ++write) {
        hospital.failWrite(write);
        EXPECT_THROW(addUser(user), db::Error) << write;
        EXPECT_EQ(accounts(), before) << write;
    }
    hospital.forget();
    addUser(user);
    int written = 0;
    for (const auto& statement : hospital.log()) written += statement.writes() ? 1 : 0;
    EXPECT_EQ(written, writes);
}

}  // namespace
}  // namespace test
