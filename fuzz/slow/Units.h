/// The 34 unit parsers, literally, in exact fractions.
#pragma once

#include "fuzz/slow/Numbers.h"

#include <string>
#include <vector>

namespace unitlib::fuzz::slow {

/// How a conversion is refused.
enum class TRefusal { Convert, Range, List };
struct TRefused {
  TRefusal Kind;
};

/// What a parser reads of a unit and of the settings.
struct TUnitSetup {
  std::u16string ClassName;
  int Code = 0;
  bool HasRound = true;
  std::u16string Increment;
  bool CanEdit = false;
  std::vector<std::u16string> Symbols;
  int SymbolIndex = 0;
  bool SuppressTrail0 = false, Suppress0Feet = false, ShowPlus = false, UseDigitGroup = false,
       SuppressSpace = false;
  std::u16string SymbolWhenNone;
  int GroupSize = 3; // 0: a class that groups nothing; -1: no digit group is current
};

struct TFlags {
  bool NoSymbol = false, NoDigitGroup = false, NoRound = false, NoPlusSign = false;
};

/// The classes in the order of their registration.
int ClassCount();
const char* ClassName(int Index);
bool IsPlainDecimal(const TUnitSetup& Unit); // no imperial texts

double GetScale(const TUnitSetup& Unit, int ScaleIndex);
std::u16string RemoveSymbol(const TUnitSetup& Unit, std::u16string_view Text);
bool IsValid(const TUnitSetup& Unit, std::u16string_view Text);

/// A value read: exact where one rounding gives the double, near where the order of operations may show.
struct TValue {
  double Value;
  bool IsNear;
};
/// errors      TRefused
TValue AsDouble(const TUnitSetup& Unit, std::u16string_view Text, int ScaleIndex);
/// errors      TRefused
std::u16string AsString(const TUnitSetup& Unit, double Value, int ScaleIndex, TFlags Flags);

/// StoreToDisplay, second form, for a measure with this unit. errors      TRefused
std::u16string StoreToDisplay(const TUnitSetup& Unit, double Value, int ScaleIndex, bool AppendSymbol,
                              TFlags Flags);

} // namespace unitlib::fuzz::slow
