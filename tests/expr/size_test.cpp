/// Texts of a million characters (a tenth under sanitizers), on a stack of 1 MB, the default of a Windows thread.
#include "ExpressionTests.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>
#ifndef _WIN32
#include <pthread.h>
#endif

namespace unitlib::test {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr size_t Long = 100'000; // what takes a second for the library takes half a minute under them
#else
constexpr size_t Long = 1'000'000;
#endif

/// Calls Work on a thread whose stack has 1 MB.
void OnSmallStack(const std::function<void()>& Work) {
#ifdef _WIN32
  std::thread(Work).join();
#else
  pthread_attr_t Attributes;
  pthread_attr_init(&Attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&Attributes, 1 << 20), 0);
  pthread_t Thread;
  const auto Start = [](void* Given) -> void* {
    (*static_cast<const std::function<void()>*>(Given))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&Thread, &Attributes, Start, const_cast<std::function<void()>*>(&Work)), 0);
  pthread_join(Thread, nullptr);
  pthread_attr_destroy(&Attributes);
#endif
}

/// Unit as often as it fits into Length characters.
std::u16string Repeated(std::u16string_view Unit, size_t Length) {
  std::u16string Text;
  Text.reserve(Length);
  while (Text.size() + Unit.size() <= Length) Text += Unit;
  return Text;
}

/// Operand, then operator and operand as often as they fit into a long text.
std::u16string Chain(std::u16string_view First, std::u16string_view Next) {
  return std::u16string(First) + Repeated(Next, Long - First.size());
}

std::u16string Nested(std::u16string_view Open, std::u16string_view Middle, size_t Depth) {
  std::u16string Text;
  for (size_t I = 0; I < Depth; ++I) Text += Open;
  Text += Middle;
  return Text.append(Depth, u')');
}

struct TRow {
  const char* Name;
  std::function<std::u16string()> Text;
  std::u16string Message = {}; // of Parse
  std::u16string MergeMessage = {};
};

class Size : public TExpressionTest, public testing::WithParamInterface<TRow> {};

/// Every operation on the tree of a text, one after the other.
void UseTree(const std::u16string& Text, const std::u16string& Message, const std::u16string& MergeMessage) {
  TParser Parser(Text);
  auto Root = Parser.Parse();
  EXPECT_EQ(Parser.FErrMsg, Message);
  if (!Root) return;
  EXPECT_TRUE(Root->Clone());
  TParser Other(u"");
  Other.GetDoubleValue(*Root);
  TParser Writer(u"");
  const std::u16string Written = Writer.GetStoreValue(*Root);
  EXPECT_FALSE(Written.empty());
  Writer.GetEditValue(*Root);
  Writer.GetDisplayValue(*Root);
  Parser.Merge(Root);
  EXPECT_EQ(Parser.FErrMsg, MergeMessage);
  TParser Marker(u"");
  Marker.Mark(*Root);
  EXPECT_FALSE(Marker.GetStoreValue(*Root).empty() && !Marker.FHasError);
}

/// A cost that grew with the square of the length would take hours here; the limit of the whole program would
/// end it.
TEST_P(Size, IsNoMatterOfStackOrTime) {
  const std::u16string Text = GetParam().Text();
  OnSmallStack([&] { UseTree(Text, GetParam().Message, GetParam().MergeMessage); });
}

const std::u16string NoOperand = u"can not be nil afer operator";
const std::u16string TooDeep = u"too many nested brackets!";

INSTANTIATE_TEST_SUITE_P(
    Same, Size,
    testing::Values(TRow{"Opening", [] { return Repeated(u"(", Long); }, u"missing ) error!"},
                    TRow{"Closing", [] { return Repeated(u")", Long); }},
                    TRow{"Alternating", [] { return Repeated(u"()", Long); }, NoOperand},
                    TRow{"AlternatingOtherWay", [] { return Repeated(u")(", Long); }, u"unsupport function!"},
                    TRow{"Minus", [] { return Repeated(u"-", Long); }, NoOperand},
                    TRow{"Plus", [] { return Repeated(u"+", Long); }, NoOperand},
                    TRow{"Times", [] { return Repeated(u"*", Long); }, NoOperand},
                    TRow{"Bars", [] { return Repeated(u"/", Long); }, NoOperand},
                    TRow{"Blanks", [] { return Repeated(u" ", Long); }},
                    TRow{"FootMarks", [] { return Repeated(u"'", Long); },
                         u"Imperial format error: " + Repeated(u"'", Long)},
                    TRow{"Digits", [] { return Repeated(u"1", Long); }},
                    TRow{"DigitsAndMark", [] { return Repeated(u"1", Long - 1) + u"'"; },
                         u"Imperial format error: " + Repeated(u"1", Long - 1) + u"'"},
                    TRow{"DigitsWithBlanks", [] { return Repeated(u"1 ", Long - 2) + u"1'"; },
                         u"Imperial format error: " + Repeated(u"1 ", Long - 2) + u"1'"},
                    TRow{"MinusBeforeANumber", [] { return Repeated(u"-", Long - 2) + u"5"; }},
                    TRow{"Surrogates", [] { return std::u16string(Long, char16_t(0xD800)); }}),
    [](const auto& Info) { return Info.param.Name; });

INSTANTIATE_TEST_SUITE_P(Chains, Size,
                         testing::Values(TRow{"Sum", [] { return Chain(u"1", u"+1"); }},
                                         TRow{"Product", [] { return Chain(u"1", u"*1"); }},
                                         TRow{"Mixed", [] { return Chain(u"1", u"-1/1*1"); }},
                                         TRow{"Quotient", [] { return Chain(u"1", u"/1"); }},
                                         TRow{"VariableFirst", [] { return Chain(u"A", u"+1"); }},
                                         TRow{"VariableFirstTimes", [] { return Chain(u"A", u"*1"); }},
                                         TRow{"VariableLast", [] { return Chain(u"1", u"-1") + u"-A"; }},
                                         TRow{"Variables", [] { return Chain(u"A", u"+A"); }},
                                         TRow{"VariablesTimes", [] { return Chain(u"A", u"*A"); }},
                                         TRow{"VariablesAndNumbers", [] { return Chain(u"A", u"+1-A*2"); }},
                                         TRow{"Blocks", [] { return Chain(u"(1)", u"+(1)"); }},
                                         TRow{"NegativeBlocks", [] { return Chain(u"-(A)", u"-(A-1)"); }},
                                         TRow{"NegativeOperands", [] { return Chain(u"-1", u"--1"); }},
                                         TRow{"Feet", [] { return Chain(u"1'", u"+1'"); }},
                                         TRow{"Fractions", [] { return Chain(u"1/2\"", u"+1/2\""); }},
                                         TRow{"FeetAroundAVariable", [] { return Chain(u"A", u"+1'"); }}),
                         [](const auto& Info) { return Info.param.Name; });

INSTANTIATE_TEST_SUITE_P(
    Depth, Size,
    testing::Values(
        TRow{"Deepest", [] { return Nested(u"(", u"1", 1000); }},
        TRow{"DeepestSum", [] { return Nested(u"(1+", u"A", 1000); }},
        TRow{"DeepestNegation", [] { return Nested(u"-(A-", u"1", 1000); }},
        TRow{"OneDeeper", [] { return Nested(u"(", u"1", 1001); }, TooDeep},
        TRow{"OneDeeperBehindAnOperand", [] { return u"1+" + Nested(u"(", u"1", 1001); }, TooDeep},
        TRow{"HalfOfThat", [] { return Nested(u"(", u"", Long / 2); }, TooDeep},
        TRow{"DeepestAndWide", [] { return Nested(u"(", Chain(u"1", u"+1").substr(0, Long - 2001), 1000); }},
        TRow{"ManyDeep",
             [] {
               const std::u16string Group = Nested(u"(", u"1", 999);
               return Group + Repeated(u"+" + Group, Long - Group.size());
             }}),
    [](const auto& Info) { return Info.param.Name; });

TEST_F(Size, TreesMadeByHandAreFreedAndWalkedWithoutRecursion) {
  for (const bool ToTheRight : {false, true}) {
    auto Root = std::make_unique<TNode>();
    Root->FNodeType = ntNum;
    for (int I = 0; I < 500'000; ++I) {
      auto Op = std::make_unique<TNode>();
      Op->FNodeType = ntOp;
      Op->FValue = u"+";
      (ToTheRight ? Op->FRight : Op->FLeft) = std::move(Root);
      auto& Free = ToTheRight ? Op->FLeft : Op->FRight;
      Free = std::make_unique<TNode>();
      Free->FNodeType = ntNum;
      Free->FDoubleValue = 1;
      Root = std::move(Op);
    }
    OnSmallStack([&] {
      TParser Parser(u"");
      EXPECT_EQ(Parser.GetDoubleValue(*Root), 500'000);
      auto Copy = Root->Clone();
      Parser.Merge(Copy);
      EXPECT_EQ(Copy->FValue, u"500000");
      Root.reset();
    });
  }
}

} // namespace
} // namespace unitlib::test
