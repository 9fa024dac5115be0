#include "unitlib/convert/ImperialText.h"

#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/PerlRegEx.h"
#include "unitlib/rtl/Text.h"

#include <limits>

namespace unitlib {
namespace {

/// One expression for the whole table of shapes: sign, then a single value, feet by mark with inches, or feet
/// by dash with inches and no inch mark. Trying the rows of the table one by one gives the same answers.
const TPerlRegEx& Shapes() {
  static const TPerlRegEx Expression(u"\\A[-+]?(?:\\d{1,15}['\"]?"
                                     u"|(?:\\d{1,15}')?(?:\\d{1,15}(?: \\d{1,15})?/\\d{1,15}|\\d{1,15})\"?"
                                     u"|\\d{1,15}-(?:\\d{1,15}(?: \\d{1,15})?/\\d{1,15}|\\d{1,15}))\\z");
  return Expression;
}

const TPerlRegEx& StandardForm() {
  // Anchored: a search from every position would cost the square of the length for a long run of digits.
  static const TPerlRegEx Expression(u"\\A-?\\d+'\\d+ \\d+/\\d+\"\\z");
  return Expression;
}

/// True when a fraction bar stands between a digit and a 0, which is how a denominator that starts with 0
/// shows.
bool HasZeroDenominator(std::u16string_view Text) {
  for (size_t Pos = Text.find(u"/0"); Pos != std::u16string_view::npos; Pos = Text.find(u"/0", Pos + 1))
    if (Pos > 0 && IsDigit(Text[Pos - 1])) return true;
  return false;
}

/// The parts of an imperial text, as texts.
struct TParts {
  std::u16string_view Sign;
  std::u16string Feet = u"0";
  std::u16string Inches = u"0";
  std::u16string Numerator = u"0";
  std::u16string Denominator = u"1";
};

TParts SplitParts(std::u16string_view Text) {
  TParts Parts;
  const bool HasBar = Text.find(u'/') != std::u16string_view::npos;
  if (Text.front() == u'-') Parts.Sign = u"-";
  if (Text.front() == u'-' || Text.front() == u'+') Text.remove_prefix(1);
  std::u16string Read;
  auto Take = [&Read](std::u16string& Part) {
    Part = std::move(Read);
    Read.clear();
  };
  for (char16_t C : Text) {
    switch (C) {
    case FootMark:
    case u'-':
      Take(Parts.Feet);
      break;
    case u' ':
      Take(Parts.Inches);
      break;
    case u'/':
      Take(Parts.Numerator);
      break;
    case InchMark:
      Take(HasBar ? Parts.Denominator : Parts.Inches);
      break;
    default:
      Read.push_back(C);
    }
  }
  return Parts;
}

/// The integer in front of Mark; Text moves behind the mark.
bool TakeInteger(std::u16string_view& Text, char16_t Mark, std::int64_t& Value) {
  const size_t End = Text.find(Mark);
  const bool Ok = End != std::u16string_view::npos && TryStrToInt64(Text.substr(0, End), Value);
  if (Ok) Text.remove_prefix(End + 1);
  return Ok;
}

} // namespace

bool IsEndWithSymbol(std::u16string_view Text) noexcept {
  return !Text.empty() && (Text.back() == FootMark || Text.back() == InchMark);
}

std::u16string GetIdentifiableForm(std::u16string_view Text) {
  std::u16string Result;
  Result.reserve(Text.size());
  bool Blank = false;
  for (char16_t C : Text) {
    if (IsSpace(C)) {
      Blank = true;
      continue;
    }
    if (Blank && IsDigit(C) && !Result.empty() && IsDigit(Result.back())) Result.push_back(u' ');
    Blank = false;
    Result.push_back(C);
  }
  return Result;
}

bool IsFraction(std::u16string_view Text) {
  const std::u16string Form = GetIdentifiableForm(Text);
  return !Form.empty() && !HasZeroDenominator(Form) && Shapes().Match(Form);
}

bool IsStandardFormat(std::u16string_view Text) {
  return StandardForm().Match(Text);
}

std::u16string GetFractionStandardFormat(std::u16string_view Text) {
  if (IsStandardFormat(Text)) return std::u16string(Text);
  std::u16string Form = GetIdentifiableForm(Text);
  if (!IsEndWithSymbol(Form)) Form.push_back(InchMark);
  const TParts Parts = SplitParts(Form);
  return std::u16string(Parts.Sign) + Parts.Feet + u"'" + Parts.Inches + u" " + Parts.Numerator + u"/" +
         Parts.Denominator + u"\"";
}

double GetInchNumByFraction(std::u16string_view Text) {
  const std::u16string Standard = GetFractionStandardFormat(Text);
  if (!IsStandardFormat(Standard)) return 0.0;
  std::u16string_view Rest = Standard;
  const bool Negative = Rest.front() == u'-';
  if (Negative) Rest.remove_prefix(1);
  std::int64_t Feet = 0, Inches = 0, Numerator = 0, Denominator = 0;
  const bool Read = TakeInteger(Rest, FootMark, Feet) && TakeInteger(Rest, u' ', Inches) &&
                    TakeInteger(Rest, u'/', Numerator) && TakeInteger(Rest, InchMark, Denominator);
  if (!Read || Denominator == 0) return 0.0;
  constexpr std::int64_t Safe =
      std::numeric_limits<std::int64_t>::max() / 16; // Feet x 12 + Inches fits below it
  const double Whole = Feet < Safe && Inches < Safe
                           ? static_cast<double>(Feet * 12 + Inches)
                           : static_cast<double>(Feet) * 12 + static_cast<double>(Inches);
  const double Result = Whole + static_cast<double>(Numerator) / static_cast<double>(Denominator);
  return Negative ? -Result : Result;
}

bool IsImperialNum(std::u16string_view Text, bool ExcludeIntegers) {
  if (ExcludeIntegers && IsInt64(Text)) return false;
  if (IsFraction(Text)) return true;
  return IsEndWithSymbol(Text) && IsNumeric(Text.substr(0, Text.size() - 1));
}

bool IsANum(std::u16string_view Text) {
  return IsNumeric(Text) || IsImperialNum(Text, false);
}

} // namespace unitlib
