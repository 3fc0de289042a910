#include "app/seat.h"

#include "core/session/session.h"

#include "app/screens.h"
#include "core/session/loadsession.h"
#include "core/session/workplace.h"
#include "ui/samples.h"

namespace app {

namespace {

core::Settings settings(const Config& config, const ui::SignedIn& who, const std::filesystem::path& directory) {
    auto settings = config.session;
    settings.programDirectory = directory;
    settings.computerName = who.workstation;
    settings.osUserName = who.user;
    return settings;
}

}  // namespace

NurseSeat::NurseSeat(db::DataSources& sources, const Config& config, const std::filesystem::path& sessions,
                     const ui::SignedIn& who, ui::EventLoop& loop, bool samples)
    : directory_(sessions, suiteFiles(config, who.user)),
      place_(sources, loop, settings(config, who, directory_.path())),
      user_(who.user),
      samples_(samples) {
    provideScreens(place_);
    if (samples_) place_.desktop.provide("frmSamples", [this] { return ui::makeSamples(place_.desktop); });
}

void NurseSeat::start() {
    core::LoadSession(place_);
    if (samples_) desktop().show("frmSamples");
}

SuiteFiles suiteFiles(const Config& config, const std::string& user) {
    return {user, config.serverName, config.hospitalNumber, std::filesystem::path(config.host.webRoot) / "program"};
}

std::string NurseSeat::hospitalName() const {
    return place_.session.gHospitalName;
}

}  // namespace app
