#include "core/session/loadsession.h"

#include <fstream>

#include "core/clock/clock.h"
#include "core/session/defaults.h"
#include "core/session/session.h"
#include "core/session/workplace.h"
#include "core/texts/texts.h"
#include "db/error.h"

namespace core {
namespace {

using namespace db::literals;

constexpr const char* invalidLogin = "Invalid Login OR session has expired!!! Please Re-login";

[[noreturn]] void fatal(Workplace& place, const std::string& text, ui::Icon icon = ui::Icon::none,
                        const std::string& title = {}) {
    place.desktop.message(text, icon, title);
    place.endProcess(text);
}

template <typename TakeLine>
void readLines(Workplace& place, const std::string& name, const TakeLine& takeLine) {
    std::ifstream file(place.programFile(name));
    if (!file) throw db::Error(db::Category::other, "File not found: " + name, "read " + name);
    for (std::string line; std::getline(file, line);) {
        if (line.ends_with('\r')) line.pop_back();
        takeLine(line);
    }
    if (file.bad()) throw db::Error(db::Category::other, "Device I/O error: " + name, "read " + name);
}

void requireFile(Workplace& place, const std::string& name, const std::string& whenMissing) {
    if (!std::filesystem::exists(place.programFile(name))) fatal(place, whenMissing);
}

void buildConnectionStrings(Session& session) {
    const auto to = [server = trimmed(session.gServerName)](const std::string& database) {
        return "Driver={SQL Server};Server=" + server + ";Database=" + database + ";UID=wardo;PWD=brentols";
    };
    session.gConnHospital = to("Hospital");
    session.gConnArchive = to("HospitalArchive");
    session.gConnSms = to("SmsCenter");
    session.gConnAccounting = to("Accounting");
}

void identifyServer(Workplace& place) {
    auto& session = place.session;
    requireFile(place, "made.sys", "A System inifile bAccum required for this Application is MISSING");
    session.gMadeSysResult = ReadMadeSys(place);
    session.gBillType = std::to_string(session.gMadeSysResult);
    if (session.gServerName.empty()) session.gServerName = "SERVER";
    buildConnectionStrings(session);
    if (session.gHospitalNo.empty()) session.gHospitalNo = "001";
    session.gHospitalId = session.gHospitalNo;
    if (session.gHospitalId.empty()) fatal(place, "Value needed for Hospital ID/Name in Hospital Listing");
}

void setConstants(Session& session) {
    session.gEditableGridColumn = 3;
    session.gPatientsPath = R"(\\)" + session.gServerName + R"(\Patients\)";
    session.gPatientHasBalance = true;
    session.gForcedLogoff = false;
    session.gModuleRole = "NURSING";
    session.gDefaultPatClass = "OUT-PATIENT";
    session.gPatientsWaiting = false;
    session.gAnythingWaiting = false;
}

void identifyUser(Workplace& place) {
    auto& session = place.session;
    ReadEnvironment(place);
    requireFile(place, "sysdoc.sys", "A System file UName required for this Application is MISSING");
    ReadSysDoc(place);
    const auto user =
        place.hospital().read("SELECT EmpID, Fullname,username,loginrole,hname FROM vwUsers WHERE Username = '"_sql +
                              session.gUserName + "'  and loginrole='" + session.gModuleRole + "'");
    if (user.empty()) fatal(place, invalidLogin);
    session.gEmpID = user["EmpID"].textOr();
    session.gUserName = user["username"].textOr();
    session.gUserFullName = user["Fullname"].textOr();
    session.gHospitalName = user["hname"].textOr();
}

/// The hospital may close out programs older than the least version that it allows for the module.
void lockVersion(Workplace& place) {
    const auto& role = place.session.gModuleRole;
    if (place.session.gLockOldVersion != "YES") return;
    const auto least = place.hospital().read("select MinVer from Roles where LoginRole='"_sql + role + "'");
    if (least.empty()) return;
    const int minimum = least["MinVer"].isNull() ? 0 : least["MinVer"].int16();
    const auto& version = place.settings.version;
    if (minimum <= version.major) return;
    fatal(place,
          "This Version of " + role + " Module is OLD!\nOnly Versions " + std::to_string(minimum) +
              " and Above are Allowed",
          ui::Icon::stop,
          "Old Version " + std::to_string(version.major) + "." + std::to_string(version.minor) + " Not Allowed");
}

void load(Workplace& place) {
    identifyServer(place);
    setConstants(place.session);
    identifyUser(place);
    readDefaults(place, [&place] { lockVersion(place); });
    refreshServerClock(place);
    if (place.desktop.loaded("MdiVorel") == nullptr) place.desktop.show("MdiVorel");
}

}  // namespace

void ReadSysDoc(Workplace& place) {
    place.session.gUserName.clear();
    readLines(place, "sysdoc.sys", [&](const std::string& line) { place.session.gUserName = line; });
}

int ReadMadeSys(Workplace& place) {
    auto& session = place.session;
    session.gServerName.clear();
    session.gHospitalNo.clear();
    readLines(place, "made.sys", [&](const std::string& line) {
        const auto value = line.size() > 4 ? line.substr(4) : std::string();
        if (line.starts_with("SVR")) session.gServerName = value;
        if (line.starts_with("HNO")) session.gHospitalNo = value;
    });
    return 0;
}

void ReadEnvironment(Workplace& place) {
    place.session.gComputerName = place.settings.computerName;
    place.session.gOsUserName = place.settings.osUserName;
}

void LoadSession(Workplace& place) {
    bool failed = false;
    try {
        load(place);
    } catch (const std::exception&) {
        failed = true;
    }
    if (!failed) return;
    // An unreachable database and an unknown user read the same on purpose.
    place.databases.rollbackAll();
    place.desktop.message(invalidLogin);
    if (place.desktop.main() == nullptr) place.endProcess(invalidLogin);
}

}  // namespace core
