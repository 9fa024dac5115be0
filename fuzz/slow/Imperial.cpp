#include "fuzz/slow/Imperial.h"

#include "fuzz/slow/Regex.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace unitlib::fuzz::slow {
namespace {

const std::vector<std::string> Signs = {"-", "", "\\+"};
const std::vector<std::string> SingleValues = {"\\d{1,15}", "\\d{1,15}'", "\\d{1,15}\""};
const std::vector<std::string> FeetParts = {"\\d{1,15}'", "\\d{1,15}-", ""};
const std::vector<std::string> InchParts = {
    "\\d{1,15}",   "\\d{1,15}/\\d{1,15}",   "\\d{1,15} \\d{1,15}/\\d{1,15}",
    "\\d{1,15}\"", "\\d{1,15}/\\d{1,15}\"", "\\d{1,15} \\d{1,15}/\\d{1,15}\""};
const std::string ZeroDenominator = "\\d+/0";
const std::string StandardForm = "\\d+'\\d+ \\d+/\\d+\"|-\\d+'\\d+ \\d+/\\d+\"";

using TPatterns = std::vector<std::unique_ptr<TRegex>>;

TPatterns ShapePatterns() {
  TPatterns Patterns;
  for (const auto& Sign : Signs)
    for (const auto& Single : SingleValues) Patterns.push_back(std::make_unique<TRegex>(Sign + Single));
  for (const auto& Sign : Signs)
    for (const auto& Feet : FeetParts)
      for (const auto& Inches : InchParts)
        if (!(Feet.ends_with('-') && Inches.ends_with('"')))
          Patterns.push_back(std::make_unique<TRegex>(Sign + Feet + Inches));
  return Patterns;
}

/// IsFraction by the tables.
bool HasShape(std::u16string_view Text) {
  static const TRegex Zero(ZeroDenominator);
  static const TPatterns Shapes = ShapePatterns();
  const std::string Form = Utf8(GetIdentifiableForm(Text));
  if (Zero.IsFound(Form)) return false;
  return std::any_of(Shapes.begin(), Shapes.end(),
                     [&](const auto& Shape) { return Shape->FirstMatchIsAll(Form); });
}

/// The integer, none beyond 64 bits.
bool ReadPart(const std::u16string& Text, TExact& Value) {
  if (!IsInt64(Text)) return false;
  Value = TExact::OfDigits(Utf8(Text));
  return true;
}

std::u16string TakeUpTo(std::u16string& Text, char16_t Mark) {
  const std::size_t End = Text.find(Mark);
  const std::u16string Part = Text.substr(0, End);
  Text.erase(0, End + 1);
  return Part;
}

} // namespace

bool IsEndWithSymbol(std::u16string_view Text) {
  return Text.ends_with(u'\'') || Text.ends_with(u'"');
}

std::u16string GetIdentifiableForm(std::u16string_view Text) {
  static const TRegex WhiteSpace("\\s+"), BetweenDigits("(?<=\\d)  (?=\\d)"), Doubled("  ");
  // Half surrogates stay as they are: only the ASCII stretches between other characters are looked at.
  std::u16string Result;
  for (std::size_t Pos = 0; Pos < Text.size();) {
    std::size_t End = Pos;
    while (End < Text.size() && Text[End] < 0x80) ++End;
    std::string Form = WhiteSpace.Replace(Utf8(Text.substr(Pos, End - Pos)), "  ");
    Form = Doubled.Replace(BetweenDigits.Replace(Form, " "), "");
    Result += Wide(Form);
    for (Pos = End; Pos < Text.size() && Text[Pos] >= 0x80; ++Pos) Result += Text[Pos];
  }
  return Result;
}

bool IsFraction(std::u16string_view Text) {
  static std::u16string LastText; // the same text is asked about several times, and this is slow
  static bool LastAnswer = false;
  if (LastText != Text || Text.empty()) {
    LastText = Text;
    LastAnswer = HasShape(Text);
  }
  return LastAnswer;
}

bool IsStandardFormat(std::u16string_view Text) {
  static const TRegex Form(StandardForm);
  return Form.FirstMatchIsAll(Utf8(Text));
}

std::u16string GetFractionStandardFormat(std::u16string_view Text) {
  if (IsStandardFormat(Text)) return std::u16string(Text);
  std::u16string Sign, Feet = u"0", Inches = u"0", Numerator = u"0", Denominator = u"1", Accumulator;
  std::u16string S = GetIdentifiableForm(Text);
  if (!IsEndWithSymbol(S)) S += u'"';
  if (S[0] == u'-') Sign = u"-";
  if (S[0] == u'-' || S[0] == u'+') S.erase(0, 1);
  for (const char16_t C : S) {
    std::u16string* Part = nullptr;
    if (C == u'\'' || C == u'-') Part = &Feet;
    if (C == u' ') Part = &Inches;
    if (C == u'/') Part = &Numerator;
    if (C == u'"') Part = S.find(u'/') != S.npos ? &Denominator : &Inches;
    if (Part) {
      *Part = Accumulator;
      Accumulator.clear();
    } else {
      Accumulator += C;
    }
  }
  return Sign + Feet + u"'" + Inches + u" " + Numerator + u"/" + Denominator + u"\"";
}

TExact ExactInches(std::u16string_view Text) {
  std::u16string T = GetFractionStandardFormat(Text);
  if (!IsStandardFormat(T)) return 0;
  const bool Negative = T[0] == u'-';
  if (Negative) T.erase(0, 1);
  TExact Feet, Inches, Numerator, Denominator;
  const bool Read = ReadPart(TakeUpTo(T, u'\''), Feet) && ReadPart(TakeUpTo(T, u' '), Inches) &&
                    ReadPart(TakeUpTo(T, u'/'), Numerator) && ReadPart(TakeUpTo(T, u'"'), Denominator);
  if (!Read || Denominator == 0) return 0;
  const TExact Length = Feet * 12 + Inches + Numerator / Denominator;
  return Negative ? -Length : Length;
}

bool IsImperialNum(std::u16string_view Text, bool ExcludeIntegers) {
  if (ExcludeIntegers && IsInt64(Text)) return false;
  if (IsFraction(Text)) return true;
  return IsEndWithSymbol(Text) && IsNumeric(Text.substr(0, Text.size() - 1));
}

bool IsANum(std::u16string_view Text) {
  return IsNumeric(Text) || IsImperialNum(Text, false);
}

} // namespace unitlib::fuzz::slow
