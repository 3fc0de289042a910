#include <iostream>

#include "app/commands.h"
#include "app/datadirectory.h"
#include "hospital/schema.h"

namespace app {

namespace {

struct DatabaseOptions {
    std::string data;
    std::string config;
    int patients = hospital::Demonstration{}.patients;
    std::uint64_t seed = hospital::Demonstration{}.seed;
};

void say(const std::string& line) {
    std::cout << line << std::endl;
}

int create(const DatabaseOptions& options) {
    requireDataDirectory(options.data);
    say("Creating the databases in " + options.data + " ...");
    hospital::createDatabases(options.data, &say);
    say("The databases are ready.");
    return 0;
}

int demo(const DatabaseOptions& options) {
    requireDataDirectory(options.data);
    db::DataSources sources(db::DataSources::embedded(options.data));
    requireDatabases(sources);
    db::Databases databases(sources);
    hospital::createDemonstration(databases, {db::DateTime::now().date(), options.patients, options.seed, &say});
    say("The demonstration hospital is ready.");
    return 0;
}

int check(const DatabaseOptions& options) {
    const auto config = readConfig(options.config);
    requireDataDirectory(options.data);
    db::DataSources sources(dataSources(options.data, config));
    openDatabases(sources);
    db::Databases databases(sources);
    say("Checking the databases in " + options.data + " ...");
    const auto faults = hospital::checkDatabases(databases);
    for (const auto& fault : faults) say(fault);
    if (!faults.empty()) throw std::runtime_error(std::to_string(faults.size()) + " faults found");
    say("All is well.");
    return 0;
}

void addDemoOptions(CLI::App& command, DatabaseOptions& options) {
    command.add_option("--patients", options.patients, "How many patients, 60 to 5000000")->capture_default_str();
    command.add_option("--seed", options.seed, "Another number makes another hospital")->capture_default_str();
}

void add(CLI::App& group, Run& run, const char* name, const char* help, int (*work)(const DatabaseOptions&)) {
    auto* command = group.add_subcommand(name, help);
    auto options = std::make_shared<DatabaseOptions>();
    addDataOption(*command, options->data);
    if (work == &demo) addDemoOptions(*command, *options);
    if (work == &check) addConfigOption(*command, options->config);
    command->callback([options, work, &run] { run = [options, work] { return work(*options); }; });
}

}  // namespace

void addDatabase(CLI::App& program, Run& run) {
    auto* group = program.add_subcommand("database", "Make or check the embedded databases");
    group->require_subcommand(1);
    add(*group, run, "create", "Make the databases with the first rows, or bring older ones forward", &create);
    add(*group, run, "demo", "Fill empty databases with the demonstration hospital", &demo);
    add(*group, run, "check", "Say what is wrong with the databases", &check);
}

}  // namespace app
