#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>

#include "app/config.h"

namespace app {

/// Runs the command that the line names; its result is the program's exit code. Throws std::exception with one line
/// that says why it could not.
using Run = std::function<int()>;

// Each adds a command with its options to the command line, and sets `run` when the line names it.
void addServe(CLI::App& program, Run& run);
void addDatabase(CLI::App& program, Run& run);
void addUser(CLI::App& program, Run& run);
void addDrive(CLI::App& program, Run& run);

/// `--data DIR`, which every command takes.
void addDataOption(CLI::App& command, std::string& data);
/// `--config FILE`; "" is none.
void addConfigOption(CLI::App& command, std::string& config);

}  // namespace app
