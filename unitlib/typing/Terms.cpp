#include "unitlib/typing/Terms.h"

#include "unitlib/rtl/Numbers.h"
#include "unitlib/typing/Refusal.h"

namespace unitlib::typing {
namespace {

using TKind = TTerm::TKind;
const TRational MmPerInch(127, 5); // exact: international inch, 1959

TRational Inexact() {
  return TRational(0, 0);
}

TRational ExactOf(const TQuantity& Quantity) {
  if (Quantity.IsPlain()) return Quantity.Parts.front().Value;
  if (Quantity.IsFeetInches()) return Quantity.Inches() * MmPerInch;
  if (Quantity.Kind() != TQuantityKind::Length) return Inexact();
  const TPart& Part = Quantity.Parts.front();
  return Part.Value * TRational(static_cast<std::int64_t>(Part.Unit->InBase));
}

/// The engine takes no exponents and has no sign inside fractions.
std::u16string EngineNumber(double Value) {
  return FloatToPlainStr(Value);
}

/// A plain number beside feet and inches of a metric field is one of the field's unit, as for ExprToStore.
void CountInUnit(TTerm& Term, TKind& Kind, const TField& Field) {
  Term.Engine = u"((" + Term.Engine + u")*" + EngineNumber(Field.Unit->InBase) + u")";
  Term.Value *= Field.Unit->InBase;
  Term.Exact = Term.Exact * TRational(static_cast<std::int64_t>(Field.Unit->InBase));
  Term.OnlyMarks = true; // a third one may follow
  Kind = TKind::Amount;
}

TKind& OffsetKindOf(TTerm& Term) {
  return Term.Kind == TKind::Named ? Term.OffsetKind : Term.Kind;
}

[[noreturn]] void RefuseMixed(const TTerm& Plain) {
  Refuse(TTypedProblem::MissingMark, Plain.End, u"a plain number beside a length or amount: of which unit?");
}

/// Makes both terms count the same.
void Align(TTerm& Left, TTerm& Right, const TField& Field) {
  TKind &A = OffsetKindOf(Left), &B = OffsetKindOf(Right);
  if (Left.Kind == TKind::Named && !Left.HasOffset) A = B;
  if (Right.Kind == TKind::Named && !Right.HasOffset) B = A;
  if (A == B) return;
  TTerm& Plain = A == TKind::Plain ? Left : Right;
  TTerm& Amount = A == TKind::Plain ? Right : Left;
  const bool MetricLength = Field.Kind == TQuantityKind::Length && !Field.IsImperialLength;
  if (Plain.Value != 0 && !(MetricLength && Amount.OnlyMarks)) RefuseMixed(Plain);
  CountInUnit(Plain, OffsetKindOf(Plain), Field);
}

TTerm Sum(TTerm Left, TTerm Right, bool Minus, const TField& Field) {
  Align(Left, Right, Field);
  TTerm Result = Right.Kind == TKind::Named ? Right : Left;
  if (Left.Kind == TKind::Named && Right.Kind == TKind::Named)
    Refuse(TTypedProblem::Name, Right.Begin, u"a second name; one is allowed");
  if (Right.Kind == TKind::Named && Minus) Result.Sign = -Right.Sign;
  Result.Value = Minus ? Left.Value - Right.Value : Left.Value + Right.Value;
  Result.Exact = Minus ? Left.Exact - Right.Exact : Left.Exact + Right.Exact;
  Result.OnlyMarks = Left.OnlyMarks && Right.OnlyMarks;
  Result.HasOffset = Result.Kind == TKind::Named;
  Result.Text = Left.Text + (Minus ? u"-" : u"+") + Right.Text;
  Result.Engine = Left.Engine + (Minus ? u"-" : u"+") + Right.Engine;
  return Result;
}

TTerm Product(const TTerm& Left, const TTerm& Right, const TToken& Operator) {
  if (Left.Kind == TKind::Named || Right.Kind == TKind::Named)
    Refuse(TTypedProblem::Name, Operator.Begin, u"a name is neither multiplied nor divided");
  if (Left.Kind == TKind::Amount && Right.Kind == TKind::Amount)
    Refuse(TTypedProblem::OtherQuantity, Operator.Begin, u"two amounts are not multiplied here");
  TTerm Result = Left.Kind == TKind::Amount ? Left : Right;
  Result.Value = Left.Value * Right.Value;
  Result.Exact = Left.Exact * Right.Exact;
  Result.Text = Left.Text + u"*" + Right.Text;
  Result.Engine = Left.Engine + u"*" + Right.Engine;
  return Result;
}

TTerm Quotient(const TTerm& Left, const TTerm& Right, const TToken& Operator) {
  if (Left.Kind == TKind::Named || Right.Kind == TKind::Named)
    Refuse(TTypedProblem::Name, Operator.Begin, u"a name is neither multiplied nor divided");
  if (Right.Kind == TKind::Amount)
    Refuse(TTypedProblem::OtherQuantity, Operator.Begin, u"nothing is divided by an amount here");
  if (Right.Value == 0) Refuse(TTypedProblem::Arithmetic, Operator.Begin, u"a division by zero");
  TTerm Result = Left;
  Result.Value = Left.Value / Right.Value;
  Result.Exact = Left.Exact / Right.Exact;
  Result.Text = Left.Text + u"/" + Right.Text;
  Result.Engine = Left.Engine + u"/" + Right.Engine;
  return Result;
}

} // namespace

TTerm TermOf(const TQuantity& Quantity, const TField& Field) {
  TTerm Term;
  Term.Begin = Quantity.Begin;
  Term.End = Quantity.End;
  Term.Exact = ExactOf(Quantity);
  if (Quantity.IsPlain()) {
    Term.Text = Term.Engine = DecimalText(Term.Exact);
    Term.Value = Term.Exact.AsDouble();
    return Term;
  }
  const TRewritten Rewritten = Rewrite(Quantity, Field);
  Term.Kind = TKind::Amount;
  Term.OnlyMarks = Quantity.IsMarked();
  Term.Value = Rewritten.Base;
  Term.Text = Rewritten.Text;
  Term.Engine = EngineNumber(Rewritten.Base);
  return Term;
}

TTerm TermOfName(const TToken& Token) {
  TTerm Term;
  Term.Kind = TKind::Named;
  Term.Name = Term.Text = Token.Text;
  Term.Engine = u"0";
  Term.OnlyMarks = true;
  Term.Begin = Token.Begin;
  Term.End = Token.End;
  return Term;
}

void Negate(TTerm& Term) {
  Term.Value = -Term.Value;
  Term.Exact = -Term.Exact;
  Term.Sign = -Term.Sign;
  // The engine takes no sign before a fraction, nor before a name.
  const bool NeedsBrackets = !Term.InBrackets && Term.Text.find(u'/') != std::u16string::npos;
  Term.Text = NeedsBrackets ? u"-(" + Term.Text + u")" : u"-" + Term.Text;
  Term.InBrackets = false;
  Term.Engine = u"(0-" + Term.Engine + u")";
}

void SetBrackets(TTerm& Term) {
  Term.InBrackets = true;
  Term.Text = u"(" + Term.Text + u")";
  Term.Engine = u"(" + Term.Engine + u")";
}

TTerm Combine(const TTerm& Left, const TToken& Operator, const TTerm& Right, const TField& Field) {
  TTerm Result;
  switch (Operator.Kind) {
  case TTokenKind::Plus:
    Result = Sum(Left, Right, false, Field);
    break;
  case TTokenKind::Dash:
    Result = Sum(Left, Right, true, Field);
    break;
  case TTokenKind::Times:
    Result = Product(Left, Right, Operator);
    break;
  default:
    Result = Quotient(Left, Right, Operator);
  }
  Result.InBrackets = false;
  Result.Begin = Left.Begin;
  Result.End = Right.End;
  return Result;
}

} // namespace unitlib::typing
