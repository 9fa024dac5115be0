/// Imperial numbers inside an arithmetic text.
#include "unitlib/convert/ImperialShape.h"
#include "unitlib/convert/ImperialText.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <cmath>

namespace unitlib {
namespace {

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

/// True where a token ends: at a delimiter, and at "mod", which stands for one.
bool EndsToken(std::u16string_view Text, size_t Pos) {
  const char16_t C = Text[Pos];
  return IsDelimiter(C) || ((C == u'm' || C == u'M') && SameText(Text.substr(Pos, 3), u"mod"));
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

/// True for plain numbers and plain fractions, which stay as they are.
bool IsPlain(std::u16string_view Token) {
  if (IsEndWithSymbol(Token)) return false; // a mark is in no number
  if (IsNumeric(Token)) return true;
  std::u16string Digits(Token);
  std::erase_if(Digits, [](char16_t C) { return C == u'/' || C == u'.'; });
  return IsNumeric(Digits);
}

/// What nearly everybody types, up to a delimiter or the end: a whole number, or feet, inches and a fraction
/// (5'6 1/2"). Behind either no fraction can go on.
struct TUsualToken {
  size_t End = 0; // 0: the token is something else, which may be a length all the same
  bool IsLength = false;
  TImperialShape Shape; // of a length
};

TUsualToken ReadUsualToken(std::u16string_view Text, size_t Start) {
  constexpr size_t MaxDigits = 15;
  size_t End = Start;
  while (End < Text.size() && IsDigit(Text[End])) ++End;
  TUsualToken Token;
  if (End == Text.size() || (IsDelimiter(Text[End]) && Text[End] != u'/')) {
    if (End - Start <= MaxDigits) Token.End = End;
  } else if (Text[End] == FootMark) {
    const size_t Size = ReadUsualShape(Text.substr(Start), Token.Shape);
    End = Start + Size;
    Token.IsLength = Size != 0 && (End == Text.size() || IsDelimiter(Text[End]));
    if (Token.IsLength) Token.End = End;
  }
  return Token;
}

/// Hands every token that may be a length to Use, in order, with what it is where that is known. A token is
/// known to be whole only when the next one has not joined it.
template <class TUse> void ScanTokens(std::u16string_view Text, TUse Use) {
  TToken Last{0, 0};       // empty: none yet
  bool AfterSlash = false; // the last delimiter was "/"
  const auto Flush = [&] {
    if (Last.End > Last.Start) Use(Last, nullptr);
  };
  for (size_t Pos = 0; Pos < Text.size();) {
    if (!IsDigit(Text[Pos])) {
      AfterSlash = false;
      ++Pos;
      continue;
    }
    // A whole number may be the rest of a fraction; feet are none.
    if (const TUsualToken Usual = ReadUsualToken(Text, Pos);
        Usual.End != 0 && (Usual.IsLength || !AfterSlash)) {
      Flush();
      if (Usual.IsLength) Use(TToken{Pos, Usual.End}, &Usual.Shape);
      Last = {0, 0};
      AfterSlash = false;
      Pos = Usual.End + 1;
      continue;
    }
    size_t End = Pos;
    while (End < Text.size() && !EndsToken(Text, End)) ++End;
    if (AfterSlash &&
        IsFractionBar(Text.substr(Last.Start, Last.End - Last.Start), Text.substr(Pos, End - Pos))) {
      Last.End = End;
      AfterSlash = false;
    } else {
      Flush();
      Last = {Pos, End};
      AfterSlash = End < Text.size() && Text[End] == u'/';
    }
    Pos = End + 1;
  }
  Flush();
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
  std::u16string Result;
  Result.reserve(Text.size() + RoomToGrow);
  size_t Copied = 0;
  ScanTokens(Text, [&](const TToken& Token, const TImperialShape* Shape) {
    TLength Length;
    if (Shape)
      Length.Value = InchesOf(*Shape);
    else if (const auto Number = Text.substr(Token.Start, Token.End - Token.Start);
             IsPlain(Number) || !ReadLength(Number, Length))
      return;
    const double Value = Convert(Length, Mode, Factor);
    if (!std::isfinite(Value)) return;
    Result.append(Text.substr(Copied, Token.Start - Copied));
    AppendFloat(Result, Value);
    Copied = Token.End;
  });
  return Result.append(Text.substr(Copied));
}

} // namespace unitlib
