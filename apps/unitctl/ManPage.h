/// The man page, made from the definitions of the command line, so that it cannot say anything else.
#pragma once

#include <string>

namespace unitlib::app {

/// unitctl.1 in the man macros, English or in the language of the run.
std::string ManPage();

} // namespace unitlib::app
