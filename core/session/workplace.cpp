#include "core/session/workplace.h"

#include <utility>

#include "core/session/session.h"

namespace core {

Version programVersion() {
    return {VOREL_MAJOR, VOREL_MINOR};
}

Workplace::Workplace(db::DataSources& sources, ui::EventLoop& loop, Settings hostSettings)
    : settings(std::move(hostSettings)),
      variables_(std::make_unique<Session>()),
      session(*variables_),
      databases(sources),
      desktop(loop, "Vorel Nursing") {
    session.gAutoCardNo = settings.autoCardNo;
    session.gNhisServiceNo = settings.nhisServiceNo;
    session.gNhisRegServiceNo = settings.nhisRegServiceNo;
}

Workplace::~Workplace() {
    databases.rollbackAll();
}

db::Connection& Workplace::hospital() {
    return databases.open(session.gConnHospital);
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
