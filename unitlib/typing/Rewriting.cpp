#include "unitlib/typing/Rewriting.h"

#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/typing/Refusal.h"

#include <charconv>
#include <cmath>

namespace unitlib::typing {
namespace {

constexpr std::int64_t MaxPart = 999'999'999'999'999; // 15 digits, the most that an imperial text holds

/// A parser of the library by itself, for a unit that need not be the field's.
double ReadByClass(std::u16string_view Class, std::u16string_view Text) {
  TUnit Unit;
  const auto Parser = GetUnitParser(Class, &Unit);
  if (!Parser) Refuse(TTypedProblem::Field, 0, u"the library's unit parsers are missing");
  try {
    return Parser->AsDouble(Text, BaseScale);
  } catch (const EConvertError& Error) {
    Refuse(TTypedProblem::Range, 0, Error.Message());
  } catch (const ERangeError& Error) {
    Refuse(TTypedProblem::Range, 0, Error.Message());
  }
}

/// 17 digits, without an exponent.
std::u16string LongText(double Value) {
  char Digits[400];
  const auto End = std::to_chars(Digits, Digits + sizeof Digits, Value, std::chars_format::fixed).ptr;
  return std::u16string(Digits, End);
}

std::u16string MissingMarkReason(const TQuantity& Quantity) {
  return Quantity.Words() + u" needs a mark here: feet or inches?";
}

[[noreturn]] void RefuseUnmarked(const TQuantity& Quantity) {
  const std::u16string& Number = Quantity.Parts.front().Words;
  Refuse(TTypedProblem::MissingMark, Quantity.End, MissingMarkReason(Quantity), Quantity.Begin, Quantity.End,
         {Number + u" ft", Number + u" in"});
}

/// A number without a unit counts the field's own.
TRewritten RewritePlain(const TQuantity& Quantity, const TField& Field) {
  const TPart& Part = Quantity.Parts.front();
  if (Field.IsFractional && Part.HasPoint) RefuseUnmarked(Quantity);
  if (Field.IsDecimalFeet && Part.IsFraction) RefuseUnmarked(Quantity);
  TRewritten Result;
  Result.Text = Field.IsImperialLength && Part.IsFraction ? Part.Words : DecimalText(Part.Value);
  if (!Field.Check(Result.Text))
    Refuse(TTypedProblem::Range, Quantity.Begin, Result.Text + u" is outside the range of values");
  Result.Base = Field.StoreBase(Result.Text);
  return Result;
}

TRewritten RewriteFeetInches(const TQuantity& Quantity, const TField& Field) {
  const TRational Inches = Quantity.Inches();
  TRewritten Result;
  Result.Text = LengthText(Inches, Field, Quantity.Begin);
  Result.Base = ReadByClass(u"TFeetAndFractionalInchParser", FeetInchText(Inches, Quantity.Begin));
  return Result;
}

/// A metric length as inches: an exact fraction of 127ths.
std::u16string MetricInFeet(const TPart& Part, const TQuantity& Quantity) {
  const TRational Mm = Part.Value * TRational(static_cast<std::int64_t>(Part.Unit->InBase));
  return FeetInchText(Mm * TRational(5, 127), Quantity.Begin); // 25.4 mm, exact: international inch, 1959
}

TRewritten RewriteUnit(const TQuantity& Quantity, const TField& Field) {
  const TPart& Part = Quantity.Parts.front();
  const TUnitRow& Unit = *Part.Unit;
  const TRational Count = Part.Value * TRational(Unit.Num, Unit.Den);
  if (!Count.IsExact()) Refuse(TTypedProblem::Range, Quantity.Begin, u"more digits than can be kept");
  TRewritten Result;
  Result.Base = ReadByClass(Unit.ParserClass, DecimalText(Count));
  if (Part.Unit == Field.Unit)
    Result.Text = DecimalText(Count);
  else if (Field.IsImperialLength)
    Result.Text = MetricInFeet(Part, Quantity);
  else
    Result.Text = NumberText(Result.Base, Field, Quantity.Begin);
  return Result;
}

void RequireSameKind(const TQuantity& Quantity, const TField& Field) {
  if (Quantity.IsPlain() || Quantity.Kind() == Field.Kind) return;
  Refuse(TTypedProblem::OtherQuantity, Quantity.Begin,
         Quantity.Words() + u" is " + std::u16string(KindName(Quantity.Kind())) + u"; here is " +
             std::u16string(KindName(Field.Kind)) + u" needed");
}

/// The second computation.
double Expected(const TQuantity& Quantity, const TField& Field) {
  double Sum = 0;
  for (const TPart& Part : Quantity.Parts) {
    const bool Fraction = Part.IsFraction && !Part.Unit && Field.IsImperialLength;
    const double Size = Part.Unit ? Part.Unit->InBase : Fraction ? 25.4 : Field.Unit ? Field.Unit->InBase : 0;
    Sum += Part.Value.AsDouble() * Size;
  }
  return Sum;
}

} // namespace

bool Agree(double A, double B) noexcept {
  constexpr double Relative = 1e-11;
  return std::abs(A - B) <= Relative * std::max(std::abs(A), std::abs(B));
}

std::u16string FeetInchText(const TRational& Inches, std::size_t Place) {
  if (!Inches.IsExact()) Refuse(TTypedProblem::Range, Place, u"more digits than an imperial length holds");
  const std::int64_t Whole = Inches.Num() / Inches.Den(), Rest = Inches.Num() % Inches.Den();
  if (Whole / 12 > MaxPart || Inches.Den() > MaxPart)
    Refuse(TTypedProblem::Range, Place, u"more digits than an imperial length holds");
  std::u16string Text = Whole >= 12 ? IntToStr(Whole / 12) + u"'" : std::u16string();
  const std::u16string Fraction = IntToStr(Rest) + u"/" + IntToStr(Inches.Den());
  const std::int64_t InFoot = Whole % 12;
  if (Rest == 0 && InFoot == 0 && Whole > 0) return Text;
  if (Rest == 0) return Text + IntToStr(InFoot) + u"\"";
  return Text + (InFoot == 0 ? Fraction : IntToStr(InFoot) + u" " + Fraction) + u"\"";
}

std::u16string NumberText(double Base, const TField& Field, std::size_t Place) {
  const double Scale = Field.Parser->GetScale(BaseScale);
  const double Quotient = Base / Scale;
  if (!std::isfinite(Quotient)) Refuse(TTypedProblem::Range, Place, u"the value is too large");
  std::u16string Text = FloatToPlainStr(Quotient);
  if (!Field.Check(Text)) Refuse(TTypedProblem::Range, Place, u"the value is outside the range of the field");
  if (Field.StoreBase(Text) == Base) return Text; // 15 digits are enough, mostly
  Text = LongText(Quotient);
  for (const double Towards : {-INFINITY, INFINITY}) {
    const std::u16string Beside = LongText(std::nextafter(Quotient, Towards));
    if (std::abs(Field.StoreBase(Beside) - Base) < std::abs(Field.StoreBase(Text) - Base)) Text = Beside;
  }
  return Text;
}

std::u16string LengthText(const TRational& Inches, const TField& Field, std::size_t Place) {
  if (Field.IsImperialLength) return FeetInchText(Inches, Place);
  const std::int64_t Tenths = static_cast<std::int64_t>(Field.Unit->InBase) * 10; // of a millimetre
  const TRational Count = Inches * TRational(254, Tenths);
  if (!Count.IsExact()) Refuse(TTypedProblem::Range, Place, u"more digits than a length holds");
  return DecimalText(Count);
}

TRewritten Rewrite(const TQuantity& Quantity, const TField& Field) {
  if (!Field.Unit)
    Refuse(TTypedProblem::Field, Quantity.Begin, u"the unit of this field reads its own texts only");
  RequireSameKind(Quantity, Field);
  TRewritten Result = Quantity.IsPlain()        ? RewritePlain(Quantity, Field)
                      : Quantity.IsFeetInches() ? RewriteFeetInches(Quantity, Field)
                                                : RewriteUnit(Quantity, Field);
  const bool Read = Field.Check(Result.Text);
  if (!Read || !Agree(Field.StoreBase(Result.Text), Result.Base) ||
      !Agree(Expected(Quantity, Field), Result.Base))
    Refuse(TTypedProblem::Range, Quantity.Begin, u"this value cannot be written in the unit of the field");
  return Result;
}

} // namespace unitlib::typing
