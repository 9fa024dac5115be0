/// Imperial numbers inside an arithmetic text.
#include "unitlib/convert/ImperialShape.h"
#include "unitlib/convert/ImperialText.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <cmath>

namespace unitlib {
namespace {

bool IsMod(std::u16string_view Text, size_t Pos) {
  return (Text[Pos] == u'm' || Text[Pos] == u'M') && SameText(Text.substr(Pos, 3), u"mod");
}

/// The text with every "mod" turned into operators of the same length, kept in Buffer where there is one.
/// Tokens are views into it: a joined fraction is one run of characters, too.
std::u16string_view ScanText(std::u16string_view Text, std::u16string& Buffer) {
  size_t Pos = 0;
  while (Pos < Text.size() && !IsMod(Text, Pos)) ++Pos;
  if (Pos == Text.size()) return Text;
  Buffer = Text;
  for (; Pos < Buffer.size(); ++Pos)
    if (IsMod(Buffer, Pos)) Buffer.replace(Pos, 3, u"+++");
  return Buffer;
}

constexpr bool IsDelimiter(char16_t C) {
  switch (C) {
  case u'+':
  case u'-':
  case u'*':
  case u'/':
  case u'^':
  case u')':
  case u'\r':
    return true;
  default:
    return false;
  }
}

bool IsTrimmedInteger(std::u16string_view Text) {
  return IsInt64(TrimView(Text));
}

bool IsIntegerWithInchMark(std::u16string_view Text) {
  return !Text.empty() && Text.back() == InchMark && IsTrimmedInteger(Text.substr(0, Text.size() - 1));
}

/// True for feet, foot mark, inches, blank and a whole number: what stands before the bar of 5'6 1/2".
bool IsFeetInchLead(std::u16string_view Text) {
  const size_t Mark = Text.find(FootMark);
  if (Mark == std::u16string_view::npos || !IsTrimmedInteger(Text.substr(0, Mark))) return false;
  const std::u16string_view Rest = Text.substr(Mark + 1);
  const size_t Blank = Rest.rfind(u' ');
  return Blank != std::u16string_view::npos && IsTrimmedInteger(Rest.substr(0, Blank)) &&
         IsTrimmedInteger(Rest.substr(Blank + 1));
}

/// True when "/" between two tokens is the bar of a fraction and no division.
bool IsFractionBar(std::u16string_view Last, std::u16string_view Next) {
  Last = TrimView(Last);
  Next = TrimView(Next);
  const bool WithMark = IsIntegerWithInchMark(Next);
  if (IsFeetInchLead(Last)) return WithMark || IsInt64(Next);
  if (!WithMark) return false;
  return IsInt64(Last) || IsImperialNum(std::u16string(Last) + u"/" + std::u16string(Next), false);
}

/// A run of characters that starts with a digit, by its place in the text.
struct TToken {
  size_t Start;
  size_t End;
};

/// Hands every token to Use, in order. A token is known to be whole only when the next one has not joined it.
template <class TUse> void ScanTokens(std::u16string_view Work, TUse Use) {
  TToken Last{0, 0};       // empty: none yet
  bool AfterSlash = false; // the last delimiter was "/"
  for (size_t Pos = 0; Pos < Work.size();) {
    if (!IsDigit(Work[Pos])) {
      AfterSlash = false;
      ++Pos;
      continue;
    }
    size_t End = Pos;
    while (End < Work.size() && !IsDelimiter(Work[End])) ++End;
    if (AfterSlash &&
        IsFractionBar(Work.substr(Last.Start, Last.End - Last.Start), Work.substr(Pos, End - Pos))) {
      Last.End = End;
      AfterSlash = false;
    } else {
      if (Last.End > Last.Start) Use(Last);
      Last = {Pos, End};
      AfterSlash = End < Work.size() && Work[End] == u'/';
    }
    Pos = End + 1;
  }
  if (Last.End > Last.Start) Use(Last);
}

/// True for plain numbers and plain fractions, which stay as they are.
bool IsPlain(std::u16string_view Token) {
  if (IsEndWithSymbol(Token)) return false; // a mark is in no number
  if (IsNumeric(Token)) return true;
  std::u16string Digits(Token);
  std::erase_if(Digits, [](char16_t C) { return C == u'/' || C == u'.'; });
  return IsNumeric(Digits);
}

/// A length as it is written: a number of feet (12 inches each) or of inches.
struct TLength {
  double Value = 0.0;
  int InchesEach = 1;
};

/// Reads what IsImperialNum takes for one; false for all else.
bool ReadLength(std::u16string_view Token, TLength& Length) {
  double Value = 0.0;
  if (IsEndWithSymbol(Token) && TryStrToFloat(Token.substr(0, Token.size() - 1), Value)) {
    Length = {Value, Token.back() == InchMark ? 1 : 12};
    return true;
  }
  TImperialShape Shape;
  if (!ReadImperialShape(Token, Shape)) return false;
  Length = {InchesOf(Shape), 1};
  return true;
}

double ToFeet(TLength Length) {
  return Length.InchesEach == 12 ? Length.Value : Length.Value / 12;
}

double ToMetres(TLength Length) {
  // 0.0254 m, exact: international inch, 1959. As 127 / 5000 the product of whole inches and binary fractions
  // is exact and only the quotient rounds; the other order is for products beyond the double range.
  const double Numerator = 127 * Length.InchesEach;
  const double Product = Length.Value * Numerator;
  return std::isfinite(Product) ? Product / 5000 : Length.Value / 5000 * Numerator;
}

double Convert(TLength Length, int Mode, double Factor) {
  constexpr int FeetMode = 2;
  return (Mode == FeetMode ? ToFeet(Length) : ToMetres(Length)) * Factor;
}

} // namespace

std::u16string ReplaceImperialNumbers(std::u16string_view Text, int Mode, double Factor) {
  constexpr size_t RoomToGrow = 24; // metres often have more digits than feet
  std::u16string Buffer;
  const std::u16string_view Work = ScanText(Text, Buffer);
  std::u16string Result;
  Result.reserve(Text.size() + RoomToGrow);
  size_t Copied = 0;
  ScanTokens(Work, [&](const TToken& Token) {
    const std::u16string_view Number = Work.substr(Token.Start, Token.End - Token.Start);
    TLength Length;
    if (IsPlain(Number) || !ReadLength(Number, Length)) return;
    const double Value = Convert(Length, Mode, Factor);
    if (!std::isfinite(Value)) return;
    Result.append(Text.substr(Copied, Token.Start - Copied));
    AppendFloat(Result, Value);
    Copied = Token.End;
  });
  return Result.append(Text.substr(Copied));
}

} // namespace unitlib
