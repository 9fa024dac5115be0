/// Imperial numbers inside an arithmetic text, by the steps as they are described: one character at a time.
#include "fuzz/slow/Imperial.h"
#include "fuzz/slow/Regex.h"

#include <cmath>
#include <vector>

namespace unitlib::fuzz::slow {
namespace {

bool IsDelimiter(char16_t C) {
  return std::u16string_view(u"+-*/^)\r").find(C) != std::u16string_view::npos;
}

bool IsWhole(std::u16string_view Part) {
  return IsInt64(Trimmed(Part));
}

bool IsWholeWithInchMark(std::u16string_view Token) {
  const std::u16string T = Trimmed(Token);
  return T.ends_with(u'"') && IsWhole(std::u16string_view(T).substr(0, T.size() - 1));
}

/// Whole feet, foot mark, whole inches, blank, a whole number.
bool IsLeadingPart(std::u16string_view Token) {
  const std::u16string T = Trimmed(Token);
  const std::size_t Mark = T.find(u'\''), Blank = T.rfind(u' ');
  if (Mark == T.npos || Blank == T.npos || Blank < Mark) return false;
  return IsWhole(T.substr(0, Mark)) && IsWhole(T.substr(Mark + 1, Blank - Mark - 1)) &&
         IsWhole(T.substr(Blank + 1));
}

bool Joins(std::u16string_view Last, std::u16string_view New) {
  if (IsLeadingPart(Last) && (IsWhole(New) || IsWholeWithInchMark(New))) return true;
  if (!IsWholeWithInchMark(New)) return false;
  return IsWhole(Last) || IsImperialNum(Trimmed(Last) + u"/" + Trimmed(New), false);
}

struct TToken {
  std::size_t Start;
  std::u16string Text;
};

std::vector<TToken> ScanTokens(std::u16string_view Text) {
  std::u16string Work = std::u16string(Text) + u"+";
  const std::u16string Folded = Lower(Work);
  for (std::size_t Hit = Folded.find(u"mod"); Hit != Folded.npos; Hit = Folded.find(u"mod", Hit + 3))
    Work.replace(Hit, 3, u"+++");
  std::vector<TToken> Tokens;
  std::u16string Token;
  std::size_t Start = 0;
  bool Inside = false, Slash = false;
  for (std::size_t I = 0; I < Work.size(); ++I) {
    const char16_t C = Work[I];
    if (!Inside) {
      Inside = C >= u'0' && C <= u'9';
      if (!Inside) Slash = false;
      if (Inside) Token = std::u16string(1, C), Start = I;
    } else if (!IsDelimiter(C)) {
      Token += C;
    } else if (Slash && !Tokens.empty() && Joins(Tokens.back().Text, Token)) {
      Tokens.back().Text += u"/" + Token;
      Inside = Slash = false;
    } else {
      Tokens.push_back({Start, Token});
      Inside = false;
      Slash = C == u'/';
    }
  }
  return Tokens;
}

bool IsSkipped(const std::u16string& Token) {
  std::u16string Bare;
  for (const char16_t C : Token)
    if (C != u'/' && C != u'.') Bare += C;
  return IsNumeric(Token) || IsNumeric(Bare);
}

TExact Feet(const std::u16string& Token) {
  if (IsEndWithSymbol(Token)) {
    const TRead Number = ReadNumber(std::u16string_view(Token).substr(0, Token.size() - 1));
    if (Number.Ok) return Token.back() == u'"' ? Number.Exact / 12 : Number.Exact;
  }
  return ExactInches(Token) / 12;
}

} // namespace

std::vector<TPiece> ReplaceImperialNumbers(std::u16string_view Text, int Mode, double Factor) {
  std::vector<TPiece> Pieces;
  std::size_t Done = 0;
  for (const TToken& Token : ScanTokens(Text)) {
    if (IsSkipped(Token.Text) || !IsImperialNum(Token.Text, false) || !std::isfinite(Factor)) continue;
    TExact Value = Feet(Token.Text) * ExactOf(Factor);
    if (Mode != 2) Value = Value * 12 * TExact(254, 10) / 1000;
    if (!std::isfinite(ToDouble(Value))) continue; // no number: nothing takes its place
    Pieces.push_back({std::u16string(Text.substr(Done, Token.Start - Done)), Value});
    Done = Token.Start + Token.Text.size();
  }
  Pieces.push_back({std::u16string(Text.substr(Done)), {}});
  return Pieces;
}

} // namespace unitlib::fuzz::slow
