/// How texts are read as typed: the options of parse --as-typed and of explain.
#pragma once

#include "unitlib/typing/ReadTyped.h"

#include <string>

namespace CLI {
class App;
}

namespace unitlib::app {

struct TContext;

struct TTypedFlags {
  bool Expression = false;
  bool DecimalComma = false;
  std::vector<std::string> Languages;
};

void AddTypedOptions(CLI::App& Command, TTypedFlags& Flags);

/// errors      ERefused a language that does not exist
TTypedOptions TypedOptions(const TTypedFlags& Flags, int Scale);

/// Tells why a text was refused, where, and what to type instead.
void ComplainAboutTyped(TContext& Context, const std::string& Typed, const TTypedReading& Reading);

} // namespace unitlib::app
