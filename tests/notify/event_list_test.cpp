/// The generic list of listeners and the typed one.
#include "unitlib/notify/ZELUnitRefreshUtils.h"

#include "unitlib/rtl/Errors.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace unitlib {
namespace {

/// Writes its name into a common log when called, then does what it was told.
struct TListener {
  std::string& Log;
  std::string Name;
  std::function<void()> Then = {};
  void Call() {
    Log += Name;
    if (Then) Then();
  }
  void CallToo() { Call(); }
  THRXRefreshUnit Event() { return MethodOf<&TListener::Call>(this); }
};

struct EventList : ::testing::Test {
  std::string Log;
  TListener A{Log, "a"}, B{Log, "b"}, C{Log, "c"};
  THRXRefreshUnitEventList List;
};

TEST(UnitEventList, StartsEmpty) {
  TUnitEventList List;
  EXPECT_EQ(List.GetCount(), 0);
  EXPECT_EQ(List.IndexOf(TMethod{}), -1);
}

TEST(UnitEventList, KeepsOrderAndDescriptions) {
  std::string Log;
  TListener A{Log, "a"}, B{Log, "b"};
  TUnitEventList List;
  List.Attach(A.Event(), u"first");
  List.Attach(B.Event(), u"second");
  EXPECT_EQ(List.GetCount(), 2);
  EXPECT_EQ(List.GetMethodByIndex(0), A.Event());
  EXPECT_EQ(List.GetMethodByIndex(1), B.Event());
  EXPECT_EQ(List.GetDescriptions(0), u"first");
  EXPECT_EQ(List.GetDescriptions(1), u"second");
  EXPECT_EQ(List.IndexOf(B.Event()), 1);
}

TEST(UnitEventList, AttachingTwiceGivesTwoEntriesAndDetachTakesTheFirst) {
  std::string Log;
  TListener A{Log, "a"}, B{Log, "b"};
  TUnitEventList List;
  List.Attach(A.Event(), u"1");
  List.Attach(B.Event(), u"2");
  List.Attach(A.Event(), u"3");
  EXPECT_EQ(List.GetCount(), 3);
  EXPECT_EQ(List.IndexOf(A.Event()), 0);
  List.Detach(A.Event());
  ASSERT_EQ(List.GetCount(), 2);
  EXPECT_EQ(List.GetDescriptions(0), u"2");
  EXPECT_EQ(List.GetDescriptions(1), u"3");
  EXPECT_EQ(List.IndexOf(A.Event()), 1);
}

TEST(UnitEventList, DetachingAnAbsentListenerChangesNothing) {
  std::string Log;
  TListener A{Log, "a"}, B{Log, "b"};
  TUnitEventList List;
  List.Detach(A.Event());
  EXPECT_EQ(List.GetCount(), 0);
  List.Attach(A.Event(), u"kept");
  List.Detach(B.Event());
  ASSERT_EQ(List.GetCount(), 1);
  EXPECT_EQ(List.GetDescriptions(0), u"kept");
}

TEST(UnitEventList, SameCodeOnTwoObjectsAreTwoListeners) {
  std::string Log;
  TListener A{Log, "a"}, B{Log, "b"};
  EXPECT_TRUE(TUnitEventList::SameEvent(A.Event(), A.Event()));
  EXPECT_FALSE(TUnitEventList::SameEvent(A.Event(), B.Event()));
  EXPECT_FALSE(TUnitEventList::SameEvent(A.Event(), MethodOf<&TListener::CallToo>(&A)));
}

TEST(UnitEventList, IndexOutsideTheListRaises) {
  TUnitEventList List;
  EXPECT_THROW(List.GetMethodByIndex(0), EListError);
  EXPECT_THROW(List.GetDescriptions(-1), EListError);
}

TEST_F(EventList, TypedAttachStoresAnEmptyDescription) {
  List.Attach(A.Event());
  EXPECT_EQ(List.GetDescriptions(0), u"");
  EXPECT_TRUE(List.Exist(A.Event()));
  EXPECT_FALSE(List.Exist(B.Event()));
  EXPECT_EQ(List.GetItems(0), A.Event());
  EXPECT_EQ(List.Items(0), A.Event());
}

TEST_F(EventList, CallsInOrderOfAttachmentTwiceWhenAttachedTwice) {
  for (TListener* L : {&B, &A, &B}) List.Attach(L->Event());
  List.DoEvent();
  EXPECT_EQ(Log, "bab");
}

TEST_F(EventList, AnErrorStopsTheRunAndReachesTheCaller) {
  for (TListener* L : {&A, &B, &C}) List.Attach(L->Event());
  B.Then = [] { throw std::runtime_error("listener"); };
  EXPECT_THROW(List.DoEvent(), std::runtime_error);
  EXPECT_EQ(Log, "ab");
}

TEST_F(EventList, ListenerThatDetachesItselfLeavesTheOthersTheirTurn) {
  for (TListener* L : {&A, &B, &C}) List.Attach(L->Event());
  A.Then = [this] { List.Detach(A.Event()); };
  List.DoEvent();
  EXPECT_EQ(Log, "abc");
  EXPECT_EQ(List.GetCount(), 2);
}

TEST_F(EventList, ListenerDetachedBeforeItsTurnIsNotCalled) {
  for (TListener* L : {&A, &B, &C}) List.Attach(L->Event());
  A.Then = [this] {
    List.Detach(B.Event());
    List.Detach(C.Event());
  };
  List.DoEvent();
  EXPECT_EQ(Log, "a");
}

TEST_F(EventList, ListenerAttachedDuringTheRunWaitsForTheNext) {
  List.Attach(A.Event());
  A.Then = [this] {
    if (!List.Exist(B.Event())) List.Attach(B.Event());
  };
  List.DoEvent();
  EXPECT_EQ(Log, "a");
  List.DoEvent();
  EXPECT_EQ(Log, "aab");
}

} // namespace
} // namespace unitlib
