#include "unitlib/typing/Quantity.h"

#include "unitlib/rtl/Numbers.h"
#include "unitlib/typing/Characters.h"
#include "unitlib/typing/Refusal.h"

namespace unitlib::typing {
namespace {

using enum TTokenKind;

std::u16string FractionWords(std::int64_t Numerator, std::int64_t Denominator) {
  return IntToStr(Numerator) + u"/" + IntToStr(Denominator);
}

class TReader {
public:
  TReader(const std::vector<TToken>& Tokens, std::size_t& At, const TField& Field, TNotes& Notes)
      : FTokens(Tokens), FAt(At), FField(Field), FNotes(Notes) {}

  TQuantity Read() {
    TQuantity Quantity;
    Quantity.Begin = Token().Begin;
    Quantity.Parts.push_back(ReadPart());
    while (TakePartBehind(Quantity)) {
    }
    Quantity.End = FTokens[FAt - 1].End;
    RequireDashFraction(Quantity);
    return Quantity;
  }

private:
  const TToken& Token(std::size_t Ahead = 0) const {
    return FTokens[std::min(FAt + Ahead, FTokens.size() - 1)];
  }
  bool Is(TTokenKind Kind, std::size_t Ahead = 0) const { return Token(Ahead).Kind == Kind; }
  bool IsInteger(std::size_t Ahead = 0) const { return Is(Number, Ahead) && !Token(Ahead).HasPoint; }
  bool IsSlashFraction(std::size_t Ahead) const {
    return IsInteger(Ahead) && Is(Slash, Ahead + 1) && IsInteger(Ahead + 2);
  }

  /// A number with the unit behind it, if there is one.
  TPart ReadPart() {
    TPart Part = ReadNumber();
    if (Is(Unit)) {
      Part.Unit = Token().Unit;
      Part.UnitIsMark = Token().IsMark;
      ++FAt;
    }
    return Part;
  }

  TPart ReadNumber() {
    if (Is(Fraction)) return PieceFraction();
    if (!Is(Number)) Refuse(TTypedProblem::NotANumber, Token().Begin, u"a number is missing here");
    if (IsSlashFraction(0) && TakesSlash()) return SlashFraction();
    TPart Part;
    Part.Value = Token().Value;
    Part.Words = Token().Text;
    Part.HasPoint = Token().HasPoint;
    ++FAt;
    AddFraction(Part);
    return Part;
  }

  /// In a single value a slash is always the bar of a fraction; in an expression where the marks say so.
  bool TakesSlash() const {
    if (!FField.IsExpression() || Token(1).Char == FractionSlash) return true;
    // Alone it is both, and the same.
    if (Is(End, 3) && FField.IsImperialLength && OnlySignsBefore()) return true;
    if (!Is(Unit, 3)) return false;
    const bool Close = !Token(1).BlankBefore && !Token(2).BlankBefore;
    return IsUnit(Token(3).Unit, Inch) || (Close && Token().Value.Num() < Token(2).Value.Num());
  }

  bool OnlySignsBefore() const {
    return FAt == 0 || (FAt == 1 && (FTokens[0].Kind == Dash || FTokens[0].Kind == Plus));
  }

  TPart PieceFraction() {
    TPart Part;
    Part.Value = Token().Value;
    Part.Words = FractionWords(Token().Numerator, Token().Denominator);
    Part.IsFraction = true;
    ++FAt;
    if (Is(Fraction)) Refuse(TTypedProblem::Fraction, Token().Begin, u"two fractions side by side");
    return Part;
  }

  TPart SlashFraction() {
    const TToken& Top = Token();
    const TToken& Bar = Token(1);
    const TToken& Bottom = Token(2);
    if (Bottom.Value.Num() == 0)
      Refuse(TTypedProblem::Fraction, Bottom.Begin, u"the fraction is divided by zero");
    if (Bottom.End - Bottom.Begin != Bottom.Text.size()) // which the facade refuses, too
      Refuse(TTypedProblem::Fraction, Bottom.Begin,
             u"the fraction is divided by a number that starts with a zero");
    // 61⁄2 with the slash of typographers is what 6½ becomes on its way through some programs.
    if (Bar.Char == FractionSlash && Top.Value.Num() >= Bottom.Value.Num()) RefuseRunTogether(Top, Bottom);
    FAt += 3;
    RequireNoSecondSlash();
    // 61/2 may be 6 1/2 with its blank lost. The facade has its own reading where it takes the text.
    if (!(Top.Value.Num() < Bottom.Value.Num()) && (Is(Unit) || !FField.IsImperialLength))
      Refuse(TTypedProblem::Fraction, Top.Begin, u"a fraction above one");
    TPart Part;
    Part.Value = Top.Value / Bottom.Value;
    Part.Words = FractionWords(Top.Value.Num(), Bottom.Value.Num());
    Part.IsFraction = true;
    return Part;
  }

  [[noreturn]] static void RefuseRunTogether(const TToken& Top, const TToken& Bottom) {
    std::u16string Apart = Top.Text;
    if (Apart.size() > 1) Apart.insert(Apart.size() - 1, u" ");
    Refuse(TTypedProblem::Ambiguous, Top.Begin,
           u"this may be a fraction above one, or a number and a fraction run together", Top.Begin,
           Bottom.End, {Apart + u"/" + Bottom.Text, Top.Text + u"/" + Bottom.Text});
  }

  void RequireNoSecondSlash() const {
    if (Is(Slash) && !FField.IsExpression())
      Refuse(TTypedProblem::Fraction, Token().Begin, u"a fraction has one bar");
  }

  /// What may stand behind a whole number: a fraction, behind a blank, "and" or (in a single value) a dash.
  void AddFraction(TPart& Part) {
    const bool ByDash = Is(Dash) && !FField.IsExpression();
    const std::size_t Gap = ByDash || Is(And) ? 1 : 0;
    const bool Piece = Is(Fraction, Gap);
    // 61/2: two digits of a slash fraction need something between them and the number; there is a token.
    if (!Piece && !(IsSlashFraction(Gap) && (Gap == 1 || Token().BlankBefore))) return;
    if (Part.HasPoint) Refuse(TTypedProblem::Fraction, Token().Begin, u"a fraction behind a decimal number");
    if (ByDash) CheckDash();
    FAt += Gap;
    const TPart Behind = Piece ? PieceFraction() : SlashFraction();
    if (!(Behind.Value < 1))
      Refuse(ByDash ? TTypedProblem::Ambiguous : TTypedProblem::Fraction, FTokens[FAt - 1].Begin,
             u"a fraction behind a number is below one");
    Part.Value = Part.Value + Behind.Value;
    Part.Words += u" " + Behind.Words;
    Part.IsFraction = true;
    Part.DashFraction = ByDash;
    if (ByDash) AddNote(FNotes, u"dash read as a separator");
  }

  /// A dash separates with blanks on both sides, on neither, or behind it only; a minus sign never does.
  void CheckDash() const {
    const TToken& Sign = Token();
    if (Sign.Char == MinusSign)
      Refuse(TTypedProblem::Ambiguous, Sign.Begin, u"a minus sign between two numbers of one value",
             Sign.Begin, Sign.End, {u" "});
    if (Sign.BlankBefore && !Token(1).BlankBefore)
      Refuse(TTypedProblem::Ambiguous, Sign.Begin,
             u"a dash with a blank before it only may be a separator or a sign", Sign.Begin, Sign.End, {u""});
  }

  /// Feet behind yards, inches behind feet.
  bool TakePartBehind(TQuantity& Quantity) {
    const TPart& Last = Quantity.Parts.back();
    if (!Last.Unit) return false;
    const bool ByDash = Is(Dash) && !FField.IsExpression();
    const std::size_t Gap = ByDash || Is(And) ? 1 : 0;
    if (!StartsQuantity(Token(Gap))) {
      if (Is(And)) Refuse(TTypedProblem::NotANumber, Token().End, u"a number is missing here");
      return false;
    }
    const std::size_t Place = Token(Gap).Begin;
    RequireMore(Last, Place);
    if (ByDash) CheckDash();
    FAt += Gap;
    TPart Next = ReadPart();
    if (ByDash) AddNote(FNotes, u"dash read as a separator");
    Join(Quantity, std::move(Next), Place);
    return true;
  }

  static void RequireMore(const TPart& Last, std::size_t Place) {
    if (!IsFeetInches(Last.Unit) || IsUnit(Last.Unit, Inch))
      Refuse(TTypedProblem::Order, Place, u"a second number behind the unit");
    if (Last.IsFraction || Last.HasPoint)
      Refuse(TTypedProblem::Fraction, Place, u"inches behind a part of a foot");
  }

  void Join(TQuantity& Quantity, TPart Next, std::size_t Place) {
    const TPart& Last = Quantity.Parts.back();
    if (!Next.Unit) SupplyMark(Quantity, Next, Place);
    if (!IsFeetInches(Next.Unit)) Refuse(TTypedProblem::Order, Place, u"units of two systems in one value");
    const TRational Larger = InchesIn(*Last.Unit), Smaller = InchesIn(*Next.Unit);
    if (!((Smaller - Larger) < 0))
      Refuse(TTypedProblem::Order, Place, u"the larger unit comes first, each unit once");
    if (!(Next.Value * Smaller - Larger < 0) || (Next.Value * Smaller - Larger).Num() == 0)
      Refuse(TTypedProblem::Order, Place, u"the smaller unit makes a whole one of the larger");
    RequireFewDigits(Next, Place);
    Quantity.Parts.push_back(std::move(Next));
  }

  /// 1'000 may be a thousand with an apostrophe between its groups.
  void RequireFewDigits(const TPart& Next, std::size_t Place) const {
    const bool Whole = !Next.HasPoint && !Next.IsFraction;
    std::size_t Number = FAt - 1;
    while (FTokens[Number].Begin > Place) --Number;
    if (Whole && FTokens[Number].End - FTokens[Number].Begin > 2)
      Refuse(TTypedProblem::NotANumber, Place, u"inches of three digits");
  }

  /// 5'6, as the facade reads it: the inch mark may be missing where the foot mark is not.
  void SupplyMark(TQuantity& Quantity, TPart& Next, std::size_t Place) const {
    const TPart& Last = Quantity.Parts.back();
    const bool Allowed = Last.UnitIsMark && IsUnit(Last.Unit, Foot) && !Next.HasPoint && Is(End) &&
                         (!FField.IsExpression() || Quantity.Begin == FTokens.front().Begin);
    if (!Allowed && Is(Dash) && StartsQuantity(Token(1)))
      Refuse(TTypedProblem::Ambiguous, Token().Begin, u"the dash may join or take away", Place, Token().End,
             {Next.Words + u" ", Next.Words + u"\"-"});
    if (!Allowed)
      Refuse(TTypedProblem::MissingMark, Token().Begin, u"the inch mark is missing", Token(0).Begin,
             Token(0).Begin, {u"\""});
    Next.Unit = &UnitAt(Inch);
    Next.UnitIsMark = true;
    Quantity.LastUnmarked = true;
  }

  /// 1-1/2 with an inch mark, or behind feet: without, it is one foot and half an inch to the facade.
  static void RequireDashFraction(const TQuantity& Quantity) {
    const TPart& Last = Quantity.Parts.back();
    if (!Last.DashFraction || (Last.Unit && IsUnit(Last.Unit, Inch))) return;
    std::u16string Split = Last.Words;
    Split.insert(Split.find(u' '), u"'");
    Refuse(TTypedProblem::Ambiguous, Quantity.Begin,
           u"the dash may stand between feet and inches, or between inches and their fraction",
           Quantity.Begin, Quantity.End, {Last.Words + u"\"", Split + u"\""});
  }

  const std::vector<TToken>& FTokens;
  std::size_t& FAt;
  const TField& FField;
  TNotes& FNotes;
};

/// 1 foot, 1/2 inch; but 0.5 inches.
bool IsSingular(const TPart& Part) {
  return (Part.Value.IsWhole() && Part.Value.Num() == 1) || (Part.IsFraction && Part.Value < 1);
}

} // namespace

TRational TQuantity::Inches() const {
  TRational Sum;
  for (const TPart& Part : Parts) Sum = Sum + Part.Value * InchesIn(*Part.Unit);
  return Sum;
}

std::u16string TQuantity::Words() const {
  std::u16string Result;
  for (const TPart& Part : Parts) {
    if (!Result.empty()) Result += u' ';
    Result += Part.Words;
    if (Part.Unit) (Result += u' ') += IsSingular(Part) ? Part.Unit->Singular : Part.Unit->Plural;
  }
  return Result;
}

bool StartsQuantity(const TToken& Token) noexcept {
  return Token.Kind == Number || Token.Kind == Fraction;
}

TQuantity ReadQuantity(const std::vector<TToken>& Tokens, std::size_t& At, const TField& Field,
                       TNotes& Notes) {
  return TReader(Tokens, At, Field, Notes).Read();
}

} // namespace unitlib::typing
