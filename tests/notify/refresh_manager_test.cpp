/// The refresh manager: two lists without duplicates, the flag, errors and nested runs.
#include "unitlib/notify/ZELUnitRefreshUtils.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace unitlib {
namespace {

struct RefreshManager : ::testing::Test {
  TUnitRefreshManager Manager;
  int Calls = 0;
  std::function<void()> Then;
  void Listen() {
    ++Calls;
    if (Then) Then();
  }
  THRXRefreshUnit Event() { return MethodOf<&RefreshManager::Listen>(this); }
};

TEST_F(RefreshManager, AttachingTwiceCallsOnce) {
  Manager.Attach(Event());
  Manager.Attach(Event());
  Manager.RefreshUnit();
  EXPECT_EQ(Calls, 1);
  Manager.Detach(Event());
  Manager.RefreshUnit();
  EXPECT_EQ(Calls, 1);
}

TEST_F(RefreshManager, AttachingTwiceBeforeTheChangeCallsOnce) {
  Manager.BeforeUnitChangeAttach(Event());
  Manager.BeforeUnitChangeAttach(Event());
  Manager.RefreshBeforeUnitChange();
  EXPECT_EQ(Calls, 1);
  Manager.BeforeUnitChangeDetach(Event());
  Manager.RefreshBeforeUnitChange();
  EXPECT_EQ(Calls, 1);
}

TEST_F(RefreshManager, DetachingAnUnknownListenerChangesNothing) {
  struct TOther {
    void Listen() {}
  } Other;
  Manager.Attach(Event());
  Manager.Detach(MethodOf<&TOther::Listen>(&Other));
  Manager.BeforeUnitChangeDetach(Event());
  Manager.RefreshUnit();
  EXPECT_EQ(Calls, 1);
}

TEST_F(RefreshManager, TheTwoListsAreApart) {
  Manager.Attach(Event());
  Manager.RefreshBeforeUnitChange();
  EXPECT_EQ(Calls, 0);
  Manager.BeforeUnitChangeAttach(Event());
  Manager.RefreshBeforeUnitChange();
  EXPECT_EQ(Calls, 1);
  Manager.RefreshUnit();
  EXPECT_EQ(Calls, 2);
}

TEST_F(RefreshManager, FlagIsTrueOnlyWhileAfterChangeListenersRun) {
  bool Seen = false;
  Then = [&] { Seen = Manager.IsOnRefreshUnit(); };
  Manager.Attach(Event());
  EXPECT_FALSE(Manager.IsOnRefreshUnit());
  Manager.RefreshUnit();
  EXPECT_TRUE(Seen);
  EXPECT_FALSE(Manager.IsOnRefreshUnit());
}

TEST_F(RefreshManager, BeforeChangeListenersSeeNoFlag) {
  bool Seen = true;
  Then = [&] { Seen = Manager.IsOnRefreshUnit(); };
  Manager.BeforeUnitChangeAttach(Event());
  Manager.RefreshBeforeUnitChange();
  EXPECT_FALSE(Seen);
}

TEST_F(RefreshManager, WithoutListenersTheFlagEndsFalse) {
  Manager.RefreshUnit();
  EXPECT_FALSE(Manager.IsOnRefreshUnit());
}

TEST_F(RefreshManager, ErrorOfAListenerPassesAndClearsTheFlag) {
  Then = [] { throw std::runtime_error("listener"); };
  Manager.Attach(Event());
  EXPECT_THROW(Manager.RefreshUnit(), std::runtime_error);
  EXPECT_FALSE(Manager.IsOnRefreshUnit());
  Manager.BeforeUnitChangeAttach(Event());
  EXPECT_THROW(Manager.RefreshBeforeUnitChange(), std::runtime_error);
}

TEST_F(RefreshManager, NestedRunLeavesTheOuterOneMarked) {
  bool After = false;
  Then = [&] {
    if (Calls > 1) return;
    Manager.RefreshUnit();
    After = Manager.IsOnRefreshUnit();
  };
  Manager.Attach(Event());
  Manager.RefreshUnit();
  EXPECT_EQ(Calls, 2);
  EXPECT_TRUE(After);
  EXPECT_FALSE(Manager.IsOnRefreshUnit());
}

TEST_F(RefreshManager, NestedRunThatFailsLeavesTheOuterOneMarked) {
  bool After = false;
  Then = [&] {
    if (Calls > 1) throw std::runtime_error("inner");
    try {
      Manager.RefreshUnit();
    } catch (const std::runtime_error&) {
      After = Manager.IsOnRefreshUnit();
    }
  };
  Manager.Attach(Event());
  Manager.RefreshUnit();
  EXPECT_TRUE(After);
  EXPECT_FALSE(Manager.IsOnRefreshUnit());
}

TEST(RefreshManagerOfTheProcess, IsThereOnceAndGoneAfterShutDown) {
  TUnitRefreshManager* const AtStart = UnitRefreshManager();
  ASSERT_NE(AtStart, nullptr); // the package has created it
  CreateUnitRefreshManager();
  EXPECT_EQ(UnitRefreshManager(), AtStart);
  FreeUnitRefreshManager();
  EXPECT_EQ(UnitRefreshManager(), nullptr);
  FreeUnitRefreshManager();
  CreateUnitRefreshManager();
  EXPECT_NE(UnitRefreshManager(), nullptr);
}

} // namespace
} // namespace unitlib
