/// The whole program as a function: reads the arguments, runs one command.
#pragma once

#include "apps/unitctl/Command.h"

#include <memory>
#include <string>
#include <vector>

namespace unitlib::app {

/// Runs unitctl with these arguments (UTF-8, without the program's name). Nothing is thrown: errors are
/// written to Streams.Err. Changes the process-wide unit settings and texts and frees them again. return
/// exit status, see ExitStatus.h
int RunUnitctl(const std::vector<std::string>& Arguments, const TStreams& Streams);

/// All commands and options, as run, help, man page and completion know them. The context must live as long.
std::unique_ptr<CLI::App> MakeProgram(TContext& Context);

} // namespace unitlib::app
