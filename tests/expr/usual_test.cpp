/// The short ways of reading and merging: the same as the general ones.
#include "tests/expr/ExpressionTests.h"
#include "unitlib/rtl/Text.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>

namespace unitlib {
namespace {

class UsualTexts : public test::TExpressionTest {};

/// Every field of a tree.
std::string Fields(const TNode* Node) {
  if (!Node) return "-";
  const auto Bits = [](bool A, bool B, bool C, bool D, bool E) {
    return std::to_string(A) + std::to_string(B) + std::to_string(C) + std::to_string(D) + std::to_string(E);
  };
  return "[" + std::to_string(Node->FNodeType) + " " + ToUtf8(Node->FValue) + "|" +
         ToUtf8(Node->FStoreValue) + "|" + std::to_string(std::bit_cast<std::uint64_t>(Node->FDoubleValue)) +
         " " + Bits(Node->FIsBlock, Node->FIsNegative, Node->FIsVar, Node->FIsElev, Node->FIsImperial) + " " +
         std::to_string(Node->FPos) + Fields(Node->FLeft.get()) + Fields(Node->FRight.get()) + "]";
}

std::string Outcome(TParser& Parser) {
  const auto Root = Parser.Parse();
  return Fields(Root.get()) + " " + std::to_string(Parser.FHasError) + " " + ToUtf8(Parser.FErrMsg) + " " +
         std::to_string(Parser.FErrPos) + " " + std::to_string(Parser.FPoint);
}

std::u16string RandomText(std::mt19937& Random) {
  static constexpr std::u16string_view Pieces[] = {u"1",
                                                   u"23",
                                                   u"4.5",
                                                   u".5",
                                                   u"6.",
                                                   u"7",
                                                   u"123456789012345",
                                                   u"1234567890123456",
                                                   u"1.2.3",
                                                   u".",
                                                   u"0",
                                                   u"007",
                                                   u"1e5",
                                                   u"5'",
                                                   u"6\"",
                                                   u"1/2\"",
                                                   u"5'6 1/2\"",
                                                   u"5' 6\"",
                                                   u"3/4\"",
                                                   u"5''",
                                                   u"1/0\"",
                                                   u"5'/",
                                                   u"L1",
                                                   u"y\"",
                                                   u"\u00e9t\u00e9:",
                                                   u"A b",
                                                   u" ",
                                                   u"+",
                                                   u"-",
                                                   u"*",
                                                   u"/",
                                                   u"+",
                                                   u"-",
                                                   u"*",
                                                   u"/",
                                                   u"(",
                                                   u"(",
                                                   u"(",
                                                   u")",
                                                   u")",
                                                   u")",
                                                   u"-(",
                                                   u"\t",
                                                   u",",
                                                   u"(1)",
                                                   u"2*3",
                                                   u"(4-5)",
                                                   u"1000*",
                                                   u"/8\"",
                                                   u"1000000000000000"};
  std::u16string Text;
  for (auto Count = Random() % 14; Count > 0; --Count) Text += Pieces[Random() % std::size(Pieces)];
  return Text;
}

/// A parser whose text goes on behind its end reads everything the general way.
TEST_F(UsualTexts, AreReadAsTheGeneralReaderReadsThem) {
  constexpr unsigned Seed = 20261122;
  std::mt19937 Random(Seed);
  int Good = 0;
  for (int I = 0; I < 100'000; ++I) {
    Use(test::Every[Random() % test::Every.size()]);
    const std::u16string Text = RandomText(Random);
    if (TrimView(Text).empty()) continue;
    TParser Short(Text), General(Text);
    General.FString.push_back(u'1');
    const std::string Read = Outcome(Short);
    ASSERT_EQ(Read, Outcome(General)) << ToUtf8(Text) << ", seed " << Seed;
    Good += !Short.FHasError;
  }
  EXPECT_GT(Good, 10'000);
}

struct TUnclosed {
  const char* Name;
  std::u16string Text;
  std::u16string Message;
};

class UnclosedBrackets : public test::TExpressionTest, public ::testing::WithParamInterface<TUnclosed> {};

/// Reading goes on behind a bracket before its end is looked for; that is not to be noticed.
TEST_P(UnclosedBrackets, AreNamedBeforeWhatStandsInThem) {
  TParser Parser(GetParam().Text);
  EXPECT_EQ(Parser.Parse(), nullptr);
  EXPECT_TRUE(Parser.FHasError);
  EXPECT_EQ(Parser.FErrMsg, GetParam().Message);
  EXPECT_EQ(Parser.FErrPos, static_cast<std::int32_t>(GetParam().Text.size()));
  EXPECT_EQ(Parser.FPoint, Parser.FTotal);
}

const std::u16string MissingOpening = u"missing ( error!", MissingClosing = u"missing ) error!";

INSTANTIATE_TEST_SUITE_P(
    Of, UnclosedBrackets,
    ::testing::Values(TUnclosed{"Nothing", u"(", MissingClosing}, TUnclosed{"ASum", u"(1+2", MissingOpening},
                      TUnclosed{"TwoOpen", u"((1+2", MissingClosing},
                      TUnclosed{"OneOfTwo", u"((1+2)", MissingOpening},
                      TUnclosed{"TheSecond", u"(1+2)*(3-(4)", MissingOpening},
                      TUnclosed{"AnOperatorAtTheEnd", u"(1+", MissingOpening},
                      TUnclosed{"AName", u"(1+A", MissingOpening},
                      TUnclosed{"ALength", u"(5'6\"", MissingOpening},
                      TUnclosed{"ARefusedLength", u"(5''+1", MissingOpening},
                      TUnclosed{"AFunction", u"(1+f(2)", MissingOpening},
                      TUnclosed{"TooDeep", std::u16string(1001, u'(') + u"1", MissingClosing}),
    [](const auto& Info) { return std::string(Info.param.Name); });

struct TPair {
  const char* Name;
  std::u16string_view Text;
  std::u16string_view Twice; // the same in a shape that is taken apart
};

class UsualPairs : public test::TExpressionTest, public ::testing::WithParamInterface<TPair> {};

TEST_P(UsualPairs, BecomeWhatIsTakenApartBecomes) {
  TParser Parser(GetParam().Text), General(GetParam().Twice);
  auto Root = Parser.Parse(), Longer = General.Parse();
  Root->FStoreValue = u"stale"; // as a host may leave it
  Root->FDoubleValue = 7;
  Root->FIsElev = Root->FIsImperial = true;
  Parser.Merge(Root);
  General.Merge(Longer);
  Longer->FPos = Root->FPos;
  for (const auto& Tree : {&Root, &Longer})
    for (TNode* const Operand : {(*Tree)->FLeft.get(), (*Tree)->FRight.get()}) {
      Operand->FPos = 0;
      Operand->FValue = Operand->FStoreValue; // of a folded length: its metres
    }
  EXPECT_EQ(Fields(Root.get()), Fields(Longer.get()));
}

INSTANTIATE_TEST_SUITE_P(
    Of, UsualPairs,
    ::testing::Values(TPair{"ASum", u"A+5", u"A+3+2"}, TPair{"ADifference", u"A-5", u"A-3-2"},
                      TPair{"ANumberBefore", u"5-A", u"7-A-2"}, TPair{"AProduct", u"A*6", u"A*2*3"},
                      TPair{"AQuotient", u"6/A", u"12/A/2"}, TPair{"AnImperialLength", u"A+5'", u"A+3'+2'"}),
    [](const auto& Info) { return std::string(Info.param.Name); });

} // namespace
} // namespace unitlib
