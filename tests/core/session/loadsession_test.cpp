
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
    EXPECT_EQ(session.gConnHospital, "Driver={SQL Server};Server=SERVER;Database=Hospital;UID=wardo;PWD=brentols");
    EXPECT_EQ(session.gConnArchive,
              "Driver={SQL Server};Server=SERVER;Database=HospitalArchive;UID=wardo;PWD=brentols");
    EXPECT_EQ(session.gConnSms, "Driver={SQL Server};Server=SERVER;Database=SmsCenter;UID=wardo;PWD=brentols");
    EXPECT_EQ(session.gConnAccounting, "Driver={SQL Server};Server=SERVER;Database=Accounting;UID=wardo;PWD=brentols");
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
        {"empty sysdoc.sys", [](Ward& w) { w.program.write("sysdoc.sys", ""); }, invalidLogin},
        {"unknown user", [](Ward& w) { w.program.write("sysdoc.sys", "nobody\n"); }, invalidLogin},
        {"last line empty", [](Ward& w) { w.program.write("sysdoc.sys", "nurse\n\n"); }, invalidLogin},
        {"another role only",
         [](Ward& w) {
             w.addUser("doc", "CONSULTING");
             w.program.write("sysdoc.sys", "doc\n");
         },
         invalidLogin},
        {"too old",
         [](Ward& w) {
             w.setDefault("LockOldVersion", "YES");
             w.execute("update Roles set MinVer=8 where LoginRole='NURSING'"_sql);
         },
         "This Version of NURSING Module is OLD!\nOnly Versions 8 and Above are Allowed",
         "Old Version 7.2 Not Allowed"},
        {"minimum beyond 16 bits",
         [](Ward& w) {
             w.setDefault("LockOldVersion", "YES");
             w.execute("update Roles set MinVer=40000 where LoginRole='NURSING'"_sql);
         },
         invalidLogin, "", true},
        {"a quote in the name", [](Ward& w) { w.program.write("sysdoc.sys", "O'Hara\n"); }, invalidLogin, "", true},
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

TEST(LoadSession, RefusesToStart) {
    for (const auto& one : refusals()) {
        SCOPED_TRACE(one.name);
        Ward ward;
        one.arrange(ward);
        ward.expectMessage(one.text, one.title);
        EXPECT_TRUE(ward.ends([&] { core::LoadSession(ward.place); }));
        EXPECT_EQ(ward.mainWindowsMade, 0);
    }
}

TEST(LoadSession, AReloadEndsTheSessionByAFatalStepAndSurvivesAnError) {
    for (const auto& one : refusals()) {
        SCOPED_TRACE(one.name);
        Ward ward;
        core::LoadSession(ward.place);
        one.arrange(ward);
        ward.expectMessage(one.text, one.title);
        EXPECT_EQ(ward.ends([&] { core::LoadSession(ward.place); }), !one.trapped);
    }
}

TEST(LoadSession, LetsTheVersionPass) {
    struct Case {
        const char* name;
        const char* lock;
        std::function<void(Ward&)> arrange;
    };
    const std::vector<Case> cases{
        {"equal", "YES", [](Ward& w) { w.execute("update Roles set MinVer=7 where LoginRole='NURSING'"_sql); }},
        {"null", "YES", [](Ward& w) { w.execute("update Roles set MinVer=null where LoginRole='NURSING'"_sql); }},
        {"lower case", "yes", [](Ward& w) { w.execute("update Roles set MinVer=8 where LoginRole='NURSING'"_sql); }},
        {"other module", "YES",
         [](Ward& w) { w.execute("update Roles set MinVer=8 where LoginRole='CONSULTING'"_sql); }},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        Ward ward;
        ward.setDefault("LockOldVersion", one.lock);
        one.arrange(ward);
        core::LoadSession(ward.place);
        EXPECT_EQ(ward.mainWindowsMade, 1);
    }
}

TEST(LoadSession, TheVersionLockComesBeforeTheLaterKeys) {
    Ward ward;
    ward.setDefault("LockOldVersion", "YES");
    ward.execute("update Roles set MinVer=8 where LoginRole='NURSING'"_sql);
    ward.expectMessage("This Version of NURSING Module is OLD!\nOnly Versions 8 and Above are Allowed",
                       "Old Version 7.2 Not Allowed");
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
