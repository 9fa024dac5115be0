#include "unitlib/typing/ReadTyped.h"

#include "unitlib/convert/ImperialText.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/typing/Characters.h"
#include "unitlib/typing/Explanation.h"
#include "unitlib/typing/Expression.h"
#include "unitlib/typing/Refusal.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace unitlib {
namespace typing {

void Refuse(TTypedProblem Problem, std::size_t Offset, std::u16string Reason) {
  throw TRefusal{Problem, std::move(Reason), Offset, 0, 0, {}};
}

void Refuse(TTypedProblem Problem, std::size_t Offset, std::u16string Reason, std::size_t OfferBegin,
            std::size_t OfferEnd, std::vector<std::u16string> Offers) {
  throw TRefusal{Problem, std::move(Reason), Offset, OfferBegin, OfferEnd, std::move(Offers)};
}

namespace {

constexpr std::size_t MaxLength = 1000;

/// What a text was read as.
struct TResult {
  std::u16string Rewritten;
  std::u16string Words;
  bool HasValue = true;
  double Base = 0;
  bool ByFacade = false; // the facade read it as typed
};

bool IsOutside(char16_t C) {
  return C <= u' ' || IsBlank(C) || C == 0xFEFF; // a byte order mark comes with pasted texts
}

/// The text without what is around it; First receives where it starts.
std::u16string_view TrimTyped(std::u16string_view Text, std::size_t& First) {
  for (First = 0; First < Text.size() && IsOutside(Text[First]); ++First) {
  }
  std::size_t Last = Text.size();
  while (Last > First && IsOutside(Text[Last - 1])) --Last;
  return Text.substr(First, Last - First);
}

std::u16string WithNotes(std::u16string Words, const TNotes& Notes) {
  for (const std::u16string& Note : Notes) Words += u", " + Note;
  return Words;
}

/// True when the facade may be asked about a text: it takes commas out, whatever they stand for.
bool MayAskFacade(std::u16string_view Text, const TField& Field) {
  return !(Field.Options.DecimalComma && Text.find(u',') != std::u16string_view::npos);
}

std::u16string Typed(std::u16string_view Text, std::size_t Begin, std::size_t End) {
  return std::u16string(Text.substr(Begin, End - Begin));
}

/// What is left behind a single value.
[[noreturn]] void RefuseRest(std::u16string_view Text, const std::vector<TToken>& Tokens, std::size_t At,
                             const TQuantity& First, const TField& Field) {
  const TToken& Rest = Tokens[At];
  const std::u16string Number = Typed(Text, First.Begin, First.End);
  const bool Dashed = Rest.Kind == TTokenKind::Dash && StartsQuantity(Tokens[At + 1]);
  if (First.IsWholeNumber() && (Dashed || StartsQuantity(Rest))) {
    const std::u16string Behind = Typed(Text, Tokens[Dashed ? At + 1 : At].Begin, Text.size());
    std::vector<std::u16string> Offers;
    if (Field.IsImperialLength) Offers = {Number + u"' " + Behind + (IsEndWithSymbol(Behind) ? u"" : u"\"")};
    if (!Dashed) Offers.push_back(Number + Behind);
    Refuse(TTypedProblem::Ambiguous, Rest.Begin, u"two numbers without marks between them", First.Begin,
           Text.size(), std::move(Offers));
  }
  if (StartsQuantity(Rest)) Refuse(TTypedProblem::Order, Rest.Begin, u"a second number in one value");
  Refuse(TTypedProblem::Arithmetic, Rest.Begin, u"this field takes one value, no arithmetic");
}

/// In accounts brackets stand for a minus sign.
[[noreturn]] void RefuseBrackets(std::u16string_view Text, std::size_t Place) {
  std::vector<std::u16string> Offers;
  if (Place == 0 && Text.back() == u')')
    Offers = {Typed(Text, 1, Text.size() - 1), u"-" + Typed(Text, 1, Text.size() - 1)};
  Refuse(TTypedProblem::Ambiguous, Place, u"a value in brackets may be negative or not", 0, Text.size(),
         std::move(Offers));
}

/// A sign at the start, which moves At behind it.
bool ReadSign(const std::vector<TToken>& Tokens, std::size_t& At) {
  const TToken& Sign = Tokens[At];
  if (Sign.Kind != TTokenKind::Plus && Sign.Kind != TTokenKind::Dash) return false;
  if (Sign.Char == EmDash) Refuse(TTypedProblem::Ambiguous, Sign.Begin, u"a long dash is no minus sign here");
  ++At;
  return Sign.Kind == TTokenKind::Dash;
}

/// ByFacade    the facade reads the text too: what is left behind the value is then no matter of this layer
TResult ReadSingle(std::u16string_view Text, const TField& Field, bool ByFacade = false) {
  TNotes Notes;
  const std::vector<TToken> Tokens = Tokenize(Text, Field, Notes);
  std::size_t At = 0;
  const bool Negative = ReadSign(Tokens, At);
  if (Tokens[At].Kind == TTokenKind::Open) RefuseBrackets(Text, Tokens[At].Begin);
  const TQuantity Quantity = ReadQuantity(Tokens, At, Field, Notes);
  if (Tokens[At].Kind != TTokenKind::End && ByFacade)
    Refuse(TTypedProblem::Arithmetic, Tokens[At].Begin, u"not this layer's");
  if (Tokens[At].Kind != TTokenKind::End) RefuseRest(Text, Tokens, At, Quantity, Field);
  const TRewritten Rewritten = Rewrite(Quantity, Field);
  TResult Result;
  Result.Base = Negative ? -Rewritten.Base : Rewritten.Base;
  Result.Rewritten = (Negative ? u"-" : u"") + Rewritten.Text;
  Result.Words = (Negative ? u"minus " : u"") + QuantityWords(Quantity, Field);
  if (Quantity.LastUnmarked) AddNote(Notes, u"the last number read as inches");
  Result.Words = WithNotes(std::move(Result.Words), Notes);
  return Result;
}

/// Problems that a text has even where the facade reads it.
bool IsTrap(TTypedProblem Problem) {
  return Problem == TTypedProblem::Ambiguous || Problem == TTypedProblem::MissingMark;
}

[[noreturn]] void RefuseTwoReadings(const TField& Field, double One, double Other) {
  Refuse(TTypedProblem::Ambiguous, 0, u"this may be " + Field.Shown(One) + u" or " + Field.Shown(Other));
}

/// The facade's reading of a whole text, and the words of this layer where it reads the text too.
TResult ByFacade(std::u16string_view Text, const TField& Field) {
  TResult Result;
  Result.ByFacade = true;
  Result.Rewritten = Text;
  Result.Base = Field.StoreBase(Text);
  try {
    const TResult Own = ReadSingle(Text, Field, true);
    if (!Agree(Own.Base, Result.Base)) RefuseTwoReadings(Field, Result.Base, Own.Base);
    Result.Words = Own.Words;
  } catch (const TRefusal& Refusal) {
    if (IsTrap(Refusal.Problem)) throw;
    Result.Words = FacadeWords(Text, Result.Base, Field);
  }
  return Result;
}

TResult SingleValue(std::u16string_view Text, const TField& Field) {
  if (MayAskFacade(Text, Field) && Field.Check(Text)) return ByFacade(Text, Field);
  return ReadSingle(Text, Field);
}

/// An expression that the facade or the elevation functions read as another value is refused.
void RequireOneReading(std::u16string_view Text, const TField& Field, const TExpressionValue& Value) {
  if (Value.HasName || !MayAskFacade(Text, Field)) return;
  if (Field.Check(Text) && !Agree(Field.StoreBase(Text), Value.Base))
    RefuseTwoReadings(Field, Field.StoreBase(Text), Value.Base);
  double Metres = 0;
  if (Field.Measure != ElevationMeasure || !CheckElevEditValue(Text)) return;
  constexpr double MmPerMetre = 1000, Tolerance = 1e-6; // mm; sums may cancel
  if (TryStrToFloat(GetElevStoreValue(Text), Metres) && !Agree(Metres * MmPerMetre, Value.Base) &&
      std::abs(Metres * MmPerMetre - Value.Base) > Tolerance)
    RefuseTwoReadings(Field, Metres * MmPerMetre, Value.Base);
}

TResult ReadArithmetic(std::u16string_view Text, const TField& Field) {
  TNotes Notes;
  const std::vector<TToken> Tokens = Tokenize(Text, Field, Notes);
  const TExpressionValue Value = ReadExpression(Tokens, Text, Field, Notes);
  RequireOneReading(Text, Field, Value);
  TResult Result;
  Result.HasValue = !Value.HasName;
  Result.Base = Value.Base;
  Result.Rewritten = Value.Text;
  Result.Words = Value.Words.empty() ? u"calculated: " + ValueWords(Value.Base, Field) : Value.Words;
  Result.Words = WithNotes(std::move(Result.Words), Notes);
  return Result;
}

/// True for one operand that facade and engine read alike although this layer has its doubts: 5'13", 1e3.
bool IsOneOperand(std::u16string_view Text, const TField& Field) {
  const bool NoOperator = Text.find_first_of(u"+-*()", 1) == std::u16string_view::npos;
  const bool Marked = IsEndWithSymbol(Text) && Text.front() != u'-';
  if (!NoOperator || !Field.Check(Text) || !(IsNumeric(Text) || (Field.IsImperialLength && Marked)))
    return false;
  if (Field.Measure != ElevationMeasure) return true;
  double Metres = 0;
  return CheckElevEditValue(Text) && TryStrToFloat(GetElevStoreValue(Text), Metres) &&
         Agree(Metres * 1000, Field.StoreBase(Text));
}

TResult Expression(std::u16string_view Text, const TField& Field) {
  try {
    return ReadArithmetic(Text, Field);
  } catch (const TRefusal& Refusal) {
    if (IsTrap(Refusal.Problem) || !MayAskFacade(Text, Field) || !IsOneOperand(Text, Field)) throw;
    return ByFacade(Text, Field);
  }
}

/// What is shown of a value has to be readable again.
void RequireShowable(const TResult& Result, const TField& Field) {
  if (!Result.HasValue || Result.ByFacade) return;
  if (!std::isfinite(Result.Base) || Field.Shown(Result.Base).empty() ||
      !Field.Check(TMeasureDataManager::StoreToDisplay(Field.Measure, Result.Base, BaseScale)))
    Refuse(TTypedProblem::Range, 0, u"the value is outside the range that can be shown");
}

/// The text as the field shows its value: points are its decimal marks then, whatever the options say.
bool IsShownSo(std::u16string_view Text, const TResult& Result, const TField& Field) {
  if (!Result.HasValue) return false;
  return SameText(Text, Field.Shown(Result.Base)) ||
         SameText(Text, TMeasureDataManager::StoreToDisplay(Field.Measure, Result.Base, BaseScale));
}

/// 1.234 where a comma may be the decimal mark: the point may then separate thousands.
void RequireClearPoint(std::u16string_view Text, const TResult& Result, const TField& Field) {
  constexpr std::u16string_view Characters = u"0123456789,.";
  for (std::size_t Begin = 0, End = 0; (Begin = Text.find_first_of(Characters, End)) != Text.npos;) {
    End = std::min(Text.find_first_not_of(Characters, Begin), Text.size());
    const std::u16string Run(Text.substr(Begin, End - Begin));
    const std::size_t Point = Run.find(u'.');
    const bool Grouped = Point >= 1 && Point <= 3 && Run.size() == Point + 4 && Run.front() != u'0' &&
                         Run.find(u',') == Run.npos && Run.find(u'.', Point + 1) == Run.npos;
    if (!Grouped || IsShownSo(Text, Result, Field)) continue;
    Refuse(TTypedProblem::Ambiguous, Begin, u"the point may separate thousands or be the decimal mark", Begin,
           End, {Run.substr(0, Point) + Run.substr(Point + 1), Run + u"0"});
  }
}

TTypedReading Accepted(std::u16string_view Text, const TResult& Result, const TField& Field) {
  RequireShowable(Result, Field);
  TTypedReading Reading;
  Reading.Accepted = true;
  Reading.Rewritten = Result.Rewritten;
  Reading.HasValue = Result.HasValue;
  const int Scale = Field.Options.ScaleIndex;
  if (Result.HasValue)
    Reading.StoreValue = Result.ByFacade ? Field.Store(Result.Rewritten, Scale)
                                         : Result.Base / TCommonUnitParser::GetMScale(Scale);
  Reading.Understood = Result.Words;
  Reading.Steps = Explain(Text, Reading, Result.Base, Field);
  return Reading;
}

TTypedReading ReadIn(std::u16string_view Text, const TField& Field) {
  if (Text.empty()) Refuse(TTypedProblem::Empty, 0, u"there is nothing to read");
  if (Text.size() > MaxLength)
    Refuse(TTypedProblem::TooLong, MaxLength,
           u"the text is longer than " + IntToStr(MaxLength) + u" characters");
  RequireClearCommas(Text, Field);
  const TResult Result = Field.IsExpression() ? Expression(Text, Field) : SingleValue(Text, Field);
  if (Field.Options.DecimalComma) RequireClearPoint(Text, Result, Field);
  return Accepted(Text, Result, Field);
}

TTypedReading Refused(const TRefusal& Refusal) {
  TTypedReading Reading;
  Reading.Problem = Refusal.Problem;
  Reading.Reason = Refusal.Reason;
  Reading.Offset = Refusal.Offset;
  return Reading;
}

/// The text with each offer in its place.
std::vector<std::u16string> Suggestions(std::u16string_view Text, const TRefusal& Refusal) {
  std::vector<std::u16string> Result;
  for (const std::u16string& Offer : Refusal.Offers)
    Result.push_back(Typed(Text, 0, Refusal.OfferBegin) + Offer + Typed(Text, Refusal.OfferEnd, Text.size()));
  return Result;
}

TTypedReading Read(int Measure, std::u16string_view Text, const TTypedOptions& Options) {
  std::size_t First = 0;
  const std::u16string_view Trimmed = TrimTyped(Text, First);
  try {
    return ReadIn(Trimmed, TField(Measure, Options));
  } catch (const TRefusal& Refusal) {
    TTypedReading Reading = Refused(Refusal);
    Reading.Offset = std::min(Refusal.Offset, Trimmed.size()) + First;
    Reading.Suggestions = Suggestions(Trimmed, Refusal);
    return Reading;
  }
}

} // namespace
} // namespace typing

TTypedReading ReadTyped(int Measure, std::u16string_view Text, const TTypedOptions& Options) {
  TTypedReading Reading = typing::Read(Measure, Text, Options);
  std::erase_if(Reading.Suggestions, [&](const std::u16string& Suggestion) {
    return !typing::Read(Measure, Suggestion, Options).Accepted;
  });
  return Reading;
}

std::u16string_view TypedProblemName(TTypedProblem Problem) noexcept {
  constexpr std::u16string_view Names[] = {
      u"none",         u"empty",        u"ambiguous", u"missing-mark", u"other-quantity",
      u"unknown-unit", u"not-a-number", u"fraction",  u"order",        u"arithmetic",
      u"name",         u"range",        u"too-long",  u"field"};
  return Names[static_cast<std::size_t>(Problem)];
}

} // namespace unitlib
