/// Input: a letter for the class (see slow/Units.cpp), the unit's settings (see UnitSettings.cpp), a byte of
/// options, the text that is typed.
#include "fuzz/Check.h"
#include "fuzz/Outcome.h"
#include "fuzz/Targets.h"
#include "fuzz/UnitSettings.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/typing/ReadTyped.h"

#include <cmath>
#include <iterator>
#include <limits>

namespace unitlib::fuzz {
namespace {

constexpr std::size_t LongestText = 300;
constexpr int Measure = 0;
constexpr double TwoRoundings = 2 * std::numeric_limits<double>::epsilon();

/// Identity codes of the classes that have one of their own; in the order of slow/Units.cpp.
int CodeOf(int Class) {
  constexpr int Codes[] = {600, 601, 10, 11, 12, 13, 14, 15, 16};
  return Class < static_cast<int>(std::size(Codes)) ? Codes[Class] : 100;
}

void CheckRefused(const TTypedReading& Reading, const std::u16string& Text, const TTypedOptions& Options) {
  Require(Reading.Problem != TTypedProblem::None, "a problem", Text);
  Require(!Reading.Reason.empty(), "a reason", Text);
  Require(Reading.Offset <= Text.size(), "a place within the text", Text);
  for (const std::u16string& Suggestion : Reading.Suggestions)
    Require(ReadTyped(Measure, Suggestion, Options).Accepted,
            "the suggestion " + Show(Suggestion) + " accepted", Text);
}

/// The value reported is the one that the facade gives for the rewritten text.
void CheckAccepted(const TTypedReading& Reading, const std::u16string& Text, const TTypedOptions& Options) {
  Require(Reading.Problem == TTypedProblem::None, "no problem", Text);
  if (!Reading.HasValue) return;
  Require(std::isfinite(Reading.StoreValue), "a finite value", Text);
  if (Options.Kind != TTypedKind::SingleValue) return;
  Require(TMeasureDataManager::CheckDisplay(Measure, Reading.Rewritten),
          "the facade reads " + Show(Reading.Rewritten) + ", that", Text);
  RequireNear("the value of " + Show(Reading.Rewritten), Text, Reading.StoreValue,
              TMeasureDataManager::DisplayToStore(Measure, Reading.Rewritten, Options.ScaleIndex),
              TwoRoundings);
}

/// The kinds of texts that the facade reads and this layer refuses, because the trade reads them otherwise: a comma
/// that separates no groups, a dash before a fraction without a mark, a bare fraction in decimal feet.
bool MayBeRefused(const slow::TUnitSetup& Setup, const std::u16string& Text) {
  const bool HasFraction = Text.find(u'/') != Text.npos;
  const bool HasDash = Text.find(u'-', 1) != Text.npos;
  const bool HasMark = Text.find_first_of(u"'\"") != Text.npos;
  const bool IsBareFraction = HasFraction && !HasMark && (HasDash || Setup.Code == 10);
  return Text.find(u',') != Text.npos || IsBareFraction;
}

/// What the facade reads is read the same, and never differently.
void CheckFacadeText(const slow::TUnitSetup& Setup, const std::u16string& Text, const TTypedOptions& Options,
                     const TTypedReading& Reading) {
  if (Options.Kind != TTypedKind::SingleValue || Options.DecimalComma || !slow::IsValid(Setup, Text)) return;
  if (!Reading.Accepted && MayBeRefused(Setup, Text)) return;
  Require(Reading.Accepted && Reading.HasValue, "what the facade reads is read, with " + Show(Reading.Reason),
          Text);
  const slow::TValue Wanted = slow::AsDouble(Setup, Text, Options.ScaleIndex);
  RequireNear("the value of what the facade reads", Text, Reading.StoreValue, Wanted.Value, TwoRoundings);
}

} // namespace

void RunTyped(TInput& Input) {
  slow::TUnitSetup Setup;
  const int Class = static_cast<int>(Input.Below(static_cast<unsigned>(slow::ClassCount())));
  Setup.ClassName = slow::Wide(slow::ClassName(Class));
  Setup.Code = CodeOf(Class);
  TakeUnitSettings(Input, Setup);
  const unsigned Choice = Input.Byte();
  TTypedOptions Options;
  Options.Kind = Choice & 1 ? TTypedKind::Expression : TTypedKind::SingleValue;
  Options.DecimalComma = (Choice & 2) != 0;
  Options.ScaleIndex = Choice & 4 ? 3 : -1;
  Options.Languages = Choice & 8 ? tlAll : tlEnglish;
  const std::u16string Text = Input.RestText().substr(0, LongestText);
  const TLoadedUnit Loaded(Setup, Measure);
  const TTypedReading Reading = ReadTyped(Measure, Text, Options);
  if (Reading.Accepted)
    CheckAccepted(Reading, Text, Options);
  else
    CheckRefused(Reading, Text, Options);
  CheckFacadeText(Setup, Text, Options, Reading);
  const TTypedReading Again = ReadTyped(Measure, Text, Options);
  RequireSame("the rewritten text, read a second time", Text, Again.Rewritten, Reading.Rewritten);
}

} // namespace unitlib::fuzz
