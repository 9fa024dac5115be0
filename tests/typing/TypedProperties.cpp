#include "tests/typing/TypedProperties.h"

#include "unitlib/convert/ZELUnitCommon.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <cmath>

namespace unitlib::test {
namespace {

bool Near(double A, double B, double Largest) {
  return std::abs(A - B) <= 1e-11 * std::max({std::abs(A), std::abs(B), Largest});
}

/// An increment in display units: "0.01", "1/16".
double IncrementOf(const TUnit& Unit) {
  const TRound* Round = Unit.GetCurRound();
  if (!Round || Round->Increment.empty()) return 1;
  const std::size_t Bar = Round->Increment.find(u'/');
  if (Bar == std::u16string::npos) return StrToFloat(Round->Increment);
  return StrToFloat(Round->Increment.substr(0, Bar)) / StrToFloat(Round->Increment.substr(Bar + 1));
}

class TChecker {
public:
  TChecker(std::uint64_t Seed, void (*Report)(const std::string&)) : FRandom(Seed), FReport(Report) {}

  void Run(std::uint64_t Count) {
    constexpr std::uint64_t TextsPerFormat = 50;
    for (std::uint64_t I = 0; I < Count; ++I) {
      if (I % TextsPerFormat == 0) UseOtherFormat();
      Check(Make());
    }
  }

  TPropertyCounts Counts;

private:
  int Below(int Count) { return static_cast<int>(FRandom() % static_cast<unsigned>(Count)); }

  /// Another field, with another rounding, grouping, symbol and sign.
  void UseOtherFormat() {
    const auto Fields = AllFields();
    FField = &Fields[static_cast<std::size_t>(Below(static_cast<int>(Fields.size())))];
    FUnit = &UseField(*FField);
    FUnit->CurRoundIndex = Below(std::max(1, FUnit->RoundContainer.Count() - 1)); // the last one may be empty
    FUnit->CurUnitSymbolIndex = Below(std::max(1, FUnit->UnitSymbolContainer.Count()));
    for (TCheckBoxSetting* Setting : {&FUnit->UseDigitGroup, &FUnit->ShowPlusForPosValue,
                                      &FUnit->SuppressSpace, &FUnit->Suppress0Feet, &FUnit->SuppressTrail0})
      Setting->Checked = Below(2) == 0;
    TSystemUnitDataManager::SetCurDigitGroupIndex(Below(2));
    FOptions = {};
    FOptions.Kind = Below(2) == 0 ? TTypedKind::SingleValue : TTypedKind::Expression;
    FOptions.DecimalComma = Below(4) == 0;
    FOptions.Languages = Below(2) == 0 ? tlEnglish : tlAll;
  }

  bool IsLength() const { return FField->Measure == 0 || FField->Measure == 3 || FField->Measure == 7; }

  TTypedText Make() {
    TTypedText Text;
    const bool IsSum = FOptions.Kind == TTypedKind::Expression;
    if (Below(6) == 0)
      Text = MakeNoise(FRandom);
    else if (!IsLength())
      Text = MakeAmount(FRandom, FField->Measure);
    else
      Text = IsSum ? MakeSum(FRandom) : MakeLength(FRandom);
    const bool Measured = IsLength() || FField->Measure == 1 || FField->Measure == 2 || FField->Measure == 6;
    if (!Measured) Text.Value.reset(), Text.MustBeRead = false;
    // 1.234 is refused where a comma may be the decimal mark.
    if (FOptions.DecimalComma && Text.Text.find(u'.') != std::u16string::npos) Text.MustBeRead = false;
    return Below(4) == 0 ? Mutate(Text, FRandom) : Text;
  }

  void Check(const TTypedText& Text) {
    ++Counts.Texts;
    const TTypedReading Reading = ReadTyped(FField->Measure, Text.Text, FOptions);
    if (Text.MustBeRead && !Reading.Accepted) Fail(Text, "refused: " + ToUtf8(Reading.Reason));
    if (Text.Value && Reading.Accepted &&
        !(Reading.HasValue && Near(Reading.StoreValue, *Text.Value, Text.Largest)))
      Fail(Text, "read as " + std::to_string(Reading.StoreValue) + ", worth " + std::to_string(*Text.Value));
    CheckSuggestions(Text, Reading);
    if (!Reading.Accepted || !Reading.HasValue) return;
    ++Counts.Read;
    CheckFacade(Text, Reading);
    CheckShownBack(Text, Reading);
  }

  /// What the facade accepts is never read differently, but for the comma that the options say is decimal.
  void CheckFacade(const TTypedText& Text, const TTypedReading& Reading) {
    if (FOptions.DecimalComma && Text.Text.find(u',') != std::u16string::npos) return;
    if (!TMeasureDataManager::CheckDisplay(FField->Measure, Text.Text)) return;
    ++Counts.ReadByFacade;
    const double Value = TMeasureDataManager::DisplayToStore(FField->Measure, Text.Text, BaseScale);
    if (!Near(Value, Reading.StoreValue, 0))
      Fail(Text,
           "read as " + std::to_string(Reading.StoreValue) + ", by the facade as " + std::to_string(Value));
  }

  /// The rewritten text of a single value is the facade's, with the same value.
  void CheckRewritten(const TTypedText& Text, const TTypedReading& Reading) {
    if (FOptions.Kind != TTypedKind::SingleValue) return;
    if (!TMeasureDataManager::CheckDisplay(FField->Measure, Reading.Rewritten) ||
        !Near(TMeasureDataManager::DisplayToStore(FField->Measure, Reading.Rewritten, BaseScale),
              Reading.StoreValue, 0))
      Fail(Text, "rewritten as " + ToUtf8(Reading.Rewritten));
  }

  void CheckShownBack(const TTypedText& Text, const TTypedReading& Reading) {
    CheckRewritten(Text, Reading);
    const std::u16string Shown =
        TMeasureDataManager::StoreToDisplay(FField->Measure, Reading.StoreValue, BaseScale, true);
    // 1,234 alone is refused where a comma may be the decimal mark: that is a rule.
    if (FOptions.DecimalComma && Shown.find(u',') != std::u16string::npos) return;
    const TTypedReading Again = ReadTyped(FField->Measure, Shown, FOptions);
    const auto Parser = TCommonUnitCommand(FField->Measure).GetParser();
    const double Half = IncrementOf(*FUnit) * Parser->GetScale(BaseScale) / 2;
    const double Slack = Half * 1e-9 + 1e-14 * std::abs(Reading.StoreValue) * 100;
    if (!Again.Accepted)
      Fail(Text, "shown as " + ToUtf8(Shown) + ", which is refused: " + ToUtf8(Again.Reason));
    else if (std::abs(Again.StoreValue - Reading.StoreValue) > Half + Slack)
      Fail(Text, "shown as " + ToUtf8(Shown) + ", which is read as " + std::to_string(Again.StoreValue) +
                     " for " + std::to_string(Reading.StoreValue));
    else
      ++Counts.ShownBack;
  }

  /// What is offered is read.
  void CheckSuggestions(const TTypedText& Text, const TTypedReading& Reading) {
    if (Reading.Accepted) return;
    if (Reading.Reason.empty() || Reading.Offset > Text.Text.size())
      Fail(Text, "refused without reason or place");
    for (const std::u16string& Suggestion : Reading.Suggestions)
      if (!ReadTyped(FField->Measure, Suggestion, FOptions).Accepted)
        Fail(Text, "suggests " + ToUtf8(Suggestion) + ", which is refused");
  }

  void Fail(const TTypedText& Text, const std::string& What) {
    constexpr std::uint64_t MaxReports = 20;
    if (++Counts.Failures > MaxReports) return;
    FReport(std::string(FField->Name) + (FOptions.Kind == TTypedKind::Expression ? " sum" : " single") +
            (FOptions.DecimalComma ? " comma" : "") + " [" + ToUtf8(Text.Text) + "]: " + What);
  }

  TRandom FRandom;
  void (*FReport)(const std::string&);
  const TFieldRow* FField = nullptr;
  TUnit* FUnit = nullptr;
  TTypedOptions FOptions;
};

} // namespace

TPropertyCounts CheckProperties(std::uint64_t Count, std::uint64_t Seed, void (*Report)(const std::string&)) {
  TChecker Checker(Seed, Report);
  Checker.Run(Count);
  return Checker.Counts;
}

} // namespace unitlib::test
