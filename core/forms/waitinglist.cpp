#include "core/forms/waitinglist.h"

namespace core {

WaitingList::WaitingList(Workplace& place, ui::Screen& screen, ui::ComboBox& patients)
    : Part(place, screen),
      lstWaiting(screen, "lstWaiting"),
      cmdNext(screen, "cmdNext", "Ne&xt Patient"),
      patients_(patients) {
    bind(lstWaiting, ui::Event::click, [this] {
        if (lstWaiting.index() != patients_.index()) patients_.setIndex(lstWaiting.index());
    });
    bind(cmdNext, ui::Event::click, &WaitingList::pickNext);
}

void WaitingList::show() {
    lstWaiting.clear();
    for (const auto& patient : patients_.items()) lstWaiting.add(patient.text);
    follow();
}

void WaitingList::follow() {
    if (lstWaiting.index() != patients_.index()) lstWaiting.setIndex(patients_.index());
}

void WaitingList::pickNext() {
    const int next = patients_.index() + 1;
    if (static_cast<std::size_t>(next) >= patients_.items().size())
        return refuse(next == 0 ? "Nobody waits" : "This is the last one who waits", patients_);
    patients_.setIndex(next);
}

}  // namespace core
