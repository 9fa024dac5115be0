/// A sequence of calls made from bytes, with what must hold between the calls.
#pragma once

#include "fuzz/capi/CheckedCalls.h"

#include <cstdint>
#include <optional>
#include <string>

namespace unitlib::fuzz {

/// One member function per call; each takes what its arguments need from the input.
class TCalls {
public:
  explicit TCalls(TInput& Input) : FInput(Input) {}

  /// Settings that no call has changed stay loaded for the next run: loading takes longer than all the rest.
  /// A run ends with as much memory in use as it began with, or each would be searched for leaks, which takes
  /// longer still.
  void Run();

private:
  using TFunction = void (TCalls::*)();

  std::int32_t Code();
  std::int32_t Scale() { return static_cast<std::int32_t>(FInput.Below(10)) - 1; }
  double Value() { return FInput.Flag() ? FInput.Double() : FInput.Number(); }
  static std::optional<std::u16string> TextWithTwin(const std::string& Name, const TTextIn& Text,
                                                    const TWideOut& Wide, const TNarrowOut& Narrow) {
    return TextOut(Name, Wide, Text.HasTwin() ? Narrow : TNarrowOut());
  }

  // Settings.
  void Load();
  void LoadMissing();
  void Free();
  void Save();
  /// What the calls have made of the settings survives saving and loading.
  void CheckSavedModel();

  // Conversions.
  void StoreToDisplay();
  void DisplayToStore();
  void DecimalValueToStore();
  void IsANum();
  void ExprToStore();
  void UnitSymbol();
  void DisplayValue();

  // Expressions.
  void Evaluate();
  /// A column of the text twice, and of an empty one.
  static void EvaluateColumn(const TTextIn& Text, const std::optional<double>& Wanted);
  void ExpressionToStore();
  void Elevation();

  // Reading the settings.
  void ReadConfig();
  void ReadMeasure();
  void ReadUnit();
  void ReadDigitGroups();

  // Changing the settings.
  void Choose();
  void ChooseByText();
  void SetIncrement();
  void SetSwitch();
  void Restore();

  // Digit groups, parsers, listeners, columns, wrong arguments.
  void GroupDigits();
  void HasParser();
  static void UL_CALL Listener(void* Context);
  void Listeners();
  void Columns();
  void Arguments();
  /// Asking about the last error changes nothing about it, not even when the question is wrong.
  void LastErrorText();

  static const TFunction Functions[];
  static const TFunction Changing[];

  TInput& FInput;
  bool FChanged = false;
  int FFired = 0;
};

} // namespace unitlib::fuzz
