#include "apps/takeoff/Arithmetic.h"

#include "apps/takeoff/Errors.h"
#include "unitlib/convert/ImperialText.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace unitlib::takeoff {
namespace {

// The expression engine's own words.
constexpr std::u16string_view AddMixed = u"imperial number can not add with const!";
constexpr std::u16string_view SubMixed = u"imperial number can not sub with const!";
constexpr std::u16string_view MulLengths = u"imperial can not mul by imperial!";
constexpr std::u16string_view DivByZero = u"can not div by zero!";
constexpr std::u16string_view DivNumber = u"not imperial can not div by imperial!";
constexpr std::u16string_view DivLengths = u"imperial can not div by imperial!";

[[noreturn]] void Refuse(std::u16string_view Problem) {
  throw ERefused(std::u16string(Problem));
}

std::u16string Quoted(std::u16string_view Text) {
  return u"\"" + std::u16string(Text) + u"\"";
}

/// The tree of a text; never null.
std::unique_ptr<TNode> Parse(std::u16string_view Text) {
  if (Text.size() > MaxTypedLength)
    Refuse(u"the text is longer than " + IntToStr(MaxTypedLength) + u" characters");
  TParser Parser(Text);
  auto Root = Parser.Parse();
  if (Parser.FHasError && !Parser.FErrMsg.empty()) Refuse(Parser.FErrMsg);
  if (Parser.FHasError || !Root) Refuse(u"this cannot be read");
  return Root;
}

/// Evaluates two trees of equal shape side by side: in one every foot and inch counts its millimetres, in the
/// other it counts nothing. An operand that differs between them is a length.
class TEvaluation {
public:
  explicit TEvaluation(const TArithmeticRules& Rules) : FRules(Rules) {}

  TAmount Value(const TNode& InMm, const TNode& AsZero) const {
    if (InMm.FNodeType != AsZero.FNodeType) Refuse(u"this cannot be read");
    TAmount Amount = InMm.FNodeType == ntOp ? Operation(InMm, AsZero) : Operand(InMm, AsZero);
    if (InMm.FIsNegative) Amount.Value = -Amount.Value;
    if (!std::isfinite(Amount.Value)) Refuse(u"the result is too large");
    return Amount;
  }

private:
  TAmount Operand(const TNode& InMm, const TNode& AsZero) const {
    const bool Changed = InMm.FValue != AsZero.FValue;
    if (InMm.FIsVar) {
      if (Changed) Refuse(Quoted(InMm.FValue) + u" is neither a number, nor a length, nor a name");
      if (FRules.Names) return {0, true};
    }
    if (InMm.FIsVar || InMm.FIsImperial)
      Refuse(Quoted(InMm.FValue) +
             (FRules.Lengths ? u" is neither a number nor a length" : u" is not a number"));
    return {InMm.FDoubleValue, Changed};
  }

  TAmount Operation(const TNode& InMm, const TNode& AsZero) const {
    const TAmount Left = Value(*InMm.FLeft, *AsZero.FLeft);
    const TAmount Right = Value(*InMm.FRight, *AsZero.FRight);
    switch (InMm.FValue.front()) {
    case u'+':
      return Sum(Left, Right, 1, AddMixed);
    case u'-':
      return Sum(Left, Right, -1, SubMixed);
    case u'*':
      if (Left.IsLength && Right.IsLength) Refuse(MulLengths);
      return {Left.Value * Right.Value, Left.IsLength || Right.IsLength};
    default:
      return Quotient(Left, Right);
    }
  }

  TAmount Sum(TAmount Left, TAmount Right, double Sign, std::u16string_view Mixed) const {
    if (Left.IsLength != Right.IsLength) {
      TAmount& Plain = Left.IsLength ? Right : Left;
      if (FRules.PlainInMm == 0 && Plain.Value != 0)
        Refuse(Mixed); // 0 is 0 in every unit, and 0' looks like it
      Plain = {Plain.Value * FRules.PlainInMm, true};
    }
    return {Left.Value + Sign * Right.Value, Left.IsLength};
  }

  static TAmount Quotient(const TAmount& Left, const TAmount& Right) {
    if (!Right.IsLength && Right.Value == 0) Refuse(DivByZero);
    if (Right.IsLength) Refuse(Left.IsLength ? DivLengths : DivNumber);
    return {Left.Value / Right.Value, Left.IsLength};
  }

  const TArithmeticRules& FRules;
};

void CollectNames(const TNode& Node, std::vector<std::u16string>& Names) {
  if (Node.FNodeType == ntOp) {
    CollectNames(*Node.FLeft, Names);
    CollectNames(*Node.FRight, Names);
  } else if (Node.FIsVar) {
    Names.push_back(Node.FValue);
  }
}

/// Reads a text from left to right; blanks are skipped before each part.
class TScanner {
public:
  explicit TScanner(std::u16string_view Text) : FText(Text) {}

  bool Take(char16_t Mark) {
    SkipBlanks();
    const bool Found = FAt < FText.size() && FText[FAt] == Mark;
    FAt += Found ? 1 : 0;
    return Found;
  }

  bool TakeDigits(double& Value) {
    SkipBlanks();
    const std::size_t First = FAt;
    for (Value = 0; FAt < FText.size() && IsDigit(FText[FAt]); ++FAt)
      Value = Value * 10 + (FText[FAt] - u'0');
    return FAt > First;
  }

private:
  void SkipBlanks() {
    while (FAt < FText.size() && IsSpace(FText[FAt])) ++FAt;
  }

  std::u16string_view FText;
  std::size_t FAt = 0;
};

/// What stands behind a dash, when it is inches: 6"  1/2"  6 1/2"
struct TInches {
  bool Ok = false;
  bool IsFraction = false; // no whole inches before the fraction
  double Whole = 0;
};

TInches ReadInches(std::u16string_view Text) {
  TScanner Scanner(Text);
  TInches Inches;
  double Ignored = 0;
  Inches.Ok = Scanner.TakeDigits(Inches.Whole);
  Inches.IsFraction = Inches.Ok && Scanner.Take(u'/');
  if (Inches.IsFraction)
    Inches.Ok = Scanner.TakeDigits(Ignored);
  else if (Inches.Ok && Scanner.TakeDigits(Ignored))
    Inches.Ok = Scanner.Take(u'/') && Scanner.TakeDigits(Ignored);
  Inches.Ok = Inches.Ok && Scanner.Take(InchMark);
  return Inches;
}

bool IsAmbiguousDashAt(std::u16string_view Text, std::size_t Dash) {
  constexpr int InchesPerFoot = 12;
  const bool Spaced = IsSpace(Text[Dash - 1]) && Dash + 1 < Text.size() && IsSpace(Text[Dash + 1]);
  std::size_t Before = Dash;
  while (Before > 0 && IsSpace(Text[Before - 1])) --Before;
  if (Spaced || Before == 0) return false;
  const TInches Inches = ReadInches(Text.substr(Dash + 1));
  if (!Inches.Ok) return false;
  const char16_t Left = Text[Before - 1];
  return (Left == FootMark && (Inches.IsFraction || Inches.Whole < InchesPerFoot)) ||
         (IsDigit(Left) && Inches.IsFraction);
}

/// True when the digits of a run are separated by commas in groups of Size.
bool IsGrouped(std::u16string_view Run, std::size_t Size) {
  const std::u16string_view Whole = Run.substr(0, Run.find(u'.'));
  if (Run.find(u',', Whole.size()) != std::u16string_view::npos) return false;
  std::size_t Group = 0;
  bool First = true;
  for (std::size_t I = 0; I <= Whole.size(); ++I) {
    if (I < Whole.size() && Whole[I] != u',') {
      ++Group;
      continue;
    }
    if (First ? Group == 0 || Group > Size : Group != Size) return false;
    First = false;
    Group = 0;
  }
  return true;
}

} // namespace

TAmount Evaluate(std::u16string_view Text, const TArithmeticRules& Rules) {
  constexpr double MmPerMetre = 1000;
  if (!Rules.Lengths) {
    const auto Root = Parse(Text);
    return TEvaluation(Rules).Value(*Root, *Root);
  }
  const auto InMm = Parse(ReplaceImperialNumbers(Text, 0, MmPerMetre));
  const auto AsZero = Parse(ReplaceImperialNumbers(Text, 0, 0));
  return TEvaluation(Rules).Value(*InMm, *AsZero);
}

std::vector<std::u16string> NamesIn(std::u16string_view Text) {
  std::vector<std::u16string> Names;
  CollectNames(*Parse(Text), Names);
  return Names;
}

std::u16string WithoutBlanksAtBrackets(std::u16string_view Text) {
  constexpr std::u16string_view Brackets = u"()";
  std::u16string Result;
  for (std::size_t I = 0; I < Text.size(); ++I) {
    if (!IsSpace(Text[I])) {
      Result += Text[I];
      continue;
    }
    std::size_t Next = I;
    while (Next < Text.size() && IsSpace(Text[Next])) ++Next;
    const bool AtBracket = (Next < Text.size() && Brackets.find(Text[Next]) != Brackets.npos) ||
                           (!Result.empty() && Brackets.find(Result.back()) != Brackets.npos);
    if (!AtBracket) Result.append(Text.substr(I, Next - I));
    I = Next - 1;
  }
  return Result;
}

bool HasAmbiguousDash(std::u16string_view Text) noexcept {
  for (std::size_t I = 1; I < Text.size(); ++I)
    if (Text[I] == u'-' && IsAmbiguousDashAt(Text, I)) return true;
  return false;
}

bool HasMisplacedComma(std::u16string_view Text) noexcept {
  constexpr std::u16string_view NumberCharacters = u"0123456789,.";
  for (std::size_t I = 0; I < Text.size();) {
    const std::size_t Begin = Text.find_first_of(NumberCharacters, I);
    if (Begin == std::u16string_view::npos) return false;
    const std::size_t End = std::min(Text.find_first_not_of(NumberCharacters, Begin), Text.size());
    const std::u16string_view Run = Text.substr(Begin, End - Begin);
    if (Run.find(u',') != std::u16string_view::npos && !IsGrouped(Run, 3) && !IsGrouped(Run, 4)) return true;
    I = End;
  }
  return false;
}

} // namespace unitlib::takeoff
