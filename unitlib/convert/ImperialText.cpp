#include "unitlib/convert/ImperialText.h"

#include "unitlib/convert/ImperialShape.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/PerlRegEx.h"
#include "unitlib/rtl/Text.h"

namespace unitlib {
namespace {

const TPerlRegEx& StandardForm() {
  // Anchored: a search from every position would cost the square of the length for a long run of digits.
  static const TPerlRegEx Expression(u"\\A-?\\d+'\\d+ \\d+/\\d+\"\\z");
  return Expression;
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
  TImperialShape Shape;
  return ReadImperialShape(Text, Shape);
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
  TImperialShape Shape;
  if (ReadImperialShape(Text, Shape)) return InchesOf(Shape);
  // Texts that IsFraction refuses have a value too where their standard form can be read.
  const std::u16string Standard = GetFractionStandardFormat(Text);
  if (!IsStandardFormat(Standard)) return 0.0;
  std::u16string_view Rest = Standard;
  Shape = {};
  Shape.Negative = Rest.front() == u'-';
  if (Shape.Negative) Rest.remove_prefix(1);
  const bool Read = TakeInteger(Rest, FootMark, Shape.Feet) && TakeInteger(Rest, u' ', Shape.Inches) &&
                    TakeInteger(Rest, u'/', Shape.Numerator) &&
                    TakeInteger(Rest, InchMark, Shape.Denominator);
  return Read && Shape.Denominator != 0 ? InchesOf(Shape) : 0.0;
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
