#include "core/audit/activities.h"

#include "core/clock/clock.h"
#include "core/session/session.h"
#include "core/session/trap.h"
#include "core/session/workplace.h"

namespace core {
namespace {

using namespace db::literals;

void stampLogout(const Session& session, db::Recordset& activity) {
    activity.set("LogoutDate", session.gServerNow.date());
    activity.set("LogoutTime", shortTime(session.gServerNow));
}

/// The trail's columns are known by their places alone.
void addToTrail(db::Recordset trail, const std::string& userName, const char* outcome, db::DateTime now) {
    const auto columns = trail.fields();
    const auto iso = now.isoDate();
    trail.addNew();
    trail.set(columns.at(0), userName);
    trail.set(columns.at(1), outcome);
    trail.set(columns.at(2), iso.substr(8, 2) + "-" + iso.substr(5, 2) + "-" + iso.substr(0, 4));
    trail.set(columns.at(3), now.isoTime());
    trail.update();
}

constexpr const char* successful = "Successful Logon";
constexpr const char* failed = "Failed Logon";

}  // namespace

void OpenUserActivity(Workplace& place, bool isLogout, bool autoLogoff, const std::string& remarks) {
    trapped(place, [&] {
        auto& session = place.session;
        session.gServerNow = GetServerNow(place);
        auto& hospital = place.hospital();
        db::Transaction transaction(hospital);
        auto activity = hospital.read("select * from UserActivities where 1=2"_sql);
        activity.addNew();
        activity.set("username", session.gUserName);
        activity.set("LoginDate", session.gServerNow.date());
        activity.set("LoginTime", shortTime(session.gServerNow));
        activity.set("islogout", isLogout);
        activity.set("AppVersion", place.settings.version.major);
        if (isLogout) stampLogout(session, activity);
        activity.set("AutoLogoff", autoLogoff);
        activity.set("Remarks", remarks);
        activity.update();
        // Within the same transaction the highest number is this run's.
        const auto own = hospital.read("select top 1 SNO from UserActivities order by SNO desc"_sql);
        const auto number = own["SNO"].int32();
        transaction.commit();
        session.gActivitySNo = number;
    });
}

void CloseUserActivity(Workplace& place, bool isLogout, bool autoLogoff, const std::string& /*remarks*/) {
    trapped(place, [&] {
        auto& session = place.session;
        session.gForcedLogoff = false;
        session.gServerNow = GetServerNow(place);
        auto activity = place.hospital().read("select * from UserActivities where SNO="_sql + session.gActivitySNo);
        if (activity.empty()) return;
        activity.set("islogout", isLogout);
        if (isLogout) stampLogout(session, activity);
        activity.set("AutoLogoff", autoLogoff);
        activity.set("Remarks", session.gModuleRole);
        activity.update();
    });
}

void WriteLoginTrailSuccess(db::Connection& connection, const std::string& userName, db::DateTime now) {
    addToTrail(connection.read("SELECT * FROM LoginTrail"_sql), userName, successful, now);
}

void WriteLoginTrailFailure(db::Connection& connection, const std::string& userName, db::DateTime now) {
    addToTrail(connection.read("SELECT * FROM LoginTrail"_sql), userName, failed, now);
}

void noteSignIn(db::Connection& connection, const std::string& userName, bool accepted, db::DateTime now) {
    addToTrail(connection.read("SELECT * FROM LoginTrail where 1=2"_sql), userName, accepted ? successful : failed,
               now);
}

}  // namespace core
