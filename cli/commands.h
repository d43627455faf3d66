#pragma once

#include <CLI/CLI.hpp>
#include <functional>

#include "cli/context.h"

namespace tarvex::cli {

// The command that the arguments chose; set by the parser's callbacks.
using Command = std::function<int(Context&)>;

// Each adds its commands to the program.
void AddFileCommands(CLI::App& app, Command& chosen);     // create, open, demo, verify, dump, settings
void AddSetupCommands(CLI::App& app, Command& chosen);    // import, events, event, team ... scratch
void AddSeedingCommands(CLI::App& app, Command& chosen);  // seed, purge, start-list
void AddResultCommands(CLI::App& app, Command& chosen);   // results, jd, score
void AddScoringCommands(CLI::App& app, Command& chosen);  // points, scores, report

}  // namespace tarvex::cli
