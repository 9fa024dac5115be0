/// The exit status of every command, in one table: help, man page, documentation and tests read it.
#pragma once

#include "apps/unitctl/Texts.h"

#include <string>
#include <string_view>

namespace unitlib::app {

// Scripts rely on these numbers.
inline constexpr int ExitOk = 0;
inline constexpr int ExitError = 1; // wrong usage, or nothing could be done
inline constexpr int ExitBad = 2;   // done, but some rows, values or texts were bad

/// diff answers as the programs of that name do: 1 is an answer, 2 the failure.
inline constexpr int DiffSame = ExitOk;
inline constexpr int DiffDiffers = 1;
inline constexpr int DiffFailed = 2;

struct TExitRow {
  std::string_view Command; // empty: every command without rows of its own
  int Status;
  TTextKey<0> Meaning;
};

inline constexpr TExitRow ExitRows[] = {
    {"", ExitOk, "exit.ok"},
    {"", ExitError, "exit.error"},
    {"", ExitBad, "exit.bad"},
    {"diff", DiffSame, "exit.diff.ok"},
    {"diff", DiffDiffers, "exit.diff.error"},
    {"diff", DiffFailed, "exit.diff.bad"},
    {"doctor", ExitOk, "exit.doctor.ok"},
    {"doctor", ExitError, "exit.error"},
    {"doctor", ExitBad, "exit.doctor.bad"},
};

/// Status of a command that cannot be done.
constexpr int FailureStatus(std::string_view Command) {
  return Command == "diff" ? DiffFailed : ExitError;
}

/// "Exit status: 0 all is well, 1 ..." for a command; empty: for those without rows of their own. Nothing for
/// a command without rows.
std::string ExitLine(std::string_view Command);

} // namespace unitlib::app
