/// Method pointers: identity, calls, and functions whose code a linker may fold.
#include "unitlib/rtl/MethodPtr.h"

#include "unitlib/rtl/Prompt.h"
#include "unitlib/rtl/RefCntObject.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace unitlib {
namespace {

struct TCounter {
  int Count = 0;
  void Add() { ++Count; }
  void AddToo() { ++Count; } // the same code as Add, on purpose
  int Plus(int A, int B) const noexcept { return Count + A + B; }
  std::unique_ptr<int> Pass(std::unique_ptr<int> P) { return P; }
};

struct TOther {
  int Other = 0;
  virtual ~TOther() = default;
  virtual void Touch() { ++Other; }
};
struct TBoth : TOther, TCounter {
  void Touch() override { Other += 10; }
};

void CountUp(void* Context) {
  ++*static_cast<int*>(Context);
}
void CountUpToo(void* Context) {
  ++*static_cast<int*>(Context);
}
int Sum(void* Context, int A) {
  return A + (Context ? *static_cast<int*>(Context) : 0);
}

TEST(MethodPtr, IsSmallAndTrivial) {
  EXPECT_LE(sizeof(TMethodPtr<void()>), 3 * sizeof(void*));
  EXPECT_TRUE(std::is_trivially_copyable_v<TMethodPtr<void()>>);
}

TEST(MethodPtr, CallsTheMethodOnItsObject) {
  TCounter A, B;
  const auto Add = MethodOf<&TCounter::Add>(&B);
  Add();
  Add();
  EXPECT_EQ(A.Count, 0);
  EXPECT_EQ(B.Count, 2);
}

TEST(MethodPtr, PassesArgumentsAndResult) {
  TCounter A;
  A.Count = 100;
  const TMethodPtr<int(int, int)> Plus = MethodOf<&TCounter::Plus>(&A);
  EXPECT_EQ(Plus(20, 3), 123);
}

TEST(MethodPtr, BindsAConstObject) {
  const TCounter A{7};
  EXPECT_EQ(MethodOf<&TCounter::Plus>(&A)(0, 1), 8);
}

TEST(MethodPtr, MovesArgumentsThrough) {
  TCounter A;
  const auto Result = MethodOf<&TCounter::Pass>(&A)(std::make_unique<int>(5));
  EXPECT_EQ(*Result, 5);
}

TEST(MethodPtr, SameMethodAndObjectAreEqual) {
  TCounter A;
  EXPECT_EQ(MethodOf<&TCounter::Add>(&A), MethodOf<&TCounter::Add>(&A));
}

TEST(MethodPtr, SameCodeOnTwoObjectsDiffers) {
  TCounter A, B;
  EXPECT_FALSE(MethodOf<&TCounter::Add>(&A) == MethodOf<&TCounter::Add>(&B));
}

TEST(MethodPtr, TwoMethodsWithEqualBodiesDiffer) {
  TCounter A;
  EXPECT_FALSE(MethodOf<&TCounter::Add>(&A) == MethodOf<&TCounter::AddToo>(&A));
}

TEST(MethodPtr, TwoFunctionsWithEqualBodiesDiffer) {
  int Count = 0;
  const auto First = MethodOf<&CountUp>(&Count);
  const auto Second = MethodOf<&CountUpToo>(&Count);
  EXPECT_FALSE(First == Second);
  First();
  Second();
  EXPECT_EQ(Count, 2);
}

TEST(MethodPtr, FunctionKnownAtRunTime) {
  int Count = 3, Other = 3;
  const auto Add = TMethodPtr<int(int)>::OfFunction(&Sum, &Count);
  EXPECT_EQ(Add(4), 7);
  EXPECT_EQ(Add, TMethodPtr<int(int)>::OfFunction(&Sum, &Count));
  EXPECT_FALSE(Add == TMethodPtr<int(int)>::OfFunction(&Sum, &Other));
  EXPECT_FALSE(TMethodPtr<int(int)>::OfFunction(nullptr, &Count));
}

TEST(MethodPtr, FunctionMayHaveNoContext) {
  const auto Add = TMethodPtr<int(int)>::Of<&Sum>(nullptr);
  ASSERT_TRUE(Add);
  EXPECT_EQ(Add(4), 4);
}

TEST(MethodPtr, InheritedMethodIsOneWhateverTheRoute) {
  TBoth Both;
  TCounter* Base = &Both; // at another address than the whole object
  const auto Direct = MethodOf<&TCounter::Add>(Base);
  EXPECT_EQ(Direct, MethodOf<&TCounter::Add>(&Both));
  EXPECT_EQ(Direct, MethodOf<&TBoth::Add>(&Both));
  Direct();
  EXPECT_EQ(Both.Count, 1);
}

TEST(MethodPtr, VirtualMethodCallsTheOverride) {
  TBoth Both;
  MethodOf<&TOther::Touch> (&Both)();
  EXPECT_EQ(Both.Other, 10);
}

TEST(MethodPtr, EmptyDoesNothingAndReturnsTheDefault) {
  const TMethodPtr<int(int)> Empty;
  EXPECT_FALSE(Empty);
  EXPECT_EQ(Empty(9), 0);
  EXPECT_FALSE(MethodOf<&TCounter::Add>(static_cast<TCounter*>(nullptr)));
}

TEST(MethodPtr, ComesBackFromItsErasedForm) {
  TCounter A;
  const TMethod Erased = MethodOf<&TCounter::Add>(&A);
  TMethodPtr<void()> Back(Erased);
  Back();
  EXPECT_EQ(A.Count, 1);
  EXPECT_EQ(Back, MethodOf<&TCounter::Add>(&A));
}

struct TSpeaker {
  std::u16string Said;
  void Say(std::u16string_view Text, std::u16string_view Title) {
    Said += std::u16string(Title) + u": " + std::u16string(Text);
  }
};

TEST(Prompt, WithoutHookAndBoxNothingHappens) {
  EXPECT_NO_THROW(ShowPrompt(u"text", u"title"));
}

TEST(Prompt, HostsHookGoesBeforeTheBox) {
  TSpeaker Hook, Box;
  EXPECT_FALSE(SetPromptBox(MethodOf<&TSpeaker::Say>(&Box)));
  ShowPrompt(u"a", u"Format");
  EXPECT_FALSE(SetPromptHook(MethodOf<&TSpeaker::Say>(&Hook)));
  ShowPrompt(u"b", u"Format");
  EXPECT_TRUE(SetPromptHook({}) == MethodOf<&TSpeaker::Say>(&Hook));
  EXPECT_TRUE(SetPromptBox({}) == MethodOf<&TSpeaker::Say>(&Box));
  ShowPrompt(u"c", u"Format");
  EXPECT_EQ(Box.Said, u"Format: a");
  EXPECT_EQ(Hook.Said, u"Format: b");
}

struct TCounted : TQuillRefCntIntfObject {
  explicit TCounted(int& AAlive) : Alive(AAlive) { ++Alive; }
  ~TCounted() override { --Alive; }
  int& Alive;
};

TEST(RefCntObject, LastReleaseFrees) {
  int Alive = 0;
  auto* Object = std::make_unique<TCounted>(Alive).release();
  EXPECT_EQ(Object->RefCount(), 0);
  EXPECT_EQ(Object->AddRef(), 1);
  EXPECT_EQ(Object->AddRef(), 2);
  EXPECT_EQ(Object->Release(), 1);
  EXPECT_EQ(Alive, 1);
  EXPECT_EQ(Object->Release(), 0);
  EXPECT_EQ(Alive, 0);
}

TEST(RefCntObject, UncountedIsFreedByItsOwner) {
  int Alive = 0;
  { TCounted Object(Alive); }
  EXPECT_EQ(Alive, 0);
}

} // namespace
} // namespace unitlib
