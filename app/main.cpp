#include <sys/stat.h>

#include <iostream>

#include "app/commands.h"

namespace app {
namespace {

int runProgram(int argc, char** argv) {
    CLI::App program("Vorel Nursing, the nurses' module of a hospital suite", "vorel");
    program.set_version_flag("--version", "Vorel Nursing " VOREL_VERSION);
    program.require_subcommand(1);
    program.failure_message([](const CLI::App* /*program*/, const CLI::Error& error) {
        return "vorel: " + std::string(error.what()) + "; see --help\n";
    });
    Run run;
    addServe(program, run);
    addDatabase(program, run);
    addUser(program, run);
    addDrive(program, run);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return program.exit(error);
    }
    return run();
}

}  // namespace
}  // namespace app

int main(int argc, char** argv) {
    ::umask(077);  // patients' data is for the account that runs the program
    try {
        return app::runProgram(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "vorel: " << error.what() << '\n';
        return 1;
    }
}
