#include <nlohmann/json.hpp>

#include "ui/controls.h"
#include "ui/desktop.h"
#include "ui/raised.h"

namespace ui {

Timer::Timer(Screen& screen, std::string name, std::chrono::milliseconds interval, bool running, Handler job)
    : Control(screen, std::move(name)), interval_(interval) {
    on(Event::timer, std::move(job));
    if (running)
        screen.desktop().loop().timerStarted(*this);
    else
        Control::setEnabled(false);
}

Timer::~Timer() {
    screen().desktop().loop().timerStopped(*this);
}

void Timer::enabledChanged() {
    touch("running");
    screen().desktop().loop().timerStopped(*this);
    if (running()) screen().desktop().loop().timerStarted(*this);
}

void Timer::tick() {
    if (!running() || working_) return;
    screen().desktop().attempt([this] {
        const Raised working(working_);
        raise(Event::timer);
    });
}

std::vector<std::string_view> Timer::properties() const {
    return {"running", "interval"};
}

nlohmann::json Timer::property(std::string_view name) const {
    if (name == "running") return running();
    return interval_.count();
}

}  // namespace ui
