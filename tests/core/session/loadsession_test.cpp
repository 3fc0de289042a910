
#include <algorithm>
#include <filesystem>

#include "core/session/loadsession.h"
#include "core/session/session.h"
#include "tests/core/stubs.h"

namespace {

using namespace db::literals;
using test::Ward;

constexpr auto invalidLogin = "Invalid Login OR session has expired!!! Please Re-login";

TEST(LoadSession, FillsTheSessionAndOpensTheMainWindowOnce) {
    Ward ward;
    core::LoadSession(ward.place);
    const auto& session = ward.place.session;
    EXPECT_EQ(session.gServerName, "SERVER");
    for (const auto& [connection, database] :
         {std::pair(session.gConnHospital, "Hospital"), std::pair(session.gConnArchive, "HospitalArchive"),
          std::pair(session.gConnSms, "SmsCenter"), std::pair(session.gConnAccounting, "Accounting")})
        EXPECT_EQ(connection,
                  "Driver={SQL Server};Server=SERVER;Database=" + std::string(database) + ";UID=wardo;PWD=brentols");
    EXPECT_EQ(session.gPatientsPath, "\\\\SERVER\\Patients\\");
    EXPECT_EQ(session.gBillType, "0");
    EXPECT_EQ(session.gEditableGridColumn, 3);
    EXPECT_TRUE(session.gPatientHasBalance);
    EXPECT_EQ(session.gModuleRole + "/" + session.gDefaultPatClass, "NURSING/OUT-PATIENT");
    EXPECT_EQ(session.gComputerName + "/" + session.gOsUserName, "WARD-3/station");
    EXPECT_EQ(session.gUserName + "/" + session.gEmpID + "/" + session.gUserFullName, "nurse/E001/Nurse Joy");
    EXPECT_EQ(session.gHospitalName, "General Hospital");
    EXPECT_EQ(session.gServerNow.iso(), "2026-11-24 09:30:00");
    EXPECT_EQ(session.gServerDate.text() + " " + session.gServerTime.text(), "24-Nov-2026 09:30:00");
    EXPECT_EQ(ward.statements().front(),
              "SELECT EmpID, Fullname,username,loginrole,hname FROM vwUsers WHERE Username = 'nurse'  and "
              "loginrole='NURSING'");

    core::LoadSession(ward.place);
    EXPECT_EQ(ward.mainWindowsMade, 1);
}

TEST(LoadSession, ReadsItsTwoFilesLineByLine) {
    struct Case {
        const char* name;
        std::string made, sysdoc, server, path, hospital, user;
    };
    const std::vector<Case> cases{
        {"both keys", "SVR=HOST1\nHNO=007\n", "nurse\n", "HOST1", "HOST1", "007", "nurse"},
        {"any separator", "SVR:HOST1\r\nHNO 007\r\n", "nurse", "HOST1", "HOST1", "007", "nurse"},
        {"no keys", "", "nurse", "SERVER", "SERVER", "001", "nurse"},
        {"key without a value", "SVR\nHNO=\n", "nurse", "SERVER", "SERVER", "001", "nurse"},
        {"the last one wins", "SVR=A\nXYZ=B\nSVR=C\nsvr=D\n", "other\nnurse\n", "C", "C", "001", "nurse"},
        {"blanks around the server", "SVR= HOST \n", "NURSE\n", " HOST ", "HOST", "001", "nurse"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        Ward ward;
        ward.program.write("made.sys", one.made);
        ward.program.write("sysdoc.sys", one.sysdoc);
        core::LoadSession(ward.place);
        const auto& session = ward.place.session;
        EXPECT_EQ(session.gServerName, one.server);
        EXPECT_NE(session.gConnHospital.find("Server=" + one.path + ";"), std::string::npos);
        EXPECT_EQ(session.gHospitalNo, one.hospital);
        EXPECT_EQ(session.gHospitalId, one.hospital);
        EXPECT_EQ(session.gUserName, one.user);
    }
}

/// The oldest version that the role may run.
std::function<void(Ward&)> oldest(const db::Sql& version, const char* lock = "YES", const char* role = "NURSING") {
    return [=](Ward& w) {
        w.setDefault("LockOldVersion", lock);
        w.execute("update Roles set MinVer="_sql + version + " where LoginRole='" + std::string(role) + "'");
    };
}

/// The lines of the file that names the user.
std::function<void(Ward&)> sysdoc(const char* lines) {
    return [=](Ward& w) { w.program.write("sysdoc.sys", lines); };
}

struct Refusal {
    const char* name;
    std::function<void(Ward&)> arrange;
    const char* text;
    const char* title = "";
    bool trapped = false;  ///< lands in the error trap, which a running session survives
};

const std::vector<Refusal>& refusals() {
    static const std::vector<Refusal> all{
        {"no made.sys", [](Ward& w) { std::filesystem::remove(w.program.path() / "made.sys"); },
         "A System inifile bAccum required for this Application is MISSING"},
        {"no sysdoc.sys", [](Ward& w) { std::filesystem::remove(w.program.path() / "sysdoc.sys"); },
         "A System file UName required for this Application is MISSING"},
        {"empty sysdoc.sys", sysdoc(""), invalidLogin},
        {"unknown user", sysdoc("nobody\n"), invalidLogin},
        {"last line empty", sysdoc("nurse\n\n"), invalidLogin},
        {"another role only",
         [](Ward& w) {
             w.addUser("doc", "CONSULTING");
             w.program.write("sysdoc.sys", "doc\n");
         },
         invalidLogin},
        {"too old", oldest("8"_sql), "This Version of NURSING Module is OLD!\nOnly Versions 8 and Above are Allowed",
         "Old Version 7.2 Not Allowed"},
        {"minimum beyond 16 bits", oldest("40000"_sql), invalidLogin, "", true},
        {"a quote in the name", sysdoc("O'Hara\n"), invalidLogin, "", true},
        {"a directory in the file's place",
         [](Ward& w) {
             std::filesystem::remove(w.program.path() / "made.sys");
             std::filesystem::create_directory(w.program.path() / "made.sys");
         },
         invalidLogin, "", true},
        {"a read that fails", [](Ward& w) { w.failStatement("appSettings"); }, invalidLogin, "", true},
        {"a wait that is no number", [](Ward& w) { w.setDefault("SearchWaitTime", "soon"); }, invalidLogin, "", true},
    };
    return all;
}

/// A session that does not run yet ends in any case; one that runs survives an error.
TEST(LoadSession, RefusesToStartAndARunningOneEndsByAFatalStep) {
    for (const auto& one : refusals())
        for (const bool running : {false, true}) {
            SCOPED_TRACE(one.name + std::string(running ? ", running" : ""));
            Ward ward;
            if (running) core::LoadSession(ward.place);
            one.arrange(ward);
            ward.expectMessage(one.text, one.title);
            EXPECT_EQ(ward.ends([&] { core::LoadSession(ward.place); }), !running || !one.trapped);
            EXPECT_EQ(ward.mainWindowsMade, running ? 1 : 0);
        }
}

TEST(LoadSession, LetsTheVersionPass) {
    const std::vector<std::pair<const char*, std::function<void(Ward&)>>> cases{
        {"equal", oldest("7"_sql)},
        {"null", oldest("null"_sql)},
        {"lower case", oldest("8"_sql, "yes")},
        {"other module", oldest("8"_sql, "YES", "CONSULTING")},
    };
    for (const auto& [name, arrange] : cases) {
        SCOPED_TRACE(name);
        Ward ward;
        arrange(ward);
        core::LoadSession(ward.place);
        EXPECT_EQ(ward.mainWindowsMade, 1);
    }
}

TEST(LoadSession, TheVersionLockComesBeforeTheLaterKeys) {
    Ward ward;
    oldest("8"_sql)(ward);
    ward.setTakesMessages(true);
    EXPECT_TRUE(ward.ends([&] { core::LoadSession(ward.place); }));
    EXPECT_EQ(ward.boxes().front().icon, ui::Icon::stop);
    const auto statements = ward.statements();
    ASSERT_GE(statements.size(), 2u);
    EXPECT_EQ(statements[statements.size() - 2], "select idval from AppDefaults where ID='LockOldVersion'");
    EXPECT_EQ(statements.back(), "select MinVer from Roles where LoginRole='NURSING'");
}

TEST(LoadSession, NullsOfTheUserReadAsEmpty) {
    Ward ward;
    ward.execute("update Users set EmpID=null, Fullname=null"_sql);
    ward.execute("delete from hHospital"_sql);
    core::LoadSession(ward.place);
    const auto& session = ward.place.session;
    EXPECT_EQ(session.gEmpID + session.gUserFullName + session.gHospitalName, "");
}

}  // namespace
