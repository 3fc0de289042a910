#include <iostream>

#include "app/commands.h"
#include "app/datadirectory.h"
#include "app/screens.h"
#include "app/seat.h"
#include "core/session/loadsession.h"
#include "core/session/workplace.h"
#include "drive/driver.h"

namespace app {

namespace {

struct DriveOptions {
    std::string data;
    std::string config;
    std::string programDirectory;
    std::string user;
};

/// A variable of this process; its name's letter case does not count.
std::string environmentText(const web::Environment& environment, std::string name) {
    if (const auto text = environment(name)) return *text;
    for (char& c : name) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return environment(name).value_or("");
}

int drive(const DriveOptions& options) {
    const auto environment = web::processEnvironment();
    const auto config = readConfig(options.config);
    if (!options.programDirectory.empty() && !options.user.empty())
        throw std::runtime_error("--user is for a run without --program-dir");
    requireDataDirectory(options.data);

    std::optional<ProgramDirectory> own;
    if (options.programDirectory.empty())
        own.emplace(sessionsDirectory(options.data), suiteFiles(config, options.user));
    auto settings = config.session;
    settings.programDirectory = own ? own->path() : std::filesystem::path(options.programDirectory);
    settings.computerName = environmentText(environment, "computername");
    settings.osUserName = environmentText(environment, "username");

    db::DataSources sources(dataSources(options.data, config));
    ui::EventLoop loop;
    core::Workplace place(sources, loop, settings);
    provideScreens(place);
    return drive::Driver(place, &core::LoadSession, std::cin, std::cout).run();
}

}  // namespace

void addDrive(CLI::App& program, Run& run) {
    auto* command = program.add_subcommand("drive", "Run one session from a script: JSON requests in, replies out");
    auto options = std::make_shared<DriveOptions>();
    addDataOption(*command, options->data);
    addConfigOption(*command, options->config);
    command->add_option("--program-dir", options->programDirectory, "Prepared directory with sysdoc.sys and made.sys")
        ->type_name("DIR");
    command->add_option("--user", options->user, "User of a program directory that is made for the run")
        ->type_name("NAME");
    command->callback([options, &run] { run = [options] { return drive(*options); }; });
}

}  // namespace app
