#include "apps/unitctl/ExitStatus.h"

namespace unitlib::app {

std::string ExitLine(std::string_view Command) {
  std::string Result;
  for (const TExitRow& Row : ExitRows) {
    if (Row.Command != Command) continue;
    Result += Result.empty() ? Say("help.exit") + ": " : ", ";
    Result += std::to_string(Row.Status) + " " + FilledText(Row.Meaning.Row(), nullptr, 0);
  }
  return Result.empty() ? Result : Result + ".\n";
}

} // namespace unitlib::app
