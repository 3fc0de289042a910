#include "inpatient/trend/trend.h"

namespace inpatient {

using ui::Event;

TrendScreen::TrendScreen(core::Workplace& place, const char* name, const char* valueAxis, const Trend& trend)
    : Form(place, name, trend.title.empty() ? "Trend" : trend.title), trend_(trend) {
    chart.setAxisTitles("Time", valueAxis);
    bind(cmdPrint, Event::click, [this] { desktop().print(*this); });
    bind(CancelButton, Event::click, [this] { close(); });
}

void TrendScreen::load() {
    Label5.setCaption(trend_.title + "\r\n" + trend_.patient);
    chart.show(trend_.title, trend_.labels, trend_.series);
    desktop().focus(chart);
}

}  // namespace inpatient
