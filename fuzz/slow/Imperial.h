/// Imperial texts, literally: every entry of the pattern tables tried one by one.
#pragma once

#include "fuzz/slow/Numbers.h"

#include <optional>
#include <vector>

namespace unitlib::fuzz::slow {

bool IsEndWithSymbol(std::u16string_view Text);
std::u16string GetIdentifiableForm(std::u16string_view Text);
bool IsFraction(std::u16string_view Text);
bool IsStandardFormat(std::u16string_view Text);
std::u16string GetFractionStandardFormat(std::u16string_view Text);
/// GetInchNumByFraction as an exact fraction.
TExact ExactInches(std::u16string_view Text);
bool IsImperialNum(std::u16string_view Text, bool ExcludeIntegers);
bool IsANum(std::u16string_view Text);

/// A stretch of the text that stays, and the number behind it (none behind the last).
struct TPiece {
  std::u16string Kept;
  std::optional<TExact> Number;
};
std::vector<TPiece> ReplaceImperialNumbers(std::u16string_view Text, int Mode, double Factor);

} // namespace unitlib::fuzz::slow
