#include "app/seat.h"

#include "app/screens.h"
#include "core/session/loadsession.h"
#include "core/session/workplace.h"
#include "ui/samples.h"

namespace app {

core::Settings settingsOf(const web::Config& config) {
    core::Settings settings;
    settings.encodingTable = encodingTable(config);
    settings.deskInMenu = config.deskInMenu;
    settings.idleMinutes = config.idleMinutes;
    settings.mostHours = config.mostHours;
    settings.autoCardNo = config.autoCardNo;
    settings.nhisServiceNo = config.nhisServiceNo;
    settings.nhisRegServiceNo = config.nhisRegServiceNo;
    return settings;
}

namespace {

core::Settings settings(const web::Config& config, const ui::SignedIn& who, const std::filesystem::path& directory) {
    auto settings = settingsOf(config);
    settings.programDirectory = directory;
    settings.computerName = who.workstation;
    settings.osUserName = who.user;
    return settings;
}

}  // namespace

NurseSeat::NurseSeat(db::DataSources& sources, const web::Config& config, const std::filesystem::path& sessions,
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

SuiteFiles suiteFiles(const web::Config& config, const std::string& user) {
    return {user, config.serverName, config.hospitalNumber, std::filesystem::path(config.webRoot) / "program"};
}

std::string encodingTable(const web::Config& config) {
    return config.encodingTable.empty() ? std::string(core::Settings::builtInEncodingTable()) : config.encodingTable;
}

}  // namespace app
