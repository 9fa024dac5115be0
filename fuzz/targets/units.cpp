/// Input: a letter for the class (see slow/Units.cpp), a digit for the scale index, the unit's settings (see
/// UnitSettings.cpp), a byte of flags, a stored value as text, a separator, the text that is typed.
#include "fuzz/Check.h"
#include "fuzz/Outcome.h"
#include "fuzz/Targets.h"
#include "fuzz/UnitSettings.h"
#include "unitlib/convert/ZELUnitParseRegister.h"

#include <cmath>
#include <limits>

namespace unitlib::fuzz {
namespace {

constexpr std::size_t LongestText = 400; // the oracle takes the square of it
constexpr double FourRoundings = 4 * std::numeric_limits<double>::epsilon();

void CheckReading(const TCommonUnitParser& Parser, const slow::TUnitSetup& Setup, const std::u16string& Text,
                  int ScaleIndex) {
  RequireSame("RemoveSymbol", Text, Parser.RemoveSymbol(Text), slow::RemoveSymbol(Setup, Text));
  const bool Valid = Parser.IsValid(Text);
  RequireSame("IsValid", Text, Valid, slow::IsValid(Setup, Text));
  const auto Library = LibraryOutcome([&] { return Parser.AsDouble(Text, ScaleIndex); });
  const auto Wanted = OracleOutcome([&] { return slow::AsDouble(Setup, Text, ScaleIndex); });
  if (RequireSameRefusal("AsDouble", Text, Library, Wanted))
    RequireNear("AsDouble", Text, *Library.Value, Wanted.Value->Value,
                Wanted.Value->IsNear ? FourRoundings : 0);
  if (!Valid) return;
  Require(Library.Value.has_value() && std::isfinite(*Library.Value), "valid, so a value", Text);
}

/// What a decimal unit shows is read as the value it was rounded to: at most half an increment away.
void CheckReadBack(const TCommonUnitParser& Parser, const slow::TUnitSetup& Setup, double Value,
                   int ScaleIndex) {
  const double Scale = Parser.GetScale(ScaleIndex), Shown = Value / Scale;
  const slow::TRead Increment =
      slow::ReadNumber(Setup.HasRound && !Setup.Increment.empty() ? Setup.Increment : u"1");
  if (!slow::IsPlainDecimal(Setup) || !Increment.Ok || Increment.Value <= 0 || Setup.Symbols.size() > 1)
    return;
  const std::u16string Text = Parser.AsString(Value, ScaleIndex, true, true, false, false);
  const double Limit = 0.5000001 * Increment.Value + 1e-14 * std::fabs(Shown);
  const double Back = slow::ReadNumber(Text).Value;
  Require(std::fabs(Back - Shown) <= Limit, "the shown value " + Show(Text) + " of", Value);
  if (!Parser.IsValid(Text)) {
    Require(std::fabs(Back) >= 1e15 || std::fabs(Back) <= 1e-15, "shown, so valid", Text);
    return;
  }
  RequireSame("the shown value read back", Text, Parser.AsDouble(Text, ScaleIndex), Back * Scale);
}

void CheckShowing(const TCommonUnitParser& Parser, const slow::TUnitSetup& Setup, double Value,
                  int ScaleIndex, slow::TFlags Flags) {
  const auto Library = LibraryOutcome([&] {
    return Parser.AsString(Value, ScaleIndex, Flags.NoSymbol, Flags.NoDigitGroup, Flags.NoRound,
                           Flags.NoPlusSign);
  });
  const auto Wanted = OracleOutcome([&] { return slow::AsString(Setup, Value, ScaleIndex, Flags); });
  if (RequireSameRefusal("AsString", Value, Library, Wanted)) {
    RequireSame("AsString", Value, *Library.Value, *Wanted.Value);
    CheckReadBack(Parser, Setup, Value, ScaleIndex);
  }
}

} // namespace

void RunUnits(TInput& Input) {
  slow::TUnitSetup Setup;
  Setup.ClassName =
      slow::Wide(slow::ClassName(static_cast<int>(Input.Below(static_cast<unsigned>(slow::ClassCount())))));
  const int ScaleIndex = static_cast<int>(Input.Below(10)) - 1;
  TakeUnitSettings(Input, Setup);
  const unsigned Flags = Input.Byte();
  const double Value = Input.Number();
  const std::u16string Text = Input.RestText().substr(0, LongestText);
  TLoadedUnit Loaded(Setup, 0);
  const auto Parser = GetUnitParser(Setup.ClassName, &Loaded.Unit());
  Require(Parser != nullptr, "a parser", Setup.ClassName);
  RequireSame("GetScale", Setup.ClassName, Parser->GetScale(ScaleIndex), slow::GetScale(Setup, ScaleIndex));
  CheckReading(*Parser, Setup, Text, ScaleIndex);
  CheckShowing(*Parser, Setup, Value, ScaleIndex,
               {(Flags & 1) != 0, (Flags & 2) != 0, (Flags & 4) != 0, (Flags & 8) != 0});
}

} // namespace unitlib::fuzz
