/// Listeners, callbacks and failures: nothing crosses the toolkit's loop, the file is always locked again.
#include "tests/ui/UiFixture.h"

#include "unitlib/notify/ZELUnitRefreshUtils.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/FileFolders.h"

#include <filesystem>
#include <stdexcept>

namespace unitlib {
namespace {

using namespace test;

struct THostError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct TListener {
  std::function<void()> Do;
  int Count = 0;
  void Call() {
    ++Count;
    Do();
  }
  THRXRefreshUnit Event() { return MethodOf<&TListener::Call>(this); }
};

class Callbacks : public TUiFixture {
protected:
  ~Callbacks() override {
    UnitRefreshManager()->Detach(Listener.Event());
    UnitRefreshManager()->BeforeUnitChangeDetach(Listener.Event());
  }
  /// The dialog can be opened and cancelled as if nothing had happened.
  void ExpectUsable() {
    DuringLock = [](bool) {};
    DuringOK = [] {};
    EXPECT_EQ(wxTopLevelWindows.GetCount(), 1u); // the host's only
    EXPECT_TRUE(Host->IsEnabled());
    Driver.Next([](wxDialog& Dialog) { Click(Dialog, "btnCancel"); });
    EXPECT_NO_THROW(Execute());
  }
  TListener Listener{[] {}};
};

TEST_F(Callbacks, BeforeChangeListenersRunBeforeTheDialogOpens) {
  Listener.Do = [this] { Calls += "before "; };
  UnitRefreshManager()->BeforeUnitChangeAttach(Listener.Event());
  Driver.Next([](wxDialog& Dialog) { Dialog.Close(); });
  Execute();
  EXPECT_EQ(Calls, "before unlock lock unlock lock ");
}

TEST_F(Callbacks, AfterChangeListenersAreTheHostsToCall) {
  UnitRefreshManager()->Attach(Listener.Event());
  Driver.Next([](wxDialog& Dialog) { Click(Dialog, "btnOK"); });
  Execute();
  EXPECT_EQ(Listener.Count, 0);
  DuringOK = [] { UnitRefreshManager()->RefreshUnit(); };
  Driver.Next([](wxDialog& Dialog) { Click(Dialog, "btnOK"); });
  Execute();
  EXPECT_EQ(Listener.Count, 1);
}

TEST_F(Callbacks, ListenerThatOpensTheDialogIsIgnored) {
  Listener.Do = [this] { Execute(); };
  UnitRefreshManager()->Attach(Listener.Event());
  UnitRefreshManager()->RefreshUnit();
  EXPECT_EQ(Listener.Count, 1);
  EXPECT_EQ(Calls, "");
  EXPECT_EQ(Driver.DialogsOpened, 0);
}

TEST_F(Callbacks, BeforeChangeListenerThatOpensTheDialogIsIgnored) {
  Listener.Do = [this] { Execute(); };
  UnitRefreshManager()->BeforeUnitChangeAttach(Listener.Event());
  Driver.Next([](wxDialog& Dialog) { Dialog.Close(); });
  Execute();
  EXPECT_EQ(Listener.Count, 1);
  EXPECT_EQ(Driver.DialogsOpened, 1);
}

TEST_F(Callbacks, LockCallbackThatOpensTheDialogIsIgnored) {
  DuringLock = [this](bool) { Execute(); };
  Driver.Next([](wxDialog& Dialog) { Dialog.Close(); });
  Execute();
  EXPECT_EQ(Driver.DialogsOpened, 1);
  EXPECT_EQ(Calls, "unlock lock unlock lock ");
}

TEST_F(Callbacks, OKCallbackMayOpenTheDialogAgain) {
  DuringOK = [this] {
    DuringOK = [] {};
    Execute();
  };
  Driver.Next([](wxDialog& Dialog) { Click(Dialog, "btnOK"); });
  Driver.Next([](wxDialog& Dialog) { Click(Dialog, "btnCancel"); });
  Execute();
  EXPECT_EQ(Driver.DialogsOpened, 2);
}

TEST_F(Callbacks, ErrorOfABeforeChangeListener) {
  Listener.Do = [] { throw THostError("listener"); };
  UnitRefreshManager()->BeforeUnitChangeAttach(Listener.Event());
  EXPECT_THROW(Execute(), THostError);
  EXPECT_EQ(Calls, "");
  Listener.Do = [] {};
  ExpectUsable();
}

TEST_F(Callbacks, ErrorOfTheOKCallback) {
  DuringOK = [] { throw THostError("ok"); };
  Driver.Next([](wxDialog& Dialog) { Click(Dialog, "btnOK"); });
  EXPECT_THROW(Execute(), THostError);
  EXPECT_EQ(Calls, "unlock lock unlock lock ok ");
  ExpectUsable();
}

/// The lock callback fails at its n-th call while the dialog is opened, accepted, or cancelled.
struct TLockRow {
  const char* Name;
  int FailAt;
  const char* Button; // null: the dialog does not get as far
  const char* Calls;
};
class CallbacksLock : public Callbacks, public ::testing::WithParamInterface<TLockRow> {};

TEST_P(CallbacksLock, ErrorEndsTheDialogWithTheFileLocked) {
  int Count = 0;
  DuringLock = [&](bool) {
    if (++Count == GetParam().FailAt) throw THostError("lock");
  };
  if (GetParam().Button) Driver.Next([&](wxDialog& Dialog) { Click(Dialog, GetParam().Button); });
  EXPECT_THROW(Execute(), THostError);
  EXPECT_EQ(Calls, GetParam().Calls);
  ExpectUsable();
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CallbacksLock,
    ::testing::Values(TLockRow{"UnlockAtOpening", 1, nullptr, "unlock lock "},
                      TLockRow{"LockAtOpening", 2, nullptr, "unlock lock "},
                      TLockRow{"UnlockAtOK", 3, "btnOK", "unlock lock unlock lock "},
                      TLockRow{"LockAtOK", 4, "btnOK", "unlock lock unlock lock "},
                      TLockRow{"UnlockAtCancel", 3, "btnCancel", "unlock lock unlock lock "},
                      TLockRow{"LockAtCancel", 4, "btnCancel", "unlock lock unlock lock "},
                      TLockRow{"UnlockAfterCancel", 5, "btnCancel", "unlock lock unlock lock unlock lock "},
                      TLockRow{"LockAfterCancel", 6, "btnCancel", "unlock lock unlock lock unlock lock "}),
    [](const auto& Info) { return Info.param.Name; });

TEST_F(Callbacks, MissingFileAtOpening) {
  std::filesystem::remove(std::filesystem::path(File));
  EXPECT_THROW(Execute(), EFileError);
  EXPECT_EQ(Calls, "unlock lock ");
  EXPECT_EQ(wxTopLevelWindows.GetCount(), 1u);
}

TEST_F(Callbacks, MalformedFileAtOpening) {
  const std::string Before = Bytes();
  WriteBytes(File, "<Unit><TemplateConfig/></Unit>");
  EXPECT_THROW(Execute(), EXmlError);
  EXPECT_EQ(Calls, "unlock lock ");
  WriteBytes(File, Before);
  ExpectUsable();
}

TEST_F(Callbacks, FileWithoutThatConfiguration) {
  ReplaceInFile("CurConfigIndex=\"0\"", "CurConfigIndex=\"9\"");
  EXPECT_THROW(Execute(), EListError);
  EXPECT_EQ(Calls, "unlock lock ");
}

TEST_F(Callbacks, FailedSaveLeavesTheFileAsItWas) {
  const std::filesystem::path Path(File), Aside(Folders.File("aside.xml"));
  Driver.Next([&](wxDialog& Dialog) {
    // A folder stands where the file is to be written.
    std::filesystem::rename(Path, Aside);
    std::filesystem::create_directories(Path / "full");
    Click(Dialog, "btnOK");
  });
  EXPECT_THROW(Execute(), EFileError);
  EXPECT_EQ(Calls, "unlock lock unlock lock ");
  std::filesystem::remove_all(Path);
  std::filesystem::rename(Aside, Path);
  ExpectUsable();
}

TEST_F(Callbacks, FailedWorkingCopyNeitherUnlocksNorSaves) {
  const std::string Before = Bytes();
  Driver.Next([&](wxDialog& Dialog) {
    WriteBytes(Folders.File("blocked"), "a file where a folder is needed");
    SetCommonDocumentsPath(Folders.File("blocked"));
    Choose(Dialog, "cbbUnitType", 2);
    Click(Dialog, "btnOK");
  });
  EXPECT_THROW(Execute(), EFileError);
  EXPECT_EQ(Calls, "unlock lock ");
  EXPECT_EQ(Bytes(), Before);
  SetCommonDocumentsPath(Folders.File("docs"));
  ExpectUsable();
}

TEST_F(Callbacks, FileGoneAtCancel) {
  Driver.Next([&](wxDialog& Dialog) {
    std::filesystem::remove(std::filesystem::path(File));
    Click(Dialog, "btnCancel");
  });
  EXPECT_THROW(Execute(), EFileError);
  EXPECT_EQ(Calls, "unlock lock unlock lock ");
}

TEST_F(Callbacks, FileGoneAtCloseBox) {
  Driver.Next([&](wxDialog& Dialog) {
    std::filesystem::remove(std::filesystem::path(File));
    Dialog.Close();
  });
  EXPECT_THROW(Execute(), EFileError);
  EXPECT_EQ(Calls, "unlock lock unlock lock ");
}

TEST_F(Callbacks, ConversionErrorInTheFormatDialogEndsBoth) {
  EditFile([] { TSystemUnitDataManager::CurConfigMeasure(1)->ExampleValue = u"no number"; });
  Driver.Next([](wxDialog& Dialog) {
    EXPECT_EQ(Caption(Dialog, 1), "");
    ClickOn(MeasureButton(Dialog, 1));
  });
  Driver.Next([](wxDialog& Dialog) { Click(Dialog, "btnOK"); });
  EXPECT_THROW(Execute(), EConvertError);
  EXPECT_EQ(Calls, "unlock lock ");
  ExpectUsable();
}

struct TFailingPrompt {
  void Show(std::u16string_view, std::u16string_view) { throw THostError("prompt"); }
};

TEST_F(Callbacks, ErrorOfThePromptHookEndsBoth) {
  EditFile([] { TSystemUnitDataManager::CurConfigMeasure(1)->GetCurUnit()->CurRoundIndex = 7; });
  TFailingPrompt Prompt;
  SetPromptHook(MethodOf<&TFailingPrompt::Show>(&Prompt));
  Driver.Next([](wxDialog& Dialog) { ClickOn(MeasureButton(Dialog, 1)); });
  Driver.Next([](wxDialog& Dialog) { Click(Dialog, "btnOK"); });
  EXPECT_THROW(Execute(), THostError);
  SetPromptHook({});
  ExpectUsable();
}

TEST_F(Callbacks, SettingsFreedUnderTheDialogAreAnErrorNotACrash) {
  Driver.Next([](wxDialog& Dialog) {
    FreeUnitSystem();
    ClickOn(MeasureButton(Dialog, 1));
  });
  EXPECT_THROW(Execute(), EListError);
  ExpectUsable();
}

} // namespace
} // namespace unitlib
