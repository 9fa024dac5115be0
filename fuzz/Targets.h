/// The fuzz targets by name. Each takes one input apart, asks the library and a slow second implementation
/// the same, and ends the process where they differ.
#pragma once

#include "fuzz/Input.h"

#include <string_view>

namespace unitlib::fuzz {

struct TTarget {
  const char* Name; // of the target and of its folders under corpus/ and crashes/
  const char* What;
  void (*Run)(TInput& Input);
};

/// null for an unknown name.
const TTarget* FindTarget(std::string_view Name);
/// Prints one line for every target.
void ListTargets();

void RunCapi(TInput& Input);
void RunCsv(TInput& Input);
void RunDigitGroups(TInput& Input);
void RunElevation(TInput& Input);
void RunExpression(TInput& Input);
void RunImperial(TInput& Input);
void RunReplaceImperial(TInput& Input);
void RunSettings(TInput& Input);
void RunTyped(TInput& Input);
void RunUnits(TInput& Input);

} // namespace unitlib::fuzz
