#include <iostream>

#include "app/commands.h"
#include "app/datadirectory.h"
#include "shell/accounts/users.h"

namespace app {

namespace {

struct UserOptions {
    std::string data;
    std::string config;
    shell::NewUser user;
};

int add(const UserOptions& options) {
    const auto config = readConfig(options.config);
    requireDataDirectory(options.data);
    db::DataSources sources(dataSources(options.data, config));
    requireDatabases(sources);
    shell::addUser(sources, options.user, config.session.encodingTable);
    std::cout << "User " << options.user.name << " added.\n";
    return 0;
}

}  // namespace

void addUser(CLI::App& program, Run& run) {
    auto* group = program.add_subcommand("user", "Add users");
    group->require_subcommand(1);
    auto* command = group->add_subcommand("add", "Add a user with her roles");
    auto options = std::make_shared<UserOptions>();
    auto& user = options->user;
    command->add_option("name", user.name, "Name to sign in with")->required()->type_name("NAME");
    addDataOption(*command, options->data);
    addConfigOption(*command, options->config);
    command->add_option("--password", user.password, "Password")->required()->type_name("P");
    command->add_flag("--allow-short-password", user.mayHaveShortPassword,
                      "Take a password of fewer than 8 characters");
    command
        ->add_option("--role", user.roles,
                     "A role, NURSING for this module, CONSULTING for a doctor; may be given again")
        ->required()
        ->type_name("ROLE")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command->add_option("--full-name", user.fullName, "Full name")->type_name("TEXT");
    command->add_option("--emp-id", user.empId, "Number in the staff list, which a new one joins as doctor or nurse")
        ->type_name("ID");
    command->callback([options, &run] { run = [options] { return add(*options); }; });
}

}  // namespace app
