/// No wrong number: random expressions against a second evaluator, plain recursive and in exact fractions.
#include "ExpressionTests.h"
#include "unitlib/rtl/Numbers.h"

#include <boost/multiprecision/cpp_int.hpp>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>
#include <random>

namespace unitlib::test {
namespace {

using TRational = boost::multiprecision::cpp_rational;

constexpr unsigned Seed = 4711;
constexpr int Expressions = 4000; // of every unit

// --- a random expression: what was meant, and how it is written ---

struct TTerm;

/// An operand or a bracket with its sign.
struct TFactor {
  std::u16string Text;  // of an operand, with its sign
  TRational Number = 0; // its value
  bool IsImperial = false;
  bool IsVariable = false;
  bool IsNegative = false; // of a bracket
  std::unique_ptr<TTerm> Bracket;
};

/// Operands and the operators between them, as they stand in the text.
struct TTerm {
  std::vector<TFactor> Factors;
  std::vector<char16_t> Operators;
};

class TMaker {
public:
  TMaker(std::mt19937& Random, bool IsImperialUnit)
      : FRandom(Random), FVariableLeft(Below(3) != 0), FImperialShare(IsImperialUnit ? Below(4) : 0) {}

  TTerm Term(int Depth) {
    TTerm Result;
    Result.Factors.push_back(Factor(Depth));
    for (unsigned Count = Below(4); Count > 0; --Count) {
      Result.Operators.push_back(u"+-+-*/"[Below(6)]);
      Result.Factors.push_back(Factor(Depth));
    }
    return Result;
  }

private:
  unsigned Below(unsigned Bound) { return static_cast<unsigned>(FRandom() % Bound); }

  TFactor Factor(int Depth) {
    TFactor Result;
    if (Depth > 0 && Below(5) < 2) {
      Result.IsNegative = Below(3) == 0;
      Result.Bracket = std::make_unique<TTerm>(Term(Depth - 1));
    } else if (FVariableLeft && Below(4) == 0) {
      FVariableLeft = false;
      Result.Text = u"Lv1";
      Result.IsVariable = true;
    } else {
      Operand(Result);
    }
    return Result;
  }

  void Operand(TFactor& Result) {
    if (Below(4) < FImperialShare)
      Length(Result);
    else
      Number(Result);
    const unsigned Sign = Below(8);
    const bool IsFraction = Result.Text.find(u'/') != std::u16string::npos; // a sign would split it
    if (Sign > 2 || (IsFraction && Sign == 0)) return;
    Result.Text = (Sign == 0 ? u"-" : Sign == 1 ? u"+" : u"--") + Result.Text;
    if (Sign == 0) Result.Number = -Result.Number;
  }

  void Number(TFactor& Result) {
    const unsigned Decimals = Below(3);
    const unsigned Digits = Below(Below(2) ? 20 : 20000);
    unsigned Scale = 1;
    for (unsigned I = 0; I < Decimals; ++I) Scale *= 10;
    std::string Text = std::to_string(Digits / Scale);
    if (Decimals > 0) Text += "." + std::to_string(Scale + Digits % Scale).substr(1);
    Result.Text = FromUtf8(Text);
    Result.Number = TRational(Digits, Scale);
  }

  void Length(TFactor& Result) {
    const unsigned Feet = Below(60), Inches = Below(12), Numerator = 1 + Below(15);
    const std::string F = std::to_string(Feet) + "'", I = std::to_string(Inches);
    TRational Total;
    std::string Text;
    switch (Below(4)) {
    case 0:
      Text = F;
      Total = Feet * 12;
      break;
    case 1:
      Text = I + "\"";
      Total = Inches;
      break;
    case 2:
      Text = F + " " + I + " " + std::to_string(Numerator) + "/16\"";
      Total = Feet * 12 + Inches + TRational(Numerator, 16);
      break;
    default:
      Text = F + I + "\"";
      Total = Feet * 12 + Inches;
    }
    Result.Text = FromUtf8(Text);
    Result.Number = Total * TRational(254, 10000);
    Result.IsImperial = true;
  }

  std::mt19937& FRandom;
  bool FVariableLeft;
  unsigned FImperialShare; // of four operands
};

std::u16string Written(const TTerm& Term);

std::u16string Written(const TFactor& Factor) {
  if (!Factor.Bracket) return Factor.Text;
  return (Factor.IsNegative ? u"-(" : u"(") + Written(*Factor.Bracket) + u")";
}

std::u16string Written(const TTerm& Term) {
  std::u16string Text = Written(Term.Factors[0]);
  for (size_t I = 0; I < Term.Operators.size(); ++I) {
    const TFactor& Next = Term.Factors[I + 1];
    // "3/2\"" is one length, "3/(2\")" a division.
    const bool WouldBeAFraction = Term.Operators[I] == u'/' && Next.IsImperial;
    Text += Term.Operators[I] + (WouldBeAFraction ? u"(" + Next.Text + u")" : Written(Next));
  }
  return Text;
}

// --- the second evaluator ---

/// A value and the sum of the magnitudes that went into it, which bounds what rounding may change.
struct TExact {
  TRational Value;
  TRational Magnitude;
};

TRational Absolute(const TRational& Value) {
  return Value < 0 ? TRational(-Value) : Value;
}

/// Largest share of the magnitude that rounding to 15 digits at every step may amount to.
const TRational Rounding = TRational(1, 1'000'000'000'000);

/// Nothing where a divisor is 0 or not told from 0 by 15 digits, or a value leaves what an operand may be.
std::optional<TExact> Combined(char16_t Op, const TExact& Left, const TExact& Right) {
  TExact Result;
  if (Op == u'+' || Op == u'-') {
    Result.Value = Op == u'+' ? TRational(Left.Value + Right.Value) : TRational(Left.Value - Right.Value);
    Result.Magnitude = Left.Magnitude + Right.Magnitude;
  } else if (Op == u'*') {
    Result.Value = Left.Value * Right.Value;
    Result.Magnitude = Left.Magnitude * Right.Magnitude;
  } else {
    if (Absolute(Right.Value) <= Right.Magnitude / 1000) return std::nullopt;
    Result.Value = Left.Value / Right.Value;
    Result.Magnitude = Left.Magnitude * Right.Magnitude / (Right.Value * Right.Value);
  }
  if (Result.Magnitude > TRational(100'000'000'000'000)) return std::nullopt;
  return Result;
}

std::optional<TExact> Evaluated(const TTerm& Term, const TRational& Variable);

std::optional<TExact> Evaluated(const TFactor& Factor, const TRational& Variable) {
  if (!Factor.Bracket) {
    const TRational Value = Factor.IsVariable ? Variable : Factor.Number;
    return TExact{Value, Absolute(Value)};
  }
  auto Result = Evaluated(*Factor.Bracket, Variable);
  if (Result && Factor.IsNegative) Result->Value = -Result->Value;
  return Result;
}

/// Products first, then sums, both from left to right.
std::optional<TExact> Evaluated(const TTerm& Term, const TRational& Variable) {
  std::optional<TExact> Sum, Product = Evaluated(Term.Factors[0], Variable);
  char16_t Pending = 0;
  for (size_t I = 0; I < Term.Operators.size() && Product; ++I) {
    const auto Next = Evaluated(Term.Factors[I + 1], Variable);
    if (!Next) return std::nullopt;
    const char16_t Op = Term.Operators[I];
    if (Op == u'*' || Op == u'/') {
      Product = Combined(Op, *Product, *Next);
      continue;
    }
    Sum = Pending ? Combined(Pending, *Sum, *Product) : Product;
    if (!Sum) return std::nullopt;
    Pending = Op;
    Product = Next;
  }
  if (!Product || !Pending) return Product;
  return Combined(Pending, *Sum, *Product);
}

/// What a part is made of, for the rules of imperial lengths.
struct TKind {
  bool IsImperial = false; // folds to an imperial number
  bool HasVariable = false;
  bool HasImperial = false; // anywhere
  bool HasPlain = false;    // a plain number that is added or subtracted, anywhere
  bool Refused = false;     // by the rules for numbers, or a variable times or by imperial
};

TKind KindOf(const TTerm& Term);

TKind KindOf(const TFactor& Factor) {
  if (Factor.Bracket) return KindOf(*Factor.Bracket);
  TKind Kind;
  Kind.IsImperial = Kind.HasImperial = Factor.IsImperial;
  Kind.HasVariable = Factor.IsVariable;
  Kind.HasPlain = !Factor.IsImperial && !Factor.IsVariable;
  return Kind;
}

TKind KindOf(char16_t Op, const TKind& Left, const TKind& Right) {
  TKind Kind;
  Kind.HasVariable = Left.HasVariable || Right.HasVariable;
  Kind.HasImperial = Left.HasImperial || Right.HasImperial;
  Kind.HasPlain = Left.HasPlain || Right.HasPlain;
  Kind.Refused = Left.Refused || Right.Refused;
  const bool IsSum = Op == u'+' || Op == u'-';
  if (Kind.HasVariable) {
    Kind.Refused = Kind.Refused || (!IsSum && (Left.IsImperial || Right.IsImperial));
    return Kind;
  }
  Kind.IsImperial = Left.IsImperial || Right.IsImperial;
  if (IsSum)
    Kind.Refused = Kind.Refused || Left.IsImperial != Right.IsImperial;
  else
    Kind.Refused = Kind.Refused || (Right.IsImperial && (Op == u'/' || Left.IsImperial));
  return Kind;
}

TKind KindOf(const TTerm& Term) {
  std::optional<TKind> Sum;
  TKind Product = KindOf(Term.Factors[0]);
  char16_t Pending = 0;
  for (size_t I = 0; I < Term.Operators.size(); ++I) {
    const TKind Next = KindOf(Term.Factors[I + 1]);
    const char16_t Op = Term.Operators[I];
    if (Op == u'*' || Op == u'/') {
      Product = KindOf(Op, Product, Next);
      continue;
    }
    Sum = Pending ? KindOf(Pending, *Sum, Product) : Product;
    Pending = Op;
    Product = Next;
  }
  return Pending ? KindOf(Pending, *Sum, Product) : Product;
}

// --- the library's tree ---

/// Value of a tree in doubles; signs of blocks count.
double TreeValue(const TNode& Node, double Variable) {
  double Value = Node.FIsVar ? Variable : Node.FDoubleValue;
  if (Node.FNodeType == ntOp) {
    const double Left = TreeValue(*Node.FLeft, Variable), Right = TreeValue(*Node.FRight, Variable);
    Value = Node.FValue == u"+"   ? Left + Right
            : Node.FValue == u"-" ? Left - Right
            : Node.FValue == u"*" ? Left * Right
                                  : Left / Right;
  }
  return Node.FIsNegative ? -Value : Value;
}

struct TCounts {
  int Variables = 0, Numbers = 0, NegativeBlocks = 0;
};

void Count(const TNode& Node, TCounts& Counts) {
  Counts.NegativeBlocks += Node.FIsNegative;
  if (Node.FNodeType != ntOp) {
    ++(Node.FIsVar ? Counts.Variables : Counts.Numbers);
    if (Node.FIsVar) {
      EXPECT_EQ(Node.FValue, u"Lv1");
    }
    return;
  }
  Count(*Node.FLeft, Counts);
  Count(*Node.FRight, Counts);
}

constexpr double Variables[] = {7.25, -3.5, 1234.5, 0.0625};

void ExpectValues(const TNode& Root, const TTerm& Term, const char* What) {
  for (const double Variable : Variables) {
    const auto Wanted = Evaluated(Term, TRational(Variable));
    if (!Wanted) continue;
    const double Value = TreeValue(Root, Variable);
    ASSERT_TRUE(std::isfinite(Value)) << What << ": " << Described(Root);
    EXPECT_LE(Absolute(TRational(Value) - Wanted->Value), Rounding * Wanted->Magnitude)
        << What << ": " << Described(Root) << " with " << Variable << " is " << Value << ", not "
        << static_cast<double>(Wanted->Value);
  }
}

/// True when a step of the arithmetic is not defined or too large for some value of the variable.
bool IsUndefined(const TTerm& Term) {
  for (const double Variable : Variables)
    if (!Evaluated(Term, TRational(Variable))) return true;
  return false;
}

void ExpectStoreText(TParser& Parser, const TNode& Root, const TTerm& Term) {
  const std::u16string Text = Parser.GetStoreValue(Root);
  EXPECT_FALSE(Parser.FHasError);
  if (Root.FNodeType != ntOp && Text.find(u"E-") != std::u16string::npos) {
    EXPECT_EQ(Text, Root.FDoubleValue < 0 ? u"(" + Root.FStoreValue + u")" : Root.FStoreValue);
    return; // a small number alone keeps its exponent
  }
  TParser Reader(Text);
  const auto Again = Reader.Parse();
  ASSERT_FALSE(Reader.FHasError) << ToUtf8(Text) << ": " << ToUtf8(Reader.FErrMsg);
  ExpectValues(*Again, Term, "read again");
}

enum class TOutcome { Refused, Undefined, Checked };

TOutcome Check(const std::u16string& Text, const TTerm& Term) {
  TParser Parser(Text);
  auto Root = Parser.Parse();
  EXPECT_FALSE(Parser.FHasError) << ToUtf8(Parser.FErrMsg);
  if (Parser.FHasError) return TOutcome::Refused;
  ExpectValues(*Root, Term, "as read");
  TCounts Before, After;
  Count(*Root, Before);
  Parser.Merge(Root);
  const TKind Kind = KindOf(Term);
  if (IsUndefined(Term)) return TOutcome::Undefined;
  if (Kind.Refused) {
    EXPECT_TRUE(Parser.FHasError) << Described(Root);
    return TOutcome::Refused;
  }
  // Around a variable imperial and plain offsets may come together only when they are folded.
  if (Parser.FHasError && Kind.HasVariable && Kind.HasImperial && Kind.HasPlain) return TOutcome::Refused;
  EXPECT_FALSE(Parser.FHasError) << ToUtf8(Parser.FErrMsg);
  if (Parser.FHasError) return TOutcome::Refused;
  Count(*Root, After);
  EXPECT_EQ(After.Variables, Before.Variables);
  EXPECT_EQ(After.NegativeBlocks, 0);
  ExpectValues(*Root, Term, "merged");
  if (Before.Variables == 0) {
    EXPECT_EQ(Root->FNodeType, ntNum);
    EXPECT_EQ(Parser.GetDoubleValue(*Root), Root->FDoubleValue);
  }
  ExpectStoreText(Parser, *Root, Term);
  return TOutcome::Checked;
}

class Property : public TExpressionTest, public testing::WithParamInterface<TLengthUnit> {};

TEST_P(Property, ValueSurvivesMergingAndWriting) {
  Use(GetParam());
  std::mt19937 Random(Seed + GetParam());
  std::map<TOutcome, int> Outcomes;
  for (int I = 0; I < Expressions && !HasFailure(); ++I) {
    TMaker Maker(Random, GetParam() < Meters);
    const TTerm Term = Maker.Term(static_cast<int>(Random() % 7));
    const std::u16string Text = Written(Term);
    SCOPED_TRACE("seed " + std::to_string(Seed) + ", expression " + std::to_string(I) + ": " + ToUtf8(Text));
    ++Outcomes[Check(Text, Term)];
  }
  // The generator is worth something only when most expressions get to the end.
  EXPECT_GT(Outcomes[TOutcome::Checked], Expressions / 4);
}

INSTANTIATE_TEST_SUITE_P(Units, Property,
                         testing::Values(DecimalFeet, FeetAndInches, FractionalInches, Millimeters),
                         [](const auto& Info) { return "Unit" + std::to_string(Info.param); });

} // namespace
} // namespace unitlib::test
