#include "core/workplace.h"

#include <utility>

namespace core {

Version programVersion() {
    return {VOREL_MAJOR, VOREL_MINOR};
}

Workplace::Workplace(db::DataSources& sources, ui::EventLoop& loop, Settings hostSettings)
    : settings(std::move(hostSettings)), databases(sources), desktop(loop, "Vorel Nursing") {
    session.gAutoCardNo = settings.autoCardNo;
    session.gNhisServiceNo = settings.nhisServiceNo;
    session.gNhisRegServiceNo = settings.nhisRegServiceNo;
}

Workplace::~Workplace() {
    databases.rollbackAll();
}

void Workplace::showError(const std::string& description) {
    if (databases.holdsWriteLock())
        heldErrors_.push_back(description);
    else
        desktop.message(description);
}

void Workplace::showHeldErrors() {
    for (const auto& description : std::exchange(heldErrors_, {})) desktop.message(description);
}

}  // namespace core
