#include "unitlib/typing/Tokens.h"

#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/typing/Characters.h"
#include "unitlib/typing/DigitRun.h"
#include "unitlib/typing/Refusal.h"

#include <algorithm>

namespace unitlib::typing {
namespace {

using enum TTokenKind;
constexpr std::size_t MaxDigits = 15; // what a double tells apart
constexpr std::size_t MaxName = 64;

bool IsPlainDigit(char16_t C) {
  return IsDigit(PlainWidth(C));
}

/// Value of digits with a point. Their count is checked.
TRational ValueOf(std::u16string_view Text) {
  std::int64_t Num = 0, Den = 1;
  bool Behind = false;
  for (const char16_t C : Text) {
    if (C == u'.') {
      Behind = true;
      continue;
    }
    Num = Num * 10 + (C - u'0');
    if (Behind) Den *= 10;
  }
  return TRational(Num, Den);
}

class TTokenizer {
public:
  TTokenizer(std::u16string_view Text, const TField& Field, TNotes& Notes)
      : FText(Text), FField(Field), FNotes(Notes) {}

  std::vector<TToken> Run() {
    for (SkipBlanks(); FAt < FText.size(); SkipBlanks()) {
      TToken Token = Next();
      FBlank = false;
      FTokens.push_back(std::move(Token));
    }
    TToken End;
    End.Begin = End.End = FText.size();
    FTokens.push_back(End);
    return std::move(FTokens);
  }

private:
  char16_t At(std::size_t Ahead = 0) const {
    return FAt + Ahead < FText.size() ? PlainWidth(FText[FAt + Ahead]) : u'\0';
  }
  char16_t Raw(std::size_t Ahead = 0) const {
    return FAt + Ahead < FText.size() ? FText[FAt + Ahead] : u'\0';
  }
  bool Behind(TTokenKind Kind) const { return !FTokens.empty() && FTokens.back().Kind == Kind; }
  bool BehindNumber() const { return Behind(Number) || Behind(Fraction); }

  void SkipBlanks() {
    const std::size_t Start = FAt;
    while (FAt < FText.size() && IsBlank(FText[FAt])) ++FAt;
    FBlank = FBlank || FAt > Start;
  }

  TToken Take(TTokenKind Kind, std::size_t Length) {
    TToken Token;
    Token.Kind = Kind;
    Token.Begin = FAt;
    Token.End = FAt += Length;
    Token.BlankBefore = FBlank;
    Token.Char = FText[Token.Begin];
    return Token;
  }

  TToken Next() {
    const char16_t C = At();
    if (IsDigit(C) || ((C == u'.' || C == u',') && IsDigit(At(1)))) return NextNumber();
    if (VulgarFraction(C).Numerator != 0) return NextVulgar();
    if (SuperscriptDigit(Raw()) >= 0) return NextRaisedFraction();
    if (IsFootMark(Raw()) || IsInchMark(Raw())) return NextMark();
    if (IsLetter(Raw()) || (C == u'_' && !BehindNumber())) return NextWord();
    if (IsDash(Raw()) || C == MinusSign) return Take(Dash, 1);
    return NextSign();
  }

  TToken NextSign() {
    switch (At()) {
    case u'+':
      return Take(Plus, 1);
    case u'*':
      return Take(Times, 1);
    case u'/':
    case FractionSlash:
    case 0x2215: // division slash
      return Take(Slash, 1);
    case u'(':
      return Take(Open, 1);
    case u')':
      return Take(Close, 1);
    case u',':
      if (Behind(Unit) && IsBlank(Raw(1))) return Take(And, 1);
      break;
    case 0x00D7:
      Refuse(TTypedProblem::Arithmetic, FAt,
             u"\u00D7 may be a size (2 by 4) or a product; a product has a *");
    default:
      break;
    }
    Refuse(TTypedProblem::NotANumber, FAt, u"\"" + std::u16string(1, FText[FAt]) + u"\" cannot stand here");
  }

  /// Blanks of three digits each: 12 500.
  bool AtGroupBlank(std::size_t Digits, bool First) const {
    if (FField.IsImperialLength || !IsGroupBlank(Raw()) || Digits == 0 || Digits > 3) return false;
    if (!First && Digits != 3) return false;
    for (std::size_t I = 1; I <= 3; ++I)
      if (!IsPlainDigit(Raw(I))) return false;
    return !IsPlainDigit(Raw(4)) && Raw(4) != u'/' && Raw(4) != FractionSlash;
  }

  /// The characters of a number, group blanks left out.
  std::u16string TakeRun(bool& Blanks) {
    std::u16string Run;
    std::size_t Digits = 0; // since the start or the last blank; too many once a point or comma was met
    for (;; ++FAt) {
      const char16_t C = At();
      if (IsDigit(C)) {
        Run += C;
        ++Digits;
      } else if (C == u'.' || (C == u',' && IsDigit(At(1)))) {
        Run += C;
        Digits = 4;
      } else if (AtGroupBlank(Digits, !Blanks)) {
        Blanks = true;
        Digits = 0;
      } else {
        return Run;
      }
    }
  }

  /// 10',6": a separator, or six tenths?
  void RequireNoLeadingMark() const {
    if (IsDigit(At()) || !Behind(Unit) || FBlank) return;
    Refuse(TTypedProblem::Ambiguous, FAt, u"a point or comma directly behind a unit", FAt, FAt + 1,
           {u" ", u" 0."});
  }

  TToken NextNumber() {
    RequireNoLeadingMark();
    const std::size_t Begin = FAt;
    bool Blanks = false;
    const std::u16string Run = TakeRun(Blanks);
    const TDigitRun Read = ReadDigitRun(Run, FField.Options.DecimalComma, FField.GroupsOfFour);
    if (!Read.Reason.empty()) RefuseRun(Begin, Read);
    TToken Token;
    Token.Kind = Number;
    Token.Begin = Begin;
    Token.End = FAt;
    Token.BlankBefore = FBlank;
    Token.Text = Read.Text;
    Token.HasPoint = Run.find(u'.') != Run.npos || Read.DecimalComma;
    if (Read.Grouped) Token.HasPoint = Read.Text.find(u'.') != Run.npos || Run.back() == u'.';
    RequireFewDigits(Token);
    Token.Value = ValueOf(Token.Text);
    if (Read.Grouped || Blanks) AddNote(FNotes, u"digits read in groups");
    if (Read.DecimalComma) AddNote(FNotes, u"comma read as the decimal mark");
    return Token;
  }

  [[noreturn]] void RefuseRun(std::size_t Begin, const TDigitRun& Run) const {
    Refuse(Run.Ambiguous ? TTypedProblem::Ambiguous : TTypedProblem::NotANumber, Begin, Run.Reason, Begin,
           FAt, Run.Readings);
  }

  /// Leading zeros do not count. The text keeps one before the point.
  static void RequireFewDigits(TToken& Token) {
    std::u16string& Text = Token.Text;
    const std::size_t Point = std::min(Text.find(u'.'), Text.size());
    const std::size_t Zeros = std::min(Text.find_first_not_of(u'0'), Point);
    if (Zeros > 0) Text.erase(0, Zeros == Point ? Zeros - 1 : Zeros);
    const std::size_t Digits = Text.size() - (Text.find(u'.') != Text.npos ? 1 : 0);
    if (Digits > MaxDigits + (Text.starts_with(u"0.") ? 1 : 0))
      Refuse(TTypedProblem::Range, Token.Begin, u"more than 15 digits");
  }

  TToken NextVulgar() {
    const TVulgar Vulgar = VulgarFraction(Raw());
    TToken Token = Take(Fraction, 1);
    Token.Numerator = Vulgar.Numerator;
    Token.Denominator = Vulgar.Denominator;
    Token.Value = TRational(Vulgar.Numerator, Vulgar.Denominator);
    return Token;
  }

  /// ¹⁄₂: raised digits, a slash, lowered or plain digits.
  TToken NextRaisedFraction() {
    constexpr int Max = 9999;
    std::size_t Length = 0;
    int Parts[2] = {0, 0};
    for (; SuperscriptDigit(Raw(Length)) >= 0 && Parts[0] < Max; ++Length)
      Parts[0] = Parts[0] * 10 + SuperscriptDigit(Raw(Length));
    const bool HasSlash = Raw(Length) == FractionSlash || Raw(Length) == u'/';
    const std::size_t Bar = Length++;
    for (; HasSlash && SubscriptDigit(Raw(Length)) >= 0 && Parts[1] < Max; ++Length)
      Parts[1] = Parts[1] * 10 + SubscriptDigit(Raw(Length));
    if (!HasSlash || Length == Bar + 1 || Parts[0] == 0 || Parts[0] >= Parts[1])
      Refuse(TTypedProblem::Fraction, FAt, u"raised digits that make no fraction");
    TToken Token = Take(Fraction, Length);
    Token.Numerator = Parts[0];
    Token.Denominator = Parts[1];
    Token.Value = TRational(Parts[0], Parts[1]);
    return Token;
  }

  /// A mark; two foot marks side by side are an inch mark.
  TToken NextMark() {
    if (!BehindNumber()) Refuse(TTypedProblem::NotANumber, FAt, u"a mark without a number before it");
    const bool IsInch = IsInchMark(Raw());
    const bool Doubled = !IsInch && Raw(1) == Raw();
    const char16_t Behind = Raw(Doubled ? 2 : 1);
    if (IsFootMark(Behind) || IsInchMark(Behind))
      Refuse(TTypedProblem::Order, FAt, u"too many marks side by side");
    // 10''-6": the key was hit twice, or not.
    FDoubled = FDoubled || Doubled;
    FInchMark = FInchMark || IsInch;
    if (FDoubled && FInchMark)
      Refuse(TTypedProblem::Ambiguous, FAt, u"two foot marks beside a real inch mark: feet or inches?");
    if (Doubled) AddNote(FNotes, u"two foot marks read as the inch mark");
    TToken Token = Take(Unit, Doubled ? 2 : 1);
    Token.Unit = &UnitAt(IsInch || Doubled ? Inch : Foot);
    Token.IsMark = true;
    return Token;
  }

  TToken NextWord() {
    if (const std::size_t Length = AndLength()) return Take(And, Length);
    const TUnitMatch Match = MatchUnit(FText.substr(FAt), FField.Options.Languages);
    if (BehindNumber()) return NextUnit(Match);
    if (Match.Length > 0 && Match.Length == NameLength())
      Refuse(TTypedProblem::UnknownUnit, FAt, u"a unit without a number before it");
    if (!FField.TakesNames() || Behind(Unit))
      Refuse(TTypedProblem::Name, FAt, u"\"" + Word() + u"\" is neither a number nor a unit of one");
    return NextName();
  }

  std::size_t AndLength() const {
    if (FText.size() - FAt < 4 || !SameText(FText.substr(FAt, 3), u"and") || !IsBlank(Raw(3))) return 0;
    return Behind(Unit) || Behind(Number) ? 3 : 0;
  }

  std::u16string Word() const {
    std::size_t Length = 1;
    while (IsLetter(Raw(Length)) && Length < MaxName) ++Length;
    return std::u16string(FText.substr(FAt, Length));
  }

  TToken NextUnit(const TUnitMatch& Own) {
    TUnitMatch Match = Own;
    const std::size_t Length = OwnSymbolLength();
    if (Length > Match.Length) Match = {FField.Unit, Length, false};
    if (Match.IsTon) RefuseTon(Match.Length);
    if (Match.Length == 0)
      Refuse(TTypedProblem::UnknownUnit, FAt, u"\"" + Word() + u"\" is no unit that is read here");
    TToken Token = Take(Unit, Match.Length);
    Token.Unit = Match.Row;
    return Token;
  }

  /// Length of the symbol that the field's unit is shown with, where the text goes on with it.
  std::size_t OwnSymbolLength() const {
    if (!FField.Unit) return 0;
    const TUnit& Unit = *FField.Parser->GetUnit();
    std::size_t Longest = SymbolLength(Unit.DefUnitSymbolWhenNone);
    for (const auto& Symbol : Unit.UnitSymbolContainer)
      if (Symbol->Description != u"None") Longest = std::max(Longest, SymbolLength(Symbol->Description));
    return Longest;
  }

  std::size_t SymbolLength(std::u16string_view Symbol) const {
    const std::size_t Length = Symbol.size();
    const bool Found = Length > 0 && SameText(FText.substr(FAt, Length), Symbol);
    return Found && !IsLetter(Raw(Length)) && !IsPlainDigit(Raw(Length)) ? Length : 0;
  }

  [[noreturn]] void RefuseTon(std::size_t Length) const {
    Refuse(TTypedProblem::Ambiguous, FAt,
           u"a ton may be metric, short or long; write it in tonnes, pounds or kilograms", FAt, FAt + Length,
           {u"tonnes"});
  }

  /// A name: letters, digits and _ . # : with single blanks between.
  std::size_t NameLength() const {
    std::size_t Length = 1;
    const auto IsPart = [](char16_t C) {
      return IsLetter(C) || IsDigit(C) || std::u16string_view(u"_.#:").find(C) != std::u16string_view::npos;
    };
    while (IsPart(Raw(Length)) || (Raw(Length) == u' ' && IsPart(Raw(Length + 1)))) ++Length;
    return Length;
  }

  /// "five feet" was meant to be a length. Single letters may name anything.
  void RequireNoUnit(std::u16string_view Name) const {
    const std::size_t First = std::min(Name.find(u' '), Name.size());
    if (First > 1 && MatchUnit(Name.substr(0, First), FField.Options.Languages).Length == First)
      Refuse(TTypedProblem::Name, FAt, u"a unit inside a name");
    for (std::size_t Blank = Name.find(u' '); Blank != Name.npos; Blank = Name.find(u' ', Blank + 1)) {
      const std::u16string_view Rest = Name.substr(Blank + 1);
      const std::size_t Word = std::min(Rest.find(u' '), Rest.size());
      const bool BehindDigit = IsDigit(Name[Blank - 1]);
      if ((Word > 1 || BehindDigit) && MatchUnit(Rest, FField.Options.Languages).Length >= Word)
        Refuse(TTypedProblem::Name, FAt + Blank + 1, u"a unit inside a name");
    }
  }

  TToken NextName() {
    const std::size_t Length = NameLength();
    RequireNoUnit(FText.substr(FAt, Length));
    if (Length > MaxName) Refuse(TTypedProblem::Name, FAt, u"a name of more than 64 characters");
    TToken Token = Take(Name, Length);
    Token.Text = FText.substr(Token.Begin, Length);
    return Token;
  }

  std::u16string_view FText;
  const TField& FField;
  TNotes& FNotes;
  std::vector<TToken> FTokens;
  std::size_t FAt = 0;
  bool FBlank = false;
  bool FDoubled = false;  // two foot marks were met
  bool FInchMark = false; // an inch mark was met
};

} // namespace

void AddNote(TNotes& Notes, std::u16string_view Note) {
  if (std::find(Notes.begin(), Notes.end(), Note) == Notes.end()) Notes.emplace_back(Note);
}

std::vector<TToken> Tokenize(std::u16string_view Text, const TField& Field, TNotes& Notes) {
  return TTokenizer(Text, Field, Notes).Run();
}

void RequireClearCommas(std::u16string_view Text, const TField& Field) {
  constexpr std::u16string_view NumberCharacters = u"0123456789,.";
  for (std::size_t Begin = 0, End = 0;; Begin = End) {
    Begin = Text.find_first_of(NumberCharacters, Begin);
    if (Begin == std::u16string_view::npos) return;
    End = std::min(Text.find_first_not_of(NumberCharacters, Begin), Text.size());
    const std::u16string_view Run = Text.substr(Begin, End - Begin);
    if (Run.find(u',') == std::u16string_view::npos || Run.find_first_of(u"0123456789") == Run.npos) continue;
    const TDigitRun Read = ReadDigitRun(Run, Field.Options.DecimalComma, Field.GroupsOfFour);
    if (Read.Reason.empty()) continue;
    Refuse(Read.Ambiguous ? TTypedProblem::Ambiguous : TTypedProblem::NotANumber, Begin, Read.Reason, Begin,
           End, Read.Readings);
  }
}

} // namespace unitlib::typing
