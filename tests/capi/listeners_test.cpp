/// Listeners with context pointers, and the dialog of a library that has none.
#include "tests/capi/CapiTest.h"

#include <stdexcept>
#include <string>

namespace capi_test {
namespace {

class TListeners : public TCapi {
protected:
  ~TListeners() override {
    for (void* Context : {static_cast<void*>(&Log), static_cast<void*>(nullptr)})
      for (const ul_callback Listener :
           {&WriteA, &WriteB, &Throw, &ThrowNumber, &Redraw, &Leave, &TryDialog}) {
        ul_detach_refresh_unit(Listener, Context);
        ul_detach_before_unit_change(Listener, Context);
      }
  }

  static void UL_CALL WriteA(void* Context) { *static_cast<std::string*>(Context) += "a"; }
  static void UL_CALL WriteB(void* Context) { *static_cast<std::string*>(Context) += "b"; }
  static void UL_CALL Throw(void*) { throw std::runtime_error("listener failed"); }
  static void UL_CALL ThrowNumber(void*) { throw 5; }
  static void UL_CALL Redraw(void* Context) {
    int32_t Running = 0;
    EXPECT_EQ(UL_OK, ul_is_on_refresh_unit(&Running));
    EXPECT_EQ(1, Running);
    *static_cast<std::string*>(Context) += Show(Length, 1676.4);
  }
  static void UL_CALL Leave(void* Context) {
    EXPECT_EQ(UL_OK, ul_detach_refresh_unit(&Leave, Context));
    *static_cast<std::string*>(Context) += "leave";
  }
  static void UL_CALL TryDialog(void* Context) {
    int32_t Outcome = -7;
    const ul_status Status =
        ul_project_units_dialog(UL_US_IMPERIAL, nullptr, 0, nullptr, nullptr, nullptr, nullptr, &Outcome);
    *static_cast<std::string*>(Context) +=
        Status == UL_OK && Outcome == UL_DIALOG_NOT_OPENED ? "not opened" : "?";
  }
  static int32_t Running() {
    int32_t Value = -7;
    EXPECT_EQ(UL_OK, ul_is_on_refresh_unit(&Value));
    return Value;
  }

  std::string Log;
};

TEST_F(TListeners, AreCalledInOrderWithTheirContext) {
  std::string Other;
  EXPECT_EQ(UL_OK, ul_attach_refresh_unit(&WriteB, &Log));
  EXPECT_EQ(UL_OK, ul_attach_refresh_unit(&WriteA, &Log));
  EXPECT_EQ(UL_OK, ul_attach_refresh_unit(&WriteA, &Other));
  EXPECT_EQ(UL_OK, ul_refresh_unit());
  EXPECT_EQ("ba", Log);
  EXPECT_EQ("a", Other) << "one function with two contexts is two listeners";
  EXPECT_EQ(UL_OK, ul_detach_refresh_unit(&WriteA, &Other));
  EXPECT_EQ(UL_OK, ul_refresh_unit());
  EXPECT_EQ("baba", Log);
  EXPECT_EQ("a", Other);
}

TEST_F(TListeners, AreAttachedOnce) {
  EXPECT_EQ(UL_OK, ul_attach_refresh_unit(&WriteA, &Log));
  EXPECT_EQ(UL_OK, ul_attach_refresh_unit(&WriteA, &Log));
  EXPECT_EQ(UL_OK, ul_refresh_unit());
  EXPECT_EQ("a", Log);
  EXPECT_EQ(UL_OK, ul_detach_refresh_unit(&WriteA, &Log));
  EXPECT_EQ(UL_OK, ul_detach_refresh_unit(&WriteA, &Log)) << "one that is not there changes nothing";
  EXPECT_EQ(UL_OK, ul_refresh_unit());
  EXPECT_EQ("a", Log);
}

TEST_F(TListeners, BeforeAndAfterAreTwoLists) {
  EXPECT_EQ(UL_OK, ul_attach_before_unit_change(&WriteB, &Log));
  EXPECT_EQ(UL_OK, ul_attach_refresh_unit(&WriteA, &Log));
  EXPECT_EQ(UL_OK, ul_refresh_before_unit_change());
  EXPECT_EQ("b", Log);
  EXPECT_EQ(UL_OK, ul_refresh_unit());
  EXPECT_EQ("ba", Log);
  EXPECT_EQ(UL_OK, ul_detach_before_unit_change(&WriteB, &Log));
  EXPECT_EQ(UL_OK, ul_refresh_before_unit_change());
  EXPECT_EQ("ba", Log);
}

TEST_F(TListeners, MayConvert) {
  EXPECT_EQ(UL_OK, ul_attach_refresh_unit(&Redraw, &Log));
  EXPECT_EQ(UL_OK, ul_refresh_unit());
  EXPECT_EQ("5' 6\"", Log);
  EXPECT_EQ(0, Running());
}

TEST_F(TListeners, MayDetachThemselves) {
  EXPECT_EQ(UL_OK, ul_attach_refresh_unit(&Leave, &Log));
  EXPECT_EQ(UL_OK, ul_attach_refresh_unit(&WriteA, &Log));
  EXPECT_EQ(UL_OK, ul_refresh_unit());
  EXPECT_EQ(UL_OK, ul_refresh_unit());
  EXPECT_EQ("leaveaa", Log);
}

TEST_F(TListeners, MayHaveNoContext) {
  static int Calls = 0;
  const ul_callback Count = [](void* Context) { Calls += Context == nullptr; };
  EXPECT_EQ(UL_OK, ul_attach_refresh_unit(Count, nullptr));
  EXPECT_EQ(UL_OK, ul_refresh_unit());
  EXPECT_EQ(UL_OK, ul_detach_refresh_unit(Count, nullptr));
  EXPECT_EQ(1, Calls);
}

TEST_F(TListeners, MustNotBeNull) {
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_attach_refresh_unit(nullptr, &Log));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_detach_refresh_unit(nullptr, &Log));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_attach_before_unit_change(nullptr, &Log));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_detach_before_unit_change(nullptr, &Log));
  EXPECT_EQ(UL_ERROR_ARGUMENT, ul_is_on_refresh_unit(nullptr));
}

// On Windows an exception of the host's runtime is not one of the library's: a C++ host there must not throw.
#ifndef _WIN32
TEST_F(TListeners, ThatThrowWhatIsNoExceptionEndTheRunToo) {
  EXPECT_EQ(UL_OK, ul_attach_refresh_unit(&ThrowNumber, &Log));
  EXPECT_EQ(UL_ERROR_UNEXPECTED, ul_refresh_unit());
  EXPECT_EQ("A listener or callback has raised an exception", LastText());
  EXPECT_EQ(0, Running());
}

TEST_F(TListeners, ThatThrowEndTheRunWithAStatus) {
  EXPECT_EQ(UL_OK, ul_attach_refresh_unit(&Throw, &Log));
  EXPECT_EQ(UL_OK, ul_attach_refresh_unit(&WriteA, &Log));
  EXPECT_EQ(UL_ERROR_UNEXPECTED, ul_refresh_unit());
  EXPECT_EQ("listener failed", LastText());
  EXPECT_EQ("", Log);
  EXPECT_EQ(0, Running());
}
#endif

TEST_F(TListeners, KeepTheDialogFromOpening) {
  int32_t Available = -7;
  EXPECT_EQ(UL_OK, ul_dialogs_available(&Available));
  EXPECT_EQ(UL_OK, ul_attach_refresh_unit(&TryDialog, &Log));
  EXPECT_EQ(UL_OK, ul_refresh_unit());
  EXPECT_EQ(Available ? "not opened" : "?", Log);
}

TEST_F(TListeners, DialogsCanBeFreedUnopened) {
  EXPECT_EQ(UL_OK, ul_free_dialogs());
  EXPECT_EQ(UL_OK, ul_free_dialogs());
}

#ifndef _WIN32
TEST_F(TListeners, TheLibraryWithoutDialogsSaysSo) {
  int32_t Available = -7, Outcome = -7;
  EXPECT_EQ(UL_OK, ul_dialogs_available(&Available));
  EXPECT_EQ(0, Available);
  EXPECT_EQ(UL_ERROR_NOT_AVAILABLE, ul_project_units_dialog(UL_US_IMPERIAL, nullptr, 0, nullptr, nullptr,
                                                            nullptr, nullptr, &Outcome));
  EXPECT_EQ(UL_ERROR_NOT_AVAILABLE, ul_project_units_dialog_u8(UL_US_IMPERIAL, nullptr, 0, nullptr, nullptr,
                                                               nullptr, nullptr, &Outcome));
  EXPECT_EQ(-7, Outcome);
  EXPECT_EQ(1, [] {
    int32_t Loaded = 0;
    ul_is_loaded(&Loaded);
    return Loaded;
  }()) << "the settings are as they were";
}
#endif

} // namespace
} // namespace capi_test
