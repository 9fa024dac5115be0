#include "unitlib/typing/Expression.h"

#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/typing/Characters.h"
#include "unitlib/typing/Explanation.h"
#include "unitlib/typing/Refusal.h"
#include "unitlib/typing/Terms.h"

#include <cmath>
#include <memory>
#include <optional>

namespace unitlib::typing {
namespace {

using enum TTokenKind;
using TKind = TTerm::TKind;
constexpr std::size_t MaxDepth = 100;

/// A quantity as the left side of a dash.
struct TLeftSide {
  TQuantity Quantity;
  bool Negative = false;
};

struct TPending {
  TToken Token;                  // an operator, or an open bracket
  bool Negative = false;         // of the bracket
  std::optional<TLeftSide> Left; // what a dash stands directly behind
};

bool IsProperFraction(const TQuantity& Quantity) {
  const TPart& Part = Quantity.Parts.front();
  return Quantity.Parts.size() == 1 && Part.IsFraction && Part.Value < 1 &&
         (!Part.Unit || IsUnit(Part.Unit, Inch));
}

/// Whole numbers of inches, or a number alone: what a fraction might belong to.
bool TakesFraction(const TQuantity& Quantity) {
  const TPart& Last = Quantity.Parts.back();
  return !Last.IsFraction && !Last.HasPoint && (!Last.Unit || IsUnit(Last.Unit, Inch));
}

/// True when the dash between two quantities may join them to one as well as take away.
bool IsAmbiguous(const TLeftSide& Left, const TQuantity& Right, const TField& Field) {
  const bool Inches = Right.IsInchesOnly() || Right.IsPlain();
  if (Left.Quantity.IsFeetOnly() && Right.IsPlain()) return true;
  if (Left.Quantity.IsWholeNumber() && Right.IsInchesOnly()) return true; // 5-6"
  if (Left.Quantity.IsFeetOnly() && Inches && Right.Parts.front().Value < 12)
    return !Left.Negative; // -5'-6" is -66 inches either way
  if (IsProperFraction(Right) && TakesFraction(Left.Quantity) && Inches &&
      (Right.IsInchesOnly() || Field.IsImperialLength))
    return true;
  const bool Dashed = Right.IsPlain() && !Right.Parts.front().HasPoint;
  return Field.IsImperialLength && Left.Quantity.IsWholeNumber() && Dashed;
}

class TReader {
public:
  TReader(const std::vector<TToken>& Tokens, std::u16string_view Text, const TField& Field, TNotes& Notes)
      : FTokens(Tokens), FText(Text), FField(Field), FNotes(Notes) {}

  TTerm Read() {
    while (FTokens[FAt].Kind != End) {
      ReadOperand();
      ReadBehindOperand();
    }
    if (FOperandDue) Refuse(TTypedProblem::Arithmetic, FTokens[FAt].Begin, u"a number is missing here");
    while (!FPending.empty()) {
      if (FPending.back().Token.Kind == Open)
        Refuse(TTypedProblem::Arithmetic, FPending.back().Token.Begin, u"this bracket is not closed");
      Reduce();
    }
    if (FMixed && FOperands > 1)
      Refuse(TTypedProblem::MissingMark, *FMixed,
             u"a number and a fraction without a unit; is an operator missing?");
    return FTerms.back();
  }

  bool IsLone() const { return FOperands == 1; }
  /// The quantity of a lone term; null when it is a name.
  const TQuantity* Lone() const { return FLast ? &FLast->Quantity : nullptr; }
  bool IsNegative() const { return FNegative; }

private:
  const TToken& Token() const { return FTokens[FAt]; }

  /// Signs and opening brackets, then one quantity or name.
  void ReadOperand() {
    for (;;) {
      const bool Signed = Token().Kind == Plus || Token().Kind == Dash;
      const bool Negative = ReadSigns();
      if (Token().Kind != Open) return ReadPrimary(Negative, Signed);
      Open_(Negative);
    }
  }

  void Open_(bool Negative) {
    if (++FDepth > MaxDepth) Refuse(TTypedProblem::Arithmetic, Token().Begin, u"brackets more than 100 deep");
    FPending.push_back({Token(), Negative, {}});
    ++FAt;
  }

  bool ReadSigns() {
    bool Negative = false;
    for (; Token().Kind == Plus || Token().Kind == Dash; ++FAt) {
      if (Token().Char == EmDash) RefuseEmDash();
      Negative = Negative != (Token().Kind == Dash);
    }
    return Negative;
  }

  [[noreturn]] void RefuseEmDash() const {
    Refuse(TTypedProblem::Ambiguous, Token().Begin, u"a long dash is no minus sign here");
  }

  void ReadPrimary(bool Negative, bool Signed) {
    FOperandDue = false;
    ++FOperands;
    FNegative = Negative;
    if (Token().Kind == Name) return ReadName(Negative);
    if (!StartsQuantity(Token()))
      Refuse(TTypedProblem::Arithmetic, Token().Begin, u"a number is missing here");
    const TQuantity Quantity = ReadQuantity(FTokens, FAt, FField, FNotes);
    if (Quantity.IsPlain() && Quantity.Parts.front().Words.find(u' ') != std::u16string::npos)
      FMixed = Quantity.Begin;
    if (!Signed) RequireClearDash(Quantity);
    TTerm Term = TermOf(Quantity, FField);
    if (Negative) Negate(Term);
    FTerms.push_back(std::move(Term));
    FLast = TLeftSide{Quantity, Negative};
  }

  void ReadName(bool Negative) {
    if (Negative)
      Refuse(TTypedProblem::Name, Token().Begin, u"a minus sign before a name would become a part of it");
    FTerms.push_back(TermOfName(Token()));
    FLast.reset();
    ++FAt;
  }

  void RequireClearDash(const TQuantity& Right) const {
    if (FPending.empty() || !FPending.back().Left) return;
    const TLeftSide& Left = *FPending.back().Left;
    if (FPending.back().Token.Kind == Plus && Left.Quantity.IsWholeNumber() && Right.IsInchesOnly() &&
        IsProperFraction(Right))
      Refuse(TTypedProblem::Ambiguous, FPending.back().Token.Begin,
             u"the sign may join a number and its fraction", Left.Quantity.Begin, Right.End,
             Offers(Left.Quantity, Right));
    if (FPending.back().Token.Kind != Dash) return;
    if (IsAmbiguous(Left, Right, FField) || IsDashFraction(Left, Right))
      Refuse(TTypedProblem::Ambiguous, FPending.back().Token.Begin, u"the dash may join or take away",
             Left.Quantity.Begin, RightEnd(Right), Offers(Left.Quantity, Right));
  }

  std::u16string Typed(std::size_t Begin, std::size_t End) const {
    return std::u16string(FText.substr(Begin, End - Begin));
  }

  /// 1-1/2 without blanks, in any unit.
  bool IsDashFraction(const TLeftSide& Left, const TQuantity& Right) const {
    if (!Left.Quantity.IsWholeNumber() || RightEnd(Right) == Right.End) return false;
    const bool Close = !FPending.back().Token.BlankBefore && Right.Begin == FPending.back().Token.End;
    return Close && Right.Parts.front().Value.Num() < FTokens[FAt + 1].Value.Num();
  }

  /// The end of the right side, with the fraction that it begins: 1-1/2.
  std::size_t RightEnd(const TQuantity& Right) const {
    const bool Fraction = Right.IsWholeNumber() && Token().Kind == Slash && FTokens[FAt + 1].Kind == Number;
    return Fraction ? FTokens[FAt + 1].End : Right.End;
  }

  /// Both readings.
  std::vector<std::u16string> Offers(const TQuantity& Left, const TQuantity& Right) const {
    const std::u16string L = Typed(Left.Begin, Left.End), R = Typed(Right.Begin, RightEnd(Right));
    std::u16string Joined = L;
    const bool Fraction = IsProperFraction(Right) || RightEnd(Right) != Right.End;
    if (Left.IsPlain() && !Fraction) Joined += u"'";
    if (IsProperFraction(Right) && !Left.IsPlain() && !Left.LastUnmarked && Left.IsFeetInches() &&
        !Left.IsFeetOnly())
      Joined.pop_back(); // the inch mark moves behind the fraction
    Joined += u" " + R;
    if (Right.IsPlain()) Joined += u"\"";
    const std::u16string Operator(1, FPending.back().Token.Kind == Plus ? u'+' : u'-');
    return {Joined, u"(" + L + u")" + Operator + u"(" + R + u")"};
  }

  /// Closing brackets, then an operator or the end.
  void ReadBehindOperand() {
    for (; Token().Kind == Close; ++FAt) CloseBracket();
    if (Token().Kind == End) return;
    const TTokenKind Kind = Token().Kind;
    if (Kind != Plus && Kind != Dash && Kind != Times && Kind != Slash) RefuseMissingOperator();
    if (Token().Char == EmDash) RefuseEmDash();
    while (!FPending.empty() && FPending.back().Token.Kind != Open &&
           !(IsHigh(Kind) && !IsHigh(FPending.back().Token.Kind)))
      Reduce();
    FPending.push_back({Token(), false, FLast});
    FOperandDue = true;
    ++FAt;
  }

  [[noreturn]] void RefuseMissingOperator() const {
    const std::size_t Place = Token().Begin;
    if (Token().Kind != Open) Refuse(TTypedProblem::Arithmetic, Place, u"an operator is missing here");
    Refuse(TTypedProblem::Arithmetic, Place, u"an operator is missing here", Place, Place, {u"*"});
  }

  static bool IsHigh(TTokenKind Kind) { return Kind == Times || Kind == Slash; }

  void CloseBracket() {
    while (!FPending.empty() && FPending.back().Token.Kind != Open) Reduce();
    if (FPending.empty()) Refuse(TTypedProblem::Arithmetic, Token().Begin, u"this bracket was not opened");
    SetBrackets(FTerms.back());
    if (FPending.back().Negative) Negate(FTerms.back());
    FPending.pop_back();
    --FDepth;
    FLast.reset();
  }

  void Reduce() {
    const TTerm Right = std::move(FTerms.back());
    FTerms.pop_back();
    FTerms.back() = Combine(FTerms.back(), FPending.back().Token, Right, FField);
    FPending.pop_back();
  }

  const std::vector<TToken>& FTokens;
  std::u16string_view FText;
  const TField& FField;
  TNotes& FNotes;
  std::vector<TTerm> FTerms;
  std::vector<TPending> FPending;
  std::optional<TLeftSide> FLast;    // directly before the token
  std::optional<std::size_t> FMixed; // place of a number and fraction without a unit
  std::size_t FAt = 0;
  std::size_t FDepth = 0;
  std::size_t FOperands = 0;
  bool FOperandDue = true;
  bool FNegative = false;
};

/// What the engine makes of numbers and operators.
double EngineValue(std::u16string_view Text) {
  TParser Parser(Text);
  auto Root = Parser.Parse();
  if (Root && !Parser.FHasError) Parser.Merge(Root);
  const double Value = Root && !Parser.FHasError ? Parser.GetDoubleValue(*Root) : NAN;
  if (Parser.FHasError || !std::isfinite(Value))
    Refuse(TTypedProblem::Range, 0, Parser.FErrMsg.empty() ? u"the value is too large" : Parser.FErrMsg);
  return Value;
}

/// The second computation agrees, but for what cancels out between larger numbers.
bool AgreeInSum(double A, double B, double Largest) {
  return Agree(A, B) || std::abs(A - B) <= 1e-12 * Largest;
}

double LargestNumber(const std::vector<TToken>& Tokens, const TField& Field) {
  double Largest = 0;
  for (const TToken& Token : Tokens)
    if (Token.Value.IsExact()) Largest = std::max(Largest, std::abs(Token.Value.AsDouble()));
  return Largest * (Field.Unit ? std::max(Field.Unit->InBase, 1000.0) : 1);
}

/// An offset as the engine reads it in this field. Value >= 0.
std::u16string OffsetText(const TTerm& Term, const TRational& Exact, const TField& Field) {
  if (!Exact.IsExact()) Refuse(TTypedProblem::Range, Term.Begin, u"more digits than can be kept");
  if (Term.OffsetKind == TKind::Amount) return LengthText(Exact * TRational(5, 127), Field, Term.Begin);
  std::u16string Text = DecimalText(Exact);
  if (Field.IsFractional && !Exact.IsWhole())
    Refuse(TTypedProblem::MissingMark, Term.End, Text + u" needs a mark here: feet or inches?");
  if (!Field.Check(Text)) Refuse(TTypedProblem::Range, Term.Begin, Text + u" is outside the range of values");
  return Text;
}

/// The stored form "name, sign, metres" holds the offset that was computed.
void RequireStored(const TTerm& Term, const TExpressionValue& Value, double Metres) {
  std::u16string Stored = CheckElevEditValue(Value.Text) ? GetElevStoreValue(Value.Text) : std::u16string();
  const std::size_t At = Stored.find(Term.Name);
  bool Same = At != std::u16string::npos;
  if (Same) {
    Stored.erase(At, Term.Name.size());
    if (Stored.ends_with(u"-")) Stored.pop_back();
    double Number = 0;
    Same = Stored.empty() ? Metres == 0 : TryStrToFloat(Stored, Number) && Agree(Number, Metres);
  }
  if (!Same)
    Refuse(TTypedProblem::Name, Term.Begin,
           u"an elevation is a length, or one name with an offset such as L1+5'6\"");
}

double InMetres(const TTerm& Term, const TField& Field) {
  constexpr double MmPerMetre = 1000;
  const bool Plain = Term.OffsetKind == TKind::Plain;
  return Term.Value * (Plain ? Field.Unit->InBase : 1) / MmPerMetre;
}

TExpressionValue Named(const TTerm& Term, const TField& Field) {
  TExpressionValue Result;
  Result.HasName = true;
  const bool Negative = Term.Exact.IsNegative();
  const bool HasOffset = Term.HasOffset && Term.Exact.Num() != 0;
  if (Term.Sign < 0 && (Negative || !HasOffset))
    Refuse(TTypedProblem::Name, Term.Begin,
           u"an elevation is a length, or one name with an offset such as L1+5'6\"");
  const std::u16string Offset = HasOffset || !Term.Exact.IsExact()
                                    ? OffsetText(Term, Negative ? -Term.Exact : Term.Exact, Field)
                                    : std::u16string();
  if (Term.Sign < 0)
    Result.Text = Offset + u"-" + Term.Name;
  else
    Result.Text = Offset.empty() ? Term.Name : Term.Name + (Negative ? u"-" : u"+") + Offset;
  const double Metres = HasOffset ? InMetres(Term, Field) : 0;
  RequireStored(Term, Result, Metres);
  const std::u16string Shown = Field.Shown(std::abs(Metres) * 1000);
  if (Term.Sign < 0)
    Result.Words = Shown + u" minus " + Term.Name;
  else
    Result.Words = Offset.empty() ? Term.Name : Term.Name + (Negative ? u" minus " : u" plus ") + Shown;
  return Result;
}

/// Value of a result without a unit: what the field makes of the same number typed by hand.
double PlainResult(double Count, const TTerm& Term, const TField& Field) {
  const std::u16string Text = FloatToStr(Count);
  if (Field.Check(Text)) return Field.StoreBase(Text);
  if (Field.IsFractional && Count != std::trunc(Count))
    Refuse(TTypedProblem::MissingMark, Term.End, Text + u" needs a mark here: feet or inches?");
  Refuse(TTypedProblem::Range, Term.Begin, Text + u" is outside the range of values");
}

/// The whole result as one quantity, for where the engine would read the expression otherwise.
std::u16string ResultText(const TTerm& Term, double Base, const TField& Field) {
  std::u16string Text;
  if (Term.Kind == TKind::Plain)
    Text = FloatToPlainStr(std::abs(Term.Value));
  else if (Field.Kind == TQuantityKind::Length && Term.Exact.IsExact())
    Text = LengthText((Term.Exact.IsNegative() ? -Term.Exact : Term.Exact) * TRational(5, 127), Field,
                      Term.Begin);
  else
    Text = NumberText(std::abs(Base), Field, Term.Begin);
  if (Base >= 0) return Text;
  return Text.find(u'/') == std::u16string::npos ? u"-" + Text : u"-(" + Text + u")";
}

/// True when the elevation functions read a text as this value.
bool IsStoredAs(std::u16string_view Text, double Base, double Largest) {
  double Metres = 0;
  return CheckElevEditValue(Text) && TryStrToFloat(GetElevStoreValue(Text), Metres) &&
         AgreeInSum(Metres * 1000, Base, Largest);
}

TExpressionValue Calculated(const TTerm& Term, const std::vector<TToken>& Tokens, const TField& Field) {
  TExpressionValue Result;
  const double Largest = LargestNumber(Tokens, Field);
  const double Value = EngineValue(Term.Engine);
  if (!AgreeInSum(Value, Term.Value, Largest))
    Refuse(TTypedProblem::Range, 0, u"the value cannot be computed with enough digits");
  Result.Base = Term.Kind == TKind::Plain ? PlainResult(Value, Term, Field) : Value;
  Result.Text = Term.Text;
  if (Field.Measure != ElevationMeasure || IsStoredAs(Result.Text, Result.Base, Largest)) return Result;
  Result.Text = ResultText(Term, Result.Base, Field);
  if (!IsStoredAs(Result.Text, Result.Base, Largest))
    Refuse(TTypedProblem::Range, 0, u"this value cannot be written as an elevation");
  return Result;
}

/// One quantity, with a sign at most: the same as in a field of single values.
TExpressionValue Alone(const TQuantity& Quantity, bool Negative, const TField& Field) {
  const TRewritten Rewritten = Rewrite(Quantity, Field);
  TExpressionValue Result;
  Result.IsLone = true;
  Result.Base = Negative ? -Rewritten.Base : Rewritten.Base;
  const bool HasFraction = Rewritten.Text.find(u'/') != std::u16string::npos;
  std::u16string Text = Rewritten.Text;
  if (HasFraction && Text.back() != u'"') Text += u'"'; // which the engine needs
  Result.Text = !Negative ? Text : HasFraction ? u"-(" + Text + u")" : u"-" + Text;
  Result.Words = (Negative ? u"minus " : u"") + QuantityWords(Quantity, Field);
  if (Field.Measure == ElevationMeasure && !IsStoredAs(Result.Text, Result.Base, 0))
    Refuse(TTypedProblem::Range, Quantity.Begin, u"this value cannot be written as an elevation");
  return Result;
}

} // namespace

TExpressionValue ReadExpression(const std::vector<TToken>& Tokens, std::u16string_view Text,
                                const TField& Field, TNotes& Notes) {
  TReader Reader(Tokens, Text, Field, Notes);
  const TTerm Term = Reader.Read();
  if (!Field.Unit) Refuse(TTypedProblem::Field, 0, u"the unit of this field reads its own texts only");
  if (Term.Kind == TKind::Named) return Named(Term, Field);
  if (Reader.IsLone() && Reader.Lone()) return Alone(*Reader.Lone(), Reader.IsNegative(), Field);
  return Calculated(Term, Tokens, Field);
}

} // namespace unitlib::typing
