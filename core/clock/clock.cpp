#include "core/clock/clock.h"

#include "core/session/session.h"
#include "core/session/workplace.h"

namespace core {

using namespace db::literals;

db::DateTime GetServerNow(Workplace& place) {
    const auto clock = place.hospital().read("select sysDT from qrySysDateTime"_sql);
    return clock.empty() ? db::DateTime() : clock["sysdt"].moment();
}

db::DateTime shortTime(db::DateTime moment) {
    const auto seconds = moment.timeOfDay().seconds();
    return db::DateTime::fromSeconds(seconds - seconds % 60);
}

std::string upToDateAsOf(const db::DateTime& moment) {
    return "Up to date as of " + moment.shortDate() + " " + moment.shortTime();
}

void splitServerClock(Session& session) {
    session.gServerDate = session.gServerNow.date();
    session.gServerTime = shortTime(session.gServerNow);
}

void refreshServerClock(Workplace& place) {
    place.session.gServerNow = GetServerNow(place);
    splitServerClock(place.session);
}

int WaitWithEvents(Workplace& place, std::chrono::milliseconds wait,
                   const std::vector<std::function<bool()>>& handles) {
    int signalled = waitTimedOut;
    place.desktop.loop().runFor(wait, [&] {
        for (std::size_t i = 0; i < handles.size() && signalled == waitTimedOut; ++i)
            if (handles[i]()) signalled = static_cast<int>(i);
        return signalled != waitTimedOut;
    });
    return signalled;
}

}  // namespace core
