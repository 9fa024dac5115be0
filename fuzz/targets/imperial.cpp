/// Input: the text.
#include "fuzz/slow/Imperial.h"
#include "fuzz/Check.h"
#include "fuzz/Targets.h"
#include "unitlib/convert/ImperialText.h"
#include "unitlib/rtl/Numbers.h"

#include <cmath>
#include <limits>

namespace unitlib::fuzz {
namespace {

constexpr std::size_t LongestText = 600; // the oracle takes the square of it
constexpr double FourRoundings = 4 * std::numeric_limits<double>::epsilon();

void CheckNumberTexts(std::u16string_view Text) {
  const slow::TRead Wanted = slow::ReadNumber(Text);
  const TNumberText Number = ReadNumber(Text);
  RequireSame("IsNumeric", Text, IsNumeric(Text), Wanted.Ok);
  RequireSame("IsInt64", Text, IsInt64(Text), slow::IsInt64(Text));
  if (!Wanted.Ok) return;
  RequireSame("the number", Text, Number.Value, Wanted.Value);
  RequireSame("the sign", Text, std::signbit(Number.Value), std::signbit(Wanted.Value));
  RequireSame("IsZero", Text, Number.IsZero, Wanted.AllDigitsZero);
  RequireSame("FloatToStr", Text, FloatToStr(Number.Value), slow::GeneralText(Wanted.Value));
  RequireSame("FloatToPlainStr", Text, FloatToPlainStr(Number.Value), slow::PlainText(Wanted.Value));
}

} // namespace

void RunImperial(TInput& Input) {
  const std::u16string Text = Input.RestText().substr(0, LongestText);
  RequireSame("IsEndWithSymbol", Text, IsEndWithSymbol(Text), slow::IsEndWithSymbol(Text));
  RequireSame("GetIdentifiableForm", Text, GetIdentifiableForm(Text), slow::GetIdentifiableForm(Text));
  RequireSame("IsFraction", Text, IsFraction(Text), slow::IsFraction(Text));
  RequireSame("IsStandardFormat", Text, IsStandardFormat(Text), slow::IsStandardFormat(Text));
  const std::u16string Standard = GetFractionStandardFormat(Text);
  RequireSame("GetFractionStandardFormat", Text, Standard, slow::GetFractionStandardFormat(Text));
  const double Inches = slow::ToDouble(slow::ExactInches(Text));
  RequireNear("GetInchNumByFraction", Text, GetInchNumByFraction(Text), Inches, FourRoundings);
  RequireSame("IsImperialNum", Text, IsImperialNum(Text, false), slow::IsImperialNum(Text, false));
  RequireSame("IsImperialNum without integers", Text, IsImperialNum(Text, true),
              slow::IsImperialNum(Text, true));
  RequireSame("IsANum", Text, IsANum(Text), slow::IsANum(Text));
  // What is accepted has a standard form that reads the same.
  if (IsFraction(Text)) {
    Require(IsStandardFormat(Standard), "a standard form", Text);
    RequireSame("the standard form's length", Text, GetInchNumByFraction(Standard),
                GetInchNumByFraction(Text));
  }
  CheckNumberTexts(Text);
}

} // namespace unitlib::fuzz
