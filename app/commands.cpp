#include "app/commands.h"

namespace app {

void addDataOption(CLI::App& command, std::string& data) {
    command.add_option("--data", data, "Directory of the databases")->required()->type_name("DIR");
}

void addConfigOption(CLI::App& command, std::string& config) {
    command.add_option("--config", config, "Configuration file")->type_name("FILE");
}

}  // namespace app
