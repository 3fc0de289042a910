#include <algorithm>
#include <filesystem>

#include "core/care/staylimit.h"
#include "core/clock/clock.h"
#include "core/session/session.h"
#include "shell/mdivorel/mdivorel.h"
#include "shell/waitinglists.h"

using namespace db::literals;

namespace shell {
namespace {

/// One half of a flash; the first shows the first colour.
template <typename Widget>
void flash(Widget& widget, bool& flashed, int first, int second) {
    widget.setBackColor(flashed ? second : first);
    flashed = !flashed;
}

}  // namespace

void MdiVorel::Timer1_Timer() {
    tmrSound.setRunning(false);
    // The checks overwrite one another on purpose: the last one decides whether anything flashes or rings.
    watchPatients();
    watchAdmissions();
    watchNotifications();
    tmrSound.setRunning(session().gAnythingWaiting);
}

void MdiVorel::watchPatients() {
    const bool waiting = !hospital().read(patientsWaiting(session().gServerDate)).empty();
    session().gPatientsWaiting = waiting;
    session().gWatchTimersOn = waiting;
    flashNotify(waiting);
}

void MdiVorel::watchAdmissions() {
    const bool waiting = !hospital().read(admissionsWaiting(session().gServerDate)).empty();
    session().gAdmissionsWaiting = waiting;
    flashNotify(waiting);
}

void MdiVorel::watchNotifications() {
    const bool waiting = !hospital().read(notificationsWaiting(session().gModuleRole, session().gServerDate)).empty();
    // An empty list clears the flag of the admissions: that of the notifications stays once it is set.
    (waiting ? session().gNotificationsWaiting : session().gAdmissionsWaiting) = waiting;
    flashNotify(waiting);
}

void MdiVorel::flashNotify(bool waiting) {
    session().gAnythingWaiting = waiting;
    tmrNotify.setRunning(waiting);
    if (!waiting) tmrMDI.setRunning(false);
}

void MdiVorel::Timer2_Timer() {
    trapped([&] {
        auto expired = hospital().read("select ClientCat,ExtendAdmissionLimitTo"_sql + fromExpiredStays());
        for (; !expired.eof(); expired.moveNext()) {
            const bool managed = core::isManagedCare(expired["clientCat"].textOr());
            tmrExpired.setRunning(managed);
            if (managed) return;
        }
    });
}

void MdiVorel::Timer3_Timer() {
    session().gServerNow = core::GetServerNow(place());
    // A server that gave no moment leaves the zero date: the display keeps what it has.
    if (session().gServerNow.parts().year <= 1900) return;
    core::splitServerClock(session());
    showClock();
}

void MdiVorel::tmrExpired_Timer() {
    flash(cmdExpired, expiredFlashed_, red, cyan);
}

void MdiVorel::tmrNotify_Timer() {
    flash(cmdNotify, notifyFlashed_, calm, red);
}

void MdiVorel::tmrMDI_Timer() {
    session().gPatientsWaiting = false;
    flash(Picture1, pictureFlashed_, calm, red);
}

void MdiVorel::tmrIdle_Timer() {
    const auto now = ui::EventLoop::Clock::now();
    const auto left = [now](auto since, auto limit) {
        return limit.count() > 0 ? since + limit - now : ui::EventLoop::Clock::duration::max();
    };
    const auto idle = left(desktop().lastActivity(), std::chrono::minutes(place().settings.idleMinutes));
    const auto whole = left(started_, std::chrono::hours(place().settings.mostHours));
    const auto shorter = std::min(idle, whole);
    if (shorter <= std::chrono::seconds(0))
        return forceLogoff(idle <= whole ? "You were signed out because nothing was done here for a while."
                                         : "You were signed out because this session had lasted its longest time.");
    const bool soon = shorter <= std::chrono::minutes(1);
    if (soon && !warnedOfLogoff_)
        message(idle <= whole
                    ? "Nothing was done here for a while. In a minute you will be signed out; press OK to stay."
                    : "This session has lasted its longest time. In a minute you will be signed out; save now.",
                ui::Icon::warning);
    warnedOfLogoff_ = soon;
}

void MdiVorel::forceLogoff(const std::string& reason) {
    logoffReason_ = reason;
    session().gForcedLogoff = true;
    desktop().unload(name());
}

void MdiVorel::tmrSound_Timer() {
    if (soundTicks_ != 1) {
        ++soundTicks_;
        return;
    }
    soundTicks_ = 0;
    const std::string ring = "ring1.wav";
    if (std::filesystem::exists(place().programFile(ring))) desktop().sound(ring);
}

}  // namespace shell
