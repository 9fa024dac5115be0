#include "fuzz/Targets.h"

#include <cstdio>

namespace unitlib::fuzz {
namespace {

constexpr TTarget Targets[] = {
    {"capi", "sequences of calls of the C interface", RunCapi},
    {"csv", "the CSV reader and writer of the programs", RunCsv},
    {"digit_groups", "digit grouping", RunDigitGroups},
    {"elevation", "the four elevation functions", RunElevation},
    {"expression", "arithmetic: read, merged, evaluated, written", RunExpression},
    {"imperial", "feet, inches and fractions: recognised and read", RunImperial},
    {"replace_imperial", "imperial numbers inside arithmetic, replaced", RunReplaceImperial},
    {"settings", "the settings file: read, saved, read again", RunSettings},
    {"typed", "what estimators really type", RunTyped},
    {"units", "the 34 unit classes: texts read, values shown", RunUnits},
};

} // namespace

const TTarget* FindTarget(std::string_view Name) {
  for (const TTarget& Target : Targets)
    if (Name == Target.Name) return &Target;
  return nullptr;
}

void ListTargets() {
  for (const TTarget& Target : Targets) std::printf("%-18s %s\n", Target.Name, Target.What);
}

} // namespace unitlib::fuzz
